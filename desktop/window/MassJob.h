// Works the masses of a STEP document out in a thread of its own, so that the window stays alive.
// It touches nothing but the document; what becomes of the masses is the receiver's business.
#pragma once

#include "desktop/import/StepImport.h"

#include <QObject>

#include <atomic>
#include <thread>

namespace desktop {

class MassJob final : public QObject {
    Q_OBJECT

public:
    /// Starts at once. Until the job is gone nobody else may use the document.
    explicit MassJob(import::StepDocument& document, QObject* parent = nullptr);
    /// Cancels and waits for the thread, which may take seconds inside a large shape.
    ~MassJob() override;

    /// Ended follows soon.
    void Cancel() { m_isCancelled = true; }

signals:
    /// 0 to 1000.
    void Progressed(int permille);
    /// The last signal, on the thread that the job was made on. Empty when cancelled.
    void Ended(const desktop::import::StepDocument::Masses& masses);

private:
    void Run(import::StepDocument& document);

    std::atomic<bool> m_isCancelled = false;
    std::thread m_thread;
};

} // namespace desktop

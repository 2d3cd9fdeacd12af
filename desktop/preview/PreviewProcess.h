// One preview on its way: the program works it out in a process of its own, which may crash, hang
// and eat memory without any harm to this one.
#pragma once

#include "desktop/preview/PreviewRequest.h"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <chrono>

namespace desktop {

class PreviewProcess final : public QObject {
    Q_OBJECT

public:
    /// Starts at once. `program` is the path of this program.
    PreviewProcess(const QString& program, const PreviewRequest& request,
                   std::chrono::milliseconds limit, QObject* parent = nullptr);
    /// Ends the process, wherever it is.
    ~PreviewProcess() override;

    const PreviewRequest& GetRequest() const { return m_request; }
    /// The answer, without going through the event loop.
    PreviewAnswer Wait();
    /// Answers never, and goes by itself once the process is gone.
    void Abandon();

signals:
    void Answered(const desktop::PreviewAnswer& answer);

private:
    void OnEnd();
    void OnTooLong();
    PreviewAnswer TakeAnswer();

    PreviewRequest m_request;
    std::chrono::milliseconds m_limit;
    QTimer m_timer;
    QProcess m_process;
    bool m_isTooLong = false;
};

} // namespace desktop

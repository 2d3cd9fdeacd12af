// What is asked of the program in a process of its own, which may crash, hang and eat memory
// without any harm to this one. It answers one request after the other, and may know by then what
// it has read for the one before.
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
    /// `program` is the path of this program.
    explicit PreviewProcess(const QString& program, QObject* parent = nullptr);
    /// Ends the process, wherever it is.
    ~PreviewProcess() override;

    /// The limit is for this request alone, for which the process is started unless it still runs.
    /// Not before the one before is answered.
    void Ask(const PreviewRequest& request, std::chrono::milliseconds limit);
    bool IsRunning() const { return m_process.state() == QProcess::Running; }
    /// The answer, without going through the event loop.
    PreviewAnswer Wait();
    /// The process stands still, and time with it, until it is woken.
    void SetAsleep(bool isAsleep);
    /// Answers never, and goes by itself once the process is gone.
    void Abandon();

signals:
    void Answered(const desktop::PreviewAnswer& answer);

private:
    void OnNews();
    void OnEnd();
    void OnTooLong();
    void Answer(const PreviewAnswer& answer);
    PreviewAnswer MakeTooLong() const;
    PreviewAnswer MakeLost() const;

    QString m_program;
    std::chrono::milliseconds m_limit{};
    QTimer m_timer;
    /// What is left of the limit while it sleeps.
    std::chrono::milliseconds m_left{};
    QProcess m_process;
    bool m_isAsked = false;
    bool m_isAsleep = false;
};

} // namespace desktop

#include "desktop/preview/PreviewProcess.h"

#include <utility>

namespace desktop {

namespace {

constexpr int c_endOfProcess = 2000;

} // namespace

PreviewProcess::PreviewProcess(const QString& program, const PreviewRequest& request,
                               std::chrono::milliseconds limit, QObject* parent)
    : QObject(parent), m_request(request), m_limit(limit) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PreviewProcess::OnTooLong);
    connect(&m_process, &QProcess::finished, this, &PreviewProcess::OnEnd);
    // Queued: it may come while nobody listens yet.
    connect(
        &m_process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                OnEnd();
        },
        Qt::QueuedConnection);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(program, {QStringLiteral("--answer-preview")});
    m_process.write(ToBytes(request));
    m_process.closeWriteChannel();
    m_timer.start(m_limit);
}

PreviewProcess::~PreviewProcess() {
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(c_endOfProcess);
}

PreviewAnswer PreviewProcess::Wait() {
    m_process.disconnect(this);
    m_isTooLong = !m_process.waitForFinished(static_cast<int>(m_limit.count())) &&
                  m_process.state() != QProcess::NotRunning;
    return TakeAnswer();
}

void PreviewProcess::Abandon() {
    disconnect(this, &PreviewProcess::Answered, nullptr, nullptr);
    m_timer.stop();
    if (m_process.state() == QProcess::NotRunning)
        deleteLater();
    else
        m_process.kill();
}

void PreviewProcess::OnTooLong() {
    m_isTooLong = true;
    m_process.kill();
}

void PreviewProcess::OnEnd() {
    m_timer.stop();
    emit Answered(TakeAnswer());
    deleteLater();
}

PreviewAnswer PreviewProcess::TakeAnswer() {
    if (m_isTooLong) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(m_limit).count();
        return MakeFailure(tr("Takes longer than %1 s to draw").arg(seconds));
    }
    if (m_process.error() == QProcess::FailedToStart)
        return MakeFailure(tr("The preview can't be started"));
    if (std::optional<PreviewAnswer> answer = ReadAnswer(m_process.readAllStandardOutput()))
        return *std::move(answer);
    return MakeFailure(tr("The file is damaged, or needs too much memory"));
}

} // namespace desktop

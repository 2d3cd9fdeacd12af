#include "desktop/preview/PreviewProcess.h"

#include <QDeadlineTimer>

#include <csignal>
#include <sys/types.h>
#include <utility>

namespace desktop {

namespace {

constexpr int c_endOfProcess = 2000;

} // namespace

PreviewProcess::PreviewProcess(const QString& program, QObject* parent)
    : QObject(parent), m_program(program) {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PreviewProcess::OnTooLong);
    connect(&m_process, &QProcess::readyReadStandardOutput, this, &PreviewProcess::OnNews);
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
}

PreviewProcess::~PreviewProcess() {
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished(c_endOfProcess);
}

void PreviewProcess::Ask(const PreviewRequest& request, std::chrono::milliseconds limit) {
    if (m_process.state() == QProcess::NotRunning)
        m_process.start(m_program, {QStringLiteral("--answer-preview")});
    m_isAsked = true;
    m_limit = limit;
    m_process.write(ToFrame(ToBytes(request)));
    m_timer.start(m_limit);
}

PreviewAnswer PreviewProcess::Wait() {
    m_process.disconnect(this);
    m_timer.stop();
    m_isAsked = false;
    const QDeadlineTimer end(m_limit);
    std::optional<QByteArray> bytes;
    while (!(bytes = TakeFrame(m_process)) && m_process.state() != QProcess::NotRunning) {
        if (end.hasExpired()) {
            m_process.kill();
            return MakeTooLong();
        }
        m_process.waitForReadyRead(static_cast<int>(end.remainingTime()));
    }
    std::optional<PreviewAnswer> answer = bytes ? ReadAnswer(*bytes) : std::nullopt;
    return answer ? *std::move(answer) : MakeLost();
}

void PreviewProcess::SetAsleep(bool isAsleep) {
    if (isAsleep == m_isAsleep || m_process.state() != QProcess::Running)
        return;
    m_isAsleep = isAsleep;
    ::kill(static_cast<pid_t>(m_process.processId()), isAsleep ? SIGSTOP : SIGCONT);
    if (isAsleep && m_timer.isActive()) {
        m_left = m_timer.remainingTimeAsDuration();
        m_timer.stop();
    } else if (!isAsleep && m_isAsked) {
        m_timer.start(m_left);
    }
}

void PreviewProcess::Abandon() {
    disconnect(this, &PreviewProcess::Answered, nullptr, nullptr);
    m_timer.stop();
    connect(&m_process, &QProcess::finished, this, &QObject::deleteLater);
    if (m_process.state() == QProcess::NotRunning)
        deleteLater();
    else
        m_process.kill();
}

void PreviewProcess::OnTooLong() {
    m_process.kill();
    Answer(MakeTooLong());
}

void PreviewProcess::OnNews() {
    const std::optional<QByteArray> bytes = TakeFrame(m_process);
    if (!bytes || !m_isAsked)
        return;
    std::optional<PreviewAnswer> answer = ReadAnswer(*bytes);
    Answer(answer ? *std::move(answer) : MakeLost());
}

void PreviewProcess::OnEnd() {
    m_isAsleep = false;
    if (m_isAsked)
        Answer(MakeLost());
}

void PreviewProcess::Answer(const PreviewAnswer& answer) {
    m_timer.stop();
    m_isAsked = false;
    emit Answered(answer);
}

PreviewAnswer PreviewProcess::MakeTooLong() const {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(m_limit).count();
    PreviewAnswer answer = MakeFailure(tr("Takes longer than %1 s to draw").arg(seconds));
    answer.isLasting = false;
    return answer;
}

PreviewAnswer PreviewProcess::MakeLost() const {
    PreviewAnswer answer = MakeFailure(m_process.error() == QProcess::FailedToStart
                                           ? tr("The preview can't be started")
                                           : tr("The file is damaged, or needs too much memory"));
    answer.isLasting = false;
    return answer;
}

} // namespace desktop

#include "desktop/preview/PreviewService.h"

#include "desktop/preview/PreviewProcess.h"

#include <QDateTime>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPalette>

#include <utility>

namespace desktop {

namespace {

constexpr std::chrono::seconds c_usualLimit{30};
constexpr std::chrono::milliseconds c_rest{60};
/// In KB: a few dozen pictures as large as a preview usually is.
constexpr int c_mostKept = 96 * 1024;

constexpr int c_mostPixels = 8192;

QString& Program() {
    static QString path;
    return path;
}

} // namespace

void PreviewService::SetProgram(const QString& path) {
    Program() = path;
}

QString PreviewService::GetProgram() {
    return Program();
}

QString PreviewService::MarkFile(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile())
        return {};
    // That of its rights, too, on which depends whether it can be read.
    return QStringList{path, QString::number(file.size()),
                       QString::number(file.lastModified().toMSecsSinceEpoch()),
                       QString::number(file.metadataChangeTime().toMSecsSinceEpoch())}
        .join(QLatin1Char('\n'));
}

QString PreviewService::MakeKey(const PreviewRequest& request) {
    const QString mark = MarkFile(request.path);
    if (mark.isEmpty())
        return {};
    return QStringList{mark,
                       QString::number(request.pixels.width()),
                       QString::number(request.pixels.height()),
                       QString::number(request.scale),
                       QString::number(request.page),
                       request.ink.name(),
                       QString::fromLatin1(ToBytes(request.part).toHex())}
        .join(QLatin1Char('\n'));
}

PreviewService::PreviewService(QObject* parent)
    : QObject(parent), m_limit(c_usualLimit), m_known(c_mostKept) {
    m_start.setSingleShot(true);
    m_start.setInterval(c_rest);
    connect(&m_start, &QTimer::timeout, this, &PreviewService::Start);
}

PreviewService::~PreviewService() = default;

void PreviewService::Show(const QString& absolutePath, QSize pixels, int page,
                          const StepPart& part) {
    Cancel();
    m_request = {};
    m_request.path = absolutePath;
    m_request.pixels = pixels.expandedTo(QSize(1, 1)).boundedTo(QSize(c_mostPixels, c_mostPixels));
    m_request.scale = qGuiApp->devicePixelRatio();
    m_request.page = page;
    m_request.part = part;
    m_request.ink = QGuiApplication::palette().color(QPalette::Text);
    m_key = MakeKey(m_request);
    if (const PreviewAnswer* const known = m_known.object(m_key)) {
        // A receiver may ask for another one, which may drop this one.
        Tell(PreviewAnswer(*known));
        return;
    }
    m_start.start();
    emit Busy();
}

void PreviewService::Cancel() {
    m_start.stop();
    if (m_process)
        m_process->Abandon();
    m_process = nullptr;
}

void PreviewService::Start() {
    if (Program().isEmpty()) {
        emit Failed(tr("No previews here"));
        return;
    }
    m_process = new PreviewProcess(Program(), this);
    connect(m_process, &PreviewProcess::Answered, this, &PreviewService::Take);
    m_process->Ask(m_request, m_limit);
}

void PreviewService::Take(const PreviewAnswer& answer) {
    // A new one for each file: what one has done to it must not harm the next.
    std::exchange(m_process, nullptr)->Abandon();
    // A file that was changed meanwhile may be in the picture or not.
    if (answer.isLasting && !m_key.isEmpty() && m_key == MakeKey(m_request))
        m_known.insert(m_key, new PreviewAnswer(answer),
                       static_cast<int>(answer.image.sizeInBytes() / 1024 + 1));
    Tell(answer);
}

void PreviewService::Tell(const PreviewAnswer& answer) {
    if (answer.error.isEmpty())
        emit Ready(answer.image, answer.page, answer.pageCount);
    else
        emit Failed(answer.error);
}

} // namespace desktop

#include "desktop/preview/PartPictures.h"

#include "desktop/preview/PreviewProcess.h"
#include "desktop/preview/PreviewService.h"

#include <QGuiApplication>
#include <QPalette>
#include <QToolTip>

#include <chrono>
#include <memory>
#include <utility>

namespace desktop {

namespace {

constexpr int c_pixels = 160;
constexpr std::chrono::milliseconds c_turn{100};
/// The file that was read stays in memory for so long.
constexpr std::chrono::seconds c_rest{20};
constexpr std::chrono::seconds c_limit{30};
/// A file with more such parts is left alone: each costs another reading.
constexpr int c_mostCrashes = 3;
/// In KB: some three hundred pictures.
constexpr int c_mostKept = 32 * 1024;

} // namespace

PartPictures::PartPictures(QObject* parent) : QObject(parent), m_known(c_mostKept) {
    m_turn.setInterval(c_turn);
    connect(&m_turn, &QTimer::timeout, this, &PartPictures::GoOn);
    m_rest.setSingleShot(true);
    m_rest.setInterval(c_rest);
    connect(&m_rest, &QTimer::timeout, this, &PartPictures::EndProcess);
}

PartPictures::~PartPictures() = default;

PartPictures::Wanted PartPictures::MakeWanted(const QString& file, const StepPart& part) {
    Wanted wanted;
    PreviewRequest& request = wanted.request;
    request.path = file;
    request.scale = qGuiApp->devicePixelRatio();
    request.pixels = QSize(c_pixels, c_pixels) * request.scale;
    request.ink = QToolTip::palette().color(QPalette::ToolTipText);
    request.part = part;
    request.isPartAlone = true;
    wanted.key = PreviewService::MakeKey(request);
    return wanted;
}

QImage PartPictures::Find(const QString& file, const StepPart& part) const {
    const QImage* const known = m_known.object(MakeWanted(file, part).key);
    return known ? *known : QImage();
}

void PartPictures::Want(const QString& file, const QList<StepPart>& parts) {
    m_wanted.clear();
    const QString mark = PreviewService::MarkFile(file);
    if (mark.isEmpty() || PreviewService::GetProgram().isEmpty())
        return;
    if (std::exchange(m_mark, mark) != mark) {
        EndProcess();
        m_crashes = 0;
    }
    if (m_crashes == c_mostCrashes)
        return;
    for (const StepPart& part : parts)
        m_wanted.push_back(MakeWanted(file, part));
    if (!m_turn.isActive()) {
        m_turn.start();
        // In a queue: the tip that it is for is not shown yet.
        QMetaObject::invokeMethod(this, &PartPictures::GoOn, Qt::QueuedConnection);
    }
}

void PartPictures::Stop() {
    m_wanted.clear();
    EndProcess();
}

void PartPictures::GoOn() {
    const bool isHeldUp = m_obstacle && m_obstacle();
    if (m_process)
        m_process->SetAsleep(isHeldUp);
    if (isHeldUp || !m_drawn.isEmpty())
        return;
    while (!m_wanted.isEmpty() && m_known.contains(m_wanted.front().key))
        m_wanted.pop_front();
    if (m_wanted.isEmpty()) {
        m_turn.stop();
        m_rest.start();
        return;
    }
    m_rest.stop();
    const Wanted next = m_wanted.takeFirst();
    m_drawn = next.key;
    if (!m_process) {
        m_process = new PreviewProcess(PreviewService::GetProgram(), this);
        connect(m_process, &PreviewProcess::Answered, this, &PartPictures::Take);
    }
    m_process->Ask(next.request, c_limit);
}

void PartPictures::Take(const PreviewAnswer& answer) {
    auto picture = std::make_unique<QImage>(answer.image);
    picture->setDevicePixelRatio(qGuiApp->devicePixelRatio());
    const auto kilobytes = static_cast<int>(picture->sizeInBytes() / 1024 + 1);
    m_known.insert(std::exchange(m_drawn, {}), picture.release(), kilobytes);
    if (!answer.isLasting) {
        EndProcess();
        if (++m_crashes == c_mostCrashes)
            m_wanted.clear();
    }
    if (!answer.image.isNull())
        emit Drawn();
    GoOn();
}

void PartPictures::EndProcess() {
    m_drawn.clear();
    if (m_process)
        std::exchange(m_process, nullptr)->Abandon();
}

} // namespace desktop

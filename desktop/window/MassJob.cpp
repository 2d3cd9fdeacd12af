#include "desktop/window/MassJob.h"

#include <algorithm>
#include <utility>

namespace desktop {

MassJob::MassJob(import::StepDocument& document, QObject* parent)
    : QObject(parent), m_thread([this, &document] { Run(document); }) {}

MassJob::~MassJob() {
    Cancel();
    m_thread.join();
}

void MassJob::Run(import::StepDocument& document) {
    int last = -1;
    const auto progress = [&](double share) {
        const int permille = static_cast<int>(std::clamp(share, 0.0, 1.0) * 1000);
        if (std::exchange(last, permille) != permille)
            emit Progressed(permille);
        return !m_isCancelled;
    };
    import::StepDocument::Masses masses;
    try {
        masses = document.ComputeMasses(progress);
    } catch (...) {
        // Geometry that can't be worked out leaves the product without masses, as it was.
        masses.clear();
    }
    QMetaObject::invokeMethod(
        this, [this, masses = std::move(masses)] { emit Ended(masses); }, Qt::QueuedConnection);
}

} // namespace desktop

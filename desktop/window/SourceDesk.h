// Stands behind a session for the file that its product came from: opens it in the desktop's
// program for it, shows that reading takes a while, and tells the window of updates.
#pragma once

#include "desktop/StepSource.h"
#include "desktop/preview/SheetSizes.h"

#include <functional>

namespace desktop {

class SourceDesk final : public ISourceDesk {
public:
    using Stop = std::function<void()>;
    using Updated = std::function<void(const platform::SourceUpdate& update)>;

    SourceDesk(Stop stop, Updated updated)
        : m_stop(std::move(stop)), m_updated(std::move(updated)) {}

    bool OpenFile(const std::filesystem::path& path) override;
    std::optional<platform::SheetSize> FindSheetSize(const std::filesystem::path& path) override;
    void SetBusy(bool isBusy) override;
    void StopMeasuring() override { m_stop(); }
    void OnUpdated(const platform::SourceUpdate& update) override { m_updated(update); }

private:
    SheetSizes m_sheets;
    Stop m_stop;
    Updated m_updated;
};

} // namespace desktop

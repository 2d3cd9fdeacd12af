#include "desktop/Session.h"

#include "host/frame/FeatureTrees.h"
#include "platform/product/MemoryProduct.h"
#include "platform/view/HostFrame.h"

#include <utility>

namespace desktop {

namespace {

void SetAllExpanded(platform::TreeTableRow& row, bool expanded) {
    row.SetExpanded(expanded);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        SetAllExpanded(row.GetChildRow(i), expanded);
}

} // namespace

Session::Session(Document document)
    : m_path(std::move(document.path)), m_notes(std::move(document.notes)),
      m_step(std::move(document.step)),
      m_product(std::make_shared<platform::MemoryProduct>(std::move(document.model))),
      m_frame(std::make_unique<platform::HostFrame>(m_product)) {}

Session::~Session() = default;

platform::TreeTableView& Session::GetView() const {
    return m_frame->GetView();
}

void Session::ExpandAll() {
    if (platform::TreeTableRow* root = GetView().GetRoot())
        SetAllExpanded(*root, true);
}

void Session::CollapseAll() {
    if (platform::TreeTableRow* root = GetView().GetRoot()) {
        SetAllExpanded(*root, false);
        root->SetExpanded(true);
    }
}

void Session::TakeMasses(const import::StepDocument::Masses& masses) {
    m_product->Change([&](platform::ProductModel& model) { ApplyMasses(model, masses); });
    m_frame->GetTree().Synchronize();
}

} // namespace desktop

// Heads that open a dialog of the host for all selected rows, where a value is chosen and not
// typed: mass, density and material, and the section of the specification.
#pragma once

#include "columns/headers/PlainHeaders.h"

namespace productTree {

/// Of mass, density and material where they are links.
class MIPHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    TreeActionResult OnValueEdited() override;
    TreeActionResult OnClicked() override;
};

/// A material that is typed, or chosen by the menu.
class SimplifiedMaterialHeaderImpl final : public StringHeaderImpl {
public:
    using StringHeaderImpl::StringHeaderImpl;

    TreeActionResult OnPopupCommand(int command) override;
    boost::intrusive_ptr<IMenuItems> GetPopupMenu() override;

private:
    std::vector<UniqueMetaObjectKey> GatherKeys() const;

    boost::intrusive_ptr<IMenuItems> m_menu;
};

class SpcSectionHeaderImpl final : public ProductTreeHeaderImpl {
public:
    using ProductTreeHeaderImpl::ProductTreeHeaderImpl;

    void InitEditor() override;
    TreeActionResult OnValueEdited() override;
    TreeActionResult OnClicked() override;

private:
    struct Shared;
    Shared FindShared() const;
};

} // namespace productTree

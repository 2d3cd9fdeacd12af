// The cells of object rows for mass, density and material. They are links to one dialog of the
// host; where the product has no records of materials, the numbers are typed and the material is a
// text with a menu.
#pragma once

#include "cells/PlainCells.h"
#include "host/data/IfProductTreeData.h"

#include <span>
#include <vector>

namespace productTree {

/// What the three links have in common.
class MipCellImpl : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    TreeActionResult OnValueEdited() override;
    /// Also for a read-only value: the dialog shows what there is, and judges for itself.
    TreeActionResult OnHypertextActivated() override;
    /// Live, whatever is known of the object.
    int GetLinkStyle() override;

protected:
    void ShowMip(const SharedText& shown, bool isOutdated);
    /// The value in shown units, as a number and as its text; 0 and no text for none.
    struct Amount {
        double number = 0;
        SharedText text;
    };
    std::optional<Amount> ReadAmount();
};

class MassCellImpl final : public MipCellImpl {
public:
    using MipCellImpl::MipCellImpl;

    /// No mass is remembered as 0: groups add up.
    void Update() override;
};

class DensityCellImpl final : public MipCellImpl {
public:
    using MipCellImpl::MipCellImpl;

    void Update() override;
};

class MaterialNameCellImpl final : public MipCellImpl {
public:
    using MipCellImpl::MipCellImpl;

    void Update() override;
};

class MaterialSimplifiedCellImpl final : public StringCellImpl {
public:
    using StringCellImpl::StringCellImpl;

    TreeActionResult OnPopupCommand(int command) override;
    MenuPtr GetPopupMenu() override;
};

/// Lets the user choose mass, density and material of the objects. `changed` is the action when he
/// has changed any.
TreeActionResult EditMipOf(IfProductTreeData& data, const std::vector<UniqueMetaObjectKey>& keys,
                           MipSource source, int changed);

/// The same for a command of a material's menu; nothing for any other command.
TreeActionResult ExecMaterialCommand(IfProductTreeData& data,
                                     const std::vector<UniqueMetaObjectKey>& keys, int command);

/// The commands of a material's menu.
std::span<const int> GetMaterialCommands();

} // namespace productTree

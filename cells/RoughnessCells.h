// The cells for the roughness of a surface, a sign of a list and a text, and for whether an object
// is left uncut in sections. All three hold something else than they show.
#pragma once

#include "cells/CellWithPropValue.h"
#include "cells/GroupCellImpl.h"
#include "cells/PlainCells.h"

namespace productTree {

/// Holds the place of the sign in the column's list, not the list's element.
class RoughSignCellImpl final : public ListCellImpl {
public:
    using ListCellImpl::ListCellImpl;

    void Update() override;
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;
    int GetValueIndex() override;
};

/// Typed as any text, or chosen in the dialog that the cell's menu opens.
class RoughValueCellImpl final : public StringCellImpl {
public:
    using StringCellImpl::StringCellImpl;

    TreeActionResult OnPopupCommand(int command) override;
    MenuPtr GetPopupMenu() override;
};

/// What stands for yes and no in the product data: not sected, sected. A number of any other value
/// counts as yes; texts are understood and never written.
namespace notSected {

inline constexpr int yes = 752;
inline constexpr int no = 753;

/// The number of that place in the list of yes and no.
constexpr int FromPlace(int place) {
    return place == 1 ? no : yes;
}

} // namespace notSected

class NotSectedCellImpl final : public CellWithPropValue<ProductTreeCellImpl> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

/// The choice on which the members agree, by its text.
class NotSectedGroupCellImpl final : public CellWithPropValue<GroupCellOf<GroupMode::CommonValue>> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;

private:
    int FindGroupIndex() const;
};

} // namespace productTree

// The cells of the name column. The name is the row's own label, so that they show through the row
// and have no cell slot there.
#pragma once

#include "cells/CellWithPropValue.h"
#include "cells/GroupCellImpl.h"

namespace productTree {

/// The name of one object, with the postfix of a billet.
class NameCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    bool CanInsertExtendedReference() override;
    /// A changed name always builds the rows anew: they are sorted and grouped by it.
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;

private:
    void Show(const SharedText& text);
};

/// The members' common name with their count, or the count alone.
class NameGroupCellImpl final : public CellWithPropValue<GroupCellOf<GroupMode::NoValue>> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    void Update() override;
    bool CanInsertExtendedReference() override;
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;
};

} // namespace productTree

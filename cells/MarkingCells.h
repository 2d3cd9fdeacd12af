// The cells of the designation column. The seven parts stand in the row's marking editor, which the
// item reads and writes for them.
#pragma once

#include "cells/CellWithPropValue.h"
#include "cells/GroupCellImpl.h"
#include "host/VariantMarking.h"

namespace productTree {

/// The designation of one object.
class MarkingCellImpl final : public CellWithPropValue<ProductTreeCellImpl> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    /// A changed designation always builds the rows anew: they are sorted and grouped by it.
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;

private:
    /// Whether the text that is shown was made without the document code.
    bool m_isCodeLocked = false;
};

/// The members' common designation, or none.
class MarkingGroupCellImpl final : public GroupCellOf<GroupMode::NoValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;
    PropValue GetShownPropValue() const override { return m_marking.GetPropValue(); }

private:
    VariantMarking m_marking;
    bool m_isShown = false;
    bool m_isCodeLocked = false;
};

} // namespace productTree

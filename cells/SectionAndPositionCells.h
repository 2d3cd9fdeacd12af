// The cells of the two columns that place an object in the specification. Sections are chosen in a
// dialog of the host that a link opens, and never typed; positions are whole numbers from 1 on.
#pragma once

#include "cells/CellWithPropValue.h"
#include "cells/GroupCellImpl.h"

namespace productTree {

class SPCSectionCellImpl final : public CellWithPropValue<ProductTreeCellImpl> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    /// `extra` says whether the name follows the section, and then becomes that of the material.
    /// Without it there are no changes: a section alone is no choice.
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    TreeActionResult OnHypertextActivated() override;
    /// Live, whatever is known of the object.
    int GetLinkStyle() override;
};

/// The section that the members share, as their cells remember it.
class SpcSectionGroupCellImpl final : public CellWithPropValue<GroupCellOf<GroupMode::NoValue>> {
public:
    using CellWithPropValue::CellWithPropValue;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    TreeActionResult OnHypertextActivated() override;
    int GetLinkStyle() override;
};

/// Shown and remembered as text, whatever its type is.
class PosCellImpl final : public ProductTreeCellImpl {
public:
    using ProductTreeCellImpl::ProductTreeCellImpl;

    void InitEditor() override;
    /// Also for a cell that can't be edited: numbering asks the row instead.
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    /// Builds the rows anew in any case.
    TreeActionResult OnValueEdited() override;

private:
    PropertyRef MakePositionRef() const;
};

/// The position of the group's own key, which is no mix of the members'.
class PosGroupCellImpl final : public GroupCellOf<GroupMode::NoValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    TreeActionResult OnValueEdited() override;

private:
    PropertyRef MakePositionRef() const;
};

} // namespace productTree

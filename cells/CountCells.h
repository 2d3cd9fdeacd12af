// The cells of the count columns: that of the current embodiments and those of single ones. A count
// is a text that the product data alone understands; where IsCountMark says so it is a mark, a
// check box in embodiment mode and nothing outside of it. Which of the two it is, is asked anew
// each time, so that a change of the mode takes effect at the next reading.
#pragma once

#include "cells/CellWithPropValue.h"
#include "cells/GroupCellImpl.h"

#include <set>

namespace productTree {

/// The count of one object in one embodiment.
class CountCellImpl final : public CellWithPropValue<ProductTreeCellImpl> {
public:
    /// `embodimentKey` is the one whose count of the object this column shows.
    CountCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                  const UniqueMetaObjectKey& key, const UniqueMetaObjectKey& embodimentKey);

    /// Never while there is nothing to show: a mark outside of embodiment mode, an object that does
    /// not count into the product.
    bool IsEditable() override;
    void InitEditor() override;
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    bool HasHypertext() override;
    bool CanInsertHypertext() override;
    bool CanEditHypertext() override;
    bool CanDestroyHypertext() override;
    bool IsHypertextActive() override;
    /// A count that comes or goes builds the rows anew.
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    /// A count can be worked out again even where it can't be typed.
    std::set<int> GetAvailableCommands() override;
    bool CanTransmitToSource() override;
    SharedText GetSourceIcon() override;

private:
    PropertyRef MakeCountRef() const;
    /// For what makes no difference between rows in groups and others.
    PropertyRef MakePlainCountRef() const;
    bool IsCountedOut() const;
    bool IsBlank() const;
    void ShowMark(bool isSet);
    LinkTargets MakeLinkTargets() const override;

    UniqueMetaObjectKey m_embodimentKey;
};

/// The count of a group in the embodiments of the column: a number of the group's own, or what the
/// marks of its members have in common.
class CountGroupCellImpl final : public GroupCellImpl {
public:
    using Embodiments = std::set<UniqueMetaObjectKey>;

    /// `embodiments` is not empty.
    CountGroupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                       const UniqueMetaObjectKey& key, Embodiments embodiments);

    /// As the group's own count is, whatever the members'.
    bool IsEditable() override;
    void InitEditor() override;
    /// A mark goes to all members; a number is written once, as the group's own, in the first
    /// embodiment.
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    void Update() override;
    bool HasHypertext() override;
    TreeActionResult OnValueEdited() override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    std::set<int> GetAvailableCommands() override;
    bool CanTransmitToSource() override;

private:
    PropertyRef MakeMemberForm() const override;
    const UniqueMetaObjectKey& GetFirstEmbodiment() const { return *m_embodiments.begin(); }
    PropertyRef MakeGroupRef(const UniqueMetaObjectKey& embodiment) const;
    bool IsAnyRecalcAvailable() const;
    /// No value: some members are marked and some are not.
    std::optional<bool> FindCommonMark() const;
    SharedText ReadCount() const;
    void ShowMark(std::optional<bool> mark);
    void ShowText(const SharedText& text);

    Embodiments m_embodiments;
};

} // namespace productTree

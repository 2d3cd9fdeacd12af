// A cell of a group row. It owns no value: it mixes what the cells of the same column show in the
// rows directly below, answers every question by asking them, and hands an edit on to them all.
#pragma once

#include "cells/ProductTreeCellImpl.h"

#include <functional>
#include <utility>

namespace productTree {

/// What a group's value is made of its members'.
enum class GroupMode : unsigned char {
    /// A text that lists their texts, in the order of numbers, each once.
    AllValues = 0,
    /// The value on which all agree, or none.
    CommonValue = 1,
    /// The class makes a value of its own.
    NoValue = 2
};

class GroupCellImpl : public ProductTreeCellImpl {
public:
    GroupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                  GroupMode groupMode, const UniqueMetaObjectKey& key);

    /// As soon as one member is.
    bool IsEditable() override;
    /// What the members make of the value, joined; each judges it for itself.
    ProductInfObjChangesResult MakeChanges(const PropValue& value,
                                           std::optional<int> extra) override;
    /// All members have a link, and it is the same one. Never in embodiment mode.
    bool HasHypertext() override;
    /// As soon as one member can have one, or have it changed, and not all have the same already.
    bool CanInsertHypertext() override;
    bool CanEditHypertext() override;
    /// As soon as one member has one: mixed states can be done away with.
    bool CanDestroyHypertext() override;
    /// All members are; true without members.
    bool IsHypertextActive() override;
    ProductInfObjChangesResult SetBySource(bool bySource, ChangedRows& rows) override;
    bool ExecCommand(int command, TreeActionResult& out) override;
    /// As soon as one child row can.
    bool CanTransmitToSource() override;
    /// The icon that all members show, read from their rows.
    SharedText GetSourceIcon() override;

    /// Worked out anew from what the members show, in shown units.
    SimplePropVal GetGroupValue() const;
    GroupMode GetGroupMode() const { return m_groupMode; }

protected:
    /// Where the mode depends on how the product is looked at, Update says so before it asks for
    /// the value.
    void SetGroupMode(GroupMode mode) { m_groupMode = mode; }
    /// As HasHypertext answers, for the members' cells of that column.
    bool HaveMembersSameHypertext(const SharedText& columnId) const;
    /// Of the members' cells of this column: asked until the answer is known. A member without one
    /// is passed over.
    using Question = std::function<bool(ProductTreeCellImpl&)>;
    bool AnyMember(const Question& question) const;
    bool AllMembers(const Question& question) const { return AllMembers(GetColumnId(), question); }
    bool AllMembers(const SharedText& columnId, const Question& question) const;

private:
    /// A reference to the value of each member, but for its key.
    virtual PropertyRef MakeMemberForm() const;
    LinkTargets MakeLinkTargets() const override;
    SharedText ListAllValues() const;
    SimplePropVal FindCommonValue() const;

    GroupMode m_groupMode;
};

/// A group cell whose class says how it mixes its members.
template <GroupMode mode>
class GroupCellOf : public GroupCellImpl {
public:
    GroupCellOf(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                const UniqueMetaObjectKey& key)
        : GroupCellImpl(data, std::move(row), column, mode, key) {}
};

} // namespace productTree

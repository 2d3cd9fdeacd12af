// The cells of group rows that know nothing of the meaning of their column, only of its type of
// value. Each shows what its members show, mixed, and hands an edit on to them all.
#pragma once

#include "cells/GroupCellImpl.h"

namespace productTree {

/// The members' texts as a list, or their common text, by the group mode. In the list the editor
/// starts empty: what is typed replaces the text of every member.
class StringGroupCellImpl : public GroupCellImpl {
public:
    using GroupCellImpl::GroupCellImpl;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
    /// The menu at the cell; null for none.
    virtual MenuPtr GetPopupMenu();

private:
    /// What the editor starts from when that text is shown.
    SharedText GetRawText(const SharedText& text) const;
};

/// Shows its members and refuses edits.
class DisabledGroupCellImpl final : public ReadOnlyCell<StringGroupCellImpl> {
public:
    using ReadOnlyCell::ReadOnlyCell;
};

class UserIntGroupCellImpl final : public GroupCellOf<GroupMode::CommonValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

class UserDoubleGroupCellImpl final : public GroupCellOf<GroupMode::CommonValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

class UserBoolGroupCellImpl final : public GroupCellOf<GroupMode::CommonValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;
};

class ListGroupCellImpl final : public GroupCellOf<GroupMode::CommonValue> {
public:
    using GroupCellOf::GroupCellOf;

    void InitEditor() override;
    void Update() override;
    TreeActionResult OnValueEdited() override;

private:
    /// Place of the group's value in the list; -1 when it is not in it.
    int FindGroupIndex() const;
};

} // namespace productTree

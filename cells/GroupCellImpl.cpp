#include "cells/GroupCellImpl.h"

#include "cells/CellCommands.h"
#include "cells/CommonIcon.h"
#include "cells/JoinedText.h"
#include "cells/NumberAwareLess.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"
#include "items/RowIdIndex.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace productTree {

namespace {

constexpr std::wstring_view c_separator = L";";

std::vector<PropertyRef> MakeRefs(const std::vector<UniqueMetaObjectKey>& keys,
                                  const PropertyRef& form) {
    std::vector<PropertyRef> refs(keys.size(), form);
    for (std::size_t i = 0; i < keys.size(); ++i)
        refs[i].objectKey = keys[i];
    return refs;
}

// What is added fits into what alignment leaves, or the cells of a row would need a second piece.
static_assert(sizeof(GroupCellImpl) == sizeof(ProductTreeCellImpl));

/// A member's text and its place among the members.
struct ListedText {
    SharedText text;
    std::size_t place;
};

/// What lists of texts are made in. It is kept: a refresh that changes nothing allocates nothing.
struct ListRoom {
    std::vector<ListedText> entries;
    std::vector<std::wstring_view> parts;
};

ListRoom& GetEmptyRoom() {
    static ListRoom room;
    room.entries.clear();
    room.parts.clear();
    return room;
}

} // namespace

GroupCellImpl::GroupCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                             GroupMode groupMode, const UniqueMetaObjectKey& key)
    : ProductTreeCellImpl(data, std::move(row), column, key), m_groupMode(groupMode) {}

SimplePropVal GroupCellImpl::GetGroupValue() const {
    switch (m_groupMode) {
    case GroupMode::AllValues:
        return SimplePropVal(ListAllValues());
    case GroupMode::CommonValue:
        return FindCommonValue();
    case GroupMode::NoValue:
        break;
    }
    return {};
}

// The list is mostly the one that is shown: no other is made when it says the same.
SharedText GroupCellImpl::ListAllValues() const {
    auto& [entries, parts] = GetEmptyRoom();
    GetItem().ForEachChildItem([&](const ProductTreeItemImpl& child) {
        const SimplePropVal& value = child.GetCellValue(GetColumnId());
        const SharedText* const held = value.FindText();
        if (held && !entries.empty() && entries.back().text.IsSame(*held))
            return true;
        SharedText text = value.to_wstring();
        const bool isNew = entries.empty() || !(entries.back().text == text);
        if (!text.IsEmpty() && isNew)
            entries.push_back({std::move(text), entries.size()});
        return true;
    });

    // Of texts that are equivalent the first that was met stays.
    const NumberAwareLess less;
    std::ranges::sort(entries, [&](const ListedText& a, const ListedText& b) {
        if (less(a.text, b.text))
            return true;
        return !less(b.text, a.text) && a.place < b.place;
    });
    const SharedText* last = nullptr;
    for (const ListedText& entry : entries) {
        if (last && !less(*last, entry.text))
            continue;
        if (last)
            parts.push_back(c_separator);
        parts.push_back(entry.text.Str());
        last = &entry.text;
    }
    // A single text is the members' own and not a copy of it.
    SharedText list =
        parts.size() == 1 ? entries.front().text : JoinTexts(m_value.to_wstring(), parts);
    entries.clear();
    return list;
}

SimplePropVal GroupCellImpl::FindCommonValue() const {
    const SimplePropVal* common = nullptr;
    const bool agree = GetItem().ForEachChildItem([&](const ProductTreeItemImpl& child) {
        const SimplePropVal& value = child.GetCellValue(GetColumnId());
        if (!common)
            common = &value;
        return *common == value || common->to_wstring() == value.to_wstring();
    });
    return agree && common ? *common : SimplePropVal();
}

bool GroupCellImpl::AllMembers(const SharedText& columnId, const Question& question) const {
    return GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        ProductTreeCellImpl* const cell = child.FindCell(columnId);
        return !cell || question(*cell);
    });
}

bool GroupCellImpl::AnyMember(const Question& question) const {
    return !GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        ProductTreeCellImpl* const cell = child.FindCell(GetColumnId());
        return !cell || !question(*cell);
    });
}

bool GroupCellImpl::IsEditable() {
    if (!m_editable)
        m_editable = AnyMember([](ProductTreeCellImpl& cell) { return cell.IsEditable(); });
    return *m_editable;
}

ProductInfObjChangesResult GroupCellImpl::MakeChanges(const PropValue& value,
                                                      std::optional<int> extra) {
    ProductInfObjChangesResult changes;
    GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        MergeChanges(changes, child.MakeCellChanges(GetColumnId(), value, extra));
        return true;
    });
    return changes;
}

bool GroupCellImpl::HasHypertext() {
    if (!m_hasHypertext)
        m_hasHypertext = HaveMembersSameHypertext(GetColumnId());
    return *m_hasHypertext;
}

bool GroupCellImpl::HaveMembersSameHypertext(const SharedText& columnId) const {
    if (m_data->IsEmbodimentMode())
        return false;
    // Nearly always one without a link decides, and no lists of keys have to be made.
    if (!AllMembers(columnId, [](ProductTreeCellImpl& cell) { return cell.HasHypertext(); }))
        return false;
    std::vector<UniqueMetaObjectKey> with;
    std::vector<UniqueMetaObjectKey> without;
    GetItem().SplitByHypertext(with, without, columnId);
    return without.empty() && m_data->AreHypertext(with, columnId);
}

bool GroupCellImpl::CanInsertHypertext() {
    if (m_data->IsEmbodimentMode() || HasHypertext())
        return false;
    return AnyMember([](ProductTreeCellImpl& cell) {
        return cell.CanInsertHypertext() || cell.CanEditHypertext();
    });
}

bool GroupCellImpl::CanEditHypertext() {
    return !m_data->IsEmbodimentMode() && HasHypertext();
}

bool GroupCellImpl::CanDestroyHypertext() {
    return !m_data->IsEmbodimentMode() &&
           AnyMember([](ProductTreeCellImpl& cell) { return cell.HasHypertext(); });
}

bool GroupCellImpl::IsHypertextActive() {
    if (!m_hypertextActive)
        m_hypertextActive =
            AllMembers([](ProductTreeCellImpl& cell) { return cell.IsHypertextActive(); });
    return *m_hypertextActive;
}

ProductInfObjChangesResult GroupCellImpl::SetBySource(bool bySource, ChangedRows& rows) {
    rows.Add(GetItem().GetId());
    ProductInfObjChangesResult changes;
    GetItem().ForEachChildItem([&](ProductTreeItemImpl& child) {
        ProductTreeCellImpl* const cell = child.FindCell(GetColumnId());
        if (cell && !rows.Contains(*child.GetId()))
            MergeChanges(changes, cell->SetBySource(bySource, rows));
        return true;
    });
    return changes;
}

bool GroupCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::transmitToSource)
        return ProductTreeCellImpl::ExecCommand(command, out);
    m_data->TransmitToSource(m_column.GetId(), GetItem().GetValuesToTransmit(m_column.GetId()));
    out.action = TreeActionResult::Synchronise;
    return true;
}

bool GroupCellImpl::CanTransmitToSource() {
    return !GetItem().ForEachChildItem(
        [&](ProductTreeItemImpl& child) { return !child.CanTransmitToSource(m_column.GetId()); });
}

SharedText GroupCellImpl::GetSourceIcon() {
    CommonIcon icon;
    ForEachChildRow(*m_row, [&](const ITreeTableRow& child) {
        icon.Add(child.GetCellSourceIcon(GetColumnId()));
        return true;
    });
    return icon.Get();
}

PropertyRef GroupCellImpl::MakeMemberForm() const {
    return {UniqueMetaObjectKey::null, UniqueMetaObjectKey::null, GetColumnId(), std::nullopt};
}

// No row is selected afterwards: the group row stays the selected one.
LinkTargets GroupCellImpl::MakeLinkTargets() const {
    const PropertyRef form = MakeMemberForm();
    std::vector<UniqueMetaObjectKey> with;
    std::vector<UniqueMetaObjectKey> without;
    GetItem().SplitByHypertext(with, without, form.propertyId);
    LinkTargets targets;
    targets.linked = MakeRefs(with, form);
    with.insert(with.end(), without.begin(), without.end());
    targets.all = MakeRefs(with, form);
    return targets;
}

} // namespace productTree

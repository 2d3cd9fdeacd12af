#include "cells/CountCells.h"

#include "cells/CellCommands.h"
#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/NumberTexts.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemImpl.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

namespace productTree {

namespace {

using format_label_utils::FormatLabelForDisplay;

// The type of the property, whatever that of the column that shows it.
constexpr unsigned c_stringType = 2;

const SharedText& GetCountId() {
    static const SharedText id = keys::count;
    return id;
}

// What a mark that is set says. One that is not says nothing.
SimplePropVal MakeMark(bool isSet) {
    static const SharedText mark = L"x";
    return isSet ? SimplePropVal(mark) : SimplePropVal();
}

std::optional<double> ReadNumber(const std::wstring& text) {
    constexpr const wchar_t* blanks = L" \t\u00A0";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::wstring::npos)
        return std::nullopt;
    std::string bytes;
    for (std::size_t i = begin; i <= text.find_last_not_of(blanks); ++i) {
        if (text[i] > L'\x7F')
            return std::nullopt;
        if (i > begin || text[i] != L'+')
            bytes.push_back(text[i] == L',' ? '.' : static_cast<char>(text[i]));
    }
    double number = 0;
    const char* const end = bytes.data() + bytes.size();
    const auto result = std::from_chars(bytes.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

// Only no text and a count of zero are no mark.
bool IsMarkedText(const std::wstring& text) {
    if (text.empty())
        return false;
    const std::optional<double> number = ReadNumber(text);
    return !number || std::abs(*number) > std::numeric_limits<double>::epsilon();
}

bool IsMarkMode(const IfProductTreeData& data, const UniqueMetaObjectKey& key) {
    return data.IsCountMark(key) && data.IsEmbodimentMode();
}

bool IsBlankMark(const IfProductTreeData& data, const UniqueMetaObjectKey& key) {
    return data.IsCountMark(key) && !data.IsEmbodimentMode();
}

PropValue ReadInput(const ITreeTableRow& row, const SharedText& columnId, bool isMark) {
    if (isMark)
        return PropValue(MakeMark(row.GetBoolValue(columnId).value_or(false)));
    return PropValue(SimplePropVal(row.GetCellText(columnId)));
}

void ShowBlank(ITreeTableRow& row, const SharedText& columnId) {
    row.SetTextCell(columnId, {}, {}, false, false, {}, nullptr);
}

} // namespace

CountCellImpl::CountCellImpl(IfProductTreeData* data, TreeRowPtr row, const ColumnInfo& column,
                             const UniqueMetaObjectKey& key,
                             const UniqueMetaObjectKey& embodimentKey)
    : CellWithPropValue(data, std::move(row), column, key), m_embodimentKey(embodimentKey) {}

PropertyRef CountCellImpl::MakeCountRef() const {
    return {m_key, m_embodimentKey, GetCountId(), IsInGroupRow()};
}

PropertyRef CountCellImpl::MakePlainCountRef() const {
    return {m_key, m_embodimentKey, GetCountId(), std::nullopt};
}

bool CountCellImpl::IsCountedOut() const {
    return !m_data->GetAggrIntoProduct(m_key).value_or(true);
}

bool CountCellImpl::IsBlank() const {
    return IsBlankMark(*m_data, m_key) || IsCountedOut();
}

bool CountCellImpl::IsEditable() {
    if (IsBlank())
        return false;
    if (!m_editable)
        m_editable = !m_key.IsEmpty() && !m_data->IsReadOnly(MakeCountRef());
    return *m_editable;
}

void CountCellImpl::InitEditor() {
    if (IsMarkMode(*m_data, m_key))
        m_row->InitBoolEditor(GetColumnId(), true, false, true, {});
    else
        m_row->InitTextEditor(GetColumnId(), {}, !IsBlank(), {}, nullptr);
}

ProductInfObjChangesResult CountCellImpl::MakeChanges(const PropValue& value, std::optional<int>) {
    if (!IsEditable())
        return {};
    return m_data->MakeValueChanges(MakeCountRef(), value);
}

// What is shown and what is transmitted differ here: the latter is the count as it is stored.
void CountCellImpl::Update() {
    ResetCaches();
    const PropertyRef ref = MakeCountRef();
    PropValue value = m_data->GetValue(ref);
    const SharedText text = value.to_wstring();
    SimplePropVal shown;
    if (IsMarkMode(*m_data, m_key)) {
        const bool isSet = IsMarkedText(text);
        shown = MakeMark(isSet);
        ShowMark(isSet);
    } else if (IsBlank()) {
        ShowBlank(*m_row, GetColumnId());
    } else {
        const SharedText label = FormatLabelForDisplay(text);
        const bool isRecalcAvailable = m_data->IsRecalcAvailable(ref);
        shown = SimplePropVal(label);
        if (HasHypertext())
            m_row->SetLinkCell(GetColumnId(), label, false, {}, IsEditable(), isRecalcAvailable,
                               false, GetSourceIcon(), GetLinkStyle());
        else
            m_row->SetTextCell(GetColumnId(), text, label, IsEditable(), isRecalcAvailable,
                               GetSourceIcon(), nullptr);
    }
    if (!(shown == m_value))
        m_value = std::move(shown);
    if (!(value == m_propValue))
        m_propValue = std::move(value);
}

void CountCellImpl::ShowMark(bool isSet) {
    m_row->SetBoolCell(GetColumnId(), isSet, false, IsEditable(), GetSourceIcon());
}

bool CountCellImpl::HasHypertext() {
    if (!m_hasHypertext)
        m_hasHypertext = m_key != UniqueMetaObjectKey::null &&
                         m_embodimentKey != UniqueMetaObjectKey::null &&
                         m_data->IsHypertext(MakePlainCountRef());
    return *m_hasHypertext;
}

bool CountCellImpl::CanInsertHypertext() {
    return m_data->CanInsertHypertext(MakeCountRef(), c_stringType);
}

bool CountCellImpl::CanEditHypertext() {
    return m_data->CanEditHypertext(MakeCountRef());
}

bool CountCellImpl::CanDestroyHypertext() {
    return m_data->CanDestroyHypertext(MakeCountRef());
}

bool CountCellImpl::IsHypertextActive() {
    if (!m_hypertextActive)
        m_hypertextActive = m_key != UniqueMetaObjectKey::null &&
                            m_embodimentKey != UniqueMetaObjectKey::null &&
                            m_data->IsHypertextActive(MakePlainCountRef());
    return *m_hypertextActive;
}

// Whether the object stands in the embodiment at all decides about rows, a mere number does not.
TreeActionResult CountCellImpl::OnValueEdited() {
    const bool isMark = IsMarkMode(*m_data, m_key);
    const PropValue value = ReadInput(*m_row, GetColumnId(), isMark);
    const bool isOtherNumber = !m_value.to_wstring().IsEmpty() && !value.to_wstring().IsEmpty();
    return FinishEdit(
        MakeChanges(value, std::nullopt),
        isOtherNumber ? TreeActionResult::ValuesChanged : TreeActionResult::Synchronise, [&] {
            const SharedText text = m_value.to_wstring();
            if (isMark)
                ShowMark(IsMarkedText(text));
            else
                m_row->SetCellText(GetColumnId(), text, FormatLabelForDisplay(text));
        });
}

LinkTargets CountCellImpl::MakeLinkTargets() const {
    return {{MakeCountRef()}, {MakeCountRef()}, {}, m_key, !m_key.IsEmpty()};
}

bool CountCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::recalcValue)
        return ProductTreeCellImpl::ExecCommand(command, out);
    ProductInfObjChangesResult changes = m_data->MakeRecalcChanges(m_key, m_embodimentKey);
    out.action = Commit(changes) ? TreeActionResult::Synchronise : TreeActionResult::Nothing;
    return true;
}

std::set<int> CountCellImpl::GetAvailableCommands() {
    std::set<int> available = ProductTreeCellImpl::GetAvailableCommands();
    if (m_data->IsRecalcAvailable(MakeCountRef()))
        available.insert(commands::recalcValue);
    return available;
}

bool CountCellImpl::CanTransmitToSource() {
    return false;
}

SharedText CountCellImpl::GetSourceIcon() {
    return FindSourceIcon(m_data->GetBySource(MakePlainCountRef()));
}

CountGroupCellImpl::CountGroupCellImpl(IfProductTreeData* data, TreeRowPtr row,
                                       const ColumnInfo& column, const UniqueMetaObjectKey& key,
                                       Embodiments embodiments)
    : GroupCellImpl(data, std::move(row), column, GroupMode::NoValue, key),
      m_embodiments(std::move(embodiments)) {}

PropertyRef CountGroupCellImpl::MakeGroupRef(const UniqueMetaObjectKey& embodiment) const {
    return {m_key, embodiment, GetCountId(), false};
}

PropertyRef CountGroupCellImpl::MakeMemberForm() const {
    return {UniqueMetaObjectKey::null, GetFirstEmbodiment(), GetCountId(), true};
}

bool CountGroupCellImpl::IsAnyRecalcAvailable() const {
    for (const UniqueMetaObjectKey& embodiment : m_embodiments) {
        if (m_data->IsRecalcAvailable(MakeGroupRef(embodiment)))
            return true;
    }
    return false;
}

bool CountGroupCellImpl::IsEditable() {
    if (!m_editable)
        m_editable = !m_data->IsReadOnly(MakeGroupRef(GetFirstEmbodiment()));
    return *m_editable;
}

void CountGroupCellImpl::InitEditor() {
    if (IsMarkMode(*m_data, m_key))
        m_row->InitBoolEditor(GetColumnId(), false, false, true, {});
    else
        m_row->InitTextEditor(GetColumnId(), {}, !IsBlankMark(*m_data, m_key), {}, nullptr);
}

ProductInfObjChangesResult CountGroupCellImpl::MakeChanges(const PropValue& value,
                                                           std::optional<int> extra) {
    if (!IsEditable())
        return {};
    if (!IsMarkMode(*m_data, m_key))
        return m_data->MakeValueChanges({m_key, GetFirstEmbodiment(), GetCountId(), std::nullopt},
                                        value);
    ProductInfObjChangesResult changes = GroupCellImpl::MakeChanges(value, extra);
    MergeChanges(changes, m_data->MakeRecalcChanges(m_key, GetFirstEmbodiment()));
    return changes;
}

std::optional<bool> CountGroupCellImpl::FindCommonMark() const {
    std::optional<SharedText> common;
    const bool agree = GetItem().ForEachChildItem([&](const ProductTreeItemImpl& child) {
        SharedText text = child.GetCellValue(GetColumnId()).to_wstring();
        if (common)
            return *common == text;
        common = std::move(text);
        return true;
    });
    if (!agree)
        return std::nullopt;
    return common && IsMarkedText(*common);
}

SharedText CountGroupCellImpl::ReadCount() const {
    static const SharedText zero = L"0";
    const PropValue value = m_embodiments.size() == 1
                                ? m_data->GetValue(MakeGroupRef(GetFirstEmbodiment()))
                                : m_data->GetGroupCount(m_key, m_embodiments);
    SharedText text = orvex::sys::TrimLastZeros(value.to_wstring());
    return text == zero ? SharedText() : text;
}

void CountGroupCellImpl::Update() {
    ResetCaches();
    SimplePropVal shown{SharedText()};
    if (IsMarkMode(*m_data, m_key)) {
        const std::optional<bool> mark = FindCommonMark();
        ShowMark(mark);
        if (mark.value_or(false))
            shown = MakeMark(true);
    } else if (IsBlankMark(*m_data, m_key)) {
        ShowBlank(*m_row, GetColumnId());
    } else {
        const SharedText text = ReadCount();
        if (HasHypertext())
            ShowLink(FormatLabelForDisplay(text), GetSourceIcon());
        else
            ShowText(text);
        shown = SimplePropVal(text);
    }
    SetShownValue(shown);
}

void CountGroupCellImpl::ShowMark(std::optional<bool> mark) {
    m_row->SetBoolCell(GetColumnId(), mark, false, IsEditable(), GetSourceIcon());
}

void CountGroupCellImpl::ShowText(const SharedText& text) {
    m_row->SetTextCell(GetColumnId(), text, FormatLabelForDisplay(text), IsEditable(),
                       IsAnyRecalcAvailable(), GetSourceIcon(), nullptr);
}

// A count of the group's own is not what its members are linked to.
bool CountGroupCellImpl::HasHypertext() {
    if (!m_hasHypertext)
        m_hasHypertext = !IsAnyRecalcAvailable() && HaveMembersSameHypertext(GetCountId());
    return *m_hasHypertext;
}

TreeActionResult CountGroupCellImpl::OnValueEdited() {
    const bool isMark = IsMarkMode(*m_data, m_key);
    const PropValue value = ReadInput(*m_row, GetColumnId(), isMark);
    if (!isMark && value.to_wstring() == m_value.to_wstring())
        return {};
    return FinishEdit(MakeChanges(value, std::nullopt), TreeActionResult::ValuesChanged, [&] {
        const SharedText text = m_value.to_wstring();
        if (isMark)
            ShowMark(IsMarkedText(text));
        else
            ShowText(text);
    });
}

bool CountGroupCellImpl::ExecCommand(int command, TreeActionResult& out) {
    if (command != commands::recalcValue)
        return GroupCellImpl::ExecCommand(command, out);
    ProductInfObjChangesResult changes = m_data->MakeRecalcChanges(m_key, GetFirstEmbodiment());
    // What was asked for counts: the rows are read again even where nothing came of it.
    out.action =
        changes.IsExistsChanges() ? TreeActionResult::ValuesChanged : TreeActionResult::Nothing;
    m_data->CommitChanges(changes);
    return true;
}

std::set<int> CountGroupCellImpl::GetAvailableCommands() {
    if (!IsEditable())
        return {};
    std::set<int> available = GroupCellImpl::GetAvailableCommands();
    if (IsAnyRecalcAvailable())
        available.insert(commands::recalcValue);
    return available;
}

bool CountGroupCellImpl::CanTransmitToSource() {
    return false;
}

} // namespace productTree

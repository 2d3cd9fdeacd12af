#include "items/ProductTreeItemImpl.h"

#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "items/SimpleCellContextMenu.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>
#include <array>
#include <utility>

namespace productTree {

namespace {

enum MarkingPart { BasePart = 1, EmbodimentPart = 3, AdditionalPart = 5, CodePart = 7 };

struct PartTip {
    int part;
    SharedText text;
};

const std::array<PartTip, 4>& GetPartTips() {
    static const std::array<PartTip, 4> tips = {{
        {BasePart, GetResourceText("IDS_MARKING_BASE_PART")},
        {EmbodimentPart, GetResourceText("IDS_MARKING_EMBODYMENT_NUMBER_PART")},
        {AdditionalPart, GetResourceText("IDS_MARKING_ADDITION_NUMBER_PART")},
        {CodePart, GetResourceText("IDS_MARKING_DOC_CODE_PART")},
    }};
    return tips;
}

std::wstring DelimText(wchar_t delim) {
    return delim == 0 ? std::wstring() : std::wstring(1, delim);
}

// Neither caption nor width: these two columns are no columns of the row's table.
const ColumnInfo& GetNameColumn() {
    static const ColumnInfo column(keys::name, {}, 0.0);
    return column;
}

const ColumnInfo& GetMarkingColumn() {
    static const ColumnInfo column(keys::marking, {}, 0.0);
    return column;
}

/// Where a column was found last: a group asks all its members for one, and they have it at the
/// same place.
std::size_t& GetLastPlace() {
    static std::size_t place = 0;
    return place;
}

constexpr std::size_t c_fixedCells = 2;

} // namespace

ProductTreeItemImpl::ProductTreeItemImpl(TreeRowPtr row, IfProductTreeData* data)
    : m_row(std::move(row)), m_data(data) {
    if (const auto editor = m_row->GetMarkingEditor()) {
        for (const PartTip& tip : GetPartTips())
            editor->SetPartTip(tip.text, tip.part);
    }
}

ProductTreeItemImpl::~ProductTreeItemImpl() = default;

bool ProductTreeItemImpl::EditDocCode() {
    return false;
}

TreeActionResult ProductTreeItemImpl::OnCellPopupCommand(const std::wstring& columnId,
                                                         int command) {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell ? cell->OnPopupCommand(command) : TreeActionResult();
}

bool ProductTreeItemImpl::ExecCellCommand(const std::wstring& columnId, int command,
                                          TreeActionResult& out) {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell && cell->ExecCommand(command, out);
}

SharedText ProductTreeItemImpl::GetDisplayName(const SharedText& text) const {
    return format_label_utils::FormatLabelForDisplay(text);
}

SharedText ProductTreeItemImpl::GetCountSuffix(int) const {
    return {};
}

// A value that comes from the source already, or has none, is left alone.
bool ProductTreeItemImpl::CanSetBySource(const std::wstring& columnId) const {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    if (!cell || !cell->IsEditable())
        return false;
    const SharedText icon = m_row->GetCellSourceIcon(columnId);
    return !icon.IsEmpty() && !(icon == sourceIcons::bySource);
}

void ProductTreeItemImpl::UpdateRow() {
    // Rows that stand for others go by what those have worked out.
    OnChildRowsUpdate();
    UpdateChildRows();
    UpdateThisRow();
}

void ProductTreeItemImpl::UpdateThisRow() {
    m_row->SetReadOnly(m_data->IsReadOnly());
    UpdateActual();
    UpdateCells();
    UpdateIcon();
    if (m_regAttribute)
        m_regAttribute->Update();
    else
        m_row->SetRegWithDescState(AttributeStateNone);
    if (m_aggrAttribute)
        m_aggrAttribute->Update();
    else
        m_row->SetAggrIntoProductState(AttributeStateNone);
    UpdateRowStyle();
}

bool ProductTreeItemImpl::TrackCellContextMenu(const std::wstring& columnId,
                                               LEventsHandler* handler) {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell && ShowItemMenu(cell->GetAvailableCommands(), handler);
}

bool ProductTreeItemImpl::ShowItemMenu(const std::set<int>& commands, LEventsHandler* handler) {
    const TResId menu =
        FindResourceId({"IDM_PRODUCT_TREE_ITEM_CONTEXT_MENU", ResourceKind::Command});
    return SimpleCellContextMenu::ShowMenu(menu, commands, handler);
}

template <class Callback>
void ProductTreeItemImpl::ForEachChildFetched(const Callback& callback) const {
    ProductTreeItemImpl* previous = nullptr;
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        child.FetchAhead();
        if (ProductTreeItemImpl* const item = std::exchange(previous, &child))
            callback(*item);
        return true;
    });
    if (previous)
        callback(*previous);
}

void ProductTreeItemImpl::UpdateChildRows() {
    ForEachChildFetched([this](ProductTreeItemImpl& child) {
        child.UpdateRow();
        child.GiveShare({});
        OnChildRowUpdated(child);
    });
}

void ProductTreeItemImpl::OnChildRowsUpdate() {}

void ProductTreeItemImpl::OnChildRowUpdated(ProductTreeItemImpl&) {}

void ProductTreeItemImpl::UpdateRowStyle() {}

void ProductTreeItemImpl::UpdateCells() {
    // Not reset where it is set again: a row that stays as it is has no news for the front end.
    const bool hasCurrent = m_data->IsEmbodimentMode() && m_data->HasActiveEmbodiment();
    if (!hasCurrent)
        m_row->ResetCurrentCountColumn();
    for (ProductTreeCellImpl* const cell : GetCells())
        cell->Update();
    if (hasCurrent)
        m_row->SetCurrentCountColumn(
            ColumnInfo::ConvertGroupCountToId({m_data->GetActiveEmbodiment()}));
}

std::shared_ptr<ProductTreeCellImpl> ProductTreeItemImpl::CreateCell(const ColumnInfo&) {
    return nullptr;
}

ProductTreeCellImpl* ProductTreeItemImpl::FindCell(const std::wstring& columnId) const {
    const std::span cells = GetCells();
    const auto found = std::find_if(cells.begin(), cells.end(),
                                    [&](const auto* cell) { return cell->IsColumn(columnId); });
    return found == cells.end() ? nullptr : *found;
}

ProductTreeCellImpl* ProductTreeItemImpl::FindCell(const SharedText& columnId) const {
    std::size_t& lastPlace = GetLastPlace();
    const std::span cells = GetCells();
    const auto isIt = [&](const auto* cell) { return cell->GetColumnId().IsSame(columnId); };
    if (lastPlace < cells.size() && isIt(cells[lastPlace]))
        return cells[lastPlace];
    const auto found = std::find_if(cells.begin(), cells.end(), isIt);
    if (found == cells.end())
        return FindCell(columnId.Str());
    lastPlace = static_cast<std::size_t>(found - cells.begin());
    return *found;
}

const SimplePropVal& ProductTreeItemImpl::GetCellValue(const SharedText& columnId) const {
    static const SimplePropVal none;
    const ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell ? cell->GetShownValue() : none;
}

ProductInfObjChangesResult ProductTreeItemImpl::MakeCellChanges(const SharedText& columnId,
                                                                const PropValue& value,
                                                                std::optional<int> extra) {
    ProductTreeCellImpl* const cell = FindCell(columnId);
    return cell ? cell->MakeChanges(value, extra) : ProductInfObjChangesResult();
}

VariantMarking ProductTreeItemImpl::GetMarkingFromRow() const {
    VariantMarking marking;
    const auto editor = m_row->GetMarkingEditor();
    if (!editor)
        return marking;
    marking.SetBase(editor->GetBase());
    marking.SetEmbodimentNumDelim(MarkingDelim(editor->GetEmbodimentNumDelim()));
    marking.SetEmbodimentNum(editor->GetEmbodimentNum());
    marking.SetAdditionalNumDelim(MarkingDelim(editor->GetAdditionalNumDelim()));
    marking.SetAdditionalNum(editor->GetAdditionalNum());
    marking.SetCodeDelim(CodeDelim(editor->GetCodeDelim()));
    marking.SetCode(editor->GetCode());
    return marking;
}

SharedText ProductTreeItemImpl::SetMarkingToRow(const VariantMarking& marking) const {
    const auto editor = m_row->GetMarkingEditor();
    if (!editor)
        return {};
    editor->SetBase(marking.GetBase());
    editor->SetEmbodimentNumDelim(DelimText(marking.GetEmbodimentNumDelim()));
    editor->SetEmbodimentNum(marking.GetEmbodimentNum());
    editor->SetAdditionalNumDelim(DelimText(marking.GetAdditionalNumDelim()));
    editor->SetAdditionalNum(marking.GetAdditionalNum());
    editor->SetCodeDelim(DelimText(marking.GetCodeDelim()));
    editor->SetCode(marking.GetCode());

    const std::set<int> locked = GetLockedMarkingParts();
    SharedText text = MakeShownMarking(marking, locked);
    editor->SetDisplayText(text);
    editor->SetLockedParts(locked);
    editor->SetColumn(keys::marking);
    return text;
}

bool ProductTreeItemImpl::IsMarkingCodeIn(const std::set<int>& lockedParts) {
    return lockedParts.contains(CodePart);
}

SharedText ProductTreeItemImpl::MakeShownMarking(const VariantMarking& marking,
                                                 const std::set<int>& locked) {
    const auto type =
        IsMarkingCodeIn(locked) ? VariantMarkingData::MakeWithoutCode : VariantMarkingData::MakeAll;
    return format_label_utils::FormatLabelForDisplay(marking.Make(type, false, false));
}

bool ProductTreeItemImpl::IsParentGroup() const {
    const ITreeTableRow* const parent = m_row->GetParent();
    const ProductTreeItemImpl* const item = parent ? FindItemOfRow(*parent) : nullptr;
    return item && item->IsGroup();
}

void ProductTreeItemImpl::RebuildChildCells(const std::list<ColumnInfo>& columns) {
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        child.RebuildCells(columns);
        return true;
    });
}

void ProductTreeItemImpl::RebuildCells(const std::list<ColumnInfo>& columns) {
    RebuildChildCells(columns);

    m_cells.reset();
    m_cells = CellArena::Create(columns.size() + c_fixedCells);
    CreateCell(GetNameColumn());
    CreateCell(GetMarkingColumn());

    std::size_t slot = 0;
    for (const ColumnInfo& column : columns) {
        const auto cell = CreateCell(column);
        if (!cell)
            continue;
        // A row kept from the last build keeps its slots with their editors.
        if (slot < m_row->GetCellCount())
            m_row->SetCellColumn(slot, column.GetId());
        else
            cell->InitEditor();
        ++slot;
    }
    m_cells->Close();
    m_row->SetCellCount(slot);
}

bool ProductTreeItemImpl::CanSetChildPositions() const {
    return HasChildItem([](const ProductTreeItemImpl& child) { return child.CanSetPosition(); });
}

bool ProductTreeItemImpl::CanClearChildPositions() const {
    return HasChildItem([](const ProductTreeItemImpl& child) { return child.CanClearPosition(); });
}

void ProductTreeItemImpl::ClearChildPositions(ProductInfObjChangesResult& changes) {
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        child.ClearPosition(changes);
        return true;
    });
}

unsigned ProductTreeItemImpl::SetChildPositions(unsigned next,
                                                ProductInfObjChangesResult& changes) {
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        next = child.SetPosition(next, changes);
        return true;
    });
    return next;
}

} // namespace productTree

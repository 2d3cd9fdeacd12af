#include "items/ProductTreeItemImpl.h"

#include "columns/PropertyKeys.h"
#include "host/FormatLabelUtils.h"
#include "host/data/IfProductTreeData.h"
#include "items/ProductTreeItemData.h"
#include "resources/ProductTreeResources.h"

#include <algorithm>
#include <array>
#include <string_view>
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

constexpr std::size_t c_fixedCells = 2;

} // namespace

ProductTreeItemImpl* FindItemOfRow(const ITreeTableRow& row) {
    const ProductTreeItemData* data = row.GetData();
    return data ? data->GetImpl().get() : nullptr;
}

ProductTreeItemImpl::ProductTreeItemImpl(TreeRowPtr row, IfProductTreeData* data)
    : m_row(std::move(row)), m_data(data) {
    if (const auto editor = m_row->GetMarkingEditor()) {
        for (const PartTip& tip : GetPartTips())
            editor->SetPartTip(tip.text, tip.part);
    }
}

ProductTreeItemImpl::~ProductTreeItemImpl() = default;

SharedText ProductTreeItemImpl::GetDisplayName(const SharedText& text) const {
    return format_label_utils::FormatLabelForDisplay(text);
}

std::wstring ProductTreeItemImpl::GetCountSuffix(int) const {
    return {};
}

void ProductTreeItemImpl::UpdateRow() {
    m_row->SetReadOnly(m_data->IsReadOnly());
    // Rows that stand for others go by what those have worked out.
    ForEachChildItem([](ProductTreeItemImpl& child) {
        child.UpdateRow();
        return true;
    });
    UpdateActual();
    UpdateCells();
    UpdateIcon();
    m_row->SetRegWithDescState(0);
    m_row->SetAggrIntoProductState(0);
}

void ProductTreeItemImpl::UpdateCells() {
    m_row->ResetCurrentCountColumn();
    for (const auto& cell : m_cells)
        cell->Update();
    if (m_data->IsEmbodimentMode() && m_data->HasActiveEmbodiment())
        m_row->SetCurrentCountColumn(
            ColumnInfo::ConvertGroupCountToId({m_data->GetActiveEmbodiment()}));
}

std::shared_ptr<ProductTreeCellImpl> ProductTreeItemImpl::CreateCell(const ColumnInfo&) {
    return nullptr;
}

ProductTreeCellImpl* ProductTreeItemImpl::FindCell(const std::wstring& columnId) const {
    const auto found =
        std::ranges::find_if(m_cells, [&](const auto& cell) { return cell->IsColumn(columnId); });
    return found == m_cells.end() ? nullptr : found->get();
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
    const SharedText text = MakeShownMarking(marking, locked);
    editor->SetDisplayText(text);
    editor->SetLockedParts(locked);
    editor->SetColumn(keys::marking);
    return text;
}

SharedText ProductTreeItemImpl::MakeShownMarking(const VariantMarking& marking,
                                                 const std::set<int>& locked) {
    const auto type = locked.contains(CodePart) ? VariantMarkingData::MakeWithoutCode
                                                : VariantMarkingData::MakeAll;
    return format_label_utils::FormatLabelForDisplay(marking.Make(type, false, false));
}

void ProductTreeItemImpl::RebuildCells(const std::list<ColumnInfo>& columns) {
    ForEachChildItem([&](ProductTreeItemImpl& child) {
        child.RebuildCells(columns);
        return true;
    });

    m_cells.clear();
    m_arena.reset();
    std::size_t slot = 0;
    for (const ColumnInfo& column : columns) {
        if (auto cell = CreateCell(column)) {
            // A row kept from the last build keeps its slots with their editors.
            if (slot < m_row->GetCellCount())
                m_row->SetCellColumn(slot, column.GetId());
            else
                cell->InitEditor();
            m_cells.push_back(std::move(cell));
        }
        ++slot;
    }
    m_row->SetCellCount(m_cells.size());
    PutCellInFront(GetMarkingColumn());
    PutCellInFront(GetNameColumn());
}

void ProductTreeItemImpl::PutCellInFront(const ColumnInfo& column) {
    if (auto cell = CreateCell(column))
        m_cells.insert(m_cells.begin(), std::move(cell));
}

CellArena& ProductTreeItemImpl::GetArena() {
    if (!m_arena)
        m_arena = std::make_shared<CellArena>(c_fixedCells);
    return *m_arena;
}

} // namespace productTree

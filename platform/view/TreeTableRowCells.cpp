// The cells of a row: finding them, writing into them what differs, and reading them back.

#include "platform/view/CellWriter.h"
#include "platform/view/TreeTableRow.h"

#include <algorithm>
#include <utility>

namespace platform {

void TreeTableRow::SetCellCount(std::size_t count) {
    m_hub->SetUsualCellCount(count);
    if (count == m_cells.size())
        return;
    m_hub->GetUsualCells().Stop();
    m_cells.resize(count);
    m_hub->NoteValues(*this);
}

void TreeTableRow::SetCellColumn(std::size_t index, const std::wstring& columnId) {
    if (index >= m_cells.size())
        return;
    const std::wstring& present = GetColumnOf(m_cells[index]);
    // Mostly it is the very text that the cell was given first.
    if (&present == &columnId || present == columnId)
        return;
    GiveColumn(m_cells[index], m_hub->GetNames().IdOf(columnId));
    m_hub->NoteValues(*this);
}

const TreeCell* TreeTableRow::FindCell(const std::wstring& columnId) const {
    const NameId column = m_hub->GetNames().Find(columnId);
    const auto found = std::ranges::find_if(
        m_cells, [column](const TreeCell& cell) { return cell.m_column == column; });
    return found == m_cells.end() || column == 0 ? nullptr : &*found;
}

TreeCell* TreeTableRow::CellOf(const SharedText& columnId) {
    // Rows are written cell by cell.
    const std::size_t last = m_hub->GetLastCell();
    const std::size_t next = last + 1 < m_cells.size() ? last + 1 : 0;
    if (!IsCellOf(next, columnId))
        return const_cast<TreeCell*>(std::as_const(*this).CellOf(columnId));
    m_hub->SetLastCell(next);
    return &m_cells[next];
}

const TreeCell* TreeTableRow::CellOf(const SharedText& columnId) const {
    // Rows are read down a column.
    if (IsCellOf(m_hub->GetLastCell(), columnId))
        return &m_cells[m_hub->GetLastCell()];
    return SearchCell(columnId);
}

const TreeCell* TreeTableRow::SearchCell(const SharedText& columnId) const {
    const NameId column = m_hub->GetNames().IdOf(columnId);
    const auto found = std::ranges::find_if(
        m_cells, [column](const TreeCell& cell) { return cell.m_column == column; });
    if (found == m_cells.end() || column == 0)
        return nullptr;
    m_hub->SetLastCell(static_cast<std::size_t>(found - m_cells.begin()));
    return &*found;
}

void TreeTableRow::GiveColumn(TreeCell& cell, NameId column) {
    m_hub->GetUsualCells().Stop();
    for (TreeCell& other : m_cells) {
        if (other.m_column == column)
            other.m_column = 0;
    }
    cell.m_column = column & NameTable::c_maxId;
}

TreeCell& TreeTableRow::TakeCell(const SharedText& columnId) {
    if (m_cells.empty())
        m_cells.reserve(m_hub->GetUsualCellCount());
    UsualCells& usual = m_hub->GetUsualCells();
    if (const NameId next = usual.TakeNext(*this, m_cells.size(), columnId))
        return AddCell(next);
    const NameId column = m_hub->GetNames().IdOf(columnId);
    const auto isFree = [column](const TreeCell& cell) {
        return cell.m_column == 0 || cell.m_column == column;
    };
    const auto free = std::ranges::find_if(m_cells, isFree);
    if (free != m_cells.end()) {
        GiveColumn(*free, column);
        return *free;
    }
    usual.Learn(*this, m_cells.size(), columnId, column);
    return AddCell(column);
}

TreeCell& TreeTableRow::AddCell(NameId column) {
    TreeCell& cell = m_cells.emplace_back();
    cell.m_column = column & NameTable::c_maxId;
    return cell;
}

const RowInput* TreeTableRow::FindInput(const TreeCell& cell) const {
    return m_hub->FindInput(*this, RowInput::Place::Cell, cell.m_column);
}

template <class Value>
std::optional<Value> TreeTableRow::GetValue(const SharedText& columnId, CellKind kind) const {
    const TreeCell* const cell = CellOf(columnId);
    if (!cell || cell->GetKind() != kind)
        return std::nullopt;
    if (const RowInput* const input = FindInput(*cell)) {
        const Value* const left = std::get_if<Value>(&input->value);
        return left ? std::optional(*left) : std::nullopt;
    }
    return cell->HasValue() ? std::optional(static_cast<Value>(cell->GetNumber())) : std::nullopt;
}

void TreeTableRow::InitTextEditor(const SharedText& columnId, const SharedText& text, bool editable,
                                  const SharedText& tip, const MenuPtr& popup) {
    CellWriter cell(*this, &TakeCell(columnId));
    cell.Begin(CellKind::Text);
    cell.Texts(text, text);
    cell.State(editable, false);
    cell.Tip(tip);
    cell.Popup(popup);
}

void TreeTableRow::InitIntEditor(const SharedText& columnId, std::optional<int> value,
                                 bool canBeEmpty, int min, int max, bool editable,
                                 const SharedText& tip) {
    CellWriter cell(*this, &TakeCell(columnId));
    cell.Begin(CellKind::Int);
    cell.Number(value);
    cell.Flag(TreeCell::c_canBeEmpty, canBeEmpty);
    cell.State(editable, false);
    cell.Limits(min, max);
    cell.Tip(tip);
}

void TreeTableRow::InitDoubleEditor(const SharedText& columnId, std::optional<double> value,
                                    bool canBeEmpty, bool editable, const SharedText& tip,
                                    double step, double min, double max) {
    CellWriter cell(*this, &TakeCell(columnId));
    cell.Begin(CellKind::Double);
    cell.Number(value);
    cell.Flag(TreeCell::c_canBeEmpty, canBeEmpty);
    cell.State(editable, false);
    cell.Limits(min, max);
    cell.Step(step);
    cell.Tip(tip);
}

void TreeTableRow::InitBoolEditor(const SharedText& columnId, std::optional<bool> value,
                                  bool canBeEmpty, bool editable, const SharedText& tip) {
    CellWriter cell(*this, &TakeCell(columnId));
    cell.Begin(CellKind::Bool);
    cell.Number(value);
    cell.Flag(TreeCell::c_canBeEmpty, canBeEmpty);
    cell.State(editable, false);
    cell.Tip(tip);
}

void TreeTableRow::InitListEditor(const SharedText& columnId, const std::list<SimplePropVal>& list,
                                  int index, bool editable, const SharedText& tip) {
    CellWriter cell(*this, &TakeCell(columnId));
    cell.Begin(CellKind::List);
    cell.List(list);
    cell.ListPlace(index);
    cell.State(editable, false);
    cell.Tip(tip);
}

void TreeTableRow::InitLinkEditor(const SharedText& columnId, const SharedText& shown,
                                  bool opensEditor, const SharedText& tip, bool editable,
                                  const SharedText& icon, int style) {
    TakeCell(columnId);
    SetLinkCell(columnId, shown, opensEditor, tip, editable, false, false, icon, style);
}

void TreeTableRow::SetTextCell(const SharedText& columnId, const SharedText& text,
                               const SharedText& shown, bool editable, bool recalculable,
                               const SharedText& icon, const MenuPtr& popup) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Text))
        return;
    cell.Texts(text, shown);
    cell.State(editable, recalculable);
    cell.Flag(TreeCell::c_moment, false);
    cell.Icon(icon);
    cell.Popup(popup);
}

void TreeTableRow::SetTimeCell(const SharedText& columnId, const SharedText& text, bool editable,
                               const SharedText& icon) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Text))
        return;
    cell.Texts(text, text);
    cell.State(editable, false);
    cell.Flag(TreeCell::c_moment, true);
    cell.Icon(icon);
    cell.Popup(nullptr);
}

void TreeTableRow::SetCellText(const SharedText& columnId, const SharedText& text,
                               const SharedText& shown) {
    CellWriter cell(*this, CellOf(columnId));
    if (cell.Is(CellKind::Text))
        cell.Texts(text, shown);
}

SharedText TreeTableRow::GetCellText(const SharedText& columnId) const {
    const TreeCell* const cell = CellOf(columnId);
    if (!cell)
        return {};
    const RowInput* const input = FindInput(*cell);
    const SharedText* const text = input ? std::get_if<SharedText>(&input->value) : nullptr;
    return text ? *text : cell->GetText();
}

void TreeTableRow::SetIntCell(const SharedText& columnId, std::optional<int> value, int min,
                              int max, bool editable, bool recalculable, const SharedText& icon) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Int))
        return;
    cell.Number(value);
    cell.State(editable, recalculable);
    cell.Icon(icon);
    cell.Limits(min, max);
}

void TreeTableRow::SetIntValue(const SharedText& columnId, std::optional<int> value) {
    CellWriter cell(*this, CellOf(columnId));
    if (cell.Is(CellKind::Int))
        cell.Number(value);
}

std::optional<int> TreeTableRow::GetIntValue(const SharedText& columnId) const {
    return GetValue<int>(columnId, CellKind::Int);
}

void TreeTableRow::SetDoubleCell(const SharedText& columnId, double value, bool hasValue,
                                 bool editable, const SharedText& icon, double min, double max) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Double))
        return;
    cell.Number(hasValue ? std::optional(value) : std::nullopt);
    cell.State(editable, false);
    cell.Icon(icon);
    cell.Limits(min, max);
}

void TreeTableRow::SetDoubleValue(const SharedText& columnId, double value, bool hasValue) {
    CellWriter cell(*this, CellOf(columnId));
    if (cell.Is(CellKind::Double))
        cell.Number(hasValue ? std::optional(value) : std::nullopt);
}

std::optional<double> TreeTableRow::GetDoubleValue(const SharedText& columnId) const {
    return GetValue<double>(columnId, CellKind::Double);
}

void TreeTableRow::SetBoolCell(const SharedText& columnId, std::optional<bool> value,
                               bool canBeEmpty, bool editable, const SharedText& icon) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Bool))
        return;
    cell.Number(value);
    cell.Flag(TreeCell::c_canBeEmpty, canBeEmpty);
    cell.State(editable, false);
    cell.Icon(icon);
}

void TreeTableRow::SetBoolValue(const SharedText& columnId, std::optional<bool> value) {
    CellWriter cell(*this, CellOf(columnId));
    if (cell.Is(CellKind::Bool))
        cell.Number(value);
}

std::optional<bool> TreeTableRow::GetBoolValue(const SharedText& columnId) const {
    return GetValue<bool>(columnId, CellKind::Bool);
}

void TreeTableRow::SetListCell(const SharedText& columnId, const std::list<SimplePropVal>& list,
                               int index, bool editable, const SharedText& icon) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::List))
        return;
    cell.List(list);
    cell.ListPlace(index);
    cell.State(editable, false);
    cell.Icon(icon);
}

void TreeTableRow::SetListIndex(const SharedText& columnId, int index) {
    CellWriter cell(*this, CellOf(columnId));
    if (cell.Is(CellKind::List))
        cell.ListPlace(index);
}

int TreeTableRow::GetListIndex(const SharedText& columnId) const {
    const TreeCell* const cell = CellOf(columnId);
    if (!cell)
        return -1;
    const RowInput* const input = FindInput(*cell);
    const ListIndex* const place = input ? std::get_if<ListIndex>(&input->value) : nullptr;
    return place ? place->index : cell->GetListIndex();
}

void TreeTableRow::SetLinkCell(const SharedText& columnId, const SharedText& shown,
                               bool opensEditor, const SharedText& tip, bool editable,
                               bool recalculable, bool outdated, const SharedText& icon,
                               int style) {
    CellWriter cell(*this, CellOf(columnId));
    if (!cell.Begin(CellKind::Link))
        return;
    cell.Texts(shown, shown);
    cell.State(editable, recalculable);
    cell.Flag(TreeCell::c_opensEditor, opensEditor);
    cell.Flag(TreeCell::c_outdated, outdated);
    cell.Tip(tip);
    cell.Icon(icon);
    cell.Flag(TreeCell::c_liveLink, style == LinkStyleLive);
}

SharedText TreeTableRow::GetCellSourceIcon(const SharedText& columnId) const {
    if (columnId.Str() == GetNameColumn())
        return GetNameIcon();
    if (columnId.Str() == GetMarking().GetColumn())
        return GetMarking().GetIcon();
    const TreeCell* const cell = CellOf(columnId);
    return cell ? GetIconOf(*cell) : SharedText();
}

} // namespace platform

// What the user does, on its way to the control.

#include "control/IfProductTreeCtrl.h"
#include "items/ProductTreeItemData.h"
#include "platform/view/TreeTableView.h"

#include <algorithm>
#include <utility>

namespace platform {

using productTree::IfProductTreeCtrl;
using productTree::ProductTreeItemData;

namespace {

/// Whether the parts can be left in the editor: those that are locked are as they were, and a
/// delimiter is one character.
bool IsMarkingAcceptable(const TreeRowMarking& marking, const MarkingParts& present,
                         const MarkingParts& parts) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const int part = static_cast<int>(i) + 1;
        if (marking.IsLocked(part) && !(parts[i] == present[i]))
            return false;
        const bool isDelim = part % 2 == 0;
        if (isDelim && parts[i].Str().size() > 1)
            return false;
    }
    return true;
}

} // namespace

/// While it lives the control is at work. Holds the view, which the control may let go of.
class TreeTableView::ControlCall {
public:
    explicit ControlCall(TreeTableView& view) : m_view(&view) { m_view->m_isInControl = true; }
    ~ControlCall() {
        m_view->m_isInControl = false;
        m_view->m_headInput = nullptr;
        m_view->m_headMarking = nullptr;
    }
    ControlCall(const ControlCall&) = delete;
    ControlCall& operator=(const ControlCall&) = delete;

private:
    boost::intrusive_ptr<TreeTableView> m_view;
};

/// While it lives the row answers the library what the user has left there. The front end is told
/// of the row in any case: what it drew in the meantime may be the input.
class TreeTableView::InputScope {
public:
    explicit InputScope(TreeTableRow& row, const RowInput& input)
        : m_row(&row), m_hub(&row.GetHub()) {
        m_hub->SetInput(&input);
    }
    ~InputScope() {
        m_hub->SetInput(nullptr);
        m_hub->NoteValues(*m_row);
    }
    InputScope(const InputScope&) = delete;
    InputScope& operator=(const InputScope&) = delete;

private:
    boost::intrusive_ptr<TreeTableRow> m_row;
    boost::intrusive_ptr<TreeTableHub> m_hub;
};

bool TreeTableView::CanCallControl() const {
    return m_control && !m_isInControl && !m_hub->IsInUpdate();
}

bool TreeTableView::CanActOn(const TreeTableRow& row) const {
    return CanCallControl() && row.GetData() && m_hub->IsInTree(row);
}

bool TreeTableView::CanEdit(const TreeTableRow& row) const {
    return CanActOn(row) && !m_panel.isReadOnly && !row.IsReadOnly();
}

bool TreeTableView::CanEditMarking(const TreeTableRow& row) const {
    const TreeRowMarking& marking = row.GetMarking();
    return CanEdit(row) && !marking.GetColumn().empty() && !marking.IsReadOnly() &&
           !marking.IsHypertext();
}

template <class Call>
bool TreeTableView::CallControl(const Call& call) {
    const ControlCall scope(*this);
    call(*m_control);
    return true;
}

template <class Call>
bool TreeTableView::CallControl(TreeTableRow& row, const Call& call) {
    // Held, since the control may drop the row, and the row then its data.
    const boost::intrusive_ptr<ProductTreeItemData> data(row.GetData());
    return CallControl([&](IfProductTreeCtrl& control) { call(control, *data); });
}

bool TreeTableView::EditCellByUser(TreeTableRow& row, const std::wstring& columnId,
                                   const CellInput& input) {
    const TreeCell* const cell = CanEdit(row) ? row.FindCell(columnId) : nullptr;
    if (!cell || !cell->Accepts(input))
        return false;
    const SharedText column = row.GetColumnOf(*cell);
    const RowInput left{&row, RowInput::Place::Cell, m_hub->GetNames().IdOf(column), input};
    const InputScope scope(row, left);
    return CallControl(row, [&](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnCellEdited(data, column);
    });
}

bool TreeTableView::EditNameByUser(TreeTableRow& row, const SharedText& text) {
    if (!CanEdit(row) || !row.IsNameEditable() || row.IsNameHypertext())
        return false;
    const RowInput left{&row, RowInput::Place::Name, 0, text};
    const InputScope scope(row, left);
    return CallControl(row, [](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnNameEdited(data);
    });
}

bool TreeTableView::EditMarkingByUser(TreeTableRow& row, const MarkingParts& parts) {
    if (!CanEditMarking(row))
        return false;
    const MarkingParts present = row.GetMarking().GetParts();
    if (!IsMarkingAcceptable(row.GetMarking(), present, parts))
        return false;
    const RowInput left{&row, RowInput::Place::Marking, 0, {}, parts};
    const InputScope scope(row, left);
    return CallControl(row, [](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnMarkingEdited(data);
    });
}

bool TreeTableView::EditDocCodeByUser(TreeTableRow& row) {
    constexpr int codePart = 7;
    if (!CanEditMarking(row) || row.GetMarking().IsLocked(codePart))
        return false;
    return CallControl(row, [](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnEditDocCode(data);
    });
}

bool TreeTableView::EditDocCodesByUser() {
    if (!CanCallControl() || m_panel.isReadOnly || !FindHead(HeadKind::Designation))
        return false;
    return CallControl([](IfProductTreeCtrl& control) { control.OnDesignationCodeCommand(); });
}

bool TreeTableView::ClickSourceIconByUser(TreeTableRow& row, const std::wstring& columnId) {
    if (!CanEdit(row) || columnId.empty())
        return false;
    const TreeRowMarking& marking = row.GetMarking();
    bool canClick = false;
    if (columnId == row.GetNameColumn())
        canClick = row.IsNameEditable() && !row.GetNameIcon().IsEmpty();
    else if (columnId == marking.GetColumn())
        canClick = !marking.IsReadOnly() && !marking.GetIcon().IsEmpty();
    else if (const TreeCell* const cell = row.FindCell(columnId))
        canClick = cell->IsEditable() && !row.GetIconOf(*cell).IsEmpty();
    if (!canClick)
        return false;
    return CallControl(row, [id = columnId](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnCellSourceIconClicked(data, id);
    });
}

bool TreeTableView::ClickLinkByUser(TreeTableRow& row, const std::wstring& columnId) {
    if (!CanActOn(row) || columnId.empty())
        return false;
    bool isLink = false;
    if (columnId == row.GetNameColumn()) {
        isLink = row.IsNameHypertext();
    } else if (columnId == row.GetMarking().GetColumn()) {
        isLink = row.GetMarking().IsHypertext();
    } else {
        const TreeCell* const cell = row.FindCell(columnId);
        isLink = cell && cell->GetKind() == CellKind::Link;
    }
    if (!isLink)
        return false;
    return CallControl(row, [id = columnId](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnCellHypertextActivated(data, id);
    });
}

bool TreeTableView::PopupCommandByUser(TreeTableRow& row, const std::wstring& columnId,
                                       int command) {
    const TreeCell* const cell = CanActOn(row) ? row.FindCell(columnId) : nullptr;
    if (!cell || !cell->GetPopup())
        return false;
    return CallControl(row,
                       [&, id = columnId](IfProductTreeCtrl& control, ProductTreeItemData& data) {
                           control.OnItemPopupCommand(data, id, command);
                       });
}

bool TreeTableView::RunCommandByUser(int command) {
    return CanCallControl() && CallControl([command](IfProductTreeCtrl& control) {
               control.OnToolbarCommand(command, 0);
           });
}

bool TreeTableView::ClickAttributeByUser(TreeTableRow& row, int columnId) {
    const bool isAggregation = columnId == AttributeColumnAggrIntoProduct;
    const int state = isAggregation ? row.GetAggrIntoProductState() : row.GetRegWithDescState();
    const bool canChange = state == AttributeStateOn || state == AttributeStateOff;
    if (!CanEdit(row) || !GetAttributeColumn(columnId).isShown || !canChange)
        return false;
    return CallControl(row, [&](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        if (isAggregation)
            control.OnAggrIntoProductClicked(data);
        else
            control.OnRegWithDescClicked(data);
    });
}

bool TreeTableView::ShowAttributeColumnByUser(int columnId, bool shown) {
    const AttributeColumn column = GetAttributeColumn(columnId);
    if (!column.isEnabled || column.isShown == shown)
        return false;
    SetAttributeColumnShown(columnId, shown);
    return true;
}

bool TreeTableView::ShowRowMenuByUser(TreeTableRow& row, const std::wstring& columnId) {
    if (!CanActOn(row) || columnId.empty())
        return false;
    return CallControl(row, [id = columnId](IfProductTreeCtrl& control, ProductTreeItemData& data) {
        control.OnItemContextMenu(data, id);
    });
}

bool TreeTableView::ShowColumnMenuByUser(const std::wstring& columnId) {
    if (!CanCallControl() || !m_heads.Find(columnId))
        return false;
    return CallControl(
        [id = columnId](IfProductTreeCtrl& control) { control.OnColumnContextMenu(id); });
}

bool TreeTableView::ChooseColumnsByUser() {
    return CanCallControl() &&
           CallControl([](IfProductTreeCtrl& control) { control.ManageProperties(); });
}

void TreeTableView::SetEmbodimentsAllowed(bool allowed) {
    if (allowed == m_embodiments.areAllowed)
        return;
    m_embodiments.areAllowed = allowed;
    if (CanCallControl())
        CallControl([&](IfProductTreeCtrl& control) { control.OnEmbodimentModeChanged(allowed); });
}

bool TreeTableView::SwitchEmbodimentsByUser(bool on) {
    if (!CanCallControl() || !m_embodiments.isEnabled || m_embodiments.isOn == on)
        return false;
    m_embodiments.isOn = on;
    return CallControl([](IfProductTreeCtrl& control) { control.OnEmbodimentSwitch(); });
}

bool TreeTableView::EnterEmbodimentFilterByUser(const std::wstring& text) {
    if (!CanCallControl() || m_embodiments.lines.empty() || m_embodiments.filterText == text)
        return false;
    m_embodiments.filterText = text;
    return CallControl([](IfProductTreeCtrl& control) { control.OnEmbodimentFilterChanged(); });
}

bool TreeTableView::CheckEmbodimentsByUser(const std::wstring& text, bool checked) {
    const auto line = std::ranges::find(m_embodiments.lines, text, &EmbodimentControls::Line::text);
    if (!CanCallControl() || line == m_embodiments.lines.end())
        return false;
    return CallControl(
        [&, id = text](IfProductTreeCtrl& control) { control.OnEmbodimentChecked(id, checked); });
}

bool TreeTableView::EditHeadByUser(const std::wstring& columnId, const CellInput& input) {
    const ColumnHead* const head = m_heads.Find(columnId);
    if (!CanCallControl() || m_panel.isReadOnly || !head || !head->Accepts(input))
        return false;
    const std::wstring id = columnId;
    const HeadInput left{id, input};
    return CallControl([&](IfProductTreeCtrl& control) {
        m_headInput = &left;
        control.OnHeaderEdited(id);
    });
}

bool TreeTableView::EditMarkingHeadByUser(const HeaderMarkingParts& parts) {
    const ColumnHead* const head = FindHead(HeadKind::Designation);
    const bool isAnyThere = parts.base || parts.embodimentNum || parts.additionalNum ||
                            parts.code || parts.embodimentNumDelim || parts.additionalNumDelim ||
                            parts.codeDelim;
    if (!CanCallControl() || m_panel.isReadOnly || !head || !isAnyThere)
        return false;
    return CallControl([&, id = head->id](IfProductTreeCtrl& control) {
        m_headMarking = &parts;
        control.OnHeaderEdited(id);
    });
}

bool TreeTableView::ClickHeadByUser(const std::wstring& columnId) {
    const ColumnHead* const head = m_heads.Find(columnId);
    if (!CanCallControl() || !head || head->kind != HeadKind::Link)
        return false;
    return CallControl(
        [id = columnId](IfProductTreeCtrl& control) { control.OnHeaderClicked(id); });
}

bool TreeTableView::HeadPopupCommandByUser(const std::wstring& columnId, int command) {
    const ColumnHead* const head = m_heads.Find(columnId);
    if (!CanCallControl() || !head || !head->popup)
        return false;
    return CallControl([&, id = columnId](IfProductTreeCtrl& control) {
        control.OnHeaderPopupCommand(id, command);
    });
}

bool TreeTableView::MoveColumnByUser(const std::wstring& columnId, std::size_t place) {
    if (!CanCallControl() || !m_heads.Move(columnId, place))
        return false;
    m_announcedHeads = m_heads.GetHeads();
    m_hub->Note(&TreeTableChanges::columns);
    return CallControl([](IfProductTreeCtrl& control) { control.OnColumnsChanged(); });
}

bool TreeTableView::SetColumnsVisibleByUser(
    const std::vector<productTree::ColumnVisibility>& columns) {
    if (!CanCallControl())
        return false;
    // The order of the entries becomes that of the columns: who comes stands last.
    for (const productTree::ColumnVisibility& column : columns) {
        const int index = m_columns.Find(column.columnId);
        if (column.visible && index >= 0 && !m_columns.Get(index)->isVisible)
            m_columns.MoveToEnd(index);
    }
    return CallControl([&](IfProductTreeCtrl& control) { control.SetColumnsVisibility(columns); });
}

template <class Value>
std::optional<Value> TreeTableView::GetHeadInput(const std::wstring& columnId) const {
    if (!m_headInput || m_headInput->columnId != columnId)
        return std::nullopt;
    const Value* const value = std::get_if<Value>(&m_headInput->value);
    return value ? std::optional(*value) : std::nullopt;
}

const ColumnHead* TreeTableView::FindHead(HeadKind kind) const {
    const auto& heads = m_heads.GetHeads();
    const auto head = std::ranges::find(heads, kind, &ColumnHead::kind);
    return head == heads.end() ? nullptr : &*head;
}

SharedText TreeTableView::GetHeaderName() const {
    const ColumnHead* const name = FindHead(HeadKind::Name);
    return name ? GetHeadInput<SharedText>(name->id).value_or(SharedText()) : SharedText();
}

HeaderMarkingParts TreeTableView::GetHeaderMarking() const {
    return m_headMarking ? *m_headMarking : HeaderMarkingParts();
}

SharedText TreeTableView::GetHeaderText(const SharedText& columnId) const {
    return GetHeadInput<SharedText>(columnId).value_or(SharedText());
}

std::optional<int> TreeTableView::GetHeaderInt(const SharedText& columnId) const {
    return GetHeadInput<int>(columnId);
}

std::optional<double> TreeTableView::GetHeaderDouble(const SharedText& columnId) const {
    return GetHeadInput<double>(columnId);
}

std::optional<bool> TreeTableView::GetHeaderBool(const SharedText& columnId) const {
    return GetHeadInput<bool>(columnId);
}

int TreeTableView::GetHeaderListIndex(const SharedText& columnId) const {
    return GetHeadInput<ListIndex>(columnId).value_or(ListIndex{}).index;
}

} // namespace platform

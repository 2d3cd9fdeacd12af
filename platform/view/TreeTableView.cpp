#include "platform/view/TreeTableView.h"

#include "control/IfProductTreeCtrl.h"

#include <utility>

namespace platform {

/// An update of the view's own around a single change.
class TreeTableView::Update {
public:
    explicit Update(TreeTableView& view) : m_view(view) { m_view.BeginUpdate(); }
    ~Update() { m_view.EndUpdate(); }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

private:
    TreeTableView& m_view;
};

TreeTableView::TreeTableView() : m_hub(new TreeTableHub) {
    m_hub->SetSelectionListener([this] {
        if (m_control)
            m_control->OnSelectionChanged();
    });
}

TreeTableView::~TreeTableView() {
    // Rows may outlive the view; what they note is of no interest any more.
    m_hub->SetSelectionListener({});
    m_hub->SetObserver(nullptr);
    m_hub->SetRoot(nullptr);
    if (m_root)
        m_root->ReleaseData();
}

void TreeTableView::SetVisible(bool visible, bool activate) {
    ChangePanel(m_panel.isVisible, visible);
    if (activate)
        Activate(true);
}

void TreeTableView::SetAdditionalToolbar(const std::string& name) {
    ChangePanel(m_panel.additionalToolbar, name);
}

ITreeTableRow* TreeTableView::GetRootRow(std::size_t index) const {
    return index == 0 ? m_root.get() : nullptr;
}

void TreeTableView::SetRootRow(const TreeRowPtr& row) {
    auto* const root = static_cast<TreeTableRow*>(row.get());
    if (root == m_root.get())
        return;
    const Update update(*this);
    m_hub->AnnounceRowChange();
    m_hub->SetRoot(root);
    m_hub->DropDetachedMarks();
    if (m_root)
        m_root->ReleaseData();
    m_root = root;
}

void TreeTableView::EndUpdate() {
    if (m_hub->IsInOutermostUpdate() && m_announcedHeads != m_heads.GetHeads()) {
        m_announcedHeads = m_heads.GetHeads();
        m_hub->Note(&TreeTableChanges::columns);
    }
    m_hub->EndUpdate();
}

void TreeTableView::ResetColumns() {
    const Update update(*this);
    m_heads.Reset();
}

void TreeTableView::AddColumn(const std::wstring& caption, const std::wstring& columnId,
                              bool visible) {
    m_columns.Add({columnId, caption, visible});
}

int TreeTableView::GetColumnCount() const {
    return static_cast<int>(m_columns.GetEntries().size());
}

std::wstring TreeTableView::GetColumnId(int index) const {
    const ColumnEntry* entry = m_columns.Get(index);
    return entry ? entry->id : std::wstring();
}

void TreeTableView::SetColumnId(int index, const std::wstring& columnId) {
    m_columns.SetId(index, columnId);
}

std::wstring TreeTableView::GetColumnCaption(int index) const {
    const ColumnEntry* entry = m_columns.Get(index);
    return entry ? entry->caption : std::wstring();
}

void TreeTableView::SetColumnCaption(int index, const std::wstring& caption) {
    m_columns.SetCaption(index, caption);
}

bool TreeTableView::IsColumnVisible(int index) const {
    const ColumnEntry* entry = m_columns.Get(index);
    return entry && entry->isVisible;
}

std::vector<std::wstring> TreeTableView::GetColumnIds() const {
    std::vector<std::wstring> ids;
    for (const ColumnHead& head : m_heads.GetHeads())
        ids.push_back(head.id);
    return ids;
}

double TreeTableView::GetMarkingColumnWidth() const {
    return m_heads.GetWidth(HeadKind::Designation);
}

void TreeTableView::ClearColumnMark() {
    SetColumnMark(m_markedColumn, false);
}

void TreeTableView::SetColumnMark(const std::wstring& columnId, bool marked) {
    const std::wstring now = marked ? columnId : std::wstring();
    if (now == m_markedColumn || (!marked && columnId != m_markedColumn))
        return;
    m_markedColumn = now;
    m_hub->Note(&TreeTableChanges::columns);
}

void TreeTableView::InitHead(const productTree::ColumnInfo& column, HeadKind kind,
                             const boost::intrusive_ptr<IMenuItems>& popup) {
    const Update update(*this);
    m_heads.Init(column, kind, popup);
}

void TreeTableView::InitNameHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Name);
}

void TreeTableView::InitDesignationHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Designation);
}

void TreeTableView::InitCountHeader(const productTree::ColumnInfo& column, const std::wstring& text,
                                    const std::wstring& tag, bool active) {
    const Update update(*this);
    m_heads.InitCount(column, text, tag, active);
}

void TreeTableView::InitTextHeader(const productTree::ColumnInfo& column,
                                   const boost::intrusive_ptr<IMenuItems>& popup) {
    InitHead(column, HeadKind::Text, popup);
}

void TreeTableView::InitIntHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Int);
}

void TreeTableView::InitDoubleHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Double);
}

void TreeTableView::InitListHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::List);
}

void TreeTableView::InitBoolHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Bool);
}

void TreeTableView::InitLinkHeader(const productTree::ColumnInfo& column) {
    InitHead(column, HeadKind::Link);
}

AttributeColumn TreeTableView::GetAttributeColumn(int id) const {
    const auto column = m_attributeColumns.find(id);
    return column == m_attributeColumns.end() ? AttributeColumn{} : column->second;
}

void TreeTableView::SetAttributeColumnEnabled(int id, bool enabled) {
    const auto column = m_attributeColumns.find(id);
    if (column != m_attributeColumns.end())
        ChangePanel(column->second.isEnabled, enabled);
}

void TreeTableView::SetAttributeColumnShown(int id, bool shown) {
    const auto column = m_attributeColumns.find(id);
    if (column != m_attributeColumns.end())
        ChangePanel(column->second.isShown, shown);
}

std::vector<TreeRowPtr> TreeTableView::GetSelectedRows() const {
    const std::vector<TreeTableRow*>& rows = m_hub->GetSelected();
    return {rows.begin(), rows.end()};
}

void TreeTableView::SelectRow(const TreeRowPtr& row, bool makeCurrent, bool select) {
    auto& chosen = static_cast<TreeTableRow&>(*row);
    m_hub->Select(chosen, select);
    if (makeCurrent)
        m_hub->SetCurrent(&chosen);
    m_hub->TellSelection();
}

void TreeTableView::ClearSelection() {
    m_hub->ClearSelection();
    m_hub->SetCurrent(nullptr);
    m_hub->TellSelection();
}

void TreeTableView::EnableCommand(unsigned command, bool enabled) {
    ChangePanel(m_commands[command].isEnabled, std::optional(enabled));
}

void TreeTableView::ShowCommand(unsigned command, bool shown) {
    ChangePanel(m_commands[command].isShown, std::optional(shown));
}

bool TreeTableView::IsCommandEnabled(unsigned command) const {
    const auto state = m_commands.find(command);
    return state != m_commands.end() && state->second.isEnabled.value_or(true);
}

bool TreeTableView::IsCommandShown(unsigned command) const {
    const auto state = m_commands.find(command);
    return state != m_commands.end() && state->second.isShown.value_or(true);
}

bool TreeTableView::IsCommandOffered(unsigned command) const {
    return IsCommandEnabled(command) && IsCommandShown(command);
}

void TreeTableView::SetGroupEditMode(bool on) {
    m_groupEdit.reset();
    if (on)
        m_groupEdit.emplace();
    m_hub->Note(&TreeTableChanges::panel);
}

void TreeTableView::AddGroupEditProperty(const std::wstring& columnId, bool editable) {
    if (m_groupEdit)
        (*m_groupEdit)[columnId] = editable;
}

void TreeTableView::SetEmbodimentSwitch(bool on) {
    ChangePanel(m_embodiments.isOn, on);
}

void TreeTableView::EnableEmbodimentSwitch(bool enabled) {
    ChangePanel(m_embodiments.isEnabled, enabled);
}

void TreeTableView::ClearEmbodimentFilter() {
    ChangePanel(m_embodiments.lines, {});
    ChangePanel(m_embodiments.filterText, {});
}

void TreeTableView::AddEmbodimentFilterItem(const std::wstring& text, std::optional<bool> checked) {
    m_embodiments.lines.push_back({text, checked});
    m_hub->Note(&TreeTableChanges::panel);
}

void TreeTableView::SetEmbodimentFilterText(const std::wstring& text) {
    ChangePanel(m_embodiments.filterText, text);
}

void TreeTableView::SelectByUser(const std::vector<TreeTableRow*>& rows, TreeTableRow* current) {
    m_hub->SetQuiet(true);
    m_hub->ClearSelection();
    for (TreeTableRow* row : rows)
        m_hub->Select(*row, true);
    m_hub->SetCurrent(current);
    m_hub->SetQuiet(false);
    m_hub->TellSelection();
}

void TreeTableView::SetColumnWidthByUser(const std::wstring& columnId, double width) {
    if (m_heads.SetWidth(columnId, width))
        m_announcedHeads = m_heads.GetHeads();
}

SharedText GetShownText(const TreeTableRow& row, const ColumnHead& head) {
    if (head.kind == HeadKind::Name)
        return row.GetShownName();
    if (head.kind == HeadKind::Designation)
        return row.GetMarking().GetDisplayText();
    const TreeCell* const cell = row.FindCell(head.id);
    return cell ? cell->GetShownText() : SharedText();
}

} // namespace platform

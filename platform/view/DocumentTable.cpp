#include "platform/view/DocumentTable.h"

#include <algorithm>
#include <utility>

namespace platform {

DocumentTable::DocumentTable(Tell tell, std::function<void()> changed)
    : m_tell(std::move(tell)), m_changed(std::move(changed)) {}

void DocumentTable::AddHead(const Column& column, ColumnKind kind, int icon,
                            std::span<const int> images) {
    m_heads.push_back({column, kind, icon, {images.begin(), images.end()}});
    m_changed();
}

void DocumentTable::AddImageColumn(const Column& column, int icon, std::span<const int> images) {
    AddHead(column, ColumnKind::Image, icon, images);
}

// The cells are not typed in: what is allowed there is of no use.
void DocumentTable::AddIntColumn(const Column& column, const Range&, const std::wstring&) {
    AddHead(column, ColumnKind::Number, -1, {});
}

void DocumentTable::AddTextColumn(const Column& column, const std::wstring&) {
    AddHead(column, ColumnKind::Text, -1, {});
}

void DocumentTable::AddIconTextColumn(const Column& column, int icon, const std::wstring&) {
    AddHead(column, ColumnKind::Text, icon, {});
}

void DocumentTable::AddRow(const std::vector<Cell>& cells) {
    m_rows.push_back({cells, std::vector<bool>(m_heads.size(), true)});
    m_changed();
}

void DocumentTable::SetRow(std::size_t index, const std::vector<Cell>& cells) {
    if (index < m_rows.size())
        Change(m_rows[index].cells, cells);
}

void DocumentTable::RemoveRow(std::size_t index) {
    if (index >= m_rows.size())
        return;
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(index));
    std::erase(m_selection, index);
    for (std::size_t& selected : m_selection) {
        if (selected > index)
            --selected;
    }
    m_changed();
}

void DocumentTable::SetCellEnabled(const std::wstring& column, std::size_t row, bool enabled) {
    const auto head =
        std::ranges::find_if(m_heads, [&](const Head& each) { return each.column.key == column; });
    if (head == m_heads.end() || row >= m_rows.size())
        return;
    const auto place = static_cast<std::size_t>(head - m_heads.begin());
    if (m_rows[row].enabled[place] == enabled)
        return;
    m_rows[row].enabled[place] = enabled;
    m_changed();
}

void DocumentTable::SetSelection(const std::vector<std::size_t>& rows) {
    std::vector<std::size_t> selection;
    for (const std::size_t row : rows) {
        if (row < m_rows.size())
            selection.push_back(row);
    }
    Change(m_selection, selection);
}

void DocumentTable::SetToolbar(const std::string& name) {
    Change(m_toolbar, name);
}

void DocumentTable::EnableCommand(unsigned command, bool enabled) {
    Change(m_commands[command].isEnabled, enabled);
}

void DocumentTable::CheckCommand(unsigned command, bool checked) {
    Change(m_commands[command].isChecked, checked);
}

void DocumentTable::EnableRemove(bool enabled) {
    Change(m_isRemoveEnabled, enabled);
}

void DocumentTable::AddMenuItem(bool checkable, bool checked, unsigned command,
                                const std::wstring&) {
    m_menu.push_back({command, checkable, checked});
}

void DocumentTable::SetEnabled(bool enabled) {
    Change(m_isEnabled, enabled);
}

bool DocumentTable::IsCommandEnabled(unsigned command) const {
    const auto found = m_commands.find(command);
    return found != m_commands.end() && found->second.isEnabled;
}

bool DocumentTable::IsCommandChecked(unsigned command) const {
    const auto found = m_commands.find(command);
    return found != m_commands.end() && found->second.isChecked;
}

bool DocumentTable::SelectByUser(std::vector<std::size_t> rows) {
    std::ranges::sort(rows);
    if (rows == m_selection)
        return false;
    SetSelection(rows);
    return m_tell(DocsListEventSelection, 0);
}

bool DocumentTable::RunCommandByUser(unsigned command) {
    return IsCommandEnabled(command) && m_tell(DocsListEventCommand, command);
}

bool DocumentTable::RemoveByUser() {
    return m_isRemoveEnabled && m_tell(DocsListEventRemove, 0);
}

std::vector<DocumentTable::MenuItem> DocumentTable::MakeMenu() {
    m_menu.clear();
    m_isMakingMenu = true;
    try {
        m_tell(DocsListEventMenu, 0);
    } catch (...) {
        m_isMakingMenu = false;
        throw;
    }
    m_isMakingMenu = false;
    return m_menu;
}

bool DocumentTable::ChooseFromMenuByUser(unsigned command) {
    const bool isOffered =
        std::ranges::any_of(m_menu, [&](const MenuItem& item) { return item.command == command; });
    return isOffered && m_tell(DocsListEventMenuCommand, command);
}

} // namespace platform

// The list of documents in memory: columns, rows and commands as the library has set them, for a
// front end that shows them and says what its user does. Only its box makes one.
#pragma once

#include "host/view/IParamTableModel.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace platform {

class DocumentTable final : public RcBase<IParamTableModel> {
public:
    enum class ColumnKind { Image, Number, Text };
    struct Head {
        Column column;
        ColumnKind kind = ColumnKind::Text;
        /// A resource; -1 for none.
        int icon = -1;
        std::vector<int> images;
    };
    struct Row {
        std::vector<Cell> cells;
        /// By column.
        std::vector<bool> enabled;

        friend bool operator==(const Row&, const Row&) = default;
    };
    struct MenuItem {
        unsigned command = 0;
        bool isCheckable = false;
        bool isChecked = false;
    };

    /// Tells the control of an event; the answer is whether it could be told.
    using Tell = std::function<bool(int eventId, unsigned command)>;

    /// `changed` is called when anything that is shown has become another.
    DocumentTable(Tell tell, std::function<void()> changed);

    void AddImageColumn(const Column& column, int icon, std::span<const int> images) override;
    void AddIntColumn(const Column& column, const Range& range,
                      const std::wstring& pattern) override;
    void AddTextColumn(const Column& column, const std::wstring& pattern) override;
    void AddIconTextColumn(const Column& column, int icon, const std::wstring& pattern) override;
    std::size_t GetRowCount() const override { return m_rows.size(); }
    void AddRow(const std::vector<Cell>& cells) override;
    void SetRow(std::size_t index, const std::vector<Cell>& cells) override;
    void RemoveRow(std::size_t index) override;
    void SetCellEnabled(const std::wstring& column, std::size_t row, bool enabled) override;
    std::vector<std::size_t> GetSelection() const override { return m_selection; }
    void SetSelection(const std::vector<std::size_t>& rows) override;
    void SetToolbar(const std::string& name) override;
    void EnableCommand(unsigned command, bool enabled) override;
    void CheckCommand(unsigned command, bool checked) override;
    void EnableRemove(bool enabled) override;
    bool BeginContextMenu() override { return m_isMakingMenu; }
    void AddMenuItem(bool checkable, bool checked, unsigned command,
                     const std::wstring& source) override;
    void SetEnabled(bool enabled) override;

    const std::vector<Head>& GetHeads() const { return m_heads; }
    const std::vector<Row>& GetRows() const { return m_rows; }
    const std::string& GetToolbar() const { return m_toolbar; }
    /// False for a command of which nothing was said.
    bool IsCommandEnabled(unsigned command) const;
    bool IsCommandChecked(unsigned command) const;
    bool IsRemoveEnabled() const { return m_isRemoveEnabled; }
    bool IsEnabled() const { return m_isEnabled; }

    // What the user does. False when there is nothing to be done, and while the control is at work.
    bool SelectByUser(std::vector<std::size_t> rows);
    bool RunCommandByUser(unsigned command);
    bool RemoveByUser();
    /// What the menu of the selected rows offers; empty when it is not to be shown.
    std::vector<MenuItem> MakeMenu();
    bool ChooseFromMenuByUser(unsigned command);

private:
    struct CommandState {
        bool isEnabled = false;
        bool isChecked = false;
    };

    template <class T>
    void Change(T& field, const T& value) {
        if (field == value)
            return;
        field = value;
        m_changed();
    }
    void AddHead(const Column& column, ColumnKind kind, int icon, std::span<const int> images);

    Tell m_tell;
    std::function<void()> m_changed;
    std::vector<Head> m_heads;
    std::vector<Row> m_rows;
    std::vector<std::size_t> m_selection;
    std::string m_toolbar;
    std::map<unsigned, CommandState> m_commands;
    bool m_isRemoveEnabled = false;
    bool m_isEnabled = true;
    bool m_isMakingMenu = false;
    std::vector<MenuItem> m_menu;
};

} // namespace platform

// A control that writes down what it is called for and does what the test says, and rows with a
// cell of each kind.
#pragma once

#include "control/IfProductTreeCtrl.h"
#include "items/ProductTreeItemData.h"
#include "platform/values/Utf8.h"
#include "platform/view/MemoryMenu.h"
#include "tests/platform/ViewBuilder.h"

#include <cstdint>
#include <functional>
#include <list>
#include <string>
#include <utility>

namespace view_tests {

class Control final : public productTree::IfProductTreeCtrl {
public:
    using Item = productTree::ProductTreeItemData;

    /// Runs inside each call.
    std::function<void()> during;

    std::string TakeLog() { return std::exchange(m_log, {}); }

    void OnToolbarCommand(int command, std::int64_t) override { Note("command " + std::to_string(command)); }
    void OnDocsListEvent(int eventId, std::int64_t) override { Note("documents " + std::to_string(eventId)); }
    void SetDocsListVisible(bool visible) override { Note(visible ? "documents shown" : "documents hidden"); }
    void OnSelectionChanged() override {}
    void OnAggrIntoProductClicked(Item&) override { Note("aggregate"); }
    void OnRegWithDescClicked(Item&) override { Note("register"); }
    void OnItemContextMenu(Item&, const std::wstring& id) override { Note("menu", id); }
    void OnColumnContextMenu(const std::wstring& id) override { Note("head menu", id); }
    void ManageProperties() override { Note("properties"); }
    void OnEmbodimentModeChanged(bool allowed) override { Note(allowed ? "allowed" : "not allowed"); }
    void OnEmbodimentSwitch() override { Note("switch"); }
    void OnEmbodimentFilterChanged() override { Note("filter"); }
    void OnEmbodimentChecked(const std::wstring& text, bool) override { Note("embodiments", text); }
    void OnColumnsChanged() override { Note("columns"); }
    void OnCellEdited(Item&, const std::wstring& id) override { Note("cell", id); }
    void OnHeaderEdited(const std::wstring& id) override { Note("head", id); }
    void OnMarkingEdited(Item&) override { Note("marking"); }
    void OnDesignationCodeCommand() override { Note("codes"); }
    void OnEditDocCode(Item&) override { Note("code"); }
    void OnNameEdited(Item&) override { Note("name"); }
    void OnCellHypertextActivated(Item&, const std::wstring& id) override { Note("link", id); }
    void OnHeaderClicked(const std::wstring& id) override { Note("head click", id); }
    void OnCellSourceIconClicked(Item&, const std::wstring& id) override { Note("icon", id); }
    void OnItemPopupCommand(Item&, const std::wstring& id, int command) override {
        Note("popup " + std::to_string(command), id);
    }
    void OnHeaderPopupCommand(const std::wstring& id, int command) override {
        Note("head popup " + std::to_string(command), id);
    }
    void SetColumnsVisibility(const std::vector<productTree::ColumnVisibility>& columns) override {
        std::wstring text;
        for (const auto& [id, visible] : columns)
            text += id + (visible ? L"+" : L"-");
        Note("visible", text);
    }

private:
    void Note(const std::string& what, const std::wstring& about = {}) {
        m_log += what + (about.empty() ? "" : " ") + platform::ToUtf8(about) + ';';
        if (during)
            during();
    }

    std::string m_log;
};

using Menu = platform::MemoryMenu;

namespace columns {

inline const SharedText note = L"note";
inline const SharedText count = L"count";
inline const SharedText mass = L"mass";
inline const SharedText visible = L"visible";
inline const SharedText section = L"section";
inline const SharedText source = L"source";
inline const SharedText icon = L"PRODUCTTREE_VALUE_BY_SOURCE";

} // namespace columns

inline const std::list<SimplePropVal> c_sections{SimplePropVal(L"Parts"), SimplePropVal(L"Kits")};

inline void InitCells(platform::TreeTableRow& row) {
    row.InitTextEditor(columns::note, {}, true, {}, nullptr);
    row.InitIntEditor(columns::count, 0, true, 1, 100, true, {});
    row.InitDoubleEditor(columns::mass, {}, true, true, {}, 0.5, 0, 0);
    row.InitBoolEditor(columns::visible, true, true, true, {});
    row.InitListEditor(columns::section, c_sections, 0, true, SharedText(L"Section"));
    row.InitTextEditor(columns::source, {}, true, {}, nullptr);
}

inline void WriteCells(platform::TreeTableRow& row, const MenuPtr& menu = nullptr) {
    row.SetTextCell(columns::note, L"a<b", L"ab", true, false, columns::icon, menu);
    row.SetIntCell(columns::count, 3, 1, 100, true, true, {});
    row.SetDoubleCell(columns::mass, 0.25, true, true, columns::icon, -1, 5);
    row.SetBoolCell(columns::visible, true, true, true, {});
    row.SetListCell(columns::section, c_sections, 1, true, {});
    row.SetLinkCell(columns::source, L"drawing", false, L"Open", true, false, true, {}, 2);
}

/// What the row answers about all cells.
inline std::string Answers(const ITreeTableRow& row) {
    const auto mass = row.GetDoubleValue(columns::mass);
    const auto count = row.GetIntValue(columns::count);
    const auto visible = row.GetBoolValue(columns::visible);
    return platform::ToUtf8(row.GetCellText(columns::note).Str()) + ' ' + (count ? std::to_string(*count) : "-") + ' ' +
           (mass ? platform::ToUtf8(SimplePropVal(*mass).to_wstring().Str()) : "-") + ' ' +
           (visible ? (*visible ? "yes" : "no") : "-") + ' ' + std::to_string(row.GetListIndex(columns::section));
}

/// What the row shows in all cells, in their order.
inline std::string Shown(const platform::TreeTableRow& row) {
    std::string text;
    for (std::size_t i = 0; i < row.GetCellCount(); ++i)
        text += (i ? " | " : "") + platform::ToUtf8(row.GetCell(i).GetShownText().Str());
    return text;
}

} // namespace view_tests

#include "tests/support/PanelDump.h"

#include "platform/values/Utf8.h"
#include "platform/view/HostFrame.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace support {

namespace {

using platform::TreeCell;
using platform::TreeTableRow;
using platform::TreeTableView;

/// ` name=value` for each value that is not the usual one.
class Line {
public:
    explicit Line(const std::string& start) : m_text(start) {}

    Line& Add(const char* name, const std::string& value) {
        if (!value.empty())
            m_text += std::string(" ") + name + "='" + value + "'";
        return *this;
    }
    Line& Add(const char* name, const std::wstring& value) { return Add(name, platform::ToUtf8(value)); }
    Line& Add(const char* name, const SharedText& value) { return Add(name, value.Str()); }
    Line& Add(const char* name, double value) {
        if (value == 0)
            return *this;
        std::ostringstream text;
        text.precision(17);
        text << value;
        return Add(name, text.str());
    }
    Line& Add(const char* name, const std::vector<SharedText>& texts) {
        for (const SharedText& text : texts)
            Add(name, text.IsEmpty() ? std::string("-") : platform::ToUtf8(text.Str()));
        return *this;
    }
    Line& Add(const char* name, const IMenuItems* menu) {
        for (std::size_t i = 0; menu && i < menu->GetEntryCount(); ++i) {
            const MenuEntry entry = menu->GetEntry(i);
            Add(name, platform::ToUtf8(entry.text.Str()) + ' ' + std::to_string(entry.GetCommand()) +
                          (entry.isChecked ? "+" : ""));
        }
        return *this;
    }
    const std::string& Text() const { return m_text; }

private:
    std::string m_text;
};

std::string DumpCell(const TreeTableRow& row, const TreeCell& cell) {
    Line line("[" + platform::ToUtf8(row.GetColumnOf(cell).Str()));
    line.Add("kind", static_cast<double>(cell.GetKind())).Add("text", cell.GetText()).Add("shown", cell.GetShown());
    line.Add("reads", cell.GetShownText()).Add("index", cell.GetListIndex()).Add("list", cell.GetList());
    line.Add("value", cell.GetInt() + cell.GetDouble() + cell.GetBool()).Add("has", cell.HasValue());
    line.Add("editable", cell.IsEditable()).Add("empty", cell.CanBeEmpty()).Add("recalc", cell.IsRecalculable());
    line.Add("outdated", cell.IsOutdated()).Add("moment", cell.IsMoment()).Add("opens", cell.OpensEditor());
    line.Add("style", cell.GetLinkStyle()).Add("min", cell.GetMin()).Add("max", cell.GetMax());
    line.Add("step", cell.GetStep() - 1).Add("tip", cell.GetTip()).Add("popup", cell.GetPopup());
    return line.Add("icon", row.GetIconOf(cell)).Text() + "]";
}

std::string DumpMarking(const platform::TreeRowMarking& marking) {
    Line line("{" + platform::ToUtf8(marking.GetDisplayText().Str()));
    for (const SharedText& part : marking.GetParts())
        line.Add("part", part.IsEmpty() ? SharedText(L"-") : part);
    for (const int part : marking.GetLockedParts())
        line.Add("locked", part);
    for (int part = 1; part <= 7; ++part)
        line.Add("tip", marking.GetPartTip(part));
    line.Add("column", marking.GetColumn()).Add("fixed", marking.IsReadOnly()).Add("link", marking.IsHypertext());
    return line.Add("style", marking.GetLinkStyle()).Add("icon", marking.GetIcon()).Text() + "}";
}

std::string DumpWholeRow(const TreeTableRow& row) {
    std::string depth;
    for (const TreeTableRow* above = row.GetParentRow(); above; above = above->GetParentRow())
        depth += '.';
    Line line(depth + platform::ToUtf8(row.GetShownName().Str()));
    line.Add("name", row.GetNameText()).Add("column", row.GetNameColumn()).Add("editable", row.IsNameEditable());
    line.Add("link", row.IsNameHypertext()).Add("style", row.GetNameLinkStyle()).Add("source", row.GetNameIcon());
    line.Add("heading", row.IsSectionNameStyle()).Add("section", row.IsSection()).Add("fixed", row.IsReadOnly());
    line.Add("icon", row.GetIcon()).Add("tip", row.GetIconTip()).Add("count", row.GetCurrentCountColumn());
    line.Add("aggr", row.GetAggrIntoProductState()).Add("reg", row.GetRegWithDescState());
    line.Add("data", row.GetData() != nullptr);
    std::set<std::string> cells;
    for (std::size_t i = 0; i < row.GetCellCount(); ++i)
        cells.insert(DumpCell(row, row.GetCell(i)));
    std::string text = line.Text() + " " + DumpMarking(row.GetMarking());
    for (const std::string& cell : cells)
        text += " " + cell;
    return text;
}

void DumpHeads(const TreeTableView& view, PanelDump& dump) {
    for (const platform::ColumnHead& head : view.GetHeads()) {
        Line line("head " + platform::ToUtf8(head.id));
        line.Add("caption", head.caption).Add("kind", static_cast<double>(head.kind)).Add("min", head.min);
        line.Add("max", head.max).Add("list", head.list).Add("popup", head.popup.get()).Add("text", head.text);
        dump.rest.push_back(line.Add("tag", head.tag).Add("active", head.isActive).Text());
        dump.own.push_back(Line("width").Add("of", head.id).Add("is", head.width).Text());
    }
    for (const platform::ColumnEntry& entry : view.GetColumnEntries())
        dump.own.push_back(
            Line("column").Add("id", entry.id).Add("caption", entry.caption).Add("on", entry.isVisible).Text());
    dump.own.push_back(Line("marked").Add("column", view.GetMarkedColumn()).Text());
    for (const int id : {AttributeColumnAggrIntoProduct, AttributeColumnRegWithDesc}) {
        const platform::AttributeColumn column = view.GetAttributeColumn(id);
        dump.rest.push_back(Line("boxes").Add("id", id).Add("enabled", column.isEnabled).Text());
        dump.own.push_back(Line("boxes").Add("id", id).Add("shown", column.isShown).Text());
    }
}

void DumpControls(const TreeTableView& view, PanelDump& dump) {
    for (const unsigned id : {7745U, 7746U, 7747U, 7748U, 7752U, 7766U, 7786U})
        dump.rest.push_back(Line("command")
                                .Add("id", id)
                                .Add("enabled", view.IsCommandEnabled(id))
                                .Add("shown", view.IsCommandShown(id))
                                .Text());
    const platform::EmbodimentControls& controls = view.GetEmbodiments();
    Line line("embodiments");
    line.Add("allowed", controls.areAllowed).Add("enabled", controls.isEnabled).Add("on", controls.isOn);
    for (const auto& [text, checked] : controls.lines)
        line.Add("line", text + (checked ? *checked ? L"+" : L"-" : L"?"));
    // What is typed there stays in a read-only document, whether it is taken or not.
    const bool isOwn = view.GetPanel().isReadOnly;
    (isOwn ? dump.own : dump.rest).push_back(line.Add("filter", controls.filterText).Text());
    const platform::PanelState& panel = view.GetPanel();
    line =
        Line("panel").Add("visible", panel.isVisible).Add("fixed", panel.isReadOnly).Add("heads", panel.areHeadsShown);
    line.Add("caption", panel.caption).Add("help", panel.helpTopic).Add("bar", panel.toolbar);
    dump.rest.push_back(line.Add("bar", panel.additionalToolbar).Text());
    line = Line("several rows");
    for (const auto& [id, isEditable] : view.GetGroupEdit().value_or(std::map<std::wstring, bool>()))
        line.Add(isEditable ? "edit" : "show", id);
    dump.own.push_back(line.Add("on", view.GetGroupEdit().has_value()).Text());
}

void DumpDocuments(const platform::DocumentBox& box, PanelDump& dump) {
    const platform::DocumentTable& table = box.GetDocuments();
    for (const platform::DocumentTable::Row& row : table.GetRows()) {
        Line line("document");
        for (const IParamTableModel::Cell& cell : row.cells) {
            const SharedText* const text = std::get_if<SharedText>(&cell);
            line.Add("cell", text ? *text : SharedText(std::to_wstring(std::get<int>(cell))));
        }
        for (const bool isEnabled : row.enabled)
            line.Add("enabled", isEnabled ? 1 : 2);
        dump.rest.push_back(line.Text());
    }
    dump.rest.push_back(
        Line("documents").Add("enabled", table.IsEnabled()).Add("remove", table.IsRemoveEnabled()).Text());
}

} // namespace

std::vector<TreeTableRow*> ListRows(const TreeTableView& view) {
    std::vector<TreeTableRow*> rows;
    const auto visit = [&](auto&& self, TreeTableRow& row) -> void {
        rows.push_back(&row);
        for (std::size_t i = 0; i < row.GetChildCount(); ++i)
            self(self, row.GetChildRow(i));
    };
    if (view.GetRoot())
        visit(visit, *view.GetRoot());
    return rows;
}

PanelDump DumpPanel(const platform::HostFrame& frame) {
    const TreeTableView& view = frame.GetView();
    PanelDump dump;
    for (const TreeTableRow* const row : ListRows(view)) {
        dump.rows.push_back(DumpWholeRow(*row));
        Line line("row");
        line.Add("expanded", row->IsExpanded()).Add("selected", row->IsSelected()).Add("current", row->IsCurrent());
        dump.own.push_back(line.Text());
    }
    DumpHeads(view, dump);
    DumpControls(view, dump);
    if (const platform::DocumentBox* const box = frame.GetDocumentBox())
        DumpDocuments(*box, dump);
    return dump;
}

std::string DumpChanges(const TreeTableView& view, const platform::TreeTableChanges& changes) {
    const std::vector<TreeTableRow*> rows = ListRows(view);
    std::set<std::ptrdiff_t> places;
    for (const TreeTableRow* const row : changes.valueRows)
        places.insert(std::ranges::find(rows, row) - rows.begin());
    std::string text;
    for (const std::ptrdiff_t place : places)
        text += (text.empty() ? "" : " ") + std::to_string(place);
    text = changes.values ? "values(" + (text.empty() ? "any" : text) + ")" : "";
    const std::pair<bool, const char*> rest[] = {
        {changes.rows, " rows"},       {changes.expansion, " expansion"}, {changes.selection, " selection"},
        {changes.columns, " columns"}, {changes.panel, " panel"},         {changes.editRow != nullptr, " edit"}};
    for (const auto& [isChanged, word] : rest)
        text += isChanged ? word : "";
    return text;
}

} // namespace support

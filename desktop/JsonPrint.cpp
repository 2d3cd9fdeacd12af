#include "desktop/JsonPrint.h"

#include "platform/values/Utf8.h"
#include "platform/view/TreeTableView.h"

#include <nlohmann/json.hpp>

namespace desktop {

namespace {

using Json = nlohmann::ordered_json;
using platform::ColumnHead;
using platform::ToUtf8;
using platform::TreeTableRow;

Json Columns(const std::vector<ColumnHead>& heads) {
    Json columns = Json::array();
    for (const ColumnHead& head : heads) {
        columns.push_back(
            {{"id", ToUtf8(head.id)}, {"caption", ToUtf8(head.caption)}, {"width", head.width}});
    }
    return columns;
}

Json Cells(const TreeTableRow& row, const std::vector<ColumnHead>& heads) {
    Json cells = Json::object();
    for (const ColumnHead& head : heads) {
        if (row.HasCell(head.id))
            cells[ToUtf8(head.id)] = ToUtf8(platform::GetShownText(row, head).Str());
    }
    return cells;
}

Json Row(const TreeTableRow& row, const std::vector<ColumnHead>& heads) {
    Json children = Json::array();
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        children.push_back(Row(row.GetChildRow(i), heads));
    return {{"name", ToUtf8(row.GetNameText().Str())},
            {"text", ToUtf8(row.GetShownName().Str())},
            {"marking", ToUtf8(row.GetMarking().GetDisplayText().Str())},
            {"icon", row.GetIcon()},
            {"section", row.IsSection()},
            {"expanded", row.IsExpanded()},
            {"selected", row.IsSelected()},
            {"cells", Cells(row, heads)},
            {"children", std::move(children)}};
}

} // namespace

std::string PrintJson(const platform::TreeTableView& view) {
    const std::vector<ColumnHead>& heads = view.GetHeads();
    const TreeTableRow* root = view.GetRoot();
    const Json json{{"caption", ToUtf8(view.GetPanel().caption.Str())},
                    {"columns", Columns(heads)},
                    {"root", root ? Row(*root, heads) : Json()}};
    return json.dump(1) + '\n';
}

} // namespace desktop

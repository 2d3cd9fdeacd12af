#include "tests/support/ViewDump.h"

#include "platform/values/Utf8.h"
#include "platform/view/TreeTableView.h"

namespace support {

std::string DumpRow(const platform::TreeTableRow& row, const DumpOptions& options) {
    std::string text;
    if (options.selection && row.IsSelected())
        text += row.IsCurrent() ? ">>" : ">";
    text += platform::ToUtf8(row.GetShownName().Str());
    const SharedText& designation = row.GetMarking().GetDisplayText();
    if (options.designations && !designation.IsEmpty())
        text += " {" + platform::ToUtf8(designation.Str()) + "}";
    const platform::TreeCell* const cell = row.FindCell(options.column);
    if (cell && !cell->GetShownText().IsEmpty())
        text += " =" + platform::ToUtf8(cell->GetShownText().Str());
    if (row.GetChildCount() == 0)
        return text;
    if (options.expandedOnly && !row.IsExpanded())
        return text + "+";
    text += " [";
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        text += (i > 0 ? " | " : "") + DumpRow(row.GetChildRow(i), options);
    return text + "]";
}

std::string DumpView(const platform::TreeTableView& view, const DumpOptions& options) {
    const platform::TreeTableRow* root = view.GetRoot();
    return root ? DumpRow(*root, options) : "no rows";
}

} // namespace support

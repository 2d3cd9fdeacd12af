// The tree-table as JSON for other programs. It reads the view and changes nothing.
#pragma once

#include <string>

namespace platform {
class TreeTableView;
}

namespace desktop {

/// One object with "caption", "columns" and "root", all rows whether expanded or not, in UTF-8 with
/// a line break at the end. "root" is null while the view has no rows.
std::string PrintJson(const platform::TreeTableView& view);

} // namespace desktop

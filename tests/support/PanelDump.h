// All that a front end can see of a panel, as lines of text: of each row every cell with all that is
// known of it, heads, commands, the combo of embodiments and the list of documents. Tests that hold
// one panel against another compare these.
#pragma once

#include <string>
#include <vector>

namespace platform {
class HostFrame;
class TreeTableRow;
class TreeTableView;
struct TreeTableChanges;
} // namespace platform

namespace support {

struct PanelDump {
    /// What follows from the product alone, and the same for each panel that shows it: rows from top to
    /// bottom, then the rest.
    std::vector<std::string> rows;
    std::vector<std::string> rest;
    /// What the user has done to the panel and what was offered for it: folds, selection, widths.
    std::vector<std::string> own;
};

PanelDump DumpPanel(const platform::HostFrame& frame);
/// From top to bottom.
std::vector<platform::TreeTableRow*> ListRows(const platform::TreeTableView& view);
/// The changes in words, rows by their place among the listed ones: `values(0 3) columns`.
std::string DumpChanges(const platform::TreeTableView& view, const platform::TreeTableChanges& changes);

} // namespace support

// A view as one line of text, so that a test compares a whole tree at once.
#pragma once

#include <string>

namespace platform {
class TreeTableRow;
class TreeTableView;
} // namespace platform

namespace support {

struct DumpOptions {
    /// Behind the name, where a row shows one: `bolt {AB.123}`.
    bool designations = false;
    /// Only what a user sees: nothing below a row that is not expanded; `+` behind a row that hides
    /// rows that way.
    bool expandedOnly = false;
    /// `>` before each selected row, `>>` before one that is current, too.
    bool selection = false;
    /// The cell of that column behind the name, where it shows anything: `bolt =7`.
    std::wstring column = {};
};

/// Names as shown, children in brackets: `root [Parts (3) [a | b (x2) [b | b]]]`; "no rows" without
/// a root row.
std::string DumpView(const platform::TreeTableView& view, const DumpOptions& options = {});
std::string DumpRow(const platform::TreeTableRow& row, const DumpOptions& options = {});

} // namespace support

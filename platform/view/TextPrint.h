// The tree-table as text that people read: aligned columns, rows indented below their parents. It
// reads the view and changes nothing.
#pragma once

#include <string>
#include <string_view>

namespace platform {

class TreeTableView;

enum class PrintedRows {
    /// What a user sees: nothing below a row that is not expanded.
    Expanded,
    All
};

/// UTF-8, each line ending in a line break and none in a blank: the caption, the captions of the
/// columns, then a line a row. Before its name a row has a minus sign when its children follow, a
/// plus sign when it has some that do not. Numbers stand at the right of their column, truth values
/// read "yes" and "no". Line breaks and other controls show as a blank. A
/// view without heads has no columns for its rows to stand in and prints its caption alone.
std::string PrintTree(const TreeTableView& view, PrintedRows rows);

/// How many cells of a terminal the text takes: two for letters of East Asian scripts and pictures,
/// none for marks that stand on the letter before.
std::size_t DisplayWidth(std::wstring_view text);

} // namespace platform

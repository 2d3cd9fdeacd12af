// What the user has left in an editor of a row, as long as the control looks at it. It is kept
// apart from what the row shows: an input that is refused, or whose handling fails, has then
// changed nothing that would have to be put back.
#pragma once

#include "platform/view/TreeCell.h"

#include <array>

namespace platform {

class TreeTableRow;

/// Base, embodiment delimiter, embodiment number, additional delimiter, additional number, code
/// delimiter, code. A delimiter is one character or empty.
using MarkingParts = std::array<SharedText, 7>;

struct RowInput {
    enum class Place { Cell, Name, Marking };

    const TreeTableRow* row;
    Place place;
    /// Of a cell.
    NameId column = 0;
    /// Of a cell, or the text of the name.
    CellInput value = {};
    MarkingParts parts = {};
};

} // namespace platform

// In which columns the value of some row has a source, which an icon at the end of its cell tells
// of: all cells of such a column keep room for it, so that numbers stand below each other. It
// follows the rows as it is told to.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace platform {
class TreeTableRow;
class TreeTableView;
} // namespace platform

namespace desktop {

class SourceColumns {
public:
    /// Looks through the rows when it is asked for a column for the first time.
    bool Has(const platform::TreeTableView& view, const std::wstring& columnId) const;
    /// Values of these rows have changed. A column that has lost its last source keeps the room
    /// until the rows are others.
    void NoteValues(const std::vector<platform::TreeTableRow*>& rows);
    /// The rows are others now.
    void Forget() { m_known.clear(); }

private:
    mutable std::unordered_map<std::wstring, bool> m_known;
};

} // namespace desktop

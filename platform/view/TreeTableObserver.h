// What a front end is told by the tree-table in memory. Rows that come and go are announced while
// it happens, since a front end must not hold on to a row that is gone; all else is gathered and
// announced once, so that a walk over all rows costs one notification and a walk that changes
// nothing costs none.
#pragma once

#include <cstddef>
#include <vector>

namespace platform {

class TreeTableRow;

/// What has changed since the front end last took the changes.
struct TreeTableChanges {
    /// With more rows than these it is cheaper to look at all that is shown.
    static constexpr std::size_t c_maxValueRows = 64;

    /// Rows came or went. They were announced already; what depends on them is to be looked at
    /// again.
    bool rows = false;
    /// Texts, numbers, icons or styles of the rows in `valueRows`; of any rows when that is empty.
    bool values = false;
    bool expansion = false;
    bool selection = false;
    /// Heads of columns: which there are, their order, captions or widths.
    bool columns = false;
    /// Caption, toolbars, visibility and the like.
    bool panel = false;
    /// Each row once, in no order. Rows that went are not among them.
    std::vector<TreeTableRow*> valueRows;
    /// The editor of this row's name is to be opened; null for none.
    TreeTableRow* editRow = nullptr;

    bool HasAny() const noexcept {
        return rows || values || expansion || selection || columns || panel || editRow;
    }
};

/// No operation may change the view from inside the call.
class TreeTableObserver {
public:
    virtual ~TreeTableObserver() = default;

    /// Rows are about to come or go. Until OnRowsChanged the rows may be read by nobody.
    virtual void OnRowsAboutToChange() = 0;
    virtual void OnRowsChanged() = 0;
    /// There is something to take with TakeChanges. Not called again before it is taken, and never
    /// between BeginUpdate and EndUpdate.
    virtual void OnChangesPending() = 0;
};

} // namespace platform

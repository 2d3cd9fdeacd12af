// What a front end is told by the tree-table in memory. Rows that come and go are announced while
// it happens, since a front end must not hold on to a row that is gone; all else is gathered and
// announced once, so that a walk over all rows costs one notification and a walk that changes
// nothing costs none.
#pragma once

namespace platform {

/// What has changed since the front end last took the changes.
struct TreeTableChanges {
    /// Rows came or went. They were announced already; what depends on them is to be looked at
    /// again.
    bool rows = false;
    /// Texts, icons or styles of any rows.
    bool values = false;
    bool expansion = false;
    bool selection = false;
    /// Heads of columns: which there are, their order, captions or widths.
    bool columns = false;
    /// Caption, toolbars, visibility and the like.
    bool panel = false;

    bool HasAny() const noexcept {
        return rows || values || expansion || selection || columns || panel;
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

// What the cell of a group row has to do with those of its members. The panel writes the value that
// they have in common into it, a list of their texts, or nothing; here the three are told apart for
// the eye, by a look at what the members show.
#pragma once

#include <QString>

namespace platform {
class TreeCell;
class TreeTableRow;
struct ColumnHead;
} // namespace platform

namespace desktop {

/// Looks at the rows whenever it is asked something, so that only rows on the screen cost time.
/// Row and head must outlive it.
class GroupValues {
public:
    enum class State {
        /// The row is no group, or has no cell in that column.
        None,
        /// All members show the same, maybe nothing.
        Same,
        /// The members differ, and the cell lists what they show.
        List,
        /// The members differ, and the cell shows nothing.
        Different
    };

    GroupValues(const platform::TreeTableRow& row, const platform::ColumnHead& head)
        : m_row(row), m_head(head) {}

    State GetState() const;
    /// What the members show and how many of them, a line each, the most frequent first. Empty when
    /// they all show the same.
    QString MakeTip() const;

private:
    const platform::TreeCell* FindGroupCell() const;
    bool DoMembersDiffer() const;

    const platform::TreeTableRow& m_row;
    const platform::ColumnHead& m_head;
};

} // namespace desktop

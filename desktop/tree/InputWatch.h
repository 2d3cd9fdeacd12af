// What cells of one column show before the user's input, to tell afterwards whether it was taken.
#pragma once

#include <QPersistentModelIndex>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

namespace desktop {

class InputWatch {
public:
    explicit InputWatch(const QModelIndexList& cells);

    /// Rows that were built anew are the answer to an input that was taken.
    bool IsTaken(const QVariant& input) const {
        return m_cells.isEmpty() || !m_anyCell.isValid() || CountTakers(input, true) > 0;
    }
    /// How many of the cells show the input now, or something new.
    int CountTakers(const QVariant& input) const { return CountTakers(input, false); }
    /// How many of them show the text now; no value for rows that were built anew.
    std::optional<int> CountHolders(const QString& text) const;

private:
    struct Shown {
        QVariant value;
        QString text;

        friend bool operator==(const Shown&, const Shown&) = default;
    };

    int CountTakers(const QVariant& input, bool areAllAsked) const;
    /// The row of a group shows little of its members: each of them has to have the value.
    static bool StandsIn(const QModelIndex& cell, const QVariant& input);
    static Shown Look(const QModelIndex& cell);

    QPersistentModelIndex m_anyCell;
    QModelIndexList m_cells;
    std::vector<Shown> m_before;
    int m_editable = 0;
};

} // namespace desktop

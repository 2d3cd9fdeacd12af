// The two check boxes beside a row's name: which of them there are, where they stand at the end of
// the column of names, what they show and what is said about them. The tree, its head and the menus
// ask here; what a click comes to is not this class's business.
#pragma once

#include <QRect>
#include <QString>

#include <array>
#include <optional>
#include <vector>

class QPainter;
class QStyleOptionViewItem;

namespace platform {
class TreeTableRow;
class TreeTableView;
} // namespace platform

namespace desktop {

class AttributeBoxes final {
public:
    /// The column of names as it stands on the screen; of its height only what is painted counts.
    AttributeBoxes(const platform::TreeTableView& view, const QRect& names,
                   Qt::LayoutDirection direction);

    /// The ids of all columns of boxes in their order, shown or not, and what they are called.
    static const std::array<int, 2>& GetIds();
    static QString CaptionOf(int id);
    /// The key that gives the current row's box its other state.
    static Qt::Key KeyOf(int id);

    /// A column that may be shown, and is.
    static bool IsShown(const platform::TreeTableView& view, int id);
    static bool IsOn(const platform::TreeTableRow& row, int id);
    static bool HasBox(const platform::TreeTableRow& row, int id);
    static bool CanClick(const platform::TreeTableView& view, const platform::TreeTableRow& row,
                         int id);
    /// For the tips of the row: a line for each box that is shown; empty for none.
    static QString MakeRowTip(const platform::TreeTableView& view,
                              const platform::TreeTableRow& row);
    /// Of one box, with how it is changed.
    static QString MakeBoxTip(const platform::TreeTableView& view,
                              const platform::TreeTableRow& row, int id);

    /// No box stands there, also where the names would have no room beside them.
    bool IsEmpty() const { return m_ids.empty(); }
    /// What is left of a cell or head of the column for the name.
    QRect WithoutBoxes(const QRect& cell) const;
    /// The column of which the slot is there; no value for none.
    std::optional<int> FindAt(QPoint place) const;
    int GetWidth() const;

    /// The state of the option says what the row looks like.
    void PaintRow(QPainter& painter, const QStyleOptionViewItem& option,
                  const platform::TreeTableRow& row) const;
    void PaintHead(QPainter& painter, const QRect& head) const;

private:
    /// Square, in the middle of the slot in a row of that place and height.
    QRect PlaceOf(std::size_t slot, const QRect& row, int size) const;
    QRect SlotOf(std::size_t slot) const;

    std::vector<int> m_ids;
    const platform::TreeTableView& m_view;
    QRect m_names;
    Qt::LayoutDirection m_direction;
};

} // namespace desktop

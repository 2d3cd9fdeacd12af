// How a cell of the panel is drawn, edited and clicked: rows of one comfortable height with thin
// lines between columns, links to click on, and at the end of a cell the icon that tells where its
// value comes from.
#pragma once

#include "desktop/icons/IconGlyphs.h"
#include "desktop/icons/SourceIcons.h"
#include "desktop/tree/AttributeBoxes.h"

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace desktop {

struct CellLook;

class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Where the column of names stands on the screen, also for a row that is one cell from end to
    /// end. The boxes beside the names stand at its end.
    void SetNamesPlace(const std::function<QRect()>& place) { m_namesPlace = place; }

    /// What in a cell does something when it is clicked.
    enum class Spot {
        None,
        SourceIcon,
        Link,
        CheckBox,
        Assembly,
        Menu,
        AggrIntoProduct,
        RegWithDesc
    };
    /// The id of the column of boxes that a spot is in, which is one of the last two.
    static int AttributeOf(Spot spot);
    Spot SpotAt(const QStyleOptionViewItem& option, const QModelIndex& index, QPoint place) const;

    /// On the picture before the text.
    bool IsOnIcon(const QStyleOptionViewItem& option, const QModelIndex& index, QPoint place) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Nothing: an editor is filled when it is made, and no later change may overwrite what the
    /// user types.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Once for each editor.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    /// The open editor's input was refused and is being mended: it may be given once more.
    void TakeAgain() { m_committed = nullptr; }
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    /// What a click on the source icon does.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

signals:
    /// The rows may be replaced in consequence: to be connected in a queue.
    void SpotClicked(const QPersistentModelIndex& index, desktop::RowDelegate::Spot spot);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool eventFilter(QObject* editor, QEvent* event) override;

private:
    AttributeBoxes BoxesOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    /// The option for what of a name's cell is not taken by the boxes.
    QStyleOptionViewItem BesideBoxes(const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const;
    void PaintSection(QPainter& painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const;
    /// The cell without its line, its room at the sides and its icon.
    QRect ContentOf(const QStyleOptionViewItem& option, const QModelIndex& index,
                    const CellLook& look) const;
    /// Where the icon stands in a cell that has one.
    static QRect IconRoom(const QStyleOptionViewItem& option);
    QRect IconOf(const QStyleOptionViewItem& option, const CellLook& look) const;
    /// Of the arrow behind the name of what can be opened.
    QRect ArrowOf(const QStyleOptionViewItem& option, const QModelIndex& index,
                  const CellLook& look) const;
    /// Of the arrow that opens the menu of the cell.
    QRect MenuArrowOf(const QStyleOptionViewItem& option, const CellLook& look) const;
    /// It is where the user is: in the current cell and in the one below the mouse.
    static bool IsMenuArrowDrawn(const QStyleOptionViewItem& option, const QModelIndex& index,
                                 const CellLook& look);
    /// That a value comes from the source is told where the user looks; that it does not, always.
    static bool IsIconDrawn(const QStyleOptionViewItem& option, const QModelIndex& index,
                            const CellLook& look);
    void PaintArrow(QPainter& painter, const QStyleOptionViewItem& option, QRect room) const;
    void PaintBox(QPainter& painter, const QStyleOptionViewItem& cell, const QModelIndex& index,
                  const CellLook& look) const;
    void Finish(QWidget* editor, EndEditHint hint) const;

    std::function<QRect()> m_namesPlace;
    SourceIcons m_sourceIcons;
    QIcon m_menuArrow = glyphs::MakeIcon(glyphs::Down);
    mutable QPointer<QWidget> m_committed;
};

} // namespace desktop

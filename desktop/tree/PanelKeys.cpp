#include "desktop/tree/PanelKeys.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QStringList>

#include <initializer_list>

namespace desktop {

namespace {

struct KeyRow {
    std::initializer_list<QKeyCombination> keys;
    const char* what;
};

// clang-format off
const KeyRow c_keys[] = {
    {{Qt::Key_F2},                                       "Edit the cell"},
    {{Qt::Key_Return},                                   "Edit the cell, follow its link or give its box the next state"},
    {{Qt::Key_Space},                                    "Give the box of the cell its next state"},
    {{Qt::Key_Left},                                     "Fold the row, or go to the one that it belongs to"},
    {{Qt::Key_Right},                                    "Unfold the row, or go to the first one below it"},
    {{Qt::Key_Tab, Qt::Key_Backtab},                     "Go to the next or the previous cell that can be edited"},
    {{Qt::SHIFT | Qt::Key_Down, Qt::SHIFT | Qt::Key_Up}, "Select one more row"},
    {{Qt::CTRL | Qt::Key_A},                             "Select all rows"},
    {{Qt::Key_Return},                                   "In an editor: take the value"},
    {{Qt::Key_Escape},                                   "In an editor: leave the value as it was"},
    {{Qt::Key_Delete},                                   "In an editor: delete a letter"},
    {{Qt::ALT | Qt::Key_Down},                           "In an editor of dates: open the calendar"},
    {{Qt::ALT | Qt::Key_Down, Qt::Key_F4},               "At a cell with an arrow and in its editor: open the list to choose from"},
};
// clang-format on

} // namespace

QList<PanelKey> ListPanelKeys() {
    QList<PanelKey> list;
    for (const KeyRow& row : c_keys) {
        QStringList keys;
        for (const QKeyCombination key : row.keys)
            keys += QKeySequence(key).toString(QKeySequence::NativeText);
        list += {keys.join(QStringLiteral(", ")), QCoreApplication::translate("Keys", row.what)};
    }
    return list;
}

} // namespace desktop

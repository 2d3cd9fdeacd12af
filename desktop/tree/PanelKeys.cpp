#include "desktop/tree/PanelKeys.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QStringList>

#include <initializer_list>
#include <span>

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

const KeyRow c_documentKeys[] = {
    {{Qt::Key_Return},                           "Open the selected documents in their programs"},
    {{Qt::Key_F2},                               "Edit designation, name, format and comment of the document"},
    {{Qt::Key_Insert},                           "Add documents to the part"},
    {{Qt::Key_Delete},                           "Take the selected documents off the part; the files stay"},
    {{Qt::CTRL | Qt::Key_C},                     "Copy the files of the selected documents"},
    {{Qt::CTRL | Qt::Key_V},                     "Add the files that were copied elsewhere"},
    {{Qt::Key_Space},                            "Show and hide the preview"},
    {{Qt::Key_Menu, Qt::SHIFT | Qt::Key_F10},    "Menu of the selected documents"},
    {{Qt::Key_Escape},                           "Go back to the tree"},
};
// clang-format on

QList<PanelKey> List(std::span<const KeyRow> rows) {
    QList<PanelKey> list;
    for (const KeyRow& row : rows) {
        QStringList keys;
        for (const QKeyCombination key : row.keys)
            keys += QKeySequence(key).toString(QKeySequence::NativeText);
        list += {keys.join(QStringLiteral(", ")), QCoreApplication::translate("Keys", row.what)};
    }
    return list;
}

} // namespace

QList<PanelKey> ListPanelKeys() {
    return List(c_keys);
}

QList<PanelKey> ListDocumentKeys() {
    return List(c_documentKeys);
}

} // namespace desktop

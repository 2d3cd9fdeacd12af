// What a cell of the panel shows and allows, whether it is a name, a designation or a value: the
// one place where the window reads the cells of the tree-table in memory.
#pragma once

#include "desktop/editors/CellEditors.h"
#include "host/SharedText.h"

class IMenuItems;

namespace platform {
class TreeTableRow;
struct ColumnHead;
} // namespace platform

namespace desktop {

enum class LinkLook { None, Dead, Live };

struct CellLook {
    /// None for a cell that can't be edited, and for one that is not there.
    EditKind kind = EditKind::None;
    /// The cell holds a value that could be edited elsewhere or at another time.
    bool isReadOnly = false;
    LinkLook link = LinkLook::None;
    /// The value does not agree with its source any more, or a count not with the product.
    bool isOutdated = false;
    /// The cell has nothing to choose from yet: its value is made in a dialog.
    bool opensDialog = false;
    /// The resource name of the by-source icon.
    SharedText sourceIcon;
    /// Texts to choose from and the like, for a cell that can be edited; null for none.
    IMenuItems* menu = nullptr;

    bool TakesValues() const { return kind != EditKind::None || opensDialog; }
};

CellLook GetCellLook(const platform::TreeTableRow& row, const platform::ColumnHead& head);
/// In the user's locale.
QString GetCellText(const platform::TreeTableRow& row, const platform::ColumnHead& head);
/// What is said of the cell beside its text; empty: its text.
SharedText GetCellTip(const platform::TreeTableRow& row, const platform::ColumnHead& head);
/// Of kind None for a cell that can't be edited.
EditorRequest GetCellEditor(const platform::TreeTableRow& row, const platform::ColumnHead& head);
/// Of kind None for a head that gives no values.
EditorRequest GetHeadEditor(const platform::ColumnHead& head);

} // namespace desktop

// What is said of a cell when the mouse rests on it.
#pragma once

#include "desktop/tree/TreeItemModel.h"

namespace desktop {

/// Of an index of a TreeItemModel.
QString MakeCellTip(const QModelIndex& index, const TreeItemModel::Questions& questions);

} // namespace desktop

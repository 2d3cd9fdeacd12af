// What is said of a cell when the mouse rests on it.
#pragma once

#include "host/SharedText.h"

#include <QModelIndex>
#include <QString>

#include <functional>
#include <string>

namespace platform {
class TreeTableRow;
}

namespace desktop {

/// Of an index of a TreeItemModel. `countNote` says what is to be known before a count is typed
/// there; it may be empty.
QString MakeCellTip(const QModelIndex& index,
                    const std::function<SharedText(const platform::TreeTableRow&,
                                                   const std::wstring& columnId)>& countNote);

} // namespace desktop

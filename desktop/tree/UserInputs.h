// What the user leaves in the editors of the window, as the tree-table in memory takes it.
#pragma once

#include "desktop/editors/CellEditors.h"
#include "host/view/ITreeTableModel.h"
#include "platform/view/RowInput.h"

namespace desktop {

platform::CellInput ToInput(EditKind kind, const QVariant& value);
platform::MarkingParts ToParts(const QStringList& texts);
/// All parts but the delimiters that are empty.
HeaderMarkingParts ToHeaderParts(const QStringList& texts);

} // namespace desktop

// Which header a column has. Name and designation are not asked for here: the control makes theirs.
#pragma once

#include "columns/headers/ProductTreeHeaderImpl.h"

#include <memory>

namespace productTree {

/// Null for a column of an unknown type without a list; such a column has no head.
std::shared_ptr<ProductTreeHeaderImpl>
CreateHeader(const ColumnInfo& column, IfProductTreeData* data,
             const boost::intrusive_ptr<ITreeTableModel>& model);

} // namespace productTree

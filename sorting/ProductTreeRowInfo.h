// The record of one row, as the sorter gives it and the control makes an item from it.
#pragma once

#include "host/SPCSection.h"
#include "host/UniqueMetaObjectKey.h"

#include <cstdint>
#include <vector>

namespace productTree {

/// InfObject and PlainObject make the same item; they differ in why the row is there: an
/// occurrence, or an object without any.
enum class RowKind : std::int32_t {
    InfObject = 0,
    Billet = 1,
    Group = 2,
    PlainObject = 3,
    Section = 4
};

struct ProductTreeRowInfo {
    /// Empty for sections.
    UniqueMetaObjectKey key;
    /// The object that a billet belongs to; empty else.
    UniqueMetaObjectKey sourceKey;
    RowKind kind = RowKind::InfObject;
    SPCSection section;
    /// The text of a section row.
    SharedText label;
    std::vector<ProductTreeRowInfo> children;
};

} // namespace productTree

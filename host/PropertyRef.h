// The address of one property value.
#pragma once

#include "host/SharedText.h"
#include "host/UniqueMetaObjectKey.h"

#include <optional>

struct PropertyRef {
    UniqueMetaObjectKey objectKey;
    /// The embodiment of a count; the null key elsewhere.
    UniqueMetaObjectKey secondKey;
    /// The column id.
    SharedText propertyId;
    /// Whether the row stands below a group row; no value where that makes no difference.
    std::optional<bool> inGroup;
};

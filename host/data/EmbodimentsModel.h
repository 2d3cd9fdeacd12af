// The embodiments of the product in the document.
#pragma once

#include "host/UniqueMetaObjectKey.h"
#include "host/VariantMarking.h"

#include <cstddef>
#include <set>

class EmbodimentsModel {
public:
    virtual ~EmbodimentsModel() = default;

    virtual std::size_t GetCount() const = 0;
    /// The keys that stand for the embodiment; empty for one that can't be counted in.
    virtual std::set<UniqueMetaObjectKey> GetRawKeys(std::size_t index) const = 0;
    virtual VariantMarking GetEmbodimentMarking(std::size_t index) const = 0;
};

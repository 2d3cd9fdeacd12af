// The host's order of objects, which also says which of them are alike.
#pragma once

#include "host/UniqueMetaObjectKey.h"
#include "host/data/SpecificationStyles.h"

#include <compare>
#include <cstdint>
#include <memory>
#include <vector>

class IfMetaProductData;

/// A place in the document's order. Compared as unsigned numbers, the first before the second.
struct InfObjIndex {
    std::uint64_t first = 0;
    std::uint64_t second = 0;

    friend auto operator<=>(const InfObjIndex&, const InfObjIndex&) = default;
    /// Negative, zero or positive as `a` stands before, at or behind `b`.
    friend std::int64_t operator-(const InfObjIndex& a, const InfObjIndex& b) {
        return a < b ? -1 : b < a ? 1 : 0;
    }
};

/// The document's order of parts.
class IfInfObjOrder {
public:
    virtual ~IfInfObjOrder() = default;

    /// The first place of all for a key that has none.
    virtual InfObjIndex GetIndex(const UniqueMetaObjectKey& key) const = 0;
};

/// A part together with the body of meta data that knows it.
struct ConstProductPart {
    const IfMetaProductData* metaData = nullptr;
    UniqueMetaObjectKey key;
};

namespace meta_data::grouping {

class IfGroupingComparator {
public:
    virtual ~IfGroupingComparator() = default;

    /// Negative, zero or positive. A consistent order, in which exactly the parts that may share a
    /// group row compare zero.
    virtual int Compare(const ConstProductPart& a, const ConstProductPart& b) const = 0;
    /// The place of each part in the order of Compare, equal places exactly where it is zero, so
    /// that a caller with many parts is spared the pairs. Empty when the host offers no such
    /// shortcut.
    virtual std::vector<std::uint32_t>
    GetPlaces(const std::vector<ConstProductPart>& parts) const = 0;
    /// Whether the document's order goes before all else; off for the panel.
    virtual void SetOptionA(bool on) = 0;
    /// Whether numbers inside texts compare as numbers; on for the panel.
    virtual void SetOptionB(bool on) = 0;
    /// Whether capital and small letters are the same; off for the panel.
    virtual void SetOptionC(bool on) = 0;
    /// The document's order, which decides between parts that are not alike but equal in all that
    /// is compared. It must live as long as the comparator.
    virtual void SetIndexMap(const IfInfObjOrder& order) = 0;
};

std::unique_ptr<IfGroupingComparator>
CreateDescrGroupingComparator(const SpcDescription& description);
std::unique_ptr<IfGroupingComparator> CreateDefaultGroupingComparator();

} // namespace meta_data::grouping

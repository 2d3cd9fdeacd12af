// What the host's order of objects reads of an object. A body of meta data that has it at hand
// implements IGroupingKeys beside IfMetaProductData; parts of any other body are all different and
// stand by the document's order alone.
#pragma once

#include "host/SPCSection.h"
#include "host/SharedText.h"
#include "host/UniqueMetaObjectKey.h"

#include <cstddef>
#include <optional>
#include <string>

namespace platform {

/// The values of one object, with what makes comparing them fast. Not changed after it was made.
struct GroupingRecord {
    SPCSection section;
    SharedText designation;
    SharedText name;
    SharedText material;
    /// In kilograms; no value where the mass is not known.
    std::optional<double> mass;

    /// MakeNaturalKey of the two texts that decide most comparisons.
    std::string designationKey;
    std::string nameKey;
    /// Equal for records that are alike.
    std::size_t hash = 0;
};

GroupingRecord MakeGroupingRecord(SPCSection section, SharedText designation, SharedText name,
                                  SharedText material, std::optional<double> mass);

/// Only such records can be alike: a designation names a product, and a standard part is named by
/// its name; names of other products are no identity.
bool HasIdentity(const GroupingRecord& record);
/// A standard part that is known by its name alone, whatever its material and mass.
bool IsNamedStandardPart(const GroupingRecord& record);

class IGroupingKeys {
public:
    virtual ~IGroupingKeys() = default;

    /// Null for a key that the body does not know. Lives as long as the body stays unchanged.
    virtual const GroupingRecord* GetGroupingRecord(const UniqueMetaObjectKey& key) const = 0;
};

} // namespace platform

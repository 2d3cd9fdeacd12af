// What the host's order of objects compares of an object, and that order for two of them. A host
// makes the record of an object once, by MakeGroupingRecord, and keeps it for as long as the object
// stays as it is: sorting asks for it many times.
#pragma once

#include "host/SPCSection.h"
#include "host/SharedText.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace meta_data::grouping {

/// How texts compare; the default is what the panel asks for.
struct TextOptions {
    bool numbersAsNumbers = true;
    bool ignoresCase = false;
};

/// The values of one object, with what makes comparing them fast. Not changed after it was made.
struct GroupingRecord {
    SPCSection section;
    SharedText designation;
    SharedText name;
    SharedText material;
    /// In kilograms; no value where the mass is not known.
    std::optional<double> mass;
    bool numbersAsNumbers = true;

    std::string_view GetDesignationKey() const;
    std::string_view GetNameKey() const;

    /// The two texts that decide most comparisons, as bytes that order as the texts do.
    std::string keys;
    std::uint32_t designationKeySize = 0;
    /// Equal keys mean equal texts. Else a number has leading zeros, and the texts have a word too.
    bool hasExactKeys = true;
    /// Equal for records that are alike.
    std::size_t hash = 0;

    friend bool operator==(const GroupingRecord&, const GroupingRecord&) = default;
};

/// Texts, the section's name apart, are taken as `options` see them.
GroupingRecord MakeGroupingRecord(SPCSection section, const SharedText& designation,
                                  const SharedText& name, const SharedText& material,
                                  std::optional<double> mass, TextOptions options = {});

/// By designation, name, section, material, mass. Both records were made with the same options.
int CompareRecords(const GroupingRecord& a, const GroupingRecord& b);

/// Only records with an identity are alike when they compare equal: a designation names a product,
/// and a standard part is named by its name; names of other products are no identity.
bool HasIdentity(const GroupingRecord& record);
/// A standard part that is known by its name alone, whatever its material and mass.
bool IsNamedStandardPart(const GroupingRecord& record);

} // namespace meta_data::grouping

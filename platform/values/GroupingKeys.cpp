#include "platform/values/GroupingKeys.h"

#include "platform/values/NaturalOrder.h"

#include <cmath>
#include <functional>

namespace platform {

namespace {

constexpr std::int32_t c_standardParts = 25;

void Mix(std::size_t& hash, std::size_t value) {
    hash ^= value + 0x9E3779B97F4A7C15u + (hash << 6) + (hash >> 2);
}

std::size_t HashOf(const GroupingRecord& record) {
    std::size_t hash = std::hash<std::wstring>{}(record.name);
    if (IsNamedStandardPart(record))
        return hash;
    Mix(hash, std::hash<std::wstring>{}(record.designation));
    Mix(hash, static_cast<std::size_t>(record.section.numbers[0]));
    Mix(hash, std::hash<std::wstring>{}(record.material));
    Mix(hash, record.mass ? std::hash<double>{}(*record.mass) : 0);
    return hash;
}

/// One form for equal masses: a mass that is no number is none, and there is one zero.
std::optional<double> Normalised(std::optional<double> mass) {
    if (!mass || std::isnan(*mass))
        return std::nullopt;
    return *mass == 0 ? 0 : *mass;
}

} // namespace

GroupingRecord MakeGroupingRecord(SPCSection section, SharedText designation, SharedText name,
                                  SharedText material, std::optional<double> mass) {
    GroupingRecord record;
    record.section = std::move(section);
    record.designation = std::move(designation);
    record.name = std::move(name);
    record.material = std::move(material);
    record.mass = Normalised(mass);
    record.designationKey = MakeNaturalKey(record.designation.Str());
    record.nameKey = MakeNaturalKey(record.name.Str());
    record.hash = HashOf(record);
    return record;
}

bool HasIdentity(const GroupingRecord& record) {
    return !record.designation.IsEmpty() || record.section.numbers[0] == c_standardParts;
}

bool IsNamedStandardPart(const GroupingRecord& record) {
    return record.designation.IsEmpty() && record.section.numbers[0] == c_standardParts;
}

} // namespace platform

#include "host/data/GroupingRecord.h"

#include "platform/values/NaturalOrder.h"

#include <cmath>
#include <functional>

namespace meta_data::grouping {

namespace {

using platform::CompareNatural;
using platform::FoldCase;
using platform::HasLeadingZeros;
using platform::MakeNaturalKey;
using platform::MakePlainKey;

constexpr std::int32_t c_standardParts = 25;

template <class T>
int Order(const T& a, const T& b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

int CompareTexts(const SharedText& a, const SharedText& b) {
    return a.IsSame(b) ? 0 : a.Str().compare(b.Str());
}

int CompareMaterials(const GroupingRecord& a, const GroupingRecord& b) {
    if (a.material.IsSame(b.material))
        return 0;
    const int order = a.numbersAsNumbers ? CompareNatural(a.material.Str(), b.material.Str()) : 0;
    return order != 0 ? order : CompareTexts(a.material, b.material);
}

/// Of records with equal designations and names.
int CompareTails(const GroupingRecord& a, const GroupingRecord& b) {
    if (const int order = Order(a.section.numbers[0], b.section.numbers[0]))
        return order;
    if (IsNamedStandardPart(a))
        return 0; // and so is the other
    if (const int order = Order(a.section.numbers, b.section.numbers))
        return order;
    if (const int order = CompareTexts(a.section.name, b.section.name))
        return order;
    if (const int order = CompareMaterials(a, b))
        return order;
    return Order(a.mass, b.mass);
}

void Mix(std::size_t& hash, std::size_t value) {
    hash ^= value + 0x9E3779B97F4A7C15u + (hash << 6) + (hash >> 2);
}

std::size_t HashOf(const GroupingRecord& record) {
    std::size_t hash = std::hash<std::string>{}(record.keys);
    if (IsNamedStandardPart(record))
        return hash;
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

std::string_view GroupingRecord::GetDesignationKey() const {
    return std::string_view(keys).substr(0, designationKeySize);
}

std::string_view GroupingRecord::GetNameKey() const {
    return std::string_view(keys).substr(designationKeySize);
}

GroupingRecord MakeGroupingRecord(SPCSection section, const SharedText& designation,
                                  const SharedText& name, const SharedText& material,
                                  std::optional<double> mass, TextOptions options) {
    const auto seen = [&](const SharedText& text) {
        return options.ignoresCase ? SharedText(FoldCase(text.Str())) : text;
    };
    const auto makeKey = options.numbersAsNumbers ? MakeNaturalKey : MakePlainKey;
    GroupingRecord record;
    record.section = std::move(section);
    record.designation = seen(designation);
    record.name = seen(name);
    record.material = seen(material);
    record.mass = Normalised(mass);
    record.numbersAsNumbers = options.numbersAsNumbers;
    record.keys = makeKey(record.designation.Str());
    record.designationKeySize = static_cast<std::uint32_t>(record.keys.size());
    record.keys += makeKey(record.name.Str());
    record.hasExactKeys =
        !options.numbersAsNumbers ||
        (!HasLeadingZeros(record.designation.Str()) && !HasLeadingZeros(record.name.Str()));
    record.hash = HashOf(record);
    return record;
}

int CompareRecords(const GroupingRecord& a, const GroupingRecord& b) {
    if (&a == &b)
        return 0;
    const bool exact = a.hasExactKeys && b.hasExactKeys;
    if (const int order = a.GetDesignationKey().compare(b.GetDesignationKey()))
        return order;
    if (const int order = exact ? 0 : CompareTexts(a.designation, b.designation))
        return order;
    if (const int order = a.GetNameKey().compare(b.GetNameKey()))
        return order;
    if (const int order = exact ? 0 : CompareTexts(a.name, b.name))
        return order;
    return CompareTails(a, b);
}

bool HasIdentity(const GroupingRecord& record) {
    return !record.designation.IsEmpty() || IsNamedStandardPart(record);
}

bool IsNamedStandardPart(const GroupingRecord& record) {
    return record.designation.IsEmpty() && record.section.numbers[0] == c_standardParts;
}

} // namespace meta_data::grouping

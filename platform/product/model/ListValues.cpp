#include "platform/product/model/ListValues.h"

#include "platform/product/model/PropertyNumbers.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int c_notCut = 752;
constexpr int c_cut = 753;

template <class IsIt>
std::optional<std::size_t> FindPlace(const PropertyRecord& property, const IsIt& isIt) {
    const auto found = std::ranges::find_if(property.list, isIt);
    if (found == property.list.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - property.list.begin());
}

/// Of a stored number.
std::optional<std::size_t> FindNumberedPlace(const PropertyRecord& property, int stored) {
    // Any other number counts as the first, as the column shows it.
    if (property.number == number::notSected)
        return stored == c_cut ? 1 : 0;
    const bool isPlace = stored >= 0 && static_cast<std::size_t>(stored) < property.list.size();
    return isPlace ? std::optional(static_cast<std::size_t>(stored)) : std::nullopt;
}

} // namespace

bool HasListNumbers(unsigned long number) {
    return number == number::roughSign || number == number::notSected;
}

SimplePropVal GetListValue(const PropertyRecord& property, std::size_t place) {
    if (property.number == number::notSected)
        return SimplePropVal(place == 1 ? c_cut : c_notCut);
    if (property.number == number::roughSign)
        return SimplePropVal(static_cast<int>(place));
    return property.list[place];
}

std::optional<std::size_t> FindListPlace(const PropertyRecord& property,
                                         const SimplePropVal& value) {
    if (value.IsEmpty())
        return std::nullopt;
    if (HasListNumbers(property.number) && value.GetType() == SimplePropVal::TypeInt)
        return FindNumberedPlace(property, value.to_int());
    // An element need not be of the property's own type, which has words for numbers.
    const auto equal =
        FindPlace(property, [&](const SimplePropVal& item) { return item == value; });
    if (equal)
        return equal;
    const SharedText text = value.to_wstring();
    return FindPlace(property,
                     [&](const SimplePropVal& item) { return item.to_wstring() == text; });
}

std::optional<SimplePropVal> FitToList(const PropertyRecord& property, const SimplePropVal& value) {
    const std::optional<std::size_t> place = FindListPlace(property, value);
    if (!place)
        return std::nullopt;
    SimplePropVal stored = GetListValue(property, *place);
    // A number that only counts as one of the elements' is not written.
    const bool isOther = HasListNumbers(property.number) &&
                         value.GetType() == SimplePropVal::TypeInt && !(stored == value);
    return isOther ? std::nullopt : std::optional(std::move(stored));
}

} // namespace platform

// Values on their way between the product's types and those of a row's editors.
#pragma once

#include "host/SimplePropVal.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <list>
#include <optional>

namespace productTree {

/// A limit as an editor of integers has it, cut towards zero.
inline int ToLimit(double limit) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(limit, lowest, highest));
}

template <class Value>
SimplePropVal ToSimpleValue(const std::optional<Value>& value) {
    return value ? SimplePropVal(*value) : SimplePropVal();
}

inline std::optional<int> ToInt(const SimplePropVal& value) {
    return value.IsEmpty() ? std::optional<int>() : std::optional(value.to_int());
}

inline std::optional<bool> ToBool(const SimplePropVal& value) {
    return value.IsEmpty() ? std::optional<bool>() : std::optional(value.to_bool());
}

/// The place of the value in the list; -1 when it is not in it.
inline int FindInList(const std::list<SimplePropVal>& list, const SimplePropVal& value) {
    const auto found = std::ranges::find(list, value);
    return found == list.end() ? -1 : static_cast<int>(std::distance(list.begin(), found));
}

/// Null for a place outside of the list.
inline const SimplePropVal* GetFromList(const std::list<SimplePropVal>& list, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= list.size())
        return nullptr;
    return &*std::next(list.begin(), index);
}

} // namespace productTree

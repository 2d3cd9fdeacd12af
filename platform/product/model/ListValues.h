// What is stored of a value that is chosen from a property's list. Most properties store the
// element itself; the roughness sign stores its place in the list, and "not cut in sections" one of
// two numbers. The texts of their elements are understood too, as older documents have them.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <cstddef>
#include <optional>

namespace platform {

/// The property stores numbers that stand for the elements of its list.
bool HasListNumbers(unsigned long number);

/// What is stored for the element at that place of the list.
SimplePropVal GetListValue(const PropertyRecord& property, std::size_t place);

/// The place of the element that the value stands for, as a column shows it; no value: it stands
/// for none.
std::optional<std::size_t> FindListPlace(const PropertyRecord& property,
                                         const SimplePropVal& value);

/// The value as a user may store it: that of its element. No value: it is none of the list.
std::optional<SimplePropVal> FitToList(const PropertyRecord& property, const SimplePropVal& value);

} // namespace platform

// Whether a property takes a value that a user has given, and the form in which it takes it. Asked
// when a change is built and once more when it is made; the present value is not its matter.
#pragma once

#include "platform/product/model/ProductModel.h"

#include <optional>

namespace platform {

/// Longer texts are refused.
inline constexpr std::size_t c_maxTextSize = 10'000;

/// Unicode without null characters, and not too long.
bool IsGoodText(const std::wstring& text);

/// The number that a number or a text is; no value for any other value or text.
std::optional<double> FindNumber(const SimplePropVal& value);

/// Without what binary makes of a decimal fraction.
double Rounded(double value);

/// The value in the property's type; an empty one for no value, also for an empty text. No value:
/// it is refused, being of another kind, not in the list, not in the range where that is binding,
/// no finite number, or a text that is too long, not Unicode or holds a null character.
std::optional<PropValue> FitValue(const PropertyRecord& property, const PropValue& value);

/// Whether a text can be a count: none, or a number from 0 on, with a point or a comma, and perhaps
/// a unit behind it, which has no digits.
bool IsCount(const std::wstring& text);

/// The moment that a text says, in ISO 8601 or as a date alone; a moment itself. No value: it says
/// none.
std::optional<PropValue> FitMoment(const PropValue& value);

/// The same for a designation: its structured value or the text of one. Parts that are locked for
/// the object must stay as they are.
std::optional<PropValue> FitMarking(const ObjectRecord& object, const PropValue& value);

/// What a column shows, back in stored units, for a part that holds `held`. All digits are had
/// again where the value is the one that the column shows of it, and a list of several values
/// stands for the part's own among them. No value: the property does not take it.
std::optional<PropValue> FitShownValue(const PropertyRecord& property, const PropValue& held,
                                       const PropValue& shown);

/// Whether the value given is the present one as a user sees it: a text property that holds a
/// number is left alone by the number's text, and a format text by a value without one.
bool IsPresentValue(const PropValue& present, const PropValue& given);

} // namespace platform

#include "platform/product/model/ValueFitting.h"

#include "host/IfPropertyDescription.h"
#include "host/Numbers.h"
#include "platform/product/model/ListValues.h"
#include "platform/values/Moments.h"
#include "platform/values/Utf8.h"

#include <algorithm>
#include <array>
#include <boost/property_tree/ptree.hpp>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <string_view>

namespace platform {

namespace {

using namespace value_type;

/// Between the values that a group shows together.
constexpr wchar_t c_listSeparator = L';';

/// As many decimal digits as any double keeps.
constexpr int c_digits = 15;

bool IsGoodCharacter(wchar_t c) {
    return c != 0 && IsCodePoint(static_cast<char32_t>(c));
}

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\u00A0';
}

/// Texts that are no numbers count as 0, so that what reads as 0 has to be looked at.
bool IsNumber(const SimplePropVal& text) {
    if (text.to_double() != 0)
        return true;
    const std::wstring& characters = text.to_wstring().Str();
    bool hasDigit = false;
    for (const wchar_t c : characters) {
        if (c >= L'1' && c <= L'9')
            return false;
        hasDigit |= c == L'0';
        if (c != L'0' && c != L'.' && c != L'-' && c != L'+' && !IsBlank(c))
            return false;
    }
    return hasDigit;
}

std::optional<SimplePropVal> ToInteger(const SimplePropVal& value) {
    using Limits = std::numeric_limits<int>;
    const std::optional<double> number = FindNumber(value);
    if (!number || !(*number >= Limits::min() && *number <= Limits::max()) ||
        *number != std::trunc(*number))
        return std::nullopt;
    return SimplePropVal(static_cast<int>(*number));
}

std::optional<SimplePropVal> ToDouble(const SimplePropVal& value) {
    const std::optional<double> number = FindNumber(value);
    if (!number || !std::isfinite(*number))
        return std::nullopt;
    return SimplePropVal(*number);
}

std::optional<SimplePropVal> ToText(const SimplePropVal& value) {
    if (value.GetType() == SimplePropVal::TypeDouble && !std::isfinite(value.to_double()))
        return std::nullopt;
    return SimplePropVal(value.to_wstring());
}

std::optional<SimplePropVal> ToBoolean(const SimplePropVal& value) {
    if (value.GetType() == SimplePropVal::TypeBool)
        return value;
    const std::optional<double> number = FindNumber(value);
    if (!number || (*number != 0 && *number != 1))
        return std::nullopt;
    return SimplePropVal(*number == 1);
}

std::optional<SimplePropVal> ToType(unsigned type, const SimplePropVal& value) {
    switch (type) {
    case Integer:
        return ToInteger(value);
    case Double:
        return ToDouble(value);
    case String:
        return ToText(value);
    case Boolean:
        return ToBoolean(value);
    default:
        return std::nullopt;
    }
}

bool IsInRange(const PropertyRecord& property, const SimplePropVal& value) {
    const bool isNumeric = property.type == Integer || property.type == Double;
    const bool hasRange = property.min != 0 || property.max != 0;
    if (!isNumeric || !hasRange || property.isVariable)
        return true;
    const double number = value.to_double();
    return number >= property.min && number <= property.max;
}

std::array<SharedText, 7> PartTexts(const VariantMarking& marking) {
    const auto delim = [](wchar_t c) {
        return c == 0 ? SharedText() : SharedText(std::wstring(1, c));
    };
    return {marking.GetBase(),          delim(marking.GetEmbodimentNumDelim()),
            marking.GetEmbodimentNum(), delim(marking.GetAdditionalNumDelim()),
            marking.GetAdditionalNum(), delim(marking.GetCodeDelim()),
            marking.GetCode()};
}

VariantMarking ToMarking(const PropValue& value) {
    VariantMarking marking;
    if (value.GetSimpleValue().GetType() == SimplePropVal::TypeText)
        marking.Parse(value.to_wstring());
    else
        marking.FromPropertyTree(value.GetPropertyTree());
    // Delimiters alone delimit nothing.
    return marking.IsEmpty() ? VariantMarking() : marking;
}

} // namespace

bool IsGoodText(const std::wstring& text) {
    return text.size() <= c_maxTextSize && std::ranges::all_of(text, IsGoodCharacter);
}

std::optional<double> FindNumber(const SimplePropVal& value) {
    switch (value.GetType()) {
    case SimplePropVal::TypeInt:
    case SimplePropVal::TypeDouble:
        return value.to_double();
    case SimplePropVal::TypeText:
        return IsNumber(value) ? std::optional(value.to_double()) : std::nullopt;
    default:
        return std::nullopt;
    }
}

double Rounded(double value) {
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::scientific, c_digits - 1);
    double rounded = value;
    std::from_chars(text.data(), end.ptr, rounded);
    return rounded;
}

std::optional<PropValue> FitValue(const PropertyRecord& property, const PropValue& value) {
    if (!value.GetPropertyTree().empty() || !value.GetPropertyTree().data().empty())
        return std::nullopt;
    const SimplePropVal& simple = value.GetSimpleValue();
    const bool isText = simple.GetType() == SimplePropVal::TypeText;
    if (simple.IsEmpty() || (isText && simple.to_wstring().IsEmpty()))
        return PropValue();
    if ((isText && !IsGoodText(simple.to_wstring())) || !IsGoodText(value.GetFormat()))
        return std::nullopt;
    const std::optional<SimplePropVal> fitted =
        property.list.empty() ? ToType(property.type, simple) : FitToList(property, simple);
    if (!fitted || !IsInRange(property, *fitted))
        return std::nullopt;
    return PropValue(*fitted, value.GetFormat());
}

bool IsCount(const std::wstring& text) {
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    auto at = std::ranges::find_if_not(text, IsBlank);
    if (at == text.end())
        return true;
    if (!isDigit(*at))
        return false;
    at = std::find_if_not(at, text.end(), isDigit);
    if (at != text.end() && (*at == L'.' || *at == L',')) {
        if (++at == text.end() || !isDigit(*at))
            return false;
        at = std::find_if_not(at, text.end(), isDigit);
    }
    at = std::find_if_not(at, text.end(), IsBlank);
    constexpr std::wstring_view c_noUnit = L".,+-";
    return std::none_of(at, text.end(), [&](wchar_t c) {
        return isDigit(c) || c_noUnit.find(c) != std::wstring_view::npos;
    });
}

std::optional<PropValue> FitMoment(const PropValue& value) {
    if (value.GetSimpleValue().GetType() == SimplePropVal::TypeDateTime)
        return value;
    const std::optional<DateTime> moment = ParseMoment(ToUtf8(value.to_wstring().Str()));
    return moment ? std::optional(PropValue(SimplePropVal(*moment))) : std::nullopt;
}

std::optional<PropValue> FitMarking(const ObjectRecord& object, const PropValue& value) {
    const SimplePropVal::Type type = value.GetSimpleValue().GetType();
    if (type != SimplePropVal::TypeNone && type != SimplePropVal::TypeText)
        return std::nullopt;
    const VariantMarking marking = ToMarking(value);
    const std::array<SharedText, 7> parts = PartTexts(marking);
    if (!std::ranges::all_of(parts, [](const SharedText& part) { return IsGoodText(part); }))
        return std::nullopt;
    const std::array<SharedText, 7> present = PartTexts(object.marking);
    for (const int part : object.lockedMarkingParts) {
        const auto place = static_cast<std::size_t>(part) - 1;
        if (place < parts.size() && !(parts[place] == present[place]))
            return std::nullopt;
    }
    return marking.IsEmpty() ? PropValue() : marking.GetPropValue();
}

std::optional<PropValue> FitShownValue(const PropertyRecord& property, const PropValue& held,
                                       const PropValue& shown) {
    // What members do not agree about is shown as nothing.
    if (shown.IsEmpty())
        return held;
    const bool hasUnit = std::abs(property.unitCoefficient) >= Math::doubleRegion;
    const bool isInteger = property.type == value_type::Integer;
    const bool isConverted = hasUnit && (isInteger || property.type == value_type::Double);
    SimplePropVal own = held.GetSimpleValue();
    if (isConverted && !held.IsEmpty()) {
        const double product = held.to_double() * property.unitCoefficient;
        const bool isInt = isInteger && std::abs(product) <= std::numeric_limits<int>::max();
        own = isInt ? SimplePropVal(static_cast<int>(product)) : SimplePropVal(product);
    }
    const std::wstring text = shown.to_wstring().Str();
    const std::wstring ownText = own.to_wstring().Str();
    std::wistringstream list(text);
    for (std::wstring entry; std::getline(list, entry, c_listSeparator);) {
        if (entry == ownText)
            return held;
    }
    if (text == ownText)
        return held;
    const std::optional<double> number = FindNumber(shown.GetSimpleValue());
    if (!isConverted || !number)
        return FitValue(property, shown);
    const double quotient = *number / property.unitCoefficient;
    return FitValue(property,
                    PropValue(SimplePropVal(isInteger ? std::trunc(quotient) : quotient)));
}

bool IsPresentValue(const PropValue& present, const PropValue& given) {
    if (present == given)
        return true;
    if (present.IsEmpty() || given.IsEmpty() || !given.GetFormat().IsEmpty())
        return false;
    const SimplePropVal& held = present.GetSimpleValue();
    const SimplePropVal& wanted = given.GetSimpleValue();
    if (held.IsEmpty() || wanted.IsEmpty())
        return false;
    return held == wanted || (wanted.GetType() == SimplePropVal::TypeText &&
                              held.to_wstring() == wanted.to_wstring());
}

} // namespace platform

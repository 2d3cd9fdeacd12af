// A property value without structure: a text, a truth value, a number or a moment.
#pragma once

#include "host/SharedText.h"

#include <cstdint>
#include <string>
#include <variant>

namespace meta_data::properties {

/// The host's unit tag of a value. Only the empty one is used.
struct UnitId {
    friend bool operator==(const UnitId&, const UnitId&) = default;
};

} // namespace meta_data::properties

/// A moment in whole seconds since 1970-01-01 UTC.
struct DateTime {
    std::int64_t seconds = 0;
    friend bool operator==(const DateTime&, const DateTime&) = default;
};

class SimplePropVal {
public:
    /// The kinds of a value, in the order of the variant.
    enum Type {
        TypeNone = 0,
        TypeText = 1,
        TypeBool = 2,
        TypeInt = 3,
        TypeDouble = 4,
        TypeDateTime = 5
    };
    using Value = std::variant<std::monostate, SharedText, bool, int, double, DateTime>;

    SimplePropVal() = default;
    explicit SimplePropVal(SharedText text) : m_value(std::move(text)) {}
    explicit SimplePropVal(bool value) : m_value(value) {}
    explicit SimplePropVal(int value, meta_data::properties::UnitId = {}) : m_value(value) {}
    explicit SimplePropVal(double value, meta_data::properties::UnitId = {}) : m_value(value) {}
    explicit SimplePropVal(DateTime value) : m_value(value) {}
    explicit SimplePropVal(const wchar_t* text) : SimplePropVal(SharedText(text)) {}

    Type GetType() const noexcept { return static_cast<Type>(m_value.index()); }
    /// No value at all; an empty text is a value.
    bool IsEmpty() const noexcept { return m_value.index() == TypeNone; }
    const Value& GetValue() const noexcept { return m_value; }
    /// The value where it is a text, to be looked at in place; null for any other kind.
    const SharedText* FindText() const noexcept { return std::get_if<SharedText>(&m_value); }
    void SetValue(const Value& value) { m_value = value; }

    /// The value in another kind, in the form that a user types and independent of the process's
    /// locale: numbers in their shortest decimal form with a point, truth values as 1 and 0,
    /// moments as ISO 8601. A text that is no number is 0; no value is an empty text, 0 or false.
    SharedText to_wstring() const;
    int to_int() const;
    double to_double() const;
    bool to_bool() const;

    /// Equal kind and equal value.
    friend bool operator==(const SimplePropVal&, const SimplePropVal&) = default;

private:
    Value m_value;
};

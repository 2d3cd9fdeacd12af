// JSON as the product file needs it: every value knows where in the text it stands, so that a fault
// of meaning is reported as exactly as a fault of spelling. Refuses doubled members, deep nesting
// and texts of unreasonable size while reading, before memory is spent on them. Knows nothing of
// products.
#pragma once

#include "desktop/messages/FileError.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace desktop::store {

/// Both count from 1; columns count characters, not bytes.
struct TextPosition {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
};

struct JsonValue;
struct JsonMember;
using JsonArray = std::vector<JsonValue>;
/// In the order of the text; no name twice.
using JsonObject = std::vector<JsonMember>;

struct JsonValue {
    TextPosition at;
    /// Whole numbers beyond 64 bits are doubles.
    std::variant<std::monostate, bool, std::int64_t, double, std::string, JsonArray, JsonObject>
        data;

    /// Null when the value is of another kind.
    template <class T>
    const T* As() const noexcept {
        return std::get_if<T>(&data);
    }
};

struct JsonMember {
    TextPosition at;
    std::string name;
    JsonValue value;
};

/// Equal data, wherever it stands.
bool operator==(const JsonValue& a, const JsonValue& b);
bool operator==(const JsonMember& a, const JsonMember& b);

/// Null when there is none.
const JsonMember* FindMember(const JsonObject& object, std::string_view name) noexcept;

/// The text with nothing in it that would end the line, cut where it grows long.
std::string OneLine(std::string text);

/// "line L, column C: reason" in one line.
FileError ErrorAt(TextPosition at, std::string_view reason);

using JsonResult = std::variant<JsonValue, FileError>;

JsonResult ParseJson(std::string_view text);
/// Reads from the file's place to its end, a piece at a time. The file stays open.
JsonResult ParseJson(std::FILE& file);

/// The text of the value, ending in a line break. What fits stands on one line.
std::string FormatJson(const JsonValue& value);

} // namespace desktop::store

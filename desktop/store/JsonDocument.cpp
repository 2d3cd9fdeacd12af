#include "desktop/store/JsonDocument.h"

#include "desktop/store/TextSource.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace desktop::store {

namespace {

constexpr std::size_t c_maxDepth = 64;
/// A product of a million rows stays below it by far.
constexpr std::size_t c_maxValues = 20'000'000;

bool StartsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

std::string_view CutBefore(std::string_view text, std::string_view mark) {
    return text.substr(0, text.find(mark));
}

/// The parser's message without its own position and without the text it read last, which may be
/// long and need not be UTF-8.
std::string PlainReason(std::string_view message) {
    const std::size_t overflow = message.find("number overflow");
    if (overflow != std::string_view::npos)
        return "the number is too large";

    const std::size_t dash = message.find(" - ");
    std::string_view reason = dash == std::string_view::npos ? message : message.substr(dash + 3);
    const std::size_t expected = reason.rfind("; expected ");
    const std::string_view tail =
        expected == std::string_view::npos ? std::string_view() : reason.substr(expected);
    reason = CutBefore(CutBefore(reason, "; last read"), "; expected ");
    return "not JSON: " + std::string(reason) + std::string(tail);
}

/// Builds the value from the parser's events. Values in work stand on a stack of their own, so that
/// nesting costs no stack of the process.
class Builder final {
public:
    using number_integer_t = nlohmann::json::number_integer_t;
    using number_unsigned_t = nlohmann::json::number_unsigned_t;
    using number_float_t = nlohmann::json::number_float_t;
    using string_t = nlohmann::json::string_t;
    using binary_t = nlohmann::json::binary_t;

    explicit Builder(TextSource& source) : m_source(source) {}

    bool null() { return Add(std::monostate()); }
    bool boolean(bool value) { return Add(value); }
    bool number_integer(number_integer_t value) { return AddNumber(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) {
        if (value > static_cast<number_unsigned_t>(INT64_MAX))
            return AddNumber(static_cast<double>(value));
        return AddNumber(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t value, const string_t&) { return AddNumber(value); }
    bool string(string_t& value) { return Add(std::move(value)); }
    bool binary(binary_t&) { return false; }

    bool start_object(std::size_t) { return Open(JsonObject()); }
    bool key(string_t& name) {
        JsonMember member;
        member.at = m_source.TokenStart();
        member.name = std::move(name);
        m_source.EndToken();
        std::get<JsonObject>(m_open.back().data).push_back(std::move(member));
        return true;
    }
    bool end_object() {
        if (const JsonMember* doubled = FindDoubled(std::get<JsonObject>(m_open.back().data)))
            return Fail(doubled->at, "the member '" + doubled->name + "' stands here twice");
        return Close();
    }
    bool start_array(std::size_t) { return Open(JsonArray()); }
    bool end_array() { return Close(); }

    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
        const std::string_view message = error.what();
        const bool isInToken = message.find("invalid") != std::string_view::npos;
        const std::string reason = PlainReason(message);
        if (!m_source.HasText())
            return Fail({}, "the file is empty");
        if (m_source.IsTooLong())
            return Fail(m_source.LastRead(), "the file is too long for a product file");
        if (StartsWith(reason, "not JSON: unexpected end of input"))
            return Fail(m_source.NextRead(), "the text ends too early");
        if (m_isDone)
            return Fail(m_source.TokenStart(), "text behind the end of the product");
        return Fail(isInToken ? m_source.LastRead() : m_source.TokenStart(), reason);
    }

    JsonResult TakeResult() {
        if (m_error)
            return std::move(*m_error);
        return std::move(m_root);
    }

private:
    bool Fail(TextPosition at, std::string_view reason) {
        m_error = ErrorAt(at, reason);
        return false;
    }

    static const JsonMember* FindDoubled(const JsonObject& object) {
        std::vector<const JsonMember*> sorted;
        sorted.reserve(object.size());
        for (const JsonMember& member : object)
            sorted.push_back(&member);
        std::ranges::stable_sort(sorted, {}, &JsonMember::name);
        const auto doubled = std::ranges::adjacent_find(sorted, {}, &JsonMember::name);
        return doubled == sorted.end() ? nullptr : *std::next(doubled);
    }

    template <class T>
    bool Open(T empty) {
        if (m_open.size() == c_maxDepth)
            return Fail(m_source.TokenStart(),
                        "nested deeper than " + std::to_string(c_maxDepth) + " levels");
        m_open.push_back(JsonValue{m_source.TokenStart(), std::move(empty)});
        m_source.EndToken();
        return true;
    }

    bool Close() {
        m_source.EndToken();
        JsonValue value = std::move(m_open.back());
        m_open.pop_back();
        return Put(std::move(value));
    }

    template <class T>
    bool Add(T data) {
        JsonValue value{m_source.TokenStart(), std::move(data)};
        m_source.EndToken();
        return Put(std::move(value));
    }

    template <class T>
    bool AddNumber(T data) {
        JsonValue value{m_source.TokenStart(), data};
        m_source.EndNumber();
        return Put(std::move(value));
    }

    bool Put(JsonValue value) {
        if (++m_count > c_maxValues)
            return Fail(value.at, "more than " + std::to_string(c_maxValues) + " values");
        if (m_open.empty()) {
            m_root = std::move(value);
            m_isDone = true;
            return true;
        }
        JsonValue& parent = m_open.back();
        if (JsonArray* const array = std::get_if<JsonArray>(&parent.data))
            array->push_back(std::move(value));
        else
            std::get<JsonObject>(parent.data).back().value = std::move(value);
        return true;
    }

    TextSource& m_source;
    std::vector<JsonValue> m_open;
    JsonValue m_root;
    std::optional<FileError> m_error;
    std::size_t m_count = 0;
    bool m_isDone = false;
};

JsonResult Parse(TextSource& source) {
    Builder builder(source);
    nlohmann::json::sax_parse(TextIterator(source), TextIterator(), &builder);
    if (const std::optional<std::string> failure = source.ReadFailure())
        return FileError{*failure};
    return builder.TakeResult();
}

} // namespace

bool operator==(const JsonValue& a, const JsonValue& b) {
    return a.data == b.data;
}

bool operator==(const JsonMember& a, const JsonMember& b) {
    return a.name == b.name && a.value == b.value;
}

const JsonMember* FindMember(const JsonObject& object, std::string_view name) noexcept {
    const auto found = std::ranges::find(object, name, &JsonMember::name);
    return found == object.end() ? nullptr : &*found;
}

std::string OneLine(std::string text) {
    constexpr std::size_t maxLength = 300;
    if (text.size() > maxLength) {
        std::size_t end = maxLength;
        while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
            --end;
        text.resize(end);
        text += "...";
    }
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return text;
}

FileError ErrorAt(TextPosition at, std::string_view reason) {
    return FileError{OneLine("line " + std::to_string(at.line) + ", column " +
                             std::to_string(at.column) + ": " + std::string(reason))};
}

JsonResult ParseJson(std::string_view text) {
    TextSource source(text);
    return Parse(source);
}

JsonResult ParseJson(std::FILE& file) {
    TextSource source(file);
    return Parse(source);
}

} // namespace desktop::store

#include "desktop/store/MarkingParts.h"
#include "desktop/store/MemberReader.h"
#include "desktop/store/Texts.h"

#include <cmath>
#include <limits>

namespace desktop::store {

namespace {

const std::string& TextOf(const JsonValue& json, const ModelPath& path) {
    const std::string* const text = json.As<std::string>();
    if (!text)
        Refuse(json.at, path, "a text is expected");
    return *text;
}

template <class T, class Add>
void DecodeEach(const JsonValue& json, const ModelPath& path, const Add& add) {
    const JsonArray& array = ArrayOf(json, path);
    for (std::size_t i = 0; i < array.size(); ++i) {
        T item{};
        Decode(array[i], {path, i}, item);
        add(array[i], ModelPath(path, i), std::move(item));
    }
}

} // namespace

void Refuse(TextPosition at, const ModelPath& path, std::string_view reason) {
    std::string text = path.ToText();
    if (!text.empty())
        text += ": ";
    throw ReadFault{at, text.append(reason)};
}

const JsonObject& ObjectOf(const JsonValue& json, const ModelPath& path) {
    const JsonObject* const object = json.As<JsonObject>();
    if (!object)
        Refuse(json.at, path, "an object is expected");
    return *object;
}

const JsonArray& ArrayOf(const JsonValue& json, const ModelPath& path) {
    const JsonArray* const array = json.As<JsonArray>();
    if (!array)
        Refuse(json.at, path, "a list is expected");
    return *array;
}

std::size_t WordOf(const JsonValue& json, const ModelPath& path,
                   std::span<const std::string_view> words) {
    const std::string* const text = json.As<std::string>();
    std::string expected;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (text && *text == words[i])
            return i;
        expected.append(i == 0 ? "" : i + 1 == words.size() ? " or " : ", ");
        expected.append("\"").append(words[i]).append("\"");
    }
    Refuse(json.at, path, expected + " is expected");
}

void Decode(const JsonValue& json, const ModelPath& path, bool& value) {
    const bool* const given = json.As<bool>();
    if (!given)
        Refuse(json.at, path, "true or false is expected");
    value = *given;
}

void Decode(const JsonValue& json, const ModelPath& path, std::int32_t& value) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t* const given = json.As<std::int64_t>();
    if (given && *given >= Limits::min() && *given <= Limits::max()) {
        value = static_cast<std::int32_t>(*given);
        return;
    }
    const double* const real = json.As<double>();
    const bool isTooLarge = given || (real && std::abs(*real) > Limits::max());
    Refuse(json.at, path,
           isTooLarge ? "a whole number of at most 32 bits is expected"
                      : "a whole number is expected");
}

void Decode(const JsonValue& json, const ModelPath& path, double& value) {
    if (const std::int64_t* const whole = json.As<std::int64_t>()) {
        value = static_cast<double>(*whole);
        return;
    }
    const double* const given = json.As<double>();
    if (!given)
        Refuse(json.at, path, "a number is expected");
    value = *given;
}

void Decode(const JsonValue& json, const ModelPath& path, wchar_t& value) {
    const std::wstring text = ToWide(TextOf(json, path));
    if (text.size() > 1)
        Refuse(json.at, path, "one character is expected");
    value = text.empty() ? L'\0' : text.front();
}

void Decode(const JsonValue& json, const ModelPath& path, std::string& value) {
    value = TextOf(json, path);
}

void Decode(const JsonValue& json, const ModelPath& path, std::wstring& value) {
    value = ToWide(TextOf(json, path));
}

void Decode(const JsonValue& json, const ModelPath& path, SharedText& value) {
    value = SharedText(ToWide(TextOf(json, path)));
}

void Decode(const JsonValue& json, const ModelPath& path, UniqueMetaObjectKey& value) {
    value = UniqueMetaObjectKey(TextOf(json, path));
}

void Decode(const JsonValue& json, const ModelPath& path, std::optional<bool>& value) {
    value.reset();
    if (!json.As<std::monostate>())
        Decode(json, path, value.emplace());
}

void Decode(const JsonValue& json, const ModelPath& path, std::optional<double>& value) {
    Decode(json, path, value.emplace());
}

void Decode(const JsonValue& json, const ModelPath& path, std::vector<int>& value) {
    value.clear();
    DecodeEach<int>(json, path,
                    [&](const JsonValue&, const ModelPath&, int item) { value.push_back(item); });
}

void Decode(const JsonValue& json, const ModelPath& path, std::set<int>& value) {
    value.clear();
    DecodeEach<int>(json, path, [&](const JsonValue& entry, const ModelPath& place, int item) {
        if (!value.insert(item).second)
            Refuse(entry.at, place, "the number stands here twice");
    });
}

void Decode(const JsonValue& json, const ModelPath& path, std::vector<UniqueMetaObjectKey>& value) {
    value.clear();
    DecodeEach<UniqueMetaObjectKey>(
        json, path, [&](const JsonValue&, const ModelPath&, UniqueMetaObjectKey item) {
            value.push_back(std::move(item));
        });
}

void Decode(const JsonValue& json, const ModelPath& path, meta_data::SPUsed& value) {
    std::vector<int> styles;
    Decode(json, path, styles);
    value = meta_data::SPUsed(std::move(styles));
}

void Decode(const JsonValue& json, const ModelPath& path, VariantMarking& value) {
    MarkingParts parts;
    if (json.As<std::string>()) {
        Decode(json, path, parts.base);
    } else {
        if (!json.As<JsonObject>())
            Refuse(json.at, path, "a text or an object is expected");
        ReadContext context;
        MemberReader reader(json, path, context);
        Describe(reader, parts);
        reader.Finish();
    }
    value = MakeMarking(parts);
}

} // namespace desktop::store

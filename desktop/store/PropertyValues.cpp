#include "desktop/store/PropertyValues.h"

#include "desktop/store/MemberReader.h"
#include "desktop/store/MemberWriter.h"
#include "desktop/store/Texts.h"
#include "platform/product/model/ListValues.h"
#include "platform/values/Moments.h"
#include "platform/values/Utf8.h"

#include <boost/property_tree/ptree.hpp>
#include <cmath>
#include <limits>

namespace desktop::store {

namespace {

using Tree = PropValue::Tree;

SimplePropVal Untyped(const JsonValue& json, const ModelPath& path) {
    if (const std::string* const text = json.As<std::string>())
        return SimplePropVal(SharedText(ToWide(*text)));
    if (const bool* const flag = json.As<bool>())
        return SimplePropVal(*flag);
    if (const double* const number = json.As<double>())
        return SimplePropVal(*number);
    if (const std::int64_t* const number = json.As<std::int64_t>()) {
        using Limits = std::numeric_limits<int>;
        if (*number < Limits::min() || *number > Limits::max())
            return SimplePropVal(static_cast<double>(*number));
        return SimplePropVal(static_cast<int>(*number));
    }
    Refuse(json.at, path, "a value is expected");
}

template <class T>
SimplePropVal Typed(const JsonValue& json, const ModelPath& path) {
    T value{};
    Decode(json, path, value);
    return SimplePropVal(std::move(value));
}

SimplePropVal TypedMoment(const JsonValue& json, const ModelPath& path) {
    const std::string* const text = json.As<std::string>();
    const std::optional<DateTime> moment = text ? platform::ParseMoment(*text) : std::nullopt;
    if (!moment)
        Refuse(json.at, path, "a time is expected, for instance \"2024-05-01T12:00:00Z\"");
    return SimplePropVal(*moment);
}

SimplePropVal DecodeTyped(const JsonValue& json, const ModelPath& path,
                          std::optional<ValueType> type) {
    if (json.As<std::monostate>())
        return {};
    if (!type)
        return Untyped(json, path);
    switch (*type) {
    case ValueType::Integer:
        return Typed<int>(json, path);
    case ValueType::Number:
        return Typed<double>(json, path);
    case ValueType::Text:
        return Typed<SharedText>(json, path);
    case ValueType::Boolean:
        return Typed<bool>(json, path);
    case ValueType::Time:
        return TypedMoment(json, path);
    }
    return {};
}

/// The last members of an object.
SimplePropVal DecodeWithType(MemberReader& reader, const JsonValue& json, const ModelPath& path,
                             std::optional<ValueType> type) {
    const JsonValue* const value = reader.Take("value");
    if (!value)
        Refuse(json.at, {path, "value"}, "a value is needed");
    if (const JsonValue* const word = reader.Take("type"))
        type = static_cast<ValueType>(WordOf(*word, {path, "type"}, c_valueTypes));
    reader.Finish();
    return DecodeTyped(*value, {path, "value"}, type);
}

Tree DecodeTree(MemberReader& reader, const ModelPath& path, ReadContext& context);

void DecodeBranches(Tree& tree, const JsonValue& json, const ModelPath& path,
                    ReadContext& context) {
    const JsonArray& array = ArrayOf(json, path);
    for (std::size_t i = 0; i < array.size(); ++i) {
        const ModelPath place(path, i);
        MemberReader reader(array[i], place, context);
        std::wstring name;
        reader.Value("name", name);
        tree.push_back({std::move(name), DecodeTree(reader, place, context)});
    }
}

Tree DecodeTree(MemberReader& reader, const ModelPath& path, ReadContext& context) {
    Tree tree;
    reader.Value("data", tree.data());
    if (const JsonValue* const branches = reader.Take("branches"))
        DecodeBranches(tree, *branches, {path, "branches"}, context);
    reader.Finish();
    return tree;
}

JsonValue EncodeTree(const Tree& tree, const std::wstring& name) {
    MemberWriter writer;
    writer.Value("name", name);
    writer.Value("data", tree.data());
    JsonArray branches;
    for (const auto& [branchName, branch] : tree)
        branches.push_back(EncodeTree(branch, branchName));
    if (!branches.empty())
        writer.Put("branches", std::move(branches));
    return writer.TakeJson();
}

/// The type that a value has by itself; no value for an empty one.
std::optional<ValueType> OwnType(const SimplePropVal& value) {
    switch (value.GetType()) {
    case SimplePropVal::TypeNone:
        return std::nullopt;
    case SimplePropVal::TypeText:
        return ValueType::Text;
    case SimplePropVal::TypeBool:
        return ValueType::Boolean;
    case SimplePropVal::TypeInt:
        return ValueType::Integer;
    case SimplePropVal::TypeDouble:
        return ValueType::Number;
    case SimplePropVal::TypeDateTime:
        return ValueType::Time;
    }
    return std::nullopt;
}

/// Reading the bare value gives it back in its own type.
bool IsPlain(const SimplePropVal& value, std::optional<ValueType> type) {
    const std::optional<ValueType> own = OwnType(value);
    return !own || own == type || (!type && own != ValueType::Time);
}

JsonValue Bare(const SimplePropVal& value, bool isTyped) {
    switch (value.GetType()) {
    case SimplePropVal::TypeNone:
        return {};
    case SimplePropVal::TypeText:
        return {{}, platform::ToUtf8(value.to_wstring().Str())};
    case SimplePropVal::TypeBool:
        return {{}, value.to_bool()};
    case SimplePropVal::TypeInt:
        return {{}, std::int64_t{value.to_int()}};
    case SimplePropVal::TypeDouble:
        return isTyped ? EncodeNumber(value.to_double()) : JsonValue{{}, value.to_double()};
    case SimplePropVal::TypeDateTime:
        return {{}, platform::ToUtf8(value.to_wstring().Str())};
    }
    return {};
}

void WriteTyped(MemberWriter& writer, const SimplePropVal& value, std::optional<ValueType> type) {
    const bool isPlain = IsPlain(value, type);
    if (!isPlain)
        writer.Put("type", std::string(c_valueTypes[static_cast<std::size_t>(*OwnType(value))]));
    writer.Put("value", Bare(value, !isPlain || type.has_value()).data);
}

} // namespace

JsonValue EncodeNumber(double value) {
    constexpr double safe = 1e15;
    const bool isWhole = std::abs(value) < safe && value == std::trunc(value);
    if (isWhole && !(value == 0 && std::signbit(value)))
        return {{}, static_cast<std::int64_t>(value)};
    return {{}, value};
}

SimplePropVal DecodeLiteral(const JsonValue& json, const ModelPath& path,
                            std::optional<ValueType> type) {
    if (!json.As<JsonObject>())
        return DecodeTyped(json, path, type);
    ReadContext context;
    MemberReader reader(json, path, context);
    return DecodeWithType(reader, json, path, type);
}

PropValue DecodeValue(const JsonValue& json, const ModelPath& path, std::optional<ValueType> type) {
    if (!json.As<JsonObject>())
        return PropValue(DecodeTyped(json, path, type));
    ReadContext context;
    MemberReader reader(json, path, context);
    SharedText format;
    reader.Value("format", format);
    if (const JsonValue* const structure = reader.Take("tree")) {
        const ModelPath place(path, "tree");
        MemberReader treeReader(*structure, place, context);
        auto tree = std::make_shared<Tree>(DecodeTree(treeReader, place, context));
        reader.Finish();
        return PropValue(std::move(tree), std::move(format));
    }
    return PropValue(DecodeWithType(reader, json, path, type), std::move(format));
}

PropValue DecodeNumbered(const JsonValue& json, const ModelPath& path,
                         const platform::PropertyRecord& property) {
    const auto type = static_cast<ValueType>(property.type);
    const bool isWord = json.As<std::string>() != nullptr;
    const bool isNumber = json.As<std::int64_t>() != nullptr;
    PropValue value = DecodeValue(json, path,
                                  isWord     ? ValueType::Text
                                  : isNumber ? ValueType::Integer
                                             : type);
    const SimplePropVal& simple = value.GetSimpleValue();
    if (simple.GetType() != SimplePropVal::TypeText)
        return value;
    if (const std::optional<std::size_t> place = platform::FindListPlace(property, simple))
        return PropValue(platform::GetListValue(property, *place), value.GetFormat());
    if (isWord && type != ValueType::Text)
        Refuse(json.at, path, "a text of the list or its number is expected");
    return value;
}

JsonValue EncodeLiteral(const SimplePropVal& value, std::optional<ValueType> type) {
    if (IsPlain(value, type))
        return Bare(value, type.has_value());
    MemberWriter writer;
    WriteTyped(writer, value, type);
    return writer.TakeJson();
}

JsonValue EncodeValue(const PropValue& value, std::optional<ValueType> type) {
    const Tree& tree = value.GetPropertyTree();
    const bool hasTree = !tree.empty() || !tree.data().empty();
    if (!hasTree && value.GetFormat().IsEmpty())
        return EncodeLiteral(value.GetSimpleValue(), type);
    MemberWriter writer;
    if (hasTree)
        writer.Put("tree", EncodeTree(tree, {}).data);
    else
        WriteTyped(writer, value.GetSimpleValue(), type);
    writer.Value("format", value.GetFormat());
    return writer.TakeJson();
}

} // namespace desktop::store

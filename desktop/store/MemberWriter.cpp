#include "desktop/store/MemberWriter.h"

#include "desktop/store/MarkingParts.h"
#include "desktop/store/PropertyValues.h"
#include "desktop/store/SectionNames.h"
#include "desktop/store/SourceTexts.h"
#include "platform/product/model/DocumentNames.h"
#include "platform/values/Utf8.h"

#include <algorithm>

namespace desktop::store {

namespace {

template <class List>
JsonData EncodeEach(const List& list) {
    JsonArray array;
    for (const auto& item : list)
        array.push_back({{}, Encode(item)});
    return array;
}

} // namespace

JsonData Encode(bool value) {
    return value;
}
JsonData Encode(std::int32_t value) {
    return std::int64_t{value};
}
JsonData Encode(double value) {
    return EncodeNumber(value).data;
}
JsonData Encode(wchar_t value) {
    return platform::ToUtf8(value == 0 ? std::wstring() : std::wstring(1, value));
}
JsonData Encode(const std::string& value) {
    return value;
}
JsonData Encode(const std::wstring& value) {
    return platform::ToUtf8(value);
}
JsonData Encode(const SharedText& value) {
    return platform::ToUtf8(value.Str());
}
JsonData Encode(const UniqueMetaObjectKey& value) {
    return value.String();
}
JsonData Encode(const std::optional<bool>& value) {
    return value ? JsonData(*value) : JsonData();
}
JsonData Encode(const std::optional<double>& value) {
    return value ? EncodeNumber(*value).data : JsonData();
}
JsonData Encode(const std::vector<int>& value) {
    return EncodeEach(value);
}
JsonData Encode(const std::set<int>& value) {
    return EncodeEach(value);
}
JsonData Encode(const std::vector<UniqueMetaObjectKey>& value) {
    return EncodeEach(value);
}
JsonData Encode(const meta_data::SPUsed& value) {
    return EncodeEach(value.GetStyles());
}

JsonData Encode(const VariantMarking& value) {
    VariantMarking plain;
    plain.SetBase(value.GetBase());
    if (value == plain)
        return Encode(value.GetBase());
    MemberWriter writer;
    Describe(writer, PartsOf(value));
    return writer.TakeJson().data;
}

void MemberWriter::Put(std::string_view name, JsonData data) {
    const auto kept = std::ranges::find(m_object, name, &JsonMember::name);
    if (kept != m_object.end()) {
        kept->value.data = std::move(data);
        return;
    }
    m_object.push_back({{}, std::string(name), {{}, std::move(data)}});
}

void MemberWriter::Path(std::string_view name, const std::string& path) {
    Put(name, platform::PathFrom(m_context->folder, path));
}

void MemberWriter::Contents(std::string_view name, const platform::ContentsMark& contents) {
    Put(name, FormatContents(contents));
}

void MemberWriter::Property(std::string_view name, unsigned long number) {
    Put(name, PropertyNames::PathOf(number));
}

void MemberWriter::NamedProperty(std::string_view name, unsigned long number) {
    Put(name, m_context->names.NameOf(number));
}

void MemberWriter::Properties(std::string_view name, const std::set<unsigned long>& numbers) {
    Properties(name, std::vector<unsigned long>(numbers.begin(), numbers.end()));
}

void MemberWriter::Links(std::string_view name, const std::vector<platform::LinkRecord>& links) {
    JsonObject object;
    for (const platform::LinkRecord& link : links)
        object.push_back({{}, m_context->names.NameOf(link.property), Written(link)});
    if (!object.empty())
        Put(name, std::move(object));
}

void MemberWriter::Properties(std::string_view name, std::span<const unsigned long> numbers) {
    JsonArray array;
    for (const unsigned long number : numbers)
        array.push_back({{}, m_context->names.NameOf(number)});
    if (!array.empty())
        Put(name, std::move(array));
}

void MemberWriter::Values(std::string_view name, const platform::PropertyValues& values) {
    JsonObject object;
    for (const auto& [number, value] : values)
        object.push_back({{},
                          m_context->names.NameOf(number),
                          EncodeValue(value, m_context->names.TypeOf(number))});
    if (!object.empty())
        Put(name, std::move(object));
}

void MemberWriter::Literals(std::string_view name, const std::vector<SimplePropVal>& values,
                            ValueType type) {
    JsonArray array;
    for (const SimplePropVal& value : values)
        array.push_back(EncodeLiteral(value, type));
    if (!array.empty())
        Put(name, std::move(array));
}

void MemberWriter::Section(std::string_view name, const SPCSection& section) {
    if (section == SPCSection())
        return;
    const SharedText named = SectionName(section.numbers, *m_context->style);
    std::vector<int> numbers(section.numbers.begin(), section.numbers.end());
    while (!numbers.empty() && numbers.back() == 0)
        numbers.pop_back();
    if (section.name == named)
        return Put(name, numbers.size() == 1 ? Encode(numbers.front()) : Encode(numbers));
    MemberWriter writer;
    writer.Value("numbers", numbers);
    writer.Value("name", section.name, named);
    Put(name, writer.TakeJson().data);
}

void MemberWriter::Object(std::string_view name, const platform::ObjectRecord& object,
                          const platform::ObjectRecord& plain) {
    MemberWriter writer(*m_context);
    DescribeObject(writer, object, plain);
    Put(name, writer.TakeJson().data);
}

void MemberWriter::Objects(std::string_view name,
                           const std::vector<platform::ObjectRecord>& objects,
                           const platform::ObjectRecord& plain) {
    JsonArray array;
    for (const platform::ObjectRecord& object : objects) {
        MemberWriter writer(*m_context);
        DescribeObject(writer, object, plain);
        array.push_back(writer.TakeJson());
    }
    if (!array.empty())
        Put(name, std::move(array));
}

void MemberWriter::Components(std::string_view name,
                              const std::vector<platform::ObjectRecord>& components) {
    JsonArray array;
    for (const platform::ObjectRecord& component : components) {
        MemberWriter writer(*m_context);
        DescribeComponent(writer, component, m_context->objects.Get(component.key));
        array.push_back(writer.TakeJson());
    }
    if (!array.empty())
        Put(name, std::move(array));
}

void MemberWriter::Uses(std::string_view name, const platform::ObjectRecord& object,
                        const platform::ObjectRecord& like) {
    struct Run {
        JsonValue use;
        std::int64_t count;
    };
    std::vector<Run> runs;
    for (std::size_t i = 0; i < object.occurrences.size(); ++i) {
        MemberWriter writer(*m_context);
        DescribeUse(writer, object.occurrences[i], like, i);
        JsonValue use = writer.TakeJson();
        const bool hasKey = FindMember(*use.As<JsonObject>(), "key");
        if (!hasKey && !runs.empty() && runs.back().use == use)
            ++runs.back().count;
        else
            runs.push_back({std::move(use), 1});
    }
    if (runs.empty())
        return;
    if (runs.size() == 1 && runs.front().use.As<JsonObject>()->empty())
        return Put(name, runs.front().count);
    JsonArray array;
    for (Run& run : runs) {
        JsonObject& use = std::get<JsonObject>(run.use.data);
        if (run.count > 1)
            use.insert(use.begin(), JsonMember{{}, "count", {{}, run.count}});
        array.push_back(std::move(run.use));
    }
    Put(name, std::move(array));
}

void MemberWriter::UseProperties(const std::vector<platform::PropertyRecord>& properties) {
    m_context->names = PropertyNames(properties);
}

} // namespace desktop::store

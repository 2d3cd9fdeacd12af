#include "desktop/store/MemberReader.h"

#include "desktop/store/PropertyValues.h"
#include "desktop/store/SectionNames.h"
#include "desktop/store/SourceTexts.h"
#include "platform/product/model/DocumentNames.h"

#include <algorithm>
#include <fstream>

namespace desktop::store {

namespace {

/// What a use costs by the time that its row is shown and printed. Files of 100,000 and 500,000
/// uses took 3.9 kB a use with two columns; there is room for some more of them.
constexpr std::size_t c_bytesOfUse = 5000;

/// In kilobytes, as the system tells it; no value where it doesn't.
std::optional<std::size_t> FindAvailableMemory() {
    std::ifstream info("/proc/meminfo");
    std::string name;
    std::size_t value = 0;
    std::string unit;
    while (info >> name >> value && std::getline(info, unit)) {
        if (name == "MemAvailable:")
            return value;
    }
    return std::nullopt;
}

} // namespace

std::size_t MostUses() {
    const std::optional<std::size_t> kilobytes = FindAvailableMemory();
    return kilobytes ? std::min(c_mostUses, *kilobytes * 1024 / c_bytesOfUse) : c_mostUses;
}

namespace {

constexpr std::string_view c_noProperty =
    "a property's path is expected, or the name of one that stands in \"properties\" once";

unsigned long PropertyNumber(const PropertyNames& names, const std::string& name, TextPosition at,
                             const ModelPath& path) {
    const unsigned long number = names.NumberOf(name);
    if (number == 0)
        Refuse(at, path, c_noProperty);
    return number;
}

void DecodeSectionNumbers(const JsonValue& json, const ModelPath& path, SPCSection& section) {
    std::vector<int> numbers;
    Decode(json, path, numbers);
    if (numbers.size() > section.numbers.size())
        Refuse(json.at, path, "at most six numbers are expected");
    std::ranges::copy(numbers, section.numbers.begin());
}

} // namespace

MemberReader::MemberReader(const JsonValue& json, const ModelPath& path, ReadContext& context)
    : m_json(json), m_object(ObjectOf(json, path)), m_path(path), m_context(context),
      m_isTaken(m_object.size()) {}

const JsonValue* MemberReader::Take(std::string_view name) {
    const JsonMember* const member = FindMember(m_object, name);
    if (!member)
        return nullptr;
    m_isTaken[static_cast<std::size_t>(member - m_object.data())] = true;
    return &member->value;
}

void MemberReader::Finish() const {
    const auto unknown = std::ranges::find(m_isTaken, false);
    if (unknown == m_isTaken.end())
        return;
    const JsonMember& member = m_object[static_cast<std::size_t>(unknown - m_isTaken.begin())];
    Refuse(member.at, {m_path, member.name}, "there is no such member");
}

void MemberReader::Format(std::string_view name, std::string_view format) {
    const JsonValue* const json = Take(name);
    const std::string* const text = json ? json->As<std::string>() : nullptr;
    if (!text || *text != format)
        Refuse(json ? json->at : m_json.at, {m_path, name},
               "\"" + std::string(format) + "\" is expected");
}

void MemberReader::Path(std::string_view name, std::string& path) {
    const ModelPath place(m_path, name);
    const JsonValue* const json = Take(name);
    if (!json)
        Refuse(m_json.at, place, "a path is needed");
    Decode(*json, place, path);
    path = platform::PathIn(m_context.folder, path);
}

void MemberReader::Contents(std::string_view name, platform::ContentsMark& contents) {
    const ModelPath place(m_path, name);
    const JsonValue* const json = Take(name);
    std::string text;
    if (json)
        Decode(*json, place, text);
    const std::optional<platform::ContentsMark> mark = ParseContents(text);
    if (!mark)
        Refuse(json ? json->at : m_json.at, place,
               "a size and a hash are expected, as \"1024-00c0ffee00c0ffee\"");
    contents = *mark;
}

void MemberReader::Property(std::string_view name, unsigned long& number) {
    const ModelPath path(m_path, name);
    const JsonValue* const json = Take(name);
    if (!json)
        Refuse(m_json.at, path, "a property's path is needed");
    std::string text;
    Decode(*json, path, text);
    number = PropertyNames::NumberOfPath(text);
    if (number == 0)
        Refuse(json->at, path,
               "a property's path is expected, \"user.1000\" or above for your own");
}

void MemberReader::NamedProperty(std::string_view name, unsigned long& number) {
    const ModelPath path(m_path, name);
    const JsonValue* const json = Take(name);
    if (!json)
        Refuse(m_json.at, path, "a property is needed");
    std::string text;
    Decode(*json, path, text);
    number = PropertyNumber(m_context.names, text, json->at, path);
}

template <class Add>
void MemberReader::ReadProperties(std::string_view name, const Add& add) {
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    const JsonArray& array = ArrayOf(*json, path);
    for (std::size_t i = 0; i < array.size(); ++i) {
        std::string text;
        const ModelPath place(path, i);
        Decode(array[i], place, text);
        if (!add(PropertyNumber(m_context.names, text, array[i].at, place)))
            Refuse(array[i].at, place, "the property stands here twice");
    }
}

void MemberReader::Properties(std::string_view name, std::vector<unsigned long>& numbers) {
    numbers.clear();
    ReadProperties(name, [&](unsigned long number) {
        numbers.push_back(number);
        return true;
    });
}

void MemberReader::Properties(std::string_view name, std::set<unsigned long>& numbers) {
    numbers.clear();
    ReadProperties(name, [&](unsigned long number) { return numbers.insert(number).second; });
}

void MemberReader::Links(std::string_view name, std::vector<platform::LinkRecord>& links) {
    links.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    for (const JsonMember& member : ObjectOf(*json, path)) {
        const ModelPath place(path, member.name);
        platform::LinkRecord& link = links.emplace_back();
        link.property = PropertyNumber(m_context.names, member.name, member.at, place);
        MemberReader reader(member.value, place, m_context);
        Describe(reader, link);
        reader.Finish();
    }
}

void MemberReader::Values(std::string_view name, platform::PropertyValues& values) {
    values.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    for (const JsonMember& member : ObjectOf(*json, path)) {
        const ModelPath place(path, member.name);
        const unsigned long number = PropertyNumber(m_context.names, member.name, member.at, place);
        const platform::PropertyRecord* const numbered = m_context.names.FindNumbered(number);
        values.emplace_back(
            number, numbered ? DecodeNumbered(member.value, place, *numbered)
                             : DecodeValue(member.value, place, m_context.names.TypeOf(number)));
    }
}

void MemberReader::Literals(std::string_view name, std::vector<SimplePropVal>& values,
                            ValueType type) {
    values.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    const JsonArray& array = ArrayOf(*json, path);
    for (std::size_t i = 0; i < array.size(); ++i)
        values.push_back(DecodeLiteral(array[i], {path, i}, type));
}

void MemberReader::Section(std::string_view name, SPCSection& section) {
    section = {};
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    if (json->As<JsonObject>()) {
        MemberReader reader(*json, path, m_context);
        if (const JsonValue* const numbers = reader.Take("numbers"))
            DecodeSectionNumbers(*numbers, {path, "numbers"}, section);
        reader.Value("name", section.name, SectionName(section.numbers, m_context.style));
        reader.Finish();
        return;
    }
    if (json->As<JsonArray>())
        DecodeSectionNumbers(*json, path, section);
    else
        Decode(*json, path, section.numbers[0]);
    section.name = SectionName(section.numbers, m_context.style);
}

void MemberReader::Object(std::string_view name, platform::ObjectRecord& object,
                          const platform::ObjectRecord& plain) {
    const JsonValue none{m_json.at, JsonObject()};
    const JsonValue* const json = Take(name);
    const ModelPath path(m_path, name);
    MemberReader reader(json ? *json : none, path, m_context);
    DescribeObject(reader, object, plain);
    reader.Finish();
}

void MemberReader::Objects(std::string_view name, std::vector<platform::ObjectRecord>& objects,
                           const platform::ObjectRecord& plain) {
    objects.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    const JsonArray& array = ArrayOf(*json, path);
    objects.resize(array.size());
    for (std::size_t i = 0; i < array.size(); ++i) {
        const ModelPath place(path, i);
        MemberReader reader(array[i], place, m_context);
        DescribeObject(reader, objects[i], plain);
        reader.Finish();
    }
}

void MemberReader::Components(std::string_view name,
                              std::vector<platform::ObjectRecord>& components) {
    components.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    const JsonArray& array = ArrayOf(*json, path);
    components.resize(array.size());
    for (std::size_t i = 0; i < array.size(); ++i) {
        const ModelPath place(path, i);
        UniqueMetaObjectKey key;
        MemberReader(array[i], place, m_context).Value("object", key);
        MemberReader reader(array[i], place, m_context);
        DescribeComponent(reader, components[i], m_context.objects.Get(key));
        reader.Finish();
    }
}

void MemberReader::Uses(std::string_view name, platform::ObjectRecord& object,
                        const platform::ObjectRecord& like) {
    object.occurrences.clear();
    const JsonValue* const json = Take(name);
    if (!json)
        return;
    const ModelPath path(m_path, name);
    if (json->As<std::int64_t>()) {
        int count = 0;
        Decode(*json, path, count);
        if (count < 0)
            Refuse(json->at, path, "a count is expected");
        CheckUses(static_cast<std::size_t>(count), json->at, path);
        const JsonValue plain{json->at, JsonObject()};
        for (int i = 0; i < count; ++i)
            AddUses(plain, path, object, like);
        return;
    }
    const JsonArray* const array = json->As<JsonArray>();
    if (!array)
        Refuse(json->at, path, "a count or a list is expected");
    for (std::size_t i = 0; i < array->size(); ++i)
        AddUses((*array)[i], {path, i}, object, like);
}

void MemberReader::AddUses(const JsonValue& json, const ModelPath& path,
                           platform::ObjectRecord& object, const platform::ObjectRecord& like) {
    const std::size_t first = object.occurrences.size();
    MemberReader reader(json, path, m_context);
    int count = 0;
    reader.Value("count", count, 1);
    if (count < 1)
        Refuse(json.at, {path, "count"}, "a count of 1 or more is expected");
    CheckUses(static_cast<std::size_t>(count), json.at, path);
    m_context.usesLeft -= static_cast<std::size_t>(count);
    platform::OccurrenceRecord use;
    DescribeUse(reader, use, like, first);
    reader.Finish();
    if (count > 1 && FindMember(*json.As<JsonObject>(), "key"))
        Refuse(json.at, {path, "key"}, "uses that are counted have no key of their own");
    object.occurrences.push_back(use);
    for (int i = 1; i < count; ++i) {
        use.key = UniqueMetaObjectKey(UseKey(like, object.occurrences.size()));
        object.occurrences.push_back(use);
    }
}

void MemberReader::CheckUses(std::size_t count, TextPosition at, const ModelPath& path) {
    if (count > m_context.usesLeft)
        Refuse(at, path,
               "more than " + std::to_string(m_context.mostUses) + " uses in one product" +
                   (m_context.mostUses < c_mostUses ? " have no room in memory" : ""));
}

void MemberReader::UseProperties(const std::vector<platform::PropertyRecord>& properties) {
    m_context.names = PropertyNames(properties);
}

} // namespace desktop::store

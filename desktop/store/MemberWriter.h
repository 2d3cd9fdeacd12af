// The writing half of the product file: puts the fields of a record into a JSON object, except
// those that have the value which reading gives to a member left out. ProductFormat.h says which
// members there are.
#pragma once

#include "desktop/store/JsonDocument.h"
#include "desktop/store/ProductFormat.h"

#include <filesystem>
#include <set>
#include <span>

namespace desktop::store {

/// What is known when objects are written.
struct WriteContext {
    /// Where the file is to stand; empty for a text of no file.
    std::filesystem::path folder;
    ObjectsByKey objects;
    PropertyNames names;
    const std::optional<platform::StyleRecord>* style = nullptr;
};

using JsonData = decltype(JsonValue::data);

JsonData Encode(bool value);
JsonData Encode(std::int32_t value);
JsonData Encode(double value);
JsonData Encode(wchar_t value);
JsonData Encode(const std::string& value);
JsonData Encode(const std::wstring& value);
JsonData Encode(const SharedText& value);
JsonData Encode(const UniqueMetaObjectKey& value);
JsonData Encode(const std::optional<bool>& value);
JsonData Encode(const std::optional<double>& value);
JsonData Encode(const std::vector<int>& value);
JsonData Encode(const std::set<int>& value);
JsonData Encode(const std::vector<UniqueMetaObjectKey>& value);
JsonData Encode(const meta_data::SPUsed& value);
JsonData Encode(const VariantMarking& value);

class MemberWriter final {
public:
    static constexpr bool c_isReading = false;

    /// For objects without properties, sections and objects in them.
    MemberWriter() = default;
    /// The context must outlive the writer.
    explicit MemberWriter(WriteContext& context) : m_context(&context) {}

    template <class T>
    void Value(std::string_view name, const T& value, const T& plain = T()) {
        if (!(value == plain))
            Put(name, Encode(value));
    }

    template <class T>
    void Word(std::string_view name, T value, std::span<const std::string_view> words, T plain) {
        if (value != plain)
            Put(name, std::string(words[static_cast<std::size_t>(value)]));
    }

    template <class T>
    void Records(std::string_view name, const std::vector<T>& records) {
        JsonArray array;
        for (const T& record : records)
            array.push_back(Written(record));
        if (!array.empty())
            Put(name, std::move(array));
    }

    template <class T>
    void Record(std::string_view name, const std::optional<T>& record) {
        if (record)
            Put(name, Written(*record).data);
    }

    void Format(std::string_view name, std::string_view format) { Put(name, std::string(format)); }
    void Path(std::string_view name, const std::string& path);
    void Contents(std::string_view name, const platform::ContentsMark& contents);
    /// Keeps the place for a member that is written later.
    void Place(std::string_view name) { Put(name, std::monostate()); }
    void Property(std::string_view name, unsigned long number);
    void NamedProperty(std::string_view name, unsigned long number);
    void Properties(std::string_view name, std::span<const unsigned long> numbers);
    void Properties(std::string_view name, const std::set<unsigned long>& numbers);
    void Values(std::string_view name, const platform::PropertyValues& values);
    void Links(std::string_view name, const std::vector<platform::LinkRecord>& links);
    void Literals(std::string_view name, const std::vector<SimplePropVal>& values, ValueType type);
    void Section(std::string_view name, const SPCSection& section);
    void Object(std::string_view name, const platform::ObjectRecord& object,
                const platform::ObjectRecord& plain);
    void Objects(std::string_view name, const std::vector<platform::ObjectRecord>& objects,
                 const platform::ObjectRecord& plain);
    void Uses(std::string_view name, const platform::ObjectRecord& object,
              const platform::ObjectRecord& like);
    void Components(std::string_view name, const std::vector<platform::ObjectRecord>& components);
    void UseObjects(const platform::ProductModel& model) { m_context->objects.Use(model); }
    void UseProperties(const std::vector<platform::PropertyRecord>& properties);
    void UseStyle(const std::optional<platform::StyleRecord>& style) { m_context->style = &style; }

    /// Takes the place that was kept for the member, else the next.
    void Put(std::string_view name, JsonData data);
    JsonValue TakeJson() { return {{}, std::move(m_object)}; }

private:
    template <class T>
    JsonValue Written(const T& record) {
        MemberWriter writer(*m_context);
        Describe(writer, record);
        return writer.TakeJson();
    }

    WriteContext* m_context = nullptr;
    JsonObject m_object;
};

} // namespace desktop::store

// The reading half of the product file: takes members from a JSON object into the fields of a
// record, says what is wrong with a member and where it stands, and refuses members that nobody
// took. ProductFormat.h says which members there are.
#pragma once

#include "desktop/store/JsonDocument.h"
#include "desktop/store/ProductFormat.h"
#include "platform/product/validation/ModelPath.h"

#include <filesystem>
#include <set>
#include <span>

namespace desktop::store {

using platform::ModelPath;

/// Thrown within the reader only; ParseProduct makes the error of it.
struct ReadFault {
    TextPosition at;
    std::string reason;
};

[[noreturn]] void Refuse(TextPosition at, const ModelPath& path, std::string_view reason);

inline constexpr std::size_t c_mostUses = 10'000'000;
/// That, or fewer where memory has no room for so many.
std::size_t MostUses();

/// What is known when objects are read.
struct ReadContext {
    /// Where the file stands; empty for a text of no file.
    std::filesystem::path folder;
    ObjectsByKey objects;
    PropertyNames names;
    std::optional<platform::StyleRecord> style;
    /// Uses that a product may have, and that may still come. A file of a few bytes could ask for
    /// more than memory holds.
    std::size_t mostUses = MostUses();
    std::size_t usesLeft = mostUses;
};

void Decode(const JsonValue& json, const ModelPath& path, bool& value);
void Decode(const JsonValue& json, const ModelPath& path, std::int32_t& value);
void Decode(const JsonValue& json, const ModelPath& path, double& value);
void Decode(const JsonValue& json, const ModelPath& path, wchar_t& value);
void Decode(const JsonValue& json, const ModelPath& path, std::string& value);
void Decode(const JsonValue& json, const ModelPath& path, std::wstring& value);
void Decode(const JsonValue& json, const ModelPath& path, SharedText& value);
void Decode(const JsonValue& json, const ModelPath& path, UniqueMetaObjectKey& value);
void Decode(const JsonValue& json, const ModelPath& path, std::optional<bool>& value);
void Decode(const JsonValue& json, const ModelPath& path, std::optional<double>& value);
void Decode(const JsonValue& json, const ModelPath& path, std::vector<int>& value);
void Decode(const JsonValue& json, const ModelPath& path, std::set<int>& value);
void Decode(const JsonValue& json, const ModelPath& path, std::vector<UniqueMetaObjectKey>& value);
void Decode(const JsonValue& json, const ModelPath& path, meta_data::SPUsed& value);
void Decode(const JsonValue& json, const ModelPath& path, VariantMarking& value);

const JsonObject& ObjectOf(const JsonValue& json, const ModelPath& path);
const JsonArray& ArrayOf(const JsonValue& json, const ModelPath& path);
/// The place of the text among the words.
std::size_t WordOf(const JsonValue& json, const ModelPath& path,
                   std::span<const std::string_view> words);

class MemberReader final {
public:
    static constexpr bool c_isReading = true;

    /// All three must outlive the reader.
    MemberReader(const JsonValue& json, const ModelPath& path, ReadContext& context);

    template <class T>
    void Value(std::string_view name, T& value, const T& plain = T()) {
        value = plain;
        if (const JsonValue* const json = Take(name))
            Decode(*json, {m_path, name}, value);
    }

    template <class T>
    void Word(std::string_view name, T& value, std::span<const std::string_view> words, T plain) {
        const JsonValue* const json = Take(name);
        value = json ? static_cast<T>(WordOf(*json, {m_path, name}, words)) : plain;
    }

    template <class T>
    void Records(std::string_view name, std::vector<T>& records) {
        records.clear();
        const JsonValue* const json = Take(name);
        if (!json)
            return;
        const ModelPath path(m_path, name);
        const JsonArray& array = ArrayOf(*json, path);
        records.resize(array.size());
        for (std::size_t i = 0; i < array.size(); ++i) {
            const ModelPath place(path, i);
            MemberReader reader(array[i], place, m_context);
            Describe(reader, records[i]);
            reader.Finish();
        }
    }

    template <class T>
    void Record(std::string_view name, std::optional<T>& record) {
        record.reset();
        const JsonValue* const json = Take(name);
        if (!json)
            return;
        const ModelPath path(m_path, name);
        MemberReader reader(*json, path, m_context);
        Describe(reader, record.emplace());
        reader.Finish();
    }

    void Format(std::string_view name, std::string_view format);
    /// The path of a file, which may stand as seen from the product file.
    void Path(std::string_view name, std::string& path);
    void Contents(std::string_view name, platform::ContentsMark& contents);
    /// Where a member stands that is read later.
    void Place(std::string_view) {}
    void Property(std::string_view name, unsigned long& number);
    /// As Property, or by its name.
    void NamedProperty(std::string_view name, unsigned long& number);
    void Properties(std::string_view name, std::vector<unsigned long>& numbers);
    void Properties(std::string_view name, std::set<unsigned long>& numbers);
    void Values(std::string_view name, platform::PropertyValues& values);
    void Links(std::string_view name, std::vector<platform::LinkRecord>& links);
    void Literals(std::string_view name, std::vector<SimplePropVal>& values, ValueType type);
    void Section(std::string_view name, SPCSection& section);
    void Object(std::string_view name, platform::ObjectRecord& object,
                const platform::ObjectRecord& plain);
    void Objects(std::string_view name, std::vector<platform::ObjectRecord>& objects,
                 const platform::ObjectRecord& plain);
    /// What a use does not say it has as `like`.
    void Uses(std::string_view name, platform::ObjectRecord& object,
              const platform::ObjectRecord& like);
    void Components(std::string_view name, std::vector<platform::ObjectRecord>& components);
    void UseObjects(const platform::ProductModel& model) { m_context.objects.Use(model); }
    void UseProperties(const std::vector<platform::PropertyRecord>& properties);
    void UseStyle(const std::optional<platform::StyleRecord>& style) { m_context.style = style; }

    /// Null when the member is left out.
    const JsonValue* Take(std::string_view name);
    /// Refuses what has not been taken.
    void Finish() const;

private:
    template <class Add>
    void ReadProperties(std::string_view name, const Add& add);
    void AddUses(const JsonValue& json, const ModelPath& path, platform::ObjectRecord& object,
                 const platform::ObjectRecord& like);
    void CheckUses(std::size_t count, TextPosition at, const ModelPath& path);

    const JsonValue& m_json;
    const JsonObject& m_object;
    const ModelPath& m_path;
    ReadContext& m_context;
    std::vector<bool> m_isTaken;
};

} // namespace desktop::store

#include "bench/GeneratedProduct.h"

#include "host/ProductProperties.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace bench {

namespace {

using platform::ObjectRecord;
using platform::OccurrenceRecord;
using platform::ProductModel;

constexpr std::size_t c_sections = 40;

constexpr unsigned long c_coating = 1000;
constexpr unsigned long c_spareMass = 1001;
constexpr unsigned long c_isPurchased = 1002;
constexpr unsigned long c_finish = 1003;

constexpr std::array c_names = std::to_array<const wchar_t*>(
    {L"Cover plate", L"Bearing housing", L"Hexagon bolt M8x", L"Spacer ring", L"Drive shaft",
     L"Retaining plate", L"Gear wheel z", L"Mounting bracket", L"Pressure spring",
     L"Sealing ring 120x"});
constexpr std::array c_materials =
    std::to_array<const wchar_t*>({L"Steel C45 EN 10083-2", L"Aluminium EN AW-6082 T6",
                                   L"Cast iron EN-GJL-250", L"Polyamide PA 6-GF30"});
constexpr std::array c_formats = std::to_array<const wchar_t*>({L"A4", L"A3", L"A2", L"A1"});
constexpr std::array c_authors =
    std::to_array<const wchar_t*>({L"K. Lindqvist", L"M. Okafor", L"S. Haruki"});

constexpr std::array c_finishes =
    std::to_array<const wchar_t*>({L"Blank", L"Painted", L"Hot-dip galvanised"});

/// A generator of our own, since those of the standard library differ between machines where their
/// distributions do.
class Random {
public:
    std::size_t Next(std::size_t limit) {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::size_t>(m_state >> 33) % limit;
    }

private:
    std::uint64_t m_state = 20240229;
};

/// Texts that many objects have in common, shared as a reader of a file would.
struct CommonTexts {
    template <std::size_t size>
    static std::vector<SharedText> Share(const std::array<const wchar_t*, size>& texts) {
        return {texts.begin(), texts.end()};
    }

    std::vector<SharedText> materials = Share(c_materials);
    std::vector<SharedText> formats = Share(c_formats);
    std::vector<SharedText> authors = Share(c_authors);
    SharedText note = L"Deburr sharp edges, 0.5x45\u00B0";
    SharedText organization = L"Engineering works";
    SharedText comment = L"See the assembly drawing";
    SharedText location = L"Store 4, rack 12";
    SharedText coating = L"Zinc, 8 \u00B5m";
    std::vector<SharedText> finishes = Share(c_finishes);
};

int SectionNumber(std::size_t section) {
    return static_cast<int>(section + 1) * 5;
}

platform::StyleRecord MakeStyle() {
    platform::StyleRecord style;
    for (std::size_t i = 0; i < c_sections; ++i) {
        platform::StyleSectionRecord& section = style.sections.emplace_back();
        section.number = SectionNumber(i);
        section.name = L"Section " + std::to_wstring(section.number);
    }
    return style;
}

platform::PropertyRecord MakeProperty(unsigned long number, const wchar_t* caption, unsigned type) {
    platform::PropertyRecord property;
    property.number = number;
    property.caption = caption;
    property.type = type;
    return property;
}

/// The values of one group, from which its objects are made.
class GroupMaker {
public:
    GroupMaker(ProductModel& model, std::size_t group, Random& random, const CommonTexts& texts)
        : m_model(model), m_group(group) {
        const std::size_t kind = random.Next(c_names.size());
        m_name = c_names[kind] + std::to_wstring(10 + random.Next(190));
        m_designation = L"AB." + std::to_wstring(100 + group / 1000) + L"." +
                        std::to_wstring(10 + random.Next(90)) + L"." + std::to_wstring(group);
        m_section.numbers[0] = SectionNumber(group % c_sections);
        m_section.name = L"Section " + std::to_wstring(m_section.numbers[0]);
        MakeValues(random, texts);
    }

    void AddObject(std::size_t object, std::size_t uses) {
        ObjectRecord& record = m_model.objects.emplace_back();
        record.key = UniqueMetaObjectKey(std::string("o").append(std::to_string(object)));
        // Texts of its own: like objects of a real product come from different places.
        record.name = m_name;
        record.marking.SetBase(m_designation);
        record.section = m_section;
        record.iconType = 7;
        record.part.used = meta_data::SPUsed({1});
        record.properties = m_values;
        record.occurrences.reserve(uses);
        for (std::size_t i = 0; i < uses; ++i) {
            OccurrenceRecord& use = record.occurrences.emplace_back();
            use.key = UniqueMetaObjectKey(record.key.String() + '#' + std::to_string(i + 1));
            use.part.used = record.part.used;
        }
    }

private:
    void MakeValues(Random& random, const CommonTexts& texts) {
        const std::size_t material = random.Next(texts.materials.size());
        const double mass = static_cast<double>(1 + random.Next(100000)) / 1000.0;
        Add(L"format", SimplePropVal(texts.formats[random.Next(texts.formats.size())]));
        Add(L"zone", SimplePropVal(SharedText(L"B" + std::to_wstring(1 + random.Next(8)))));
        Add(L"position", SimplePropVal(static_cast<int>(1 + m_group)));
        Add(L"count", SimplePropVal(L"1"));
        Add(L"material", SimplePropVal(texts.materials[material]));
        Add(L"material.density", SimplePropVal(material == 0 ? 7850.0 : 2700.0));
        Add(L"mass", SimplePropVal(mass));
        if (random.Next(4) == 0)
            Add(L"note", SimplePropVal(texts.note));
        Add(L"author", SimplePropVal(texts.authors[random.Next(texts.authors.size())]));
        Add(L"organization", SimplePropVal(texts.organization));
        Add(L"sheetsNumber", SimplePropVal(static_cast<int>(1 + random.Next(3))));
        m_values.emplace_back(c_coating, PropValue(SimplePropVal(texts.coating)));
        m_values.emplace_back(c_spareMass, PropValue(SimplePropVal(mass / 2)));
        m_values.emplace_back(c_isPurchased, PropValue(SimplePropVal(random.Next(2) == 0)));
        m_values.emplace_back(
            c_finish, PropValue(SimplePropVal(texts.finishes[random.Next(texts.finishes.size())])));
        Add(L"zoneCount", SimplePropVal(static_cast<int>(1 + random.Next(4))));
        Add(L"productCode", SimplePropVal(SharedText(L"PC-" + std::to_wstring(m_group))));
        Add(L"comment", SimplePropVal(texts.comment));
        Add(L"location", SimplePropVal(texts.location));
    }

    void Add(const wchar_t* path, SimplePropVal value) {
        m_values.emplace_back(ProductProperties::GetPropId(path), PropValue(std::move(value)));
    }

    ProductModel& m_model;
    std::size_t m_group;
    std::wstring m_name;
    std::wstring m_designation;
    SPCSection m_section;
    std::vector<std::pair<unsigned long, PropValue>> m_values;
};

void SetColumns(ProductModel& model) {
    model.properties.push_back(MakeProperty(c_coating, L"Coating", 2));
    platform::PropertyRecord spareMass = MakeProperty(c_spareMass, L"Mass of spares", 1);
    spareMass.unitCode = L"g";
    spareMass.unitCoefficient = 1000;
    model.properties.push_back(spareMass);
    model.properties.push_back(MakeProperty(c_isPurchased, L"Purchased", 3));

    platform::PropertyRecord finish = MakeProperty(c_finish, L"Finish", 2);
    for (const wchar_t* const item : c_finishes)
        finish.list.emplace_back(item);
    model.properties.push_back(finish);

    for (const wchar_t* const path :
         {L"format", L"zone", L"note", L"author", L"organization", L"sheetsNumber", L"zoneCount",
          L"productCode", L"comment", L"location"})
        model.visibleProperties.push_back(ProductProperties::GetPropId(path));
    for (const unsigned long number : {c_coating, c_spareMass, c_isPurchased, c_finish})
        model.visibleProperties.push_back(number);
}

/// Neighbours in the document are not neighbours in the specification.
void Shuffle(std::vector<ObjectRecord>& objects, Random& random) {
    for (std::size_t i = objects.size(); i > 1; --i)
        std::swap(objects[i - 1], objects[random.Next(i)]);
}

} // namespace

ProductModel GenerateProduct(std::size_t occurrences, std::size_t perGroup) {
    ProductModel model;
    model.root.key = UniqueMetaObjectKey("root");
    model.root.name = L"Generated product";
    model.root.marking.SetBase(L"AB.000");
    model.isSimplified = true;
    model.style = MakeStyle();
    SetColumns(model);

    Random random;
    const CommonTexts texts;
    std::size_t made = 0;
    for (std::size_t group = 0; made < occurrences; ++group) {
        GroupMaker maker(model, group, random, texts);
        const std::size_t members = std::min(perGroup, occurrences - made);
        if (group % 2 == 0) {
            maker.AddObject(model.objects.size(), members);
        } else {
            for (std::size_t i = 0; i < members; ++i)
                maker.AddObject(model.objects.size(), 1);
        }
        made += members;
    }
    Shuffle(model.objects, random);
    return model;
}

} // namespace bench

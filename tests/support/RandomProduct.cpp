#include "tests/support/RandomProduct.h"

#include "host/ProductProperties.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace support {

namespace {

using platform::ObjectRecord;
using platform::OccurrenceRecord;
using platform::PartRecord;
using platform::ProductModel;

constexpr unsigned long c_mass = 10;
constexpr unsigned long c_material = 8;
constexpr unsigned long c_power = 1001;
constexpr unsigned long c_isPurchased = 1002;
constexpr unsigned long c_finish = 1003;
constexpr unsigned long c_sheets = 1004;

UniqueMetaObjectKey KeyOf(const char* stem, unsigned number) {
    return UniqueMetaObjectKey(stem + std::to_string(number));
}

class Dice {
public:
    Dice(unsigned seed, unsigned number) : m_random(seed * 1009 + number) {}

    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random()) % limit; }
    bool OneIn(unsigned times) { return Below(times) == 0; }
    template <class T, std::size_t size>
    T OneOf(const T (&items)[size]) {
        return items[Below(size)];
    }
    template <class Values, class Value>
    void Maybe(unsigned times, Values& values, const wchar_t* path, Value value) {
        if (OneIn(times))
            values.emplace_back(ProductProperties::GetPropId(path), PropValue(SimplePropVal(std::move(value))));
    }

private:
    std::mt19937 m_random;
};

constexpr const wchar_t* c_texts[] = {L"", L"a", L"b", L"See note"};

/// What objects have, and uses in place of it.
void FillValues(Dice& dice, platform::PropertyValues& values, unsigned times) {
    dice.Maybe(times, values, L"note", SharedText(dice.OneOf(c_texts)));
    dice.Maybe(times, values, L"comment", SharedText(dice.OneOf(c_texts)));
    dice.Maybe(times, values, L"specRoughSign", static_cast<int>(dice.Below(3)));
    dice.Maybe(times, values, L"specRoughValue", SharedText(L"Ra 3"));
    dice.Maybe(times, values, L"notSected", static_cast<int>(dice.Below(2)));
    dice.Maybe(times, values, L"user.1001", 0.25 * dice.Below(4));
    dice.Maybe(times, values, L"user.1002", dice.OneIn(2));
    dice.Maybe(times, values, L"user.1003", SharedText(dice.OneOf({L"Blank", L"Painted"})));
    dice.Maybe(times, values, L"user.1004", static_cast<int>(dice.Below(4)));
}

/// What only objects have.
void FillObjectValues(Dice& dice, platform::PropertyValues& values) {
    dice.Maybe(4, values, L"material", SharedText(dice.OneOf(c_texts)));
    dice.Maybe(4, values, L"material.density", 1000.0 + dice.Below(3));
    dice.Maybe(2, values, L"mass", 0.5 * dice.Below(4));
    dice.Maybe(2, values, L"position", static_cast<int>(dice.Below(9) + 1));
}

void FillPart(Dice& dice, PartRecord& part) {
    constexpr int kinds[] = {PartKindDetail, PartKindStandard, PartKindAssembly, PartKindOther, PartKindDocument};
    part.kind = dice.OneIn(3) ? dice.OneOf(kinds) : PartKindDetail;
    part.part.used = meta_data::SPUsed(dice.OneIn(9) ? std::vector<int>() : std::vector<int>{1});
    part.hasHandler = !dice.OneIn(12);
    part.part.attributes = {!dice.OneIn(9), dice.OneIn(6), dice.OneIn(15), dice.OneIn(15)};
    if (dice.OneIn(12))
        part.calculatedInProduct = dice.OneIn(2);
    part.isCountMark = dice.OneIn(15);
}

/// Links lead to objects before, so that none comes back.
void FillLinks(Dice& dice, PartRecord& part, unsigned number, bool isUse) {
    constexpr const wchar_t* paths[] = {L"note", L"comment", L"user.1001", L"user.1004", L"mass", L"material"};
    for (const wchar_t* const path : paths) {
        const unsigned long property = ProductProperties::GetPropId(path);
        const bool isObjects = property == c_mass || property == c_material;
        if (number > 0 && dice.OneIn(12) && !(isUse && isObjects))
            part.links.push_back({property, KeyOf("o", dice.Below(number)), property});
    }
}

void FillCounts(Dice& dice, const ProductModel& model, PartRecord& part) {
    constexpr const wchar_t* counts[] = {L"", L"2", L"x", L"3 m", L"1"};
    if (model.embodiments.empty() && dice.OneIn(8))
        part.counts.push_back({model.root.key, dice.OneOf(counts)});
    for (const platform::EmbodimentRecord& embodiment : model.embodiments) {
        if (dice.OneIn(8))
            part.counts.push_back({embodiment.key, dice.OneOf(counts)});
    }
}

void FillUses(Dice& dice, const ProductModel& model, ObjectRecord& object, unsigned number) {
    for (unsigned i = 1, uses = dice.OneIn(2) ? 1 : dice.Below(4); i <= uses; ++i) {
        OccurrenceRecord& use = object.occurrences.emplace_back();
        use.key = UniqueMetaObjectKey(object.key.String() + "#" + std::to_string(i));
        use.kind = object.kind;
        use.part = object.part;
        use.hasHandler = object.hasHandler;
        if (dice.OneIn(6))
            FillPart(dice, use);
        if (dice.OneIn(3))
            FillValues(dice, use.properties, 6);
        if (dice.OneIn(4))
            FillLinks(dice, use, number, true);
        if (dice.OneIn(4))
            FillCounts(dice, model, use);
        use.isShown = !dice.OneIn(12);
        for (const platform::EmbodimentRecord& embodiment : model.embodiments) {
            if (dice.OneIn(3))
                use.embodiments.push_back(embodiment.key);
        }
    }
}

ObjectRecord MakeObject(const ProductModel& model, unsigned seed, unsigned number) {
    Dice dice(seed, number + 1);
    ObjectRecord object;
    object.key = KeyOf("o", number);
    FillPart(dice, object);
    object.name = SharedText(dice.OneOf({L"Bolt", L"Case", L"Axle M8", L""}));
    object.marking.SetBase(SharedText(dice.OneOf({L"", L"AB.1", L"AB.2"})));
    if (dice.OneIn(4)) {
        object.marking.SetEmbodimentNumDelim(L'-');
        object.marking.SetEmbodimentNum(SharedText(L"01"));
    }
    object.section.numbers[0] = dice.OneOf({5, 20, 25, 25, 0});
    if (dice.OneIn(9))
        object.lockedMarkingParts = {1, 7};
    FillValues(dice, object.properties, 2);
    FillObjectValues(dice, object.properties);
    FillLinks(dice, object, number, false);
    FillCounts(dice, model, object);
    FillUses(dice, model, object, number);
    if (dice.OneIn(4))
        object.readOnlyProperties = {
            ProductProperties::GetPropId(dice.OneOf({L"note", L"mass", L"position", L"name"}))};
    if (dice.OneIn(4))
        object.volume = 0.001 * (1 + dice.Below(3));
    object.keepsOwnPosition = dice.OneIn(9);
    object.isNameLinkedToSection = dice.OneIn(12);
    object.iconType = static_cast<int>(dice.Below(27));
    object.isActual = !dice.OneIn(9);
    object.isExcludedFromCount = dice.OneIn(12);
    if (dice.OneIn(2))
        object.aggrIntoProduct = dice.OneIn(2);
    if (number > 0 && dice.OneIn(7)) {
        object.billet = dice.OneIn(2) ? platform::BilletKind::Manual : platform::BilletKind::Associative;
        object.billetOwner = KeyOf("o", dice.Below(number));
    }
    if (number > 0 && dice.OneIn(9))
        object.groupKey = KeyOf("o", dice.Below(number));
    if (number > 0 && dice.OneIn(9))
        object.parents = {KeyOf("o", dice.Below(number))};
    if (model.source && dice.OneIn(2))
        object.source = platform::SourceProduct{L"id", object.name, {}, {}};
    if (dice.OneIn(4))
        object.documents.emplace_back().file = "/plant/" + object.key.String() + ".pdf";
    return object;
}

platform::PropertyRecord Describe(unsigned long number, const wchar_t* caption, unsigned type) {
    platform::PropertyRecord record;
    record.number = number;
    record.caption = caption;
    record.type = type;
    return record;
}

void DescribeColumns(Dice& dice, ProductModel& model) {
    model.properties = {
        Describe(c_power, L"Power", value_type::Double), Describe(c_isPurchased, L"Purchased", value_type::Boolean),
        Describe(c_finish, L"Finish", value_type::String), Describe(c_sheets, L"Sheets", value_type::Integer)};
    model.properties[0].unitCode = L"kW";
    model.properties[0].unitCoefficient = 0.001;
    for (const wchar_t* const item : {L"Blank", L"Painted"})
        model.properties[2].list.emplace_back(SharedText(item));
    model.properties[3].max = 3;
    for (const wchar_t* const path : {L"position", L"count", L"note", L"comment", L"SPCSection", L"material", L"mass",
                                      L"material.density", L"format", L"specRoughSign", L"notSected", L"author",
                                      L"user.1001", L"user.1002", L"user.1003", L"user.1004"}) {
        if (!dice.OneIn(5))
            model.visibleProperties.push_back(ProductProperties::GetPropId(path));
    }
}

void MakeStyle(Dice& dice, ProductModel& model) {
    model.style.emplace();
    model.style->sortBySections = !dice.OneIn(5);
    for (const int number : {5, 20, 25}) {
        platform::StyleSectionRecord& section = model.style->sections.emplace_back();
        section.number = number;
        section.name = std::to_wstring(number);
        section.isTuned = !dice.OneIn(9);
    }
}

/// The first object becomes an assembly of the second and of one that stands nowhere else.
void MakeAssemblies(ProductModel& model) {
    model.assemblies.resize(2);
    model.level.assembly = model.root.key;
    model.assemblies[0].object = model.root.key;
    model.assemblies[1].object = model.objects[0].key;
    ObjectRecord& tube = model.objectsBelow.emplace_back();
    tube.key = UniqueMetaObjectKey("tube");
    tube.name = L"Tube";
    tube.section.numbers[0] = 20;
    tube.part.used = meta_data::SPUsed({1});
    tube.properties.emplace_back(c_mass, PropValue(SimplePropVal(2.0)));
    for (const ObjectRecord& part : {model.objects[1], tube}) {
        ObjectRecord& component = model.assemblies[1].components.emplace_back();
        component.key = part.key;
        OccurrenceRecord& use = component.occurrences.emplace_back();
        use.key = UniqueMetaObjectKey(part.key.String() + "/1");
        use.part.used = meta_data::SPUsed({1});
    }
    model.objects[0].kind = PartKindAssembly;
    model.objects[0].sumsPartMasses = true;
}

} // namespace

ProductModel MakeRandomProduct(unsigned seed, unsigned objectCount) {
    Dice dice(seed, 0);
    ProductModel model;
    model.root.key = UniqueMetaObjectKey("root");
    model.root.name = L"Gearbox";
    model.root.marking.SetBase(SharedText(L"AB.0"));
    model.root.sumsPartMasses = dice.OneIn(2);
    DescribeColumns(dice, model);
    for (unsigned i = 0, count = dice.OneOf({0U, 0U, 2U, 12U}); i < count; ++i) {
        platform::EmbodimentRecord& embodiment = model.embodiments.emplace_back();
        embodiment.key = KeyOf("e", i);
        embodiment.marking = model.root.marking;
        embodiment.marking.SetEmbodimentNumDelim(L'-');
        embodiment.marking.SetEmbodimentNum(SharedText(std::to_wstring(i)));
    }
    model.embodimentMode = !model.embodiments.empty() && dice.OneIn(2);
    if (!model.embodiments.empty() && dice.OneIn(3))
        model.currentEmbodiments = {KeyOf("e", 1)};
    model.areSectionRowsShown = !dice.OneIn(3);
    model.usesSectionIcons = dice.OneIn(2);
    model.isAggrIntoProductShown = dice.OneIn(2);
    model.isRegWithDescShown = dice.OneIn(2);
    model.isSimplified = dice.OneIn(2);
    if (dice.OneIn(2))
        MakeStyle(dice, model);
    if (dice.OneIn(3))
        model.source = platform::SourceFile{"/plant/gearbox.stp", {1, 1}, {}, {}};
    for (unsigned i = 0; i < objectCount; ++i)
        model.objects.push_back(MakeObject(model, seed, i));
    if (objectCount > 1 && model.embodiments.empty() && dice.OneIn(2))
        MakeAssemblies(model);
    return model;
}

} // namespace support

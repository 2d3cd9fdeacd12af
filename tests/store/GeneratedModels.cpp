#include "tests/store/GeneratedModels.h"

#include "host/ProductProperties.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>
#include <rapidcheck.h>

namespace desktop::store {

namespace {

using namespace platform;

int Number(int end) { return *rc::gen::inRange(0, end); }
bool Flag() { return *rc::gen::arbitrary<bool>(); }

/// Letters of one to four bytes, quotes, escapes and control characters.
std::wstring Text() {
    return *rc::gen::container<std::wstring>(
        rc::gen::element<wchar_t>(L'a', L'B', L'7', L' ', L'"', L'\\', L'/', L'\n', L'\x01', L'\x7F', L'\x00E4',
                                  L'\x0416', L'\xFFFD', wchar_t{0x1F600}, wchar_t{0x10FFFF}, L'\0'));
}

UniqueMetaObjectKey Key(const std::string& stem, std::size_t index) {
    return UniqueMetaObjectKey(stem + std::to_string(index));
}

/// Some of the keys from stem0 to the one before stem-`count`, each at most once.
std::vector<UniqueMetaObjectKey> Keys(const std::string& stem, std::size_t count) {
    std::vector<UniqueMetaObjectKey> keys;
    for (std::size_t i = 0; i < count; ++i)
        if (Number(4) == 0)
            keys.push_back(Key(stem, i));
    return keys;
}

VariantMarking Marking() {
    VariantMarking marking;
    marking.SetBase(Text());
    if (Flag())
        return marking;
    marking.SetEmbodimentNumDelim(*rc::gen::element(L'-', L'\x00E4', L'\0'));
    marking.SetEmbodimentNum(Text());
    marking.SetAdditionalNumDelim(*rc::gen::element(L'.', L'\0'));
    marking.SetAdditionalNum(Text());
    marking.SetCodeDelim(*rc::gen::element(L' ', L'\0'));
    marking.SetCode(Text());
    return marking;
}

double Real() { return *rc::gen::element(0.0, -0.0, 1.0, 0.1, -2.5e-300, 1e22, 123456789.0, 1e308); }

SimplePropVal Simple() {
    switch (Number(6)) {
    case 0:
        return {};
    case 1:
        return SimplePropVal(SharedText(Text()));
    case 2:
        return SimplePropVal(Flag());
    case 3:
        return SimplePropVal(*rc::gen::arbitrary<int>());
    case 4:
        return SimplePropVal(Real());
    default:
        return SimplePropVal(DateTime{*rc::gen::inRange<std::int64_t>(-62135596800, 253402300800)});
    }
}

PropValue::Tree Branch(int depth) {
    PropValue::Tree tree(Text());
    for (int i = Number(depth); i > 0; --i)
        tree.push_back({Text(), Branch(depth - 1)});
    return tree;
}

PropValue Value() {
    const SharedText format = Flag() ? SharedText() : SharedText(Text());
    if (Number(5) == 0)
        return PropValue(std::make_shared<PropValue::Tree>(Branch(4)), format);
    return PropValue(Simple(), format);
}

void FillPart(PartRecord& part, const PartRecord& plain, std::size_t objectCount) {
    part.kind = Flag() ? plain.kind : Number(9);
    part.part = plain.part;
    if (Flag())
        return;
    part.isPhantom = Flag();
    part.hasHandler = Flag();
    part.part.attributes = {Flag(), Flag(), Flag(), Flag()};
    part.part.used = meta_data::SPUsed(Flag() ? std::vector<int>() : std::vector<int>{1, 7});
    if (Flag())
        part.calculatedInProduct = Flag();
    if (Flag())
        part.groupKey = Key("o", static_cast<std::size_t>(Number(static_cast<int>(objectCount))));
    part.isCountMark = Flag();
}

void FillCounts(PartRecord& part, std::size_t embodimentCount) {
    for (std::size_t i = 0; i < embodimentCount; ++i) {
        if (Number(4) == 0)
            part.counts.push_back({Key("e", i), Text()});
    }
}

void FillSection(SPCSection& section) {
    for (std::int32_t& number : section.numbers)
        number = *rc::gen::element(0, 0, 0, 5, 20, 35);
    section.name = *rc::gen::element<std::wstring>(L"", L"Parts", L"Documentation", L"x");
}

/// The properties that a generated product knows.
constexpr unsigned long c_properties[] = {10, 8, 11, 46, 1000, 1001, 1002};

/// Those of them that an occurrence can have in place of its object.
constexpr unsigned long c_useProperties[] = {11, 46, 1000, 1001, 1002};

/// Links lead to objects behind `after`, so that none comes back, or to nothing.
void FillLinks(PartRecord& part, std::size_t after) {
    for (const unsigned long number : c_useProperties)
        if (Number(6) == 0)
            part.links.push_back(
                {number, Key("o", after + 1 + static_cast<std::size_t>(Number(9))), c_properties[Number(7)]});
}

SourceProduct Source() {
    SourceProduct product{Text(), Text(), Text(), {}};
    if (Flag())
        product.id = product.name;
    if (Flag())
        product.density = Real();
    return product;
}

SourceFile File() {
    SourceFile file{"/parts/\xC3\xA4 \"1\".stp",
                    {*rc::gen::arbitrary<std::uint64_t>(), *rc::gen::arbitrary<std::uint64_t>()},
                    Flag() ? "" : "GBK",
                    {}};
    for (int i = Number(3); i > 0; --i)
        file.deletedUses.push_back({Key("o", 0), Key("o", 1), Key("use", 1), Text(), Text()});
    return file;
}

std::vector<DocumentRecord> Documents() {
    std::vector<DocumentRecord> documents;
    for (int i = Number(3); i > 0; --i) {
        DocumentRecord& document = documents.emplace_back();
        document.file = "/parts/\xC3\xA4 \"" + std::to_string(i) + ".pdf";
        document.marking = Marking();
        document.name = Text();
        document.format = Text();
        document.comment = Text();
        document.formatUsed = i == 1 && Flag();
        document.isSource = i == 2 && Flag();
        document.sourceLocked = Flag();
    }
    return documents;
}

void FillObject(ObjectRecord& object, const ProductModel& model, std::size_t count) {
    object.name = Text();
    object.marking = Marking();
    object.iconType = Number(27);
    object.isActual = Flag();
    object.isExcludedFromCount = Flag();
    if (Flag())
        object.aggrIntoProduct = Flag();
    for (int part = 1; part <= 7; ++part)
        if (Number(7) == 0)
            object.lockedMarkingParts.insert(part);
    FillSection(object.section);
    for (const unsigned long number : c_properties)
        if (Number(3) == 0)
            object.properties.emplace_back(number, Value());
    for (const unsigned long number : c_properties)
        if (Number(6) == 0)
            object.readOnlyProperties.insert(number);
    if (Flag())
        object.volume = 1e-7;
    object.keepsOwnPosition = Flag();
    object.isNameLinkedToSection = Flag();
    if (Flag())
        object.source = Source();
    object.documents = Documents();
    PartRecord plain;
    plain.part.used = meta_data::SPUsed({model.styleId});
    FillPart(object, plain, count);
    FillCounts(object, model.embodiments.size());
}

void FillUses(ObjectRecord& object, std::size_t objectCount, std::size_t embodimentCount) {
    const int count = Number(5);
    for (int i = 0; i < count; ++i) {
        OccurrenceRecord use;
        const bool isRepeated = i > 0 && Flag();
        if (isRepeated)
            use = object.occurrences.back();
        else
            FillPart(use, object, objectCount);
        if (!isRepeated) {
            use.embodiments = Keys("e", embodimentCount);
            use.isShown = Flag();
            for (const unsigned long number : c_useProperties)
                if (Number(5) == 0)
                    use.properties.emplace_back(number, Value());
            FillLinks(use, objectCount);
            FillCounts(use, embodimentCount);
        }
        const char* const mark = Number(4) == 0 ? "/" : "#";
        use.key = Key(object.key.String() + mark, static_cast<std::size_t>(i) + 1);
        object.occurrences.push_back(use);
    }
}

PropertyRecord Definition(unsigned long number) {
    PropertyRecord record;
    record.number = number;
    record.caption = *rc::gen::element<std::wstring>(L"", L"Colour", L"Power", L"mass", L"user.1001");
    record.type = static_cast<unsigned>(Number(4));
    record.min = -Real();
    record.max = std::max(record.min, Real());
    for (int i = Number(3); i > 0; --i)
        record.list.push_back(Simple());
    record.unitCoefficient = Flag() ? 0 : 0.001;
    record.unitCode = Text();
    record.isVariable = Flag();
    record.isReadOnly = Flag();
    return record;
}

std::vector<StyleBlockRecord> Blocks(const StyleRecord& style) {
    std::vector<StyleBlockRecord> blocks;
    for (int i = 1; i <= Number(3); ++i) {
        StyleBlockRecord& block = blocks.emplace_back();
        block.number = i;
        block.name = Text();
        block.isUsed = Flag();
        for (const StyleSectionRecord& section : style.sections)
            if (Flag())
                block.sections.push_back(section.number);
    }
    return blocks;
}

StyleRecord Style() {
    StyleRecord style;
    style.isAvailable = Flag();
    style.isTuned = Flag();
    style.sortBySections = Flag();
    style.addBlocks = Flag();
    for (const int number : {5, 20, 35})
        if (Flag())
            style.sections.emplace_back().number = number;
    for (StyleSectionRecord& section : style.sections) {
        section.name = *rc::gen::element<std::wstring>(L"", L"Parts", L"x");
        section.addBlocks = Flag();
        section.isTuned = Flag();
        if (Flag())
            section.isNumbered = Flag();
        section.blocks = Blocks(style);
    }
    style.blocks = Blocks(style);
    return style;
}

} // namespace

ProductModel GenerateModel() {
    ProductModel model;
    const auto objectCount = 1 + static_cast<std::size_t>(Number(5));
    const auto embodimentCount = static_cast<std::size_t>(Number(4));
    model.styleId = 1 + Number(3);
    if (Flag())
        model.source = File();
    model.isReadOnly = Flag();
    model.areSectionRowsShown = Flag();
    model.usesSectionIcons = Flag();
    model.isAggrIntoProductShown = Flag();
    model.isRegWithDescShown = Flag();
    model.isSimplified = Flag();
    model.embodimentMode = Flag();
    model.columnSetKey = Flag() ? "product" : "\"other\"";
    for (const unsigned long number : {10UL, 1000UL, 1001UL, 1002UL})
        if (number >= 1000 || Flag())
            model.properties.push_back(Definition(number));
    for (const unsigned long number : c_properties)
        if (Flag())
            model.visibleProperties.push_back(number);
    if (Flag())
        model.style = Style();
    for (std::size_t i = 0; i < embodimentCount; ++i)
        model.embodiments.push_back({Key("e", i), Marking()});
    model.currentEmbodiments = Keys("e", embodimentCount);
    if (embodimentCount > 0 && Flag())
        model.activeEmbodiment = Key("e", 0);
    model.root.key = UniqueMetaObjectKey(std::string(Flag() ? "product" : "r\"\xC3\xA4\n"));
    FillObject(model.root, model, objectCount);
    model.root.sumsPartMasses = Flag();
    for (std::size_t i = 0; i < objectCount; ++i) {
        ObjectRecord& object = model.objects.emplace_back();
        object.key = Key("o", i);
        FillObject(object, model, objectCount);
        FillLinks(object, i);
        FillUses(object, objectCount, embodimentCount);
        object.parents = Keys("o", i);
        object.owners = Keys("o", i);
        if (i > 0 && Flag()) {
            object.billet = Flag() ? BilletKind::Manual : BilletKind::Associative;
            object.billetOwner = Key("o", i - 1);
        }
    }
    return model;
}

} // namespace desktop::store

#include "desktop/store/ProductFile.h"
#include "host/ProductProperties.h"
#include "platform/product/validation/ProductValidation.h"
#include "tests/support/RandomProduct.h"
#include "tests/support/TestFolder.h"

#include <algorithm>
#include <boost/property_tree/ptree.hpp>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>

namespace desktop::store {

namespace {

using platform::ObjectRecord;
using platform::ProductModel;

ProductModel Read(std::string_view json) {
    ReadResult result = ParseProduct(json);
    if (const FileError* const error = std::get_if<FileError>(&result)) {
        ADD_FAILURE() << error->reason << "\n" << json;
        return {};
    }
    return std::get<ProductModel>(std::move(result));
}

/// A product with the members, behind the format.
ProductModel ReadMembers(const std::string& members) {
    return Read("{\"format\": \"product-tree 1\", " + members + "}");
}

PropValue ValueOf(const ObjectRecord& object, unsigned long number) {
    for (const auto& [held, value] : object.properties)
        if (held == number)
            return value;
    return {};
}

/// A random product with what no row depends on: odd texts, and every member away from its usual value.
class OddProduct {
public:
    explicit OddProduct(unsigned seed) : m_random(seed), m_model(support::MakeRandomProduct(seed, 4)) {
        m_model.styleId = 1 + static_cast<int>(seed % 3);
        m_model.isReadOnly = Flag();
        m_model.columnSetKey = Flag() ? "product" : "\"other\"";
        if (!m_model.embodiments.empty() && Flag())
            m_model.activeEmbodiment = m_model.embodiments[0].key;
        if (m_model.source)
            FillSource(*m_model.source);
        for (platform::PropertyRecord& property : m_model.properties) {
            property.min = -1e308;
            property.isVariable = Flag();
            property.isReadOnly = Flag();
            property.unitCode = Text();
        }
        if (m_model.style)
            FillStyle(*m_model.style);
        Fill(m_model.root);
        for (ObjectRecord& object : m_model.objects) {
            Fill(object);
            object.owners = object.parents;
            for (platform::OccurrenceRecord& use : object.occurrences)
                FillUse(use);
        }
    }
    const ProductModel& Get() const { return m_model; }

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random()) % limit; }
    bool Flag() { return Below(2) == 0; }
    /// Letters of one to four bytes, quotes, escapes and control characters.
    std::wstring Text() {
        constexpr wchar_t letters[] = L"aB7 \"\\/\n\x01\x7F\x00E4\x0416\xFFFD\x1F600\x10FFFF";
        std::wstring text(Below(5), L' ');
        for (wchar_t& letter : text)
            letter = letters[Below(std::size(letters))];
        return text;
    }
    PropValue Value() {
        const SharedText format = Flag() ? SharedText() : SharedText(Text());
        PropValue::Tree tree(Text());
        tree.push_back({Text(), PropValue::Tree(Text())});
        constexpr double reals[] = {0.0, -0.0, 0.1, -2.5e-300, 1e22, 1e308};
        const PropValue values[] = {PropValue(SimplePropVal(), format),
                                    PropValue(SimplePropVal(SharedText(Text())), format),
                                    PropValue(SimplePropVal(Flag()), format),
                                    PropValue(SimplePropVal(static_cast<int>(m_random())), format),
                                    PropValue(SimplePropVal(reals[Below(6)]), format),
                                    PropValue(SimplePropVal(DateTime{-62135596800 + Below(4'000'000'000)}), format),
                                    PropValue(std::make_shared<PropValue::Tree>(tree), format)};
        return values[Below(std::size(values))];
    }
    void FillSource(platform::SourceFile& file) {
        file.path = "/parts/\xC3\xA4 \"1\".stp";
        file.contents = {m_random(), m_random()};
        file.encoding = Flag() ? "" : "GBK";
        const UniqueMetaObjectKey key("gone");
        file.deletedUses.push_back({key, key, key, Text(), Text()});
    }
    void FillStyle(platform::StyleRecord& style) {
        style.isAvailable = Flag();
        style.isTuned = Flag();
        style.addBlocks = Flag();
        style.blocks = {{1, Text(), Flag(), {5, 25}}};
        style.sections[0].addBlocks = Flag();
        style.sections[0].blocks = {{1, Text(), Flag(), {20}}, {2, Text(), Flag(), {}}};
        style.sections[1].isNumbered = Flag();
    }
    void FillPart(platform::PartRecord& part) {
        part.isPhantom = Flag();
        part.isCountMark = Flag();
        part.part.attributes = {Flag(), Flag(), Flag(), Flag()};
        if (Flag())
            part.part.used = meta_data::SPUsed({1, 7});
    }
    void Fill(ObjectRecord& object) {
        object.name = Text();
        object.marking = {};
        object.marking.SetBase(Text());
        if (Flag()) {
            object.marking.SetEmbodimentNumDelim(L'\x00E4');
            object.marking.SetEmbodimentNum(Text());
            object.marking.SetAdditionalNumDelim(L'.');
            object.marking.SetAdditionalNum(Text());
            object.marking.SetCodeDelim(L' ');
            object.marking.SetCode(Text());
        }
        object.section = {{20, 0, 5, 0, 0, Flag() ? 1 : 0}, Text()};
        for (auto& [number, value] : object.properties)
            value = Value();
        if (Flag())
            object.source = platform::SourceProduct{Text(), Text(), Text(), 1e22};
        if (Flag())
            object.documents = {{"/parts/\xC3\xA4 \".pdf", Text(), object.marking, Text(), Text(), Flag()},
                                {"/parts/b.pdf", Text(), {}, Text(), Text(), false, Flag(), Flag()}};
        FillPart(object);
    }
    void FillUse(platform::OccurrenceRecord& use) {
        FillPart(use);
        if (Flag())
            use.key = UniqueMetaObjectKey(use.key.String() + "/odd");
        if (Flag())
            use.groupKey = m_model.objects[0].key;
        for (auto& [number, value] : use.properties)
            value = Value();
    }

    std::mt19937_64 m_random;
    ProductModel m_model;
};

TEST(ProductFile, GivesEveryProductBackAsItWas) {
    for (unsigned seed = 1; seed <= 300; ++seed) {
        const ProductModel model = OddProduct(seed).Get();
        const std::optional<platform::ModelFault> fault = platform::ValidateModel(model);
        ASSERT_FALSE(fault) << seed << " " << fault->path << ": " << fault->reason;
        const std::string text = FormatProduct(model);
        ASSERT_EQ(Read(text), model) << text;
        ASSERT_EQ(FormatProduct(Read(text)), text) << seed;
    }
}

TEST(ProductFile, NamesASourceBesideOrBelowAsSeenFromItself) {
    const std::filesystem::path folder = support::GetTestFolder();
    std::filesystem::create_directories(folder / "moved");
    ProductModel model = ReadMembers("\"product\": {}");
    const std::pair<std::string, std::string> cases[] = {
        {folder / "a.stp", folder / "moved/a.stp"},
        {folder / "parts/a.stp", folder / "moved/parts/a.stp"},
        {"/elsewhere/a.stp", "/elsewhere/a.stp"},
        {folder.string() + "-2/a.stp", folder.string() + "-2/a.stp"},
    };
    for (const auto& [path, moved] : cases) {
        model.source = platform::SourceFile{path, {1, 2}, {}, {}};
        ASSERT_FALSE(WriteProductFile(folder / "a.json", model));
        EXPECT_EQ(std::get<ProductModel>(ReadProductFile(folder / "a.json")), model) << path;
        std::filesystem::rename(folder / "a.json", folder / "moved/a.json");
        EXPECT_EQ(std::get<ProductModel>(ReadProductFile(folder / "moved/a.json")).source->path, moved);
    }
    std::filesystem::remove_all(folder);
}

// A folder that is moved as a whole keeps its documents; a product that is saved elsewhere still has those
// that it had.
TEST(ProductFile, KeepsDocumentsWhereverItGoes) {
    const std::filesystem::path folder = support::GetTestFolder();
    std::filesystem::create_directories(folder / "a");
    std::filesystem::create_directories(folder / "b");
    const auto files = [](const ReadResult& read) {
        std::vector<std::string> names;
        for (const platform::DocumentRecord& document : std::get<ProductModel>(read).objects.at(0).documents)
            names.push_back(document.file);
        return names;
    };
    ProductModel model = ReadMembers(R"("objects": [{"key": "o"}])");
    for (const char* const name : {"a/1.pdf", "a/d/2.pdf", "3.pdf"})
        model.objects[0].documents.push_back({(folder / name).native(), {}, {}, {}, {}});
    const std::vector<std::string> before = files(model);
    EXPECT_FALSE(WriteProductFile(folder / "a" / "p.json", model));
    EXPECT_FALSE(WriteProductFile(folder / "b" / "p.json", model));
    EXPECT_EQ(files(ReadProductFile(folder / "a" / "p.json")), before);
    EXPECT_EQ(files(ReadProductFile(folder / "b" / "p.json")), before);
    std::filesystem::rename(folder / "a", folder / "c");
    EXPECT_EQ(files(ReadProductFile(folder / "c" / "p.json")),
              (std::vector{(folder / "c/1.pdf").native(), (folder / "c/d/2.pdf").native(), before[2]}));
    std::filesystem::remove_all(folder);
}

TEST(ProductFile, LeavesOutWhatGoesWithoutSaying) {
    ProductModel model;
    model.root.key = UniqueMetaObjectKey(std::string("product"));
    model.root.iconType = 1;
    model.root.part.used = meta_data::SPUsed({1});
    EXPECT_EQ(FormatProduct(model), "{\n"
                                    "  \"format\": \"product-tree 1\",\n"
                                    "  \"product\": {}\n"
                                    "}\n");
    EXPECT_EQ(Read(R"({"format": "product-tree 1"})"), model);
}

TEST(ProductFile, TakesANumberOfUsesForSoManyPlainOnes) {
    const ProductModel model = ReadMembers(R"("objects": [{"key": "bolt", "kind": "standard",
        "separate": true, "uses": 3}])");
    const ObjectRecord& bolt = model.objects.at(0);
    ASSERT_EQ(bolt.occurrences.size(), 3U);
    EXPECT_EQ(bolt.occurrences[2].key.String(), "bolt#3");
    EXPECT_EQ(bolt.occurrences[2].kind, PartKindStandard);
    EXPECT_TRUE(bolt.occurrences[2].part.attributes.separate);
    EXPECT_TRUE(bolt.occurrences[2].part.used.IsSPUsed(model.styleId));
    EXPECT_NE(FormatProduct(model).find("\"uses\": 3"), std::string::npos);
}

TEST(ProductFile, CountsUsesThatAreAlike) {
    const ProductModel model = ReadMembers(R"("embodiments": [{"key": "e"}], "objects": [{
        "key": "a", "uses": [{"count": 2, "embodiments": ["e"]}, {"key": "x"}, {"kind": "other"}]}])");
    const auto& uses = model.objects.at(0).occurrences;
    ASSERT_EQ(uses.size(), 4U);
    EXPECT_EQ(uses[1].key.String(), "a#2");
    EXPECT_EQ(uses[1].embodiments.size(), 1U);
    EXPECT_EQ(uses[2].key.String(), "x");
    EXPECT_EQ(uses[3].key.String(), "a#4");
    EXPECT_EQ(uses[3].kind, PartKindOther);
    EXPECT_NE(FormatProduct(model).find("{\"count\": 2, \"embodiments\": [\"e\"]}, {\"key\": \"x\"}"),
              std::string::npos);
}

TEST(ProductFile, ReadsADesignationInOneTextOrInItsParts) {
    const ProductModel model = ReadMembers(R"("objects": [
        {"key": "a", "designation": "AB.1-02 X"},
        {"key": "b", "designation": {"base": "AB.1", "embodimentDelimiter": "-",
            "embodimentNumber": "02", "additionalDelimiter": ".", "additionalNumber": "3",
            "codeDelimiter": " ", "code": "X"}}])");
    EXPECT_EQ(model.objects.at(0).marking.GetBase().Str(), L"AB.1-02 X");
    const VariantMarking& parts = model.objects.at(1).marking;
    EXPECT_EQ(parts.Make(VariantMarkingData::MakeAll, false, false).Str(), L"AB.1-02.3 X");
    EXPECT_EQ(parts.GetCode().Str(), L"X");
}

TEST(ProductFile, NamesASectionAfterTheStyle) {
    const std::string objects = R"("objects": [
        {"key": "a", "section": 20}, {"key": "b", "section": [20, 0, 0, 0, 0, 1]},
        {"key": "c", "section": [0, 0, 20, 2]}, {"key": "d", "section": [0, 0, 0, 2]},
        {"key": "e", "section": {"numbers": [20], "name": "Own"}}, {"key": "f", "section": 99}])";
    const auto namesOf = [](const ProductModel& model) {
        std::wstring names;
        for (const ObjectRecord& object : model.objects)
            names += object.section.name.Str() + L'|';
        return names;
    };
    EXPECT_EQ(namesOf(ReadMembers(R"("style": {"sections": [{"number": 20, "name": "Details",
        "blocks": [{"number": 1, "name": "Gears"}]}], "blocks": [{"number": 2, "name": "Loose"}]}, )" +
                                  objects)),
              L"Details|Gears|Details|Loose|Own||");
    EXPECT_EQ(namesOf(ReadMembers(objects)),
              GetDefaultSectionNumbName(20).Str() + L"||" + GetDefaultSectionNumbName(20).Str() + L"||Own||");
}

TEST(ProductFile, ReadsValuesByTheTypeOfTheirProperty) {
    const ProductModel model = ReadMembers(R"(
        "properties": [{"property": "user.1000", "name": "Power", "type": "number"},
                       {"property": "user.1001", "name": "Poles", "type": "integer"}],
        "columns": ["Power", "mass", "user.1001"],
        "objects": [{"key": "a", "properties": {"mass": 2, "Power": 3, "user.1001": 4,
            "comment": {"type": "integer", "value": 5}, "note": {"value": "x", "format": "<x>"},
            "number": 6, "angle": 6.0, "location": null}}])");
    const ObjectRecord& object = model.objects.at(0);
    const auto at = [&](const wchar_t* path) { return ValueOf(object, ProductProperties::GetPropId(path)); };
    EXPECT_EQ(at(L"mass"), PropValue(SimplePropVal(2.0)));
    EXPECT_EQ(at(L"user.1000"), PropValue(SimplePropVal(3.0)));
    EXPECT_EQ(at(L"user.1001"), PropValue(SimplePropVal(4)));
    EXPECT_EQ(at(L"comment"), PropValue(SimplePropVal(5)));
    EXPECT_EQ(at(L"note"), PropValue(SimplePropVal(L"x"), SharedText(L"<x>")));
    EXPECT_EQ(at(L"number"), PropValue(SimplePropVal(6)));
    EXPECT_EQ(at(L"angle"), PropValue(SimplePropVal(6.0)));
    EXPECT_EQ(object.properties.size(), 8U);
    const unsigned long mass = ProductProperties::GetPropId(L"mass");
    EXPECT_EQ(model.visibleProperties, (std::vector<unsigned long>{1000, mass, 1001}));
}

TEST(ProductFile, ReadsTheWordsOfListsThatAreStoredAsNumbers) {
    const std::pair<const char*, SimplePropVal> cases[] = {
        {R"("notSected": 753)", SimplePropVal(753)},
        {R"("notSected": "Yes")", SimplePropVal(752)},
        {R"("notSected": {"type": "text", "value": "No"})", SimplePropVal(753)},
        {R"("notSected": {"type": "text", "value": "maybe"})", SimplePropVal(L"maybe")},
        {R"("specRoughSign": 2)", SimplePropVal(2)},
        {R"("specRoughSign": {"type": "text", "value": "Rolled"})", SimplePropVal(1)},
    };
    for (const auto& [member, value] : cases) {
        // A list of the file's own holds for the sign; the other's is fixed.
        const ProductModel model = ReadMembers(
            R"("properties": [{"property": "notSected", "type": "integer", "list": [0, 1]},
                {"property": "specRoughSign", "type": "text", "list": ["Cast", "Rolled"]}],
               "objects": [{"key": "a", "properties": {)" +
            std::string(member) + "}}]");
        EXPECT_EQ(model.objects.at(0).properties.at(0).second, PropValue(value)) << member;
        EXPECT_EQ(Read(FormatProduct(model)), model);
    }
}

TEST(ProductFile, KeepsEveryCharacter) {
    const ProductModel model =
        ReadMembers("\"product\": {\"name\": \"\\u0000\\t\\\"\\u00e4\xC3\xA4\\uD83D\\uDE00\xF0\x9F\x98\x80\"}");
    const std::wstring name(L"\0\t\"\u00E4\u00E4\U0001F600\U0001F600", 7);
    EXPECT_EQ(model.root.name.Str(), name);
    EXPECT_EQ(Read(FormatProduct(model)).root.name.Str(), name);
}

TEST(ProductFile, MayBeginWithAByteOrderMark) {
    EXPECT_EQ(Read("\xEF\xBB\xBF{\"format\": \"product-tree 1\"}"), Read("{\"format\": \"product-tree 1\"}"));
}

TEST(Sample, IsSoundAndInTheFormThatTheProgramWrites) {
    const std::filesystem::path folder = support::GetTestFolder();
    std::filesystem::copy(PRODUCT_TREE_SAMPLES, folder, std::filesystem::copy_options::recursive);
    const auto load = [](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(file), {}};
    };
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".json")
            continue;
        const std::string text = load(entry.path());
        const ReadResult result = ReadProductFile(entry.path());
        const ProductModel* const model = std::get_if<ProductModel>(&result);
        ASSERT_TRUE(model) << entry.path() << ": " << std::get<FileError>(result).reason;
        EXPECT_FALSE(WriteProductFile(entry.path(), *model));
        EXPECT_EQ(load(entry.path()), text) << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0U);
    std::filesystem::remove_all(folder);
}

} // namespace

} // namespace desktop::store

#include "platform/product/model/AssemblyLevels.h"

#include "desktop/store/ProductFile.h"
#include "host/ProductProperties.h"
#include "host/data/ProductInfObjChangesResult.h"
#include "platform/product/answers/MemoryProduct.h"
#include "platform/product/validation/ProductValidation.h"
#include "platform/values/Utf8.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using platform::MemoryProduct;
using platform::ObjectRecord;
using platform::ProductLevel;
using platform::ProductModel;
using support::Key;

/// A car with a wheel and two axles, which have a tube and two wheels each.
constexpr const char* c_car = R"({
 "format": "product-tree 1",
 "product": {"key": "car", "name": "Car", "massOfParts": true},
 "columns": ["position", "count", "mass", "comment"],
 "objects": [
  {"key": "axle", "name": "Axle", "section": 15, "kind": "assembly", "massOfParts": true, "uses": 2},
  {"key": "wheel", "name": "Wheel", "section": 20, "properties": {"mass": 5}, "uses": 1}
 ],
 "objectsBelow": [
  {"key": "tube", "name": "Tube", "section": 20, "properties": {"mass": 3}}
 ],
 "assemblies": [
  {"object": "car"},
  {"object": "axle", "components": [
   {"object": "wheel", "properties": {"position": 7}, "uses": 2},
   {"object": "tube", "uses": 1}
  ]}
 ]
})";

ProductModel Read(const std::string& json) {
    auto read = desktop::store::ParseProduct(json);
    const auto* const error = std::get_if<desktop::FileError>(&read);
    EXPECT_FALSE(error) << error->reason;
    return error ? ProductModel() : std::get<ProductModel>(std::move(read));
}

const ProductLevel c_home{Key("car"), false};
const ProductLevel c_allParts{Key("car"), true};
const ProductLevel c_axle{Key("axle"), false};

/// "Car: Axle x2, Wheel x1".
std::string Show(const MemoryProduct& product) {
    const ProductModel& model = product.GetModel();
    std::string text = platform::ToUtf8(model.root.name.Str()) + ":";
    for (const ObjectRecord& object : model.objects)
        text += " " + platform::ToUtf8(object.name.Str()) + " x" + std::to_string(object.occurrences.size());
    return text;
}

std::string ValueOf(const MemoryProduct& product, const char* object, const wchar_t* path) {
    return platform::ToUtf8(product.GetValue({Key(object), {}, path, {}}).to_wstring().Str());
}

void Set(MemoryProduct& product, const char* object, const wchar_t* path, const wchar_t* text) {
    const PropValue value = *text ? PropValue(SimplePropVal(SharedText(std::wstring(text)))) : PropValue();
    auto changes = product.MakeValueChanges({Key(object), {}, path, {}}, value);
    product.CommitChanges(changes);
}

class AssemblyLevels : public testing::Test {
protected:
    void Enter(const ProductLevel& level) { ASSERT_TRUE(m_product.EnterLevel(level)); }

    MemoryProduct m_product{Read(c_car)};
};

TEST_F(AssemblyLevels, ShowComponentsOrAllPartsAndLeaveTheFileAsItWas) {
    EXPECT_EQ(Show(m_product), "Car: Axle x2 Wheel x1");
    Enter(c_axle);
    EXPECT_EQ(Show(m_product), "Axle: Wheel x2 Tube x1");
    Enter(c_allParts);
    EXPECT_EQ(Show(m_product), "Car: Wheel x5 Tube x2");
    Enter({Key("axle"), true});
    EXPECT_EQ(Show(m_product), "Axle: Wheel x2 Tube x1");
    EXPECT_FALSE(m_product.EnterLevel({Key("wheel"), false}));
    EXPECT_FALSE(m_product.IsModified());
    EXPECT_EQ(desktop::store::FormatProduct(m_product.MakeSaved()), desktop::store::FormatProduct(Read(c_car)));
}

TEST_F(AssemblyLevels, ShareWhatAnObjectIsAndKeepHowItStandsThere) {
    Enter(c_axle);
    EXPECT_EQ(ValueOf(m_product, "wheel", L"position"), "7");
    Set(m_product, "wheel", L"comment", L"spare");
    Set(m_product, "wheel", L"position", L"9");
    Enter(c_allParts);
    EXPECT_EQ(ValueOf(m_product, "wheel", L"comment"), "spare");
    EXPECT_EQ(ValueOf(m_product, "wheel", L"position"), "");
    Set(m_product, "wheel", L"position", L"1");
    const MemoryProduct opened(Read(desktop::store::FormatProduct(m_product.MakeSaved())));
    EXPECT_EQ(Show(opened), "Car: Axle x2 Wheel x1");
    EXPECT_EQ(ValueOf(opened, "wheel", L"comment"), "spare");

    m_product.Undo();
    m_product.Undo();
    EXPECT_EQ(m_product.GetLevel(), c_axle) << "undoing goes where it was done";
    EXPECT_EQ(ValueOf(m_product, "wheel", L"position"), "7");
    m_product.Undo();
    Enter(c_home);
    EXPECT_EQ(ValueOf(m_product, "wheel", L"comment"), "");
    while (m_product.CanRedo())
        m_product.Redo();
    EXPECT_EQ(m_product.GetLevel(), c_allParts);
    EXPECT_EQ(ValueOf(m_product, "wheel", L"position"), "1");
}

TEST_F(AssemblyLevels, AddUpMassesUnlessOneIsTyped) {
    EXPECT_EQ(ValueOf(m_product, "axle", L"mass"), "13");
    EXPECT_EQ(ValueOf(m_product, "car", L"mass"), "31");
    Enter(c_axle);
    Set(m_product, "tube", L"mass", L"4");
    Enter(c_home);
    EXPECT_EQ(ValueOf(m_product, "axle", L"mass"), "14");
    Set(m_product, "axle", L"mass", L"");
    EXPECT_EQ(platform::ToUtf8(m_product.TakeRefusal().Str()), "it is the sum of its parts");
    Set(m_product, "axle", L"mass", L"20");
    EXPECT_EQ(ValueOf(m_product, "car", L"mass"), "45");
    Set(m_product, "wheel", L"mass", L"6");
    EXPECT_EQ(ValueOf(m_product, "axle", L"mass"), "20");
    Set(m_product, "axle", L"mass", L"");
    EXPECT_EQ(ValueOf(m_product, "axle", L"mass"), "16");
    EXPECT_EQ(ValueOf(m_product, "car", L"mass"), "38");
    while (m_product.CanUndo())
        m_product.Undo();
    Enter(c_home);
    EXPECT_EQ(ValueOf(m_product, "car", L"mass"), "31");
}

TEST_F(AssemblyLevels, KeepAnObjectThatAnotherAssemblyUses) {
    EXPECT_TRUE(m_product.DeleteObjects({Key("wheel")}));
    Enter(c_axle);
    EXPECT_EQ(Show(m_product), "Axle: Wheel x2 Tube x1");
    Set(m_product, "wheel", L"comment", L"last");
    EXPECT_TRUE(m_product.DeleteObjects({Key("wheel")}));
    Enter(c_allParts);
    EXPECT_EQ(Show(m_product), "Car: Tube x2");
    EXPECT_FALSE(m_product.CanDelete(Key("tube")));
    EXPECT_FALSE(m_product.DeleteObjects({Key("tube")}));
    while (m_product.CanUndo())
        m_product.Undo();
    EXPECT_EQ(Show(m_product), "Car: Axle x2 Wheel x1");
    EXPECT_EQ(ValueOf(m_product, "wheel", L"comment"), "");
}

TEST_F(AssemblyLevels, AreTheSameAfterAnyStepsAndTheWayBack) {
    const std::string before = desktop::store::FormatProduct(m_product.MakeSaved());
    const ProductLevel levels[] = {c_home, c_axle, c_allParts, {Key("axle"), true}};
    const char* objects[] = {"axle", "wheel", "tube"};
    const wchar_t* paths[] = {L"mass", L"comment", L"position", L"count"};
    const wchar_t* texts[] = {L"", L"1", L"22"};
    for (unsigned seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        for (int step = 0; step < 40; ++step) {
            const char* const object = objects[random() % 3];
            switch (random() % 6) {
            case 0:
                m_product.EnterLevel(levels[random() % 4]);
                break;
            case 1:
                m_product.DeleteObjects({Key(object)});
                break;
            case 2:
                m_product.Undo();
                break;
            case 3:
                m_product.Redo();
                break;
            default:
                Set(m_product, object, paths[random() % 4], texts[random() % 3]);
            }
            const ProductModel saved = m_product.MakeSaved();
            const auto fault = platform::ValidateModel(saved);
            ASSERT_FALSE(fault) << seed << " " << fault->path << ": " << fault->reason;
            const std::string text = desktop::store::FormatProduct(saved);
            ASSERT_EQ(desktop::store::FormatProduct(Read(text)), text) << seed;
        }
        while (m_product.CanUndo())
            m_product.Undo();
        ASSERT_EQ(desktop::store::FormatProduct(m_product.MakeSaved()), before) << seed;
    }
}

TEST(AssemblyLevelsOfAFile, AreRefusedWhereTheyMakeNoSense) {
    const struct {
        const char* replaced;
        const char* with;
        const char* reason;
    } cases[] = {
        {R"({"object": "car"},)", "", "assemblies[0].object: the product itself is expected"},
        {R"("object": "tube", "uses": 1)", R"("object": "axle", "uses": 1)",
         "assemblies[1]: the assembly 'axle' is a component of itself"},
        {R"("object": "tube", "uses": 1)", R"("object": "wing", "uses": 1)",
         "assemblies[1].components[1].object: there is no object 'wing'"},
        {R"({"position": 7})", R"({"mass": 7})", "only the position belongs to the assembly"},
        {R"({"object": "tube", "uses": 1})", R"({"object": "wheel", "uses": 1})", "the key 'wheel' is taken already"},
        {R"("key": "tube",)", R"("key": "tube", "uses": 1,)",
         "how the object is used stands in the assembly that uses it"},
        {R"("columns")", R"("embodiments": [{"key": "e"}], "columns")",
         "a product with embodiments can't have assemblies of its own"},
        {R"("name": "Tube",)", R"("name": "Tube", "massOfParts": true,)",
         "only the product itself and its assemblies have their mass from their parts"},
    };
    for (const auto& bad : cases) {
        std::string json = c_car;
        json.replace(json.find(bad.replaced), std::string(bad.replaced).size(), bad.with);
        const auto read = desktop::store::ParseProduct(json);
        const auto* const error = std::get_if<desktop::FileError>(&read);
        ASSERT_TRUE(error) << bad.reason;
        EXPECT_NE(error->reason.find(bad.reason), std::string::npos) << error->reason;
    }
}

TEST(AssemblyLevelsOfAFile, MultiplyToNoMorePartsThanAnybodyLooksAt) {
    ProductModel model;
    const int depth = 100'000;
    for (int i = 0; i <= depth; ++i) {
        ObjectRecord object;
        object.key = Key("a" + std::to_string(i));
        model.objectsBelow.push_back(object);
        if (i == depth)
            break;
        ObjectRecord component;
        component.key = Key("a" + std::to_string(i + 1));
        component.occurrences.resize(i < 21 ? 2 : 1);
        model.assemblies.push_back({object.key, {component}, {}, {}});
    }
    platform::TakeOut(model, {Key("a0"), false});
    EXPECT_EQ(EnterLevel(model, {Key("a0"), true}), platform::LevelFault::TooManyParts);
    EXPECT_EQ(model.root.key, Key("a0"));
    EXPECT_EQ(model.objects.size(), 1u);
    EXPECT_EQ(EnterLevel(model, {Key("a1"), true}), platform::LevelFault::None);
    EXPECT_EQ(model.objects.at(0).occurrences.size(), 1u << 20);
}

} // namespace

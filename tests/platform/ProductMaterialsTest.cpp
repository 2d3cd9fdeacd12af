// Material, density and mass of one or several objects, chosen together.
#include "platform/services/UserDecisions.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using platform::MaterialDecision;
using platform::MaterialRequest;
using platform::ScriptedDecisions;
using support::Key;
using support::Product;

const std::wstring c_density = L"material.density";

Product Parts() {
    return Product()
        .Object("shaft", L"Shaft")
        .Material(L"C45")
        .Value(c_density, SimplePropVal(7850.0))
        .Volume(0.5)
        .Mass(3925)
        .Uses(2)
        .Object("pin", L"Pin")
        .Material(L"C45")
        .Value(c_density, SimplePropVal(7850.0))
        .Volume(0.25)
        .Mass(1)
        .Uses()
        .Object("grease", L"Grease")
        .Mass(0.5)
        .Uses()
        .Object("bush", L"Bush")
        .Material(L"Bronze")
        .Link(c_density, "pin", c_density)
        .ReadOnlyValue(L"material")
        .Uses();
}

class ProductMaterialsTest : public testing::Test {
protected:
    bool Edit(std::initializer_list<const char*> keys, MipSource source = MipSource::Link) {
        std::vector<UniqueMetaObjectKey> list;
        for (const char* key : keys)
            list.push_back(Key(key));
        return m_product->EditMip(list, source);
    }
    bool Choose(std::initializer_list<const char*> keys, MaterialDecision decision) {
        m_decisions.ChooseNextMaterial(std::move(decision));
        return Edit(keys);
    }
    void Make(const Product& product) {
        m_product = product.Make();
        m_product->SetDecisions(&m_decisions);
    }
    const MaterialRequest& Request() const { return m_decisions.GetMaterialRequests().back(); }
    std::wstring Values(const char* key) const {
        std::wstring values;
        for (const std::wstring& path : {std::wstring(L"material"), c_density, std::wstring(L"mass")})
            values += m_product->GetValue({Key(key), {}, path, {}}).to_wstring().Str() + L"|";
        return values;
    }

    ScriptedDecisions m_decisions;
    std::shared_ptr<platform::MemoryProduct> m_product;
};

TEST_F(ProductMaterialsTest, TheUserIsShownWhatTheObjectsHaveInCommon) {
    Make(Parts());
    using enum MaterialRequest::Volumes;
    struct {
        std::vector<const char*> keys;
        const wchar_t* title;
        const wchar_t* material;
        std::optional<double> density, mass;
        MaterialRequest::Volumes volumes;
        std::optional<double> volume;
        int mixedCount;
        const wchar_t* notes;
    } const cases[] = {
        // clang-format off
        {{"shaft#1", "shaft#2", "shaft"}, L"Material of Shaft", L"C45", 7850, 3925, All, 0.5, 0, L""},
        {{"shaft", "pin#1"}, L"Material of 2 objects", L"C45", 7850, {}, All, {}, 1, L""},
        {{"grease#1"}, L"Material of Grease", L"", {}, 0.5, None, {}, 0, L""},
        {{"shaft", "grease", "bush"}, L"Material of 3 objects", L"", {}, {}, Some, {}, 3,
         L"Material: 1 of 3 objects keep what they have, it can't be changed."
         L"Density: 1 of 3 objects keep what they have, the value is linked."},
        // clang-format on
    };
    for (const auto& one : cases) {
        std::vector<UniqueMetaObjectKey> keys;
        for (const char* key : one.keys)
            keys.push_back(Key(key));
        EXPECT_FALSE(m_product->EditMip(keys, MipSource::FromBook)) << "the user has given up";
        const MaterialRequest& request = Request();
        EXPECT_EQ(request.title.Str(), one.title);
        EXPECT_EQ(request.materialName.Str(), one.material) << one.title;
        EXPECT_EQ(std::tie(request.density.value, request.mass.value), std::tie(one.density, one.mass)) << one.title;
        EXPECT_EQ(std::tie(request.volumes, request.volume), std::tie(one.volumes, one.volume)) << one.title;
        EXPECT_EQ(request.material.isMixed + request.density.isMixed + request.mass.isMixed, one.mixedCount);
        std::wstring notes;
        for (const SharedText& note : request.notes)
            notes += note.Str() + L".";
        EXPECT_EQ(notes, one.notes);
    }
    EXPECT_EQ(Request().density.unit.Str(), L"kg/m\u00B3");
    EXPECT_EQ(Request().fromFile, (std::vector<MaterialRequest::Material>{{L"Bronze", 7850.0}, {L"C45", 7850.0}}));
    EXPECT_FALSE(m_product->CanUndo());
}

TEST_F(ProductMaterialsTest, MassesFollowFromVolumesAndDensitiesInOneStep) {
    const std::optional<std::optional<double>> none(std::in_place);
    struct {
        const wchar_t* name;
        std::optional<std::optional<double>> density, mass;
        const wchar_t* step;
        const wchar_t* values;
    } const cases[] = {
        // clang-format off
        {L"PA 6", 1140.0, {}, L"Material of 3 objects", L"PA 6|1140|570| PA 6|1140|285| PA 6|1140|0.5| Bronze|1140|| "},
        {L"PA 6", 1140.0, 3.0, L"Material of 4 objects", L"PA 6|1140|3| PA 6|1140|3| PA 6|1140|3| Bronze|1140|3| "},
        // The mass that was typed for the pin comes from its volume again.
        {nullptr, {}, none, L"Mass of 2 objects", L"C45|7850|3925| C45|7850|1962.5| ||| Bronze|7850|| "},
        {nullptr, none, {}, L"Density of 2 objects", L"C45||| C45||| ||0.5| Bronze||| "},
        {L"", {}, {}, L"Material of 2 objects", L"|7850|3925| |7850|1| ||0.5| Bronze|7850|| "},
        // A mass is said where it stays the same.
        {nullptr, 1000.0, 1.0, L"Material of 4 objects", L"C45|1000|1| C45|1000|1| |1000|1| Bronze|1000|1| "},
        {nullptr, {}, {}, L"", L"C45|7850|3925| C45|7850|1| ||0.5| Bronze|7850|| "},
        // clang-format on
    };
    const auto all = [&] {
        return Values("shaft") + L" " + Values("pin") + L" " + Values("grease") + L" " + Values("bush") + L" ";
    };
    for (const auto& one : cases) {
        Make(Parts());
        MaterialDecision decision{{}, one.density, one.mass};
        if (one.name)
            decision.name = SharedText(one.name);
        const platform::ProductModel before = m_product->GetModel();
        EXPECT_EQ(Choose({"shaft#1", "pin#1", "grease#1", "bush#1"}, decision), *one.step != 0);
        EXPECT_EQ(m_product->GetUndoName().Str(), one.step);
        EXPECT_EQ(all(), one.values) << one.step;
        m_product->Undo();
        EXPECT_FALSE(m_product->CanUndo());
        EXPECT_TRUE(m_product->GetModel() == before) << "the way back";
        m_product->Redo();
        EXPECT_EQ(all(), one.values) << "forth again";
    }
}

TEST_F(ProductMaterialsTest, AMassThatIsASumStaysOne) {
    Make(Parts().MassOfParts());
    EXPECT_TRUE(Choose({"root", "grease"}, {L"PA 6", {}, 2.0}));
    EXPECT_EQ(Request().notes.back().Str(), L"Mass: 1 of 2 objects keep what they have, it is the sum of its parts");
    EXPECT_EQ(Values("grease"), L"PA 6||2|");
    EXPECT_EQ(Values("root"), L"PA 6|||");
    EXPECT_FALSE(Edit({"root"}));
    EXPECT_EQ(Request().mass.fixed.Str(), L"it is the sum of its parts");
}

TEST_F(ProductMaterialsTest, AMaterialGoesWithItsDensityAndWhatFollowsFromIt) {
    struct {
        std::initializer_list<const char*> keys;
        const wchar_t *step, *refusal, *note;
    } const cases[] = {
        // clang-format off
        {{"shaft#1"}, L"Removal of Material, Density and Mass of Shaft", L"", L""},
        {{"shaft", "pin", "grease", "bush"}, L"Removal of Material, Density and Mass of 2 objects", L"",
         L"Material: 1 of 4 objects keep what they have, it can't be changed"},
        {{"grease"}, L"", L"there is no material", L""},
        {{"bush", "grease"}, L"", L"it can't be changed", L""},
        {{}, L"", L"no object is selected", L""},
        // clang-format on
    };
    for (const auto& one : cases) {
        Make(Parts());
        EXPECT_EQ(Edit(one.keys, MipSource::TakeAway), *one.step != 0);
        EXPECT_EQ(m_product->GetUndoName().Str(), one.step);
        EXPECT_EQ(m_product->TakeRefusal().Str(), one.refusal);
        EXPECT_EQ(m_product->TakeNote().Str(), one.note);
    }
    Make(Parts());
    Edit({"shaft"}, MipSource::TakeAway);
    EXPECT_EQ(Values("shaft"), L"|||");
    m_product->Undo();
    EXPECT_EQ(Values("shaft"), L"C45|7850|3925|");
}

TEST_F(ProductMaterialsTest, NobodyIsAskedWhereNothingCanBeChanged) {
    Make(Parts().ReadOnlyValue(c_density).ReadOnlyValue(L"mass"));
    m_decisions.ChooseNextMaterial(MaterialDecision{L"PA 6", {}, {}});
    EXPECT_FALSE(Edit({"bush#1"}));
    EXPECT_EQ(m_product->TakeRefusal().Str(), L"it can't be changed");
    EXPECT_FALSE(Edit({}));
    EXPECT_EQ(m_product->TakeRefusal().Str(), L"no object is selected");
    Make(Parts().ReadOnly());
    for (const MipSource source : {MipSource::Link, MipSource::TakeAway}) {
        EXPECT_FALSE(Edit({"shaft"}, source));
        EXPECT_EQ(m_product->TakeRefusal().Str(), L"the product can't be changed");
    }
    EXPECT_TRUE(m_decisions.GetMaterialRequests().empty());
}

TEST_F(ProductMaterialsTest, WhatAPropertyDoesNotTakeChangesNothing) {
    Make(Parts());
    EXPECT_FALSE(Choose({"shaft"}, {std::wstring(20'000, L'x'), 1.0, {}}));
    EXPECT_FALSE(Choose({"shaft"}, {L"PA 6", -1.0, {}}));
    EXPECT_EQ(m_product->TakeRefusal().Str(), L"it does not fit the property");
    EXPECT_EQ(Values("shaft"), L"C45|7850|3925|");
}

} // namespace

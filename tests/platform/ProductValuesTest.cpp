#include "platform/product/model/ValueFitting.h"
#include "tests/platform/AllocationCounter.h"
#include "tests/support/ProductBuilder.h"

#include <boost/property_tree/ptree.hpp>
#include <gtest/gtest.h>
#include <limits>

namespace {

using platform::MemoryProduct;
using support::Key;
using support::Product;

PropertyRef Ref(std::string_view key, const wchar_t* path) { return {Key(key), {}, path, {}}; }

std::wstring Text(const MemoryProduct& product, std::string_view key, const wchar_t* path) {
    return product.GetValue(Ref(key, path)).to_wstring().Str();
}

bool Commit(MemoryProduct& product, ProductInfObjChangesResult changes) {
    product.CommitChanges(changes);
    return changes.IsExistsChanges();
}

bool Set(MemoryProduct& product, std::string_view key, const wchar_t* path, SimplePropVal value) {
    return Commit(product, product.MakeValueChanges(Ref(key, path), PropValue(std::move(value))));
}

PropValue Marking(const wchar_t* text) {
    VariantMarking marking;
    marking.Parse(text);
    return marking.GetPropValue();
}

constexpr const wchar_t* c_whole = L"user.1000";
constexpr const wchar_t* c_real = L"user.1001";
constexpr const wchar_t* c_text = L"user.1002";
constexpr const wchar_t* c_truth = L"user.1003";
constexpr const wchar_t* c_loose = L"user.1004";
constexpr const wchar_t* c_list = L"user.1005";
constexpr const wchar_t* c_fixed = L"user.1006";

Product Typed() {
    Product product;
    product.UserProperty(1000, L"Whole", 0, -5, 10)
        .UserProperty(1001, L"Real", 1)
        .UserProperty(1002, L"Text", 2)
        .UserProperty(1003, L"Truth", 3)
        .UserProperty(1004, L"Loose", 0, 1, 2)
        .LastPropertyVariable()
        .UserProperty(1005, L"List", 1)
        .LastPropertyList({SimplePropVal(1.5), SimplePropVal(2.0), SimplePropVal(L"none")})
        .UserProperty(1006, L"Fixed", 2)
        .LastPropertyReadOnly();
    product.Object("a", L"Shaft", L"AB.101").Uses(2);
    return product;
}

struct ValueCase {
    const wchar_t* property;
    SimplePropVal given;
    /// Null: refused.
    const wchar_t* taken;
};

TEST(ProductValues, AreTakenInTheTypeOfTheirPropertyOrRefused) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::wstring odd = L"line\nbreak \x01\t \u05D0\u05D1 \U0001F600";
    const ValueCase cases[] = {
        {c_whole, SimplePropVal(7), L"7"},
        {c_whole, SimplePropVal(10), L"10"},
        {c_whole, SimplePropVal(11), nullptr},
        {c_whole, SimplePropVal(-6), nullptr},
        {c_whole, SimplePropVal(3.0), L"3"},
        {c_whole, SimplePropVal(3.5), nullptr},
        {c_whole, SimplePropVal(1e10), nullptr},
        {c_whole, SimplePropVal(nan), nullptr},
        {c_whole, SimplePropVal(L" 4 "), L"4"},
        {c_whole, SimplePropVal(L"4 pieces"), nullptr},
        {c_whole, SimplePropVal(L"0x3"), nullptr},
        {c_whole, SimplePropVal(true), nullptr},
        {c_loose, SimplePropVal(77), L"77"},
        {c_loose, SimplePropVal(3e9), nullptr},
        {c_real, SimplePropVal(-2.5), L"-2.5"},
        {c_real, SimplePropVal(4), L"4"},
        {c_real, SimplePropVal(L"1e3"), L"1000"},
        {c_real, SimplePropVal(L"-0.0"), L"0"},
        {c_real, SimplePropVal(L"1,5"), nullptr},
        {c_real, SimplePropVal(L"1e400"), nullptr},
        {c_real, SimplePropVal(nan), nullptr},
        {c_real, SimplePropVal(infinity), nullptr},
        {c_real, SimplePropVal(DateTime{0}), nullptr},
        {c_text, SimplePropVal(2.5), L"2.5"},
        {c_text, SimplePropVal(SharedText(odd)), odd.c_str()},
        {c_text, SimplePropVal(SharedText(std::wstring(10'000, L'x'))), L"?"},
        {c_text, SimplePropVal(SharedText(std::wstring(10'001, L'x'))), nullptr},
        {c_text, SimplePropVal(SharedText(std::wstring(L"a\0b", 3))), nullptr},
        {c_text, SimplePropVal(SharedText(std::wstring(1, wchar_t{0xD800}))), nullptr},
        {c_text, SimplePropVal(SharedText(std::wstring(1, wchar_t{0x110000}))), nullptr},
        {c_truth, SimplePropVal(true), L"1"},
        {c_truth, SimplePropVal(0), L"0"},
        {c_truth, SimplePropVal(2), nullptr},
        {c_truth, SimplePropVal(L"yes"), nullptr},
        {c_list, SimplePropVal(2.0), L"2"},
        {c_list, SimplePropVal(L"1.5"), L"1.5"},
        {c_list, SimplePropVal(L"none"), L"none"},
        {c_list, SimplePropVal(3.0), nullptr},
        {L"notSected", SimplePropVal(753), L"753"},
        {L"notSected", SimplePropVal(L"Yes"), L"752"},
        {L"notSected", SimplePropVal(1), nullptr},
        {L"specRoughSign", SimplePropVal(0), L"0"},
        {L"specRoughSign", SimplePropVal(L"Not machined"), L"2"},
        {L"specRoughSign", SimplePropVal(3), nullptr},
        {c_fixed, SimplePropVal(L"x"), nullptr},
        {L"user.4711", SimplePropVal(L"x"), nullptr},
        {L"no such path", SimplePropVal(L"x"), nullptr},
        {L"SPCSection", SimplePropVal(L"Parts"), nullptr},
        {L"marking", SimplePropVal(5), nullptr},
    };
    for (const ValueCase& sample : cases) {
        const auto product = Typed().Make();
        const std::uint64_t stamp = product->GetChangeStamp();
        const bool isTaken = Set(*product, "a", sample.property, sample.given);
        EXPECT_EQ(isTaken, sample.taken != nullptr) << sample.given.to_wstring().Str().substr(0, 20);
        EXPECT_EQ(product->GetChangeStamp() != stamp, isTaken);
        EXPECT_EQ(product->CanUndo(), isTaken);
        const std::wstring now = Text(*product, "a", sample.property);
        const std::wstring expected = sample.taken ? sample.taken : L"";
        if (expected != L"?") {
            EXPECT_EQ(now, expected);
        }
    }
}

TEST(ProductValues, LockedPartsOfADesignationStayAsTheyAre) {
    Product builder;
    VariantMarking marking;
    marking.Parse(L"AB.1-02 AD");
    builder.Object("a").Marking(marking).LockedMarkingParts({1, 7});
    const auto product = builder.Make();
    struct {
        const wchar_t* text;
        bool isAllowed;
    } const cases[] = {{L"AB.1-03 AD", true}, {L"AB.1 AD", true}, {L"AB.2-02 AD", false}, {L"AB.1-02", false}};
    for (const auto& sample : cases) {
        EXPECT_EQ(product->IsMarkingChangeAllowed(Key("a"), Marking(sample.text)), sample.isAllowed);
        EXPECT_EQ(product->MakeValueChanges(Ref("a", L"marking"), Marking(sample.text)).IsExistsChanges(),
                  sample.isAllowed);
    }
    EXPECT_FALSE(product->IsMarkingChangeAllowed(Key("gone"), Marking(L"AB.1-03 AD")));
}

TEST(ProductValues, CanBeReadOnlyForTheDocumentTheObjectOrTheColumn) {
    Product builder = Typed();
    builder.Object("b").ReadOnlyValue(c_text).Uses(1);
    auto product = builder.Make();
    EXPECT_TRUE(product->IsReadOnly(Ref("b", c_text)));
    EXPECT_TRUE(product->IsReadOnly(Ref("b#1", c_text)));
    EXPECT_FALSE(product->IsReadOnly(Ref("b", c_real)));
    EXPECT_FALSE(product->IsReadOnly(Ref("a", c_text)));
    EXPECT_TRUE(product->IsReadOnly(Ref("a", c_fixed)));
    EXPECT_TRUE(product->IsReadOnly(Ref("a", L"no such path")));
    EXPECT_FALSE(Set(*product, "b#1", c_text, SimplePropVal(L"x")));
    product = builder.ReadOnly().Make();
    EXPECT_TRUE(product->IsReadOnly(Ref("a", c_text)));
    EXPECT_FALSE(Set(*product, "a", c_text, SimplePropVal(L"x")));
}

TEST(ProductChanges, MergeIntoOneStepOfWhichTheLastWishCounts) {
    const auto product = Typed().Make();
    ProductInfObjChangesResult all = product->MakeValueChanges(Ref("a#1", c_text), PropValue(SimplePropVal(L"first")));
    all += product->MakeValueChanges(Ref("a#2", c_text), PropValue(SimplePropVal(L"last")));
    all += product->MakeValueChanges(Ref("a", L"name"), PropValue(SimplePropVal(L"Axle")));
    EXPECT_TRUE(Commit(*product, all));
    EXPECT_EQ(Text(*product, "a#1", c_text), L"last");
    product->Undo();
    EXPECT_EQ(Text(*product, "a#1", c_text), L"");
    EXPECT_EQ(Text(*product, "a", L"name"), L"Shaft");
    EXPECT_FALSE(product->CanUndo());
}

TEST(ProductChanges, ThatEndWhereTheyBeganAreNone) {
    const auto product = Typed().Make();
    Set(*product, "a", c_text, SimplePropVal(L"x"));
    ProductInfObjChangesResult all = product->MakeValueChanges(Ref("a", c_text), PropValue(SimplePropVal(L"y")));
    const ProductInfObjChangesResult back = [&] {
        Set(*product, "a", c_text, SimplePropVal(L"z"));
        ProductInfObjChangesResult made = product->MakeValueChanges(Ref("a", c_text), PropValue(SimplePropVal(L"x")));
        product->Undo();
        return made;
    }();
    all += back;
    const std::uint64_t stamp = product->GetChangeStamp();
    product->CommitChanges(all);
    EXPECT_FALSE(all.IsExistsChanges());
    EXPECT_EQ(product->GetChangeStamp(), stamp);
}

TEST(ProductChanges, AreMadeAllOrNotAtAll) {
    class Foreign final : public IfProductChange {};
    const auto product = Typed().Make();
    const auto wish = [&](const char* key) {
        return product->MakeValueChanges(Ref(key, c_text), PropValue(SimplePropVal(L"x")));
    };
    ProductInfObjChangesResult withForeign = wish("a");
    withForeign.Add(std::make_shared<Foreign>());
    EXPECT_FALSE(Commit(*product, withForeign));

    product->Change([](platform::ProductModel& model) {
        model.objects.push_back(model.objects[0]);
        model.objects[1].key = Key("b");
        model.objects[1].occurrences.clear();
    });
    ProductInfObjChangesResult both = wish("a");
    both += wish("b");
    product->DeleteObjects({Key("b")});
    EXPECT_FALSE(Commit(*product, both));
    EXPECT_EQ(Text(*product, "a", c_text), L"");

    const ProductInfObjChangesResult late = wish("a");
    product->Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    EXPECT_FALSE(Commit(*product, late));
    EXPECT_EQ(Text(*product, "a", c_text), L"");
}

TEST(ProductChanges, NeedOtherRowsOnlyWhenRowsDependOnThem) {
    struct {
        const wchar_t* path;
        SimplePropVal value;
        bool needsRows;
    } const cases[] = {{c_text, SimplePropVal(L"x"), false},         {L"note", SimplePropVal(L"x"), false},
                       {L"position", SimplePropVal(4), false},       {L"name", SimplePropVal(L"Axle"), true},
                       {L"material", SimplePropVal(L"Steel"), true}, {L"mass", SimplePropVal(2.0), true}};
    for (const auto& sample : cases) {
        const auto product = Typed().Make();
        product->BeginRebuild();
        ASSERT_TRUE(Set(*product, "a", sample.path, sample.value));
        EXPECT_EQ(product->IsRebuildRequired(), sample.needsRows);
        product->BeginRebuild();
        EXPECT_FALSE(product->IsRebuildRequired());
    }
}

std::size_t CountAllocations(int objects, const wchar_t* path) {
    Product builder;
    for (int i = 0; i < objects; ++i)
        builder.Object(std::to_string(i), L"part", L"AB." + std::to_wstring(i / 8)).Uses();
    MemoryProduct product(builder);
    std::vector<UniqueMetaObjectKey> keys;
    for (std::size_t i = 0; i < 100; ++i)
        keys.push_back(product.GetModel().objects[i].key);
    ProductInfObjChangesResult changes;
    for (const UniqueMetaObjectKey& key : keys)
        changes += product.MakeValueChanges({key, {}, path, {}}, PropValue(SimplePropVal(L"x")));
    const std::size_t before = host_tests::GetAllocationCount();
    product.CommitChanges(changes);
    EXPECT_TRUE(changes.IsExistsChanges());
    return host_tests::GetAllocationCount() - before;
}

TEST(ProductChanges, CostNothingForWhatTheyAreNotAbout) {
    for (const wchar_t* const path : {L"note", L"name"}) {
        const std::size_t small = CountAllocations(1'000, path);
        EXPECT_LE(CountAllocations(20'000, path), small + small / 10) << path;
    }
}

TEST(ProductChanges, SaySoInTheGroupingAtOnce) {
    const auto product = Typed().Make();
    const auto nameOf = [&] {
        return product->GetAggregator().GetMetaData().GetProperty(Key("a"), L"name").to_wstring().Str();
    };
    Set(*product, "a", L"name", SimplePropVal(L"Axle"));
    EXPECT_EQ(nameOf(), L"Axle");
    product->Undo();
    EXPECT_EQ(nameOf(), L"Shaft");
}

TEST(BySource, AnOwnValueCanBeWrittenIntoTheObject) {
    Product builder = Typed();
    builder.Object("b")
        .Value(c_text, SimplePropVal(L"object"))
        .Uses(1)
        .Value(c_text, SimplePropVal(L"object"))
        .Uses(2)
        .Value(c_text, SimplePropVal(L"own"));
    const auto product = builder.Make();
    EXPECT_FALSE(product->CanTransmitToSource(Key("b#1"), c_text)); // equal already
    EXPECT_TRUE(product->CanTransmitToSource(Key("b#2"), c_text));
    EXPECT_FALSE(product->CanTransmitToSource(Key("b"), c_text));
    EXPECT_FALSE(product->CanTransmitToSource(Key("a#1"), c_text));
    // As a group gives it that shows several values.
    product->TransmitToSource(
        c_text, {{Key("b#2"), PropValue(SimplePropVal(L"other;own"))}, {Key("a#1"), PropValue(SimplePropVal(L"x"))}});
    EXPECT_EQ(Text(*product, "b", c_text), L"own");
    EXPECT_EQ(product->GetBySource(Ref("b#2", c_text)), true);
    EXPECT_EQ(product->GetUndoName().Str(), L"Transmission of Text to the source");
    EXPECT_EQ(Text(*product, "a", c_text), L"");
    product->Undo();
    EXPECT_EQ(Text(*product, "b", c_text), L"object");
    EXPECT_EQ(Text(*product, "b#2", c_text), L"own");
}

TEST(BySource, AShownValueIsStoredAsItWasOrConverted) {
    const auto stored = [](double coefficient, double held, const SimplePropVal& shown) {
        platform::PropertyRecord property;
        property.type = value_type::Double;
        property.unitCoefficient = coefficient;
        const auto fitted = platform::FitShownValue(property, PropValue(SimplePropVal(held)), PropValue(shown));
        return fitted ? fitted->to_double() : -1;
    };
    const double third = 1.0 / 3;
    EXPECT_EQ(stored(1000, third, SimplePropVal(third * 1000)), third);
    EXPECT_EQ(stored(1000, third, SimplePropVal(SimplePropVal(third * 1000).to_wstring())), third)
        << "all digits come back";
    EXPECT_EQ(stored(1000, third, SimplePropVal(250.0)), 0.25);
    EXPECT_EQ(stored(1000, 2, SimplePropVal(L"1;2000")), 2);
    EXPECT_EQ(stored(0, 2, SimplePropVal(3.5)), 3.5);
    EXPECT_EQ(stored(1000, 2, SimplePropVal(L"1;3")), -1) << "no number";
    EXPECT_EQ(stored(1000, 2, SimplePropVal()), 2) << "what members differ in";
}

TEST(Masses, FollowTheDensityWhereTheVolumeIsKnown) {
    Product builder;
    builder.MassOfParts();
    builder.Object("a").Volume(0.01).Uses(2);
    builder.Object("b").Mass(5).Uses(1);
    builder.Object("billet").Mass(100); // used nowhere
    const auto product = builder.Make();
    const auto massOf = [&](const char* key) { return Text(*product, key, L"mass"); };
    EXPECT_EQ(massOf("root"), L""); // one is missing
    Set(*product, "a#1", L"material.density", SimplePropVal(1000.0));
    EXPECT_EQ(massOf("a"), L"10");
    EXPECT_EQ(massOf("root"), L"25");
    EXPECT_EQ(product->GetUndoName().Str(), L"Change of Density");

    Set(*product, "a", L"mass", SimplePropVal(7.0)); // as it was weighed
    EXPECT_EQ(massOf("root"), L"19");
    Set(*product, "b", L"name", SimplePropVal(L"Nut"));
    EXPECT_EQ(massOf("a"), L"7");
    Set(*product, "a", L"material.density", {});
    EXPECT_EQ(massOf("a"), L"");
    EXPECT_EQ(massOf("root"), L"");
    for (const wchar_t* const mass : {L"19", L"19", L"25", L""}) {
        product->Undo();
        EXPECT_EQ(massOf("root"), mass);
    }
    EXPECT_TRUE(product->IsReadOnly(Ref("root", L"mass")));
}

} // namespace

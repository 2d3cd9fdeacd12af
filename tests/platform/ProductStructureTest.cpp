#include "tests/support/ProductBuilder.h"

#include <gmock/gmock.h>

namespace {

using platform::BilletKind;
using support::Key;
using support::Product;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::set<int> c_kinds = {4, 5, 6, 7};

template <class Keys>
std::vector<std::string> Names(const Keys& keys) {
    std::vector<std::string> names;
    for (const UniqueMetaObjectKey& key : keys)
        names.push_back(key.String());
    return names;
}

/// A product with the usual names for what tests ask.
struct Asked {
    explicit Asked(const Product& builder) : product(builder.Make()) {}

    std::shared_ptr<platform::MemoryProduct> product;
    IfProductDataAggregator& aggregator = product->GetAggregator();
    IfMetaProductData& uses = aggregator.GetPrimaryMetaData();
    IfMetaProductData& objects = aggregator.GetMetaData();
};

TEST(ProductStructure, WithoutEmbodimentsTheRootIsTheOneTopPart) {
    Asked asked(Product().Object("b").Uses(2).Object("a").Use("x").Object("free"));
    EXPECT_THAT(Names(asked.product->GetTopKeys()), ElementsAre("root"));
    EXPECT_THAT(Names(asked.objects.GetDirectParts(Key("root"))), ElementsAre("b", "a"));
    EXPECT_THAT(Names(asked.uses.GetDirectParts(Key("root"))), ElementsAre("b#1", "b#2", "x"));
    EXPECT_TRUE(asked.product->IsInTopKeys(Key("x"), asked.product->GetTopKeys()));
    EXPECT_FALSE(asked.product->IsInTopKeys(Key("x"), {}));
    EXPECT_FALSE(asked.product->IsInTopKeys(Key("a"), asked.product->GetTopKeys()));
}

TEST(ProductStructure, ObjectsThatNothingUsesAreFoundByTheirMissingParents) {
    Asked asked(Product().Object("used").Uses().Object("free").Object("inner").PartOf("used"));
    EXPECT_THAT(Names(asked.objects.GetPartsOfKinds(c_kinds)), ElementsAre("free", "inner", "used"));
    EXPECT_THAT(asked.objects.GetParentParts(Key("free")), IsEmpty());
    EXPECT_THAT(Names(asked.objects.GetParentParts(Key("inner"))), ElementsAre("used"));
    EXPECT_THAT(Names(asked.objects.GetParentParts(Key("used"))), ElementsAre("root"));
    EXPECT_THAT(Names(asked.objects.GetDirectParts(Key("used"))), ElementsAre("inner"));
}

TEST(ProductStructure, EmbodimentsAreTheTopParts) {
    Product product;
    product.Embodiment("e1");
    product.Embodiment("e2");
    product.Embodiment("e3");
    product.Object("all").Uses();
    product.Object("one").Uses().In({"e1"}).Uses().In({"e3", "e1"});
    product.Object("two").Use("t").In({"e2"});
    product.Object("lost").Use("l").In({"nowhere"});
    Asked asked(product);
    EXPECT_THAT(Names(asked.product->GetTopKeys()), ElementsAre("e1", "e2", "e3"));
    EXPECT_THAT(Names(asked.objects.GetDirectParts(Key("e1"))), ElementsAre("all", "one"));
    EXPECT_THAT(Names(asked.uses.GetDirectParts(Key("e1"))), ElementsAre("all#1", "one#1", "one#2"));
    EXPECT_THAT(Names(asked.uses.GetDirectParts(Key("e3"))), ElementsAre("all#1", "one#2"));
    EXPECT_THAT(Names(asked.objects.GetDirectParts(Key("e2"))), ElementsAre("all", "two"));
    EXPECT_THAT(asked.objects.GetDirectParts(Key("root")), IsEmpty());
    EXPECT_THAT(Names(asked.objects.GetParentParts(Key("one"))), ElementsAre("e1", "e3"));
    EXPECT_THAT(asked.objects.GetParentParts(Key("lost")), testing::Not(IsEmpty()));
    EXPECT_TRUE(asked.product->IsInTopKeys(Key("one#2"), {Key("e3")}));
    EXPECT_FALSE(asked.product->IsInTopKeys(Key("one#1"), {Key("e2"), Key("e3")}));
    EXPECT_FALSE(asked.product->IsInTopKeys(Key("l"), asked.product->GetTopKeys()));
}

TEST(ProductStructure, OnlyCurrentEmbodimentsAreLaidOut) {
    Product product;
    product.Embodiment("e1", L"01");
    product.Embodiment("e2", L"02");
    product.CurrentEmbodiments({"e2"});
    product.ActiveEmbodiment("e2");
    product.Object("one").Uses().In({"e1"});
    product.Object("two").Uses().In({"e2"});
    Asked asked(product);
    const auto topKeys = asked.product->GetTopKeys();
    EXPECT_THAT(Names(topKeys), ElementsAre("e2"));
    EXPECT_FALSE(asked.product->IsInTopKeys(Key("one#1"), topKeys));
    EXPECT_TRUE(asked.product->IsInTopKeys(Key("two#1"), topKeys));
    EXPECT_TRUE(asked.product->HasActiveEmbodiment());

    const EmbodimentsModel& embodiments = asked.product->GetEmbodiments();
    ASSERT_EQ(embodiments.GetCount(), 2U);
    EXPECT_THAT(Names(embodiments.GetRawKeys(1)), ElementsAre("e2"));
    EXPECT_EQ(embodiments.GetEmbodimentMarking(1).GetEmbodimentNum().Str(), L"02");
    EXPECT_THAT(embodiments.GetRawKeys(2), IsEmpty());
}

TEST(ProductStructure, AnObjectAndItsUsesBelongToTheirBodies) {
    Asked asked(Product().Object("a").Uses(3).Object("b"));
    EXPECT_THAT(Names(asked.aggregator.GetOccurrences(Key("a"), nullptr)), ElementsAre("a#1", "a#2", "a#3"));
    EXPECT_THAT(asked.aggregator.GetOccurrences(Key("a"), &asked.objects), IsEmpty());
    EXPECT_THAT(asked.aggregator.GetOccurrences(Key("a#1"), nullptr), IsEmpty());
    EXPECT_EQ(asked.aggregator.GetOwnerObject(Key("a#2")), Key("a"));
    EXPECT_TRUE(asked.aggregator.GetOwnerObject(Key("a")).IsEmpty());
    EXPECT_TRUE(asked.aggregator.IsInfObject(Key("a")));
    EXPECT_FALSE(asked.aggregator.IsInfObject(Key("a#1")));
    EXPECT_EQ(&asked.aggregator.GetMetaDataOf(Key("a#1")), &asked.uses);
    EXPECT_EQ(&asked.aggregator.GetPartMetaData(Key("a")), &asked.objects);
    EXPECT_EQ(asked.uses.GetPartKind(Key("a")), 0);
    EXPECT_EQ(asked.objects.GetPartKind(Key("a#1")), 0);
}

TEST(ProductStructure, KindsChooseTheParts) {
    Product product;
    product.Object("z").Kind(4).Uses(1);
    product.Object("y").Kind(8).Uses(1).Kind(7);
    product.Object("x").Kind(1);
    Asked asked(product);
    EXPECT_THAT(Names(asked.objects.GetOrderedPartsOfKinds(c_kinds)), ElementsAre("z"));
    EXPECT_THAT(Names(asked.uses.GetOrderedPartsOfKinds(c_kinds)), ElementsAre("z#1", "y#1"));
    EXPECT_THAT(Names(asked.uses.GetPartsOfKinds(c_kinds)), ElementsAre("y#1", "z#1"));
    EXPECT_THAT(Names(asked.objects.GetPartsOfKinds({1, 8})), ElementsAre("x", "y"));
}

TEST(ProductStructure, AttributesAreThoseOfThePartItself) {
    Product product;
    product.Object("a")
        .Separate()
        .NotInProduct()
        .Uses(1)
        .HiddenA()
        .CalculatedInProduct(true)
        .Uses(1)
        .HiddenB()
        .Phantom()
        .CountMark()
        .NotShown()
        .Uses(1)
        .NoHandler();
    Asked asked(product);
    const PartHandler object = asked.objects.GetPartHandler(Key("a"));
    EXPECT_TRUE(object.GetProductPart().attributes.separate);
    EXPECT_FALSE(object.GetProductPart().attributes.inProduct);
    EXPECT_FALSE(object.IsCalcAvailable());

    const PartHandler first = asked.uses.GetPartHandler(Key("a#1"));
    EXPECT_TRUE(first.GetProductPart().attributes.hiddenA);
    EXPECT_FALSE(first.GetProductPart().attributes.separate);
    EXPECT_EQ(first.GetPropertyCalculator().IsInProduct(), true);

    EXPECT_TRUE(asked.uses.GetPartHandler(Key("a#2")).GetProductPart().attributes.hiddenB);
    EXPECT_TRUE(asked.uses.GetProperty(Key("a#2"), L"isPhantom").to_bool());
    EXPECT_FALSE(asked.uses.GetProperty(Key("a#1"), L"isPhantom").to_bool());
    EXPECT_TRUE(asked.product->IsCountMark(Key("a#2")));
    EXPECT_FALSE(asked.product->IsShownInTree(Key("a#2")));
    EXPECT_TRUE(asked.product->IsShownInTree(Key("a#1")));

    EXPECT_FALSE(asked.uses.HasPartHandler(Key("a#3")));
    EXPECT_FALSE(asked.uses.GetPartHandler(Key("a#3")).IsValid());
    EXPECT_FALSE(asked.objects.HasPartHandler(Key("a#1")));
}

TEST(ProductStructure, AGroupSpeaksForItsParts) {
    Product product;
    product.Object("leader").Separate();
    product.Object("member").InGroupOf("leader");
    product.Object("lost").InGroupOf("nobody");
    product.Object("mute").NoHandler();
    Asked asked(product);
    const GroupPartHandler member = asked.aggregator.GetGroupPartHandler(Key("member"));
    EXPECT_EQ(member.GetGroupKey(), Key("leader"));
    EXPECT_TRUE(member.GetGroupPartHandler().GetProductPart().attributes.separate);
    EXPECT_FALSE(member.GetRawPartHandler().GetProductPart().attributes.separate);

    const GroupPartHandler leader = asked.aggregator.GetGroupPartHandler(Key("leader"));
    EXPECT_TRUE(leader.IsValid());
    EXPECT_TRUE(leader.GetGroupKey().IsEmpty());
    EXPECT_TRUE(leader.GetRawPartHandler().IsValid());
    EXPECT_FALSE(asked.aggregator.GetGroupPartHandler(Key("lost")).GetGroupPartHandler().IsValid());
    EXPECT_FALSE(asked.aggregator.GetGroupPartHandler(Key("mute")).GetRawPartHandler().IsValid());
    EXPECT_FALSE(asked.aggregator.GetGroupPartHandler(Key("unknown")).IsValid());
}

TEST(ProductStructure, SpecificationsAreThoseOfThePart) {
    namespace SP = meta_data::SP;
    Product product;
    product.Object("both").UsedIn({1, 2}).Uses(1).UsedIn({2});
    product.Object("none").NotUsed();
    product.Object("mute").NoHandler();
    Asked asked(product);
    const auto isUsed = [&](const char* key, SP::StyleId style) {
        return SP::IsSPUsed(asked.aggregator, Key(key), style);
    };
    EXPECT_TRUE(isUsed("both", 1));
    EXPECT_TRUE(isUsed("both", 2));
    EXPECT_FALSE(isUsed("both", 3));
    EXPECT_FALSE(isUsed("both#1", 1));
    EXPECT_TRUE(isUsed("both#1", SP::AllStyleId()));
    for (const char* const key : {"none", "mute", "unknown"})
        EXPECT_FALSE(isUsed(key, SP::AllStyleId())) << key;
}

TEST(ProductStructure, BilletsBelongToTheirOwner) {
    namespace SP = meta_data::SP;
    Product product;
    product.Object("shaft").Uses(1);
    product.Object("rod").BilletOf("shaft");
    product.Object("bar").BilletOf("shaft", BilletKind::Associative).Uses(1);
    product.Object("orphan").BilletOf("");
    Asked asked(product);
    EXPECT_THAT(Names(asked.objects.GetBillets(Key("shaft"))), UnorderedElementsAre("bar", "rod"));
    EXPECT_THAT(asked.uses.GetBillets(Key("shaft#1")), IsEmpty());
    EXPECT_EQ(asked.objects.GetBilletOwner(Key("rod")), Key("shaft"));
    EXPECT_EQ(asked.uses.GetBilletOwner(Key("bar#1")), Key("shaft"));
    EXPECT_TRUE(asked.objects.GetBilletOwner(Key("shaft")).IsEmpty());
    EXPECT_TRUE(SP::IsManualBillet(asked.aggregator, Key("rod")));
    EXPECT_TRUE(SP::IsManualBillet(asked.aggregator, Key("orphan")));
    EXPECT_FALSE(SP::IsManualBillet(asked.aggregator, Key("bar")));
    EXPECT_TRUE(SP::IsAssociativeBillet(asked.objects, Key("bar")));
    EXPECT_FALSE(SP::IsAssociativeBillet(asked.objects, Key("rod")));
}

TEST(ProductStructure, OwnersOfAnObjectOwnItsUses) {
    Asked asked(Product().Object("doc").Object("a").OwnedBy("doc").Uses(1));
    EXPECT_THAT(Names(asked.aggregator.GetOwners(Key("a#1"))), ElementsAre("doc"));
    EXPECT_THAT(asked.aggregator.GetOwners(Key("doc")), IsEmpty());
}

TEST(ProductStructure, TheRootIsAnObjectAndNoPart) {
    Asked asked(Product().Root(L"Gearbox").Object("a").Uses());
    EXPECT_TRUE(asked.aggregator.IsInfObject(Key("root")));
    EXPECT_THAT(Names(asked.objects.GetPartsOfKinds({0, 1, 2, 3, 4, 5, 6, 7, 8})), ElementsAre("a"));
    EXPECT_EQ(asked.objects.GetPartKind(Key("root")), 0);
    EXPECT_FALSE(asked.objects.HasPartHandler(Key("root")));
    EXPECT_FALSE(asked.aggregator.GetGroupPartHandler(Key("root")).IsValid());
    EXPECT_THAT(asked.aggregator.GetOccurrences(Key("root"), nullptr), IsEmpty());
}

TEST(ProductStructure, AModelThatMakesNoSenseDoesNoHarm) {
    Product product;
    product.Object("a").PartOf("a").BilletOf("a").Uses(2);
    product.Object("a", L"second of that key").Use("a#1");
    product.Object("");
    platform::ProductModel model = product;
    model.root.key = {};
    platform::MemoryProduct built(model);
    IfMetaProductData& objects = built.GetAggregator().GetMetaData();
    EXPECT_EQ(built.GetValue({Key("a"), {}, L"name", {}}).to_wstring().Str(), L"");
    EXPECT_EQ(built.GetAggregator().GetOccurrences(Key("a"), nullptr).size(), 2U);
    EXPECT_EQ(objects.GetPartsOfKinds(c_kinds).size(), 2U);
    EXPECT_EQ(built.GetTopKeys().size(), 1U);
    EXPECT_TRUE(built.GetValue({UniqueMetaObjectKey(), {}, L"name", {}}).IsEmpty());
}

} // namespace

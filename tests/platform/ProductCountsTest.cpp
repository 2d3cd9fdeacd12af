// Counts of a product in memory: what follows from the product, what was typed, and the way back.

#include "platform/values/Utf8.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

namespace {

using platform::MemoryProduct;
using support::Key;
using support::Product;

PropertyRef Ref(std::string_view key, std::string_view embodiment) { return {Key(key), Key(embodiment), L"count", {}}; }

std::wstring Count(const MemoryProduct& product, std::string_view key, std::string_view embodiment) {
    return product.GetValue(Ref(key, embodiment)).to_wstring().Str();
}

bool Commit(MemoryProduct& product, ProductInfObjChangesResult changes) {
    product.CommitChanges(changes);
    return changes.IsExistsChanges();
}

bool Type(MemoryProduct& product, std::string_view key, std::string_view embodiment, const wchar_t* text) {
    return Commit(product, product.MakeValueChanges(Ref(key, embodiment), PropValue(SimplePropVal(SharedText(text)))));
}

Product TwoEmbodiments() {
    return std::move(Product()
                         .Embodiment("e", L"01")
                         .Embodiment("f", L"02")
                         .Object("screw", L"Screw", L"1")
                         .Uses(3)
                         .Object("same", L"Screw", L"1")
                         .Use("same#1")
                         .In({"f"})
                         .Object("oil", L"Oil")
                         .Value(L"count", SimplePropVal(L"3,2"))
                         .Object("drawing")
                         .CountMark());
}

TEST(ProductCounts, ATypedCountStandsUntilItIsWorkedOutAgain) {
    const auto product = TwoEmbodiments().Make();
    for (const char* key : {"screw#1", "screw", "oil"}) {
        const std::wstring before = Count(*product, key, "e");
        EXPECT_FALSE(product->IsRecalcAvailable(Ref(key, "e")));
        EXPECT_TRUE(product->MakeRecalcChanges(Key(key), Key("e")).changedProperties.empty());
        ASSERT_TRUE(Type(*product, key, "e", L"9"));
        EXPECT_EQ(Count(*product, key, "e"), L"9");
        EXPECT_TRUE(product->IsRecalcAvailable(Ref(key, "e")));
        EXPECT_FALSE(product->IsRecalcAvailable(Ref(key, "f")));
        ASSERT_TRUE(Commit(*product, product->MakeRecalcChanges(Key(key), Key("e"))));
        EXPECT_EQ(Count(*product, key, "e"), before);
        product->Undo();
        EXPECT_EQ(Count(*product, key, "e"), L"9");
        product->Undo();
        EXPECT_EQ(Count(*product, key, "e"), before);
        EXPECT_EQ(product->GetModel(), TwoEmbodiments().Model());
        EXPECT_TRUE(!product->CanUndo());
    }
    ASSERT_TRUE(Type(*product, "screw#1", "e", L"9"));
    ASSERT_TRUE(Type(*product, "screw#1", "e", L"1"));
    EXPECT_EQ(product->GetModel(), TwoEmbodiments().Model()) << "nothing is kept of it";
}

TEST(ProductCounts, AGroupAddsUpNumbersAlone) {
    const auto product = TwoEmbodiments().Make();
    Type(*product, "screw#1", "f", L"0,5");
    EXPECT_EQ(Count(*product, "screw", "f"), L"3.5");
    Type(*product, "screw#1", "f", L"");
    EXPECT_EQ(Count(*product, "screw", "f"), L"4") << "worked out again";
    product->Change([](platform::ProductModel& model) {
        model.objects[0].occurrences[0].counts = {{Key("f"), L"as needed"}};
    });
    EXPECT_EQ(Count(*product, "screw", "f"), L"");
    product->DeleteObjects({Key("screw#1")});
    EXPECT_EQ(Count(*product, "screw", "f"), L"3");
    product->DeleteObjects({Key("same")});
    EXPECT_EQ(Count(*product, "screw", "f"), L"2");
    Commit(*product, product->MakeValueChanges({Key("screw"), {}, L"name", {}}, PropValue(SimplePropVal(L"Bolt"))));
    product->Undo();
    product->Undo();
    EXPECT_EQ(Count(*product, "screw", "f"), L"3") << "the like objects are found again";
}

TEST(ProductCounts, AGroupsTypedCountIsJudgedByWhatItsColumnShows) {
    const auto product = TwoEmbodiments().Make();
    const auto shown = [&] { return product->GetGroupCount(Key("screw"), {Key("e"), Key("f")}).to_wstring().Str(); };
    const auto isTyped = [&] { return product->IsRecalcAvailable(Ref("screw", "e")); };
    EXPECT_EQ(shown(), L"4");
    // As many as the first embodiment alone has.
    EXPECT_TRUE(Type(*product, "screw", "e", L"3"));
    EXPECT_EQ(shown(), L"3");
    EXPECT_TRUE(isTyped());
    EXPECT_TRUE(Type(*product, "screw", "e", L"4"));
    EXPECT_EQ(shown(), L"4");
    EXPECT_FALSE(isTyped());
}

TEST(ProductCounts, ARemovedLinkBringsNoOlderTypedCountBack) {
    const auto product = Product()
                             .Object("a")
                             .Value(L"count", SimplePropVal(L"9"))
                             .Object("b")
                             .Count("root", L"7")
                             .Link(L"count", "a", L"count")
                             .Object("c")
                             .Link(L"count", "a", L"count")
                             .Uses()
                             .Count("root", L"6")
                             .Make();
    const PropertyRef b{Key("b"), {}, L"count", {}};
    product->DestroyHypertext({b, {Key("c"), {}, L"count", {}}});
    EXPECT_EQ(Count(*product, "b", "root"), L"9");
    EXPECT_EQ(Count(*product, "c#1", "root"), L"9");
    product->Undo();
    EXPECT_TRUE(product->IsHypertext(b));
}

TEST(ProductCounts, ALinkedCountIsThatOfTheOtherObject) {
    const auto product = TwoEmbodiments().Object("can").Count("e", L"5").Link(L"count", "oil", L"count").Make();
    EXPECT_EQ(Count(*product, "can", "e"), L"3,2");
    EXPECT_FALSE(Type(*product, "can", "e", L"7"));
    EXPECT_FALSE(product->IsRecalcAvailable(Ref("can", "e")));
}

TEST(ProductCounts, ACountIsANumberFromZeroOnWithAUnitPerhaps) {
    const auto product = Product().Object("a").Uses().Make();
    const auto give = [&](const wchar_t* text) { return Type(*product, "a#1", "root", text); };
    for (const wchar_t* text : {L"7", L"0", L"2,5", L" 3 m", L"0.5 m\u00B2", L"12pcs"})
        EXPECT_TRUE(give(text)) << platform::ToUtf8(text);
    static_cast<void>(product->TakeRefusal());
    for (const wchar_t* text : {L"abc", L"-3", L"3-4", L"1e5", L",5", L"2.", L"x"}) {
        EXPECT_FALSE(give(text)) << platform::ToUtf8(text);
        EXPECT_FALSE(product->TakeRefusal().IsEmpty());
    }
    EXPECT_TRUE(give(L"")) << "it is worked out again";
    EXPECT_EQ(Count(*product, "a#1", "root"), L"1");
    EXPECT_FALSE(product->IsRecalcAvailable(Ref("a#1", "root")));
}

} // namespace

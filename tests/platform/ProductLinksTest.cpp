#include "platform/services/UserDecisions.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

namespace {

using platform::MemoryProduct;
using platform::PropertyChoice;
using platform::ScriptedDecisions;
using support::Key;
using support::Product;

PropertyRef Ref(std::string_view key, const wchar_t* path) { return {Key(key), {}, path, {}}; }

std::wstring Text(const MemoryProduct& product, std::string_view key, const wchar_t* path) {
    return product.GetValue(Ref(key, path)).to_wstring().Str();
}

bool Set(MemoryProduct& product, std::string_view key, const wchar_t* path, const wchar_t* value) {
    ProductInfObjChangesResult changes = product.MakeValueChanges(Ref(key, path), PropValue(SimplePropVal(value)));
    product.CommitChanges(changes);
    return changes.IsExistsChanges();
}

Product Three() {
    Product product;
    product.Object("a", L"A").Value(L"note", SimplePropVal(L"first")).Uses(1);
    product.Object("b", L"B").Uses(2);
    product.Object("c", L"C").Uses(1);
    return product;
}

TEST(ProductLinks, OfSeveralObjectsAreOneOrNot) {
    Product builder = Three();
    builder.Object("d").Link(L"comment", "a", L"note");
    builder.Object("e").Link(L"comment", "a", L"note");
    builder.Object("f").Link(L"comment", "b", L"note");
    const auto product = builder.Make();
    EXPECT_TRUE(product->AreHypertext({Key("d"), Key("e")}, L"comment"));
    EXPECT_FALSE(product->AreHypertext({Key("d"), Key("f")}, L"comment"));
    EXPECT_FALSE(product->AreHypertext({Key("d"), Key("a")}, L"comment"));
    EXPECT_FALSE(product->AreHypertext({}, L"comment"));
}

TEST(ProductLinks, AreMadeChangedAndTakenAwayInOneStepEach) {
    const auto product = Three().Make();
    const std::vector<PropertyRef> refs{Ref("b#1", L"comment"), Ref("b#2", L"comment"), Ref("c", L"comment"),
                                        Ref("c", L"marking")};
    EXPECT_FALSE(product->InsertHypertext(refs)); // nobody to ask
    ScriptedDecisions decisions;
    product->SetDecisions(&decisions);
    EXPECT_FALSE(product->InsertHypertext(refs)); // nothing chosen

    decisions.ChooseNextProperty(PropertyChoice{Key("a"), L"note"});
    EXPECT_TRUE(product->InsertHypertext(refs));
    EXPECT_EQ(Text(*product, "b", L"comment"), L"first");
    EXPECT_EQ(Text(*product, "c", L"comment"), L"first");
    EXPECT_EQ(product->GetUndoName().Str(), L"Link");
    EXPECT_FALSE(product->CanInsertHypertext(refs[0], 2));

    decisions.ChooseNextProperty(PropertyChoice{Key("a"), L"name"});
    EXPECT_TRUE(product->EditHypertext({refs[0], refs[2]}));
    EXPECT_EQ(decisions.GetPropertyRequests().back().present, (PropertyChoice{Key("a"), L"note"}));
    EXPECT_EQ(Text(*product, "c", L"comment"), L"A");

    product->DestroyHypertext(refs);
    EXPECT_FALSE(product->IsHypertext(refs[0]));
    EXPECT_EQ(Text(*product, "b", L"comment"), L"A");
    Set(*product, "a", L"name", L"Axle");
    EXPECT_EQ(Text(*product, "b", L"comment"), L"A");
    for (int i = 0; i < 4; ++i)
        product->Undo();
    EXPECT_EQ(product->GetModel(), Three().Model());
}

TEST(ProductLinks, NeverLeadToThemselves) {
    Product builder = Three();
    builder.Object("d").Link(L"comment", "b", L"note").Uses(1);
    const auto product = builder.Make();
    ScriptedDecisions decisions;
    product->SetDecisions(&decisions);
    for (const PropertyChoice& choice : {PropertyChoice{Key("b"), L"note"}, PropertyChoice{Key("b#2"), L"note"},
                                         PropertyChoice{Key("d#1"), L"comment"}}) {
        decisions.ChooseNextProperty(choice);
        EXPECT_FALSE(product->InsertHypertext({Ref("b#1", L"note")}));
    }
    EXPECT_EQ(decisions.GetMessages().size(), 3U);
    EXPECT_FALSE(product->CanUndo());
}

TEST(ProductLinks, LeadOnlyWhereTheValueCanBeShown) {
    const auto product = Three().Make();
    ScriptedDecisions decisions;
    product->SetDecisions(&decisions);
    decisions.ChooseNextProperty(PropertyChoice{Key("a"), L"note"}); // a text
    EXPECT_FALSE(product->InsertHypertext({Ref("b", L"mass")}));
    for (const auto& property : decisions.GetPropertyRequests().front().properties)
        EXPECT_NE(property.id.Str(), L"note");
    EXPECT_FALSE(product->CanInsertHypertext(Ref("b", L"marking"), 2));
    EXPECT_FALSE(product->CanInsertHypertext(Ref("b", L"notSected"), 0)); // a list
    EXPECT_FALSE(product->CanInsertHypertext(Ref("b", L"fromExternalLibrary"), 3));
    EXPECT_TRUE(product->CanInsertHypertext(Ref("b", L"name"), 2));
    EXPECT_FALSE(product->CanEditHypertext(Ref("b", L"name")));
}

TEST(ProductLinks, KeepTheLastValueOfWhatIsDeleted) {
    Product builder = Three();
    builder.Object("d").Link(L"comment", "a", L"note").Uses(1);
    const auto product = builder.Make();
    const platform::ProductModel before = product->GetModel();
    product->DeleteObjects({Key("a")});
    EXPECT_TRUE(product->IsHypertext(Ref("d", L"comment")));
    EXPECT_FALSE(product->IsHypertextActive(Ref("d", L"comment")));
    EXPECT_EQ(Text(*product, "d#1", L"comment"), L"first");
    product->Undo();
    EXPECT_TRUE(product->IsHypertextActive(Ref("d", L"comment")));
    EXPECT_EQ(product->GetModel(), before);
}

TEST(ProductLinks, OfMassAndDensityCountAsMasses) {
    Product builder;
    builder.MassOfParts();
    builder.Object("a").Value(L"material.density", SimplePropVal(1000.0)).Mass(1).Uses(1);
    builder.Object("b").Volume(0.01).Link(L"material.density", "a", L"material.density").Uses(1);
    builder.Object("c").Link(L"mass", "a", L"mass").Uses(1);
    const auto product = builder.Make();
    Set(*product, "a", L"material.density", L"2000");
    EXPECT_EQ(Text(*product, "b", L"mass"), L"20");
    EXPECT_EQ(Text(*product, "root", L"mass"), L"22");
    Set(*product, "a", L"mass", L"3");
    EXPECT_EQ(Text(*product, "root", L"mass"), L"26");
}

} // namespace

#include "host/ProductProperties.h"
#include "platform/product/edits/MassRules.h"
#include "platform/product/validation/ProductValidation.h"
#include "platform/services/UserDecisions.h"
#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using platform::MemoryProduct;
using platform::ProductModel;
using support::Key;
using support::Product;

PropertyRef Ref(std::string_view key, const wchar_t* path) { return {Key(key), {}, path, {}}; }

void Set(MemoryProduct& product, std::string_view key, const wchar_t* path, SimplePropVal value) {
    ProductInfObjChangesResult changes = product.MakeValueChanges(Ref(key, path), PropValue(std::move(value)));
    product.CommitChanges(changes);
}

/// Objects that hang together in every way.
Product Tangle() {
    Product product;
    product.MassOfParts().Embodiment("e1").Embodiment("e2");
    product.Object("a", L"A").Mass(1).Value(L"note", SimplePropVal(L"n")).Uses(3).In({"e1"});
    product.Object("b", L"B").PartOf("a").OwnedBy("a").Uses(1).Value(L"note", {});
    product.Object("c").Volume(0.5).InGroupOf("a").Uses(2).InGroupOf("a#1");
    product.Object("raw").BilletOf("a").Link(L"comment", "a", L"note");
    product.Object("bar").BilletOf("raw").Uses(1);
    product.Object("d").Link(L"comment", "a#2", L"note").Link(L"name", "b", L"name");
    return product;
}

TEST(ProductDeletion, TakesAlongWhatCannotStayAndBringsItBackInPlace) {
    struct {
        std::set<UniqueMetaObjectKey> keys;
        const char* left;
        std::optional<SharedText> name;
        int count;
    } const cases[] = {{{Key("a#2")}, "a:2 b:1 c:2 raw:0 bar:1 d:0 ", SharedText(L"A"), 1},
                       {{Key("a#1"), Key("a#3")}, "a:1 b:1 c:2 raw:0 bar:1 d:0 ", SharedText(L"A"), 2},
                       {{Key("a#1"), Key("a#2"), Key("a#3")}, "b:1 c:2 d:0 ", SharedText(L"A"), 4},
                       {{Key("a")}, "b:1 c:2 d:0 ", SharedText(L"A"), 4},
                       {{Key("raw"), Key("c#1")}, "a:3 b:1 c:1 d:0 ", std::nullopt, 2},
                       {{Key("b#1")}, "a:3 c:2 raw:0 bar:1 d:0 ", SharedText(L"B"), 1},
                       {{Key("root"), Key("gone")}, "a:3 b:1 c:2 raw:0 bar:1 d:0 ", std::nullopt, 0}};
    for (const auto& sample : cases) {
        const auto product = Tangle().Make();
        const ProductModel before = product->GetModel();
        const DeleteInfo info = product->GetDeleteInfo(sample.keys);
        EXPECT_EQ(info.name, sample.name) << sample.left;
        EXPECT_EQ(info.count, sample.count) << sample.left;
        EXPECT_EQ(product->DeleteObjects(sample.keys), sample.count > 0);
        std::string left;
        for (const platform::ObjectRecord& object : product->GetModel().objects)
            left += object.key.String() + ":" + std::to_string(object.occurrences.size()) + " ";
        EXPECT_EQ(left, sample.left);
        const auto fault = platform::ValidateModel(product->GetModel());
        EXPECT_FALSE(fault) << fault->path << ": " << fault->reason;
        product->Undo();
        EXPECT_EQ(product->GetModel(), before) << sample.left;
    }
}

TEST(ProductDeletion, IsGatedByTheDocumentAndTheRoot) {
    const auto product = Tangle().Make();
    EXPECT_TRUE(product->CanDelete(Key("a#1")));
    EXPECT_TRUE(product->CanDelete(Key("raw")));
    EXPECT_FALSE(product->CanDelete(Key("root")));
    EXPECT_FALSE(product->CanDelete(Key("gone")));
    const auto fixed = Tangle().ReadOnly().Make();
    EXPECT_FALSE(fixed->CanDelete(Key("a#1")));
    EXPECT_FALSE(fixed->DeleteObjects({Key("a#1")}));
}

TEST(ProductBillets, AreAddedBehindTheirOwner) {
    const auto product = Tangle().Make();
    const ProductModel before = product->GetModel();
    const UniqueMetaObjectKey billet = product->AddBillet(Key("a#1"));
    EXPECT_EQ(product->GetModel().objects[1].key, billet);
    EXPECT_TRUE(product->GetAggregator().IsManualBillet(billet));
    EXPECT_EQ(product->GetAggregator().GetMetaData().GetBilletOwner(billet), Key("a"));
    EXPECT_NE(product->AddBillet(Key("a")), billet);
    EXPECT_TRUE(product->AddBillet(billet).IsEmpty());
    EXPECT_FALSE(platform::ValidateModel(product->GetModel()));
    product->Undo();
    product->Undo();
    EXPECT_EQ(product->GetModel(), before);
    EXPECT_EQ(product->GetRedoName().Str(), L"New billet");
}

TEST(ProductHistory, NamesEachStepByWhatItDid) {
    const auto product = Tangle().Make();
    Set(*product, "a", L"name", SimplePropVal(L"Axle"));
    EXPECT_EQ(product->GetUndoName().Str(), L"Change of Name");
    product->DeleteObjects({Key("a#1"), Key("b#1")});
    EXPECT_EQ(product->GetUndoName().Str(), L"Deletion of 2 objects");
    product->DeleteObjects({Key("d")});
    EXPECT_EQ(product->GetUndoName().Str(), L"Deletion of \u201CB\u201D");
    product->Undo();
    product->Undo();
    EXPECT_EQ(product->GetRedoName().Str(), L"Deletion of 2 objects");
    EXPECT_EQ(product->GetUndoName().Str(), L"Change of Name");
    product->Undo();
    EXPECT_TRUE(product->GetUndoName().IsEmpty());
}

TEST(ProductHistory, KnowsWhetherTheDocumentIsSaved) {
    const auto product = Tangle().Columns({L"mass", L"note"}).Make();
    EXPECT_FALSE(product->IsModified());
    Set(*product, "a", L"note", SimplePropVal(L"1"));
    EXPECT_TRUE(product->IsModified());
    product->MarkSaved();
    Set(*product, "a", L"note", SimplePropVal(L"2"));
    product->Undo();
    EXPECT_FALSE(product->IsModified());
    product->Undo();
    EXPECT_TRUE(product->IsModified());
    Set(*product, "a", L"note", SimplePropVal(L"3")); // the saved state can't be reached any more
    EXPECT_FALSE(product->CanRedo());
    product->Undo();
    EXPECT_TRUE(product->IsModified());

    product->MarkSaved();
    product->Change([](ProductModel& model) { model.objects.back().iconType = 3; });
    EXPECT_FALSE(product->IsModified());
    product->SetColumnVisible(L"note", false);
    EXPECT_TRUE(product->IsModified());
    EXPECT_FALSE(product->CanUndo());
}

TEST(ProductHistory, AnotherStateOfTheDocumentIsAStepLikeAnyOther) {
    const auto product = Tangle().Make();
    Set(*product, "a", L"note", SimplePropVal(L"1"));
    product->BeginRebuild();
    const std::uint64_t stamp = product->GetChangeStamp();
    product->Replace(Product().Root(L"Other").UserProperty(1001, L"Own", 2).Model(), L"Reading");
    EXPECT_EQ(product->GetUndoName().Str(), L"Reading");
    EXPECT_FALSE(product->IsModified());
    EXPECT_TRUE(product->IsRebuildRequired());
    EXPECT_NE(product->GetChangeStamp(), stamp);
    EXPECT_EQ(product->GetModel().root.name.Str(), L"Other");
    EXPECT_TRUE(product->GetPropertyDescription(L"user.1001"));
    product->Undo();
    EXPECT_TRUE(product->IsModified());
    EXPECT_FALSE(product->GetPropertyDescription(L"user.1001"));
    EXPECT_EQ(product->GetValue(Ref("a", L"note")).to_wstring().Str(), L"1");
    product->Undo();
    EXPECT_FALSE(product->CanUndo());
    product->Redo();
    product->Redo();
    EXPECT_FALSE(product->IsModified());
}

TEST(ProductHistory, SurvivesChangesThatAreNoSteps) {
    const auto product = Tangle().Make();
    Set(*product, "c", L"material.density", SimplePropVal(10.0)); // 5 kg of half a cubic metre
    Set(*product, "b", L"note", SimplePropVal(L"x"));
    product->Change([](ProductModel& model) {
        model.objects.erase(model.objects.begin() + 1);
        platform::ApplyVolumes(model, {{Key("c"), 2.0}, {Key("gone"), 1.0}, {Key("a"), -1.0}});
    });
    const auto massOfC = [&] { return product->GetValue(Ref("c", L"mass")).to_double(); };
    EXPECT_EQ(massOfC(), 20);
    product->Undo(); // of what is gone
    product->Undo();
    EXPECT_TRUE(product->GetValue(Ref("c", L"mass")).IsEmpty());
    product->Redo();
    EXPECT_EQ(product->GetValue(Ref("c", L"material.density")).to_double(), 10);
    product->Redo();
    EXPECT_EQ(product->GetModel().objects.size(), 5U);
}

const wchar_t* Pick(std::initializer_list<const wchar_t*> texts) {
    return texts.begin()[*rc::gen::inRange<std::size_t>(0, texts.size())];
}

/// One of the things that a user can do to the tangle.
void DoSomething(MemoryProduct& product, platform::ScriptedDecisions& decisions) {
    const char* const keys[] = {"root", "a", "a#1", "a#2", "a#3", "b", "b#1", "c", "c#1", "raw", "bar", "bar#1", "d"};
    const wchar_t* const paths[] = {L"name", L"note", L"mass", L"comment", L"material.density", L"zone"};
    const auto key = [&] { return keys[*rc::gen::inRange<std::size_t>(0, std::size(keys))]; };
    const PropertyRef ref = Ref(key(), paths[*rc::gen::inRange<std::size_t>(0, std::size(paths))]);
    ProductInfObjChangesResult changes;
    switch (*rc::gen::inRange(0, 9)) {
    case 0:
        product.DeleteObjects({Key(key())});
        break;
    case 1:
        product.DeleteObjects({Key(key()), Key(key()), Key(key())});
        break;
    case 2:
        product.AddBillet(Key(key()));
        break;
    case 3:
        decisions.ChooseNextProperty(platform::PropertyChoice{Key(key()), Pick({L"note", L"comment", L"mass"})});
        product.InsertHypertext({ref, Ref(key(), L"comment")});
        break;
    case 4:
        product.DestroyHypertext({ref});
        break;
    case 5:
        product.TransmitToSource(ref.propertyId, {{ref.objectKey, PropValue()}});
        break;
    case 6:
        changes = product.MakeBySourceChanges(ref, *rc::gen::arbitrary<bool>());
        break;
    default:
        changes = product.MakeValueChanges(ref, PropValue(SimplePropVal(Pick({L"1", L"2", L"3", L""}))));
        changes += product.MakeValueChanges(Ref(key(), L"note"), PropValue(SimplePropVal(Pick({L"1", L""}))));
    }
    product.CommitChanges(changes);
}

RC_GTEST_PROP(ProductHistory, LeadsBackAndForthThroughTheSameStates, ()) {
    const auto product = Tangle().Make();
    platform::ScriptedDecisions decisions;
    product->SetDecisions(&decisions);
    std::vector<ProductModel> states{product->GetModel()};
    const int count = *rc::gen::inRange(1, 12);
    for (int i = 0; i < count; ++i) {
        const std::uint64_t stamp = product->GetChangeStamp();
        DoSomething(*product, decisions);
        if (product->GetChangeStamp() == stamp)
            RC_ASSERT(product->GetModel() == states.back());
        else
            states.push_back(product->GetModel());
        RC_ASSERT(!platform::ValidateModel(product->GetModel()));
    }
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        RC_ASSERT(product->IsModified());
        product->Undo();
        RC_ASSERT(product->GetModel() == states[i - 1]);
    }
    RC_ASSERT(!product->CanUndo());
    RC_ASSERT(!product->IsModified());
    for (std::size_t i = 1; i < states.size(); ++i) {
        product->Redo();
        RC_ASSERT(product->GetModel() == states[i]);
    }
    RC_ASSERT(!product->CanRedo());
}

} // namespace

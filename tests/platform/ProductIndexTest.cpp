#include "host/ProductProperties.h"
#include "host/data/IfProductDataAggregator.h"
#include "tests/support/ProductBuilder.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace {

using platform::MemoryProduct;
using platform::ProductModel;
using support::Key;
using support::Product;

/// What a panel asks about a property each time it refreshes, as one text.
std::wstring Ask(const MemoryProduct& product, const PropertyRef& ref) {
    const std::optional<bool> bySource = product.GetBySource(ref);
    std::wstring answers = product.GetValue(ref).to_wstring().Str();
    answers += product.IsReadOnly(ref) ? L", fixed" : L"";
    answers += product.IsHypertext(ref) ? L", linked" : L"";
    answers += !bySource ? L", no source" : *bySource ? L"" : L", own";
    return answers;
}

void Set(MemoryProduct& product, const PropertyRef& ref, const wchar_t* text) {
    auto changes = product.MakeValueChanges(ref, PropValue(SimplePropVal(text)));
    product.CommitChanges(changes);
}

void KeepAsOwn(MemoryProduct& product, const PropertyRef& ref) {
    auto changes = product.MakeBySourceChanges(ref, false);
    product.CommitChanges(changes);
}

Product Pair() {
    Product product;
    product.Object("a").Value(L"note", SimplePropVal(L"first")).Uses(2);
    product.Object("b").Value(L"zone", SimplePropVal(L"B1")).Uses(1);
    return product;
}

Product OtherPair() {
    Product product;
    product.Object("b").Value(L"zone", SimplePropVal(L"B2")).Uses(1);
    product.Object("a").ReadOnlyValue(L"note").Value(L"zone", {});
    product.Value(L"note", SimplePropVal(L"new")).Uses(2);
    return product;
}

void LinkToB(ProductModel& model) {
    model.objects[0].links = {{ProductProperties::GetPropId(L"note"), Key("b"), ProductProperties::GetPropId(L"zone")}};
}

TEST(ProductAnswers, AreThoseOfNowHoweverOftenOneAndTheSameWasAsked) {
    const auto product = Pair().Make();
    // One key and one text throughout, as a row has them.
    const PropertyRef ref{Key("a#2"), {}, L"note", {}};
    const struct {
        std::function<void()> change;
        const wchar_t* answers;
    } steps[] = {
        {[] {}, L"first"},
        {[&] { Set(*product, ref, L"second"); }, L"second"},
        {[&] { KeepAsOwn(*product, ref); }, L"second, own"},
        {[&] { Set(*product, ref, L"third"); }, L"third, own"},
        {[&] { product->DeleteObjects({ref.objectKey}); }, L", fixed, no source"},
        {[&] { product->Undo(); }, L"third, own"},
        {[&] { product->Undo(); }, L"second, own"},
        {[&] { product->Undo(); }, L"second"},
        {[&] { product->Change(LinkToB); }, L"B1, linked"},
        {[&] {
             Set(*product, {Key("b"), {}, L"zone", {}}, L"C");
         },
         L"C, linked"},
        {[&] { product->DestroyHypertext({ref}); }, L"C"},
        {[&] { product->Undo(); }, L"C, linked"},
        {[&] { product->DeleteObjects({Key("b#1")}); }, L"C, linked"},
        {[&] { product->Replace(Pair().ReadOnly(), {}); }, L"first, fixed"},
        {[&] { product->Replace(OtherPair(), {}); }, L"new, fixed"},
        {[&] { product->Replace(Product(), {}); }, L", fixed, no source"},
        {[&] { product->Replace(Pair(), {}); }, L"first"},
    };
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        steps[i].change();
        EXPECT_EQ(Ask(*product, ref), steps[i].answers) << "step " << i;
    }
}

TEST(ProductAnswers, AreFoundByAnyTextOfThePathHoweverManyThereAre) {
    Product product;
    product.Object("a").Value(L"note", SimplePropVal(L"n")).Value(L"zone", SimplePropVal(L"z"));
    const auto made = product.Uses(1).Make();
    std::vector<PropertyRef> refs;
    for (int i = 0; i < 1000; ++i)
        refs.push_back({Key("a#1"), {}, i % 3 == 0 ? L"note" : i % 3 == 1 ? L"zone" : L"", {}});
    for (int i = 0; i < 1000; ++i) {
        const wchar_t* const expected = i % 3 == 0 ? L"n" : i % 3 == 1 ? L"z" : L"";
        ASSERT_EQ(made->GetValue(refs[static_cast<std::size_t>(i)]).to_wstring().Str(), expected);
    }
}

/// The objects and the uses in the order of their keys, each with a value of its object.
std::wstring List(const MemoryProduct& product) {
    std::wstring list;
    for (const IfMetaProductData* const body :
         {&product.GetAggregator().GetMetaData(), &product.GetAggregator().GetPrimaryMetaData()}) {
        for (const UniqueMetaObjectKey& key : body->GetPartsOfKinds({PartKindDetail})) {
            const SharedText value = product.GetValue({key, {}, L"note", {}}).to_wstring();
            list += key.WString() + L':' + value.Str() + L' ';
        }
        list += L"| ";
    }
    return list;
}

TEST(ProductIndex, FindsPartsThatComeAndGoManyTimes) {
    Product filled;
    for (const char* const key : {"c", "a", "d", "b"})
        filled.Object(key).Value(L"note", SimplePropVal(Key(key).WString().c_str())).Uses(2);
    const auto product = filled.Make();
    const std::wstring all = L"a:a b:b c:c d:d | a#1:a a#2:a b#1:b b#2:b c#1:c c#2:c d#1:d d#2:d | ";
    ASSERT_EQ(List(*product), all);
    for (int i = 0; i < 100; ++i) {
        product->DeleteObjects({Key("a"), Key("d#1")});
        ASSERT_EQ(List(*product), L"b:b c:c d:d | b#1:b b#2:b c#1:c c#2:c d#2:d | ") << i;
        product->DeleteObjects({Key("c"), Key("b#2")});
        ASSERT_EQ(List(*product), L"b:b d:d | b#1:b d#2:d | ") << i;
        product->Undo();
        product->Undo();
        ASSERT_EQ(List(*product), all) << i;
    }
}

} // namespace

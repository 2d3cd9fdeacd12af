#include "host/ProductProperties.h"
#include "tests/platform/AllocationCounter.h"
#include "tests/support/GeneratedProduct.h"
#include "tests/support/ProductBuilder.h"

#include <boost/property_tree/ptree.hpp>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using platform::MemoryProduct;
using platform::ProductModel;
using support::Key;
using support::Product;

PropValue Value(const MemoryProduct& product, std::string_view key, const wchar_t* path) {
    return product.GetValue({Key(key), {}, path, {}});
}

TEST(ProductQuestions, AnOccurrenceHasTheValuesOfItsObject) {
    Product builder;
    builder.Root(L"Gearbox", L"AB.100");
    builder.Object("a", L"Shaft", L"AB.101").Mass(2.5).Value(L"note", SimplePropVal(L"turned")).Uses(1);
    const auto product = builder.Make();
    for (const char* const key : {"a", "a#1"}) {
        EXPECT_EQ(Value(*product, key, L"name").to_wstring().Str(), L"Shaft");
        EXPECT_EQ(Value(*product, key, L"mass").to_double(), 2.5);
        EXPECT_EQ(Value(*product, key, L"note").to_wstring().Str(), L"turned");
        VariantMarking marking;
        marking.FromPropertyTree(Value(*product, key, L"marking").GetPropertyTree());
        EXPECT_EQ(marking.GetBase().Str(), L"AB.101");
    }
    EXPECT_EQ(Value(*product, "root", L"name").to_wstring().Str(), L"Gearbox");
}

TEST(ProductQuestions, WhatIsNotThereIsEmpty) {
    const auto product = Product().Object("a").Uses(1).Make();
    for (const wchar_t* const path : {L"name", L"marking", L"mass", L"user.1000", L"nonsense", L""}) {
        EXPECT_TRUE(Value(*product, "a", path).IsEmpty());
        EXPECT_TRUE(Value(*product, "unknown", path).IsEmpty());
    }
}

TEST(ProductQuestions, ReadingValuesAllocatesNothing) {
    const MemoryProduct product(support::GenerateProduct(64));
    const auto& object = product.GetModel().objects.front();
    std::vector<PropertyRef> refs;
    for (const unsigned long number : product.GetVisiblePropertyIds())
        refs.push_back({object.occurrences.front().key, {}, ProductProperties::GetPath(number), {}});
    refs.push_back({object.key, {}, L"name", {}});
    refs.push_back({object.key, {}, L"marking", {}});
    refs.push_back({object.key, {}, L"no such property", {}});
    for (const PropertyRef& ref : refs)
        static_cast<void>(product.GetValue(ref)); // the first time the path is looked up

    const std::size_t before = host_tests::GetAllocationCount();
    for (const PropertyRef& ref : refs) {
        static_cast<void>(product.GetValue(ref));
        static_cast<void>(product.IsReadOnly(ref));
        static_cast<void>(product.GetBySource(ref));
        static_cast<void>(product.IsHypertext(ref));
        static_cast<void>(product.IsHypertextActive(ref));
    }
    EXPECT_EQ(host_tests::GetAllocationCount(), before);
    EXPECT_TRUE(product.GetValue(refs[refs.size() - 3]).GetSimpleValue().to_wstring().IsSame(object.name));
}

TEST(ProductQuestions, OneTextHasOneNumberWhateverWasAskedBefore) {
    // Many more texts than are remembered, some of them at addresses used before.
    const auto product = Product().Object("a", L"Shaft").Mass(2).Make();
    for (int i = 0; i < 1000; ++i) {
        EXPECT_EQ(Value(*product, "a", L"mass").to_double(), 2);
        EXPECT_EQ(Value(*product, "a", L"name").to_wstring().Str(), L"Shaft");
        const std::wstring other = L"user." + std::to_wstring(1000 + i);
        EXPECT_TRUE(Value(*product, "a", other.c_str()).IsEmpty());
    }
}

TEST(ProductQuestions, RowsShowWhatTheirObjectSays) {
    Product builder;
    builder.Object("a").Icon(4).NotActual().ExcludedFromCount().AggrIntoProduct(false).LockedMarkingParts({1, 7}).Uses(
        1);
    const auto product = builder.Make();
    EXPECT_EQ(product->GetIconType(Key("a#1")), 4);
    EXPECT_FALSE(product->IsActual(Key("a#1")));
    EXPECT_TRUE(product->IsExcludedFromCount(Key("a#1")));
    EXPECT_EQ(product->GetAggrIntoProduct(Key("a#1")), false);
    EXPECT_EQ(product->GetLockedMarkingParts(Key("a#1")), (std::set<int>{1, 7}));

    EXPECT_EQ(product->GetIconType(Key("unknown")), 26);
    EXPECT_TRUE(product->IsActual(Key("unknown")));
    EXPECT_EQ(product->GetAggrIntoProduct(Key("unknown")), std::nullopt);
}

TEST(ProductQuestions, TheSectionIsThatOfTheObject) {
    const auto product = Product().Object("a").SectionNumbers({20, 0, 5, 1}, L"Parts").Uses(1).Make();
    const SPCSection section = FindSpcSection(product->GetAggregator(), Key("a#1"), nullptr);
    EXPECT_EQ(section.numbers, (std::array<std::int32_t, 6>{20, 0, 5, 1, 0, 0}));
    EXPECT_EQ(section.name.Str(), L"Parts");
    EXPECT_EQ(FindSpcSection(product->GetAggregator(), Key("unknown"), nullptr), SPCSection());
}

TEST(ProductQuestions, AChangeMovesTheStampAndIsSeenAtOnce) {
    const auto product = Product().Object("a", L"Old").Uses(1).Make();
    const std::uint64_t stamp = product->GetChangeStamp();
    EXPECT_EQ(product->GetChangeStamp(), stamp);
    product->Change([](ProductModel& model) {
        model.objects.front().name = L"New";
        model.objects.insert(model.objects.begin(), 100, model.objects.front());
        for (std::size_t i = 0; i < 100; ++i)
            model.objects[i].key = UniqueMetaObjectKey("n" + std::to_string(i));
    });
    EXPECT_NE(product->GetChangeStamp(), stamp);
    EXPECT_EQ(Value(*product, "a#1", L"name").to_wstring().Str(), L"New");
    EXPECT_EQ(Value(*product, "n99", L"name").to_wstring().Str(), L"New");
}

TEST(ProductQuestions, HalfAChangeIsStillOneDocument) {
    const auto product = Product().Object("a", L"Old").Uses(1).Make();
    const std::uint64_t stamp = product->GetChangeStamp();
    EXPECT_THROW(product->Change([](ProductModel& model) {
        model.objects.clear();
        throw std::runtime_error("half done");
    }),
                 std::runtime_error);
    EXPECT_NE(product->GetChangeStamp(), stamp);
    EXPECT_TRUE(Value(*product, "a", L"name").IsEmpty());
    EXPECT_TRUE(product->GetAggregator().GetMetaData().GetDirectParts(Key("root")).empty());
}

TEST(ProductQuestions, LookingAtEmbodimentsIsNoChange) {
    const auto product = Product().Embodiment("e").Make();
    const std::uint64_t stamp = product->GetChangeStamp();
    product->SetEmbodimentMode(true);
    EXPECT_TRUE(product->IsEmbodimentMode());
    EXPECT_EQ(product->GetChangeStamp(), stamp);
}

TEST(ProductQuestions, AReadOnlyDocumentHasNoValueToEdit) {
    const PropertyRef ref{Key("a"), {}, L"name", {}};
    EXPECT_FALSE(Product().Object("a").Make()->IsReadOnly(ref));
    EXPECT_TRUE(Product().Object("a").ReadOnly().Make()->IsReadOnly(ref));
    EXPECT_TRUE(Product().Make()->IsReadOnly(ref));
}

TEST(ProductQuestions, TheGeneratedProductIsWhatTheBenchmarkSays) {
    const ProductModel model = support::GenerateProduct(1001);
    std::size_t occurrences = 0;
    for (const platform::ObjectRecord& object : model.objects)
        occurrences += object.occurrences.size();
    EXPECT_EQ(occurrences, 1001U);
    EXPECT_EQ(model.style->sections.size(), 40U);
    EXPECT_EQ(model.visibleProperties.size(), 14U);
    EXPECT_EQ(support::GenerateProduct(50).objects.back().key, support::GenerateProduct(50).objects.back().key);
}

} // namespace

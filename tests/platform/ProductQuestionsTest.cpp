#include "host/ProductProperties.h"
#include "tests/platform/AllocationCounter.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/RandomProduct.h"

#include <algorithm>
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

TEST(ProductQuestions, ReadingValuesAllocatesNothing) {
    const MemoryProduct product(support::MakeRandomProduct(1, 64));
    const auto& objects = product.GetModel().objects;
    const auto& object = *std::ranges::find_if(objects, [](const auto& one) { return !one.occurrences.empty(); });
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

} // namespace

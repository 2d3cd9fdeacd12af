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

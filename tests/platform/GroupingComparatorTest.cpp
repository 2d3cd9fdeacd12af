#include "host/data/Grouping.h"
#include "host/data/IfProductDataAggregator.h"
#include "tests/support/GeneratedProduct.h"
#include "tests/support/ProductBuilder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <rapidcheck/gtest.h>

namespace {

using meta_data::grouping::CreateDefaultGroupingComparator;
using meta_data::grouping::IfGroupingComparator;
using support::Key;
using support::Product;

int Sign(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

struct TestOrder final : IfInfObjOrder {
    InfObjIndex GetIndex(const UniqueMetaObjectKey& key) const override {
        const auto found = index.find(key);
        return found == index.end() ? InfObjIndex() : found->second;
    }

    std::map<UniqueMetaObjectKey, InfObjIndex> index;
};

/// The objects of a product and the panel's order of them.
struct Ordered {
    explicit Ordered(const Product& builder) : Ordered(builder.Model()) {}
    explicit Ordered(platform::ProductModel model) : product(std::move(model)) {
        const auto& objects = product.GetModel().objects;
        for (std::size_t i = 0; i < objects.size(); ++i) {
            parts.push_back({&product.GetAggregator().GetMetaData(), objects[i].key});
            order.index[objects[i].key] = {0, objects.size() - i};
        }
        comparator->SetOptionA(false);
        comparator->SetIndexMap(order);
        comparator->SetOptionB(true);
        comparator->SetOptionC(false);
    }

    int Compare(std::size_t a, std::size_t b) const { return Sign(comparator->Compare(parts[a], parts[b])); }

    /// The keys in their order, like ones in brackets.
    std::string Text() const {
        std::vector<std::size_t> sorted(parts.size());
        std::iota(sorted.begin(), sorted.end(), 0U);
        std::stable_sort(sorted.begin(), sorted.end(),
                         [this](std::size_t a, std::size_t b) { return Compare(a, b) < 0; });
        std::string text;
        for (std::size_t i = 0; i < sorted.size(); ++i) {
            const bool isLike = i > 0 && Compare(sorted[i - 1], sorted[i]) == 0;
            text += (i == 0 ? "" : isLike ? "=" : " ") + parts[sorted[i]].key.String();
        }
        return text;
    }

    platform::MemoryProduct product;
    std::vector<ConstProductPart> parts;
    TestOrder order;
    std::unique_ptr<IfGroupingComparator> comparator = CreateDefaultGroupingComparator();
};

TEST(GroupingComparator, ADesignationMakesObjectsOfEqualValuesAlike) {
    const auto like = [](Product& product, std::string_view key) -> Product& {
        return product.Object(key, L"Cover", L"AB.1").Section(20).Material(L"Steel").Mass(2.5);
    };
    Product product;
    like(product, "a");
    like(product, "b");
    like(product, "mass").Mass(9); // the first value counts
    like(product, "section").Section(15);
    like(product, "subsection").SectionNumbers({20, 1});
    like(product, "sectionName").Section(20, L"Parts");
    like(product, "name").Name(L"Covers");
    like(product, "designation").Designation(L"AB.01");
    product.Object("noMaterial", L"Cover", L"AB.1").Mass(2.5);
    product.Object("noMass", L"Cover", L"AB.1").Material(L"Steel");
    product.Object("heavier", L"Cover", L"AB.1").Material(L"Steel").Mass(2.6);
    EXPECT_EQ(Ordered(product).Text(),
              "designation section noMaterial noMass a=b=mass heavier sectionName subsection name");
}

TEST(GroupingComparator, StandardPartsWithoutDesignationAreKnownByTheirName) {
    Product product;
    product.Object("a", L"Bolt M8").Section(25).Mass(1);
    product.Object("b", L"Bolt M8").SectionNumbers({25, 3}).Material(L"Steel");
    product.Object("c", L"Bolt M10").Section(25);
    product.Object("d", L"Bolt M8").Section(25).Designation(L"X");
    product.Object("e", L"Bolt M8").Section(20);
    EXPECT_EQ(Ordered(product).Text(), "e a=b c d");
}

TEST(GroupingComparator, NamesAloneAreNoIdentity) {
    // The places of the map run against the order of the keys.
    Product product;
    product.Object("a", L"Document");
    product.Object("b", L"Document");
    product.Object("c", L"Document");
    Ordered ordered(product);
    EXPECT_EQ(ordered.Text(), "c b a");
    ordered.order.index.clear();
    EXPECT_EQ(ordered.Text(), "a b c");
    EXPECT_EQ(ordered.Compare(1, 1), 0);
}

TEST(GroupingComparator, OrderIsByDesignationThenName) {
    Product product;
    product.Object("a", {}, L"AB.10").Name(L"A");
    product.Object("b", {}, L"AB.9").Name(L"Z");
    product.Object("c", {}, L"AB.9").Name(L"M10");
    product.Object("d", {}, L"AB.9").Name(L"M9");
    product.Object("e", {}, L"AB.09").Name(L"Z");
    product.Object("f", L"Z");
    product.Object("g", {}, L"ab.1");
    EXPECT_EQ(Ordered(product).Text(), "f e d c b a g");
}

TEST(GroupingComparator, OptionsChangeWhatCounts) {
    Product product;
    product.Object("a", {}, L"AB.10").Name(L"x");
    product.Object("b", {}, L"AB.9").Name(L"x");
    product.Object("c", {}, L"ab.9").Name(L"X");
    product.Object("d", {}, L"AB.9").Name(L"x");
    Ordered ordered(product);
    EXPECT_EQ(ordered.Text(), "b=d a c");
    ordered.comparator->SetOptionB(false);
    EXPECT_EQ(ordered.Text(), "a b=d c");
    ordered.comparator->SetOptionC(true);
    EXPECT_EQ(ordered.Text(), "a b=c=d");
    ordered.comparator->SetOptionA(true);
    EXPECT_EQ(ordered.Text(), "d c b a");
}

TEST(GroupingComparator, PartsOfAnUnknownBodyAreAllDifferent) {
    const Ordered ordered(Product().Object("a", {}, L"AB.1"));
    const ConstProductPart x{nullptr, Key("x")};
    const ConstProductPart y{nullptr, Key("y")};
    EXPECT_LT(ordered.comparator->Compare(x, y), 0);
    EXPECT_GT(ordered.comparator->Compare(ordered.parts[0], y), 0);
    const ConstProductPart unknown{ordered.parts[0].metaData, Key("unknown")};
    EXPECT_EQ(ordered.comparator->Compare(unknown, unknown), 0);
    EXPECT_NE(ordered.comparator->Compare(unknown, x), 0);
}

/// Products in which nearly everything collides.
rc::Gen<platform::ProductModel> GenModel() {
    using rc::gen::element;
    return rc::gen::exec([] {
        Product product;
        const int count = *rc::gen::inRange(0, 12);
        for (int i = 0; i < count; ++i) {
            product.Object("k" + std::to_string(i), {}, *element<std::wstring>(L"", L"", L"A1", L"A01", L"A10", L"a1"))
                .Name(*element<std::wstring>(L"", L"N2", L"N10", L"N02"))
                .SectionNumbers({*element(0, 20, 25), *element(0, 0, 1)});
            if (*rc::gen::arbitrary<bool>())
                product.Material(*element<std::wstring>(L"", L"S2", L"S10"));
            if (*rc::gen::arbitrary<bool>())
                product.Mass(*element(0.0, -0.0, 1.0, std::numeric_limits<double>::quiet_NaN()));
        }
        return product.Model();
    });
}

RC_GTEST_PROP(GroupingComparator, TheOrderIsAStrictWeakOrderUnderAllOptions, ()) {
    Ordered ordered(*GenModel());
    ordered.comparator->SetOptionA(*rc::gen::arbitrary<bool>());
    ordered.comparator->SetOptionB(*rc::gen::arbitrary<bool>());
    ordered.comparator->SetOptionC(*rc::gen::arbitrary<bool>());
    const std::size_t count = ordered.parts.size();
    for (std::size_t a = 0; a < count; ++a) {
        RC_ASSERT(ordered.Compare(a, a) == 0);
        for (std::size_t b = 0; b < count; ++b) {
            RC_ASSERT(ordered.Compare(a, b) == -ordered.Compare(b, a));
            for (std::size_t c = 0; c < count; ++c) {
                const int sum = ordered.Compare(a, b) + ordered.Compare(b, c);
                RC_ASSERT(sum == 0 || ordered.Compare(a, c) == Sign(sum));
                RC_ASSERT(ordered.Compare(a, b) != 0 || ordered.Compare(a, c) == ordered.Compare(b, c));
            }
        }
    }
}

RC_GTEST_PROP(GroupingComparator, PlacesAreThoseOfTheOrder, ()) {
    Ordered ordered(*GenModel());
    ordered.comparator->SetOptionA(*rc::gen::arbitrary<bool>());
    ordered.comparator->SetOptionB(*rc::gen::arbitrary<bool>());
    ordered.comparator->SetOptionC(*rc::gen::arbitrary<bool>());
    if (!ordered.parts.empty())
        ordered.parts.push_back(ordered.parts.front()); // the same part twice has one place
    const std::vector<std::uint32_t> places = ordered.comparator->GetPlaces(ordered.parts);
    for (std::size_t a = 0; a < places.size(); ++a) {
        for (std::size_t b = 0; b < places.size(); ++b)
            RC_ASSERT(Sign((places[a] > places[b]) - (places[a] < places[b])) == ordered.Compare(a, b));
    }
}

TEST(GroupingComparator, PlacesOfALargeProductHaveNoGaps) {
    const Ordered ordered(support::GenerateProduct(4000));
    const std::vector<std::uint32_t> places = ordered.comparator->GetPlaces(ordered.parts);
    std::vector<bool> isTaken(places.size());
    for (const std::uint32_t place : places)
        isTaken[place] = true;
    const auto end = std::find(isTaken.begin(), isTaken.end(), false);
    EXPECT_EQ(std::count(isTaken.begin(), isTaken.end(), true), end - isTaken.begin());
    EXPECT_EQ(end - isTaken.begin(), 500); // as many as the product has groups
}

} // namespace

#include "host/data/Grouping.h"
#include "host/data/IfProductDataAggregator.h"
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
    Product product;
    for (int i = 0; i < 4000; ++i)
        product.Object(std::to_string(i), L"part", L"AB." + std::to_wstring(i * 7 % 500));
    const Ordered ordered(product);
    const std::vector<std::uint32_t> places = ordered.comparator->GetPlaces(ordered.parts);
    std::vector<bool> isTaken(places.size());
    for (const std::uint32_t place : places)
        isTaken[place] = true;
    const auto end = std::find(isTaken.begin(), isTaken.end(), false);
    EXPECT_EQ(std::count(isTaken.begin(), isTaken.end(), true), end - isTaken.begin());
    EXPECT_EQ(end - isTaken.begin(), 500);
}

} // namespace

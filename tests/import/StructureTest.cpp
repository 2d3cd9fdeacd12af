#include "desktop/import/ProductSelection.h"
#include "desktop/import/ProductStructure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace {

using namespace desktop::step;
using testing::ElementsAre;
using testing::IsEmpty;

/// `count` products with one shape each, and the uses given as pairs of parent and child.
ProductStructure MakeStructure(std::size_t count,
                               std::initializer_list<std::pair<std::size_t, std::size_t>> uses) {
    ProductStructure structure;
    for (std::size_t i = 0; i < count; ++i) {
        Definition definition;
        definition.product = i;
        definition.hasShape = true;
        structure.definitions.push_back(definition);
        structure.products.push_back({static_cast<int>(i), L"id" + std::to_wstring(i),
                                      std::wstring(1, static_cast<wchar_t>(L'a' + i))});
    }
    int number = 0;
    for (const auto& [parent, child] : uses) {
        structure.definitions[parent].uses.push_back({++number, child});
        structure.definitions[child].isUsed = true;
    }
    return structure;
}

TEST(Structure, FindsWhatIsFreeAndHasSomethingToShow) {
    ProductStructure structure = MakeStructure(4, {{0, 1}});
    structure.definitions[0].hasShape = false;
    structure.definitions[2].hasShape = false;
    EXPECT_THAT(FindFreeRoots(structure), ElementsAre(0, 3));
}

TEST(Structure, FindsCyclesOffTheRootToo) {
    EXPECT_EQ(FindCycle(MakeStructure(4, {{0, 1}, {0, 2}, {1, 3}, {2, 3}})), std::nullopt);
    EXPECT_EQ(FindCycle(MakeStructure(3, {{0, 1}, {2, 2}})), 2u);
    EXPECT_TRUE(FindCycle(MakeStructure(4, {{0, 1}, {1, 2}, {2, 3}, {3, 1}})));
}

TEST(Structure, MultipliesOccurrencesThroughNesting) {
    const ProductStructure structure =
        MakeStructure(4, {{0, 1}, {0, 1}, {0, 3}, {1, 2}, {1, 2}, {1, 2}, {2, 3}});
    EXPECT_THAT(CountOccurrences(structure, {0}, 100), ElementsAre(1, 2, 6, 7));
    EXPECT_THAT(CountOccurrences(structure, {0}, 5), ElementsAre(1, 2, 6, 6));
    EXPECT_THAT(SortByUse(structure, {0}), ElementsAre(0, 1, 2, 3));
}

TEST(Structure, NestsAsDeepAsItLikes) {
    ProductStructure structure = MakeStructure(1, {});
    static constexpr std::size_t depth = 200'000;
    structure.definitions.resize(depth, structure.definitions.front());
    for (std::size_t i = 0; i + 1 < depth; ++i)
        structure.definitions[i].uses.push_back({1, i + 1});
    EXPECT_EQ(FindCycle(structure), std::nullopt);
    EXPECT_EQ(SortByUse(structure, {0}).size(), depth);
}

TEST(Selection, RefusesToFlattenWhatExplodes) {
    ProductStructure structure = MakeStructure(1, {});
    static constexpr std::size_t levels = 80;
    structure.definitions.resize(levels, structure.definitions.front());
    for (std::size_t i = 0; i + 1 < levels; ++i)
        structure.definitions[i].uses = {{1, i + 1}, {2, i + 1}};
    const auto leaves = LeafComponents(structure, {0, {0}, 0});
    ASSERT_TRUE(std::holds_alternative<desktop::FileError>(leaves));
    EXPECT_EQ(std::get<desktop::FileError>(leaves).reason,
              "more than 2000000 parts when flattened");
}

TEST(Selection, JoinsUsesOfAProductInTheOrderOfTheFile) {
    ProductStructure structure = MakeStructure(4, {{0, 2}, {0, 1}, {0, 2}, {0, 3}});
    // Another version of the same product.
    structure.definitions[3].product = 1;
    const std::vector<Component> components = DirectComponents(structure, {0, {0}, 0});
    ASSERT_EQ(components.size(), 2u);
    EXPECT_EQ(components[0].product, 2u);
    EXPECT_THAT(components[0].occurrences, ElementsAre("use1", "use3"));
    EXPECT_EQ(components[1].product, 1u);
    EXPECT_THAT(components[1].occurrences, ElementsAre("use2", "use4"));
}

TEST(Selection, TakesARootByNameIdOrTrimmedName) {
    ProductStructure structure = MakeStructure(5, {{0, 1}, {1, 2}, {3, 2}});
    structure.products[1].name = L"arm ";
    structure.products[3].name = L"arm";
    const auto choose = [&](const wchar_t* name) {
        const auto choice = ChooseRoot(structure, name);
        const auto* error = std::get_if<desktop::FileError>(&choice);
        return error ? error->reason
                     : std::to_string(std::get<RootChoice>(choice).root.value_or(99));
    };
    EXPECT_EQ(choose(L""), "99");
    EXPECT_EQ(choose(L"arm"), "3");
    EXPECT_EQ(choose(L"arm "), "1");
    EXPECT_EQ(choose(L" arm "), "1");
    EXPECT_EQ(choose(L"id1"), "1");
    EXPECT_EQ(choose(L"c"), "\"c\" is no assembly: it has no components");
    EXPECT_EQ(choose(L"nothing"), "no product is called \"nothing\"");
}

TEST(Selection, OfASinglePartHasNoComponentsButItselfWhenFlat) {
    const ProductStructure structure = MakeStructure(1, {});
    const RootChoice choice = std::get<RootChoice>(ChooseRoot(structure, L""));
    EXPECT_THAT(DirectComponents(structure, choice), IsEmpty());
    EXPECT_EQ(std::get<0>(LeafComponents(structure, choice)).size(), 1u);
}

} // namespace

#include "desktop/import/ProductObjects.h"
#include "desktop/import/ProductStructure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace {

using namespace desktop::step;
using testing::ElementsAre;

/// `count` products with one shape each, and the uses given as pairs of parent and child.
ProductStructure MakeStructure(std::size_t count, std::initializer_list<std::pair<std::size_t, std::size_t>> uses) {
    ProductStructure structure;
    for (std::size_t i = 0; i < count; ++i) {
        Definition definition;
        definition.product = i;
        definition.hasShape = true;
        structure.definitions.push_back(definition);
        structure.products.push_back(
            {static_cast<int>(i), L"id" + std::to_wstring(i), std::wstring(1, static_cast<wchar_t>(L'a' + i))});
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

TEST(Structure, NestsAsDeepAsItLikes) {
    ProductStructure structure = MakeStructure(1, {});
    static constexpr std::size_t depth = 200'000;
    structure.definitions.resize(depth, structure.definitions.front());
    for (std::size_t i = 0; i + 1 < depth; ++i)
        structure.definitions[i].uses.push_back({1, i + 1});
    EXPECT_EQ(FindCycle(structure), std::nullopt);
    EXPECT_EQ(SortByUse(structure, {0}).size(), depth);
    EXPECT_EQ(ProductObjects(structure, {0}).Get().size(), depth);
}

TEST(ProductObjects, JoinUsesOfAProductButNotOfItsAssemblies) {
    ProductStructure structure = MakeStructure(6, {{0, 2}, {0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 5}, {4, 1}, {5, 2}});
    // Another version of the same part, and of the same assembly with another component.
    structure.definitions[3].product = 1;
    structure.definitions[5].product = 4;
    const ProductObjects objects(structure, {0});
    const std::vector<Component> components = ListComponents(objects, structure.definitions[0].uses);
    const auto key = [&](const Component& component) {
        return std::string(objects.Get()[component.object].key.String());
    };
    ASSERT_EQ(components.size(), 4u);
    EXPECT_EQ(key(components[0]), "product2");
    EXPECT_THAT(components[0].uses, ElementsAre("use1", "use3"));
    EXPECT_EQ(key(components[1]), "product1");
    EXPECT_THAT(components[1].uses, ElementsAre("use2", "use4"));
    EXPECT_EQ(key(components[2]), "product4");
    EXPECT_EQ(key(components[3]), "product4.2");
}

} // namespace

#include "tests/support/ProductBuilder.h"

#include <gtest/gtest.h>

namespace {

using support::Product;

platform::StyleBlockRecord MakeBlock(int number, std::vector<int> sections, bool isUsed = true) {
    platform::StyleBlockRecord block;
    block.number = number;
    block.name = L"Block " + std::to_wstring(number);
    block.sections = std::move(sections);
    block.isUsed = isUsed;
    return block;
}

platform::StyleRecord MakeStyle() {
    platform::StyleRecord style;
    style.sections.resize(3);
    for (int i = 0; i < 3; ++i)
        style.sections[static_cast<std::size_t>(i)].number = (i + 1) * 5;
    style.sections[1].addBlocks = true;
    style.sections[1].blocks = {MakeBlock(1, {15, 99}), MakeBlock(2, {}, false)};
    style.sections[2].isTuned = false;
    return style;
}

TEST(Style, BlocksStandPlaceByPlaceWithTheUsersChoices) {
    const auto product = Product().Style(MakeStyle()).Make();
    const SpcStyle& style = *product->GetSpcDescription()->GetSpcStyle(true, false);
    const SpcTuningStyle& tuning = *product->GetSpcDescription()->GetTuningStyle();

    ASSERT_EQ(style._GetArrSection().size(), 3U);
    ASSERT_EQ(tuning._GetArrTuningSection().size(), 3U);
    const SpcBlockArray& blocks = *style._GetArrSection()[1]->GetAdditionalBlockArr();
    const auto& choices = *tuning._GetArrTuningSection()[1]->GetAdditionalBlockArr();
    EXPECT_EQ(blocks[0]->GetNumber(), 1);
    EXPECT_EQ(blocks[0]->GetName().Str(), L"Block 1");
    EXPECT_TRUE(choices[0]->IsUse());
    EXPECT_FALSE(choices[0]->IsUseSection(0));
    EXPECT_TRUE(choices[0]->IsUseSection(2));
    EXPECT_FALSE(choices[0]->IsUseSection(3));
    EXPECT_FALSE(choices[1]->IsUse());
    EXPECT_TRUE(tuning._GetArrTuningSection()[1]->IsAddSectionsBlock());
    EXPECT_FALSE(tuning.IsAddSectionsBlock());
}

TEST(Style, WhatTheModelLeavesOpenIsNull) {
    platform::StyleRecord record = MakeStyle();
    const auto product = Product().Style(record).Make();
    const SpcDescription& description = *product->GetSpcDescription();
    const SpcStyle& style = *description.GetSpcStyle(true, false);
    EXPECT_EQ(style.GetAdditionalBlockArr(), nullptr);
    EXPECT_EQ(style._GetArrSection()[0]->GetAdditionalBlockArr(), nullptr);
    const auto& tuned = description.GetTuningStyle()->_GetArrTuningSection();
    EXPECT_EQ(tuned[0]->GetAdditionalBlockArr(), nullptr);
    EXPECT_EQ(tuned[2], nullptr);

    record.isTuned = false;
    record.isAvailable = false;
    const auto bare = Product().Style(record).Make();
    EXPECT_EQ(bare->GetSpcDescription()->GetSpcStyle(true, false), nullptr);
    EXPECT_EQ(bare->GetSpcDescription()->GetTuningStyle(), nullptr);
    EXPECT_EQ(Product().Make()->GetSpcDescription(), nullptr);
}

TEST(Style, FollowsAChangeOfTheDocument) {
    const auto product = Product().Make();
    product->Change([](platform::ProductModel& model) {
        model.style = MakeStyle();
        model.style->blocks = {MakeBlock(7, {5})};
    });
    const SpcStyle& style = *product->GetSpcDescription()->GetSpcStyle(true, false);
    ASSERT_NE(style.GetAdditionalBlockArr(), nullptr);
    EXPECT_EQ(style.GetAdditionalBlockArr()->front()->GetNumber(), 7);
}

} // namespace

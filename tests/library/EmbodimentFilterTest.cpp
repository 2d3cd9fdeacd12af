// The choice of embodiments: its texts, its blocks, and how it lives through changes.

#include "control/EmbodimentFilter.h"

#include <gtest/gtest.h>
#include <random>

using namespace productTree;

namespace {

std::vector<EmbodimentGroup> Groups(int count, int first = 0) {
    std::vector<EmbodimentGroup> groups;
    for (int i = first; i < first + count; ++i)
        groups.push_back({{UniqueMetaObjectKey("e" + std::to_string(i))}, std::to_wstring(i)});
    return groups;
}

std::wstring States(const EmbodimentFilter& filter) {
    std::wstring text;
    for (const auto& [block, state] : filter.GetBlocks())
        text += block + (state ? (*state ? L"+ " : L"- ") : L"? ");
    return text;
}

TEST(EmbodimentFilter, ARangeListComesBackWhateverItHolds) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        const std::size_t limit = random() % 40;
        std::set<std::size_t> numbers;
        for (std::size_t i = random() % 30; i > 0; --i)
            numbers.insert(random() % (limit + 1));
        const std::wstring text = FormatRanges(numbers);
        const std::vector<std::size_t> read = ParseRanges(text, limit);
        EXPECT_EQ(std::vector<std::size_t>(numbers.begin(), numbers.end()), read) << round;
        EXPECT_EQ(FormatRanges({read.begin(), read.end()}), text);
    }
}

TEST(EmbodimentFilter, WhatIsNoRangeIsPassedOver) {
    using Numbers = std::vector<std::size_t>;
    const std::pair<const wchar_t*, Numbers> cases[] = {
        {L"5-3", {3, 4, 5}},
        {L"1,x,2", {1, 2}},
        {L"0-1000", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
        {L"-3", {}},
        {L"3-", {}},
        {L"1-2-3", {}},
        {L" 4", {}},
        {L"18446744073709551616,7", {7}},
        {L"9-18446744073709551615", {9, 10, 11}},
        {L",,,2,", {2}},
        {L"4,4,2-3", {4, 4, 2, 3}},
        {L"", {}},
    };
    for (const auto& [text, numbers] : cases)
        EXPECT_EQ(ParseRanges(text, 11), numbers) << std::string(text, text + std::wcslen(text));
}

TEST(EmbodimentFilter, ShowsTheLastBlockUntilTheUserChooses) {
    const struct {
        int count;
        const wchar_t* text;
        const wchar_t* blocks;
        bool all;
    } cases[] = {
        {0, L"", L"", true},
        {1, L"0", L"0+ ", true},
        {10, L"0-9", L"0-9+ ", true},
        {11, L"10", L"0-9- 10+ ", false},
        {20, L"10-19", L"0-9- 10-19+ ", false},
        {21, L"20", L"0-9- 10-19- 20+ ", false},
    };
    for (const auto& c : cases) {
        EmbodimentFilter filter;
        filter.Update(Groups(c.count));
        EXPECT_EQ(filter.FormatText(), c.text);
        EXPECT_EQ(States(filter), c.blocks);
        EXPECT_EQ(filter.AreAllShown(), c.all);
        EXPECT_EQ(filter.GetStoredText(), L"");
    }
}

TEST(EmbodimentFilter, FollowsItsCheckListAndFallsBackToTheLastBlock) {
    EmbodimentFilter filter;
    filter.Update(Groups(23));
    const auto expect = [&](const wchar_t* text, const wchar_t* blocks, const wchar_t* stored) {
        EXPECT_EQ(filter.FormatText(), text);
        EXPECT_EQ(States(filter), blocks);
        EXPECT_EQ(filter.GetStoredText(), stored);
    };
    filter.Toggle(L"0-9", true);
    expect(L"0-9,20-22", L"0-9+ 10-19- 20-22+ ", L"0-9,20-22");
    filter.SetFromText(L"3,5-9,21");
    expect(L"3,5-9,21", L"0-9? 10-19- 20-22? ", L"3,5-9,21");
    filter.ToggleAll();
    expect(L"0-22", L"0-9+ 10-19+ 20-22+ ", L"ShowAll");
    filter.ToggleAll();
    expect(L"20-22", L"0-9- 10-19- 20-22+ ", L"");
    filter.Toggle(L"20-22", false);
    expect(L"20-22", L"0-9- 10-19- 20-22+ ", L"");
    filter.SetFromText(L"no number");
    expect(L"20-22", L"0-9- 10-19- 20-22+ ", L"");
    filter.SetFromText(L"0-22");
    EXPECT_TRUE(filter.AreAllShown());
    filter.ToggleAll();
    expect(L"20-22", L"0-9- 10-19- 20-22+ ", L"");
}

TEST(EmbodimentFilter, OutlivesAChangeOfTheListAsFarAsItCan) {
    EmbodimentFilter filter;
    filter.ApplyStoredText(Groups(12), L"2,11");
    EXPECT_EQ(filter.FormatText(), L"2,11");
    filter.Update(Groups(5));
    EXPECT_EQ(filter.FormatText(), L"2") << "one that was picked is left";
    filter.Update(Groups(5, 100));
    EXPECT_EQ(filter.FormatText(), L"0-4") << "none is left";
    filter.ApplyStoredText(Groups(12), L"ShowAll");
    EXPECT_EQ(filter.GetShown().size(), 12U);
    filter.ApplyStoredText({}, L"1");
    EXPECT_EQ(filter.FormatText(), L"");
}

} // namespace

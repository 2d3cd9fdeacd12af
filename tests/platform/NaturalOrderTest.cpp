#include "platform/values/NaturalOrder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <vector>

namespace {

using platform::CompareNatural;
using platform::MakeNaturalKey;

int Sign(int order) { return order < 0 ? -1 : order > 0 ? 1 : 0; }

/// Texts that meet each other: few characters, many digits.
rc::Gen<std::wstring> GenText() {
    return rc::gen::container<std::wstring>(
        rc::gen::element(L'0', L'0', L'1', L'2', L'9', L'A', L'a', L'/', L':', L'-', L'\u0416', L'\U0001F527', L'\0'));
}

TEST(NaturalOrder, NumbersInsideTextsCompareAsNumbers) {
    const std::wstring nines(300, L'9');
    const std::wstring greater = L"1" + std::wstring(300, L'0');
    const std::vector<std::wstring> ordered = {L"",
                                               L"-1",
                                               L"0",
                                               L"1",
                                               L"2",
                                               L"10",
                                               L"10-2",
                                               L"10-10",
                                               L"18446744073709551615",
                                               L"18446744073709551616",
                                               nines,
                                               greater,
                                               L"AB.9",
                                               L"AB.10",
                                               L"AB.10 x",
                                               L"AB.10.2",
                                               L"ABC",
                                               L"M6x20",
                                               L"M8",
                                               L"M8x5",
                                               L"M10",
                                               L"m1",
                                               L"\u0416",
                                               L"\U0001F527"};
    std::vector<std::wstring> sorted(ordered.rbegin(), ordered.rend());
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return CompareNatural(a, b) < 0; });
    EXPECT_EQ(sorted, ordered);
}

TEST(NaturalOrder, LeadingZerosDoNotCount) {
    EXPECT_EQ(CompareNatural(L"M08x005", L"M8x5"), 0);
    EXPECT_EQ(CompareNatural(L"000", L"0"), 0);
    EXPECT_EQ(MakeNaturalKey(L"M08x005"), MakeNaturalKey(L"M8x5"));
    EXPECT_LT(CompareNatural(L"0", L"01"), 0);
    EXPECT_TRUE(platform::HasLeadingZeros(L"M8x05"));
    EXPECT_TRUE(platform::HasLeadingZeros(L"00"));
    EXPECT_FALSE(platform::HasLeadingZeros(L"0x0.100"));
}

RC_GTEST_PROP(NaturalOrder, KeysCompareAsTheTextsDo, ()) {
    const std::wstring a = *GenText();
    const std::wstring b = *GenText();
    RC_ASSERT(Sign(MakeNaturalKey(a).compare(MakeNaturalKey(b))) == Sign(CompareNatural(a, b)));
    RC_ASSERT(Sign(platform::MakePlainKey(a).compare(platform::MakePlainKey(b))) == Sign(a.compare(b)));
}

RC_GTEST_PROP(NaturalOrder, TextsWithoutLeadingZerosAreEqualOnlyToThemselves, ()) {
    const std::wstring a = *GenText();
    const std::wstring b = *GenText();
    RC_PRE(!platform::HasLeadingZeros(a) && !platform::HasLeadingZeros(b));
    RC_ASSERT((CompareNatural(a, b) == 0) == (a == b));
}

TEST(NaturalOrder, CaseIsFoldedInTheAlphabetsOfDesignations) {
    EXPECT_EQ(platform::FoldCase(L"AZ az \u00C4\u00D7\u00DE \u0100\u0101 \u03A9 \u0416\u0401 \u4E2D"),
              L"az az \u00E4\u00D7\u00FE \u0101\u0101 \u03C9 \u0436\u0451 \u4E2D");
}

} // namespace

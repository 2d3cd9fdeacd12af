// The order of texts that begin with numbers, over any texts.

#include "cells/NumberAwareLess.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>
#include <string>
#include <vector>

namespace {

using productTree::NumberAwareLess;

// Texts from few letters, so that numbers, signs, exponents and equal beginnings meet often.
rc::Gen<std::wstring> Texts() {
    const auto letter = rc::gen::element(L'0', L'1', L'2', L'9', L'.', L'+', L'-', L'e', L'E', L'a', L'/', L' ', L'\n',
                                         wchar_t{0x416}, wchar_t{0x1F600});
    return rc::gen::scale(0.1, rc::gen::container<std::wstring>(letter));
}

bool Less(const std::wstring& a, const std::wstring& b) { return NumberAwareLess()(a, b); }

bool Equivalent(const std::wstring& a, const std::wstring& b) { return !Less(a, b) && !Less(b, a); }

RC_GTEST_PROP(NumberAwareLess, IsAStrictWeakOrder, ()) {
    const std::wstring a = *Texts();
    const std::wstring b = *Texts();
    const std::wstring c = *Texts();
    RC_ASSERT(!Less(a, a));
    RC_ASSERT(!(Less(a, b) && Less(b, a)));
    if (Less(a, b) && Less(b, c))
        RC_ASSERT(Less(a, c));
    if (Equivalent(a, b) && Equivalent(b, c))
        RC_ASSERT(Equivalent(a, c));
}

TEST(NumberAwareLess, GoesByNumbersThenByWhatStandsBehindThem) {
    const std::vector<std::vector<std::wstring>> ascending = {
        {L"9", L"9a", L"10"},
        {L"-2", L"-1.5", L"0", L"+1", L"2"},
        {L"1", L"abc"},
        {L"100", L"1e2"},
        {L".5", L"1", L"1e1", L"11"},
        {L"1e400", L"2e400"},
        {L"1", L"1e400"},
        {L"1e-400", L"2e-400", L"1e-5"},
        {L"", L"(x", L"1"},
        {L"99999999999999999998", L"1e400"},
    };
    for (const auto& texts : ascending) {
        for (std::size_t i = 1; i < texts.size(); ++i) {
            const std::string what(texts[i].begin(), texts[i].end());
            EXPECT_TRUE(Less(texts[i - 1], texts[i])) << what;
            EXPECT_FALSE(Less(texts[i], texts[i - 1])) << what;
        }
    }
    EXPECT_TRUE(Equivalent(L"2.50", L"2.5"));
    EXPECT_TRUE(Equivalent(L"+5", L"5"));
}

} // namespace

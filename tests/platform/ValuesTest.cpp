#include "host/FormatLabelUtils.h"
#include "host/NumberTexts.h"
#include "host/PropValue.h"
#include "host/UniqueMetaObjectKey.h"

#include <boost/property_tree/ptree.hpp>
#include <clocale>
#include <gtest/gtest.h>
#include <limits>

namespace {

using Limits = std::numeric_limits<double>;

struct TextCase {
    SimplePropVal value;
    const wchar_t* text;
};

TEST(Values, AreWrittenAsUsersTypeThem) {
    const TextCase cases[] = {
        {SimplePropVal(), L""},
        {SimplePropVal(L""), L""},
        {SimplePropVal(L"as it is \u0416"), L"as it is \u0416"},
        {SimplePropVal(true), L"1"},
        {SimplePropVal(false), L"0"},
        {SimplePropVal(-2147483647 - 1), L"-2147483648"},
        {SimplePropVal(0.1), L"0.1"},
        {SimplePropVal(-0.0), L"0"},
        {SimplePropVal(100000.0), L"100000"},
        {SimplePropVal(12345678.9), L"12345678.9"},
        {SimplePropVal(0.0000012), L"0.0000012"},
        {SimplePropVal(1e300), L"1e+300"},
        {SimplePropVal(-2.5e-12), L"-2.5e-12"},
        {SimplePropVal(Limits::max()), L"1.7976931348623157e+308"},
        {SimplePropVal(DateTime{0}), L"1970-01-01T00:00:00Z"},
        {SimplePropVal(DateTime{951782399}), L"2000-02-28T23:59:59Z"},
        {SimplePropVal(DateTime{951782400}), L"2000-02-29T00:00:00Z"},
        {SimplePropVal(DateTime{-1}), L"1969-12-31T23:59:59Z"},
        {SimplePropVal(DateTime{-62135596801}), L"0000-12-31T23:59:59Z"},
        {SimplePropVal(DateTime{253402300800}), L"10000-01-01T00:00:00Z"},
    };
    for (const TextCase& testCase : cases)
        EXPECT_EQ(testCase.value.to_wstring().Str(), testCase.text);
}

TEST(Values, AreReadFromTextsOnlyWhenTheWholeTextIsANumber) {
    const std::pair<const wchar_t*, double> cases[] = {
        {L"12.5", 12.5}, {L" +7 ", 7},  {L"\u00A0-3e2", -300}, {L".5", 0.5},   {L"", 0},    {L"12,5", 0},
        {L"1 000", 0},   {L"12 mm", 0}, {L"0x10", 0},          {L"inf", 0},    {L"nan", 0}, {L"+-1", 0},
        {L"++1", 0},     {L"-", 0},     {L"1e999", 0},         {L"\u0661", 0}, {L"1e", 0},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(SimplePropVal(text).to_double(), number) << SharedText(text).Str().size();
}

TEST(Values, IntegersAreCutTowardsZeroAndHeldAtTheirLimits) {
    EXPECT_EQ(SimplePropVal(-7.9).to_int(), -7);
    EXPECT_EQ(SimplePropVal(L"7.9").to_int(), 7);
    EXPECT_EQ(SimplePropVal(1e10).to_int(), std::numeric_limits<int>::max());
    EXPECT_EQ(SimplePropVal(-1e10).to_int(), std::numeric_limits<int>::min());
    EXPECT_EQ(SimplePropVal(Limits::quiet_NaN()).to_int(), 0);
    EXPECT_EQ(SimplePropVal(DateTime{1LL << 40}).to_int(), std::numeric_limits<int>::max());
    EXPECT_TRUE(SimplePropVal(0.25).to_bool());
    EXPECT_FALSE(SimplePropVal(L"yes").to_bool());
}

TEST(Values, DoNotDependOnTheLocale) {
    // Tried in turn, since a machine may have none of those that write a comma.
    for (const char* const locale : {"de_DE.UTF-8", "ru_RU.UTF-8", "fr_FR.UTF-8"})
        std::setlocale(LC_ALL, locale);
    EXPECT_EQ(SimplePropVal(1234.5).to_wstring().Str(), L"1234.5");
    EXPECT_EQ(SimplePropVal(L"1234.5").to_double(), 1234.5);
    std::setlocale(LC_ALL, "C");
}

TEST(Values, AnEmptyTextIsAValueAndNoValueIsNone) {
    EXPECT_FALSE(SimplePropVal(L"").IsEmpty());
    EXPECT_TRUE(SimplePropVal().IsEmpty());
    EXPECT_FALSE(SimplePropVal(L"") == SimplePropVal());
    EXPECT_FALSE(SimplePropVal(1) == SimplePropVal(1.0));
    EXPECT_TRUE(PropValue().IsEmpty());
    EXPECT_TRUE(PropValue().GetPropertyTree().empty());
}

TEST(Labels, OnlyTheLineBreakMarkIsTakenOut) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"Cover$|left", L"Cover\nleft"}, {L"$|$|", L"\n\n"}, {L"$$|", L"$\n"},
        {L"5$ | x", L"5$ | x"},           {L"end$", L"end$"}, {L"a|b", L"a|b"},
    };
    for (const auto& [raw, shown] : cases)
        EXPECT_EQ(format_label_utils::FormatLabelForDisplay(raw).Str(), shown);
}

TEST(Labels, LineBreaksBecomeOneBlank) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"a\nb", L"a b"},  {L"a \t\r\n  b", L"a b"}, {L"a\n\n\nb", L"a b"},
        {L"a  b", L"a  b"}, {L"\na\n", L" a "},       {L"a\u2028b\u0085c", L"a b c"},
    };
    for (const auto& [raw, shown] : cases)
        EXPECT_EQ(format_label_utils::RemoveNewLineSymbols(raw).Str(), shown);
}

TEST(Keys, AnyKeyComesBackFromItsWideForm) {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes.push_back(static_cast<char>(i));
    const UniqueMetaObjectKey key{bytes};
    EXPECT_EQ(UniqueMetaObjectKey(key.WString()), key);
    EXPECT_EQ(UniqueMetaObjectKey(std::wstring(L"a\u0416b")).String(), "ab");
    EXPECT_LT(UniqueMetaObjectKey(std::string("\x7f")), UniqueMetaObjectKey(std::string("\x80")));
    EXPECT_TRUE(UniqueMetaObjectKey::null.IsEmpty());
}

TEST(Values, OnlyDecimalFractionsLoseTheirLastZeros) {
    const wchar_t* const cases[][2] = {{L"2.50", L"2.5"},
                                       {L"4.00", L"4"},
                                       {L"4.", L"4"},
                                       {L"0.0", L"0"},
                                       {L"-1.20", L"-1.2"},
                                       {L"+3.0", L"+3"},
                                       {L"10", L"10"},
                                       {L"2.50 m", L"2.50 m"},
                                       {L"1.2.0", L"1.2.0"},
                                       {L"1.5e10", L"1.5e10"},
                                       {L".0", L".0"},
                                       {L"x0", L"x0"},
                                       {L"", L""}};
    for (const auto& [text, trimmed] : cases)
        EXPECT_EQ(orvex::sys::TrimLastZeros(text).Str(), trimmed);
}

TEST(Values, ATextTakesExactlyTheArgumentsItAsksFor) {
    const std::vector<SharedText> one{L"A"};
    const std::vector<SharedText> two{L"A", L"%1%"};
    const struct {
        const wchar_t* pattern;
        const std::vector<SharedText>& arguments;
        /// Null: none.
        const wchar_t* text;
    } cases[] = {{L"Delete %1%?", one, L"Delete A?"},
                 {L"%1% of %1%", one, L"A of A"},
                 {L"%2% %1%", two, L"%1% A"},
                 {L"%2%", two, L"%1%"},
                 {L"100%% of %1%", one, L"100% of A"},
                 {L"50 % of %1%", one, L"50 % of A"},
                 {L"%1%", two, nullptr},
                 {L"%2%", one, nullptr},
                 {L"plain", one, nullptr},
                 {L"%0% %1%", one, L"%0% A"},
                 {L"%1", one, nullptr},
                 {L"", {}, L""}};
    for (const auto& sample : cases) {
        const auto text = format_label_utils::FormatText(sample.pattern, sample.arguments);
        EXPECT_EQ(text.has_value(), sample.text != nullptr) << sample.pattern;
        EXPECT_EQ(text.value_or(SharedText()).Str(), sample.text ? sample.text : L"");
    }
}

} // namespace

#include "host/VariantMarking.h"

#include <boost/property_tree/ptree.hpp>
#include <gtest/gtest.h>

namespace {

constexpr auto c_all = VariantMarkingData::MakeAll;
constexpr auto c_withoutCode = VariantMarkingData::MakeWithoutCode;

VariantMarking MakeFull() {
    VariantMarking marking;
    marking.SetBase(L"AB.101");
    marking.SetEmbodimentNumDelim(L'-');
    marking.SetEmbodimentNum(L"02");
    marking.SetAdditionalNumDelim(L'.');
    marking.SetAdditionalNum(L"7");
    marking.SetCodeDelim(L'/');
    marking.SetCode(L"DRW");
    return marking;
}

TEST(Marking, TextHoldsThePartsThatAreAskedFor) {
    const VariantMarking full = MakeFull();
    EXPECT_EQ(full.Make(c_all, false, false).Str(), L"AB.101-02.7/DRW");
    EXPECT_EQ(full.Make(c_withoutCode, false, false).Str(), L"AB.101-02.7");
    EXPECT_EQ(full.Make(c_withoutCode, true, false).Str(), L"AB.101-02.7");
}

TEST(Marking, ASpacedTextGivesItsCodeBackWhateverItIs) {
    for (const wchar_t* base : {L"", L"AB.101", L"HOUSING LEFT", L"AB.101 AD", L"AB.101/"}) {
        for (const wchar_t* code : {L"", L"DRW", L"sb", L"-", L"a code of words", L"/AD"}) {
            for (const wchar_t delim : {L'\0', L' ', L'/', L'+'}) {
                VariantMarking marking;
                marking.SetBase(base);
                marking.SetCodeDelim(delim);
                marking.SetCode(code);
                VariantMarking read;
                read.Parse(marking.Make(c_all, true, false));
                EXPECT_EQ(read.GetCode().Str(), code) << base << static_cast<int>(delim);
            }
        }
    }
}

TEST(Marking, AForeignTreeGivesAnEmptyMarking) {
    PropValue::Tree tree(L"text of the tree itself");
    tree.push_back({L"section", PropValue::Tree(L"5")});
    VariantMarking read = MakeFull();
    read.FromPropertyTree(tree);
    EXPECT_TRUE(read.IsEmpty());
    EXPECT_EQ(read, VariantMarking());
}

TEST(Marking, IsReadFromTheTextOfAWholeDesignation) {
    const struct {
        const wchar_t* text;
        /// Its seven parts.
        const wchar_t* parts;
    } cases[] = {
        {L"", L"||||||"},
        {L"AB.101", L"AB.101||||||"},
        {L"AB.101-02", L"AB.101|-|02||||"},
        {L"AB.101-02.07", L"AB.101|-|02|.|07||"},
        {L"AB.101-02.07 AD", L"AB.101|-|02|.|07| |AD"},
        {L"AB.101  AD", L"AB.101||||| |AD"},
        {L"AB.101 /AD2", L"AB.101|||||/|AD2"},
        {L"\u0410\u0411.101 \u0421\u0411", L"\u0410\u0411.101||||| |\u0421\u0411"},
        {L"HR125.00.000", L"HR125.00.000||||||"},
        {L"HR125.00.021-B", L"HR125.00.021-B||||||"},
        {L"AB.101-2", L"AB.101-2||||||"},
        {L"AB.101-0002", L"AB.101-0002||||||"},
        {L"-02", L"-02||||||"},
        {L"AB.101 two", L"AB.101 two||||||"},
        {L"AB.101 7A", L"AB.101 7A||||||"},
        {L"AB.101 ", L"AB.101 ||||||"},
        {L" AD", L" AD||||||"},
        {L"1", L"1||||||"},
    };
    const auto delim = [](wchar_t c) { return c == 0 ? std::wstring() : std::wstring(1, c); };
    for (const auto& sample : cases) {
        VariantMarking marking = MakeFull();
        marking.Parse(sample.text);
        const std::wstring parts = marking.GetBase().Str() + L'|' + delim(marking.GetEmbodimentNumDelim()) + L'|' +
                                   marking.GetEmbodimentNum().Str() + L'|' + delim(marking.GetAdditionalNumDelim()) +
                                   L'|' + marking.GetAdditionalNum().Str() + L'|' + delim(marking.GetCodeDelim()) +
                                   L'|' + marking.GetCode().Str();
        EXPECT_EQ(parts, sample.parts) << sample.text;
    }
}

TEST(Marking, DelimitersAreTheFirstCharacterOfTheirField) {
    EXPECT_EQ(MarkingDelim(L"-/"), L'-');
    EXPECT_EQ(CodeDelim(L" "), L' ');
    EXPECT_EQ(MarkingDelim({}), L'\0');
    EXPECT_EQ(CodeDelim({}), L'\0');
}

} // namespace

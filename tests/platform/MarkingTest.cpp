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
    EXPECT_EQ(full.Make(c_all, true, false).Str(), L"AB.101-02.7 /DRW");
    EXPECT_EQ(full.Make(c_withoutCode, false, false).Str(), L"AB.101-02.7");
    EXPECT_EQ(full.Make(c_withoutCode, true, false).Str(), L"AB.101-02.7");
}

TEST(Marking, DelimitersOfEmptyPartsAreWrittenOnlyOnDemand) {
    VariantMarking marking = MakeFull();
    marking.SetEmbodimentNum({});
    EXPECT_EQ(marking.Make(c_all, false, false).Str(), L"AB.101.7/DRW");
    EXPECT_EQ(marking.Make(c_all, false, true).Str(), L"AB.101-.7/DRW");
    marking.SetAdditionalNumDelim(0);
    EXPECT_EQ(marking.Make(c_all, false, true).Str(), L"AB.101-7/DRW");
}

TEST(Marking, CodeAloneHasNoBlankBeforeIt) {
    VariantMarking marking;
    marking.SetCode(L"DRW");
    EXPECT_EQ(marking.Make(c_all, true, false).Str(), L"DRW");
    EXPECT_TRUE(marking.Make(c_withoutCode, true, false).IsEmpty());
}

TEST(Marking, BaseAloneIsNotCopied) {
    VariantMarking marking;
    marking.SetBase(L"AB.101");
    marking.SetCodeDelim(L'/');
    EXPECT_TRUE(marking.Make(c_all, true, false).IsSame(marking.GetBase()));
    EXPECT_TRUE(marking.Make(c_withoutCode, false, false).IsSame(marking.GetBase()));
}

TEST(Marking, ComesBackFromItsPropertyValue) {
    VariantMarking odd;
    odd.SetBase(L"a.b|c\n\u0416 \U0001F527");
    odd.SetEmbodimentNumDelim(L'\U0001F527');
    odd.SetAdditionalNum(L"base");
    odd.SetCode(L" ");
    VariantMarking onlyDelims;
    onlyDelims.SetAdditionalNumDelim(L'.');

    for (const VariantMarking& marking : {MakeFull(), odd, onlyDelims, VariantMarking()}) {
        const PropValue value = marking.GetPropValue();
        VariantMarking read = MakeFull(); // what was there must not shine through
        read.FromPropertyTree(value.GetPropertyTree());
        EXPECT_EQ(read, marking);
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

TEST(Marking, DelimitersAreTheFirstCharacterOfTheirField) {
    EXPECT_EQ(MarkingDelim(L"-/"), L'-');
    EXPECT_EQ(CodeDelim(L" "), L' ');
    EXPECT_EQ(MarkingDelim({}), L'\0');
    EXPECT_EQ(CodeDelim({}), L'\0');
}

} // namespace

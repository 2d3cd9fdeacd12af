// What rows of each kind show: names, designations, icons, counts.

#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

namespace {

using platform::ProductModel;
using platform::TreeTableRow;
using support::Product;

Product Flat() { return std::move(Product().Root(L"r").NoSectionRows()); }

VariantMarking FullMarking() {
    VariantMarking marking;
    marking.SetBase(L"AB.1");
    marking.SetEmbodimentNumDelim(L'-');
    marking.SetEmbodimentNum(L"02");
    marking.SetAdditionalNumDelim(L'.');
    marking.SetAdditionalNum(L"7");
    marking.SetCodeDelim(L' ');
    marking.SetCode(L"AD");
    return marking;
}

const TreeTableRow& FirstRow(const Panel& panel) { return panel.View().GetRoot()->GetChildRow(0); }

TEST(Rows, ADesignationIsShownByItsPartsAndWithoutALockedCode) {
    const support::DumpOptions options{.designations = true};
    const auto product = [] { return Flat().Object("a", L"a").Marking(FullMarking()); };
    const Panel whole(product().Uses());
    EXPECT_EQ(whole.Dump(options), "r [a {AB.1-02.7 AD}]");
    const platform::TreeRowMarking& shown = FirstRow(whole).GetMarking();
    EXPECT_EQ(shown.GetCode().Str(), L"AD");
    EXPECT_EQ(shown.GetEmbodimentNumDelim(), L"-");
    EXPECT_EQ(Panel(product().LockedMarkingParts({7}).Uses()).Dump(options), "r [a {AB.1-02.7}]");
    EXPECT_EQ(Panel(product().LockedMarkingParts({7}).Uses(2)).Dump(options),
              "r [a (x2) {AB.1-02.7} [a {AB.1-02.7} | a {AB.1-02.7}]]");
}

TEST(Rows, ARowThatIsUsedAgainShowsNothingOfWhatItWas) {
    Panel panel(Flat().Object("a", L"a").Marking(FullMarking()).Uses());
    panel.Change([](ProductModel& model) { model.areSectionRowsShown = true; });
    EXPECT_EQ(panel.Dump({.designations = true}), "r [Parts (x1) [a {AB.1-02.7 AD}]]");
    EXPECT_TRUE(FirstRow(panel).IsSection());
    EXPECT_FALSE(FirstRow(panel).IsNameEditable());
    panel.Change([](ProductModel& model) { model.areSectionRowsShown = false; });
    EXPECT_EQ(panel.Dump({.designations = true}), "r [a {AB.1-02.7 AD}]");
    EXPECT_FALSE(FirstRow(panel).IsSection());
    EXPECT_FALSE(FirstRow(panel).IsSectionNameStyle());
}

TEST(Rows, AGroupShowsWhatItsMembersShare) {
    const auto pair = [] { return Flat().Object("a", L"a", L"1").Uses(2); };
    const Panel panel(pair());
    const TreeTableRow& group = FirstRow(panel);
    EXPECT_EQ(group.GetNameText().Str(), L"a");
    EXPECT_EQ(group.GetShownName().Str(), L"a (x2)");
    EXPECT_EQ(group.GetMarking().GetDisplayText().Str(), L"1");
    EXPECT_EQ(group.GetNameIcon(), L"");

    const Panel nameless(Flat().Object("a", {}, L"1").Uses(2));
    EXPECT_EQ(FirstRow(nameless).GetShownName().Str(), L"(x2)");

    // Alike on the day on which they were sorted; the names differ by the time they are read.
    Panel differing(Flat().Object("a", L"a", L"1").Uses().Object("b", L"a", L"1").Uses());
    differing.data->Change([](ProductModel& model) {
        model.objects[1].name = L"b";
        model.objects[1].marking.SetBase(L"2");
    });
    differing.Tree().Refresh();
    EXPECT_EQ(differing.Dump({.designations = true}), "r [(x2) [a {1} | b {2}]]");
    EXPECT_EQ(FirstRow(differing).GetNameText().Str(), L"");
}

TEST(Rows, CountsFollowTheAttributesOfTheObjects) {
    const auto product = [](bool shown) {
        Product made = std::move(Product()
                                     .Root(L"r")
                                     .Object("a", L"a", L"1")
                                     .Uses(2)
                                     .Object("b", L"a", L"1")
                                     .AggrIntoProduct(false)
                                     .Uses()
                                     .Object("c", L"c", L"2")
                                     .ExcludedFromCount()
                                     .Uses(2));
        ProductModel model = made;
        model.isAggrIntoProductShown = shown;
        return support::DumpView(platform::HostFrame(std::make_shared<platform::MemoryProduct>(model)).GetView());
    };
    EXPECT_EQ(product(false), "r [Parts (x3) [a (x3) [a | a | a] | c (x0) [c | c]]]");
    EXPECT_EQ(product(true), "r [Parts (x2) [a (x2) [a | a | a] | c (x0) [c | c]]]");
}

TEST(Rows, IconsFollowTheKindOfObjectTheGroupAndTheSection) {
    const auto icons = [](const Product& product) {
        const Panel panel(product);
        const TreeTableRow& row = FirstRow(panel);
        return std::pair{row.GetIcon(), row.GetChildCount() > 0 ? row.GetChildRow(0).GetIcon() : 0};
    };
    const auto object = [](int type) { return Flat().Object("a", L"a").Icon(type); };
    EXPECT_EQ(icons(object(0).Uses()), std::pair(63248, 0));
    EXPECT_EQ(icons(object(26).Uses()), std::pair(58764, 0));
    EXPECT_EQ(icons(object(27).Uses()), std::pair(58764, 0));
    EXPECT_EQ(icons(object(-1).Uses()), std::pair(58764, 0));
    EXPECT_EQ(icons(object(1).Uses(2)), std::pair(58760, 63247));
    EXPECT_EQ(icons(object(5).Uses(2)), std::pair(63242, 58599)) << "no group form";

    const auto two = [](int first, int second) {
        return Flat().Object("a", L"a", L"1").Icon(first).Uses().Object("b", L"a", L"1").Icon(second).Uses();
    };
    EXPECT_EQ(icons(two(2, 3)).first, 58776) << "two icons that count as one";
    EXPECT_EQ(icons(two(0, 1)).first, 63242);

    const auto section = [](int number) {
        return std::move(Product().Root(L"r").Object("a", L"a").Section(number).Uses());
    };
    EXPECT_EQ(icons(section(5)).first, 60276);
    EXPECT_EQ(icons(section(40)).first, 63242);
    EXPECT_EQ(icons(section(20).NoSectionIcons()).first, 63242);
}

TEST(Rows, AreReadOnlyWithTheirDocument) {
    const auto isOpen = [](const Product& product) {
        const Panel panel(product);
        return std::pair{FirstRow(panel).IsReadOnly(), FirstRow(panel).IsNameEditable()};
    };
    const auto one = [] { return Flat().Object("a", L"a").Uses(); };
    EXPECT_EQ(isOpen(one().ReadOnly()), std::pair(true, false));
    EXPECT_FALSE(isOpen(one()).first);
}

} // namespace

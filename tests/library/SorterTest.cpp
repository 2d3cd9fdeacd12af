// Which rows a product has, and in which order: each case is a product in a few lines and its tree.

#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

namespace {

using platform::BilletKind;
using support::Product;

struct Case {
    const char* what;
    Product product;
    const char* tree;
};

class SorterTest : public testing::Test {
protected:
    static void Check(const std::vector<Case>& cases) {
        for (const Case& c : cases)
            EXPECT_EQ(Panel(c.product).Dump(), c.tree) << c.what;
    }
};

Product Named(const wchar_t* name) { return std::move(Product().Root(name)); }

// A product without section rows, where only the rows of objects count.
Product Flat() { return std::move(Product().Root(L"r").NoSectionRows()); }

platform::StyleSectionRecord MakeSection(int number, const wchar_t* name) {
    platform::StyleSectionRecord section;
    section.number = number;
    section.name = name;
    return section;
}

TEST_F(SorterTest, SectionsStandInTheirOrderAndOnlyThoseWithRows) {
    Check({
        {"an empty product still has its root", Named(L"r"), "r"},
        {"default sections", Named(L"r").Object("b", L"b").Section(25).Uses().Object("a", L"a").Section(5).Uses(),
         "r [Documentation (x1) [a] | Standard parts (x1) [b]]"},
        {"a section that is not known", Named(L"r").Object("a", L"a").Section(7).Uses(), "r [ (x1) [a]]"},
        {"no section rows although there are sections",
         Flat().Object("b", L"b").Section(25).Uses().Object("a", L"a").Section(5).Uses(), "r [a | b]"},
        {"a section whose objects have no rows", Named(L"r").Object("a", L"a").Section(5).Uses().NotShown(), "r"},
    });
}

TEST_F(SorterTest, ASectionsStyleIsFollowed) {
    platform::StyleRecord unsorted;
    unsorted.sortBySections = false;
    unsorted.sections = {MakeSection(20, L"Details")};
    platform::StyleRecord lost = unsorted;
    lost.isAvailable = false;
    platform::StyleRecord untuned;
    untuned.sections = {MakeSection(20, L"Details"), MakeSection(5, L"Papers")};
    untuned.sections[1].isTuned = false;
    Check({
        {"sections of the style in its order",
         Named(L"r")
             .StyleSections({{20, L"Details"}, {5, L"Papers"}})
             .Object("a", L"a")
             .Section(5)
             .Uses()
             .Object("b", L"b")
             .Section(20)
             .Uses()
             .Object("c", L"c")
             .Section(30)
             .Uses(),
         "r [Details (x1) [b] | Papers (x1) [a] |  (x1) [c]]"},
        {"a single section makes no row",
         Named(L"r").StyleSections({{20, L"Details"}}).Object("a", L"a").Section(20).Uses(), "r [a]"},
        {"a single section does not take what belongs elsewhere",
         Named(L"r")
             .StyleSections({{20, L"Details"}})
             .Object("a", L"a")
             .Section(20)
             .Uses()
             .Object("b", L"b")
             .Section(5)
             .Uses(),
         "r [a |  (x1) [b]]"},
        {"a style without sections: one list, still grouped",
         Named(L"r").Style(unsorted).Object("a", L"a").Section(5).Uses(2), "r [a (x2) [a | a]]"},
        {"a style that is nowhere to be found", Named(L"r").Style(lost).Object("a", L"a").Section(20).Uses(),
         "r [ (x1) [a]]"},
        {"a section that the user's choices do not know",
         Named(L"r").Style(untuned).Object("a", L"a").Section(5).Uses(), "r [ (x1) [a]]"},
    });
}

TEST_F(SorterTest, BlocksOfTheStyleMakeSectionsOfTheirOwn) {
    platform::StyleRecord style;
    style.addBlocks = true;
    style.sections = {MakeSection(15, L"Units"), MakeSection(20, L"Details")};
    style.sections[0].addBlocks = true;
    style.sections[0].blocks = {{1, L"Left", true, {}}, {2, L"Right", false, {}}};
    style.sections[1].blocks = {{9, L"Deep", true, {}}};
    style.blocks = {{3, L"Spare", true, {20}}};
    const auto product = [&](std::initializer_list<std::int32_t> numbers) {
        return Named(L"r").Style(style).Object("a", L"a").SectionNumbers(numbers).Uses();
    };
    Check({
        {"a section", product({15}), "r [Units (x1) [a]]"},
        {"a block of a section", product({15, 0, 0, 0, 0, 1}), "r [Left. Units (x1) [a]]"},
        {"a block that is not used", product({15, 0, 0, 0, 0, 2}), "r [ (x1) [a]]"},
        {"a section without its blocks", product({20, 0, 0, 0, 0, 9}), "r [ (x1) [a]]"},
        {"a block of the specification", product({0, 0, 0, 3}), "r [Spare (x1) [a]]"},
        {"a section in a block", product({0, 0, 20, 3}), "r [Details. Spare (x1) [a]]"},
        {"a section that the block does not hold", product({0, 0, 15, 3}), "r [ (x1) [a]]"},
        {"deep blocks in a section of a block", product({0, 0, 20, 3, 0, 9}), "r [Deep. Details. Spare (x1) [a]]"},
    });
}

TEST_F(SorterTest, LikeObjectsShareAGroupRow) {
    Check({
        {"one use is a row", Flat().Object("a", L"a").Uses(1), "r [a]"},
        {"three uses are a group", Flat().Object("a", L"a").Uses(3), "r [a (x3) [a | a | a]]"},
        {"alike by designation", Flat().Object("a", L"a", L"1").Uses(2).Object("b", L"a", L"1").Uses(2),
         "r [a (x4) [a | a | a | a]]"},
        {"names alone are no identity", Flat().Object("a", L"a").Uses(1).Object("b", L"a").Uses(1), "r [a | a]"},
        {"standard parts are alike by name",
         Flat().Object("a", L"a").Section(25).Uses().Object("b", L"a").Section(25).Uses(), "r [a (x2) [a | a]]"},
        {"separate ones stay out of the group",
         Flat().Object("a", L"a", L"1").Uses(2).Object("b", L"a", L"1").Separate().Uses(2),
         "r [a (x2) [a | a] | a | a]"},
        {"groups first within a run, then the others in the document's order",
         Flat().Object("s", L"a", L"1").Separate().Uses().Object("a", L"a", L"1").Uses(2), "r [a (x2) [a | a] | a]"},
        {"an object without uses that stands in the specification", Flat().Object("a", L"a"), "r [a]"},
        {"an object without uses that stands in none", Flat().Object("a", L"a").NotUsed(), "r"},
        {"order is by designation with numbers as numbers",
         Flat().Object("x", L"x", L"A.10").Uses().Object("y", L"y", L"A.9").Uses().Object("z", L"z").Uses(),
         "r [z | y | x]"},
    });
}

TEST_F(SorterTest, PartsThatAreNotShownHaveNoRow) {
    const auto one = [] { return Flat().Object("a", L"a").Uses(); };
    Check({
        {"phantom", one().Phantom(), "r"},
        {"hidden", one().HiddenA(), "r"},
        {"hidden by its document", one().HiddenB(), "r"},
        {"not in the product", one().NotInProduct(), "r"},
        {"the calculator wins over the stored value", one().NotInProduct().CalculatedInProduct(true), "r [a]"},
        {"and the other way round", one().CalculatedInProduct(false), "r"},
        {"the product data has the last word", one().NotShown(), "r"},
        {"kinds that make no rows", one().Kind(PartKindService), "r"},
        {"an object outside of the product", Flat().Object("a", L"a").NotInProduct().Uses(), "r"},
        {"one of a group is hidden", Flat().Object("a", L"a").Uses(1).Use("h").HiddenA(), "r [a]"},
        {"a part of another part", Flat().Object("a", L"a").Object("b", L"b").PartOf("a"), "r [a]"},
    });
}

TEST_F(SorterTest, EmbodimentsDecideWhichUsesAreLaidOut) {
    const auto product = [] {
        return Flat()
            .Embodiment("e1")
            .Embodiment("e2", L"01")
            .Object("a", L"a")
            .Use("a1")
            .Use("a2")
            .In({"e2"})
            .Object("b", L"b")
            .Use("b1")
            .In({"e1"});
    };
    Check({
        {"all", product(), "r [a (x2) [a | a] | b]"},
        {"the first", product().CurrentEmbodiments({"e1"}), "r [a | b]"},
        {"the second", product().CurrentEmbodiments({"e2"}), "r [a (x2) [a | a]]"},
    });
}

TEST_F(SorterTest, BilletsFollowTheObjectTheyBelongTo) {
    Check({
        {"a manual billet behind its owner",
         Flat().Object("o", L"o", L"7").Uses().Object("z", L"z", L"8").Uses().Object("b", L"Rod").BilletOf("o"),
         "r [o | Rod (billet 7) | z]"},
        {"the owner has no designation", Flat().Object("o", L"o").Uses().Object("b", L"Rod").BilletOf("o"),
         "r [o | Rod (billet)]"},
        {"manual billets are never grouped",
         Flat()
             .Object("o", L"o")
             .Uses()
             .Object("b", L"Rod", L"1")
             .BilletOf("o")
             .Object("c", L"Rod", L"1")
             .BilletOf("o"),
         "r [o | Rod (billet) | Rod (billet)]"},
        {"associative billets that are alike share a group",
         Flat()
             .Object("o", L"o")
             .Uses()
             .Object("b", L"Bar", L"1")
             .BilletOf("o", BilletKind::Associative)
             .Uses()
             .Object("c", L"Bar", L"1")
             .BilletOf("o", BilletKind::Associative)
             .Uses(),
         "r [o | Bar (billet) (x2) [Bar (billet) | Bar (billet)]]"},
        {"one use of an associative billet is a row",
         Flat().Object("o", L"o").Uses().Object("b", L"Bar").BilletOf("o", BilletKind::Associative).Uses(),
         "r [o | Bar (billet)]"},
        {"an associative billet without uses",
         Flat().Object("o", L"o").Uses().Object("b", L"Bar").BilletOf("o", BilletKind::Associative),
         "r [o | Bar (billet)]"},
        {"one that stands in no specification",
         Flat().Object("o", L"o").Uses().Object("b", L"Bar").BilletOf("o", BilletKind::Associative).NotUsed(), "r [o]"},
        {"billets of a group stand behind it", Flat().Object("o", L"o").Uses(2).Object("b", L"Rod").BilletOf("o"),
         "r [o (x2) [o | o] | Rod (billet)]"},
        {"billets of an owner without row make none",
         Flat().Object("o", L"o").Uses().HiddenA().Object("b", L"Rod").BilletOf("o"), "r"},
        {"the section's count leaves billets out",
         Named(L"r").Object("o", L"o").Uses().Object("b", L"Rod").BilletOf("o"), "r [Parts (x1) [o | Rod (billet)]]"},
    });
}

TEST_F(SorterTest, ManualBilletsComeInTheReverseOfTheirCollection) {
    const Panel panel(Flat()
                          .Object("o", L"o")
                          .Uses()
                          .Object("b", L"Rod")
                          .Section(20)
                          .BilletOf("o")
                          .Material(L"first")
                          .Object("c", L"Rod")
                          .Section(20)
                          .BilletOf("o")
                          .Material(L"first"));
    // Keys are collected in their own order, b before c.
    const auto& root = *panel.View().GetRoot();
    ASSERT_EQ(root.GetChildCount(), 3U);
    EXPECT_EQ(panel.Dump(), "r [o | Rod (billet) | Rod (billet)]");
}

TEST_F(SorterTest, AGroupPrefersTheKeyOfAnObjectUsedInTheCurrentStyle) {
    const auto product = [](std::vector<int> first, std::vector<int> second) {
        return Flat()
            .Object("a", L"a", L"1")
            .Icon(0)
            .UsedIn(first)
            .Uses()
            .Object("b", L"a", L"1")
            .Icon(0)
            .UsedIn(second)
            .Uses();
    };
    // The key shows in what survives: an expanded group is found again by it when its first member
    // has gone.
    for (const auto& [first, second, survives] : {std::tuple{std::vector<int>{}, std::vector<int>{1}, true},
                                                  std::tuple{std::vector<int>{2}, std::vector<int>{1}, true},
                                                  std::tuple{std::vector<int>{}, std::vector<int>{2}, true},
                                                  std::tuple{std::vector<int>{1}, std::vector<int>{1}, false}}) {
        Panel panel(product(first, second));
        panel.View().GetRoot()->GetChildRow(0).SetExpanded(true);
        panel.Change([](platform::ProductModel& model) {
            model.objects.erase(model.objects.begin());
            platform::OccurrenceRecord use = model.objects[0].occurrences[0];
            use.key = UniqueMetaObjectKey("another");
            model.objects[0].occurrences.insert(model.objects[0].occurrences.begin(), use);
        });
        EXPECT_EQ(panel.Dump({.expandedOnly = true}), survives ? "r [a (x2) [a | a]]" : "r [a (x2)+]");
    }
}

} // namespace

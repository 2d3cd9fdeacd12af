// The columns that do more than read and write one value: mass, density and material in their two
// forms, roughness, not sected, and the heads that open a dialog or make one value of several.

#include "host/SPCSection.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using platform::CellKind;
using platform::ListIndex;
using platform::SectionDecision;
using platform::TreeCell;
using platform::TreeTableRow;
using support::Key;
using support::Product;

constexpr int c_take = 7767;
constexpr int c_choose = 7768;
constexpr int c_roughness = 7761;
const std::string c_mixed = "The members of the group have different values";

using Keys = std::vector<UniqueMetaObjectKey>;

/// A panel on a product whose dialogs the test answers.
struct SpecialPanel {
    explicit SpecialPanel(platform::ProductModel model)
        : data(std::make_shared<support::RecordingProductData>(std::move(model))), frame(data) {
        data->Product().SetDecisions(&decisions);
        data->chooseMaterial = [this](const Keys& keys, MipSource source) {
            mips.emplace_back(keys, source);
            return isMipChanged;
        };
    }
    ~SpecialPanel() { data->Product().SetDecisions(nullptr); }

    platform::TreeTableView& View() const { return frame.GetView(); }
    TreeTableRow& Group() const { return View().GetRoot()->GetChildRow(0); }
    TreeTableRow& Member(std::size_t place = 0) const { return Group().GetChildRow(place); }
    const TreeCell& Cell(const TreeTableRow& row, const wchar_t* column) const { return *row.FindCell(column); }
    PropValue Stored(const char* key, const wchar_t* path) const {
        return data->Product().GetValue({Key(key), {}, std::wstring(path), std::nullopt});
    }
    void Change(const std::function<void(platform::ProductModel&)>& change) {
        data->Product().Change(change);
        frame.GetTree().Synchronize();
    }
    std::size_t CountCalls(const char* call) const {
        return static_cast<std::size_t>(std::ranges::count(data->TakeCalls(), call));
    }

    std::shared_ptr<support::RecordingProductData> data;
    platform::HostFrame frame;
    platform::ScriptedDecisions decisions;
    platform::UserDecisionsSlot slot{decisions};
    std::vector<std::pair<Keys, MipSource>> mips;
    bool isMipChanged = true;
};

struct Mip {
    std::optional<double> mass;
    std::optional<double> density;
    const wchar_t* material;
};

// Two like parts in one group row: standard parts without designation are alike whatever they weigh.
Product TwoParts(const Mip& first, const Mip& second) {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({L"mass", L"material.density", L"material"});
    char key = 'a';
    for (const Mip& mip : {first, second}) {
        product.Object(std::string(1, key++), L"n").Section(25);
        if (mip.mass)
            product.Value(L"mass", SimplePropVal(*mip.mass));
        if (mip.density)
            product.Value(L"material.density", SimplePropVal(*mip.density));
        if (*mip.material)
            product.Value(L"material", SimplePropVal(std::wstring(mip.material)));
        product.Uses();
    }
    return product;
}

constexpr Mip c_steel{2, 7850, L"Steel"};
constexpr Mip c_brass{3, 8500, L"Brass"};
constexpr Mip c_nothing{{}, {}, L""};

TEST(MaterialColumns, GroupsShowTheSumOfMassesAndWhatElseTheMembersShare) {
    const struct {
        Mip first, second;
        // Mass, density, material; a star: with the tip of mixed values.
        const char* sum;
        const char* embodiments;
    } cases[] = {
        {c_steel, c_steel, "4 7850 Steel", "2 7850 Steel"},
        {c_steel, c_brass, "5 * *", "* * *"},
        {c_steel, c_nothing, "2 * *", "* * *"},
        {c_nothing, c_nothing, "0  ", "0  "},
    };
    for (const auto& c : cases) {
        for (const bool isSimplified : {false, true}) {
            Product product = TwoParts(c.first, c.second);
            product.Embodiment("e", L"01").CurrentEmbodiments({"e"});
            if (isSimplified)
                product.Simplified();
            SpecialPanel panel(product);
            const auto shown = [&] {
                std::string line;
                for (const wchar_t* column : {L"mass", L"material.density", L"material"}) {
                    const TreeCell& cell = panel.Cell(panel.Group(), column);
                    line += platform::ToUtf8(cell.GetShownText().Str());
                    if (!cell.GetTip().IsEmpty()) {
                        EXPECT_EQ(platform::ToUtf8(cell.GetTip().Str()), c_mixed);
                        line += '*';
                    }
                    line += ' ';
                }
                line.pop_back();
                return line;
            };
            const auto withoutTips = [&](std::string text) {
                if (isSimplified)
                    std::erase(text, '*');
                return text;
            };
            EXPECT_EQ(shown(), withoutTips(c.sum));
            panel.Change([](platform::ProductModel& model) { model.embodimentMode = true; });
            // A typed mass that nobody has is none; one that is shown counts as 0.
            const bool isNone = isSimplified && !c.first.mass && !c.second.mass;
            EXPECT_EQ(shown(), isNone ? "  " : withoutTips(c.embodiments));
        }
    }
}

TEST(MaterialColumns, ALinkLeadsToTheDialogAndTakesNoInput) {
    SpecialPanel panel(TwoParts(c_steel, c_nothing).ReadOnly());
    for (const wchar_t* column : {L"mass", L"material.density", L"material"}) {
        for (TreeTableRow* row : {&panel.Group(), &panel.Member(1)}) {
            const TreeCell& cell = panel.Cell(*row, column);
            EXPECT_EQ(cell.GetKind(), CellKind::Link);
            EXPECT_EQ(cell.GetLinkStyle(), LinkStyleLive);
            EXPECT_FALSE(panel.View().EditCellByUser(*row, column, SharedText(L"7")));
            panel.mips.clear();
            EXPECT_TRUE(panel.View().ClickLinkByUser(*row, column)) << "the dialog shows read-only values, too";
            const Keys keys = row == &panel.Group() ? Keys{Key("a#1"), Key("b#1")} : Keys{Key("b#1")};
            ASSERT_EQ(panel.mips.size(), 1U);
            EXPECT_EQ(panel.mips[0], std::pair(keys, MipSource::Link));
        }
    }
    EXPECT_EQ(platform::ToUtf8(panel.Cell(panel.Member(1), L"mass").GetShownText().Str()), "");
    panel.Change([](platform::ProductModel& model) { model.isReadOnly = false; });
    panel.data->TakeCalls();
    panel.View().ClickLinkByUser(panel.Member(), L"mass");
    EXPECT_EQ(panel.CountCalls("BeginRebuild"), 1U) << "masses may sort rows";
    panel.isMipChanged = false;
    panel.View().ClickLinkByUser(panel.Member(), L"mass");
    EXPECT_EQ(panel.CountCalls("BeginRead"), 0U) << "nothing was changed";
}

TEST(MaterialColumns, OutdatedMassesAreMarkedWhereTheyCanBeMended) {
    for (const bool isReadOnly : {false, true}) {
        Product product = TwoParts(c_steel, c_steel);
        for (const char* key : {"c", "d"})
            product.Object(key, L"m", L"2").NotActual().Value(L"mass", SimplePropVal(1.0)).Uses();
        if (isReadOnly)
            product.ReadOnly();
        const SpecialPanel panel(product);
        const auto& root = *panel.View().GetRoot();
        for (std::size_t place : {0, 1}) {
            const bool isMarked = root.GetChildRow(place).FindCell(L"mass")->IsOutdated();
            const bool isActual = platform::ToUtf8(root.GetChildRow(place).GetNameDisplay().Str()).starts_with('n');
            EXPECT_EQ(isMarked, !isActual && !isReadOnly);
        }
        EXPECT_FALSE(panel.Cell(panel.Member(), L"material.density").IsOutdated());
    }
}

TEST(MaterialColumns, TypedMassesGoToAllMembersAndMaterialsHaveAMenu) {
    SpecialPanel panel(TwoParts(c_steel, c_brass).Simplified());
    EXPECT_TRUE(panel.View().EditCellByUser(panel.Group(), L"mass", 4.0));
    EXPECT_EQ(panel.Stored("a", L"mass").to_double(), 4);
    EXPECT_EQ(panel.Stored("b", L"mass").to_double(), 4);
    EXPECT_EQ(platform::ToUtf8(panel.Cell(panel.Group(), L"mass").GetShownText().Str()), "8");
    panel.View().EditCellByUser(panel.Group(), L"mass", {});
    EXPECT_EQ(panel.Stored("a", L"mass").to_double(), 4) << "an emptied sum is no wish";
    EXPECT_TRUE(panel.View().EditCellByUser(panel.Group(), L"material", SharedText(L"Zinc")));
    EXPECT_EQ(platform::ToUtf8(panel.Cell(panel.Group(), L"material").GetText().Str()), "Zinc");

    IMenuItems* const menu = panel.Cell(panel.Group(), L"material").GetPopup();
    ASSERT_TRUE(menu && menu->GetEntryCount() == 2);
    EXPECT_EQ(menu->GetEntry(0).GetCommand(), c_choose);
    EXPECT_EQ(menu->GetEntry(1), (MenuEntry{L"Take material away", {273, c_take, 0, L"Orvex", true, nullptr}}));
    IMenuItems* const own = panel.Cell(panel.Member(), L"material").GetPopup();
    EXPECT_TRUE(own && own != menu && own == panel.Cell(panel.Member(1), L"material").GetPopup());
    panel.View().PopupCommandByUser(panel.Group(), L"material", c_choose);
    panel.View().PopupCommandByUser(panel.Member(1), L"material", c_take);
    panel.View().PopupCommandByUser(panel.Member(1), L"material", 1);
    EXPECT_EQ(panel.mips, (std::vector{std::pair(Keys{Key("a#1"), Key("b#1")}, MipSource::FromBook),
                                       std::pair(Keys{Key("b#1")}, MipSource::TakeAway)}));
    panel.Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    EXPECT_FALSE(panel.Cell(panel.Group(), L"material").GetPopup());
    EXPECT_FALSE(panel.Cell(panel.Member(), L"material").GetPopup());
}

TEST(MaterialHeads, GiveTheDialogTheSelectedObjects) {
    SpecialPanel panel(TwoParts(c_steel, c_brass));
    platform::TreeTableView& view = panel.View();
    EXPECT_TRUE(view.ClickHeadByUser(L"mass")) << "the dialog is asked even about nothing";
    view.SelectByUser({&panel.Group(), &panel.Member()}, nullptr);
    EXPECT_FALSE(view.EditHeadByUser(L"mass", 3.0));
    view.ClickHeadByUser(L"mass");
    EXPECT_EQ(panel.mips, (std::vector{std::pair(Keys{}, MipSource::Link),
                                       std::pair(Keys{Key("a#1"), Key("b#1")}, MipSource::Link)}));
    panel.mips.clear();
    panel.Change([](platform::ProductModel& model) { model.isSimplified = true; });
    EXPECT_TRUE(view.EditHeadByUser(L"mass", 3.0));
    EXPECT_EQ(panel.Stored("b", L"mass").to_double(), 3);
    EXPECT_FALSE(view.ClickHeadByUser(L"material"));
    view.SelectByUser({&panel.Member(1), &panel.Group()}, nullptr);
    EXPECT_TRUE(view.HeadPopupCommandByUser(L"material", c_choose));
    EXPECT_TRUE(view.HeadPopupCommandByUser(L"material", 1));
    EXPECT_EQ(panel.mips, (std::vector{std::pair(Keys{Key("a#1"), Key("b#1")}, MipSource::FromBook)}))
        << "each object once";
}

// Signs by their place in the list, of which nothing is said by their texts.
Product Rough() {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({L"specRoughSign", L"specRoughValue", L"notSected"});
    product.Object("a", L"n", L"1").Value(L"specRoughSign", SimplePropVal(2)).Uses();
    product.Object("b", L"n", L"1").Uses();
    return product;
}

TEST(RoughnessColumns, HoldThePlaceOfTheSign) {
    SpecialPanel panel(Rough());
    EXPECT_EQ(panel.Cell(panel.Member(), L"specRoughSign").GetListIndex(), 2);
    EXPECT_EQ(panel.Cell(panel.Member(), L"specRoughSign").GetList().size(), 3U);
    EXPECT_TRUE(panel.Cell(panel.Member(1), L"specRoughSign").GetList().empty());
    EXPECT_EQ(panel.Cell(panel.Member(1), L"specRoughSign").GetListIndex(), -1);
    EXPECT_TRUE(panel.View().EditCellByUser(panel.Member(), L"specRoughSign", ListIndex{0}));
    EXPECT_EQ(panel.Stored("a#1", L"specRoughSign"), PropValue(SimplePropVal(0)));
    EXPECT_EQ(panel.Cell(panel.Member(), L"specRoughSign").GetListIndex(), 0);
    EXPECT_FALSE(panel.View().EditCellByUser(panel.Group(), L"specRoughSign", ListIndex{1}));
    panel.View().SelectByUser({&panel.Member(), &panel.Member(1)}, nullptr);
    EXPECT_TRUE(panel.View().EditHeadByUser(L"specRoughSign", ListIndex{1}));
    EXPECT_EQ(panel.Stored("b#1", L"specRoughSign"), PropValue(SimplePropVal(1)));
}

TEST(RoughnessColumns, TheDialogIsCommittedOnlyWhenConfirmed) {
    SpecialPanel panel(Rough());
    for (const bool isConfirmed : {false, true}) {
        Keys asked;
        panel.data->chooseRoughness = [&](const UniqueMetaObjectKey& key, ProductInfObjChangesResult& changes) {
            asked.push_back(key);
            changes += panel.data->Product().MakeValueChanges({key, {}, std::wstring(L"specRoughValue"), std::nullopt},
                                                              PropValue(SimplePropVal(L"Ra 3.2")));
            return isConfirmed;
        };
        const std::size_t commits = isConfirmed ? 1 : 0;
        panel.data->TakeCalls();
        EXPECT_TRUE(panel.View().PopupCommandByUser(panel.Member(1), L"specRoughValue", c_roughness));
        EXPECT_EQ(panel.CountCalls("CommitChanges"), commits);
        EXPECT_EQ(panel.Stored("b#1", L"specRoughValue").IsEmpty(), !isConfirmed);
        panel.View().SelectByUser({&panel.Group(), &panel.Member(1), &panel.Member()}, nullptr);
        EXPECT_TRUE(panel.View().HeadPopupCommandByUser(L"specRoughValue", c_roughness));
        EXPECT_EQ(asked, (Keys{Key("b#1"), Key("a#1")})) << "the first row of the view, and no group";
    }
    EXPECT_TRUE(panel.View().EditCellByUser(panel.Member(), L"specRoughValue", SharedText(L"as you like")));
    panel.Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    EXPECT_FALSE(panel.Cell(panel.Member(), L"specRoughValue").GetPopup());
}

TEST(NotSected, IsYesOrNoInNumbersOfItsOwn) {
    const struct {
        SimplePropVal stored;
        int place;
    } cases[] = {{{}, -1}, {SimplePropVal(752), 0}, {SimplePropVal(753), 1}};
    for (const auto& c : cases) {
        Product product = Rough();
        product.Object("c", L"m", L"2");
        if (!c.stored.IsEmpty())
            product.Value(L"notSected", c.stored);
        SpecialPanel panel(product.Uses());
        const auto& root = *panel.View().GetRoot();
        const TreeTableRow& row = root.GetChildRow(0).GetChildCount() > 0 ? root.GetChildRow(1) : root.GetChildRow(0);
        EXPECT_EQ(row.FindCell(L"notSected")->GetListIndex(), c.place);
    }
    SpecialPanel panel(Rough());
    platform::TreeTableView& view = panel.View();
    const auto place = [&](const TreeTableRow& row) { return panel.Cell(row, L"notSected").GetListIndex(); };
    EXPECT_TRUE(view.EditCellByUser(panel.Member(), L"notSected", ListIndex{0}));
    EXPECT_EQ(panel.Stored("a#1", L"notSected"), PropValue(SimplePropVal(752)));
    EXPECT_EQ(place(panel.Group()), -1) << "one has none";
    view.EditCellByUser(panel.Group(), L"notSected", ListIndex{1});
    EXPECT_EQ(panel.Stored("b#1", L"notSected"), PropValue(SimplePropVal(753)));
    EXPECT_EQ(place(panel.Group()), 1);
    view.SelectByUser({&panel.Member(), &panel.Member(1)}, nullptr);
    view.EditHeadByUser(L"notSected", ListIndex{0});
    EXPECT_EQ(place(panel.Group()), 0);
    view.EditCellByUser(panel.Member(), L"notSected", ListIndex{});
    EXPECT_TRUE(panel.Stored("a#1", L"notSected").IsEmpty());
}

Product Sections(std::initializer_list<std::pair<int, bool>> sections) {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({L"SPCSection"});
    product.StyleSections({{20, L"Parts"}, {25, L"Standard"}});
    char key = 'a';
    for (const auto& [number, isLinked] : sections) {
        product.Object(std::string(1, key), std::wstring(1, static_cast<wchar_t>(key)), L"1");
        product.Section(number, number == 20 ? L"Parts" : number == 0 ? L"" : L"Standard");
        if (isLinked)
            product.NameLinkedToSection();
        product.Uses();
        ++key;
    }
    return product;
}

TEST(SectionHead, BeginsWithWhatTheSelectedRowsShare) {
    const struct {
        const char* what;
        Product product;
        std::optional<std::size_t> present;
        bool isNameLinked;
    } cases[] = {
        {"one section", Sections({{20, true}, {20, true}}), 0, true},
        {"other links", Sections({{20, true}, {20, false}}), 0, false},
        {"two sections", Sections({{20, true}, {25, true}}), std::nullopt, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        SpecialPanel panel(c.product);
        std::vector<TreeTableRow*> rows;
        for (std::size_t place = 0; place < panel.View().GetRoot()->GetChildCount(); ++place)
            rows.push_back(&panel.View().GetRoot()->GetChildRow(place));
        panel.View().SelectByUser(rows, nullptr);
        EXPECT_TRUE(panel.View().ClickHeadByUser(L"SPCSection"));
        ASSERT_EQ(panel.decisions.GetSectionRequests().size(), 1U);
        EXPECT_EQ(panel.decisions.GetSectionRequests()[0].present, c.present);
        EXPECT_EQ(panel.decisions.GetSectionRequests()[0].isNameLinked, c.isNameLinked);
        EXPECT_FALSE(panel.data->Product().CanUndo());

        panel.decisions.ChooseNextSection(SectionDecision{1, false});
        panel.View().ClickHeadByUser(L"SPCSection");
        for (const auto& object : panel.data->Product().GetModel().objects)
            EXPECT_EQ(object.section.numbers[0], 25);
        panel.data->Product().Undo();
        EXPECT_FALSE(panel.data->Product().CanUndo()) << "one step";
    }
}

TEST(DesignationHead, MakesADesignationOfItsParts) {
    Product product;
    product.Root(L"r").NoSectionRows();
    VariantMarking marking;
    marking.SetBase(L"AB.1");
    marking.SetCode(L"CB");
    for (const char* key : {"a", "b", "c"})
        product.Object(key, std::wstring(1, static_cast<wchar_t>(*key))).Marking(marking).Uses();
    product.Object("d", L"d").Marking(marking).LockedMarkingParts({7}).Uses();
    SpecialPanel panel(product);
    platform::TreeTableView& view = panel.View();
    const auto stored = [&](const char* key) {
        VariantMarking read;
        read.FromPropertyTree(panel.Stored(key, L"marking").GetPropertyTree());
        return platform::ToUtf8(read.Make(VariantMarkingData::MakeAll, false, false).Str());
    };
    std::vector<TreeTableRow*> rows;
    for (std::size_t place = 0; place < view.GetRoot()->GetChildCount(); ++place)
        rows.push_back(&view.GetRoot()->GetChildRow(place));
    view.SelectByUser(rows, nullptr);

    view.EditDocCodesByUser();
    EXPECT_FALSE(panel.data->Product().CanUndo()) << "a cancelled dialog takes no codes away";
    panel.decisions.EnterNext(SharedText(L"E3"));
    view.EditDocCodesByUser();
    EXPECT_EQ(stored("a"), "AB.1E3");
    EXPECT_EQ(stored("c"), "AB.1E3");
    EXPECT_EQ(stored("d"), "AB.1CB") << "its code is locked";
    panel.data->Product().Undo();
    EXPECT_FALSE(panel.data->Product().CanUndo());
    panel.decisions.EnterNext(SharedText());
    view.EditDocCodesByUser();
    EXPECT_EQ(stored("b"), "AB.1") << "to have none is a choice";

    view.SelectByUser({rows[0], rows[1]}, nullptr);
    EXPECT_FALSE(view.EditMarkingHeadByUser({}));
    EXPECT_TRUE(view.EditMarkingHeadByUser({.base = L"XY", .embodimentNum = L"02", .embodimentNumDelim = L'-'}));
    EXPECT_EQ(stored("a"), "XY-02");
    EXPECT_EQ(stored("c"), "AB.1");
}

} // namespace

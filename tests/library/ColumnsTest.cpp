// The columns of the panel as the view has them after a build.

#include "control/IfProductTreeCtrl.h"
#include "host/ProductProperties.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

namespace {

using platform::ProductModel;
using support::Product;

// Heads with their widths, then the entries that are visible in the view's list.
std::string DumpColumns(const platform::TreeTableView& view) {
    std::wstring text;
    for (const platform::ColumnHead& head : view.GetHeads())
        text += (text.empty() ? L"" : L" ") + head.id + L":" + std::to_wstring(static_cast<int>(head.width));
    text += L" /";
    for (const platform::ColumnEntry& entry : view.GetColumnEntries()) {
        if (entry.isVisible)
            text += L" " + entry.id;
    }
    return {text.begin(), text.end()};
}

Product WithColumns(std::initializer_list<std::wstring> paths) {
    return std::move(Product().Root(L"r").Simplified().Columns(paths).Object("a", L"a").Uses());
}

TEST(Columns, NameAndDesignationComeFirstThenTheVisibleOnesInTheirOrder) {
    const Panel panel(WithColumns({L"mass", L"comment"}));
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 mass:75 comment:189 / mass comment");
}

TEST(Columns, TheViewsListFollowsWhatIsVisible) {
    Panel panel(WithColumns({L"mass", L"comment"}));
    const std::size_t entries = panel.View().GetColumnEntries().size();
    panel.Change([](ProductModel& model) { std::swap(model.visibleProperties[0], model.visibleProperties[1]); });
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 comment:189 mass:75 / comment mass");
    panel.Change([](ProductModel& model) {
        model.visibleProperties.resize(1);
        model.properties.push_back({.number = 1001, .caption = L"Own", .type = 0, .list = {}, .unitCode = {}});
    });
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 comment:189 / comment");
    EXPECT_EQ(panel.View().GetColumnEntries().size(), entries + 1);
    EXPECT_GE(panel.View().FindColumn(L"user.1001"), 0);
    panel.Change([](ProductModel& model) { model.properties.clear(); });
    EXPECT_LT(panel.View().FindColumn(L"user.1001"), 0);
}

TEST(Columns, AColumnThatIsShownStandsLast) {
    const Panel panel(WithColumns({L"mass", L"comment"}));
    const auto show = [&](const wchar_t* id, int visible) {
        const std::vector<productTree::ColumnVisibility> columns = {{id, visible}};
        EXPECT_TRUE(panel.View().SetColumnsVisibleByUser(columns));
    };
    show(L"zone", 1);
    show(L"note", 1);
    show(L"mass", 0);
    show(L"mass", 1);
    EXPECT_EQ(panel.data->GetVisiblePropertyIds(),
              (std::vector{ProductProperties::GetPropId(L"comment"), ProductProperties::GetPropId(L"zone"),
                           ProductProperties::GetPropId(L"note"), ProductProperties::GetPropId(L"mass")}));
}

TEST(Columns, AColumnTakesTheTypeThatItsPropertyHasGot) {
    Panel panel(WithColumns({L"user.1001"}).UserProperty(1001, L"Own", value_type::Integer));
    panel.Change([](ProductModel& model) { model.properties[0].type = value_type::String; });
    EXPECT_EQ(panel.View().GetHeads().at(2).kind, platform::HeadKind::Text);
    auto& row = panel.View().GetRoot()->GetChildRow(0).GetChildRow(0);
    EXPECT_TRUE(panel.View().EditCellByUser(row, L"user.1001", SharedText(L"seven")));
    EXPECT_EQ(row.GetCellText(SharedText(L"user.1001")).Str(), L"seven");
}

// Caption, width, tag, text, and an exclamation mark for the embodiment that is worked on.
std::string DumpCountHeads(const platform::TreeTableView& view) {
    std::wstring text;
    for (const platform::ColumnHead& head : view.GetHeads()) {
        if (head.kind == platform::HeadKind::Count)
            text += head.caption + L":" + std::to_wstring(static_cast<int>(head.width)) + L" [" + head.tag + L"] '" +
                    head.text + L"'" + (head.isActive ? L"! " : L" ");
    }
    return {text.begin(), text.end()};
}

TEST(Columns, EmbodimentsHaveACountColumnEachInPlaceOfTheOne) {
    Panel panel(WithColumns({L"mass", L"count", L"comment"})
                    .Root(L"r", L"AB.1")
                    .Embodiment("e")
                    .Embodiment("f", L"01")
                    .ActiveEmbodiment("f"));
    EXPECT_EQ(DumpCountHeads(panel.View()), "Count:75 [] '' ");
    panel.Change([](ProductModel& model) { model.embodimentMode = true; });
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 mass:75 count|e:45 count|f:45 "
                                         "comment:189 / mass count comment");
    EXPECT_EQ(DumpCountHeads(panel.View()), "AB.1:45 [EMB_COUNT_COLUMN_TAG] 'Count for embodiment AB.1' "
                                            "-01:45 [EMB_COUNT_COLUMN_TAG] 'Count for embodiment -01'! ");
    // An embodiment without a name is counted all the same.
    panel.Change([](ProductModel& model) {
        model.embodiments[0].marking = {};
        model.activeEmbodiment = {};
        model.visibleProperties.clear();
    });
    EXPECT_EQ(DumpCountHeads(panel.View()), ":45 [EMB_COUNT_COLUMN_TAG] 'Count for embodiment' "
                                            "-01:45 [EMB_COUNT_COLUMN_TAG] 'Count for embodiment -01' ");
    EXPECT_FALSE(panel.View().EditHeadByUser(L"count|f", SharedText(L"2")));
}

TEST(Columns, WidthsAreKeptPerColumnSetAndComeBackWithIt) {
    Panel panel(WithColumns({L"mass"}).ColumnSet("first"));
    panel.View().SetColumnWidthByUser(L"name", 300);
    panel.View().SetColumnWidthByUser(L"marking", 111);
    panel.View().SetColumnWidthByUser(L"mass", 99);
    panel.Change([](ProductModel& model) { model.columnSetKey = "second"; });
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 mass:75 / mass");
    panel.View().SetColumnWidthByUser(L"mass", 50);
    panel.Change([](ProductModel& model) { model.columnSetKey = "first"; });
    EXPECT_EQ(DumpColumns(panel.View()), "name:300 marking:111 mass:99 / mass");
    panel.Change([](ProductModel& model) { model.columnSetKey = "second"; });
    EXPECT_EQ(DumpColumns(panel.View()), "name:189 marking:189 mass:50 / mass");
}

TEST(Columns, TheAttributeColumnsKeepTheUsersChoicePerColumnSet) {
    Panel panel(WithColumns({}).ColumnSet("first"));
    const auto shown = [&] {
        const auto aggr = panel.View().GetAttributeColumn(200);
        const auto reg = panel.View().GetAttributeColumn(201);
        return std::array{aggr.isEnabled, aggr.isShown, reg.isEnabled, reg.isShown};
    };
    EXPECT_EQ(shown(), (std::array{false, false, false, false}));
    panel.Change([](ProductModel& model) {
        model.columnSetKey = "second";
        model.isAggrIntoProductShown = true;
    });
    EXPECT_EQ(shown(), (std::array{true, true, false, false}));
    panel.View().SetAttributeColumnShown(200, false);
    panel.Change([](ProductModel& model) { model.columnSetKey = "first"; });
    EXPECT_EQ(shown(), (std::array{true, false, false, false}));
    panel.View().SetAttributeColumnShown(200, true);
    panel.Change([](ProductModel& model) { model.columnSetKey = "second"; });
    EXPECT_EQ(shown(), (std::array{true, false, false, false}));
    panel.Change([](ProductModel& model) { model.columnSetKey = "first"; });
    EXPECT_EQ(shown(), (std::array{true, true, false, false}));
}

} // namespace

// When the panel builds and when it only reads, and what outlives a build.

#include "host/DocumentEvents.h"
#include "host/frame/GuiApp.h"
#include "host/frame/TreeModelId.h"
#include "items/ProductTreeItemData.h"
#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using platform::PanelStart;
using platform::ProductModel;
using support::Key;
using support::Product;
using support::RecordingProductData;

Product ThreeParts() {
    return std::move(Product()
                         .Root(L"r")
                         .NoSectionRows()
                         .Object("a", L"a", L"1")
                         .Uses(2)
                         .Object("b", L"b", L"2")
                         .Uses()
                         .Object("c", L"c", L"3")
                         .Uses(2));
}

/// Writes down of which objects a full build says that they will be read, and which are.
class ReadOrder final : public platform::MemoryProduct {
public:
    using MemoryProduct::MemoryProduct;

    void ExpectReads(const std::vector<UniqueMetaObjectKey>& keys) override {
        for (const UniqueMetaObjectKey& key : keys)
            Add(told, key);
    }
    PropertyReading ReadProperty(const UniqueMetaObjectKey& key, const SharedText& id) const override {
        Add(asked, key);
        return MemoryProduct::ReadProperty(key, id);
    }

    std::string told;
    mutable std::string asked;

private:
    /// Of several times the first counts.
    static void Add(std::string& keys, const UniqueMetaObjectKey& key) {
        const std::string text = key.String() + ' ';
        if (!keys.ends_with(text) && keys.find(' ' + text) == std::string::npos)
            keys += text;
    }
};

void Rename(ProductModel& model, const wchar_t* name) { model.objects[0].name = name; }

void AddFirstObject(ProductModel& model) {
    const ProductModel added = Product().Object("new", L"new", L"0").Uses();
    model.objects.insert(model.objects.begin(), added.objects[0]);
}

std::ptrdiff_t CountCalls(const std::vector<std::string>& calls, const char* name) {
    return std::ranges::count(calls, name);
}

TEST(Control, TellsTheViewWhatThePanelIsCalledAndWhereItsToolsAre) {
    const Panel panel(ThreeParts());
    const platform::PanelState& state = panel.View().GetPanel();
    EXPECT_EQ(state.caption.Str(), L"Product tree");
    EXPECT_EQ(state.helpTopic, "PRODUCT_TREE_HELP");
    EXPECT_EQ(state.toolbar, "PRODUCT_TREE_TOOLBAR");
    EXPECT_EQ(state.additionalToolbar, "PRODUCT_TREE_ADDITIONAL_TOOLBAR");
    EXPECT_TRUE(panel.View().GetControl());
}

TEST(Control, AFullBuildTellsInWhichOrderItWillRead) {
    const auto data = std::make_shared<ReadOrder>(ThreeParts());
    const platform::HostFrame frame(data);
    EXPECT_EQ(data->told, "a#1 a#2 a b#1 c#1 c#2 c ");
    EXPECT_EQ(data->asked, "a#1 a#2 b#1 c#1 c#2 root ") << "groups show what their members do";
}

TEST(Control, AHiddenPanelOwesItsWorkAndPaysOnce) {
    Panel panel(ThreeParts(), PanelStart::Hidden);
    TreeModelId& id = *panel.frame.GetTreeId();
    EXPECT_TRUE(id.IsNeedSyncronize());
    EXPECT_EQ(panel.Dump(), "no rows");
    panel.Tree().SetVisible(true, false);
    EXPECT_FALSE(id.IsNeedSyncronize());
    EXPECT_EQ(panel.Dump(), "r [a (x2) [a | a] | b | c (x2) [c | c]]");

    panel.Tree().SetVisible(false, false);
    panel.data->Change([](ProductModel& model) { Rename(model, L"A"); });
    panel.Tree().Refresh();
    EXPECT_TRUE(id.IsNeedRefresh());
    EXPECT_FALSE(id.IsNeedSyncronize());
    panel.data->Change(AddFirstObject);
    panel.Tree().Synchronize();
    EXPECT_TRUE(id.IsNeedSyncronize());
    EXPECT_EQ(panel.Dump(), "r [a (x2) [a | a] | b | c (x2) [c | c]]");
    panel.Tree().SetVisible(true, true);
    EXPECT_TRUE(panel.View().GetPanel().isActive);
    EXPECT_FALSE(id.IsNeedSyncronize() || id.IsNeedRefresh());
    EXPECT_EQ(panel.Dump(), "r [new | A (x2) [A | A] | b | c (x2) [c | c]]");
}

TEST(Control, ARefreshReadsValuesAndABuildThatIsOwedSwallowsIt) {
    Panel panel(ThreeParts());
    panel.data->Change([](ProductModel& model) {
        AddFirstObject(model);
        Rename(model, L"renamed");
    });
    panel.Tree().Refresh();
    EXPECT_EQ(panel.Dump(), "r [a (x2) [a | a] | b | c (x2) [c | c]]") << "rows stay";
    panel.frame.GetTreeId()->SetNeedSyncronize(true);
    panel.Tree().Refresh();
    EXPECT_EQ(panel.Dump(), "r [renamed | a (x2) [a | a] | b | c (x2) [c | c]]");
}

TEST(Control, TheBusMessageOfAStructureChangeBuildsAndEveryOtherOfItsKindRefreshes) {
    struct Case {
        unsigned message;
        unsigned long wParam;
        long lParam;
        bool builds;
        bool refreshes;
    };
    const Case cases[] = {{0x601, 15, 0, true, true},
                          {0x601, 15, 1, false, true},
                          {0x601, 0, 0, false, true},
                          {0x602, 15, 0, false, false}};
    for (const Case& c : cases) {
        auto data = std::make_shared<RecordingProductData>(ThreeParts());
        const platform::HostFrame frame(data);
        data->TakeCalls();
        PostEvent(document_events::c_router, c.message, c.wParam, c.lParam);
        const auto calls = data->TakeCalls();
        EXPECT_EQ(CountCalls(calls, "BeginRebuild"), c.builds ? 1 : 0) << c.wParam << c.lParam;
        EXPECT_EQ(CountCalls(calls, "BeginRead"), c.refreshes ? 1 : 0) << c.wParam << c.lParam;
    }
}

TEST(Control, AReadOnlyDocumentThatHasNotChangedIsNeitherBuiltNorReadAgain) {
    auto data = std::make_shared<RecordingProductData>(ThreeParts().ReadOnly());
    const platform::HostFrame frame(data);
    EXPECT_TRUE(frame.GetView().GetPanel().isReadOnly);
    data->TakeCalls();
    frame.GetTree().Synchronize();
    frame.GetTree().Refresh();
    auto calls = data->TakeCalls();
    EXPECT_EQ(CountCalls(calls, "BeginRebuild") + CountCalls(calls, "BeginRead"), 0);

    data->Product().Change([](ProductModel& model) { model.visibleProperties = {6}; });
    frame.GetTree().Synchronize();
    EXPECT_EQ(CountCalls(data->TakeCalls(), "BeginRebuild"), 1);

    data->Product().Change([](ProductModel& model) { model.isReadOnly = false; });
    frame.GetTree().Synchronize();
    data->TakeCalls();
    frame.GetTree().Synchronize();
    EXPECT_EQ(CountCalls(data->TakeCalls(), "BeginRebuild"), 1) << "what can be edited is never skipped";
}

TEST(Control, RowsAndTheirDataAreUsedAgainByPosition) {
    Panel panel(ThreeParts());
    const platform::TreeTableRow& root = *panel.View().GetRoot();
    const platform::TreeTableRow* second = &root.GetChildRow(1);
    const auto* data = second->GetData();
    const auto* item = data->GetImpl().get();
    panel.Change(AddFirstObject);
    EXPECT_EQ(panel.Dump(), "r [new | a (x2) [a | a] | b | c (x2) [c | c]]");
    EXPECT_EQ(panel.View().GetRoot(), &root);
    EXPECT_EQ(&root.GetChildRow(1), second);
    EXPECT_EQ(second->GetData(), data);
    EXPECT_NE(data->GetImpl().get(), item);
    panel.Change([](ProductModel& model) { model.objects.resize(1); });
    EXPECT_EQ(panel.Dump(), "r [new]");
    panel.Change([](ProductModel& model) { model.objects.clear(); });
    EXPECT_EQ(panel.Dump(), "r");
}

TEST(Control, ABuildKeepsExpansionSelectionAndCurrentRowByIdentity) {
    Panel panel(ThreeParts());
    EXPECT_EQ(panel.Dump({.expandedOnly = true}), "r [a (x2)+ | b | c (x2)+]")
        << "a tree not seen before comes up with its root expanded";
    platform::TreeTableRow& root = *panel.View().GetRoot();
    root.GetChildRow(2).SetExpanded(true);
    panel.View().SelectByUser({&root.GetChildRow(1), &root.GetChildRow(2).GetChildRow(1)}, &root.GetChildRow(1));
    panel.Change(AddFirstObject);
    EXPECT_EQ(panel.Dump({.expandedOnly = true, .selection = true}), "r [new | a (x2)+ | >>b | c (x2) [c | >c]]");

    panel.Change([](ProductModel& model) {
        std::erase_if(model.objects, [](const auto& object) { return object.key == Key("b"); });
    });
    EXPECT_EQ(panel.Dump({.expandedOnly = true, .selection = true}), "r [new | a (x2)+ | c (x2) [c | >c]]")
        << "a row that is gone loses its selection, the others keep theirs";
}

TEST(Control, ExpansionIsKeptPerRootAndMode) {
    Panel panel(ThreeParts().Embodiment("e1").Embodiment("e2", L"01"));
    panel.View().GetRoot()->GetChildRow(0).SetExpanded(true);
    const std::string plain = panel.Dump({.expandedOnly = true});

    panel.data->SetEmbodimentMode(true);
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Dump({.expandedOnly = true}), "r [a (x2)+ | b | c (x2)+]");
    panel.View().GetRoot()->GetChildRow(2).SetExpanded(true);
    panel.data->SetEmbodimentMode(false);
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Dump({.expandedOnly = true}), plain);
    panel.data->SetEmbodimentMode(true);
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Dump({.expandedOnly = true}), "r [a (x2)+ | b | c (x2) [c | c]]");
}

TEST(Control, EmbodimentModeIsLeftWhereItIsImpossible) {
    Panel panel(ThreeParts().Embodiment("e1").Columns({L"count"}).EmbodimentMode());
    EXPECT_TRUE(panel.data->IsEmbodimentMode());
    panel.View().SetEmbodimentsAllowed(false);
    panel.Tree().Synchronize();
    EXPECT_FALSE(panel.data->IsEmbodimentMode());
    EXPECT_FALSE(Panel(ThreeParts().EmbodimentMode()).data->IsEmbodimentMode()) << "no embodiments";
}

TEST(Control, AHostThatThrowsAnywhereLeavesAPanelThatBuildsAsAFreshOne) {
    const std::string fresh = Panel(ThreeParts()).Dump({.designations = true});
    auto data = std::make_shared<RecordingProductData>(ThreeParts());
    const platform::HostFrame frame(data);
    data->ThrowAt(0);
    frame.GetTree().Synchronize();
    const std::size_t calls = data->GetCallCount();
    ASSERT_GT(calls, 50U);
    for (std::size_t n = 1; n <= calls; ++n) {
        data->ThrowAt(n);
        std::string thrower;
        try {
            frame.GetTree().Synchronize();
        } catch (const support::HostError& error) {
            thrower = error.what();
        }
        ASSERT_NE(thrower, "") << n;
        data->ThrowAt(0);
        frame.GetTree().Synchronize();
        ASSERT_EQ(support::DumpView(frame.GetView(), {.designations = true}), fresh) << n;
        const auto made = data->TakeCalls();
        const std::ptrdiff_t refused = thrower == "BeginRead" ? 1 : 0;
        ASSERT_EQ(CountCalls(made, "BeginRead") - refused, CountCalls(made, "EndRead")) << n;
    }
    const platform::TreeTableRow& root = *frame.GetView().GetRoot();
    EXPECT_TRUE(root.IsExpanded());
}

TEST(Wrapper, IsEmptyUntilItHasAManagerAndSurvivesWithoutOne) {
    const auto wrapper = TreeWrapperRegistrar::Get().at(3)();
    GrABaseFeatureTree& tree = *wrapper->GetFeatureTree();
    tree.Synchronize();
    tree.Refresh();
    tree.RefreshReadOnlyMode();
    tree.InitTree();
    tree.SetVisible(true, true);
    EXPECT_FALSE(tree.IsVisible());
    EXPECT_FALSE(tree.GetPanelModel());
    EXPECT_EQ(tree.GetType(), 14);
    EXPECT_EQ(tree.GetTraits(), 0U);
}

} // namespace

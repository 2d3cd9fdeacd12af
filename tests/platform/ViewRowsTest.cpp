#include "tests/platform/ViewBuilder.h"
#include "tests/platform/ViewControl.h"
#include "tests/support/ViewDump.h"

#include <gtest/gtest.h>

using namespace view_tests;
using support::DumpView;

namespace {

const Node c_product{L"root", {{L"a", {{L"a1"}, {L"a2"}}}, {L"b"}, {L"c", {{L"c1"}}}}};

TEST(ViewRows, ADroppedRowThatIsStillHeldStandsNowhere) {
    const auto view = MakeView(c_product);
    const TreeRowPtr held(&RowAt(*view, {2, 0}));
    RowAt(*view, {}).SetChildCount(2);
    EXPECT_EQ(held->GetParent(), nullptr);
    EXPECT_EQ(held->GetNameText().Str(), L"c1");
}

TEST(ViewRows, RowsThatLeaveTheTreeLetGoOfTheirData) {
    Control control;
    const auto view = MakeView(c_product);
    const auto fill = [&](platform::TreeTableRow& row) {
        row.SetData(new productTree::ProductTreeItemData(control, nullptr), L"name", L"marking");
        return TreeRowPtr(&row);
    };
    const TreeRowPtr root = fill(RowAt(*view, {}));
    const TreeRowPtr kept = fill(RowAt(*view, {0}));
    const TreeRowPtr dropped = fill(RowAt(*view, {2}));
    const TreeRowPtr below = fill(RowAt(*view, {2, 0}));
    root->SetChildCount(1);
    EXPECT_NE(kept->GetData(), nullptr);
    EXPECT_EQ(dropped->GetData(), nullptr);
    EXPECT_EQ(below->GetData(), nullptr);
    view->SetRootRow(view->CreateRow());
    EXPECT_EQ(root->GetData(), nullptr);
    EXPECT_EQ(kept->GetData(), nullptr);
}

TEST(ViewRows, ARowOutlivesItsView) {
    TreeRowPtr held;
    {
        const auto view = MakeView(c_product);
        held = &RowAt(*view, {0});
    }
    held->SetName(SharedText(L"late"), SharedText(L"late"), L"name");
    EXPECT_EQ(held->GetNameText().Str(), L"late");
    EXPECT_EQ(held->GetChildCount(), 2U);
}

TEST(ViewRows, SelectedRowsComeFromTopToBottom) {
    const auto view = MakeView(c_product);
    for (const auto& path : std::vector<std::vector<std::size_t>>{{2, 0}, {0, 1}, {}, {2}, {0}})
        view->SelectRow(&RowAt(*view, path), path == std::vector<std::size_t>{2}, true);
    view->SelectRow(&RowAt(*view, {0, 0}), false, true);
    view->SelectRow(&RowAt(*view, {0}), false, false);
    std::wstring names;
    for (const TreeRowPtr& row : view->GetSelectedRows())
        names += row->GetNameText().Str() + L" ";
    EXPECT_EQ(names, L"root a1 a2 c c1 ");
    EXPECT_EQ(DumpView(*view, {.selection = true}), ">root [a [>a1 | >a2] | b | >>c [>c1]]");
}

TEST(ViewRows, DroppedAndReplacedRowsLeaveTheSelection) {
    const auto view = MakeView(c_product);
    view->SelectRow(&RowAt(*view, {0}), false, true);
    view->SelectRow(&RowAt(*view, {2, 0}), true, true);
    const TreeRowPtr held(&RowAt(*view, {2, 0}));
    RowAt(*view, {}).SetChildCount(2);
    EXPECT_EQ(DumpView(*view, {.selection = true}), "root [>a [a1 | a2] | b]");
    EXPECT_EQ(view->GetCurrent(), nullptr);
    view->SetRootRow(MakeRow(*view, {L"other", {}}));
    EXPECT_TRUE(view->GetSelectedRows().empty());
}

TEST(ViewRows, TheDesignationKeepsItsRowAlive) {
    auto view = MakeView(c_product);
    const auto editor = RowAt(*view, {1}).GetMarkingEditor();
    view.reset();
    editor->SetBase(SharedText(L"AB.1"));
    EXPECT_EQ(editor->GetBase().Str(), L"AB.1");
}

} // namespace

#include "tests/platform/ViewBuilder.h"
#include "tests/platform/ViewListener.h"

#include <gtest/gtest.h>

using namespace view_tests;

namespace {

class ViewChanges : public testing::Test {
protected:
    boost::intrusive_ptr<platform::TreeTableView> m_view = MakeView({L"root", {{L"a", {{L"a1"}}}, {L"b"}}});
    Listener m_listener{*m_view};

    void Rename(const std::vector<std::size_t>& path, const std::wstring& name) {
        RowAt(*m_view, path).SetName(SharedText(name), SharedText(name), L"name");
    }
};

TEST_F(ViewChanges, AWalkOverAllRowsIsAnnouncedOnce) {
    Rename({}, L"product");
    Rename({0}, L"x");
    RowAt(*m_view, {1}).SetIcon(58764, {});
    EXPECT_EQ(m_listener.TakeLog(), "!");
    EXPECT_EQ(Take(*m_view), "values(b product x)");
    Rename({1}, L"y");
    EXPECT_EQ(m_listener.TakeLog(), "!");
}

TEST_F(ViewChanges, AWalkThatChangesNothingIsNotAnnounced) {
    const auto write = [this] {
        platform::TreeTableRow& row = RowAt(*m_view, {0});
        row.SetName(SharedText(L"raw"), SharedText(L"shown"), L"name");
        row.SetNameIcon(SharedText(L"PRODUCTTREE_BY_SRC_MIXED"));
        row.SetIcon(58764, SharedText(L"Part"));
        row.SetCellCount(2);
        row.SetCellColumn(1, L"mass");
        row.SetExpanded(true);
        row.SetSectionRowStyle(true);
        const auto marking = row.GetMarkingEditor();
        marking->SetBase(SharedText(L"AB.1"));
        marking->SetCodeDelim(L"-");
        marking->SetDisplayText(SharedText(L"AB.1"));
        marking->SetLockedParts({7});
        marking->SetColumn(L"marking");
        marking->SetPartTip(SharedText(L"Base"), 1);
        m_view->SetCaption(SharedText(L"Product tree"));
        m_view->SetToolbar("PRODUCT_TREE_TOOLBAR");
    };
    write();
    EXPECT_EQ(m_listener.TakeLog(), "!");
    EXPECT_EQ(Take(*m_view), "values(shown) expansion panel");
    write();
    EXPECT_EQ(m_listener.TakeLog(), "");
}

TEST_F(ViewChanges, RowsOfOneUpdateAreAnnouncedOnceAroundIt) {
    m_view->BeginUpdate();
    Rename({0}, L"x");
    EXPECT_EQ(m_listener.TakeLog(), "");
    RowAt(*m_view, {}).SetChildCount(1);
    EXPECT_EQ(m_listener.TakeLog(), "<");
    m_view->BeginUpdate();
    RowAt(*m_view, {}).AppendChild(MakeRow(*m_view, {L"c", {{L"c1"}}}));
    m_view->EndUpdate();
    EXPECT_EQ(m_listener.TakeLog(), "");
    m_view->EndUpdate();
    EXPECT_EQ(m_listener.TakeLog(), ">!");
    EXPECT_EQ(Take(*m_view), "rows values(c c1 x)");
    m_view->EndUpdate();
    EXPECT_EQ(m_listener.TakeLog(), "");
}

TEST_F(ViewChanges, RowsThatStandNowhereAreNotAnnounced) {
    const TreeRowPtr row = MakeRow(*m_view, {L"x", {{L"y"}}});
    row->SetChildCount(0);
    EXPECT_EQ(m_listener.TakeLog().find_first_of("<>"), std::string::npos);
}

TEST_F(ViewChanges, WhatTheUserDidIsNotAnnounced) {
    RowAt(*m_view, {0}).SetExpandedByUser(true);
    m_view->SelectByUser({&RowAt(*m_view, {0, 0})}, &RowAt(*m_view, {0, 0}));
    EXPECT_EQ(m_listener.TakeLog(), "");
    EXPECT_TRUE(RowAt(*m_view, {0}).IsExpanded());
    EXPECT_TRUE(RowAt(*m_view, {0, 0}).IsCurrent());
    m_view->SelectByUser({&RowAt(*m_view, {1})}, nullptr);
    ASSERT_EQ(m_view->GetSelectedRows().size(), 1U);
    EXPECT_EQ(m_view->GetSelectedRows()[0]->GetNameText().Str(), L"b");
}

TEST_F(ViewChanges, WhatHappenedBeforeAnObserverCameIsToldAtTheNextChange) {
    m_view->SetObserver(nullptr);
    Rename({0}, L"x");
    m_view->SetObserver(&m_listener);
    m_view->SelectRow(&RowAt(*m_view, {1}), true, true);
    EXPECT_EQ(m_listener.TakeLog(), "!");
    EXPECT_EQ(Take(*m_view), "values(x) selection");
}

TEST_F(ViewChanges, RowsAreNamedUpToAnEndAndNotWhenTheyAreGone) {
    constexpr std::size_t limit = platform::TreeTableChanges::c_maxValueRows;
    TreeRowPtr held = m_view->CreateRow();
    held->SetName(SharedText(L"nowhere"), SharedText(L"nowhere"), L"name");
    Rename({1}, L"gone");
    RowAt(*m_view, {}).SetChildCount(1);
    Rename({0, 0}, L"x");
    EXPECT_EQ(Take(*m_view), "rows values(x)");
    for (std::size_t i = 0; i < limit; ++i)
        RowAt(*m_view, {}).AppendChild(MakeRow(*m_view, {L"row"}));
    EXPECT_EQ(m_view->TakeChanges().valueRows.size(), limit);
    for (std::size_t i = 0; i <= limit; ++i)
        Rename({i}, L"many");
    EXPECT_EQ(Take(*m_view), "values");
    Rename({0}, L"one");
    EXPECT_EQ(Take(*m_view), "values(one)");
    held->SetName(SharedText(L"still"), SharedText(L"still"), L"name");
    EXPECT_EQ(Take(*m_view), "");
}

TEST_F(ViewChanges, AnEditorIsAskedForOnceAndNotInARowThatIsGone) {
    RowAt(*m_view, {0}).BeginEdit();
    EXPECT_EQ(m_listener.TakeLog(), "!");
    EXPECT_EQ(Take(*m_view), "edit(a)");
    EXPECT_EQ(Take(*m_view), "");
    for (const bool isHeld : {true, false}) {
        const TreeRowPtr held = isHeld ? &RowAt(*m_view, {1}) : nullptr;
        RowAt(*m_view, {1}).BeginEdit();
        RowAt(*m_view, {}).SetChildCount(1);
        EXPECT_EQ(Take(*m_view), "rows");
        RowAt(*m_view, {}).AppendChild(MakeRow(*m_view, {L"b"}));
        static_cast<void>(m_view->TakeChanges());
    }
}

} // namespace

#include "columns/ColumnInfo.h"
#include "tests/platform/ViewBuilder.h"

#include <gtest/gtest.h>

using namespace view_tests;
using productTree::ColumnInfo;

namespace {

class ViewColumns : public testing::Test {
protected:
    boost::intrusive_ptr<platform::TreeTableView> m_view{new platform::TreeTableView};

    void Build(const std::vector<std::wstring>& numbers) {
        m_view->BeginUpdate();
        m_view->InitNameHeader(ColumnInfo(L"name", L"Name", 200));
        m_view->InitDesignationHeader(ColumnInfo(L"marking", L"Designation", 150));
        m_view->ResetColumns();
        for (const std::wstring& id : numbers)
            m_view->InitDoubleHeader(ColumnInfo(id, id, 60));
        m_view->EndUpdate();
    }

    std::wstring Heads() const {
        std::wstring text;
        for (const platform::ColumnHead& head : m_view->GetHeads())
            text += head.id + L" " + std::to_wstring(static_cast<int>(head.width)) + L"; ";
        return text;
    }

    std::wstring Entries() const {
        std::wstring text;
        for (int i = 0; i < m_view->GetColumnCount(); ++i)
            text += m_view->GetColumnId(i) + (m_view->IsColumnVisible(i) ? L"* " : L" ");
        return text;
    }
};

TEST_F(ViewColumns, ARebuildReplacesTheFixedHeadsAndMakesTheOthersAgain) {
    Build({L"mass", L"density"});
    EXPECT_EQ(Heads(), L"name 200; marking 150; mass 60; density 60; ");
    Build({L"count"});
    EXPECT_EQ(Heads(), L"name 200; marking 150; count 60; ");
}

TEST_F(ViewColumns, TheDesignationStandsBehindTheNameWhicheverComesFirst) {
    m_view->InitIntHeader(ColumnInfo(L"count", L"Count", 50));
    m_view->InitDesignationHeader(ColumnInfo(L"marking", L"Designation", 150));
    m_view->InitNameHeader(ColumnInfo(L"name", L"Name", 200));
    EXPECT_EQ(Heads(), L"name 200; marking 150; count 50; ");
}

TEST_F(ViewColumns, WidthsAreGivenBackAsTheUserLeftThem) {
    EXPECT_EQ(m_view->GetNameColumnWidth(), 0);
    Build({L"mass"});
    m_view->SetColumnWidthByUser(L"mass", 75);
    m_view->SetColumnWidthByUser(L"name", 320);
    m_view->SetColumnWidthByUser(L"marking", 0);
    m_view->SetColumnWidthByUser(L"unknown", 10);
    EXPECT_EQ(m_view->GetColumnWidths(), (std::map<std::wstring, double>{{L"mass", 75}}));
    EXPECT_EQ(m_view->GetNameColumnWidth(), 320);
    EXPECT_EQ(m_view->GetMarkingColumnWidth(), 150);
}

TEST_F(ViewColumns, HeadsThatComeBackTheSameAreNoChange) {
    Build({L"mass"});
    EXPECT_TRUE(m_view->TakeChanges().columns);
    Build({L"mass"});
    EXPECT_FALSE(m_view->TakeChanges().columns);
    m_view->SetColumnWidthByUser(L"mass", 75);
    EXPECT_FALSE(m_view->TakeChanges().columns);
    Build({L"mass"});
    EXPECT_TRUE(m_view->TakeChanges().columns) << "the width was 75";
}

TEST_F(ViewColumns, EntriesAreFoundByIdWhateverHappenedToThem) {
    m_view->AddColumn(L"Mass", L"mass", true);
    m_view->AddColumn(L"Note", L"note", false);
    m_view->AddColumn(L"Zone", L"zone", true);
    EXPECT_EQ(m_view->FindColumn(L"zone"), 2);
    m_view->RemoveColumn(0);
    EXPECT_EQ(m_view->FindColumn(L"zone"), 1);
    EXPECT_LT(m_view->FindColumn(L"mass"), 0);
    m_view->SetColumnId(0, L"comment");
    m_view->SetColumnCaption(0, L"Comment");
    EXPECT_LT(m_view->FindColumn(L"note"), 0);
    EXPECT_EQ(m_view->GetColumnCaption(m_view->FindColumn(L"comment")), L"Comment");
    EXPECT_EQ(Entries(), L"comment zone* ");
}

TEST_F(ViewColumns, IndicesOutsideTheListAreHarmless) {
    m_view->AddColumn(L"Mass", L"mass", true);
    for (const int index : {-1, 1}) {
        m_view->RemoveColumn(index);
        m_view->SetColumnId(index, L"x");
        m_view->SetColumnCaption(index, L"x");
        EXPECT_EQ(m_view->GetColumnId(index), L"");
        EXPECT_FALSE(m_view->IsColumnVisible(index));
    }
    EXPECT_EQ(Entries(), L"mass* ");
}

TEST_F(ViewColumns, OneColumnIsMarkedAtATime) {
    m_view->SetColumnMark(L"count|a", true);
    m_view->SetColumnMark(L"count", false);
    EXPECT_EQ(m_view->GetMarkedColumn(), L"count|a");
    m_view->SetColumnMark(L"count|b", true);
    EXPECT_EQ(m_view->GetMarkedColumn(), L"count|b");
    m_view->ClearColumnMark();
    EXPECT_EQ(m_view->GetMarkedColumn(), L"");
}

TEST_F(ViewColumns, TheTwoAttributeColumnsKeepTheirState) {
    m_view->SetAttributeColumnEnabled(200, true);
    m_view->SetAttributeColumnShown(201, true);
    m_view->SetAttributeColumnShown(202, true);
    EXPECT_FALSE(m_view->IsAttributeColumnShown(200));
    EXPECT_TRUE(m_view->GetAttributeColumn(200).isEnabled);
    EXPECT_TRUE(m_view->IsAttributeColumnShown(201));
    EXPECT_FALSE(m_view->IsAttributeColumnShown(202));
}

} // namespace

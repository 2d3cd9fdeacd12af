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

} // namespace

#include "columns/DocumentColumnsInfo.h"
#include "tests/library/TestDescription.h"

#include <gtest/gtest.h>

namespace {

using productTree::ColumnInfo;
using productTree::DocumentColumnsInfo;

const TestDescription c_name(5, 2, L"Name");
const TestDescription c_marking(4, 2, L"Designation");
const TestDescription c_a(1001, 2, L"A");
const TestDescription c_b(1002, 2, L"B");
const TestDescription c_count(6, 2, L"Count");

const DocumentColumnsInfo::Descriptions c_all = {nullptr, &c_name, &c_marking, &c_a, &c_b, &c_count};

// Captions with their widths where those are not the default.
std::wstring Dump(const std::list<ColumnInfo>& columns) {
    std::wstring text;
    for (const ColumnInfo& column : columns) {
        text += (text.empty() ? L"" : L" ") + column.GetHeader();
        const double width = column.GetWidth();
        if (width != 189.39 && width != 75.75 && width != 45.0)
            text += L":" + std::to_wstring(static_cast<int>(width));
    }
    return text;
}

std::list<ColumnInfo> CountColumns(std::initializer_list<const wchar_t*> names) {
    std::list<ColumnInfo> columns;
    for (const wchar_t* name : names)
        columns.emplace_back(std::wstring(L"count|") + name, name, 45.0);
    return columns;
}

TEST(DocumentColumnsInfo, TheFixedColumnsAreMadeOnceFromTheirNumbers) {
    DocumentColumnsInfo columns;
    columns.SetNameColumn({&c_a});
    EXPECT_FALSE(columns.GetNameColumn());
    columns.SetNameColumn(c_all);
    columns.SetMarkingColumn(c_all);
    ASSERT_TRUE(columns.GetNameColumn());
    EXPECT_EQ(columns.GetNameColumn()->GetId(), L"name");
    EXPECT_EQ(columns.GetMarkingColumn()->GetId(), L"marking");
    columns.GetNameColumn()->SetWidth(321);
    columns.SetNameColumn(c_all);
    EXPECT_EQ(columns.GetNameColumn()->GetWidth(), 321);
}

TEST(DocumentColumnsInfo, ColumnsFollowTheVisibleNumbersAndKeepTheirWidthWhileTheyStay) {
    DocumentColumnsInfo columns;
    columns.SetColumns({5, 1001, 4, 1002, 7777}, c_all);
    EXPECT_EQ(Dump(columns.GetColumns()), L"A B");
    columns.UpdateWidths({{L"user.1001", 10}, {L"elsewhere", 20}});
    EXPECT_EQ(Dump(columns.GetColumns()), L"A:10 B");
    columns.SetColumns({1002, 1001}, {});
    EXPECT_EQ(Dump(columns.GetColumns()), L"B A:10") << "a column needs no description to stay";
    columns.SetColumns({1002}, c_all);
    columns.SetColumns({1002, 1001}, c_all);
    EXPECT_EQ(Dump(columns.GetColumns()), L"B A") << "hiding drops the width";
}

TEST(DocumentColumnsInfo, IsTheSameOnlyForTheSameNumbersInOrder) {
    DocumentColumnsInfo columns;
    columns.SetColumns({1001, 1002}, c_all);
    EXPECT_TRUE(columns.IsSameColumns({5, 1001, 1002, 4}));
    EXPECT_FALSE(columns.IsSameColumns({1002, 1001}));
    EXPECT_FALSE(columns.IsSameColumns({1001}));
    EXPECT_FALSE(columns.IsSameColumns({1001, 1002, 6}));
}

TEST(DocumentColumnsInfo, CountColumnsStandInPlaceOfTheCountOrAtTheEnd) {
    DocumentColumnsInfo columns;
    columns.SetColumns({1001, 6, 1002}, c_all);
    columns.SetEmbodimentColumns(CountColumns({L"-", L"-01"}));
    EXPECT_EQ(Dump(columns.GetShownColumns(true)), L"A - -01 B");
    EXPECT_EQ(Dump(columns.GetShownColumns(false)), L"A Count B");
    columns.SetColumns({1001, 1002}, c_all);
    EXPECT_EQ(Dump(columns.GetShownColumns(true)), L"A B - -01");
}

TEST(DocumentColumnsInfo, CountColumnsKeepTheirWidthsInTheirOldOrderOnly) {
    DocumentColumnsInfo columns;
    columns.SetEmbodimentColumns(CountColumns({L"a", L"b", L"c"}));
    columns.UpdateWidths({{L"count|a", 11}, {L"count|b", 12}, {L"count|c", 13}});
    columns.SetEmbodimentColumns(CountColumns({L"a", L"c"}));
    EXPECT_EQ(Dump(columns.GetShownColumns(true)), L"a:11 c:13");
    columns.SetEmbodimentColumns(CountColumns({L"c", L"a", L"b"}));
    EXPECT_EQ(Dump(columns.GetShownColumns(true)), L"c:13 a b")
        << "what comes out of order, and what was gone, starts with the default";
}

} // namespace

#include "columns/ColumnInfo.h"
#include "platform/values/Utf8.h"
#include "platform/view/TextPrint.h"
#include "tests/platform/ViewBuilder.h"
#include "tests/platform/ViewControl.h"

#include <gtest/gtest.h>

using namespace view_tests;
using platform::PrintedRows;
using productTree::ColumnInfo;

namespace {

void SetDesignation(platform::TreeTableRow& row, const wchar_t* text) {
    row.GetMarkingEditor()->SetDisplayText(SharedText(text));
}

boost::intrusive_ptr<platform::TreeTableView> MakePanel(const Node& root) {
    auto view = MakeView(root);
    view->SetCaption(SharedText(L"Product tree"));
    view->InitNameHeader(ColumnInfo(L"name", L"Name", 200));
    view->InitDesignationHeader(ColumnInfo(L"marking", L"Designation", 150));
    view->InitDoubleHeader(ColumnInfo(L"mass", L"Mass, kg", 60));
    view->GetRoot()->SetExpanded(true);
    return view;
}

TEST(ViewPrint, ShowsWhatIsExpandedOrEverything) {
    const auto view = MakePanel({L"as1", {{L"Parts (3)", {{L"nut (x2)", {{L"nut"}, {L"nut"}}}}}}});
    SetDesignation(*view->GetRoot(), L"AB.100");
    EXPECT_EQ(PrintTree(*view, PrintedRows::Expanded), "Product tree\n"
                                                       "Name           Designation  Mass, kg\n"
                                                       "- as1          AB.100\n"
                                                       "  + Parts (3)\n");
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), "Product tree\n"
                                                  "Name            Designation  Mass, kg\n"
                                                  "- as1           AB.100\n"
                                                  "  - Parts (3)\n"
                                                  "    - nut (x2)\n"
                                                  "        nut\n"
                                                  "        nut\n");
}

TEST(ViewPrint, CellsStandUnderTheirHeads) {
    const auto view = MakePanel({L"as1", {{L"a"}, {L"b"}}});
    view->InitBoolHeader(ColumnInfo(L"visible", L"Visible", 60));
    view->InitListHeader(ColumnInfo(L"section", L"Section", 60));
    view->InitTextHeader(ColumnInfo(L"source", L"Source", 60), nullptr);
    for (const std::size_t i : {0U, 1U})
        InitCells(RowAt(*view, {i}));
    WriteCells(RowAt(*view, {0}));
    RowAt(*view, {1}).SetDoubleValue(columns::mass, 1250, true);
    RowAt(*view, {1}).SetBoolValue(columns::visible, {});
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), "Product tree\n"
                                                  "Name   Designation  Mass, kg  Visible  Section  Source\n"
                                                  "- as1\n"
                                                  "    a                   0.25  yes      Kits     drawing\n"
                                                  "    b                   1250           Parts\n");
}

TEST(ViewPrint, WideLettersStandInColumns) {
    const auto view = MakePanel({L"p", {{L"\u30A2\u30EB\u30DF\u3000\u67A0"}, {L"e\u0301t\u00E9"}}});
    SetDesignation(RowAt(*view, {0}), L"X");
    SetDesignation(RowAt(*view, {1}), L"Y");
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), platform::ToUtf8(L"Product tree\n"
                                                                   L"Name            Designation  Mass, kg\n"
                                                                   L"- p\n"
                                                                   L"    \u30A2\u30EB\u30DF\u3000\u67A0  X\n"
                                                                   L"    e\u0301t\u00E9         Y\n"));
}

TEST(ViewPrint, ControlsOfATerminalDoNotReachIt) {
    const auto view = MakePanel({L"a\nb\x1B[2J\x85", {}});
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), "Product tree\n"
                                                  "Name        Designation  Mass, kg\n"
                                                  "  a b [2J\n");
}

TEST(ViewPrint, AnEmptyViewHasOnlyItsHeads) {
    platform::TreeTableView* const view = new platform::TreeTableView;
    const boost::intrusive_ptr<platform::TreeTableView> holder(view);
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), "");
    view->InitNameHeader(ColumnInfo(L"name", L"Name", 200));
    EXPECT_EQ(PrintTree(*view, PrintedRows::All), "Name\n");
}

TEST(Utf8, EveryCodePointHasItsBytesAndWhatIsNoneIsReplaced) {
    const std::pair<std::wstring, std::string> cases[] = {
        {L"a\u00E9\u20AC\U0001F600", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {std::wstring{wchar_t{0x7F}, wchar_t{0x80}, wchar_t{0x7FF}, wchar_t{0x800}},
         "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80"},
        {std::wstring{wchar_t{0xFFFF}, wchar_t{0x10000}, wchar_t{0x10FFFF}},
         "\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {std::wstring{wchar_t{0xD800}, wchar_t{0xDFFF}, wchar_t{0x110000}}, "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {std::wstring{wchar_t{-1}}, "\xEF\xBF\xBD"},
    };
    for (const auto& [wide, bytes] : cases)
        EXPECT_EQ(platform::ToUtf8(wide), bytes);
}

} // namespace

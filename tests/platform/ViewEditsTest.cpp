#include "columns/ColumnInfo.h"
#include "tests/platform/ViewControl.h"
#include "tests/platform/ViewListener.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

using namespace view_tests;
using platform::CellInput;
using platform::ListIndex;
using platform::MarkingParts;
using productTree::ColumnInfo;

namespace {

class ViewEdits : public testing::Test {
protected:
    Control m_control;
    boost::intrusive_ptr<platform::TreeTableView> m_view = MakeView({L"root", {{L"a"}, {L"b"}}});
    boost::intrusive_ptr<platform::TreeTableRow> m_row{&RowAt(*m_view, {0})};
    const MarkingParts m_designation{L"AB.1", L"-", L"01", {}, {}, L" ", L"AD"};

    void SetUp() override {
        m_view->SetController(m_control);
        m_view->InitNameHeader(ColumnInfo(L"name", L"Name", 200));
        m_view->InitDesignationHeader(ColumnInfo(L"marking", L"Designation", 150));
        m_view->InitTextHeader(ColumnInfo(L"note", L"Note", 60), new Menu);
        m_view->InitIntHeader(ColumnInfo(L"count", L"Count", 60));
        m_view->InitDoubleHeader(ColumnInfo(L"mass", L"Mass", 60));
        m_view->InitBoolHeader(ColumnInfo(L"visible", L"Visible", 60));
        m_view->InitLinkHeader(ColumnInfo(L"material", L"Material", 60));
        m_view->InitListHeader(ColumnInfo(L"section", L"Section", 60));
        m_row->SetData(new Control::Item(m_control, nullptr), L"name", L"marking");
        m_row->SetNameEditable(true);
        InitCells(*m_row);
        WriteCells(*m_row, new Menu);
        const auto marking = m_row->GetMarkingEditor();
        marking->SetBase(m_designation[0]);
        marking->SetEmbodimentNumDelim(m_designation[1]);
        marking->SetEmbodimentNum(m_designation[2]);
        marking->SetCodeDelim(m_designation[5]);
        marking->SetCode(m_designation[6]);
        static_cast<void>(m_view->TakeChanges());
    }
    /// What the row answers while the control is called.
    template <class Ask>
    std::string AnsweredDuring(const Ask& ask, const std::function<bool()>& act) {
        std::string answer = "not called";
        m_control.during = [&] { answer = ask(); };
        EXPECT_TRUE(act());
        m_control.during = nullptr;
        return answer;
    }
};

TEST_F(ViewEdits, WhatACellCanNotHoldNeverReachesTheControl) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::pair<const wchar_t*, CellInput> cases[] = {
        {L"note", 1},
        {L"note", {}},
        {L"count", 1.0},
        {L"count", true},
        {L"mass", 1},
        {L"mass", infinity},
        {L"mass", SharedText(L"1")},
        {L"visible", 1},
        {L"section", 1},
        {L"section", ListIndex{2}},
        {L"section", ListIndex{-2}},
        {L"section", {}},
        {L"source", SharedText(L"x")},
        {L"missing", 1},
        {L"", 1},
        {L"name", SharedText(L"x")},
    };
    for (const auto& [column, input] : cases)
        EXPECT_FALSE(m_view->EditCellByUser(*m_row, column, input)) << platform::ToUtf8(column);

    m_row->SetBoolCell(columns::visible, true, false, true, {});
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"visible", {}));
    m_row->SetIntCell(columns::count, 3, 0, 0, false, false, {});
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"count", 5));
    m_row->SetReadOnly(true);
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"note", SharedText(L"x")));
    EXPECT_FALSE(m_view->EditNameByUser(*m_row, L"x"));
    m_row->SetReadOnly(false);
    m_view->SetReadOnly(true);
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"note", SharedText(L"x")));
    EXPECT_EQ(m_control.TakeLog(), "");
}

TEST_F(ViewEdits, WhatTheLibraryWritesTakesThePlaceOfTheInputAtOnce) {
    struct Case {
        const char* what;
        std::function<bool()> act;
        std::function<void()> answer;
        const char* after;
    };
    const auto edit = [&](const wchar_t* column, const CellInput& input) {
        return [=, this] { return m_view->EditCellByUser(*m_row, column, input); };
    };
    const Case cases[] = {
        {"refused text", edit(L"note", SharedText(L"x")), [&] { m_row->SetCellText(columns::note, L"a<b", L"ab"); },
         "a<b 3 0.25 yes 1"},
        {"refused number", edit(L"mass", 9.0), [&] { m_row->SetDoubleValue(columns::mass, 0.25, true); },
         "a<b 3 0.25 yes 1"},
        {"refused choice", edit(L"section", ListIndex{0}), [&] { m_row->SetListIndex(columns::section, 1); },
         "a<b 3 0.25 yes 1"},
        {"taken", edit(L"count", 9), [&] { m_row->SetIntValue(columns::count, 9); }, "a<b 9 0.25 yes 1"},
        {"taken and changed", edit(L"note", SharedText(L" x ")),
         [&] { m_row->SetTextCell(columns::note, L"x", L"x", true, false, {}, nullptr); }, "x 9 0.25 yes 1"},
        {"read again", edit(L"visible", false), [&] { m_row->SetBoolCell(columns::visible, false, true, true, {}); },
         "x 9 0.25 no 1"},
    };
    for (const Case& one : cases) {
        const auto ask = [&] {
            one.answer();
            return Answers(*m_row);
        };
        EXPECT_EQ(AnsweredDuring(ask, one.act), one.after) << one.what;
        EXPECT_EQ(Answers(*m_row), one.after) << one.what;
        EXPECT_EQ(Take(*m_view), "values(a)") << one.what;
    }
}

TEST_F(ViewEdits, AControlThatThrowsLeavesTheOldValueAndAUsableView) {
    Listener listener(*m_view);
    const std::function<bool()> acts[] = {
        [&] { return m_view->EditCellByUser(*m_row, L"note", SharedText(L"x")); },
        [&] { return m_view->EditNameByUser(*m_row, L"x"); },
        [&] { return m_view->EditMarkingByUser(*m_row, {L"x"}); },
        [&] { return m_view->EditHeadByUser(L"mass", 1.0); },
        [&] { return m_view->ClickHeadByUser(L"material"); },
    };
    for (const auto& act : acts) {
        m_control.during = [] { throw std::runtime_error("host"); };
        EXPECT_THROW(act(), std::runtime_error);
        EXPECT_EQ(Answers(*m_row), "a<b 3 0.25 yes 1");
        EXPECT_EQ(m_row->GetNameText().Str(), L"a");
        EXPECT_EQ(m_row->GetMarking().GetParts(), m_designation);
        EXPECT_FALSE(m_view->GetHeaderDouble(L"mass").has_value());
        m_control.during = nullptr;
        EXPECT_TRUE(act());
    }
    // What the library wrote before it failed is its last word.
    m_control.during = [&] {
        m_row->SetIntValue(columns::count, 8);
        throw std::runtime_error("host");
    };
    EXPECT_THROW(m_view->EditCellByUser(*m_row, L"count", 8), std::runtime_error);
    EXPECT_EQ(m_row->GetIntValue(columns::count), 8);
}

TEST_F(ViewEdits, TheControlMayBuildAllRowsAnewInsideTheCall) {
    m_control.during = [&] { m_view->SetRootRow(MakeRow(*m_view, {L"other"})); };
    EXPECT_TRUE(m_view->EditCellByUser(RowAt(*m_view, {0}), L"note", SharedText(L"x")));
    EXPECT_EQ(m_row->GetData(), nullptr);
    EXPECT_EQ(m_row->GetCellText(columns::note).Str(), L"a<b");
    EXPECT_EQ(Take(*m_view), "rows values(other)");
    m_control.during = nullptr;
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"note", SharedText(L"x"))) << "it is gone";
}

TEST_F(ViewEdits, TheControlMayLetGoOfTheLastHolderOfRowAndView) {
    platform::TreeTableView* const view = m_view.get();
    platform::TreeTableRow* const row = m_row.get();
    m_control.during = [&] {
        m_row.reset();
        m_view->SetRootRow(nullptr);
        m_view.reset();
    };
    EXPECT_TRUE(view->EditCellByUser(*row, L"note", SharedText(L"x")));
}

TEST_F(ViewEdits, NothingIsTakenWhileTheControlOrAnUpdateIsAtWork) {
    bool nested = true;
    m_control.during = [&] {
        nested = m_view->EditNameByUser(*m_row, L"x") || m_view->ClickHeadByUser(L"material") ||
                 m_view->MoveColumnByUser(L"mass", 2) || m_view->EditCellByUser(*m_row, L"mass", 5.0);
    };
    EXPECT_TRUE(m_view->EditCellByUser(*m_row, L"count", 7));
    EXPECT_FALSE(nested);
    EXPECT_EQ(m_control.TakeLog(), "cell count;");
    m_view->BeginUpdate();
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"count", 7));
    m_view->EndUpdate();
    m_row->SetData(nullptr, L"name", L"marking");
    EXPECT_FALSE(m_view->EditCellByUser(*m_row, L"count", 7));
    EXPECT_EQ(m_control.TakeLog(), "");
}

TEST_F(ViewEdits, ClicksReachTheControlOnlyWhereThereIsSomethingToClick) {
    m_row->SetNameIcon(columns::icon);
    m_row->SetNameHypertext(true);
    m_row->GetMarkingEditor()->SetIcon(columns::icon);
    for (const std::wstring& column : {m_row->GetNameColumn(), m_row->GetMarking().GetColumn()})
        EXPECT_EQ(m_row->GetCellSourceIcon(column).Str(), columns::icon.Str());
    const auto icon = [&](const wchar_t* id) { return m_view->ClickSourceIconByUser(*m_row, id); };
    const auto link = [&](const wchar_t* id) { return m_view->ClickLinkByUser(*m_row, id); };
    EXPECT_TRUE(icon(L"note") && icon(L"name") && icon(L"marking") && icon(L"mass"));
    EXPECT_EQ(m_control.TakeLog(), "icon note;icon name;icon marking;icon mass;");
    EXPECT_FALSE(icon(L"count") || icon(L"missing") || icon(L""));
    EXPECT_TRUE(link(L"source") && link(L"name"));
    EXPECT_EQ(m_control.TakeLog(), "link source;link name;");
    EXPECT_FALSE(link(L"note") || link(L"marking") || link(L"missing"));
    EXPECT_TRUE(m_view->PopupCommandByUser(*m_row, L"note", 7));
    EXPECT_FALSE(m_view->PopupCommandByUser(*m_row, L"mass", 7));
    EXPECT_TRUE(m_view->EditDocCodeByUser(*m_row));
    EXPECT_EQ(m_control.TakeLog(), "popup 7 note;code;");

    m_row->GetMarkingEditor()->SetLockedParts({7});
    EXPECT_FALSE(m_view->EditDocCodeByUser(*m_row));
    m_view->SetReadOnly(true);
    EXPECT_FALSE(icon(L"note"));
    EXPECT_TRUE(link(L"source")) << "a link can be followed where nothing can be changed";
}

TEST_F(ViewEdits, AHeadHoldsItsInputWhileTheControlLooksAtIt) {
    const auto ask = [&] {
        const auto number = m_view->GetHeaderDouble(L"mass");
        const auto count = m_view->GetHeaderInt(L"count");
        const auto visible = m_view->GetHeaderBool(L"visible");
        return platform::ToUtf8(m_view->GetHeaderName().Str() + L'|' + m_view->GetHeaderText(L"note").Str()) + '|' +
               (count ? std::to_string(*count) : "") + '|' +
               (number ? platform::ToUtf8(SimplePropVal(*number).to_wstring().Str()) : "") + '|' +
               (visible ? (*visible ? "yes" : "no") : "");
    };
    const std::tuple<const wchar_t*, CellInput, const char*> cases[] = {
        {L"name", SharedText(L"bolt"), "bolt||||"},
        {L"note", SharedText(L"x"), "|x|||"},
        {L"count", 5, "||5||"},
        {L"mass", 2.5, "|||2.5|"},
        {L"mass", {}, "||||"},
        {L"visible", false, "||||no"},
    };
    for (const auto& [id, input, answer] : cases) {
        const auto act = [&, column = id, left = input] { return m_view->EditHeadByUser(column, left); };
        EXPECT_EQ(AnsweredDuring(ask, act), answer);
        EXPECT_EQ(m_control.TakeLog(), "head " + platform::ToUtf8(id) + ';');
        EXPECT_EQ(ask(), "||||");
    }
    EXPECT_EQ(m_view->GetHeaderListIndex(L"section"), -1);
    EXPECT_FALSE(m_view->EditHeadByUser(L"marking", SharedText(L"x")));
    EXPECT_FALSE(m_view->EditHeadByUser(L"mass", 1));
    EXPECT_FALSE(m_view->EditHeadByUser(L"section", ListIndex{0})) << "its list is empty";
    EXPECT_FALSE(m_view->EditHeadByUser(L"missing", 1));
    EXPECT_TRUE(m_view->ClickHeadByUser(L"material"));
    EXPECT_FALSE(m_view->ClickHeadByUser(L"count"));
    EXPECT_TRUE(m_view->HeadPopupCommandByUser(L"note", 4));
    EXPECT_FALSE(m_view->HeadPopupCommandByUser(L"mass", 4));
    EXPECT_EQ(m_control.TakeLog(), "head click material;head popup 4 note;");
}

TEST_F(ViewEdits, ColumnsMoveBehindNameAndDesignation) {
    const auto order = [&] {
        std::wstring text;
        for (const std::wstring& id : m_view->GetColumnIds())
            text += id + L' ';
        return text;
    };
    static_cast<void>(m_view->TakeChanges());
    EXPECT_TRUE(m_view->MoveColumnByUser(L"mass", 2));
    EXPECT_EQ(order(), L"name marking mass note count visible material section ");
    EXPECT_EQ(Take(*m_view), "columns");
    EXPECT_TRUE(m_view->MoveColumnByUser(L"mass", 7));
    EXPECT_EQ(order(), L"name marking note count visible material section mass ");
    EXPECT_EQ(m_control.TakeLog(), "columns;columns;");
    EXPECT_FALSE(m_view->MoveColumnByUser(L"mass", 1));
    EXPECT_FALSE(m_view->MoveColumnByUser(L"mass", 8));
    EXPECT_FALSE(m_view->MoveColumnByUser(L"name", 3));
    EXPECT_FALSE(m_view->MoveColumnByUser(L"missing", 3));
    EXPECT_TRUE(m_view->SetColumnsVisibleByUser({{L"mass", 0}, {L"note", 1}}));
    EXPECT_EQ(m_control.TakeLog(), "visible mass-note+;");
}

} // namespace

#include "tests/platform/AllocationCounter.h"
#include "tests/platform/ViewControl.h"
#include "tests/platform/ViewListener.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

using namespace view_tests;
using platform::CellKind;
using platform::TreeCell;

namespace {

class ViewCells : public testing::Test {
protected:
    boost::intrusive_ptr<platform::TreeTableView> m_view = MakeView({L"root", {{L"a"}, {L"b"}}});
    platform::TreeTableRow& m_row = RowAt(*m_view, {0});
    MenuPtr m_menu{new Menu};

    void SetUp() override {
        InitCells(m_row);
        WriteCells(m_row, m_menu);
        static_cast<void>(m_view->TakeChanges());
    }
    const TreeCell& Cell(const SharedText& column) const { return *m_row.FindCell(column); }
};

TEST_F(ViewCells, EachKindKeepsWhatItWasGiven) {
    EXPECT_EQ(Shown(m_row), "ab | 3 | 0.25 | yes | Kits | drawing");
    EXPECT_EQ(Answers(m_row), "a<b 3 0.25 yes 1");

    const TreeCell& note = Cell(columns::note);
    EXPECT_EQ(note.GetText().Str(), L"a<b");
    EXPECT_EQ(note.GetPopup(), m_menu.get());
    EXPECT_EQ(m_row.GetIconOf(note).Str(), columns::icon.Str());
    EXPECT_EQ(m_row.GetCellSourceIcon(columns::note).Str(), columns::icon.Str());
    const TreeCell& count = Cell(columns::count);
    EXPECT_TRUE(count.IsRecalculable());
    EXPECT_TRUE(count.CanBeEmpty());
    EXPECT_EQ(count.GetMax(), 100);
    const TreeCell& mass = Cell(columns::mass);
    EXPECT_EQ(mass.GetStep(), 0.5);
    EXPECT_EQ(mass.GetMin(), -1);
    EXPECT_TRUE(mass.HasLimits());
    const TreeCell& section = Cell(columns::section);
    EXPECT_EQ(section.GetList().size(), 2U);
    EXPECT_EQ(section.GetTip().Str(), L"Section");
    EXPECT_FALSE(section.HasLimits());
    const TreeCell& source = Cell(columns::source);
    EXPECT_EQ(source.GetKind(), CellKind::Link);
    EXPECT_EQ(source.GetLinkStyle(), 2);
    EXPECT_EQ(source.GetTip().Str(), L"Open");
    EXPECT_TRUE(source.IsOutdated());
    EXPECT_FALSE(source.OpensEditor());
}

TEST_F(ViewCells, RowsGetTheirCellsInWhateverOrder) {
    const SharedText a = L"a";
    const SharedText b = L"b";
    const SharedText c = L"c";
    const auto fill = [&](std::initializer_list<SharedText> columns) {
        const auto row = boost::static_pointer_cast<platform::TreeTableRow>(m_view->CreateRow());
        for (const SharedText& column : columns)
            row->InitTextEditor(column, column, true, {}, nullptr);
        return row;
    };
    const auto list = [](const platform::TreeTableRow& row) {
        std::wstring cells;
        for (std::size_t i = 0; i < row.GetCellCount(); ++i)
            cells += row.GetColumnOf(row.GetCell(i)).Str() + row.GetCell(i).GetText().Str() + L' ';
        return cells;
    };
    EXPECT_EQ(list(*fill({a, b, c})), L"aa bb cc ");
    EXPECT_EQ(list(*fill({a, b, c})), L"aa bb cc ") << "as the row before";
    EXPECT_EQ(list(*fill({a, c, b})), L"aa cc bb ") << "in another order";
    EXPECT_EQ(list(*fill({a, c, a, b})), L"aa cc bb ") << "one of them twice";
    EXPECT_EQ(list(*fill({a, SharedText(L"c"), b})), L"aa cc bb ") << "an equal text";

    const auto row = fill({a});
    row->SetCellColumn(0, c);
    row->InitTextEditor(c, L"new", true, {}, nullptr);
    EXPECT_EQ(list(*row), L"cnew ") << "the column was given to a cell meanwhile";
    row->SetCellCount(2);
    row->InitTextEditor(b, b, true, {}, nullptr);
    EXPECT_EQ(list(*row), L"cnew bb ") << "a cell without column was there";
}

TEST_F(ViewCells, NumbersShowInTheirShortestForm) {
    const std::pair<double, const wchar_t*> cases[] = {
        {0, L"0"}, {-0.0, L"0"}, {0.1, L"0.1"}, {1e5, L"100000"}, {-2.50, L"-2.5"}, {1e-9, L"1e-09"},
    };
    for (const auto& [number, text] : cases) {
        m_row.SetDoubleValue(columns::mass, number, true);
        EXPECT_EQ(Cell(columns::mass).GetShownText().Str(), text);
    }
    m_row.SetIntValue(columns::count, std::numeric_limits<int>::min());
    EXPECT_EQ(Cell(columns::count).GetShownText().Str(), L"-2147483648");
}

TEST_F(ViewCells, WrittenAgainNothingIsAllocatedAndNobodyIsTold) {
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    Listener listener(*m_view);
    InitCells(RowAt(*m_view, {1}));
    m_row.SetDoubleValue(columns::mass, noNumber, true);
    m_row.SetTextCell(columns::note, L"x", L"y", true, false, {}, nullptr);
    static_cast<void>(m_view->TakeChanges());
    static_cast<void>(listener.TakeLog());
    const SharedText x = L"x";
    const SharedText y = L"y";
    const SharedText link = L"drawing";
    const SharedText tip = L"Open";

    const std::size_t before = host_tests::GetAllocationCount();
    for (int i = 0; i < 3; ++i) {
        m_row.SetTextCell(columns::note, x, y, true, false, {}, nullptr);
        m_row.SetIntCell(columns::count, 3, 1, 100, true, true, {});
        m_row.SetDoubleCell(columns::mass, noNumber, true, true, columns::icon, -1, 5);
        m_row.SetBoolCell(columns::visible, true, true, true, {});
        m_row.SetListCell(columns::section, c_sections, 1, true, {});
        m_row.SetLinkCell(columns::source, link, false, tip, true, false, true, {}, 2);
        m_row.SetCellText(columns::note, x, y);
        m_row.SetIntValue(columns::count, 3);
        m_row.SetBoolValue(columns::visible, true);
        m_row.SetListIndex(columns::section, 1);
        m_row.SetCellCount(6);
    }
    EXPECT_EQ(host_tests::GetAllocationCount(), before);
    EXPECT_EQ(listener.TakeLog(), "");
}

TEST_F(ViewCells, AnyDifferenceIsToldOfItsRowAlone) {
    const std::function<void()> changes[] = {
        [&] { m_row.SetCellText(columns::note, L"a<b", L"other"); },
        [&] { m_row.SetCellText(columns::note, L"other", L"other"); },
        [&] { m_row.SetTextCell(columns::note, L"other", L"other", true, false, {}, m_menu); },
        [&] { m_row.SetTextCell(columns::note, L"other", L"other", false, false, {}, m_menu); },
        [&] { m_row.SetTextCell(columns::note, L"other", L"other", false, true, {}, m_menu); },
        [&] { m_row.SetTextCell(columns::note, L"other", L"other", false, true, {}, nullptr); },
        [&] { m_row.SetIntValue(columns::count, 4); },
        [&] { m_row.SetIntCell(columns::count, 4, 1, 99, true, true, {}); },
        [&] { m_row.SetDoubleValue(columns::mass, 0, false); },
        [&] { m_row.SetDoubleValue(columns::mass, 0, true); },
        [&] { m_row.SetBoolValue(columns::visible, false); },
        [&] { m_row.SetBoolCell(columns::visible, false, false, true, {}); },
        [&] { m_row.SetListIndex(columns::section, 0); },
        [&] { m_row.SetListCell(columns::section, {SimplePropVal(7)}, 0, true, {}); },
        [&] { m_row.SetLinkCell(columns::source, L"drawing", true, L"Open", true, false, true, {}, 2); },
        [&] { m_row.SetLinkCell(columns::source, L"drawing", true, L"Open", true, false, true, {}, 0); },
        [&] { m_row.SetCellColumn(0, L"comment"); },
        [&] { m_row.SetCellCount(1); },
    };
    Listener listener(*m_view);
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        changes[i]();
        EXPECT_EQ(listener.TakeLog(), "!") << i;
        EXPECT_EQ(Take(*m_view), "values(a)") << i;
        changes[i]();
        EXPECT_EQ(listener.TakeLog(), "") << i;
    }
}

TEST_F(ViewCells, ACellThatIsSetAsAnotherKindForgetsTheOneBefore) {
    m_row.SetTextCell(columns::section, L"text", L"text", true, false, {}, nullptr);
    EXPECT_EQ(m_row.GetListIndex(columns::section), -1);
    EXPECT_TRUE(Cell(columns::section).GetList().empty());
    m_row.SetDoubleCell(columns::note, 2, true, true, {}, 0, 0);
    EXPECT_TRUE(m_row.GetCellText(columns::note).IsEmpty());
    EXPECT_EQ(Cell(columns::note).GetPopup(), nullptr);
    m_row.SetLinkCell(columns::mass, L"link", false, {}, true, false, false, {}, 0);
    EXPECT_FALSE(m_row.GetDoubleValue(columns::mass).has_value());
    EXPECT_FALSE(Cell(columns::mass).HasLimits());
    EXPECT_EQ(Shown(m_row), "2 | 3 | link | yes | text | drawing");
}

TEST_F(ViewCells, AListThatIsAnotherOneInTheSamePlaceIsNoticed) {
    std::list<SimplePropVal> list{SimplePropVal(1.5), SimplePropVal(2.5)};
    const auto show = [&] {
        m_row.SetListCell(columns::section, list, 1, true, {});
        return platform::ToUtf8(Cell(columns::section).GetShownText().Str());
    };
    EXPECT_EQ(show(), "2.5");
    list.back() = SimplePropVal(3.5);
    m_view->BeginUpdate();
    m_view->EndUpdate();
    EXPECT_EQ(show(), "3.5");
    list.pop_back();
    EXPECT_EQ(show(), "") << "the place is behind the end of the list";
    list.clear();
    EXPECT_EQ(show(), "");
    EXPECT_TRUE(Cell(columns::section).GetList().empty());
}

TEST_F(ViewCells, AColumnHasOneCellWhereverItMoves) {
    const auto order = [&] {
        std::wstring text;
        for (std::size_t i = 0; i < m_row.GetCellCount(); ++i)
            text += m_row.GetColumnOf(m_row.GetCell(i)).Str() + L' ';
        return text;
    };
    m_row.SetCellCount(3);
    EXPECT_EQ(order(), L"note count mass ");
    const wchar_t* const moved[] = {L"count", L"mass", L"note"};
    for (std::size_t i = 0; i < 3; ++i)
        m_row.SetCellColumn(i, moved[i]);
    EXPECT_EQ(order(), L"count mass note ");
    m_row.SetCellColumn(0, L"note");
    EXPECT_EQ(order(), L"note mass  ");
    m_row.InitIntEditor(columns::count, 5, true, 0, 0, true, {});
    m_row.InitIntEditor(columns::visible, 6, true, 0, 0, true, {});
    EXPECT_EQ(order(), L"note mass count visible ");
    EXPECT_EQ(m_row.GetIntValue(columns::count), 5);
    m_row.SetCellColumn(9, L"beyond");
    EXPECT_EQ(m_row.GetCellCount(), 4U);
}

TEST_F(ViewCells, RowsOfOneShapeShareWhatTheyHaveInCommon) {
    constexpr std::size_t rows = 100;
    std::vector<TreeRowPtr> held;
    for (std::size_t i = 0; i < rows; ++i)
        held.push_back(m_view->CreateRow());
    const std::size_t before = host_tests::GetAllocationCount();
    for (const TreeRowPtr& row : held) {
        auto& made = static_cast<platform::TreeTableRow&>(*row);
        InitCells(made);
        made.SetIntCell(columns::count, 3, 1, 100, true, true, {});
        made.SetDoubleCell(columns::mass, 0.25, true, true, columns::icon, -1, 5);
        made.SetListCell(columns::section, c_sections, 1, true, {});
        made.SetCellCount(6);
    }
    // The cells of a row are one allocation, and the tip one each; the rest is the tables'.
    EXPECT_LE(host_tests::GetAllocationCount() - before, 3 * rows + 60);
    const auto& last = static_cast<platform::TreeTableRow&>(*held.back());
    EXPECT_EQ(&last.FindCell(L"section")->GetList(),
              &static_cast<platform::TreeTableRow&>(*held.front()).FindCell(L"section")->GetList());
}

} // namespace

// Cells that others derive from show what these say.
#include "cells/PlainCells.h"
#include "cells/TypedGroupCells.h"
#include "platform/view/MemoryMenu.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

namespace {

struct OwnCell : productTree::StringCellImpl {
    using StringCellImpl::StringCellImpl;
    SharedText GetSourceIcon() override { return L"OWN"; }
    MenuPtr GetPopupMenu() override { return menu; }

    MenuPtr menu = new platform::MemoryMenu;
};

struct SwitchingGroup : productTree::StringGroupCellImpl {
    using StringGroupCellImpl::StringGroupCellImpl;
    void Update() override {
        SetGroupMode(mode);
        StringGroupCellImpl::Update();
    }

    productTree::GroupMode mode = productTree::GroupMode::AllValues;
};

TEST(CellBases, LetDerivedCellsHaveTheirIconMenuAndMode) {
    const Panel panel(support::Product()
                          .Root(L"r")
                          .NoSectionRows()
                          .Columns({L"comment"})
                          .Object("a", L"n", L"1")
                          .Value(L"comment", SimplePropVal(SharedText(L"x")))
                          .Uses()
                          .Object("b", L"n", L"1")
                          .Value(L"comment", SimplePropVal(SharedText(L"y")))
                          .Uses());
    const productTree::ColumnInfo column(L"comment", L"Comment", 60);
    platform::TreeTableRow& groupRow = panel.View().GetRoot()->GetChildRow(0);
    platform::TreeTableRow& row = groupRow.GetChildRow(0);
    OwnCell cell(panel.data.get(), &row, column, support::Key("a#1"));
    cell.menu->AddEntry({L"Choose", {MenuAction::c_command, 7}, false});
    cell.menu->SetChecked(7, true);
    cell.Update();
    const platform::TreeCell& shown = *row.FindCell(L"comment");
    EXPECT_EQ(row.GetIconOf(shown).Str(), L"OWN");
    ASSERT_EQ(shown.GetPopup()->GetEntryCount(), 1u);
    EXPECT_EQ(shown.GetPopup()->GetEntry(0), (MenuEntry{L"Choose", {MenuAction::c_command, 7}, true}));

    SwitchingGroup group(panel.data.get(), &groupRow, column, productTree::GroupMode::NoValue, support::Key("a"));
    group.Update();
    EXPECT_EQ(groupRow.FindCell(L"comment")->GetShownText().Str(), L"x;y");
    group.mode = productTree::GroupMode::CommonValue;
    group.Update();
    EXPECT_EQ(groupRow.FindCell(L"comment")->GetShownText().Str(), L"");
}

} // namespace

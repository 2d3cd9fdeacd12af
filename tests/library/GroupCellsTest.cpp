// What the cells of a group row show of their members, and how they hand an edit on to them.

#include "host/ProductProperties.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>

namespace {

using platform::CellInput;
using platform::CellKind;
using platform::ListIndex;
using platform::ProductModel;
using platform::PropertyRecord;
using platform::TreeCell;
using platform::TreeTableRow;
using support::Key;
using support::Product;

enum Type : unsigned { Integer, Double, Text, Boolean };

struct Column {
    std::wstring id;
    Type type = Text;
    std::vector<SimplePropVal> list = {};
    double coefficient = 0;
};

// Like objects with a use each, in one group, each with one of the values.
Product GroupOf(const Column& column, const std::vector<SimplePropVal>& values) {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({column.id});
    if (column.id.starts_with(L"user.")) {
        PropertyRecord record;
        record.number = std::stoul(column.id.substr(5));
        record.type = column.type;
        record.list = column.list;
        record.unitCoefficient = column.coefficient;
        product.Property(record);
    }
    char key = 'a';
    for (const SimplePropVal& value : values) {
        product.Object(std::string(1, key++), L"n", L"1");
        if (!value.IsEmpty())
            product.Value(column.id, value);
        product.Uses();
    }
    return product;
}

TreeTableRow& Group(const Panel& panel) { return panel.View().GetRoot()->GetChildRow(0); }

// What is read, and what an editor starts from where that is something else.
std::string Shown(const Panel& panel, const std::wstring& columnId) {
    const TreeCell* const cell = Group(panel).FindCell(columnId);
    if (!cell)
        return "no cell";
    std::wstring text = cell->GetShownText().Str();
    if (cell->GetKind() == CellKind::Text && !(cell->GetText() == cell->GetShown()))
        text += L" from '" + cell->GetText().Str() + L"'";
    return {text.begin(), text.end()};
}

struct MixCase {
    const char* what;
    Column column;
    std::vector<SimplePropVal> values;
    std::string shown;
};

SimplePropVal T(const wchar_t* text) { return SimplePropVal(text); }

const SimplePropVal c_none;

TEST(GroupCells, MixWhatTheirMembersShow) {
    const Column list{L"comment"};
    const Column common{L"author"};
    const Column integers{L"user.1001", Integer};
    const Column doubles{.id = L"user.1001", .type = Double, .coefficient = 1000};
    const Column booleans{L"user.1001", Boolean};
    const Column choice{L"user.1001", Text, {T(L"x"), T(L"y")}};
    const MixCase cases[] = {
        {"one text, listed", list, {T(L"a"), T(L"a")}, "a from ''"},
        {"numbers in their order", list, {T(L"10"), T(L"9"), T(L"9a")}, "9;9a;10 from ''"},
        {"empty texts are not listed", list, {T(L"b"), c_none, T(L"a")}, "a;b from ''"},
        {"a number and a word", list, {T(L"abc"), T(L"1")}, "1;abc from ''"},
        {"one number written in two ways", list, {T(L"2.50"), T(L"2.5")}, "2.50 from ''"},
        {"equal numbers with other rests", list, {T(L"1e2"), T(L"100")}, "100;1e2 from ''"},
        {"nothing at all", list, {c_none, c_none}, ""},
        {"one common text", common, {T(L"a"), T(L"a")}, "a"},
        {"different texts", common, {T(L"a"), T(L"b")}, ""},
        {"a text and none", common, {T(L"a"), c_none}, ""},
        {"integers", integers, {SimplePropVal(5), SimplePropVal(5)}, "5"},
        {"different integers", integers, {SimplePropVal(5), SimplePropVal(6)}, ""},
        {"scaled doubles", doubles, {SimplePropVal(0.5), SimplePropVal(0.5)}, "500"},
        {"truth values", booleans, {SimplePropVal(true), SimplePropVal(true)}, "yes"},
        {"different truth values", booleans, {SimplePropVal(true), SimplePropVal(false)}, ""},
        {"choices", choice, {T(L"y"), T(L"y")}, "y"},
        {"different choices", choice, {T(L"x"), T(L"y")}, ""},
    };
    for (const MixCase& c : cases)
        EXPECT_EQ(Shown(Panel(GroupOf(c.column, c.values)), c.column.id), c.shown) << c.what;
}

struct EditCase {
    const char* what;
    Column column;
    std::vector<SimplePropVal> before;
    CellInput input;
    std::vector<SimplePropVal> after;
};

TEST(GroupCells, HandAnEditOnToAllMembersInOneStep) {
    const Column list{L"comment"};
    const Column choice{L"user.1001", Text, {T(L"x"), T(L"y")}};
    const EditCase cases[] = {
        {"a text", list, {T(L"a"), T(L"b")}, SharedText(L"c"), {T(L"c"), T(L"c")}},
        {"an integer",
         {.id = L"user.1001", .type = Integer, .coefficient = 10},
         {SimplePropVal(1), c_none},
         30,
         {SimplePropVal(3), SimplePropVal(3)}},
        {"a double",
         {.id = L"user.1001", .type = Double, .coefficient = 1000},
         {SimplePropVal(0.5), SimplePropVal(1.0)},
         250.0,
         {SimplePropVal(0.25), SimplePropVal(0.25)}},
        {"a truth value",
         {L"user.1001", Boolean},
         {SimplePropVal(true), SimplePropVal(false)},
         true,
         {SimplePropVal(true), SimplePropVal(true)}},
        {"a choice", choice, {T(L"x"), T(L"y")}, ListIndex{1}, {T(L"y"), T(L"y")}},
        {"no integer at all",
         {L"user.1001", Integer},
         {SimplePropVal(1), SimplePropVal(1)},
         std::monostate(),
         {SimplePropVal(1), SimplePropVal(1)}},
    };
    for (const EditCase& c : cases) {
        SCOPED_TRACE(c.what);
        const Panel panel(GroupOf(c.column, c.before));
        const auto stored = [&] {
            std::vector<SimplePropVal> values;
            for (const char* key : {"a", "b"})
                values.push_back(panel.data->GetValue({Key(key), {}, c.column.id, {}}).GetSimpleValue());
            return values;
        };
        panel.View().EditCellByUser(Group(panel), c.column.id, c.input);
        EXPECT_EQ(stored(), c.after);
        if (c.after == c.before) {
            EXPECT_FALSE(panel.data->CanUndo());
            continue;
        }
        panel.data->Undo();
        EXPECT_FALSE(panel.data->CanUndo());
        EXPECT_EQ(stored(), c.before);
    }
}

TEST(GroupCells, WhatOnlySomeMembersTakeChangesThose) {
    const Panel panel(GroupOf({L"comment"}, {T(L"a"), T(L"b")}));
    panel.data->Change(
        [](ProductModel& model) { model.objects[0].readOnlyProperties = {ProductProperties::GetPropId(L"comment")}; });
    panel.Tree().Synchronize();
    EXPECT_TRUE(Group(panel).FindCell(L"comment")->IsEditable());
    panel.View().EditCellByUser(Group(panel), L"comment", SharedText(L"c"));
    EXPECT_EQ(Shown(panel, L"comment"), "a;c from ''");
    panel.View().EditCellByUser(Group(panel).GetChildRow(0), L"comment", SharedText(L"x"));
    EXPECT_EQ(Shown(panel, L"comment"), "a;c from ''") << "a member that is read-only";
}

TEST(GroupCells, KindsOfObjectsAreShownAndNotTyped) {
    const Panel panel(GroupOf({L"featureType"}, {T(L"detail"), T(L"detail")}));
    EXPECT_FALSE(Group(panel).FindCell(L"featureType")->IsEditable());
    EXPECT_NE(Shown(panel, L"featureType"), "");
    EXPECT_FALSE(panel.View().EditCellByUser(Group(panel), L"featureType", SharedText(L"assembly")));
}

TEST(GroupCells, TheSourceIconTellsWhenMembersDifferAndTiesAllOfThem) {
    const SharedText comment = L"comment";
    const Panel panel(Product()
                          .Root(L"r")
                          .NoSectionRows()
                          .Columns({L"comment"})
                          .Object("a", L"n")
                          .Value(L"comment", T(L"source"))
                          .Designation(L"1")
                          .Uses(2));
    EXPECT_EQ(Group(panel).GetCellSourceIcon(comment).Str(), L"PRODUCTTREE_VALUE_BY_SOURCE");
    panel.View().ClickSourceIconByUser(Group(panel).GetChildRow(1), L"comment");
    EXPECT_EQ(Group(panel).GetCellSourceIcon(comment).Str(), L"PRODUCTTREE_BY_SRC_MIXED");
    panel.View().EditCellByUser(Group(panel).GetChildRow(1), L"comment", SharedText(L"own"));
    EXPECT_EQ(Shown(panel, L"comment"), "own;source from ''");
    panel.View().ClickSourceIconByUser(Group(panel), L"comment");
    EXPECT_EQ(Group(panel).GetCellSourceIcon(comment).Str(), L"PRODUCTTREE_VALUE_BY_SOURCE");
    EXPECT_EQ(Shown(panel, L"comment"), "source from ''");
}

TEST(GroupCells, AGroupAndItsMembersSelectedTogetherAreWrittenOnce) {
    const Panel panel(GroupOf({L"comment"}, {T(L"a"), T(L"b"), T(L"c")}));
    TreeTableRow& group = Group(panel);
    panel.View().SelectByUser({&group, &group.GetChildRow(0), &group.GetChildRow(2)}, &group);
    panel.View().EditHeadByUser(L"comment", SharedText(L"d"));
    EXPECT_EQ(Shown(panel, L"comment"), "d from ''");
    panel.data->Undo();
    EXPECT_FALSE(panel.data->CanUndo());
}

} // namespace

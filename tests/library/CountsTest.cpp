// Counts of objects and groups as the panel shows and takes them, in and out of embodiment mode.

#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <rapidcheck/gtest.h>
#include <set>

namespace {

using platform::CellInput;
using platform::CellKind;
using platform::HostFrame;
using platform::OccurrenceRecord;
using platform::ProductModel;
using platform::TreeCell;
using platform::TreeTableRow;
using support::Key;
using support::Product;
using support::RecordingProductData;

std::string ToBytes(const std::wstring& text) { return {text.begin(), text.end()}; }

// A box as [x], [ ] or [?], a number as it is; '!' where it can't be edited, '*' where it can be
// worked out again.
std::string ShownCount(const TreeTableRow& row, const std::wstring& columnId) {
    const TreeCell* const cell = row.FindCell(columnId);
    if (!cell)
        return "no cell";
    std::string text = ToBytes(cell->GetShownText().Str());
    if (cell->GetKind() == CellKind::Bool)
        text = !cell->HasValue() ? "[?]" : cell->GetBool() ? "[x]" : "[ ]";
    return text + (cell->IsEditable() ? "" : "!") + (cell->IsRecalculable() ? "*" : "");
}

// The counts of a row and, in brackets, of those below it.
std::string DumpCounts(const TreeTableRow& row, const std::wstring& columnId) {
    std::string text = ToBytes(row.GetShownName().Str()) + ":" + ShownCount(row, columnId);
    for (std::size_t i = 0; i < row.GetChildCount(); ++i)
        text += (i == 0 ? " [" : " ") + DumpCounts(row.GetChildRow(i), columnId) +
                (i + 1 == row.GetChildCount() ? "]" : "");
    return text;
}

std::string DumpAll(const platform::TreeTableView& view, const std::wstring& columnId) {
    std::string text;
    const TreeTableRow& root = *view.GetRoot();
    for (std::size_t i = 0; i < root.GetChildCount(); ++i)
        text += (i == 0 ? "" : ", ") + DumpCounts(root.GetChildRow(i), columnId);
    return text;
}

// A group, a part of its own, one that is not counted into the product, and the same as marks.
Product OfAllKinds(bool embodimentMode) {
    return std::move(Product()
                         .Root(L"r")
                         .NoSectionRows()
                         .Columns({L"count"})
                         .Embodiment("e", L"01")
                         .Embodiment("f", L"02")
                         .EmbodimentMode(embodimentMode)
                         .Object("a", L"a", L"1")
                         .Use("a1")
                         .Use("a2")
                         .Use("a3")
                         .In({"f"})
                         .Count("f", L"2.50")
                         .Object("b", L"b", L"2")
                         .Use("b1")
                         .In({"e"})
                         .Object("c", L"c", L"3")
                         .AggrIntoProduct(false)
                         .Use("c1")
                         .Object("d", L"d", L"4")
                         .CountMark()
                         .Use("d1")
                         .CountMark()
                         .Use("d2")
                         .CountMark()
                         .In({"e"})
                         .Object("x", L"x", L"5")
                         .CountMark()
                         .Use("x1")
                         .CountMark()
                         .Count("e", L"0,0")
                         .Count("f", L"0,5"));
}

TEST(Counts, AreNumbersMarksOrNothing) {
    const Panel plain(OfAllKinds(false));
    EXPECT_EQ(DumpAll(plain.View(), L"count"), "a (x3):4.5 [a:1 a:1 a:2.50*], b:1, c:!, d (x2):! [d:! d:!], x:!");
    EXPECT_FALSE(plain.View().GetRoot()->FindCell(L"count")->IsEditable());
    const Panel panel(OfAllKinds(true));
    EXPECT_EQ(DumpAll(panel.View(), L"count|e"), "a (x3):2 [a:1 a:1 a:], b:1, c:!, d (x2):[x] [d:[x] d:[x]], x:[ ]");
    EXPECT_EQ(DumpAll(panel.View(), L"count|f"),
              "a (x3):4.5 [a:1 a:1 a:2.50*], b:, c:!, d (x2):[?] [d:[x] d:[ ]], x:[x]");
    const Panel locked(OfAllKinds(true).ReadOnly());
    EXPECT_EQ(DumpAll(locked.View(), L"count|f"),
              "a (x3):4.5! [a:1! a:1! a:2.50!], b:!, c:!, d (x2):[?]! [d:[x]! d:[ ]!], x:[x]!");
}

TEST(Counts, TheModeTakesEffectWithoutNewRows) {
    Panel panel(OfAllKinds(false));
    panel.data->SetEmbodimentMode(true);
    panel.Tree().Refresh();
    EXPECT_EQ(DumpAll(panel.View(), L"count"),
              "a (x3):4.5 [a:1 a:1 a:2.50*], b:1, c:!, d (x2):[x] [d:[x] d:[x]], x:[ ]");
}

struct EditCase {
    const char* what;
    std::vector<std::size_t> row;
    std::wstring column;
    CellInput input;
    // What the row shows afterwards, and whether rows are built anew for that.
    std::string after;
    bool isRebuilt;
    // Values are written at all.
    bool isWritten = true;
};

TreeTableRow& RowAt(const platform::TreeTableView& view, const std::vector<std::size_t>& path) {
    TreeTableRow* row = view.GetRoot();
    for (const std::size_t index : path)
        row = &row->GetChildRow(index);
    return *row;
}

bool Has(const std::vector<std::string>& calls, const char* call) {
    return std::ranges::find(calls, call) != calls.end();
}

TEST(Counts, AnEditIsOneStepAndBuildsRowsOnlyWhereACountComesOrGoes) {
    const std::wstring e = L"count|e";
    const std::wstring f = L"count|f";
    const EditCase cases[] = {
        {"another number", {0, 2}, f, SharedText(L"3"), "a:3*", false},
        {"a number that is worked out taken away", {1}, e, SharedText(), "b:1", false, false},
        {"a number where there is none", {1}, f, SharedText(L"2"), "b:2*", true},
        {"a number with a unit", {1}, e, SharedText(L"0.5 m"), "b:0.5 m*", false},
        {"what follows from the product", {0, 2}, f, SharedText(L"1"), "a:1", false},
        {"the same number", {0, 2}, f, SharedText(L"2.50"), "a:2.50*", false, false},
        {"a text that is refused", {1}, e, SharedText(std::wstring(10'001, L'1')), "b:1", false, false},
        {"a mark set", {3, 1}, f, true, "d:[x]", true},
        {"a mark taken away", {4}, f, false, "x:[ ]", true},
        {"the number of a group", {0}, e, SharedText(L"7"), "a (x3):7* [a:1 a:1 a:]", false},
        {"no number", {1}, e, SharedText(L"abc"), "b:1", false, false},
        {"less than nothing", {1}, e, SharedText(L"-3"), "b:1", false, false},
        {"the number that a group has", {0}, e, SharedText(L"2"), "a (x3):2 [a:1 a:1 a:]", false, false},
        {"the mark of a group", {3}, f, true, "d (x2):[x] [d:[x] d:[x]]", false},
        {"no mark for a group", {3}, e, false, "d (x2):[ ] [d:[ ] d:[ ]]", false},
    };
    for (const EditCase& c : cases) {
        SCOPED_TRACE(c.what);
        auto data = std::make_shared<RecordingProductData>(OfAllKinds(true));
        const HostFrame frame(data);
        const std::string before = DumpAll(frame.GetView(), c.column);
        data->TakeCalls();
        frame.GetView().EditCellByUser(RowAt(frame.GetView(), c.row), c.column, c.input);
        EXPECT_EQ(Has(data->TakeCalls(), "BeginRebuild"), c.isRebuilt);
        EXPECT_EQ(DumpCounts(RowAt(frame.GetView(), c.row), c.column), c.after);
        EXPECT_EQ(data->Product().CanUndo(), c.isWritten);
        data->Product().Undo();
        EXPECT_FALSE(data->Product().CanUndo()) << "one step";
        frame.TellDocumentChanged(false);
        EXPECT_EQ(DumpAll(frame.GetView(), c.column), before);
    }
}

TEST(Counts, WhatTheProductRefusesComesBack) {
    const struct {
        std::vector<std::size_t> row;
        CellInput input;
    } cases[] = {{{0}, SharedText(L"9")}, {{0, 2}, SharedText(L"9")}, {{3}, true}, {{3, 1}, true}, {{4}, false}};
    for (const auto& c : cases) {
        auto data = std::make_shared<RecordingProductData>(OfAllKinds(true));
        const HostFrame frame(data);
        const std::string before = DumpAll(frame.GetView(), L"count|f");
        data->RefuseNext();
        frame.GetView().EditCellByUser(RowAt(frame.GetView(), c.row), L"count|f", c.input);
        // The box of a group that was undetermined shows what was remembered of it.
        if (c.row != std::vector<std::size_t>{3}) {
            EXPECT_EQ(DumpAll(frame.GetView(), L"count|f"), before);
        }
        EXPECT_FALSE(data->Product().CanUndo());
    }
}

TEST(Counts, TheCountOfSeveralEmbodimentsIsThatOfTheRowsBelow) {
    const Panel panel(OfAllKinds(false).ActiveEmbodiment("e"));
    TreeTableRow& group = RowAt(panel.View(), {0});
    EXPECT_EQ(DumpCounts(group, L"count"), "a (x3):4.5 [a:1 a:1 a:2.50*]")
        << "a part that is not in the embodiment worked on counts where it is";
    panel.View().EditCellByUser(group, L"count", SharedText(L"7"));
    EXPECT_EQ(DumpCounts(group, L"count"), "a (x3):7* [a:1 a:1 a:2.50*]");
    EXPECT_EQ(panel.data->GetModel().objects[0].counts, (std::vector<platform::CountRecord>{{Key("e"), L"7"}}))
        << "it is written in the first embodiment";
}

TEST(Counts, AHeadGivesGroupsAndTheirMembersItsCount) {
    const Panel panel(OfAllKinds(false));
    TreeTableRow& group = RowAt(panel.View(), {0});
    panel.View().SelectByUser({&group, &group.GetChildRow(0), &RowAt(panel.View(), {2})}, &group);
    panel.View().EditHeadByUser(L"count", SharedText(L"7"));
    EXPECT_EQ(DumpAll(panel.View(), L"count"), "a (x3):7* [a:7* a:1 a:2.50*], b:1, c:!, d (x2):! [d:! d:!], x:!");
    panel.data->Undo();
    EXPECT_FALSE(panel.data->CanUndo());
}

bool IsIn(const OccurrenceRecord& use, const UniqueMetaObjectKey& embodiment) {
    return use.embodiments.empty() || std::ranges::find(use.embodiments, embodiment) != use.embodiments.end();
}

double TypedOr(const OccurrenceRecord& use, const UniqueMetaObjectKey& embodiment, double natural) {
    for (const platform::CountRecord& count : use.counts) {
        if (count.embodiment == embodiment)
            return SimplePropVal(count.count).to_double();
    }
    return natural;
}

int Any(int end) { return *rc::gen::inRange(0, end); }

const char* const c_embodiments[] = {"e", "f", "g"};

// Like objects by chance, uses in some embodiments or all, some hidden, some typed.
ProductModel AnyProduct() {
    Product product;
    product.Root(L"r", L"AB").EmbodimentMode().Columns({L"count"});
    if (Any(3) == 0)
        product.NoSectionRows();
    const int embodiments = 1 + Any(3);
    for (int i = 0; i < embodiments; ++i)
        product.Embodiment(c_embodiments[i], std::to_wstring(i));
    if (Any(2) == 0)
        product.ActiveEmbodiment("e");
    if (Any(3) == 0)
        product.CurrentEmbodiments({"e"});
    const int objects = Any(8);
    for (int i = 0; i < objects; ++i) {
        const int like = Any(3);
        product
            .Object("o" + std::to_string(i), L"n" + std::to_wstring(like),
                    Any(4) == 0 ? L"" : L"d" + std::to_wstring(like))
            .Section(like == 2 ? 25 : 20);
        if (Any(6) == 0)
            product.Separate();
        if (Any(6) == 0)
            product.AggrIntoProduct(Any(2) == 0);
        const int uses = Any(4);
        for (int j = 0; j < uses; ++j) {
            product.Uses();
            if (Any(2) == 0)
                product.In({c_embodiments[Any(embodiments)]});
            if (Any(6) == 0)
                product.NotShown();
            if (Any(6) == 0)
                product.Phantom();
            if (Any(6) == 0)
                product.HiddenA();
            for (int k = 0; k < embodiments; ++k) {
                if (Any(6) == 0)
                    product.Count(c_embodiments[k], *rc::gen::element<std::wstring>(L"", L"0", L"2", L"2.50", L"0.25"));
            }
        }
    }
    return product.Model();
}

struct Sums {
    double ofLeaves = 0;
    std::size_t leaves = 0;
};

double NumberOf(const TreeTableRow& row, const std::wstring& columnId) {
    const TreeCell* const cell = row.FindCell(columnId);
    return cell ? SimplePropVal(cell->GetShownText()).to_double() : 0;
}

// Checks each group against its members on the way.
Sums SumUp(const TreeTableRow& row, const std::wstring& columnId) {
    if (row.GetChildCount() == 0)
        return {NumberOf(row, columnId), 1};
    Sums sums;
    for (std::size_t i = 0; i < row.GetChildCount(); ++i) {
        const Sums below = SumUp(row.GetChildRow(i), columnId);
        sums.ofLeaves += below.ofLeaves;
        sums.leaves += below.leaves;
    }
    const bool isGroup = row.GetParentRow() && !row.IsSection();
    if (isGroup)
        RC_ASSERT(NumberOf(row, columnId) == sums.ofLeaves);
    if (row.IsSection())
        RC_ASSERT(row.GetShownName().Str().ends_with(L"(x" + std::to_wstring(sums.leaves) + L")"));
    return sums;
}

// What the model's uses with rows count, without a look at the panel.
double SumOfModel(const ProductModel& model, const UniqueMetaObjectKey& embodiment) {
    double sum = 0;
    for (const platform::ObjectRecord& object : model.objects) {
        for (const OccurrenceRecord& use : object.occurrences) {
            const auto isCurrent = [&](const UniqueMetaObjectKey& key) { return IsIn(use, key); };
            const bool isLaidOut =
                model.currentEmbodiments.empty() || std::ranges::any_of(model.currentEmbodiments, isCurrent);
            if (isLaidOut && use.isShown && !use.isPhantom && !use.part.attributes.hiddenA &&
                object.aggrIntoProduct.value_or(true))
                sum += TypedOr(use, embodiment, IsIn(use, embodiment) ? 1 : 0);
        }
    }
    return sum;
}

RC_GTEST_PROP(Counts, GroupsSectionsAndColumnsShowTheSumsOfTheirLeaves, ()) {
    const ProductModel model = AnyProduct();
    const Panel panel(model);
    for (const platform::EmbodimentRecord& embodiment : model.embodiments) {
        const std::wstring columnId = L"count|" + embodiment.key.WString();
        const Sums sums =
            panel.View().GetRoot()->GetChildCount() == 0 ? Sums() : SumUp(*panel.View().GetRoot(), columnId);
        RC_ASSERT(sums.ofLeaves == SumOfModel(model, embodiment.key));
    }
    panel.data->SetEmbodimentMode(false);
    panel.Tree().Synchronize();
    if (panel.View().GetRoot()->GetChildCount() > 0)
        SumUp(*panel.View().GetRoot(), L"count");
}

} // namespace

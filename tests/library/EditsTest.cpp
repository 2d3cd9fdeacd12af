// The road of an edit: from what the user leaves in a cell or a head to the product and back to
// the rows.

#include "control/IfProductTreeCtrl.h"
#include "host/DocumentEvents.h"
#include "platform/services/UserDecisions.h"
#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace {

using platform::CellInput;
using platform::ListIndex;
using platform::PropertyRecord;
using platform::TreeTableRow;
using support::Key;
using support::Product;
using support::RecordingProductData;

enum Type : unsigned { Integer, Double, Text, Boolean };

PropertyRecord Property(unsigned long number, Type type) {
    PropertyRecord record;
    record.number = number;
    record.caption = L"P" + std::to_wstring(number);
    record.type = type;
    return record;
}

PropertyRecord Ranged(PropertyRecord record, double min, double max) {
    record.min = min;
    record.max = max;
    return record;
}

PropertyRecord Scaled(PropertyRecord record, double coefficient) {
    record.unitCoefficient = coefficient;
    return record;
}

PropertyRecord Variable(PropertyRecord record) {
    record.isVariable = true;
    return record;
}

PropertyRecord Listed(PropertyRecord record, std::vector<SimplePropVal> list) {
    record.list = std::move(list);
    return record;
}

// One part with a value in the one column "user.1001".
Product OnePart(const PropertyRecord& property, const SimplePropVal& value) {
    Product product;
    product.Root(L"r").NoSectionRows().Property(property).Columns({L"user.1001"});
    product.Object("a", L"a");
    if (!value.IsEmpty())
        product.Value(L"user.1001", value);
    return product.Uses();
}

const std::wstring c_column = L"user.1001";

SimplePropVal StoredValue(const IfProductTreeData& data) {
    return data.GetValue({Key("a"), {}, c_column, std::nullopt}).GetSimpleValue();
}

std::string Shown(const Panel& panel) {
    const TreeTableRow& row = panel.View().GetRoot()->GetChildRow(0);
    const std::wstring text = GetShownText(row, panel.View().GetHeads().at(2)).Str();
    return {text.begin(), text.end()};
}

TEST(Edits, TheDialogOfTheDocumentCodeKeepsWhatItIsNotTold) {
    VariantMarking words;
    words.SetBase(L"HOUSING LEFT");
    VariantMarking small;
    small.SetBase(L"AB.101");
    small.SetCodeDelim(L' ');
    small.SetCode(L"sb");
    const struct {
        VariantMarking marking;
        std::optional<SharedText> entered;
        const wchar_t* begin;
        const wchar_t* code;
    } cases[] = {{words, std::nullopt, L"", L""},          {words, SharedText(), L"", L""},
                 {words, SharedText(L"AD"), L"", L"AD"},   {small, std::nullopt, L"sb", L"sb"},
                 {small, SharedText(L"sb"), L"sb", L"sb"}, {small, SharedText(), L"sb", L""},
                 {small, SharedText(L"lp"), L"sb", L"lp"}};
    for (const auto& sample : cases) {
        const Panel panel(Product().Object("a").Marking(sample.marking).Uses());
        platform::ScriptedDecisions decisions;
        const platform::UserDecisionsSlot slot(decisions);
        decisions.EnterNext(sample.entered);
        panel.View().EditDocCodeByUser(panel.View().GetRoot()->GetChildRow(0).GetChildRow(0));
        EXPECT_EQ(decisions.GetTextRequests().at(0).present.Str(), sample.begin);
        VariantMarking expected = sample.marking;
        expected.SetCode(sample.code);
        const PropValue stored = panel.data->GetValue({Key("a"), {}, SharedText(L"marking"), std::nullopt});
        VariantMarking marking;
        marking.FromPropertyTree(stored.GetPropertyTree());
        EXPECT_EQ(marking, expected);
        EXPECT_EQ(panel.data->CanUndo(), !(expected == sample.marking));
    }
}

struct EditCase {
    const char* what;
    PropertyRecord property;
    SimplePropVal before;
    CellInput input;
    SimplePropVal after;
    std::string shown;
};

const SimplePropVal c_none;

// The product has the last word on the value; what it does not take leaves no trace.
const EditCase c_edits[] = {
    {"text", Property(1001, Text), SimplePropVal(L"old"), SharedText(L"new"), SimplePropVal(L"new"), "new"},
    {"text unchanged", Property(1001, Text), SimplePropVal(L"old"), SharedText(L"old"), SimplePropVal(L"old"), "old"},
    {"text emptied", Property(1001, Text), SimplePropVal(L"old"), SharedText(), c_none, ""},
    {"text that is refused whole", Property(1001, Text), SimplePropVal(L"old"), SharedText(std::wstring(10'001, L'x')),
     SimplePropVal(L"old"), "old"},
    {"integer", Property(1001, Integer), SimplePropVal(5), 6, SimplePropVal(6), "6"},
    {"integer at the end of its range", Ranged(Property(1001, Integer), 1, 10), SimplePropVal(5), 10, SimplePropVal(10),
     "10"},
    {"integer out of range", Ranged(Property(1001, Integer), 1, 10), SimplePropVal(5), 11, SimplePropVal(5), "5"},
    {"integer out of a range that does not bind", Variable(Ranged(Property(1001, Integer), 1, 10)), SimplePropVal(5),
     11, SimplePropVal(11), "11"},
    {"integer in thousandths", Scaled(Ranged(Property(1001, Integer), 1, 10), 1000), SimplePropVal(5), 6000,
     SimplePropVal(6), "6000"},
    {"integer in thousandths out of its stored range", Scaled(Ranged(Property(1001, Integer), 1, 10), 1000),
     SimplePropVal(5), 11'000, SimplePropVal(5), "5000"},
    {"integer emptied", Property(1001, Integer), SimplePropVal(5), std::monostate(), SimplePropVal(5), "5"},
    {"first integer", Property(1001, Integer), c_none, 7, SimplePropVal(7), "7"},
    {"double", Property(1001, Double), SimplePropVal(0.5), 0.25, SimplePropVal(0.25), "0.25"},
    {"double out of range", Ranged(Property(1001, Double), 0, 1), SimplePropVal(0.5), 1.5, SimplePropVal(0.5), "0.5"},
    {"no number", Property(1001, Double), SimplePropVal(0.5), std::numeric_limits<double>::quiet_NaN(),
     SimplePropVal(0.5), "0.5"},
    {"double in millimetres", Scaled(Ranged(Property(1001, Double), 0, 1), 1000), SimplePropVal(0.5), 250.0,
     SimplePropVal(0.25), "250"},
    {"double emptied", Property(1001, Double), SimplePropVal(0.5), std::monostate(), c_none, ""},
    {"double emptied where zero is out of range", Ranged(Property(1001, Double), 1, 2), SimplePropVal(1.5),
     std::monostate(), SimplePropVal(1.5), "1.5"},
    {"truth value", Property(1001, Boolean), SimplePropVal(true), false, SimplePropVal(false), "no"},
    {"truth value taken away", Property(1001, Boolean), SimplePropVal(true), std::monostate(), c_none, ""},
    {"list", Listed(Property(1001, Text), {SimplePropVal(L"x"), SimplePropVal(L"y")}), SimplePropVal(L"x"),
     ListIndex{1}, SimplePropVal(L"y"), "y"},
    {"list of scaled numbers", Scaled(Listed(Property(1001, Double), {SimplePropVal(0.5), SimplePropVal(1.5)}), 10),
     SimplePropVal(0.5), ListIndex{1}, SimplePropVal(1.5), "15"},
    {"place outside of the list", Listed(Property(1001, Text), {SimplePropVal(L"x"), SimplePropVal(L"y")}),
     SimplePropVal(L"x"), ListIndex{2}, SimplePropVal(L"x"), "x"},
};

TEST(CellEdits, AValueIsTakenOrTheOldOneComesBack) {
    for (const EditCase& c : c_edits) {
        SCOPED_TRACE(c.what);
        const Panel panel(OnePart(c.property, c.before));
        const std::uint64_t stamp = panel.data->GetChangeStamp();
        TreeTableRow& row = panel.View().GetRoot()->GetChildRow(0);
        panel.View().EditCellByUser(row, c_column, c.input);
        EXPECT_EQ(StoredValue(*panel.data), c.after);
        EXPECT_EQ(Shown(panel), c.shown);
        EXPECT_EQ(panel.data->GetChangeStamp() != stamp, !(c.after == c.before))
            << "an edit that changes nothing writes nothing";
        EXPECT_EQ(panel.data->CanUndo(), !(c.after == c.before));
    }
}

TEST(CellEdits, AProductThatRefusesTheCommitGivesTheOldValueBack) {
    for (const EditCase& c : c_edits) {
        SCOPED_TRACE(c.what);
        auto data = std::make_shared<RecordingProductData>(OnePart(c.property, c.before));
        const platform::HostFrame frame(data);
        const std::string before = support::DumpView(frame.GetView());
        data->RefuseNext();
        TreeTableRow& row = frame.GetView().GetRoot()->GetChildRow(0);
        const platform::ColumnHead& head = frame.GetView().GetHeads().at(2);
        const std::wstring shown = GetShownText(row, head).Str();
        frame.GetView().EditCellByUser(row, c_column, c.input);
        EXPECT_EQ(StoredValue(*data), c.before);
        EXPECT_EQ(GetShownText(row, head).Str(), shown);
    }
}

TEST(CellEdits, WhatIsReadOnlyIsNotWritten) {
    PropertyRecord fixed = Property(1001, Text);
    fixed.isReadOnly = true;
    for (const Product& product :
         {OnePart(fixed, SimplePropVal(L"old")), OnePart(Property(1001, Text), SimplePropVal(L"old")).ReadOnly()}) {
        const Panel panel(product);
        TreeTableRow& row = panel.View().GetRoot()->GetChildRow(0);
        EXPECT_FALSE(row.FindCell(c_column)->IsEditable());
        panel.View().EditCellByUser(row, c_column, SharedText(L"new"));
        EXPECT_EQ(StoredValue(*panel.data), SimplePropVal(L"old"));
    }
}

// Three parts in the order of their designations, each in a row of its own.
Product ThreeParts() {
    Product product;
    product.Root(L"r").NoSectionRows().Property(Property(1001, Text)).Columns({L"user.1001"});
    for (const char* key : {"a", "b", "c"}) {
        const std::wstring name(key, key + 1);
        product.Object(key, name, name + L"1").Uses();
    }
    return product;
}

TEST(RowEdits, ARenamedPartMovesToItsPlaceAndStaysSelected) {
    const Panel panel(ThreeParts());
    TreeTableRow& root = *panel.View().GetRoot();
    panel.View().SelectByUser({&root.GetChildRow(0)}, &root.GetChildRow(0));
    VariantMarking marking;
    marking.SetBase(L"z9");
    panel.View().EditMarkingByUser(root.GetChildRow(0), {L"z9", {}, {}, {}, {}, {}, {}});
    EXPECT_EQ(panel.Dump({.designations = true, .selection = true}), "r [b {b1} | c {c1} | >>a {z9}]");
    EXPECT_EQ(panel.data->GetValue({Key("a"), {}, L"marking", std::nullopt}), marking.GetPropValue());

    panel.View().EditNameByUser(root.GetChildRow(2), L"renamed");
    EXPECT_EQ(panel.Dump({.selection = true}), "r [b | c | >>renamed]");
}

TEST(RowEdits, NamesAndDesignationsThatAreNotTakenComeBack) {
    const std::wstring tooLong(10'001, L'x');
    const Panel panel(ThreeParts());
    TreeTableRow& row = panel.View().GetRoot()->GetChildRow(0);
    panel.View().EditNameByUser(row, tooLong);
    EXPECT_EQ(row.GetNameText().Str(), L"a");
    panel.View().EditMarkingByUser(row, {tooLong, {}, {}, {}, {}, {}, {}});
    EXPECT_EQ(panel.Dump({.designations = true}), "r [a {a1} | b {b1} | c {c1}]");
    EXPECT_EQ(row.GetMarking().GetBase().Str(), L"a1");
    EXPECT_FALSE(panel.data->CanUndo());

    const Panel locked(Product().Root(L"r").NoSectionRows().Object("a", {}, L"a1").LockedMarkingParts({1}).Uses());
    locked.View().EditMarkingByUser(locked.View().GetRoot()->GetChildRow(0), {L"b1", {}, {}, {}, {}, {}, {}});
    EXPECT_EQ(locked.Dump({.designations = true}), "r [ {a1}]");
}

TEST(RowEdits, AGroupRowRenamesAllItsMembersInOneStep) {
    const Panel panel(
        Product().Root(L"r").NoSectionRows().Object("a", L"screw", L"1").Uses().Object("b", L"screw", L"1").Uses(2));
    ASSERT_EQ(panel.Dump(), "r [screw (x3) [screw | screw | screw]]");
    TreeTableRow& group = panel.View().GetRoot()->GetChildRow(0);
    panel.View().EditNameByUser(group, L"bolt");
    EXPECT_EQ(panel.Dump(), "r [bolt (x3) [bolt | bolt | bolt]]");
    panel.data->Undo();
    EXPECT_FALSE(panel.data->CanUndo());
    panel.frame.TellDocumentChanged(true);
    EXPECT_EQ(panel.Dump(), "r [screw (x3) [screw | screw | screw]]");
}

TEST(RowEdits, TheSourceIconTiesAndUntiesAValue) {
    const Panel panel(OnePart(Property(1001, Text), SimplePropVal(L"of the part")));
    TreeTableRow& row = panel.View().GetRoot()->GetChildRow(0);
    const SharedText columnId = c_column;
    EXPECT_EQ(row.GetCellSourceIcon(columnId).Str(), L"PRODUCTTREE_VALUE_BY_SOURCE");
    panel.View().ClickSourceIconByUser(row, c_column);
    EXPECT_EQ(row.GetCellSourceIcon(columnId).Str(), L"PRODUCTTREE_VAL_NOT_BY_SRC");
    panel.View().EditCellByUser(row, c_column, SharedText(L"of the use"));
    EXPECT_EQ(Shown(panel), "of the use");
    EXPECT_EQ(StoredValue(*panel.data), SimplePropVal(L"of the part"));
    panel.View().ClickSourceIconByUser(row, c_column);
    EXPECT_EQ(Shown(panel), "of the part");
    EXPECT_EQ(row.GetCellSourceIcon(columnId).Str(), L"PRODUCTTREE_VALUE_BY_SOURCE");
}

std::string Column(const Panel& panel) {
    std::wstring text;
    const TreeTableRow& root = *panel.View().GetRoot();
    for (std::size_t i = 0; i < root.GetChildCount(); ++i)
        text += GetShownText(root.GetChildRow(i), panel.View().GetHeads().at(2)).Str() + L",";
    return {text.begin(), text.end()};
}

void SelectAll(const Panel& panel) {
    TreeTableRow& root = *panel.View().GetRoot();
    std::vector<TreeTableRow*> rows;
    for (std::size_t i = 0; i < root.GetChildCount(); ++i)
        rows.push_back(&root.GetChildRow(i));
    panel.View().SelectByUser(rows, rows.front());
}

struct HeadCase {
    const char* what;
    PropertyRecord property;
    CellInput input;
    std::string column;
};

TEST(HeadEdits, AHeadGivesItsValueToAllSelectedRowsInOneStep) {
    const HeadCase cases[] = {
        {"text", Property(1001, Text), SharedText(L"t"), "t,t,t,"},
        {"integer", Scaled(Property(1001, Integer), 10), 70, "70,70,70,"},
        {"double", Scaled(Property(1001, Double), 1000), 2.5, "2.5,2.5,2.5,"},
        {"truth value", Property(1001, Boolean), true, "yes,yes,yes,"},
        {"list", Listed(Property(1001, Text), {SimplePropVal(L"x"), SimplePropVal(L"y")}), ListIndex{1}, "y,y,y,"},
    };
    for (const HeadCase& c : cases) {
        SCOPED_TRACE(c.what);
        const Panel panel(ThreeParts().Property(c.property));
        SelectAll(panel);
        panel.View().EditHeadByUser(c_column, c.input);
        EXPECT_EQ(Column(panel), c.column);
        panel.data->Undo();
        EXPECT_FALSE(panel.data->CanUndo());
        panel.frame.TellDocumentChanged(false);
        EXPECT_EQ(Column(panel), ",,,");
    }
}

TEST(HeadEdits, WhatARowDoesNotTakeLeavesItAsItWas) {
    const auto parts = [](const PropertyRecord& property) {
        return ThreeParts().Property(property).Object("d", L"d", L"d1").Value(L"user.1001", SimplePropVal(1.5)).Uses();
    };
    const Panel panel(parts(Ranged(Property(1001, Double), 1, 2)));
    SelectAll(panel);
    for (const CellInput& refused : {CellInput(5.0), CellInput()}) {
        panel.View().EditHeadByUser(c_column, refused);
        EXPECT_EQ(Column(panel), ",,,1.5,");
        EXPECT_FALSE(panel.data->CanUndo());
    }
    const Panel free(parts(Property(1001, Double)));
    SelectAll(free);
    free.View().EditHeadByUser(c_column, CellInput());
    EXPECT_EQ(Column(free), ",,,,") << "an emptied number takes the values away";
}

TEST(HeadEdits, AMemberOfASelectedGroupIsLeftToItsGroupRow) {
    const Panel panel(
        Product().Root(L"r").NoSectionRows().Object("a", L"a", L"1").Uses(2).Object("b", L"b", L"2").Uses());
    TreeTableRow& root = *panel.View().GetRoot();
    TreeTableRow& group = root.GetChildRow(0);
    panel.View().SelectByUser({&group, &group.GetChildRow(1), &root.GetChildRow(1)}, &group);
    panel.View().EditHeadByUser(L"name", SharedText(L"c"));
    EXPECT_EQ(panel.Dump({.selection = true}), "r [c (x2) [c | c] | >>c]") << "the last row that took part is selected";
    const Panel member(ThreeParts());
    member.View().EditHeadByUser(L"name", SharedText(L"c"));
    EXPECT_EQ(member.Dump(), "r [a | b | c]") << "nothing is selected";
}

TEST(Control, TheEchoOfAWriteIsDroppedAndDebtsStayAsTheyWere) {
    class Echoing final : public platform::MemoryProduct {
    public:
        using MemoryProduct::MemoryProduct;
        void CommitChanges(ProductInfObjChangesResult& changes) override {
            MemoryProduct::CommitChanges(changes);
            PostEvent(document_events::c_router, document_events::c_changed, document_events::c_structure, 0);
            id->SetNeedSyncronize(true);
        }
        void BeginRebuild() override {
            ++builds;
            MemoryProduct::BeginRebuild();
        }
        void BeginRead() override { ++reads; }
        std::shared_ptr<TreeModelId> id;
        int builds = 0;
        int reads = 0;
    };
    auto data = std::make_shared<Echoing>(ThreeParts());
    const platform::HostFrame frame(data);
    data->id = frame.GetTreeId();
    data->builds = data->reads = 0;
    TreeTableRow& row = frame.GetView().GetRoot()->GetChildRow(0);
    frame.GetView().EditCellByUser(row, c_column, SharedText(L"new"));
    EXPECT_EQ(data->builds, 0);
    EXPECT_EQ(data->reads, 1);
    EXPECT_FALSE(frame.GetTreeId()->IsNeedSyncronize());
    frame.GetView().EditNameByUser(row, L"new name");
    EXPECT_EQ(data->builds, 1);
    EXPECT_EQ(data->reads, 2);
}

TEST(Control, ColumnsThatTheUserMovesHidesAndShowsAreRemembered) {
    const Panel panel(ThreeParts()
                          .Property(Property(1002, Text))
                          .Property(Property(1003, Text))
                          .Columns({L"user.1001", L"user.1002", L"user.1003"}));
    const auto columns = [&] {
        std::wstring ids;
        for (const platform::ColumnHead& head : panel.View().GetHeads())
            ids += head.id + L' ';
        return ids;
    };
    panel.View().MoveColumnByUser(L"user.1003", 2);
    EXPECT_EQ(columns(), L"name marking user.1003 user.1001 user.1002 ");
    EXPECT_EQ(panel.data->GetVisiblePropertyIds(), (std::vector<unsigned long>{1003, 1001, 1002}));
    productTree::IfProductTreeCtrl& control = *panel.View().GetControl();
    control.SetColumnsVisibility({{L"user.1001", 0}});
    EXPECT_EQ(columns(), L"name marking user.1003 user.1002 ");
    control.SetColumnsVisibility({{L"user.1001", 1}, {L"no such column", 1}});
    EXPECT_EQ(panel.data->GetVisiblePropertyIds().size(), 3U);
    EXPECT_EQ(columns().size(), std::size(L"name marking user.1003 user.1002 user.1001 ") - 1);
}

struct Operation {
    const char* what;
    std::function<void(platform::TreeTableView&)> run;
};

// Whatever the host throws at: no flag stays set, and the next build is that of a fresh panel.
TEST(Control, AHostThatThrowsInTheMiddleOfAnyOperationLeavesThePanelAlive) {
    const auto first = [](platform::TreeTableView& view) -> TreeTableRow& { return view.GetRoot()->GetChildRow(0); };
    const auto selectTwo = [](platform::TreeTableView& view) {
        view.SelectByUser({&view.GetRoot()->GetChildRow(0), &view.GetRoot()->GetChildRow(1)}, nullptr);
    };
    const Operation operations[] = {
        {"a cell", [&](auto& view) { view.EditCellByUser(first(view), c_column, SharedText(L"x")); }},
        {"a position", [&](auto& view) { view.EditCellByUser(first(view), L"position", SharedText(L"7")); }},
        {"a count", [&](auto& view) { view.EditCellByUser(first(view), L"count", SharedText(L"7")); }},
        {"a section",
         [&](auto& view) { view.GetControl()->OnCellHypertextActivated(*first(view).GetData(), L"SPCSection"); }},
        {"numbering", [&](auto& view) { view.GetControl()->OnToolbarCommand(7766, 0); }},
        {"a name", [&](auto& view) { view.EditNameByUser(first(view), L"x"); }},
        {"a designation",
         [&](auto& view) {
             view.EditMarkingByUser(first(view), {L"x", {}, {}, {}, {}, {}, {}});
         }},
        {"a source icon", [&](auto& view) { view.ClickSourceIconByUser(first(view), c_column); }},
        {"a link", [&](auto& view) { view.GetControl()->OnCellHypertextActivated(*first(view).GetData(), c_column); }},
        {"a document code", [&](auto& view) { view.GetControl()->OnEditDocCode(*first(view).GetData()); }},
        {"a menu of a cell",
         [&](auto& view) { view.GetControl()->OnItemPopupCommand(*first(view).GetData(), c_column, 1); }},
        {"a head",
         [&](auto& view) {
             selectTwo(view);
             view.EditHeadByUser(c_column, SharedText(L"x"));
         }},
        {"the head of names",
         [&](auto& view) {
             selectTwo(view);
             view.EditHeadByUser(L"name", SharedText(L"x"));
         }},
        {"a click on a head", [&](auto& view) { view.GetControl()->OnHeaderClicked(c_column); }},
        {"a menu of a head", [&](auto& view) { view.GetControl()->OnHeaderPopupCommand(c_column, 1); }},
        {"a mass", [&](auto& view) { view.ClickLinkByUser(first(view), L"mass"); }},
        {"a roughness", [&](auto& view) { view.PopupCommandByUser(first(view), L"specRoughValue", 7761); }},
        {"the head of masses",
         [&](auto& view) {
             selectTwo(view);
             view.ClickHeadByUser(L"mass");
         }},
        {"the head of sections",
         [&](auto& view) {
             selectTwo(view);
             view.ClickHeadByUser(L"SPCSection");
         }},
        {"the head of designations",
         [&](auto& view) {
             selectTwo(view);
             view.EditMarkingHeadByUser({.base = L"x"});
         }},
        {"document codes",
         [&](auto& view) {
             selectTwo(view);
             view.EditDocCodesByUser();
         }},
        {"columns", [&](auto& view) { view.GetControl()->OnColumnsChanged(); }},
        {"visible columns",
         [&](auto& view) {
             view.GetControl()->SetColumnsVisibility({{c_column, 1}});
         }},
    };
    for (const Operation& operation : operations) {
        SCOPED_TRACE(operation.what);
        bool isThrowing = true;
        for (std::size_t n = 1; isThrowing; ++n) {
            ASSERT_LT(n, 10'000U);
            auto data = std::make_shared<RecordingProductData>(
                ThreeParts().Columns({c_column, L"position", L"SPCSection", L"count", L"mass", L"specRoughValue"}));
            data->chooseMaterial = [](const auto&, MipSource) { return true; };
            data->chooseRoughness = [](const auto&, auto&) { return true; };
            platform::ScriptedDecisions decisions;
            const platform::UserDecisionsSlot slot(decisions);
            decisions.ChooseNextSection(platform::SectionDecision{4, false});
            decisions.EnterNext(SharedText(L"E3"));
            data->Product().SetDecisions(&decisions);
            const platform::HostFrame frame(data);
            data->ThrowAt(n);
            isThrowing = false;
            try {
                operation.run(frame.GetView());
            } catch (const support::HostError&) {
                isThrowing = true;
            }
            data->ThrowAt(0);
            ASSERT_FALSE(frame.GetTreeId()->IsNeedSyncronize());
            ASSERT_FALSE(frame.GetTreeId()->IsNeedRefresh());
            data->TakeCalls();
            frame.GetTree().Synchronize();
            const auto calls = data->TakeCalls();
            ASSERT_EQ(std::ranges::count(calls, "BeginRebuild"), 1) << "a flag stayed set, " << n;
            const Panel fresh(data->Product().GetModel());
            const support::DumpOptions options{.designations = true};
            ASSERT_EQ(support::DumpView(frame.GetView(), options), fresh.Dump(options)) << n;
        }
    }
}

} // namespace

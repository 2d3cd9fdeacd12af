// Where objects stand in the specification: sections that are chosen, positions that are typed and
// given by numbering, and what deleting rows does to both.

#include "cells/ProductTreeCellImpl.h"
#include "host/SPCSection.h"
#include "items/ProductTreeItemImpl.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/library/PanelTest.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>

namespace {

using platform::SectionDecision;
using platform::StyleRecord;
using platform::TreeCell;
using platform::TreeTableRow;
using productTree::FindItemOfRow;
using productTree::ProductTreeCellImpl;
using productTree::TreeActionResult;
using support::Key;
using support::Product;

const std::wstring c_section = L"SPCSection";
const std::wstring c_position = L"position";

/// A panel whose user answers from a script.
constexpr int c_numbering = 7766;

struct AskingPanel : Panel {
    explicit AskingPanel(platform::ProductModel model) : Panel(std::move(model)) {
        data->SetDecisions(&decisions);
        frame.SetDecisions(&decisions);
    }
    ~AskingPanel() {
        data->SetDecisions(nullptr);
        frame.SetDecisions(nullptr);
    }

    TreeTableRow& Root() const { return *View().GetRoot(); }
    TreeTableRow& First() const { return Root().GetChildRow(0); }
    SPCSection SectionOf(const char* key) const { return FindSpcSection(data->GetAggregator(), Key(key), nullptr); }
    PropValue PositionOf(const char* key) const { return data->GetValue({Key(key), {}, c_position, std::nullopt}); }
    std::string Positions() const { return Dump({.column = c_position}); }

    platform::ScriptedDecisions decisions;
};

ProductTreeCellImpl& Cell(const TreeTableRow& row, const std::wstring& column) {
    return *FindItemOfRow(row)->FindCell(column);
}

struct Numbers {
    std::initializer_list<std::int32_t> numbers;
    std::wstring name;
};

// Like objects with a use each. Standard parts without designation are alike whatever else their
// sections say.
Product GroupOf(std::initializer_list<Numbers> sections) {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({c_section, c_position});
    char key = 'a';
    for (const Numbers& section : sections) {
        product.Object(std::string(1, key++), L"n");
        product.SectionNumbers(section.numbers, section.name);
        if (section.numbers.size() == 0)
            product.Designation(L"1");
        product.Uses();
    }
    return product;
}

TEST(SectionValues, HoldNumbersAndNameOfTheSection) {
    for (const SPCSection& section :
         {SPCSection{}, SPCSection{{20}, L"Parts"}, SPCSection{{1, 2, 3, 4, 5, 2'000'000'000}, {}}}) {
        SPCSection read{{9, 9, 9, 9, 9, 9}, L"old"};
        const PropValue value = spc_section::ToPropValue(section);
        spc_section::FromPropertyTree(read, PropValueRef(value.GetPropData()).GetPropertyTree());
        EXPECT_EQ(read, section);
        EXPECT_EQ(value.IsEmpty(), section == SPCSection());
    }
}

TEST(SectionCells, ShowTheSectionThatAllMembersOfAGroupShare) {
    const std::string mixed = "The members of the group have different values";
    const struct {
        const char* what;
        Product product;
        std::string shown, tip;
    } cases[] = {
        {"one section", GroupOf({{{25}, L"Standard"}, {{25}, L"Standard"}}), "Standard", ""},
        {"no section", GroupOf({{}, {}}), "", ""},
        {"another number", GroupOf({{{25}, L"Standard"}, {{25, 0, 0, 0, 0, 1}, L"Standard"}}), "", mixed},
        {"another name", GroupOf({{{25}, L"Standard"}, {{25}, L"Bolts"}}), "", mixed},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        AskingPanel panel(c.product);
        ASSERT_EQ(panel.First().GetChildCount(), 2U);
        for (const TreeTableRow* row : {&panel.First(), &panel.First().GetChildRow(0)}) {
            const TreeCell& cell = *row->FindCell(c_section);
            EXPECT_EQ(cell.GetKind(), platform::CellKind::Link);
            EXPECT_TRUE(cell.OpensEditor());
            EXPECT_EQ(cell.GetLinkStyle(), 2);
        }
        const TreeCell& group = *panel.First().FindCell(c_section);
        EXPECT_EQ(platform::ToUtf8(group.GetShownText().Str()), c.shown);
        EXPECT_EQ(platform::ToUtf8(group.GetTip().Str()), c.tip);
        EXPECT_TRUE(panel.First().GetChildRow(0).FindCell(c_section)->GetTip().IsEmpty());
        EXPECT_EQ(Cell(panel.First(), c_section).GetShownPropValue().IsEmpty(), c.shown.empty());

        // The dialog begins with what they share; here nobody chooses anything.
        panel.View().ClickLinkByUser(panel.First(), c_section);
        ASSERT_EQ(panel.decisions.GetSectionRequests().size(), 1U);
        EXPECT_EQ(panel.decisions.GetSectionRequests()[0].present.has_value(), !c.shown.empty());
        EXPECT_FALSE(panel.data->CanUndo());
    }
}

StyleRecord Style(bool isSorted) {
    StyleRecord style;
    style.sortBySections = isSorted;
    style.sections.resize(2);
    style.sections[0].number = 20;
    style.sections[0].name = L"Parts";
    style.sections[1].number = 25;
    style.sections[1].name = L"Standard";
    return style;
}

// Both rows: the object's and that of the group, which is chosen from first.
TEST(SectionCells, WriteWhatTheUserChoosesInOneStep) {
    const int nothing = TreeActionResult::Nothing;
    const int values = TreeActionResult::ValuesChanged;
    const int build = TreeActionResult::Synchronise;
    const struct {
        const char* what;
        std::optional<SectionDecision> decision;
        bool isSorted, isReadOnly, wasLinked;
        int action;
        std::wstring name;
        int section;
        bool isLinked;
    } cases[] = {
        {"cancelled", std::nullopt, true, false, false, nothing, L"n", 20, false},
        {"the same", SectionDecision{0, false}, true, false, false, nothing, L"n", 20, false},
        {"another", SectionDecision{1, false}, true, false, false, build, L"n", 25, false},
        {"no rows of sections", SectionDecision{1, false}, false, false, false, values, L"n", 25, false},
        {"linked", SectionDecision{1, true}, true, false, false, build, L"Steel", 25, true},
        {"only linked", SectionDecision{0, true}, true, false, false, build, L"Steel", 20, true},
        {"unlinked", SectionDecision{0, false}, true, false, true, build, L"n", 20, false},
        {"read-only", SectionDecision{1, true}, true, true, false, nothing, L"n", 20, false},
        {"not offered", SectionDecision{2, true}, true, false, false, nothing, L"n", 20, false},
    };
    for (const auto& c : cases) {
        for (const bool isGroup : {true, false}) {
            SCOPED_TRACE(c.what);
            Product product;
            product.Root(L"r").NoSectionRows().Columns({c_section}).Style(Style(c.isSorted));
            for (const char* key : {"a", "b"}) {
                product.Object(key, L"n", L"1").Section(20, L"Parts");
                product.Material(L"Steel");
                if (c.isReadOnly)
                    product.ReadOnlyValue(c_section);
                if (c.wasLinked)
                    product.NameLinkedToSection();
                product.Uses(2);
            }
            AskingPanel panel(product);
            const platform::ProductModel before = panel.data->GetModel();
            TreeTableRow& row = isGroup ? panel.First() : panel.First().GetChildRow(0);
            panel.decisions.ChooseNextSection(c.decision);
            EXPECT_EQ(Cell(row, c_section).OnHypertextActivated().action, c.action);
            EXPECT_EQ(panel.decisions.GetSectionRequests().back().isNameLinked, c.wasLinked);
            EXPECT_EQ(panel.data->CanUndo(), c.action != nothing);
            for (const auto& object : panel.data->GetModel().objects) {
                const bool isMeant = isGroup || object.key == Key("a");
                EXPECT_EQ(object.name.Str(), isMeant ? c.name : L"n");
                EXPECT_EQ(object.section.numbers[0], isMeant ? c.section : 20);
                EXPECT_EQ(object.isNameLinkedToSection, isMeant ? c.isLinked : c.wasLinked);
            }
            panel.data->Undo();
            EXPECT_FALSE(panel.data->CanUndo());
            EXPECT_EQ(panel.data->GetModel(), before);
        }
    }
}

TEST(SectionCells, ASectionAloneIsNoChoiceAndNothingCanBeTyped) {
    AskingPanel panel(GroupOf({{{25}, L"Standard"}, {{25}, L"Standard"}}));
    const PropValue other = spc_section::ToPropValue({{20}, L"Parts"});
    for (TreeTableRow* row : {&panel.First(), &panel.First().GetChildRow(0)}) {
        EXPECT_FALSE(Cell(*row, c_section).MakeChanges(other, std::nullopt).IsExistsChanges());
        EXPECT_TRUE(Cell(*row, c_section).MakeChanges(other, 0).IsExistsChanges());
        EXPECT_EQ(Cell(*row, c_section).OnValueEdited().action, TreeActionResult::Nothing);
    }
    VariantMarking marking;
    marking.SetBase(L"25");
    for (const PropValue& refused : {spc_section::ToPropValue({{99}, L"Unknown"}), PropValue(SimplePropVal(L"Parts")),
                                     marking.GetPropValue(), PropValue(SimplePropVal(20))})
        EXPECT_FALSE(Cell(panel.First(), c_section).MakeChanges(refused, 0).IsExistsChanges());
}

// A style with blocks of its own and of a section: what can be chosen is what has a row.
TEST(SectionCells, EachSectionThatIsOfferedHasARow) {
    StyleRecord style = Style(true);
    style.sections[0].addBlocks = true;
    style.sections[0].blocks = {{1, L"Loose", true, {25}}, {2, L"Hidden", false, {25}}};
    style.sections.emplace_back().number = 30;
    style.sections.back().name = L"Untuned";
    style.sections.back().isTuned = false;
    style.addBlocks = true;
    style.blocks = {{7, L"Spare", true, {20, 25}}};
    AskingPanel panel(Product().Root(L"r").Columns({c_section}).Style(style).Object("a", L"a").Section(30).Uses());
    std::string rows;
    std::size_t count = 1;
    for (std::size_t i = 0; i < count; ++i) {
        panel.decisions.ChooseNextSection(SectionDecision{i, false});
        ASSERT_TRUE(panel.View().ClickLinkByUser(panel.First().GetChildRow(0), c_section));
        const platform::SectionRequest& request = panel.decisions.GetSectionRequests().back();
        count = request.sections.size();
        if (i > 0) {
            EXPECT_EQ(request.present, i - 1);
        }
        rows += std::string(request.sections[i].depth * 2, ' ') + platform::ToUtf8(request.sections[i].name.Str()) +
                ": " + panel.Dump() + "\n";
    }
    EXPECT_EQ(rows, "Parts: r [Parts (x1) [a]]\n"
                    "  Loose: r [Loose. Parts (x1) [a]]\n"
                    "    Standard: r [Standard. Loose. Parts (x1) [a]]\n"
                    "Standard: r [Standard (x1) [a]]\n"
                    "Spare: r [Spare (x1) [a]]\n"
                    "  Parts: r [Parts. Spare (x1) [a]]\n"
                    "    Loose: r [Loose. Parts. Spare (x1) [a]]\n"
                    "      Standard: r [Standard. Loose. Parts. Spare (x1) [a]]\n"
                    "  Standard: r [Standard. Spare (x1) [a]]\n");
    EXPECT_EQ(panel.SectionOf("a").numbers, (std::array<std::int32_t, 6>{0, 0, 25, 7, 0, 0}));

    panel.Change([](platform::ProductModel& model) { model.style->isAvailable = false; });
    panel.View().ClickLinkByUser(panel.First().GetChildRow(0), c_section);
    EXPECT_EQ(panel.decisions.GetSectionRequests().size(), count) << "there is nothing to choose";
    EXPECT_EQ(panel.decisions.GetMessages().size(), 1U);
}

// Two like objects, of which only the second has two uses, in one group.
Product TwoLike() {
    Product product;
    product.Root(L"r").NoSectionRows().Columns({c_position});
    product.Object("a", L"n", L"1").Value(c_position, SimplePropVal(7)).Uses();
    product.Object("b", L"n", L"1").Value(c_position, SimplePropVal(7)).Uses(2);
    return product;
}

TEST(PositionCells, TakeWholeNumbersFromOneOnOrNothing) {
    const struct {
        const wchar_t* typed;
        int stored;
    } cases[] = {{L"12", 12},    {L"012", 12},
                 {L"1", 1},      {L"2147483647", 2147483647},
                 {L"", 0},       {L"0", 7},
                 {L"00", 7},     {L"-1", 7},
                 {L"+1", 7},     {L"1.5", 7},
                 {L"7a", 7},     {L" 8", 7},
                 {L"8 ", 7},     {L"1e2", 7},
                 {L"\u0663", 7}, {L"2147483648", 7},
                 {L"7", 7},      {L"1234567890123456789012345678901234567890", 7}};
    for (const auto& c : cases) {
        SCOPED_TRACE(platform::ToUtf8(c.typed));
        const int isChanged = c.stored != 7 ? 1 : 0;
        for (const bool isGroup : {true, false}) {
            AskingPanel panel(TwoLike());
            TreeTableRow& row = isGroup ? panel.First() : panel.First().GetChildRow(0);
            row.SetCellText(c_position, SharedText(c.typed), SharedText(c.typed));
            const TreeActionResult result = Cell(row, c_position).OnValueEdited();
            EXPECT_EQ(result.action, isGroup ? isChanged : TreeActionResult::Synchronise);
            EXPECT_EQ(panel.data->CanUndo(), isChanged == 1);
            for (const char* key : {"a", "a#1", "b", "b#2"})
                EXPECT_EQ(panel.PositionOf(key).to_int(), c.stored) << "one number for all";
            if (!isChanged) {
                EXPECT_EQ(row.GetCellText(c_position).Str(), L"7") << "the old one is back";
            }
            panel.Tree().Refresh();
            const std::string shown = c.stored == 0 ? "" : " =" + std::to_string(c.stored);
            EXPECT_EQ(panel.Positions(), "r [n (x3)" + shown + " [n" + shown + " | n" + shown + " | n" + shown + "]]");
            panel.data->Undo();
            EXPECT_EQ(panel.data->GetModel(), TwoLike().Model());
        }
    }
}

TEST(PositionCells, ThatAreReadOnlyTakeNothing) {
    AskingPanel panel(TwoLike().ReadOnly());
    for (TreeTableRow* row : {&panel.First(), &panel.First().GetChildRow(0)}) {
        EXPECT_FALSE(row->FindCell(c_position)->IsEditable());
        EXPECT_FALSE(Cell(*row, c_position).MakeChanges(PropValue(SimplePropVal(3)), std::nullopt).IsExistsChanges());
    }
    const AskingPanel linked(TwoLike().Object("c", {}, L"2").Link(c_position, "a", c_position).Uses());
    const TreeCell& link = *linked.Root().GetChildRow(1).FindCell(c_position);
    EXPECT_EQ(link.GetKind(), platform::CellKind::Link);
    EXPECT_FALSE(link.OpensEditor());
    EXPECT_EQ(link.GetShownText().Str(), L"7");
}

/// As the command of numbering does, from any number on.
unsigned Number(const AskingPanel& panel, unsigned first) {
    ProductInfObjChangesResult changes;
    const unsigned next = FindItemOfRow(panel.Root())->SetPosition(first, changes);
    panel.data->CommitChanges(changes);
    panel.Tree().Synchronize();
    return next;
}

Product Assembly() {
    Product product;
    product.Root(L"r").Columns({c_position});
    const auto part = [&](const char* key, int section, const std::wstring& name) -> Product& {
        return product.Object(key).Section(section).Name(name).Designation(L"D." + name);
    };
    part("drawing", 5, L"Drawing").Value(c_position, SimplePropVal(3)).Uses();
    part("frame", 15, L"Frame").Uses(2);
    part("keeper", 15, L"Keeper").KeepsPosition().Value(c_position, SimplePropVal(50)).Uses();
    part("rail", 15, L"Rail").Count("root", L"3.5 m").Uses();
    part("fixed", 20, L"Fixed").ReadOnlyValue(c_position).Uses();
    part("other", 20, L"Other").UsedIn({2}).Value(c_position, SimplePropVal(9)).Uses();
    part("bolt1", 25, L"Bolt").Uses();
    part("bolt2", 25, L"Bolt").Uses(2);
    part("nut", 25, L"Nut").Uses();
    part("spare1", 25, L"Spare").Separate().Uses();
    part("spare2", 25, L"Spare").Separate().Uses();
    return product;
}

TEST(Numbering, LeavesGapsBehindSectionsAndPassesOverWhatIsKept) {
    AskingPanel panel(Assembly());
    const std::string before = panel.Positions();
    EXPECT_NE(before.find("Other =9"), std::string::npos);
    ASSERT_TRUE(panel.View().RunCommandByUser(c_numbering));
    EXPECT_EQ(panel.Positions(), "r [Documentation (x1) [Drawing =3] | "
                                 "Assembly units (x4) [Frame (x2) =1 [Frame =1 | Frame =1] | Keeper =50 | Rail =3] | "
                                 "Parts (x2) [Fixed | Other] | "
                                 "Standard parts (x6) [Bolt (x3) =6 [Bolt =6 | Bolt =6 | Bolt =6] | Nut =7 | "
                                 "Spare =8 | Spare =9]]");

    const std::uint64_t stamp = panel.data->GetChangeStamp();
    panel.View().RunCommandByUser(c_numbering);
    panel.View().RunCommandByUser(c_numbering + 1);
    EXPECT_EQ(panel.data->GetChangeStamp(), stamp);
    panel.data->Undo();
    EXPECT_FALSE(panel.data->CanUndo()) << "numbering is one step";
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Positions(), before);
}

TEST(Numbering, IsNothingWithoutTheColumnOfPositions) {
    Product product = Assembly();
    product.Columns({c_section});
    AskingPanel panel(product);
    panel.View().RunCommandByUser(c_numbering);
    EXPECT_FALSE(panel.data->CanUndo());
}

Product RandomAssembly() {
    Product product;
    product.Root(L"r").Columns({c_position});
    const int count = *rc::gen::inRange(1, 20);
    for (int i = 0; i < count; ++i) {
        product.Object("o" + std::to_string(i));
        product.Section(*rc::gen::element(5, 15, 20, 25));
        // Few names, so that there are like objects.
        const std::wstring name = *rc::gen::element<std::wstring>(L"a", L"b", L"c", L"d");
        product.Name(name).Designation(name);
        switch (*rc::gen::inRange(0, 6)) {
        case 0:
            product.KeepsPosition();
            break;
        case 1:
            product.ReadOnlyValue(c_position);
            break;
        default:
            break;
        }
        product.Uses(*rc::gen::inRange(1, 4));
    }
    return product;
}

RC_GTEST_PROP(Numbering, GivesEachNumberToOneRowOrToAllMembersOfAGroup, ()) {
    AskingPanel panel(RandomAssembly());
    const unsigned first = *rc::gen::inRange(1U, 100U);
    const unsigned next = Number(panel, first);
    std::map<int, const TreeTableRow*> owners;
    const auto note = [&](const TreeTableRow& row, const TreeTableRow& owner) {
        const std::wstring text = row.GetCellText(c_position).Str();
        if (text.empty())
            return;
        const int number = std::stoi(text);
        RC_ASSERT(number >= static_cast<int>(first) && number < static_cast<int>(next));
        RC_ASSERT(owners.emplace(number, &owner).first->second == &owner);
    };
    int last = 0;
    for (std::size_t i = 0; i < panel.Root().GetChildCount(); ++i) {
        const TreeTableRow& section = panel.Root().GetChildRow(i);
        const std::size_t before = owners.size();
        for (std::size_t j = 0; j < section.GetChildCount(); ++j) {
            const TreeTableRow& row = section.GetChildRow(j);
            note(row, row);
            for (std::size_t k = 0; k < row.GetChildCount(); ++k)
                note(row.GetChildRow(k), row);
        }
        // Numbers rise from section to section, and two stay free between them.
        if (owners.size() > before && last > 0)
            RC_ASSERT(std::next(owners.begin(), static_cast<std::ptrdiff_t>(before))->first > last + 2);
        last = owners.empty() ? 0 : owners.rbegin()->first;
    }
}

TEST(Deletion, AsksFirstAndUndoBringsAllBackWithItsPositions) {
    const struct {
        std::initializer_list<std::size_t> row;
        const wchar_t *title, *question;
        const char* left;
    } cases[] = {
        {{1, 2},
         L"Delete object",
         L"Delete \u201CRail\u201D?",
         "r [Documentation (x1) [Drawing =3] | "
         "Assembly units (x3) [Frame (x2) =1 [Frame =1 | Frame =1] | Keeper =50]]"},
        {{1, 0, 1},
         L"Delete object",
         L"Delete \u201CFrame\u201D?",
         "r [Documentation (x1) [Drawing =3] | "
         "Assembly units (x3) [Frame =1 | Keeper =50 | Rail =3]]"},
        {{1, 0},
         L"Delete object",
         L"Delete the selected objects (2)?",
         "r [Documentation (x1) [Drawing =3] | Assembly units (x2) [Keeper =50 | Rail =3]]"},
        {{1},
         L"Delete objects",
         L"Delete all objects of section \u201CAssembly units\u201D (4)?",
         "r [Documentation (x1) [Drawing =3]]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.left);
        platform::ProductModel model = Assembly().Model();
        model.objects.resize(4);
        AskingPanel panel(model);
        Number(panel, 1);
        const std::string before = panel.Positions();
        const platform::ProductModel numbered = panel.data->GetModel();
        const auto erase = [&](std::size_t button) {
            TreeTableRow* row = &panel.Root();
            for (const std::size_t place : c.row)
                row = &row->GetChildRow(place);
            panel.decisions.AnswerNext(button);
            const bool isDeleted = FindItemOfRow(*row)->Delete();
            panel.Tree().Synchronize();
            return isDeleted;
        };
        EXPECT_FALSE(erase(1));
        EXPECT_EQ(panel.data->GetModel(), numbered);
        EXPECT_TRUE(erase(0));
        EXPECT_EQ(panel.Positions(), c.left);
        const platform::Question& question = panel.decisions.GetQuestions().back();
        EXPECT_EQ(question.title.Str(), c.title);
        EXPECT_EQ(question.text.Str(), c.question);
        EXPECT_EQ(question.buttons, (std::vector<SharedText>{L"Yes", L"Cancel"}));
        panel.data->Undo();
        panel.Tree().Synchronize();
        EXPECT_EQ(panel.Positions(), before);
        EXPECT_EQ(panel.data->GetModel(), numbered);
    }
}

} // namespace

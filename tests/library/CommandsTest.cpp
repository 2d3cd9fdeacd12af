// What rows can be told to do: by the tool strips, by the menus, by the boxes beside their names; and the selection,
// which the panel and the document keep equal.

#include "control/IfProductTreeCtrl.h"
#include "host/frame/PopupMenus.h"
#include "platform/services/UserDecisions.h"
#include "platform/values/Utf8.h"
#include "tests/library/PanelTest.h"
#include "tests/support/RecordingProductData.h"

#include <gtest/gtest.h>

using productTree::PanelCommandAddObject;
using productTree::PanelCommandDelete;
using productTree::PanelCommandHighlight;
using productTree::PanelCommandUpdateAll;
using support::HostError;
using support::Key;
using support::Product;
using support::RecordingProductData;

namespace {

// Keeps what it was to show, for the choice that is made after the menu has closed.
class Menus final : public IPopupMenuTracker {
public:
    bool Track(const IContextMenuModel& menu) override {
        m_actions.clear();
        for (const IContextMenuItem* const item : menu.GetItems()) {
            if (item)
                m_actions.push_back(item->GetAction());
        }
        return true;
    }
    std::string TakeCommands() {
        std::string commands;
        for (const MenuAction& action : m_actions)
            commands += std::to_string(action.first) + ' ';
        return commands;
    }
    bool Choose(unsigned command) {
        for (const MenuAction& action : m_actions) {
            if (action.first == command)
                return RunMenuAction(action);
        }
        return false;
    }
    LEventsHandler* GetTarget() const { return m_actions.at(0).target; }

private:
    std::vector<MenuAction> m_actions;
};

class Observer final : public platform::IProductObserver {
public:
    explicit Observer(std::function<void()> selection) : m_selection(std::move(selection)) {}

    void OnDocumentChanged(bool) override {}
    void OnLookChanged() override {}
    void OnSelectionChanged() override { m_selection(); }
    void OnHighlightChanged() override {}

private:
    std::function<void()> m_selection;
};

struct MenuPanel : Panel {
    explicit MenuPanel(platform::ProductModel model) : Panel(std::move(model)) {
        frame.SetDecisions(&decisions);
        data->SetDecisions(&decisions);
        frame.SetPopupMenus(&menus);
    }
    ~MenuPanel() {
        frame.SetDecisions(nullptr);
        frame.SetPopupMenus(nullptr);
    }
    platform::TreeTableRow& Row(std::size_t i) const { return View().GetRoot()->GetChildRow(i); }
    void Select(std::initializer_list<std::size_t> rows) const {
        std::vector<platform::TreeTableRow*> selected;
        for (const std::size_t i : rows)
            selected.push_back(&Row(i));
        View().SelectByUser(selected, selected.empty() ? nullptr : selected.front());
    }
    std::string Selected() const { return Dump({.selection = true}); }

    platform::ScriptedDecisions decisions;
    Menus menus;
};

Product Parts() {
    return std::move(Product()
                         .Root(L"r")
                         .NoSectionRows()
                         .Object("a", L"a", L"1")
                         .Uses()
                         .Object("b", L"b", L"2")
                         .Uses(2)
                         .Object("c", L"c", L"3")
                         .Uses());
}

TEST(Selection, GoesToTheDocumentAndBackToItsOtherPanels) {
    MenuPanel panel(Parts());
    const platform::HostFrame other(panel.data);
    int told = 0;
    Observer observer([&] {
        ++told;
        panel.Tree().SetSelectionByDoc();
        other.GetTree().SetSelectionByDoc();
    });
    panel.data->SetObserver(&observer);
    const auto otherDump = [&] { return support::DumpView(other.GetView(), {.selection = true}); };

    panel.Select({2, 0});
    EXPECT_EQ(panel.Selected(), "r [>a | b (x2) [b | b] | >>c]") << "what the user did is no echo to itself";
    EXPECT_EQ(otherDump(), "r [>>a | b (x2) [b | b] | >c]") << "the first key has a row, and it stands first";
    panel.Select({1});
    EXPECT_EQ(otherDump(), "r [a | >>b (x2) [b | b] | c]") << "a group is told by its own key";
    panel.data->SetSelectedKeys({Key("b#2"), Key("no such key"), Key("c#1")});
    EXPECT_EQ(panel.Selected(), "r [a | b (x2) [b | >>b] | >c]");
    panel.data->SetSelectedKeys({Key("c#1"), Key("b#2")});
    EXPECT_EQ(panel.Selected(), "r [a | b (x2) [b | >>b] | >c]") << "the current row stays, being selected still";
    panel.data->SetSelectedKeys({});
    EXPECT_EQ(otherDump(), "r [a | b (x2) [b | b] | c]");
    EXPECT_EQ(told, 5);
    panel.Tree().SetVisible(false, false);
    panel.data->SetSelectedKeys({Key("a#1")});
    EXPECT_EQ(panel.Selected(), "r [a | b (x2) [b | b] | c]") << "owed while hidden";
    panel.Tree().SetVisible(true, false);
    EXPECT_EQ(panel.Selected(), "r [>>a | b (x2) [b | b] | c]");
    panel.data->SetObserver(nullptr);
}

TEST(Selection, OffersTheColumnsThatOneOfSeveralRowsCanEdit) {
    const MenuPanel panel(Parts().Columns({L"comment", L"featureType"}));
    panel.Select({0});
    EXPECT_FALSE(panel.View().GetGroupEdit());
    panel.Select({0, 1});
    EXPECT_EQ(panel.View().GetGroupEdit(), (std::map<std::wstring, bool>{{L"comment", true}, {L"featureType", false}}));
    panel.View().SelectByUser({panel.View().GetRoot()}, nullptr);
    EXPECT_FALSE(panel.View().GetGroupEdit());
}

TEST(Commands, AreOfferedWhereTheyWouldDoSomething) {
    MenuPanel panel(Parts());
    const auto offered = [&] {
        std::string text;
        for (const unsigned id : {7745U, 7746U, 7747U, 7752U, 7766U}) {
            if (panel.View().IsCommandOffered(id))
                text += std::to_string(id) + ' ';
        }
        return text;
    };
    EXPECT_EQ(offered(), "7745 ");
    Observer observer([] {});
    panel.data->SetObserver(&observer);
    panel.Select({0});
    EXPECT_EQ(offered(), "7745 7746 7752 ");
    panel.Select({0, 1});
    EXPECT_EQ(offered(), "7745 7746 ");
    panel.data->Change([](platform::ProductModel& model) { model.objects[2].isActual = false; });
    panel.Tree().Synchronize();
    EXPECT_TRUE(panel.View().IsCommandOffered(PanelCommandUpdateAll));
    panel.data->Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    panel.Tree().Synchronize();
    EXPECT_EQ(offered(), "7747 ");
    panel.data->SetObserver(nullptr);
}

TEST(Commands, AddAPartBesideTheSelectedOneAndDeleteWhatIsChosenWithAQuestion) {
    MenuPanel panel(Parts());
    panel.Select({0});
    EXPECT_TRUE(panel.View().RunCommandByUser(PanelCommandAddObject));
    EXPECT_EQ(panel.Selected(), "r [>> | a | b (x2) [b | b] | c]");
    EXPECT_EQ(panel.View().TakeChanges().editRow, &panel.Row(0)) << "its name is asked for at once";
    EXPECT_EQ(platform::ToUtf8(panel.data->GetUndoName().Str()), "New object");

    panel.Select({0, 3});
    panel.decisions.AnswerNext(1);
    panel.View().RunCommandByUser(PanelCommandDelete);
    EXPECT_EQ(platform::ToUtf8(panel.decisions.GetQuestions().at(0).text.Str()), "Delete the selected objects (2)?");
    EXPECT_EQ(panel.Dump(), "r [ | a | b (x2) [b | b] | c]") << "refused";
    panel.decisions.AnswerNext(0);
    panel.View().RunCommandByUser(PanelCommandDelete);
    EXPECT_EQ(panel.Dump(), "r [a | b (x2) [b | b]]");
    panel.View().SelectByUser({&panel.Row(1).GetChildRow(0), &panel.Row(1).GetChildRow(1)}, nullptr);
    panel.View().RunCommandByUser(PanelCommandDelete);
    EXPECT_EQ(platform::ToUtf8(panel.decisions.GetQuestions().at(2).text.Str()), "Delete the selected objects (2)?");
    panel.data->Undo();
    panel.data->Undo();
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Dump(), "r [a | b (x2) [b | b] | c]");
}

TEST(Commands, AHighlightDropsTheSelectionUntilItsEndAndTheNewestOneCounts) {
    MenuPanel panel(Parts());
    Observer observer([] {});
    panel.data->SetObserver(&observer);
    const auto highlight = [&](std::size_t row) {
        panel.Select({row});
        panel.View().RunCommandByUser(PanelCommandHighlight);
    };
    highlight(0);
    EXPECT_EQ(panel.data->GetHighlighting()->key, Key("a#1"));
    EXPECT_EQ(panel.Selected(), "r [a | b (x2) [b | b] | c]");
    panel.data->EndHighlighting();
    EXPECT_EQ(panel.Selected(), "r [>>a | b (x2) [b | b] | c]");
    EXPECT_EQ(panel.data->GetSelectedKeys(), std::vector{Key("a#1")});
    highlight(0);
    highlight(2);
    panel.data->EndHighlighting();
    EXPECT_EQ(panel.Selected(), "r [a | b (x2) [b | b] | >>c]");
    panel.data->SetObserver(nullptr);
}

TEST(Menus, OfferWhatTheRowsCanDoAndRunItWhenTheyHaveClosed) {
    MenuPanel panel(Parts().Columns({L"comment", L"position"}));
    panel.Select({});
    panel.View().ShowRowMenuByUser(panel.Row(0), L"name");
    EXPECT_EQ(panel.menus.TakeCommands(), "7753 7764 7757 7746 7758 ");
    EXPECT_TRUE(panel.menus.Choose(7764));
    EXPECT_EQ(panel.Dump(), "r [a |  (billet 1) | b (x2) [b | b] | c]");
    EXPECT_FALSE(panel.menus.Choose(7764)) << "the menu is done with";
    panel.data->Undo();
    panel.Tree().Synchronize();
    panel.View().ShowRowMenuByUser(panel.Row(0), L"name");
    panel.decisions.ChooseNextObject(Key("c"));
    EXPECT_TRUE(panel.menus.Choose(7757));
    EXPECT_EQ(panel.Dump(), "r [b (x2) [b | b] | c | a (billet 3)]");
    panel.data->Undo();
    panel.Tree().Synchronize();
    EXPECT_EQ(panel.Dump(), "r [a | b (x2) [b | b] | c]");

    panel.Select({0, 2});
    panel.View().ShowRowMenuByUser(panel.Row(1), L"comment");
    EXPECT_EQ(panel.menus.TakeCommands(), "7746 ");
    EXPECT_FALSE(SendCommand(panel.menus.GetTarget(), 7746, -1)) << "only asked";
    EXPECT_FALSE(SendCommand(panel.menus.GetTarget(), 7766, 0)) << "a command of another menu";
    EXPECT_FALSE(panel.menus.Choose(7746)) << "and the menu is done with";
    panel.View().ShowRowMenuByUser(panel.Row(1), L"comment");
    panel.decisions.AnswerNext(0);
    EXPECT_TRUE(panel.menus.Choose(7746));
    EXPECT_EQ(panel.Dump(), "r [b (x2) [b | b]]");

    panel.View().ShowColumnMenuByUser(L"position");
    EXPECT_EQ(panel.menus.TakeCommands(), "7766 7790 7795 ");
    EXPECT_TRUE(panel.menus.Choose(7766));
    EXPECT_EQ(panel.Dump({.column = L"position"}), "r [b (x2) =1 [b =1 | b =1]]");
    panel.View().ShowColumnMenuByUser(L"position");
    EXPECT_TRUE(panel.menus.Choose(7790));
    EXPECT_EQ(panel.data->GetVisiblePropertyIds().size(), 1U);
    panel.View().ShowColumnMenuByUser(L"name");
    panel.View().ShowColumnMenuByUser(L"comment");
    panel.decisions.ChooseNextSeveral(std::vector<bool>(100, false));
    EXPECT_TRUE(panel.menus.Choose(7795));
    EXPECT_TRUE(panel.data->GetVisiblePropertyIds().empty());
}

TEST(Menus, SendNothingToAPanelThatIsGone) {
    Menus menus;
    {
        MenuPanel panel(Parts());
        panel.frame.SetPopupMenus(&menus);
        panel.View().ShowRowMenuByUser(panel.Row(0), L"name");
    }
    EXPECT_FALSE(menus.Choose(7764));
}

TEST(Attributes, MixOverGroupsAndSectionsAndChangeEachObjectOnce) {
    Product product;
    product.Root(L"r").Object("a", L"a", L"1").AggrIntoProduct(true).Uses(2);
    product.Object("b", L"b", L"2").AggrIntoProduct(false).Uses().Object("c", L"c", L"3").Uses();
    MenuPanel panel(product);
    panel.data->Change([](platform::ProductModel& model) { model.isAggrIntoProductShown = true; });
    panel.Tree().Synchronize();
    platform::TreeTableRow& section = panel.Row(0);
    const auto states = [&](const auto& get) {
        std::string text = std::to_string(get(section)) + ' ';
        for (std::size_t i = 0; i < section.GetChildCount(); ++i)
            text += std::to_string(get(section.GetChildRow(i)));
        return text;
    };
    const auto aggregation = [](const platform::TreeTableRow& row) { return row.GetAggrIntoProductState(); };
    const auto registration = [](const platform::TreeTableRow& row) { return row.GetRegWithDescState(); };
    EXPECT_EQ(states(aggregation), "1 120") << "of on, off and none it is on";
    panel.View().SelectByUser({&section, &section.GetChildRow(0)}, &section);
    panel.View().ShowRowMenuByUser(section, L"name");
    EXPECT_EQ(panel.menus.TakeCommands(), "7792 7746 ") << "no registering where it is not shown";
    EXPECT_TRUE(panel.menus.Choose(7792));
    EXPECT_EQ(states(aggregation), "2 222") << "all below the section, and the group once";
    panel.data->Undo();
    panel.Tree().Synchronize();
    EXPECT_EQ(states(aggregation), "1 120") << "it was one step";

    EXPECT_FALSE(panel.View().ClickAttributeByUser(section, AttributeColumnRegWithDesc)) << "not shown";
    panel.Change([](platform::ProductModel& model) { model.isRegWithDescShown = true; });
    panel.View().SetAttributeColumnShown(AttributeColumnRegWithDesc, true);
    EXPECT_EQ(states(registration), "1 111");
    EXPECT_TRUE(panel.View().ClickAttributeByUser(section.GetChildRow(0), AttributeColumnRegWithDesc));
    EXPECT_EQ(states(registration), "1 211") << "a group is registered as a whole";
    panel.data->Change([](platform::ProductModel& model) { model.isReadOnly = true; });
    panel.Tree().Synchronize();
    EXPECT_EQ(states(aggregation) + ' ' + states(registration), "0 340 0 433");
}

TEST(Embodiments, AreChosenByASwitchAListAndAText) {
    Product product = Parts();
    for (int i = 0; i < 23; ++i)
        product.Embodiment("e" + std::to_string(i), std::to_wstring(i));
    MenuPanel panel(product.Columns({L"comment"}));
    const auto heads = [&] {
        std::string text;
        for (std::size_t i = 2; i < panel.View().GetHeads().size(); ++i)
            text += platform::ToUtf8(panel.View().GetHeads()[i].caption) + ' ';
        return text;
    };
    EXPECT_EQ(heads(), "Comment ");
    EXPECT_TRUE(panel.View().SwitchEmbodimentsByUser(true));
    EXPECT_EQ(heads(), "Comment -20 -21 -22 ") << "counts were not shown, and there is a place for them now";
    EXPECT_EQ(panel.View().GetEmbodiments().lines.size(), 4U);
    EXPECT_TRUE(panel.View().EnterEmbodimentFilterByUser(L"3,5-6,x"));
    EXPECT_EQ(heads(), "Comment -3 -5 -6 ");
    EXPECT_EQ(panel.View().GetEmbodimentFilterText(), L"3,5-6") << "as it was understood";
    EXPECT_TRUE(panel.View().CheckEmbodimentsByUser(L"20-22", true));
    EXPECT_EQ(panel.data->GetModel().embodimentFilter, L"3,5-6,20-22");
    EXPECT_EQ(MenuPanel(panel.data->GetModel()).View().GetEmbodimentFilterText(), L"3,5-6,20-22") << "opened again";
    panel.View().ShowColumnMenuByUser(panel.View().GetHeads().at(3).id);
    EXPECT_EQ(panel.menus.TakeCommands(), "7795 ") << "they stand and go together";
    EXPECT_TRUE(panel.View().CheckEmbodimentsByUser(L"All embodiments", true));
    EXPECT_EQ(panel.data->GetModel().embodimentFilter, L"ShowAll");
    panel.View().SetEmbodimentsAllowed(false);
    EXPECT_EQ(heads(), "Comment ");
    panel.View().SetEmbodimentsAllowed(true);
    EXPECT_EQ(panel.View().GetHeads().size(), 26U) << "the mode comes back where it is possible again";
    EXPECT_TRUE(panel.View().SwitchEmbodimentsByUser(false));
    EXPECT_EQ(heads(), "Comment ");
}

// Whatever the host throws in, no flag stays set: the next build and the next selection are those of a fresh panel.
TEST(Commands, AHostThatThrowsAnywhereLeavesNothingBehind) {
    using Work = std::function<void(const platform::HostFrame&, Menus&)>;
    const auto row = [](const platform::HostFrame& frame, std::size_t i) -> platform::TreeTableRow& {
        return frame.GetView().GetRoot()->GetChildRow(i);
    };
    const auto chosen = [](unsigned command, const auto& open) {
        return [=](const platform::HostFrame& frame, Menus& menus) {
            open(frame);
            menus.Choose(command);
        };
    };
    const Work works[] = {
        [&](const auto& frame, Menus&) {
            frame.GetView().SelectByUser({&row(frame, 0), &row(frame, 1)}, nullptr);
        },
        [&](const auto& frame, Menus&) { frame.GetTree().SetSelectionByDoc(); },
        [&](const auto& frame, Menus&) { frame.GetView().RunCommandByUser(PanelCommandAddObject); },
        [&](const auto& frame, Menus&) { frame.GetView().RunCommandByUser(PanelCommandHighlight); },
        [&](const auto& frame, Menus&) { frame.GetView().SwitchEmbodimentsByUser(true); },
        [&](const auto& frame, Menus&) { frame.GetView().ClickAttributeByUser(row(frame, 0), 200); },
        chosen(7758, [&](const auto& frame) { frame.GetView().ShowRowMenuByUser(row(frame, 0), L"name"); }),
        chosen(7790, [&](const auto& frame) { frame.GetView().ShowColumnMenuByUser(L"comment"); }),
    };
    Product product = Parts();
    product.Columns({L"comment"}).Embodiment("e1").Embodiment("e2");
    for (const Work& work : works) {
        for (std::size_t n = 1;; ++n) {
            const auto data = std::make_shared<RecordingProductData>(product);
            platform::HostFrame frame(data);
            Menus menus;
            frame.SetPopupMenus(&menus);
            data->ThrowAt(n);
            bool hasThrown = false;
            try {
                work(frame, menus);
            } catch (const HostError&) {
                hasThrown = true;
            }
            data->ThrowAt(0);
            const auto dump = [&] {
                frame.GetTree().Synchronize();
                data->Product().SetSelectedKeys({Key("c#1")});
                frame.GetTree().SetSelectionByDoc();
                return support::DumpView(frame.GetView(), {.selection = true});
            };
            const std::string lived = dump();
            const platform::HostFrame fresh(data);
            fresh.GetTree().SetSelectionByDoc();
            ASSERT_EQ(lived, support::DumpView(fresh.GetView(), {.selection = true})) << n;
            ASSERT_NE(lived.find(">>c"), std::string::npos) << n;
            frame.SetPopupMenus(nullptr);
            if (!hasThrown)
                break;
        }
    }
}

} // namespace

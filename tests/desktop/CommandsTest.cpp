// The panel's commands as a user gives them: by strips, menus and keys.
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>

namespace {

platform::ProductModel Parts() {
    support::Product product;
    product.Root(L"Gearbox")
        .UserProperty(1001, L"Teeth", 0, 0, 200)
        .UserProperty(1002, L"Spare", 2)
        .LastPropertyList({SimplePropVal(SharedText(L"Yes")), SimplePropVal(SharedText(L"No"))})
        .Columns({L"note", L"position", L"user.1001", L"user.1002"});
    for (const char* const key : {"a", "b", "c"})
        product.Object(key, std::wstring(1, wchar_t(*key)), std::wstring(L"AB.") + wchar_t(*key))
            .Section(20, L"Parts")
            .Uses();
    return product;
}

class CommandsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        m_view = &Show(Parts());
        Tree().expandAll();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Tree().setFocus();
    }

    std::string Dump() const { return support::DumpView(*m_view, {.selection = true}); }
    QString Message() const { return m_window->statusBar()->currentMessage(); }
    void Select(std::initializer_list<int> rows) const {
        Tree().clearSelection();
        for (const int row : rows)
            Click(At({0, row}), row == *rows.begin() ? Qt::NoModifier : Qt::ControlModifier);
    }
    QMenu* OpenMenu() const { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    /// What the open menu lists, or nothing.
    QStringList Listed() const {
        QStringList texts;
        for (const QAction* const action : OpenMenu() ? OpenMenu()->actions() : QList<QAction*>())
            texts += action->isSeparator() ? "-" : action->text().remove('&').section('\t', 0, 0);
        return texts;
    }
    void Edit(const QModelIndex& index, const QString& text) const {
        Tree().setCurrentIndex(index);
        Press(Qt::Key_F2);
        Type(text);
    }
    void RightClick(const QModelIndex& index) const {
        const QPoint place = Tree().visualRect(index).center();
        QTest::mousePress(Tree().viewport(), Qt::RightButton, Qt::NoModifier, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, Tree().viewport()->mapToGlobal(place));
        QApplication::sendEvent(Tree().viewport(), &event);
        QApplication::processEvents();
    }
    void Choose(const QString& text) const {
        for (QAction* const action : OpenMenu() ? OpenMenu()->actions() : QList<QAction*>()) {
            if (action->text().remove('&').section('\t', 0, 0) == text) {
                OpenMenu()->setActiveAction(action);
                QTest::keyClick(OpenMenu(), Qt::Key_Return);
                break;
            }
        }
        QApplication::processEvents();
    }
    void Close() const {
        QTest::keyClick(OpenMenu(), Qt::Key_Escape);
        QApplication::processEvents();
    }

    platform::TreeTableView* m_view = nullptr;
};

TEST_F(CommandsTest, AddedPartsAreNamedAtOnceAndDeletedOnesLeaveTheUserWhereHeWas) {
    Select({1});
    Press(Qt::Key_Insert);
    Type("lid");
    Press(Qt::Key_Return);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x4) [>>lid | a | b | c]]");
    Trigger("Undo");
    Trigger("Undo");
    EXPECT_EQ(Dump(), "Gearbox [Parts (x3) [>>a | b | c]]");
    Press(Qt::Key_Insert);
    Press(Qt::Key_Insert);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x5) [ | >> | a | b | c]]") << "an unnamed one is no obstacle to the next";
    Trigger("Undo");
    Trigger("Undo");

    Select({1});
    m_decisions->AnswerNext(1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x3) [a | >>b | c]]") << "cancelled";
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x2) [a | >>c]]");
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x1) [>>a]]") << "the last one of a section leaves its neighbour";
    Trigger("Undo");
    Trigger("Undo");
    Select({0, 2});
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Dump(), "Gearbox [Parts (x1) [>>b]]");
    Trigger("Undo");
    EXPECT_TRUE(Dump().starts_with("Gearbox [Parts (x3)"));
    EXPECT_EQ(m_decisions->GetQuestions().size(), 4U);
}

TEST_F(CommandsTest, KeysOfRowsBelongToAnOpenEditorAndSayWhyTheyDoNothing) {
    Edit(At({0, 0}), "lid");
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_Return})
        Press(key);
    EXPECT_EQ(TextAt({0, 0}, 0), "id");
    Edit(At({0, 0}, Column("Spare")), {});
    Press(Qt::Key_Delete);
    EXPECT_EQ(m_view->GetRoot()->GetChildRow(0).GetChildCount(), 3U) << "nor has a list a use for it";
    EXPECT_TRUE(m_decisions->GetQuestions().empty());
    Press(Qt::Key_Escape);

    Tree().setCurrentIndex({});
    Tree().clearSelection();
    Press(Qt::Key_Delete);
    EXPECT_EQ(Message(), "Delete: no row is chosen");
    Press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(Message(), "Properties: no row is chosen");
    Tree().setCurrentIndex(At({}));
    Press(Qt::Key_Delete);
    EXPECT_EQ(Message(), "Delete: not possible here");
    EXPECT_FALSE(Action("Delete")->isEnabled());
    Press(Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Message(), "Remove link: not possible for Name in this row");
}

TEST_F(CommandsTest, ButtonsAndMenuEntriesAreOneAndShowWhatTheViewSays) {
    const auto state = [&] {
        QStringList texts;
        for (const QAction* const action : m_window->findChild<QToolBar*>("PRODUCT_TREE_TOOLBAR")->actions()) {
            if (!action->isSeparator() && action->isVisible())
                texts += action->text().remove('&') + (action->isEnabled() ? "" : " -");
        }
        return texts.join(", ").toStdString();
    };
    EXPECT_EQ(state(), "Add part, Delete -, Highlight -, Number positions");
    Select({0});
    EXPECT_EQ(state(), "Add part, Delete, Highlight, Number positions");
    m_decisions->ChooseNextSeveral(std::vector<bool>(100, false));
    Trigger("Choose Columns");
    EXPECT_EQ(Column("Pos."), -1);
    EXPECT_EQ(state(), "Add part, Delete, Highlight") << "there is no column of positions any more";
    auto& bar = *m_window->findChild<QToolBar*>("PRODUCT_TREE_ADDITIONAL_TOOLBAR");
    EXPECT_FALSE(bar.isVisible());
    bar.addAction("Something");
    Click(At({0, 1}));
    EXPECT_TRUE(bar.isVisible());
    platform::ProductModel model = Parts();
    model.isReadOnly = true;
    model.objects[0].isActual = false;
    Show(model);
    EXPECT_EQ(state(), "Add part -, Delete -, Highlight -, Update all");
}

TEST_F(CommandsTest, MenusListTheSameByMouseAndByKeyAndSendTheChoiceWhenTheyHaveClosed) {
    Select({0, 2});
    RightClick(At({0, 1}));
    const QStringList one = Listed();
    EXPECT_EQ(one.join(","), "Highlight,-,Insert link,-,Add billet,Convert to billet,-,Delete,-,Properties");
    EXPECT_EQ(Dump(), "Gearbox [Parts (x3) [a | >>b | c]]") << "the menu is that of the row that is selected";
    Close();
    for (const auto& [key, modifier] : {std::pair(Qt::Key_Menu, Qt::NoModifier), {Qt::Key_F10, Qt::ShiftModifier}}) {
        Press(key, modifier);
        EXPECT_EQ(Listed(), one);
        Close();
    }
    Press(Qt::Key_Menu);
    Shoot("menu");
    Choose("Add billet");
    EXPECT_EQ(Dump(), "Gearbox [Parts (x3) [a | b | >> (billet AB.b) | c]]");
    Press(Qt::Key_Escape);
    Trigger("Undo");

    Select({0, 2});
    RightClick(At({0, 2}));
    EXPECT_EQ(Listed(), QStringList("Delete"));
    EXPECT_EQ(Dump(), "Gearbox [Parts (x3) [>a | b | >>c]]");
    m_decisions->AnswerNext(0);
    Choose("Delete");
    EXPECT_EQ(Dump(), "Gearbox [Parts (x1) [>>b]]");

    Tree().setCurrentIndex(At({0, 0}, Column("Pos.")));
    Press(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Listed().join(","), "Number positions,-,Hide column,Choose columns");
    Choose("Number positions");
    EXPECT_EQ(support::DumpView(*m_view, {.column = L"position"}), "Gearbox [Parts (x1) [b =1]]");
    QContextMenuEvent onHead(QContextMenuEvent::Mouse, {2, 2}, Tree().header()->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(Tree().header()->viewport(), &onHead);
    EXPECT_FALSE(OpenMenu());
    EXPECT_EQ(Message(), "Name: there is nothing to choose from for this column");
}

TEST_F(CommandsTest, AMenuThatIsOpenWhenItsPanelGoesIsForgotten) {
    Select({1});
    Press(Qt::Key_Menu);
    QMenu* const menu = OpenMenu();
    menu->actions().back()->trigger();
    m_window->OpenFile(PRODUCT_TREE_SOURCES "/samples/reducer.json", {});
    QApplication::processEvents();
    EXPECT_FALSE(OpenMenu());
    EXPECT_TRUE(m_decisions->GetItemPropertiesRequests().empty()) << "the choice was for a panel that is gone";
}

TEST_F(CommandsTest, ARefusedEditorComesBeforeMenusAndCommands) {
    Edit(At({0, 0}, Column("Teeth")), "9999");
    RightClick(At({0, 1}));
    EXPECT_FALSE(OpenMenu());
    Press(Qt::Key_Insert);
    EXPECT_EQ(m_view->GetRoot()->GetChildRow(0).GetChildCount(), 3U);
    EXPECT_TRUE(Tree().IsEditing());
    Press(Qt::Key_Escape);
}

TEST_F(CommandsTest, AKeyDoesWhatTheMenuOfTheCurrentCellDoes) {
    Tree().setCurrentIndex(At({0, 1}, Column("Note")));
    m_decisions->ChooseNextProperty(platform::PropertyChoice{support::Key("a"), SharedText(L"comment")});
    Press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_EQ(m_decisions->GetPropertyRequests().size(), 1U);
    EXPECT_TRUE(Action("Undo Link"));
    // In the Edit menu the same keys are offered as far as the cell has a use for them.
    QMenu& cell = *Action("This cell")->menu();
    emit cell.aboutToShow();
    QStringList enabled;
    for (const QAction* const action : cell.actions())
        enabled += action->isEnabled() ? action->text().remove('&') : QString();
    enabled.removeAll({});
    EXPECT_EQ(enabled.join(","), "Edit link,Remove link");
    emit cell.aboutToHide();
    Press(Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(Action("Undo Removal of a link"));
}

TEST_F(CommandsTest, HelpShowsThePageOfThePanelAndTheKeysOfAllMenus) {
    Press(Qt::Key_F1);
    auto& dialog = *m_window->findChild<QDialog*>();
    const auto text = [&] { return dialog.findChild<QTextBrowser*>()->toPlainText(); };
    EXPECT_FALSE(dialog.isModal());
    EXPECT_TRUE(text().startsWith("Working with the product tree"));
    Trigger("All Keys");
    for (QAction* const menu : m_window->menuBar()->actions()) {
        for (const QAction* const action : menu->menu()->actions()) {
            if (!action->shortcut().isEmpty()) {
                EXPECT_TRUE(text().contains(action->shortcut().toString())) << action->text().toStdString();
                EXPECT_TRUE(text().contains(action->iconText())) << action->text().toStdString();
            }
        }
    }
    Trigger("About");
    EXPECT_TRUE(m_window->findChild<QMessageBox*>()->text().contains(QString("Qt ") + qVersion()));
}

} // namespace

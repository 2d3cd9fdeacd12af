#include "desktop/tree/HighlightedRows.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <QApplication>
#include <QStatusBar>
#include <QTest>

namespace {

constexpr int c_highlight = 7752, c_add = 7745;

platform::ProductModel Product() { return window_tests::SmallGearbox(3); }

class HighlightTest : public window_tests::WindowFixture {
protected:
    void Highlight(const QModelIndex& row) {
        m_view = &Show(Product());
        Tree().expandAll();
        Tree().setCurrentIndex(row.isValid() ? row : At({0, 1, 2}));
        QApplication::processEvents();
        m_view->RunCommandByUser(c_highlight);
        QApplication::processEvents();
    }
    const desktop::HighlightedRows& Rows() const { return Tree().GetHighlighted(); }
    /// A letter for each row from the root down: highlighted or not.
    std::string Highlighted() const {
        std::string text;
        for (QModelIndex index = At({}); index.isValid(); index = Tree().indexBelow(index))
            text += Rows().Has(*static_cast<platform::TreeTableRow*>(index.internalPointer())) ? 'x' : '-';
        return text;
    }

    platform::TreeTableView* m_view = nullptr;
};

TEST_F(HighlightTest, AllRowsOfTheObjectAreUnfoldedAndTintedUntilEscape) {
    m_view = &Show(Product());
    Tree().expandAll();
    Tree().setCurrentIndex(At({0, 1, 2}));
    Tree().collapse(At({0, 0}).parent());
    m_view->RunCommandByUser(c_highlight);
    EXPECT_TRUE(m_view->GetSelectedRows().empty());
    QApplication::processEvents();
    EXPECT_EQ(Highlighted(), "---xxxx") << support::DumpView(*m_view);
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "Highlighted: Pin. Escape ends it.");
    Shoot("highlight");
    Press(Qt::Key_Control);
    EXPECT_TRUE(Rows().AreShown());
    Press(Qt::Key_Escape);
    EXPECT_EQ(Highlighted(), "-------");
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "");
    EXPECT_EQ(support::DumpView(*m_view, {.selection = true}),
              "Gearbox [Parts (x4) [Case | Pin (x3) [Pin | Pin | >>Pin]]]");
}

TEST_F(HighlightTest, TheNextKeyAndTheNextClickEndItAndDoWhatTheyDo) {
    Highlight({});
    Press(Qt::Key_Up);
    EXPECT_FALSE(Rows().AreShown());
    EXPECT_EQ(Tree().currentIndex(), At({0, 1, 1}));
    Highlight({});
    Click(At({0, 0}));
    EXPECT_FALSE(Rows().AreShown());
    EXPECT_EQ(Tree().currentIndex(), At({0, 0}));
    EXPECT_EQ(m_view->GetSelectedRows().size(), 1U);
}

TEST_F(HighlightTest, OutlivesNewRowsAndEndsWhenItsRowsAreGone) {
    Highlight({});
    Press(Qt::Key_Escape);
    m_view->EditNameByUser(*m_view->GetCurrent(), L"Dowel");
    QApplication::processEvents();
    EXPECT_TRUE(Action("Undo")->isEnabled());
    m_view->RunCommandByUser(c_highlight);
    QApplication::processEvents();
    Trigger("Undo");
    EXPECT_EQ(Highlighted(), "---xxxx");
    Press(Qt::Key_Escape);

    m_view->RunCommandByUser(c_add);
    QApplication::processEvents();
    Press(Qt::Key_Escape);
    m_view->RunCommandByUser(c_highlight);
    QApplication::processEvents();
    EXPECT_TRUE(Rows().AreShown());
    Trigger("Undo");
    QApplication::processEvents();
    EXPECT_FALSE(Rows().AreShown());
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "");
}

TEST_F(HighlightTest, IsSeenInAllViewsOfTheProductAndEndsInAllOfThem) {
    Highlight({});
    Press(Qt::Key_Escape);
    const std::unique_ptr<desktop::MainWindow> other(m_window->OpenView());
    other->setAttribute(Qt::WA_DeleteOnClose, false);
    m_view->RunCommandByUser(c_highlight);
    QApplication::processEvents();
    auto& tree = *other->findChild<desktop::PanelTree*>();
    EXPECT_TRUE(Rows().AreShown());
    EXPECT_TRUE(tree.GetHighlighted().AreShown());
    QTest::keyClick(&tree, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(Rows().AreShown());
    EXPECT_FALSE(tree.GetHighlighted().AreShown());
    // Another product comes into the window.
    Highlight({});
    Show(support::Product().Root(L"Hinge"));
    EXPECT_FALSE(Rows().AreShown());
}

} // namespace

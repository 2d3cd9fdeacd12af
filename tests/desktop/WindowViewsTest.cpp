// Two windows with one product, as a user works in them.
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"

#include <QAction>
#include <QApplication>
#include <QPointer>

namespace {

class WindowViewsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        Show(support::Product()
                 .Root(L"Unit")
                 .NoSectionRows()
                 .Columns({L"comment"})
                 .Object("a", L"Axle")
                 .Uses()
                 .Object("b", L"Bolt")
                 .Uses());
        m_second = m_window->OpenView();
        m_window->activateWindow();
        QApplication::processEvents();
    }
    ~WindowViewsTest() override {
        if (m_second) {
            m_second->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    desktop::PanelTree& SecondTree() const { return *m_second->findChild<desktop::PanelTree*>(); }
    QString InSecond(int row, const QString& caption) const {
        const QAbstractItemModel& model = *SecondTree().model();
        return model.index(row, Column(caption), model.index(0, 0)).data().toString();
    }
    void Comment(int row, const QString& text) const {
        Tree().setCurrentIndex(At({row}, Column("Comment")));
        Press(Qt::Key_F2);
        Type(text);
        Press(Qt::Key_Return);
    }

    QPointer<desktop::MainWindow> m_second;
};

TEST_F(WindowViewsTest, ShowEditsSelectionsAndStepsOfEachOtherAtOnce) {
    Comment(0, "long");
    EXPECT_EQ(InSecond(0, "Comment"), "long");
    QApplication::processEvents();
    EXPECT_TRUE(m_second->isWindowModified());
    EXPECT_EQ(m_second->windowTitle(), "small.json[*] (view 2)");
    Tree().selectAll();
    QApplication::processEvents();
    EXPECT_EQ(SecondTree().selectionModel()->selectedRows().size(), 2) << "the product itself is no object of its own";
    // An editor that is open there stays with its object.
    SecondTree().setCurrentIndex(SecondTree().model()->index(0, Column("Comment"), SecondTree().model()->index(0, 0)));
    SecondTree().edit(SecondTree().currentIndex());
    ASSERT_TRUE(SecondTree().IsEditing());
    Trigger("Undo");
    EXPECT_TRUE(SecondTree().IsEditing());
    EXPECT_FALSE(m_second->isWindowModified());
    Shoot("views-first");
}

TEST_F(WindowViewsTest, AskAboutUnsavedChangesInTheLastOneAlone) {
    Comment(1, "M8");
    m_second->activateWindow();
    EXPECT_TRUE(m_second->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    EXPECT_FALSE(m_second);
    EXPECT_TRUE(m_decisions->GetQuestions().empty());
    EXPECT_EQ(m_window->windowTitle(), "small.json[*]");
    m_window->activateWindow();
    Tree().setCurrentIndex(At({0}));
    Comment(0, "still edited");
    EXPECT_EQ(TextAt({0}, Column("Comment")), "still edited");
    EXPECT_FALSE(m_window->close());
    EXPECT_EQ(m_decisions->GetQuestions().size(), 1U);
}

} // namespace

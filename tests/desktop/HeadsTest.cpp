#include "desktop/tree/PanelHead.h"
#include "desktop/tree/TreeItemModel.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

namespace {

/// A case of known mass, a pin and two washers without one.
platform::ProductModel Parts() {
    return support::Product()
        .Root(L"Gearbox", L"AB.1")
        .MassOfParts()
        .Simplified()
        .Columns({L"SPCSection", L"material", L"mass", L"specRoughSign"})
        .Object("case", L"Case", L"AB.2")
        .Section(20, L"Parts")
        .Material(L"Steel")
        .Mass(2)
        .Uses()
        .Object("pin", L"Pin", L"AB.3")
        .Section(20, L"Parts")
        .Uses()
        .Object("washer", L"Washer", L"AB.4")
        .Section(20, L"Parts")
        .Uses(2);
}

class HeadsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override { Open(Parts()); }
    void Open(const platform::ProductModel& model) {
        m_view = &Show(model);
        Tree().expandAll();
        QApplication::processEvents();
    }
    /// The first two parts, with the cell of the second current.
    void SelectTwo(int column) {
        Tree().setCurrentIndex(At({0, 0}, column));
        Press(Qt::Key_Down, Qt::ShiftModifier);
        QApplication::processEvents();
    }
    void ChooseEntry(int entry) const {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        menu->setActiveAction(menu->actions().at(entry));
        QTest::keyClick(menu, Qt::Key_Return);
        QApplication::processEvents();
    }
    std::string Selected() const { return support::DumpView(*m_view, {.expandedOnly = true, .selection = true}); }

    platform::TreeTableView* m_view = nullptr;
};

TEST_F(HeadsTest, TheMenuOfTextsOpensByKeyAndAChoiceStandsForWhatWasTyped) {
    const int material = Column("Material");
    Tree().setCurrentIndex(At({0, 0}, material));
    Press(Qt::Key_F4);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().size(), 2);
    Shoot("cell-menu");
    QTest::keyClick(menu, Qt::Key_Escape);
    // An open editor keeps what was typed, until something is chosen.
    Type("Brass");
    Press(Qt::Key_Down, Qt::AltModifier);
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    QTest::keyClick(menu, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_TRUE(Tree().IsEditing());
    Press(Qt::Key_F4);
    ChooseEntry(1);
    EXPECT_FALSE(Tree().IsEditing());
    EXPECT_NE(TextAt({0, 0}, material), "Brass");
    // The root is none of the cells with a menu.
    Tree().setCurrentIndex(At({0}, material));
    Press(Qt::Key_F4);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST_F(HeadsTest, TheHeadOfSectionsOpensOneDialogForAllSelectedRows) {
    SelectTwo(Column("Section"));
    Shoot("link-head");
    m_decisions->ChooseNextSection(platform::SectionDecision{2, false});
    Press(Qt::Key_F2, Qt::ShiftModifier);
    QApplication::processEvents();
    ASSERT_EQ(m_decisions->GetSectionRequests().size(), 1U);
    EXPECT_EQ(support::DumpView(*m_view, {.expandedOnly = true}).find("Parts (x3) ["), std::string::npos);
    Trigger("Undo");
    // One row is changed in its cell.
    Tree().setCurrentIndex(At({0, 0}, Column("Section")));
    Press(Qt::Key_F2, Qt::ShiftModifier);
    QApplication::processEvents();
    EXPECT_EQ(m_decisions->GetSectionRequests().size(), 1U);
}

TEST_F(HeadsTest, TheHeadOfDesignationsReplacesThoseOfAllSelectedRows) {
    SelectTwo(1);
    Press(Qt::Key_F2, Qt::ShiftModifier);
    QApplication::processEvents();
    ASSERT_TRUE(Tree().IsEditing());
    Type("CD.7-02");
    Shoot("designation-head");
    Press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(TextAt({0, 0}, 1), "AB.4");
    EXPECT_EQ(TextAt({0, 1}, 1), "CD.7-02");
    EXPECT_EQ(TextAt({0, 2}, 1), "CD.7-02");
    Press(Qt::Key_F2, Qt::ShiftModifier);
    QApplication::processEvents();
    Press(Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(Tree().IsEditing());

    m_decisions->EnterNext(SharedText(L"SB"));
    Trigger("Document code");
    EXPECT_TRUE(TextAt({0, 2}, 1).endsWith("SB")) << TextAt({0, 2}, 1).toStdString();
}

TEST_F(HeadsTest, ASignThatIsNotThereIsMadeInItsDialog) {
    QSignalSpy wanted(&Tree(), &desktop::PanelTree::DialogWanted);
    Tree().setCurrentIndex(At({0, 0}, Column("Roughness sign")));
    Press(Qt::Key_Return);
    Press(Qt::Key_F2);
    const QPoint middle = Tree().visualRect(Tree().currentIndex()).center();
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(wanted.size(), 3);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(wanted.size(), 3);
    EXPECT_FALSE(Tree().IsEditing());
}

TEST_F(HeadsTest, MaterialsFromTheBookOnlyAreLinksUntilTheStepIsUndone) {
    const auto isTyped = [this] {
        return desktop::TreeItemModel::LookOf(At({0, 0}, Column("Mass, kg"))).kind != desktop::EditKind::None;
    };
    EXPECT_TRUE(isTyped());
    Trigger("Materials from the book only");
    QApplication::processEvents();
    EXPECT_FALSE(isTyped());
    EXPECT_TRUE(Action("Materials from the book only")->isChecked());
    SelectTwo(Column("Material"));
    Shoot("full-mode");
    Trigger("Undo");
    QApplication::processEvents();
    EXPECT_TRUE(isTyped());
    EXPECT_FALSE(Action("Materials from the book only")->isChecked());
}

TEST_F(HeadsTest, ASumWithoutValueTellsOfThePartsThatLackAMassAndLeadsToThem) {
    const int mass = Column("Mass, kg");
    const auto tip = [&](std::initializer_list<int> row) { return At(row, mass).data(Qt::ToolTipRole).toString(); };
    EXPECT_EQ(tip({}), "2 of 3 parts have no mass");
    EXPECT_EQ(tip({0, 2}).section('\n', -1), "2 of 2 parts have no mass");
    EXPECT_FALSE(tip({0, 0}).contains("no mass"));
    auto* const button = m_window->findChild<QToolButton*>("partsWithoutMass");
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->isVisible());
    button->click();
    EXPECT_EQ(Selected(), "Gearbox [Parts (x4) [Case | >>Pin | Washer (x2) [>Washer | >Washer]]]");
    Shoot("missing-masses");
}

} // namespace

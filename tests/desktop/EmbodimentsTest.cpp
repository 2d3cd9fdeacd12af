#include "desktop/store/ProductFile.h"
#include "desktop/window/EmbodimentBar.h"
#include "desktop/window/EmbodimentCombo.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTest>

namespace {

platform::ProductModel ProductOf(int embodiments) {
    support::Product product;
    product.Root(L"Gearbox", L"AB.1").NoSectionRows().Columns({L"count"});
    for (int i = 0; i < embodiments; ++i)
        product.Embodiment("e" + std::to_string(i), std::to_wstring(i));
    return product.Object("screw", L"Screw", L"1").Uses();
}

class EmbodimentsTest : public window_tests::WindowFixture {
protected:
    desktop::EmbodimentCombo& Combo() const { return *m_window->findChild<desktop::EmbodimentCombo*>(); }
    QListWidget& List() const { return *Combo().findChild<QListWidget*>(); }
    QString Message() const { return m_window->statusBar()->currentMessage(); }
    int CountColumns() const { return Tree().model()->columnCount() - 2; }
    void SwitchOn() const { Trigger("Counts of All Embodiments"); }
    void Enter(const QString& text) const {
        Combo().setFocus();
        Combo().lineEdit()->selectAll();
        QTest::keyClicks(&Combo(), text);
        QTest::keyClick(&Combo(), Qt::Key_Return);
        QApplication::processEvents();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QApplication::processEvents();
    }
};

TEST_F(EmbodimentsTest, ATypedRangeIsTakenAndNonsenseGivesTheLastGoodOneBack) {
    Show(ProductOf(25));
    EXPECT_FALSE(Combo().isEnabled());
    SwitchOn();
    EXPECT_EQ(Combo().currentText(), "20-24");
    Enter("3, 5-9");
    EXPECT_EQ(Combo().currentText(), "3,5-9");
    EXPECT_EQ(CountColumns(), 6);
    for (const char* text : {"abc", "-", "30-40", "5-99999999999999999999", "1 - x"}) {
        Enter(text);
        EXPECT_EQ(Combo().currentText(), "3,5-9");
        EXPECT_EQ(Message(), QString("%1 is no range of embodiments, for instance 3,5-9").arg(text));
    }
    Combo().lineEdit()->clear();
    Key(Qt::Key_Return);
    EXPECT_EQ(Combo().currentText(), "3,5-9");
    EXPECT_EQ(Message(), "A range of embodiments is needed, for instance 3,5-9");
    Enter("1,x,30");
    EXPECT_EQ(Combo().currentText(), "1");
    EXPECT_EQ(Message(), "Left out, since there are no such embodiments: x, 30");
    Combo().setFocus();
    QTest::keyClicks(&Combo(), "7");
    Key(Qt::Key_Escape);
    EXPECT_EQ(Combo().currentText(), "1");
    EXPECT_EQ(CountColumns(), 1);
}

TEST_F(EmbodimentsTest, AThousandAreChosenByRangeAndBlockAndComeBackFromTheFile) {
    const std::filesystem::path folder = support::GetTestFolder(), path = folder / "many.json";
    std::filesystem::create_directories(folder);
    ASSERT_FALSE(desktop::store::WriteProductFile(path, ProductOf(1000)));
    m_window->OpenFile(path, {});
    m_window->show();
    m_window->activateWindow();
    QApplication::processEvents();
    SwitchOn();
    Enter("3,5-9,990");
    EXPECT_EQ(CountColumns(), 7);
    Combo().setFocus();
    Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(List().isVisible());
    EXPECT_EQ(List().count(), 101);
    const auto state = [&](int line) { return List().item(line)->checkState(); };
    EXPECT_EQ(state(1), Qt::PartiallyChecked);
    EXPECT_EQ(state(2), Qt::Unchecked);
    List().setCurrentRow(2);
    Key(Qt::Key_Space);
    EXPECT_EQ(state(2), Qt::Checked);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(1)).center());
    EXPECT_EQ(state(1), Qt::Checked) << "mixed becomes checked";
    EXPECT_TRUE(List().isVisible()) << "stays open while boxes are clicked";
    Shoot("embodiment_list");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(List().isVisible());
    EXPECT_EQ(Combo().currentText(), "0-19,990");
    EXPECT_EQ(CountColumns(), 21);
    Trigger("Save");
    m_window->OpenFile(path, {});
    EXPECT_EQ(Combo().currentText(), "0-19,990");
    EXPECT_EQ(CountColumns(), 21);
    std::filesystem::remove_all(folder);
}

TEST_F(EmbodimentsTest, AnOpenEditorIsCommittedFirstAndARefusedOneHoldsTheSwitch) {
    platform::ProductModel model = ProductOf(3);
    model.visibleProperties.push_back(1);
    Show(model);
    const auto edit = [&](const char* position) {
        Tree().setCurrentIndex(At({0}, Column("Pos.")));
        Press(Qt::Key_F2);
        Type(position);
        SwitchOn();
    };
    edit("7");
    EXPECT_TRUE(Action("Counts of All Embodiments")->isChecked());
    EXPECT_EQ(TextAt({0}, Column("Pos.")), "7");
    edit("-4");
    EXPECT_TRUE(Action("Counts of All Embodiments")->isChecked()) << "the editor stays open";
    EXPECT_TRUE(Tree().IsEditing());
}

} // namespace

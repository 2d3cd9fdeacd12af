#include "desktop/dialogs/ItemPropertiesDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using desktop::ItemPropertiesDialog;
using platform::ItemPropertiesRequest;
using Kind = ItemPropertiesRequest::Kind;
using Value = ItemPropertiesRequest::Value;

ItemPropertiesRequest Request() {
    ItemPropertiesRequest request;
    request.title = L"Properties of Shaft";
    request.lines = {
        {L"Name", Kind::Text, SharedText(L"Shaft"), {}, true, L"Own", {}},
        {L"Mass", Kind::Double, 2.5, {}, true, L"From the object", {}},
        {L"Spare", Kind::Bool, {}, {}, true, {}, {}},
        {L"Finish", Kind::List, std::size_t{1}, {L"Painted", L"Plated"}, true, {}, {}},
        {L"Section", Kind::Text, SharedText(L"Parts"), {}, false, L"Own", {}},
        {L"Teeth", Kind::Int, SharedText(L"many"), {}, true, {}, L"a number is expected"},
    };
    return request;
}

class ItemPropertiesDialogTest : public testing::Test {
protected:
    ItemPropertiesDialogTest() : m_dialog(std::make_unique<ItemPropertiesDialog>(Request())) {
        m_dialog->show();
        m_dialog->activateWindow();
        QApplication::processEvents();
        m_table = m_dialog->findChild<QTableWidget*>();
        m_table->setFocus();
    }
    void Type(int line, const QString& text) const {
        m_table->setCurrentCell(line, 1);
        QTest::keyClick(m_table, Qt::Key_F2);
        auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        ASSERT_TRUE(editor);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
    Value Input(std::size_t line) const {
        for (const auto& input : m_dialog->GetInputs()) {
            if (input.line == line)
                return input.value;
        }
        ADD_FAILURE() << "not changed: " << line;
        return {};
    }

    std::unique_ptr<ItemPropertiesDialog> m_dialog;
    QTableWidget* m_table = nullptr;
};

TEST_F(ItemPropertiesDialogTest, GivesWhatWasChangedInTheEditorOfItsKind) {
    EXPECT_TRUE(m_dialog->GetInputs().empty());
    Type(0, "Axle");
    Type(1, QLocale().toString(1.5));
    EXPECT_EQ(Input(0), Value(SharedText(L"Axle")));
    EXPECT_EQ(Input(1), Value(1.5));
    m_table->setCurrentCell(2, 1);
    for (const Value& state : {Value(true), Value(false), Value()}) {
        QTest::keyClick(m_table, Qt::Key_Space);
        EXPECT_EQ(Input(2), state);
    }
    m_table->setCurrentCell(3, 1);
    QTest::keyClick(m_table, Qt::Key_F2);
    auto* const choice = m_table->findChild<QComboBox*>();
    ASSERT_TRUE(choice);
    choice->setCurrentIndex(0);
    emit choice->activated(0);
    EXPECT_EQ(Input(3), Value(std::size_t{0}));
    EXPECT_EQ(m_table->item(3, 1)->text(), "Painted");
    m_table->setCurrentCell(4, 1);
    EXPECT_FALSE(m_table->item(4, 1)->flags().testFlag(Qt::ItemIsEditable));
    EXPECT_EQ(m_dialog->GetInputs().size(), 4U);
}

TEST_F(ItemPropertiesDialogTest, BeginsWithWhatWasRefusedUntilItIsMended) {
    EXPECT_EQ(m_table->currentRow(), 5);
    const auto note = [&] { return m_dialog->findChild<QLabel*>()->text(); };
    EXPECT_EQ(note(), "Teeth: not taken, a number is expected");
    EXPECT_EQ(m_table->item(5, 1)->text(), "many");
    Type(5, "17");
    EXPECT_EQ(note(), "");
    EXPECT_EQ(Input(5), Value(17));
}

} // namespace

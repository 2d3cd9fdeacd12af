#include "desktop/dialogs/RoughnessDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using desktop::RoughnessDialog;
using platform::RoughnessDecision;
using platform::RoughnessRequest;
using Process = RoughnessRequest::Process;
using Place = std::optional<std::size_t>;

class RoughnessDialogTest : public testing::Test {
protected:
    void Open(const RoughnessDecision& present) {
        RoughnessRequest request;
        request.title = L"Roughness of a surface";
        request.signs = {
            {L"Any process", Process::Any}, {L"Machined", Process::Machined}, {L"Not machined", Process::NotMachined}};
        request.present = present;
        m_dialog = std::make_unique<RoughnessDialog>(request);
        m_dialog->show();
        m_dialog->activateWindow();
        QApplication::processEvents();
    }
    /// To whatever has the focus.
    static void Press(std::initializer_list<int> keys, Qt::KeyboardModifiers modifiers = {}) {
        for (const int key : keys)
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    std::wstring Text() const { return m_dialog->GetDecision().text.Str(); }

    std::unique_ptr<RoughnessDialog> m_dialog;
};

TEST_F(RoughnessDialogTest, IsAnsweredByTheKeyboardAlone) {
    Open({});
    EXPECT_EQ(m_dialog->GetDecision().sign, Place());
    Press({Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(m_dialog->GetDecision().sign, Place(1));
    Press({Qt::Key_Tab, Qt::Key_Down, Qt::Key_Tab, Qt::Key_Down});
    EXPECT_EQ(Text(), L"Rz 0.025");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), "1");
    EXPECT_EQ(Text(), L"Rz 1");
    Press({Qt::Key_Return});
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
    Open({2, L"Ra 3.2"});
    Press({Qt::Key_Home, Qt::Key_Escape});
    EXPECT_EQ(m_dialog->result(), QDialog::Rejected);
}

TEST_F(RoughnessDialogTest, LeavesATextAsItWasTyped) {
    for (const wchar_t* const text : {L"", L"Ra3,2", L"Rz  20 ", L"as cast", L"Rally", L"Ra 3.2\nmax"}) {
        Open({0, text});
        EXPECT_EQ(Text(), text);
        auto* const value = m_dialog->findChild<QLineEdit*>();
        value->setFocus();
        QTest::keyClicks(value, "x");
        EXPECT_NE(Text(), text);
        value->clear();
        EXPECT_EQ(Text(), L"");
        QTest::keyClicks(value, "Rz 40 max");
        EXPECT_EQ(Text(), L"Rz 40 max") << "whatever parameter stands beside it";
    }
}

} // namespace

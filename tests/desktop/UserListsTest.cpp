// The user's lists of texts: their file, the dialog, and the menus that show what they hold.
#include "desktop/books/UserLists.h"
#include "desktop/books/UserListDialog.h"
#include "platform/view/MemoryMenu.h"
#include "tests/support/TestFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using desktop::UserListDialog;
using desktop::UserLists;

std::wstring Joined(const std::vector<SharedText>& texts) {
    std::wstring joined;
    for (const SharedText& text : texts)
        joined += text.Str() + L'|';
    return joined;
}

class UserListsTest : public testing::Test {
protected:
    UserListsTest() : m_folder(support::GetTestFolder()) {
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
    }
    ~UserListsTest() override { std::filesystem::remove_all(m_folder); }

    void WriteFile(const std::string& text) const { std::ofstream(m_file, std::ios::binary) << text; }
    std::string ReadFile() const {
        std::ifstream file(m_file, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::wstring Letters() { return Joined(m_lists.Read(UserPopupLitera).texts); }

    std::filesystem::path m_folder;
    std::filesystem::path m_file = m_folder / "settings/lists.txt";
    UserLists m_lists{QString::fromStdString(m_file.string())};
    platform::UserListsSlot m_slot{m_lists};
};

TEST_F(UserListsTest, BeginAsTheProgramsOwnAndKeepAllElseOfTheFile) {
    EXPECT_EQ(Letters().substr(0, 6), L"A|B|C|");
    EXPECT_TRUE(m_lists.Read(UserPopupParticipant).texts.empty());
    EXPECT_TRUE(m_lists.Write(UserPopupParticipant, {L"#1", L"[x]", L"\\y", L"Zoë"}).IsEmpty());
    EXPECT_EQ(Joined(m_lists.Read(UserPopupParticipant).texts), L"#1|[x]|\\y|Zoë|");
    EXPECT_TRUE(m_lists.Read(UserPopupLitera).isStandard);

    WriteFile("# mine\r\n[Revision Letters]\n# of ours\n B \n\nA\nB\n[later]\nkept\n");
    EXPECT_EQ(Letters(), L"B|A|");
    EXPECT_TRUE(m_lists.Write(UserPopupLitera, {L"C"}).IsEmpty());
    EXPECT_EQ(ReadFile(), "# mine\r\n[Revision Letters]\n# of ours\nC\n\n[later]\nkept\n");
    WriteFile("[revision letters]\n");
    EXPECT_EQ(Letters(), L"");
}

TEST_F(UserListsTest, ThatCantBeReadAreToldOfAndNotWrittenOver) {
    std::string many = "[people]\n";
    for (int i = 0; i <= desktop::c_mostListTexts; ++i)
        many += std::to_string(i) + "\n";
    const std::pair<std::string, const wchar_t*> cases[] = {
        {"[people]\nZo\xEB\n", L": it is no UTF-8 text"},
        {many, L": line 502: a list holds at most 500 texts"},
        {std::string(1'000'001, '\n'), L": it is too large"},
    };
    m_lists.Write(UserPopupParticipant, {});
    for (const auto& [text, reason] : cases) {
        WriteFile(text);
        const std::wstring fault = m_lists.Read(UserPopupParticipant).fault.Str();
        EXPECT_TRUE(fault.ends_with(reason)) << QString::fromStdWString(fault).toStdString();
    }
    WriteFile(cases[0].first);
    QString told;
    EXPECT_FALSE(FillUserPopupMenu(UserPopupParticipant, new platform::MemoryMenu));
    m_lists.SetListener([&](const QString& fault) { told = fault; });
    EXPECT_TRUE(told.contains("lists.txt can't be read"));
    EXPECT_FALSE(m_lists.Write(UserPopupParticipant, {L"A"}).IsEmpty());
    EXPECT_EQ(ReadFile(), cases[0].first);
}

TEST_F(UserListsTest, FillTheSameMenusAgainAndTheirFirstEntryStays) {
    const boost::intrusive_ptr<IMenuItems> menu(new platform::MemoryMenu);
    ASSERT_TRUE(FillUserPopupMenu(UserPopupLitera, menu));
    EXPECT_EQ(platform::FindUserList(*menu), UserPopupLitera);
    EXPECT_EQ(platform::FindUserList(platform::MemoryMenu()), std::nullopt);
    MenuAction action;
    action.source = L"library";
    menu->SetAction(0, action);
    m_lists.Write(UserPopupLitera, {L"P", L"Q"});
    SharedText text;
    GetStringFromPopupMenu(text, 1, UserPopupLitera);
    EXPECT_EQ(text.Str(), L"A") << "what the menu still shows";

    platform::RefillUserPopupMenus(UserPopupLitera);
    ASSERT_EQ(menu->GetEntryCount(), 3U);
    EXPECT_EQ(menu->GetEntry(0).text.Str(), L"Edit list...");
    EXPECT_EQ(menu->GetEntry(0).action, action);
    EXPECT_EQ(menu->GetEntry(2).text.Str(), L"Q");
    SArray<int> commands;
    GetCommandArrayFromPopupMenu(commands, UserPopupLitera);
    EXPECT_EQ(std::vector<int>(commands.begin(), commands.end()), (std::vector<int>{1, 2}));
    GetStringFromPopupMenu(text, 2, UserPopupLitera);
    EXPECT_EQ(text.Str(), L"Q");
    WriteFile("\xFF");
    platform::RefillUserPopupMenus(UserPopupLitera);
    EXPECT_EQ(menu->GetEntryCount(), 3U);
}

class UserListDialogTest : public UserListsTest {
protected:
    void Open() {
        m_dialog = std::make_unique<UserListDialog>(m_lists, UserPopupLitera);
        m_dialog->show();
        m_dialog->activateWindow();
        QApplication::processEvents();
    }
    /// To whatever has the keys.
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        // An editor closes in one round and is taken over in the next.
        QApplication::processEvents();
        QApplication::processEvents();
    }
    static void Type(const QString& text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        Press(Qt::Key_Return);
    }
    static void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        Press(Qt::Key_V, Qt::ControlModifier);
    }
    QString Texts() const {
        auto* const list = m_dialog->findChild<QListWidget*>();
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts += list->item(i)->text();
        return texts.join('|');
    }
    QString Note() const { return m_dialog->findChild<QLabel*>()->text(); }

    std::unique_ptr<UserListDialog> m_dialog;
};

TEST_F(UserListDialogTest, EditsTheListByKeysAndUsesATextOfIt) {
    m_lists.Write(UserPopupLitera, {L"A", L"B"});
    Open();
    Press(Qt::Key_Insert);
    Type(" new  one ");
    EXPECT_EQ(Texts(), "A|new one|B");
    EXPECT_TRUE(m_dialog->isVisible());
    Press(Qt::Key_Down, Qt::AltModifier);
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    Press(Qt::Key_F2);
    Type("C");
    EXPECT_EQ(Texts(), "C|new one");
    Press(Qt::Key_Insert);
    Type("C");
    EXPECT_EQ(Note(), "C is in the list already");
    Press(Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    Type("");
    EXPECT_TRUE(Note().startsWith("An empty text"));
    EXPECT_EQ(Texts(), "C|new one");
    EXPECT_EQ(Letters(), L"A|B|");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_dialog->GetChoice(), std::optional(SharedText(L"C")));
    EXPECT_EQ(Letters(), L"C|new one|");
    Open();
    Press(Qt::Key_Delete);
    Press(Qt::Key_Escape);
    EXPECT_EQ(m_dialog->result(), QDialog::Rejected);
    EXPECT_EQ(Letters(), L"C|new one|");
}

TEST_F(UserListDialogTest, TakesPastedLinesAndSaysWhatItLeavesOut) {
    m_lists.Write(UserPopupLitera, {L"A", L"B"});
    Open();
    Paste("\r\nD\r\n  \nA\nE\tF\n" + QString(201, 'x'));
    EXPECT_EQ(Texts(), "A|D|E F|B");
    EXPECT_EQ(Note(), "1 of the lines are in the list already. "
                      "1 of the lines have more than 200 characters and are left out");
    QStringList lines;
    for (int i = 0; i < 100'000; ++i)
        lines += QString::number(i);
    Paste(lines.join('\n'));
    EXPECT_EQ(Note(), "99504 of the lines are left out: a list holds at most 500 texts");
}

TEST_F(UserListDialogTest, LosesNothingThatOthersWriteMeanwhile) {
    m_lists.Write(UserPopupLitera, {L"A", L"B"});
    Open();
    Press(Qt::Key_Delete);
    WriteFile("[revision letters]\nA\nB\nC\n");
    m_dialog->accept();
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(Note().startsWith("Somebody else has changed the list"));
    EXPECT_EQ(Texts(), "B|C");
    m_dialog->accept();
    EXPECT_EQ(Letters(), L"B|C|");
    Open();
    Press(Qt::Key_Delete);
    std::filesystem::remove_all(m_folder);
    std::ofstream(m_folder) << "no folder";
    m_dialog->accept();
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(Note().contains("can't be made"));
    std::filesystem::remove(m_folder);
    m_dialog->accept();
    EXPECT_EQ(Letters(), L"C|");
}

TEST_F(UserListDialogTest, GivesTheCommandOfWhatWasPickedInTheMenu) {
    const boost::intrusive_ptr<IMenuItems> menu(new platform::MemoryMenu);
    ASSERT_TRUE(FillUserPopupMenu(UserPopupLitera, menu));
    QTimer::singleShot(0, [] {
        QApplication::activeModalWidget()->activateWindow();
        QApplication::processEvents();
        Paste("A1");
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(desktop::ChooseFromUserList(nullptr, UserPopupLitera), 2);
    EXPECT_EQ(menu->GetEntry(2).text.Str(), L"A1");
}

} // namespace

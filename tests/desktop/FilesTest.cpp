#include "desktop/store/ProductFile.h"
#include "desktop/window/WindowMemory.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <fstream>

namespace {

namespace store = desktop::store;

platform::ProductModel Gearbox(const std::wstring& part = L"Case") {
    return support::Product().Root(L"Gearbox").Columns({L"note"}).Object("case", part).Section(20, L"Parts").Uses();
}

/// A product file in a folder of its own, open in the window.
class FilesTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        std::filesystem::create_directories(m_folder);
        ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox()));
        Show(Gearbox(), nullptr, m_file);
        Tree().expandAll();
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    void Rename(const QString& name) {
        Tree().model()->setData(At({0, 0}), name, Qt::EditRole);
        QApplication::processEvents();
    }
    std::wstring NameInFile(const std::filesystem::path& path) {
        auto read = store::ReadProductFile(path);
        const auto* model = std::get_if<platform::ProductModel>(&read);
        return model ? model->objects[0].name.Str() : L"no product";
    }
    void WaitForName(const QString& name) {
        while (TextAt({0, 0}, 0) != name)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    std::filesystem::path m_folder = support::GetTestFolder();
    std::filesystem::path m_file = m_folder / "gear.json";
};

TEST_F(FilesTest, WhatIsSavedIsNoLongerModifiedUntilItIsUndone) {
    EXPECT_FALSE(Action("Save")->isEnabled());
    Rename("Housing");
    EXPECT_TRUE(m_window->isWindowModified());
    Trigger("Save");
    EXPECT_EQ(NameInFile(m_file), L"Housing");
    EXPECT_FALSE(m_window->isWindowModified());
    Trigger("Undo");
    EXPECT_TRUE(m_window->isWindowModified());
    Trigger("Redo");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(FilesTest, SaveAsMakesTheNewFileTheOpenOne) {
    Rename("Housing");
    m_decisions->ChooseNext(m_folder / "other.json");
    Trigger("Save As");
    ASSERT_EQ(m_decisions->GetFileRequests().size(), 1U);
    EXPECT_EQ(m_decisions->GetFileRequests()[0].start, m_file);
    EXPECT_TRUE(m_decisions->GetFileRequests()[0].forWriting);
    EXPECT_EQ(NameInFile(m_folder / "other.json"), L"Housing");
    EXPECT_EQ(NameInFile(m_file), L"Case");
    EXPECT_TRUE(ShowsText("other.json"));
}

TEST_F(FilesTest, AFileThatCannotBeSavedIsToldOf) {
    Rename("Housing");
    m_decisions->ChooseNext(m_folder / "no" / "such.json");
    Trigger("Save As");
    ASSERT_EQ(m_decisions->GetMessages().size(), 1U);
    EXPECT_EQ(m_decisions->GetMessages()[0].Str().find(L'\n'), std::wstring::npos);
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_TRUE(ShowsText("gear.json"));
}

TEST_F(FilesTest, AFileThatIsGoneIsToBeSavedAgain) {
    std::filesystem::remove(m_file);
    WaitForText("gear.json was deleted or renamed by another program; Save writes it again");
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_FALSE(m_window->close()) << "closing asks";
    Trigger("Save");
    EXPECT_EQ(NameInFile(m_file), L"Case");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(FilesTest, AProductWithoutAFileIsSavedWhereTheUserSays) {
    auto opened = desktop::OpenDocument(m_file, {});
    m_window->Show(
        std::make_unique<desktop::Session>(desktop::MakeUnnamed(std::get<desktop::Document>(std::move(opened)))));
    EXPECT_TRUE(ShowsText("Unnamed"));
    std::ofstream(m_folder / "notes.txt") << "notes";
    m_decisions->ChooseNext(m_folder / "notes.txt");
    m_decisions->ChooseNext(m_folder / "copy");
    Trigger("Save");
    EXPECT_EQ(m_decisions->GetMessages().size(), 1U) << "notes are not written over";
    EXPECT_EQ(NameInFile(m_folder / "copy.json"), L"Case");
    EXPECT_TRUE(ShowsText("Saved as copy.json"));
    Rename("Lid");
    EXPECT_FALSE(ShowsText("Saved as copy.json"));
}

TEST_F(FilesTest, LeavingUnsavedChangesAsks) {
    constexpr std::size_t save = 0, discard = 1, cancel = 2;
    const struct {
        std::optional<std::size_t> answer;
        bool isLeft;
        const wchar_t* inFile;
    } cases[] = {
        {std::nullopt, false, L"Case"},
        {cancel, false, L"Case"},
        {discard, true, L"Case"},
        {save, true, L"Housing"},
    };
    for (const auto& leaving : cases) {
        m_window->show();
        if (!m_window->isWindowModified())
            Rename("Housing");
        m_decisions->AnswerNext(leaving.answer);
        EXPECT_EQ(m_window->close(), leaving.isLeft);
        EXPECT_EQ(NameInFile(m_file), leaving.inFile);
    }
    EXPECT_EQ(m_decisions->GetQuestions().size(), std::size(cases));
    EXPECT_TRUE(m_window->close());
    EXPECT_EQ(m_decisions->GetQuestions().size(), std::size(cases));
}

TEST_F(FilesTest, OpeningAnotherFileAsksToo) {
    Rename("Housing");
    m_window->OpenFile(PRODUCT_TREE_SOURCES "/samples/reducer.json", {});
    EXPECT_EQ(m_decisions->GetQuestions().size(), 1U);
    EXPECT_EQ(TextAt({0, 0}, 0), "Housing");
}

TEST_F(FilesTest, AFileChangedByAnotherProgramIsReadAgain) {
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"First")));
    WaitForName("First");
    EXPECT_TRUE(Tree().isExpanded(At({0})));
    EXPECT_TRUE(m_decisions->GetQuestions().empty());
    // A file that took the place of the watched one is watched in turn.
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"Another one")));
    WaitForName("Another one");
}

TEST_F(FilesTest, AHalfTypedTextOutlivesAFileThatOthersChange) {
    Tree().setCurrentIndex(At({0, 0}));
    Tree().edit(At({0, 0}));
    Type("Half");
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"Theirs")));
    QTest::qWait(400);
    auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text(), "Half");
    EXPECT_EQ(NameInFile(m_file), L"Theirs");
    Press(Qt::Key_Escape);
    WaitForName("Theirs");
}

TEST_F(FilesTest, AFileIsShownAsItWasLeftAndNothingOfThatStandsInIt) {
    const QString settings = QString::fromStdString((m_folder / "window.ini").string());
    const auto mark = desktop::FileMark::Take(m_file);
    m_window->RememberIn(std::make_unique<desktop::WindowMemory>(settings));
    m_window->TakeUpView();
    EXPECT_TRUE(Tree().isExpanded(At({0}))) << "never seen before: its sections are unfolded";
    Tree().collapse(At({0}));
    Tree().header()->resizeSection(Column("Note"), 321);
    ASSERT_TRUE(m_window->close());
    EXPECT_EQ(desktop::FileMark::Take(m_file), mark);

    Show(Gearbox(), nullptr, m_file);
    m_window->RememberIn(std::make_unique<desktop::WindowMemory>(settings));
    m_window->TakeUpView();
    QApplication::processEvents();
    EXPECT_FALSE(Tree().isExpanded(At({0})));
    EXPECT_TRUE(Tree().isExpanded(At({})));
    EXPECT_EQ(Tree().header()->sectionSize(Column("Note")), 321);
}

TEST_F(FilesTest, AnInvalidFileIsToldOfInOneLineAndTheProductStays) {
    std::ofstream(m_file) << "{";
    const auto isTold = [&] {
        const auto labels = m_window->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [](QLabel* label) {
            return label->text().startsWith("gear.json was changed by another program and can't be read: line 1") &&
                   !label->text().contains('\n');
        });
    };
    while (!isTold())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(TextAt({0, 0}, 0), "Case");
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"Mended")));
    WaitForName("Mended");
}

TEST_F(FilesTest, UnsavedChangesAreNotLostToAnotherProgramWithoutConsent) {
    constexpr std::size_t keep = 0, readAgain = 1;
    Rename("Mine");
    m_decisions->AnswerNext(keep);
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"Theirs")));
    while (m_decisions->GetQuestions().empty())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(TextAt({0, 0}, 0), "Mine");
    m_decisions->AnswerNext(readAgain);
    ASSERT_FALSE(store::WriteProductFile(m_file, Gearbox(L"Theirs again")));
    WaitForName("Theirs again");
    EXPECT_FALSE(m_window->isWindowModified());
}

} // namespace

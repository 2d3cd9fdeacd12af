// What a user sees of the STEP file that his product came from.
#include "tests/desktop/WindowFixture.h"
#include "tests/import/StepFileText.h"
#include "tests/support/TestFolder.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QPointer>
#include <QTest>
#include <QTextBrowser>

#include <fstream>

namespace {

constexpr const char* c_update = "Update all";

/// A car with so many wheels, and a lamp where it has one.
std::string Car(int wheels, const char* wheelName = "wheel", bool hasLamp = true) {
    tests::StepFileText file;
    const int car = file.AddProduct("C-1", "car");
    const int wheel = file.AddPart("W-1", wheelName);
    for (int i = 0; i < wheels; ++i)
        file.AddUse(car, wheel);
    if (hasLamp)
        file.AddUse(car, file.AddPart("L-1", "lamp"));
    return file.Text();
}

class SourcesTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        std::filesystem::create_directories(m_folder);
        Write(Car(2));
        Open(m_step);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    void Write(const std::string& text) { std::ofstream(m_step) << text; }
    void Open(const std::filesystem::path& path) {
        m_window->OpenFile(path, {});
        m_window->show();
        Trigger("Expand all");
    }
    void Rename(const QString& name, const QString& other) {
        Tree().model()->setData(Find(name), other, Qt::EditRole);
        QApplication::processEvents();
    }
    QModelIndexList FindAll(const QString& name) const {
        const QAbstractItemModel& model = *Tree().model();
        return model.match(model.index(0, 0), Qt::DisplayRole, name, -1, Qt::MatchExactly | Qt::MatchRecursive);
    }
    QModelIndex Find(const QString& name) const { return FindAll(name).value(0); }
    qsizetype CountRows(const QString& name) const { return FindAll(name).size(); }

    std::filesystem::path m_folder = support::GetTestFolder();
    std::filesystem::path m_step = m_folder / "car.step";
    std::filesystem::path m_product = m_folder / "car.json";
};

TEST_F(SourcesTest, AreFollowedAndKeepWhatTheUserHasEdited) {
    EXPECT_FALSE(Action(c_update)->isEnabled());
    Rename("lamp", "Headlight");
    m_decisions->ChooseNext(m_product);
    Trigger("Save");
    Write(Car(4, "disc wheel"));
    WaitForText("car.step has changed; Update all brings its parts up to date");
    EXPECT_TRUE(Action(c_update)->isEnabled());
    EXPECT_FALSE(m_window->isWindowModified()) << "the file on disk is no change of the product";
    Trigger(c_update);
    EXPECT_EQ(CountRows("disc wheel"), 4);
    EXPECT_TRUE(Find("Headlight").isValid());
    EXPECT_FALSE(Action(c_update)->isEnabled());
    EXPECT_TRUE(ShowsText("car.step was read again: 1 part changed; Undo brings back what was here"));

    Trigger("Undo");
    EXPECT_EQ(CountRows("wheel"), 2);
    EXPECT_TRUE(Action(c_update)->isEnabled());
    Trigger("Redo");
    Trigger("Save");
    EXPECT_FALSE(m_window->isWindowModified());
    Open(m_product);
    EXPECT_EQ(CountRows("disc wheel"), 4);
    EXPECT_FALSE(Action(c_update)->isEnabled());
}

TEST_F(SourcesTest, ThatChangeBackAreUpToDateAgain) {
    Write(Car(3));
    WaitForText("car.step has changed; Update all brings its parts up to date");
    Write(Car(2));
    WaitForText("car.step is as it was read");
    EXPECT_FALSE(Action(c_update)->isEnabled());
    std::filesystem::remove(m_step);
    WaitForText("car.step, from which the product was made, can't be found");
    EXPECT_EQ(CountRows("wheel"), 2);
    EXPECT_FALSE(Action(c_update)->isEnabled());
}

TEST_F(SourcesTest, ThatChangedWhileTheProductWasClosedAreNoticedWhenItIsOpened) {
    m_decisions->ChooseNext(m_product);
    Trigger("Save");
    m_window->OpenFile(PRODUCT_TREE_SOURCES "/samples/reducer.json", {});
    Write(Car(2, "wheel", false));
    Open(m_product);
    EXPECT_TRUE(Action(c_update)->isEnabled());
    m_decisions->AnswerNext(std::nullopt);
    Trigger(c_update);
    ASSERT_EQ(m_decisions->GetQuestions().size(), 1U);
    EXPECT_TRUE(Find("lamp").isValid());
    EXPECT_FALSE(Action("Undo")->isEnabled());
    // The file goes while the question waits for the next attempt.
    std::filesystem::remove(m_step);
    Trigger(c_update);
    EXPECT_EQ(m_decisions->GetMessages().back().Str(), L"no such file");
    EXPECT_TRUE(Find("lamp").isValid());
}

TEST_F(SourcesTest, AreFollowedInEachViewOfTheProduct) {
    const QPointer<desktop::MainWindow> second = m_window->OpenView();
    const auto& other = *second->findChild<desktop::PanelTree*>();
    Write(Car(3));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Action(c_update)->isEnabled(); }, 60000)) << "told to one, seen in all";
    Trigger(c_update);
    const auto wheels = [](const QAbstractItemModel& model) {
        return model.match(model.index(0, 0), Qt::DisplayRole, "wheel", -1, Qt::MatchExactly | Qt::MatchRecursive)
            .size();
    };
    EXPECT_EQ(wheels(*other.model()), 3);
    Trigger("Undo");
    EXPECT_EQ(wheels(*other.model()), 2);
    EXPECT_TRUE(Action(c_update)->isEnabled());
    second->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Trigger("Redo");
    EXPECT_EQ(CountRows("wheel"), 3);
}

TEST_F(SourcesTest, WaitForAnOpenEditor) {
    Tree().setCurrentIndex(Find("lamp"));
    Press(Qt::Key_F2);
    Type("Half");
    Write(Car(3));
    QTest::qWait(400);
    EXPECT_FALSE(Action(c_update)->isEnabled());
    Press(Qt::Key_Escape);
    WaitForText("car.step has changed; Update all brings its parts up to date");
}

TEST_F(SourcesTest, AreOpenedInTheDesktopsProgram) {
    // Stands for the desktop's program.
    QTextBrowser program;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &program, "setSource");
    desktop::SourceDesk desk([] {}, [](const platform::SourceUpdate&) {});
    EXPECT_TRUE(desk.OpenFile(m_step));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    EXPECT_EQ(program.source().toLocalFile().toStdString(), m_step.string());
}

} // namespace

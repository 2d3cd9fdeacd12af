#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

using desktop::step::MeasuredParts;
using desktop::step::Measures;
using desktop::step::Measuring;
using desktop::step::StepDocument;

platform::ProductModel SmallProduct() { return window_tests::SmallGearbox(2); }

/// Measures one part, once the test lets it.
class SlowMeasuring final : public Measuring {
public:
    SlowMeasuring() : m_event(eventfd(0, EFD_NONBLOCK)) { ++s_running; }
    ~SlowMeasuring() override {
        close(m_event);
        --s_running;
    }

    int GetDescriptor() const override { return m_event; }
    bool Advance() override {
        eventfd_t count = 0;
        return eventfd_read(m_event, &count) != 0;
    }
    double GetShareDone() const override { return 0.5; }
    Measures GetMeasures() const override { return {{{support::Key("case"), 0.5}}}; }

    void LetEnd() { eventfd_write(m_event, 1); }

    static inline int s_running = 0;

private:
    int m_event;
};

class SlowDocument final : public StepDocument {
public:
    const platform::ProductModel& GetModel() const override { return m_model; }
    const std::vector<std::string>& GetNotes() const override { return m_notes; }
    const std::vector<std::string>& GetForeignTexts() const override { return m_texts; }
    const std::string& GetEncoding() const override { return m_encoding; }
    std::optional<std::wstring> Decode(const std::string&, const std::string&) const override { return std::nullopt; }
    std::unique_ptr<Measuring> StartMeasuring(MeasuredParts, const UniqueMetaObjectKey&) override {
        auto measuring = std::make_unique<SlowMeasuring>();
        m_measuring = measuring.get();
        return measuring;
    }

    std::variant<desktop::step::LineDrawing, desktop::FileError> Draw(const UniqueMetaObjectKey&) override {
        return desktop::step::LineDrawing{};
    }

    SlowMeasuring& GetMeasuring() { return *m_measuring; }

private:
    platform::ProductModel m_model = SmallProduct();
    std::vector<std::string> m_notes, m_texts;
    std::string m_encoding;
    SlowMeasuring* m_measuring = nullptr;
};

class MainWindowTest : public window_tests::WindowFixture {
protected:
    platform::TreeTableView& Show() { return WindowFixture::Show(SmallProduct()); }

    SlowMeasuring& StartSlowMasses() {
        auto step = std::make_unique<SlowDocument>();
        SlowDocument& document = *step;
        m_view = &WindowFixture::Show(SmallProduct(), std::move(step), "small.step");
        m_window->StartMasses();
        return document.GetMeasuring();
    }

    platform::TreeTableView* m_view = nullptr;
};

TEST_F(MainWindowTest, ShowsWhatTheViewSaysIsExpanded) {
    Show();
    EXPECT_TRUE(Tree().isExpanded(At({})));
    EXPECT_FALSE(Tree().isExpanded(At({0})));
    EXPECT_TRUE(Tree().isFirstColumnSpanned(0, At({})));
    EXPECT_FALSE(Tree().isFirstColumnSpanned(0, At({0})));
    EXPECT_TRUE(ShowsText("6 rows"));
}

TEST_F(MainWindowTest, WhatTheUserDoesReachesTheView) {
    platform::TreeTableView& view = Show();
    Tree().expand(At({0}));
    Tree().setCurrentIndex(At({0, 0}));
    EXPECT_EQ(support::DumpView(view, {.expandedOnly = true, .selection = true}),
              "Gearbox [Parts (x3) [>>Case | Pin (x2)+]]");
    Tree().header()->resizeSection(1, 222);
    EXPECT_EQ(view.GetMarkingColumnWidth(), 222);
}

TEST_F(MainWindowTest, ExpandsAndCollapsesAll) {
    platform::TreeTableView& view = Show();
    Trigger("Expand all");
    EXPECT_TRUE(Tree().isExpanded(At({0, 1})));
    Trigger("Collapse all");
    EXPECT_TRUE(Tree().isExpanded(At({})));
    EXPECT_FALSE(Tree().isExpanded(At({0})));
    EXPECT_EQ(support::DumpView(view, {.expandedOnly = true}), "Gearbox [Parts (x3)+]");
}

// Two screws, one of them in both embodiments, and two drawings that are there or not.
platform::ProductModel ProductOfEmbodiments() {
    return support::Product()
        .Root(L"Gearbox", L"AB.1")
        .NoSectionRows()
        .Columns({L"count"})
        .Embodiment("e", L"01")
        .Embodiment("f", L"02")
        .ActiveEmbodiment("f")
        .Object("screw", L"Screw", L"1")
        .Uses()
        .Uses()
        .In({"e"})
        .Object("sheet", L"Sheet", L"2")
        .CountMark()
        .Uses()
        .CountMark()
        .Uses()
        .CountMark()
        .In({"e"});
}

TEST_F(MainWindowTest, EmbodimentsAreCountedInColumnsOfTheirOwn) {
    Show();
    EXPECT_FALSE(Action("Counts of All Embodiments")->isEnabled());
    WindowFixture::Show(ProductOfEmbodiments());
    EXPECT_EQ(TextAt({0}, Column("Count")), "2");
    const auto tip = [&](const QModelIndex& index) { return index.data(Qt::ToolTipRole).toString().section('\n', -1); };
    // What the status line says afterwards is told before.
    for (const QModelIndex& cell : {At({0}, Column("Count")), At({0, 0}, Column("Count"))}) {
        EXPECT_TRUE(tip(cell).startsWith("A count that is typed here stands in embodiment"));
        const QString name = tip(cell).section(' ', -1);
        Tree().setCurrentIndex(cell);
        Press(Qt::Key_F2);
        Type("7");
        Press(Qt::Key_Return);
        EXPECT_EQ(m_window->statusBar()->currentMessage(), "Count in embodiment " + name);
        Trigger("Undo");
    }
    Trigger("Counts of All Embodiments");
    QApplication::processEvents();
    EXPECT_TRUE(Action("Counts of All Embodiments")->isChecked());
    EXPECT_EQ(Column("Count"), -1);
    const int last = Column("-02");
    EXPECT_EQ(TextAt({0}, Column("-01")), "2");
    EXPECT_EQ(TextAt({0}, last), "1");
    EXPECT_EQ(Tree().model()->headerData(last, Qt::Horizontal, Qt::ToolTipRole).toString(), "Count for embodiment -02");
    EXPECT_TRUE(Tree().model()->headerData(last, Qt::Horizontal, Qt::FontRole).isValid());
    EXPECT_FALSE(Tree().model()->headerData(Column("-01"), Qt::Horizontal, Qt::FontRole).isValid());

    const auto box = [&] { return At({1}, last).data(Qt::CheckStateRole).toInt(); };
    EXPECT_EQ(box(), Qt::PartiallyChecked);
    Tree().setCurrentIndex(At({1}, last));
    Shoot("embodiments");
    for (const int state : {Qt::Checked, Qt::Unchecked, Qt::Checked}) {
        Press(Qt::Key_Space);
        QApplication::processEvents();
        EXPECT_EQ(box(), state);
    }
    Trigger("Undo");
    Trigger("Undo");
    Trigger("Undo");
    EXPECT_EQ(box(), Qt::PartiallyChecked);
    Trigger("Counts of All Embodiments");
    QApplication::processEvents();
    EXPECT_NE(Column("Count"), -1);
}

TEST_F(MainWindowTest, AFileThatCannotBeOpenedIsToldOfAndTheProductStays) {
    Show();
    m_window->OpenFile("missing.step", {});
    ASSERT_EQ(m_decisions->GetMessages().size(), 1U);
    EXPECT_EQ(m_decisions->GetMessages()[0].Str(), L"missing.step: no such file");
    EXPECT_EQ(At({}).data().toString(), "Gearbox");
}

TEST_F(MainWindowTest, AChosenFileTakesThePlaceOfTheProduct) {
    Show();
    m_decisions->ChooseNext(std::filesystem::path(PRODUCT_TREE_SOURCES "/samples/reducer.json"));
    Trigger("Open...");
    EXPECT_TRUE(m_decisions->GetMessages().empty());
    EXPECT_NE(At({}).data().toString(), "Gearbox");
    EXPECT_TRUE(ShowsText("reducer.json"));
}

TEST_F(MainWindowTest, MassesEnterTheProductAndTheUsersViewOfItStays) {
    SlowMeasuring& measuring = StartSlowMasses();
    Tree().expand(At({0}));
    Tree().setCurrentIndex(At({0, 1}));
    measuring.LetEnd();
    WaitForText("1 part measured");
    QApplication::processEvents();
    EXPECT_TRUE(Tree().isExpanded(At({0})));
    EXPECT_EQ(Tree().currentIndex(), At({0, 1}));
    EXPECT_EQ(support::DumpView(*m_view, {.expandedOnly = true, .selection = true}),
              "Gearbox [Parts (x3) [Case | >>Pin (x2)+]]");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_FALSE(Action("Undo")->isEnabled());
}

TEST_F(MainWindowTest, MassesWaitForAnOpenEditor) {
    SlowMeasuring& measuring = StartSlowMasses();
    Tree().expandAll();
    const QModelIndex cell = At({0, 0});
    Tree().setCurrentIndex(cell);
    Tree().edit(cell);
    Type("Lid");
    measuring.LetEnd();
    WaitForText("1 part measured");
    QApplication::processEvents();
    auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text(), "Lid");
    EXPECT_FALSE(m_window->isWindowModified());
    Press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(TextAt({0, 0}, 0), "Lid");
}

TEST_F(MainWindowTest, MassesCanBeCancelled) {
    StartSlowMasses();
    for (QToolButton* button : m_window->findChildren<QToolButton*>()) {
        if (button->text() == "Cancel")
            button->click();
    }
    EXPECT_TRUE(ShowsText("Measuring cancelled"));
    EXPECT_EQ(SlowMeasuring::s_running, 0);
}

TEST_F(MainWindowTest, ClosingAndOpeningInTheMiddleOfMassesIsSafe) {
    StartSlowMasses();
    EXPECT_EQ(SlowMeasuring::s_running, 1);
    m_window->OpenFile(PRODUCT_TREE_SOURCES "/samples/reducer.json", {});
    EXPECT_EQ(SlowMeasuring::s_running, 0);
    StartSlowMasses();
    m_window->close();
    m_window.reset();
    EXPECT_EQ(SlowMeasuring::s_running, 0);
    QApplication::processEvents();
}

TEST_F(MainWindowTest, MassesGoOnAfterAFileThatCannotBeOpened) {
    StartSlowMasses();
    m_window->OpenFile("missing.step", {});
    EXPECT_TRUE(ShowsText("Measuring parts"));
}

} // namespace

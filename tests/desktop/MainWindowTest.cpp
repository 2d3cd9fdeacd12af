#include "desktop/window/MainWindow.h"
#include "desktop/window/MassJob.h"
#include "desktop/window/PanelTree.h"
#include "platform/view/TreeTableView.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/ViewDump.h"

#include <QApplication>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <semaphore>

namespace {

using desktop::import::Progress;
using desktop::import::StepDocument;

platform::ProductModel SmallProduct() {
    return support::Product()
        .Root(L"Gearbox")
        .Object("case")
        .Name(L"Case")
        .Section(20, L"Parts")
        .Uses()
        .Object("pin")
        .Name(L"Pin")
        .Designation(L"AB.7")
        .Section(20, L"Parts")
        .Uses(2);
}

/// A document whose masses take until the test lets them go, or until they are cancelled.
class SlowDocument final : public StepDocument {
public:
    const platform::ProductModel& GetModel() const override { return m_model; }
    const std::vector<std::string>& GetNotes() const override { return m_notes; }
    Masses ComputeMasses(const Progress& progress) override {
        m_started.release();
        while (!m_mayEnd.try_acquire()) {
            if (!progress(0.5)) {
                ++s_cancelled;
                return {};
            }
            std::this_thread::yield();
        }
        return {{support::Key("case"), 12.5}};
    }

    void WaitForStart() { m_started.acquire(); }
    void LetEnd() { m_mayEnd.release(); }

    static inline std::atomic<int> s_cancelled = 0;

private:
    platform::ProductModel m_model = SmallProduct();
    std::vector<std::string> m_notes;
    std::binary_semaphore m_started{0};
    std::binary_semaphore m_mayEnd{0};
};

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        auto decisions = std::make_unique<platform::ScriptedDecisions>();
        m_decisions = decisions.get();
        m_window = std::make_unique<desktop::MainWindow>(std::move(decisions));
    }

    platform::TreeTableView& Show(std::unique_ptr<StepDocument> step = nullptr) {
        desktop::Document document;
        document.path = "small.json";
        document.model = SmallProduct();
        document.step = std::move(step);
        auto session = std::make_unique<desktop::Session>(std::move(document));
        platform::TreeTableView& view = session->GetView();
        m_window->Show(std::move(session));
        m_window->show();
        QApplication::processEvents();
        return view;
    }

    SlowDocument& StartSlowMasses() {
        auto step = std::make_unique<SlowDocument>();
        SlowDocument& document = *step;
        m_view = &Show(std::move(step));
        m_window->StartMasses();
        document.WaitForStart();
        return document;
    }

    desktop::PanelTree& Tree() { return *m_window->findChild<desktop::PanelTree*>(); }

    QModelIndex At(std::initializer_list<int> path) {
        QModelIndex index = Tree().model()->index(0, 0);
        for (const int row : path)
            index = Tree().model()->index(row, 0, index);
        return index;
    }

    void Trigger(const QString& text) {
        for (QAction* menu : m_window->menuBar()->actions()) {
            for (QAction* action : menu->menu()->actions()) {
                if (action->text().remove(QLatin1Char('&')) == text)
                    action->trigger();
            }
        }
        QApplication::processEvents();
    }

    bool ShowsText(const QString& text) {
        const auto labels = m_window->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](QLabel* label) { return label->text() == text; });
    }

    /// Handles events until the label shows the text.
    void WaitForText(const QString& text) {
        while (!ShowsText(text))
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    platform::ScriptedDecisions* m_decisions = nullptr;
    std::unique_ptr<desktop::MainWindow> m_window;
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
    SlowDocument& document = StartSlowMasses();
    Tree().expand(At({0}));
    Tree().setCurrentIndex(At({0, 1}));
    document.LetEnd();
    WaitForText("Masses of 1 part");
    QApplication::processEvents();
    EXPECT_TRUE(Tree().isExpanded(At({0})));
    EXPECT_EQ(Tree().currentIndex(), At({0, 1}));
    EXPECT_EQ(support::DumpView(*m_view, {.expandedOnly = true, .selection = true}),
              "Gearbox [Parts (x3) [Case | >>Pin (x2)+]]");
}

TEST_F(MainWindowTest, MassesCanBeCancelled) {
    StartSlowMasses();
    const int before = SlowDocument::s_cancelled;
    for (QToolButton* button : m_window->findChildren<QToolButton*>()) {
        if (button->text() == "Cancel")
            button->click();
    }
    WaitForText("Masses cancelled");
    EXPECT_EQ(SlowDocument::s_cancelled, before + 1);
}

TEST_F(MainWindowTest, ClosingAndOpeningInTheMiddleOfMassesIsSafe) {
    const int before = SlowDocument::s_cancelled;
    StartSlowMasses();
    m_window->OpenFile(PRODUCT_TREE_SOURCES "/samples/reducer.json", {});
    EXPECT_EQ(SlowDocument::s_cancelled, before + 1);
    StartSlowMasses();
    m_window->close();
    m_window.reset();
    EXPECT_EQ(SlowDocument::s_cancelled, before + 2);
    QApplication::processEvents();
}

TEST_F(MainWindowTest, MassesGoOnAfterAFileThatCannotBeOpened) {
    StartSlowMasses();
    m_window->OpenFile("missing.step", {});
    EXPECT_TRUE(ShowsText("Working out masses"));
}

} // namespace

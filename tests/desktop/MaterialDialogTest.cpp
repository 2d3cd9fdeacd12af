#include "desktop/books/MaterialDialog.h"
#include "desktop/books/MaterialBook.h"
#include "desktop/books/MaterialEntryDialog.h"
#include "desktop/editors/LocaleNumbers.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

using desktop::MaterialDialog;
using platform::MaterialRequest;

/// A part of a litre that is of some steel by now.
MaterialRequest Request() {
    MaterialRequest request;
    request.title = L"Material of Shaft";
    request.objectCount = 1;
    request.materialName = L"Some steel";
    request.density.value = 7.8;
    request.density.unit = L"g/cm3";
    request.density.coefficient = 0.001;
    request.density.max = 1000;
    request.mass.value = 7.8;
    request.mass.unit = L"kg";
    request.mass.max = 1000;
    request.volumes = MaterialRequest::Volumes::All;
    request.volume = 0.001;
    request.fromFile = {{L"Some steel", 7.8}};
    return request;
}

class MaterialDialogTest : public testing::Test {
protected:
    MaterialDialogTest() {
        std::filesystem::create_directories(m_folder);
        std::ofstream(m_folder / "materials.tsv")
            << "S235JR\tEN 10025-2\t7850\tMetals/Steels\nS355JR\tEN 10025-2\t7850\tMetals/Steels\n"
               "PA 6\t\t1140\tPlastics\nodd\n";
        m_book.emplace(QString::fromStdString((m_folder / "materials.tsv").string()));
        Open();
    }
    ~MaterialDialogTest() override {
        m_dialog.reset();
        std::filesystem::remove_all(m_folder);
    }
    void Open() {
        m_dialog.reset();
        m_dialog = std::make_unique<MaterialDialog>(m_request, *m_book);
        m_dialog->show();
        m_dialog->activateWindow();
        QApplication::processEvents();
    }
    /// Into whatever has the keys.
    static void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Material, density, mass.
    std::string Fields() const {
        const QList<QLineEdit*> edits = m_dialog->findChildren<QLineEdit*>();
        return (edits[1]->text() + '|' + edits[2]->text() + '|' + edits[3]->text()).toStdString();
    }
    bool Shows(const QString& text) const {
        const QList<QLabel*> labels = m_dialog->findChildren<QLabel*>();
        return std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->isVisible() && label->text().contains(text); });
    }

    std::filesystem::path m_folder = support::GetTestFolder();
    MaterialRequest m_request = Request();
    std::optional<desktop::MaterialBook> m_book;
    std::unique_ptr<MaterialDialog> m_dialog;
};

TEST_F(MaterialDialogTest, FindsBySeveralWordsAndTakesWithEnter) {
    EXPECT_EQ(Fields(), "Some steel|7.8|7.8");
    EXPECT_TRUE(Shows("line 4: ")) << "what was passed over";
    Type("steels 355");
    EXPECT_EQ(Fields(), "S355JR EN 10025-2|7.85|7.85");
    Press(Qt::Key_Return);
    ASSERT_EQ(m_dialog->result(), QDialog::Accepted);
    const platform::MaterialDecision decision = m_dialog->GetDecision();
    EXPECT_EQ(decision.name->Str(), L"S355JR EN 10025-2");
    EXPECT_EQ(decision.density, std::optional(std::optional(7.85)));
    EXPECT_FALSE(decision.mass) << "it follows";

    Open();
    EXPECT_FALSE(Shows("line 4: ")) << "told once";
    EXPECT_EQ(m_dialog->findChild<QTreeWidget*>()->topLevelItem(0)->child(0)->text(0), "S355JR");
    Press(Qt::Key_Return);
    const platform::MaterialDecision none = m_dialog->GetDecision();
    EXPECT_FALSE(none.name || none.density || none.mass) << "nothing was touched";
}

TEST_F(MaterialDialogTest, MarksWhatIsNoGoodAndStays) {
    Type("unobtainium");
    EXPECT_EQ(Fields(), "Some steel|7.8|7.8");
    Press(Qt::Key_Return);
    EXPECT_TRUE(Shows("No material is found for unobtainium"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("pa");
    Press(Qt::Key_S, Qt::AltModifier);
    for (const auto& [typed, reason] : {std::pair("heavy", "a number is expected"),
                                        {"-1", "0 or more is allowed"},
                                        {"1001", "1000 or less is allowed"}}) {
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(typed);
        Press(Qt::Key_Return);
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_TRUE(Shows(reason)) << reason;
    }
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(desktop::FormatNumber(1.5));
    Press(Qt::Key_Return);
    ASSERT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_dialog->GetDecision().name->Str(), L"PA 6");
    EXPECT_EQ(m_dialog->GetDecision().mass, std::optional(std::optional(1.5)));
}

TEST_F(MaterialDialogTest, AddsToTheUsersBookWithKeysAlone) {
    Type("pa");
    QTimer::singleShot(0, [] {
        auto* const entry = qobject_cast<desktop::MaterialEntryDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(entry);
        auto* const name = entry->findChild<QLineEdit*>();
        QTest::keyClick(name, Qt::Key_Return);
        EXPECT_TRUE(entry->isVisible()) << "it is in the book already";
        QTest::keyClick(name, Qt::Key_End);
        QTest::keyClicks(name, " black");
        QTest::keyClick(name, Qt::Key_Return);
        EXPECT_EQ(entry->result(), QDialog::Accepted);
        entry->done(entry->result());
    });
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Space);
    EXPECT_EQ(Fields(), "PA 6 black|1.14|1.14");
    EXPECT_EQ(m_book->GetMaterials().back().name, "PA 6 black");
}

using MaterialLinksTest = window_tests::WindowFixture;

TEST_F(MaterialLinksTest, LeadToTheDialogOrSayWhyNot) {
    const support::Product product =
        support::Product().Object("pin", L"Pin").Volume(0.001).Mass(1).Uses(2).Columns({L"mass"});
    const auto follow = [&] {
        Tree().expandAll();
        Tree().setCurrentIndex(At({0, 0}, Column("Mass, kg")));
        Press(Qt::Key_Return);
    };
    Show(product);
    m_decisions->ChooseNextMaterial(platform::MaterialDecision{{}, std::optional(7850.0), {}});
    follow();
    EXPECT_EQ(m_decisions->GetMaterialRequests().back().title.Str(), L"Material of Pin");
    EXPECT_EQ(TextAt({0, 0}, Column("Mass, kg")), "15.7") << "of both";
    EXPECT_TRUE(Action("Undo Density of Pin"));
    Show(support::Product(product).ReadOnly());
    follow();
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "Nothing was changed: the product can't be changed");
}

} // namespace

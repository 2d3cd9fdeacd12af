// The documents of a real assembly, from attaching them to finding them where the folder was moved
// to. Real assemblies stand outside the repository; without them the test is skipped.
#include "desktop/documents/DocumentList.h"
#include "desktop/documents/DocumentPane.h"
#include "desktop/preview/PictureView.h"
#include "desktop/preview/PreviewPane.h"
#include "desktop/preview/PreviewProcess.h"
#include "desktop/preview/PreviewService.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>

#include <cstdlib>
#include <fstream>

namespace {

/// A preview may wait for others on a machine that is busy.
constexpr int c_patience = 60'000;

const char* const c_part = "01_02_04-hopper_Standard";

class AssemblyDocumentsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        const char* const folder = std::getenv("PRODUCT_TREE_ASSEMBLIES");
        const std::filesystem::path assemblies = folder ? folder : PRODUCT_TREE_SOURCES "/../shared/assemblies";
        m_step = assemblies / "cubefactory_01_00_00-shredder_unit.STEP";
        if (!std::filesystem::exists(m_step))
            GTEST_SKIP() << "no assembly " << m_step;
        std::filesystem::create_directories(m_folder / "drawings");
        desktop::PreviewService::SetProgram(QStringLiteral(PRODUCT_TREE_PROGRAM));
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &m_program, "setSource");
    }
    void TearDown() override {
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        desktop::PreviewService::SetProgram({});
        std::filesystem::remove_all(m_top);
    }

    void Open(const std::filesystem::path& file) {
        desktop::step::StepOptions leaves;
        leaves.flatten = true;
        auto opened = desktop::OpenDocument(file, leaves);
        ASSERT_TRUE(std::holds_alternative<desktop::Document>(opened));
        m_window->Show(std::make_unique<desktop::Session>(std::get<desktop::Document>(std::move(opened))));
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Trigger("Expand all");
    }
    std::filesystem::path Write(const std::string& name, const std::string& content) const {
        std::ofstream(m_folder / name, std::ios::binary) << content;
        return m_folder / name;
    }
    std::filesystem::path WritePdf(const std::string& name) const {
        QPdfWriter writer(QString::fromStdString((m_folder / name).string()));
        writer.setPageSize(QPageSize(QPageSize::A3));
        writer.setPageOrientation(QPageLayout::Landscape);
        QPainter(&writer).drawRect(500, 500, 5000, 3000);
        return m_folder / name;
    }
    std::filesystem::path WriteImage(const std::string& name) const {
        QImage image(90, 60, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        image.save(QString::fromStdString((m_folder / name).string()));
        return m_folder / name;
    }
    void Drop(const std::filesystem::path& file) const {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window->findChild<desktop::DocumentPane*>(), &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_window->findChild<desktop::DocumentPane*>(), &drop);
        ProcessAll();
    }
    /// What comes in a queue is shown by another one.
    static void ProcessAll() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    void Select(const QString& part) const {
        const QAbstractItemModel& model = *Tree().model();
        const QModelIndexList found =
            model.match(model.index(0, 0), Qt::DisplayRole, part, 1, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << part.toStdString();
        Tree().setCurrentIndex(found[0]);
        ProcessAll();
    }
    desktop::DocumentList& List() const { return *m_window->findChild<desktop::DocumentList*>(); }
    /// The cells of that column, one document a line.
    std::string Listed(int column) const {
        std::string text;
        for (int row = 0; row < List().model()->rowCount(); ++row)
            text += List().model()->index(row, column).data().toString().toStdString() + '\n';
        return text;
    }
    void SelectDocument(const std::string& file) const {
        for (int row = 0; row < List().model()->rowCount(); ++row) {
            if (List().model()->index(row, c_file).data().toString().toStdString() == file)
                List().setCurrentIndex(List().model()->index(row, c_file));
        }
        List().setFocus();
        ProcessAll();
    }
    /// Empty where a picture of the file is shown, else what is shown.
    std::string WaitForPreview(const std::string& file) const {
        const auto& pane = *m_window->findChild<desktop::PreviewPane*>();
        const auto& view = *pane.findChild<desktop::PictureView*>();
        const auto isThere = [&] { return view.HasPicture() || !view.GetText().isEmpty(); };
        const bool isIts =
            QTest::qWaitFor(isThere, c_patience) && pane.toolTip().endsWith(QString::fromStdString(file));
        return isIts ? view.GetText().toStdString() : "no preview but of " + pane.toolTip().toStdString();
    }

    static constexpr int c_format = 2;
    static constexpr int c_file = 3;
    static constexpr int c_comment = 5;

    std::filesystem::path m_step;
    std::filesystem::path m_top = support::GetTestFolder();
    std::filesystem::path m_folder = m_top / "shredder";
    /// Stands for the programs of the desktop.
    QTextBrowser m_program;
};

TEST_F(AssemblyDocumentsTest, AreAttachedSeenTakenOverSavedAndFoundInAFolderThatWasMoved) {
    Open(m_step);
    m_decisions->ChooseNext(m_folder / "shredder.json");
    Trigger("Save");
    Press(Qt::Key_D, Qt::ControlModifier);
    Select(c_part);
    ASSERT_EQ(List().model()->rowCount(), 1) << "what it was imported from";

    m_decisions->ChooseNextFiles(
        {WritePdf("drawings/P.100-01 Lower plate.pdf"),
         Write("cut.svg", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9'><path d='M1 1h7v7z'/></svg>")});
    List().setFocus();
    Press(Qt::Key_Insert);
    Drop(Write("flat.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n0\n20\n0\n11\n50\n21\n9\n0\nENDSEC\n0\nEOF\n"));
    Drop(WriteImage("photo.png"));
    const std::vector<std::string> files = {"drawings/P.100-01 Lower plate.pdf", "cut.svg", "flat.dxf", "photo.png"};
    const auto arePreviewed = [&] {
        for (const std::string& file : files) {
            SelectDocument(file);
            EXPECT_EQ(WaitForPreview(file), "") << file;
        }
    };
    arePreviewed();

    QSignalSpy opened(&m_program, &QTextBrowser::sourceChanged);
    List().selectAll();
    Press(Qt::Key_Return);
    ASSERT_EQ(opened.size(), 5);
    EXPECT_EQ(opened[4][0].toUrl().toLocalFile().toStdString(), (m_folder / "photo.png").string());

    SelectDocument(files[0]);
    const auto choose = [&](const char* text) {
        for (QAction* const action : m_window->findChild<QToolBar*>("PRODUCT_TREE_DOC_LIST")->actions()) {
            if (action->text() == text)
                action->trigger();
        }
        ProcessAll();
    };
    choose("Take over the format");
    choose("Name and designation from the document");
    Select("Lower plate");
    const std::string attached = Listed(c_file);
    EXPECT_EQ(QString::fromStdString(Listed(c_format)).simplified(), "A3");
    while (Action("Undo")->isEnabled())
        Trigger("Undo");
    Select(c_part);
    EXPECT_EQ(List().model()->rowCount(), 1);
    while (Action("Redo")->isEnabled())
        Trigger("Redo");
    Select("Lower plate");
    EXPECT_EQ(Listed(c_file), attached);

    SelectDocument("cut.svg");
    m_decisions->AnswerNext(std::nullopt);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Listed(c_file), attached);
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(List().model()->rowCount(), 4);
    Trigger("Undo");
    Trigger("Save");

    std::filesystem::rename(m_folder, m_top / "moved");
    Open(m_top / "moved" / "shredder.json");
    Select("Lower plate");
    EXPECT_EQ(Listed(c_file), attached);
    EXPECT_EQ(Listed(c_comment), std::string(5, '\n')) << "all are there";
    arePreviewed();
    EXPECT_TRUE(m_decisions->GetMessages().empty());
}

TEST_F(AssemblyDocumentsTest, ManyPartsThatAreGoneThroughQuicklyLeaveOnePreview) {
    support::Product product;
    product.Root(L"Unit").NoSectionRows();
    for (int part = 10; part < 30; ++part) {
        const std::string name = "p" + std::to_string(part);
        product.Object(name, L"Part " + std::to_wstring(part))
            .Document(Write(name + ".txt", "text").string(), L"", L"", L"")
            .Uses();
    }
    Show(product, nullptr, m_folder / "unit.json");
    Tree().expandAll();
    Press(Qt::Key_D, Qt::ControlModifier);
    Select("Part 10");
    Tree().setFocus();
    const auto count = [&] { return m_window->findChildren<desktop::PreviewProcess*>().size(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == 1; }, c_patience)) << "it is abandoned on its way";
    for (int part = 11; part < 30; ++part) {
        QTest::keyClick(&Tree(), Qt::Key_Down);
        ProcessAll();
    }
    EXPECT_EQ(WaitForPreview("p29.txt"), "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == 0; }, c_patience));
}

} // namespace

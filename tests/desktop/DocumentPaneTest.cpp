// The box of documents below the tree, as a user works in it.
#include "desktop/documents/DocumentPane.h"
#include "desktop/documents/DocumentList.h"
#include "desktop/window/WindowMemory.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"
#include "tests/support/TestFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QSplitter>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QUrl>

#include <fstream>

namespace {

using desktop::DocumentList;
using desktop::DocumentPane;

constexpr int c_parts = 22;

class DocumentPaneTest : public window_tests::WindowFixture {
protected:
    DocumentPaneTest() : m_folder(support::GetTestFolder()) { std::filesystem::create_directories(m_folder); }
    ~DocumentPaneTest() override { std::filesystem::remove_all(m_folder); }

    void SetUp() override { ShowProduct(Parts()); }
    /// The first part has three documents, the second one, the others none.
    platform::ProductModel Parts() const {
        support::Product product;
        product.Root(L"Unit").NoSectionRows();
        for (int i = 0; i < c_parts; ++i)
            product.Object("p" + std::to_string(i), L"Part " + std::to_wstring(10 + i)).Uses();
        platform::ProductModel model = product;
        for (const char* const name : {"a.txt", "b.txt", "c.txt"})
            model.objects[0].documents.push_back(Document(name));
        model.objects[1].documents.push_back(Document("d.txt"));
        return model;
    }
    void ShowProduct(const platform::ProductModel& model) {
        m_view = &Show(model, nullptr, m_folder / "unit.json");
        Tree().expandAll();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Click(At({0}));
    }
    std::filesystem::path MakeFile(const std::string& name) const {
        std::ofstream(m_folder / name) << name;
        return m_folder / name;
    }
    platform::DocumentRecord Document(const std::string& name) const {
        platform::DocumentRecord document;
        document.file = MakeFile(name).string();
        document.format = SharedText(L"A4");
        document.name = SharedText(L"Name of " + std::wstring(name.begin(), name.end()));
        return document;
    }
    DocumentPane& Pane() const { return *m_window->findChild<DocumentPane*>(); }
    DocumentList& List() const { return *m_window->findChild<DocumentList*>(); }
    /// By the files, those that are selected marked.
    std::string Listed(const DocumentList& list) const {
        std::string text;
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            text += list.selectionModel()->isRowSelected(row) ? " >" : " ";
            text += list.model()->index(row, 3).data().toString().toStdString();
        }
        return text;
    }
    std::string Listed() const { return Listed(List()); }
    QString Message() const { return m_window->statusBar()->currentMessage(); }
    QStringList MenuLines() const {
        const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QStringList lines;
        for (const QAction* const action : menu ? menu->actions() : QList<QAction*>()) {
            const QString text = action->text().remove('&').section('\t', 0, 0);
            lines += action->isSeparator() ? "-" : text + (action->isChecked() ? " *" : "");
        }
        return lines;
    }
    void Choose(const QString& text) const {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (QAction* const action : menu->actions()) {
            if (action->text().remove('&').startsWith(text))
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, Qt::Key_Return);
        ProcessAll();
    }
    /// What comes in a queue is shown by another one.
    static void ProcessAll() {
        QApplication::processEvents();
        QApplication::processEvents();
    }
    void Drop(const QList<QUrl>& urls) const {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&Pane(), &enter);
        if (enter.isAccepted()) {
            QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&Pane(), &drop);
            EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the files stay where they are";
        }
        ProcessAll();
    }

    std::filesystem::path m_folder;
    platform::TreeTableView* m_view = nullptr;
};

TEST_F(DocumentPaneTest, AFoldedBoxReadsNothingAndIsFoundAsTheUserLeftIt) {
    const QString settings = QString::fromStdString((m_folder / "window.ini").string());
    m_window->RememberIn(std::make_unique<desktop::WindowMemory>(settings));
    EXPECT_FALSE(List().isVisible());
    EXPECT_EQ(Listed(), "");
    const int wholeTree = Tree().height();
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(List().hasFocus());
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt");
    auto& around = *qobject_cast<QSplitter*>(Pane().parentWidget());
    around.setSizes({around.height() - 300, 300});
    const int height = Pane().height();
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(Tree().hasFocus());
    EXPECT_EQ(Tree().height(), wholeTree);
    Press(Qt::Key_F6);
    EXPECT_TRUE(List().hasFocus());
    EXPECT_EQ(Pane().height(), height);
    Press(Qt::Key_F6);
    EXPECT_TRUE(Tree().hasFocus());
    ASSERT_TRUE(m_window->close());

    m_window = std::make_unique<desktop::MainWindow>(std::make_unique<platform::ScriptedDecisions>());
    ShowProduct(Parts());
    m_window->RememberIn(std::make_unique<desktop::WindowMemory>(settings));
    QApplication::processEvents();
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt");
    EXPECT_EQ(Pane().height(), height);
}

TEST_F(DocumentPaneTest, KeysInTheListAreAboutDocumentsAndSayWhyTheyDoNothing) {
    Press(Qt::Key_F6);
    m_decisions->ChooseNextFiles({MakeFile("new.txt")});
    Press(Qt::Key_Insert);
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt new.txt");
    Press(Qt::Key_Down);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Listed(), " a.txt >b.txt >c.txt new.txt");
    Press(Qt::Key_F2);
    EXPECT_EQ(Message(), "Edit document: not possible for several documents at once");
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(m_decisions->GetQuestions().size(), 1U);
    EXPECT_EQ(Listed(), " >a.txt new.txt");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(m_view->GetRoot()->GetChildCount(), std::size_t{c_parts});
    EXPECT_EQ(TextAt({0}, 0), "Part 10") << "no key reaches the tree";
    Trigger("Undo");
    Trigger("Undo");
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt");

    m_decisions->EditNextDocument(platform::DocumentTexts{SharedText(L"X.1"), {}, SharedText(L"A2"), {}});
    Press(Qt::Key_F2);
    EXPECT_EQ(List().model()->index(0, 2).data().toString(), "A2");
    EXPECT_EQ(List().model()->index(0, 4).data().toString(), "X.1");

    Press(Qt::Key_Escape);
    Click(At({5}));
    Press(Qt::Key_F6);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Message(), "Remove documents: no document is selected");
    Tree().selectAll();
    QApplication::processEvents();
    Press(Qt::Key_Insert);
    EXPECT_EQ(Message(), "Add documents: one row is to be selected in the tree");
    EXPECT_TRUE(m_decisions->GetMessages().empty());
}

TEST_F(DocumentPaneTest, MenuAndButtonsTakeOverWhatADocumentSays) {
    Press(Qt::Key_F6);
    Press(Qt::Key_Menu);
    EXPECT_EQ(MenuLines().filter("*").join(","), "Preview *");
    Choose("Take over the format");
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(MenuLines().contains("Take over the format *")) << MenuLines().join(",").toStdString();
    Choose("Name and designation");
    EXPECT_EQ(TextAt({0}, 0), "Name of a.txt");
    const auto* const strip = m_window->findChild<QToolBar*>("PRODUCT_TREE_DOC_LIST");
    const auto checked = [&] {
        QStringList texts;
        for (const QAction* const action : strip->actions()) {
            if (action->isChecked())
                texts += action->text();
        }
        return texts.join(",").toStdString();
    };
    EXPECT_EQ(checked(), "Name and designation from the document,Take over the format,Preview");
    EXPECT_TRUE(List().hasFocus());
    Press(Qt::Key_Down);
    EXPECT_EQ(checked(), "Preview");
    // Texts that the part does not go by are grey.
    const auto isGrey = [&](int row, int column) {
        return List().model()->index(row, column).data(Qt::ForegroundRole).isValid();
    };
    EXPECT_FALSE(isGrey(0, 2) || isGrey(0, 3) || isGrey(0, 4));
    EXPECT_TRUE(isGrey(1, 2) && isGrey(1, 3) && isGrey(1, 4));
    Shoot("documents");
}

TEST_F(DocumentPaneTest, DroppedFilesAreAddedWhereTheyCanBe) {
    const QList<QUrl> urls{QUrl::fromLocalFile(QString::fromStdString(MakeFile("x y.txt").string())),
                           QUrl::fromLocalFile(QString::fromStdString(MakeFile("z.txt").string()))};
    Drop(urls);
    EXPECT_FALSE(m_window->isWindowModified()) << "the list is not seen";
    Press(Qt::Key_F6);
    Drop({QUrl("https://example.org/a.pdf")});
    EXPECT_EQ(List().model()->rowCount(), 3);
    Drop(urls);
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt x y.txt z.txt");
    EXPECT_TRUE(m_window->isWindowModified());

    platform::ProductModel model = Parts();
    model.isReadOnly = true;
    ShowProduct(model);
    Drop(urls);
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt");
    Press(Qt::Key_F6);
    Press(Qt::Key_Insert);
    EXPECT_EQ(Message(), "Add documents: the product is read-only");
}

TEST_F(DocumentPaneTest, FilesAreCopiedFromPartToPart) {
    QApplication::clipboard()->clear();
    Press(Qt::Key_F6);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Message(), "Add documents: no file has been copied");
    List().selectAll();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Message(), "3 files copied");
    Click(At({1}));
    List().setFocus();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Listed(), " >d.txt a.txt b.txt c.txt");
    std::filesystem::remove(m_folder / "d.txt");
    Click(At({0}));
    Click(At({1}));
    List().setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Message(), "Open document: the file is not there any more");
    EXPECT_TRUE(m_decisions->GetMessages().empty());
}

TEST_F(DocumentPaneTest, ManyRowsThatAreGoneThroughQuicklyAreShownOnce) {
    Press(Qt::Key_D, Qt::ControlModifier);
    Press(Qt::Key_Escape);
    QSignalSpy changes(List().model(), &QAbstractItemModel::rowsRemoved);
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(Listed(), " >a.txt b.txt c.txt");
    QApplication::processEvents();
    EXPECT_EQ(Listed(), "");
    EXPECT_EQ(changes.size(), 1);
    for (int i = 0; i < 19; ++i)
        QTest::keyClick(&Tree(), Qt::Key_Up);
    QApplication::processEvents();
    EXPECT_EQ(Listed(), " >d.txt");
}

TEST_F(DocumentPaneTest, EachViewHasABoxOfItsOwnWithTheSameDocuments) {
    Press(Qt::Key_D, Qt::ControlModifier);
    const QPointer<desktop::MainWindow> second = m_window->OpenView();
    QApplication::processEvents();
    DocumentList& list = *second->findChild<DocumentList*>();
    EXPECT_EQ(Listed(list), " >a.txt b.txt c.txt");
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    List().setFocus();
    Press(Qt::Key_End);
    m_decisions->AnswerNext(0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Listed(), " >a.txt b.txt");
    EXPECT_EQ(Listed(list), " >a.txt b.txt");
    second->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

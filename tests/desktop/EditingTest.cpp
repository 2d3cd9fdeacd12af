#include "desktop/Session.h"
#include "desktop/editors/DesignationEdit.h"
#include "desktop/tree/PanelHead.h"
#include "desktop/tree/RefusalNote.h"
#include "desktop/tree/TreeItemModel.h"
#include "host/ProductProperties.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>

namespace {

constexpr unsigned c_integer = 0;
constexpr unsigned c_double = 1;
constexpr unsigned c_boolean = 3;

SharedText Text(const QString& text) { return SharedText(text.toStdWString()); }

/// Five parts in one section with a column of every kind of value.
platform::ProductModel Parts() {
    support::Product product;
    product.Root(L"Gearbox", L"AB.100")
        .UserProperty(1001, L"Teeth", c_integer, 0, 200)
        .UserProperty(1002, L"Length", c_double, 0, 2)
        .LastPropertyUnit(L"mm", 1000)
        .UserProperty(1003, L"Spare", c_boolean)
        .UserProperty(1004, L"Finish", 2)
        .LastPropertyList({SimplePropVal(SharedText(L"Painted")), SimplePropVal(SharedText(L"Raw"))})
        .UserProperty(1005, L"Batch", 2)
        .LastPropertyReadOnly()
        .Columns({L"note", L"user.1001", L"user.1002", L"user.1003", L"user.1004", L"user.1005"});
    for (const char* const key : {"a", "b", "c", "d", "e"}) {
        product.Object(key, std::wstring(L"Part ") + wchar_t(*key), std::wstring(L"AB.10") + wchar_t(*key))
            .Section(20, L"Parts")
            .Value(L"user.1001", SimplePropVal(17))
            .Value(L"user.1005", SimplePropVal(SharedText(L"K7")))
            .Uses();
    }
    return product;
}

class EditingTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        Show(Parts());
        Tree().expandAll();
        QApplication::processEvents();
        m_note = Column("Note");
        m_teeth = Column("Teeth");
        m_length = Column("Length, mm");
        m_spare = Column("Spare");
        m_finish = Column("Finish");
        m_batch = Column("Batch");
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Tree().setFocus();
    }

    /// Opens the cell's editor by F2 and takes what stands there for the typed text.
    void Edit(const QModelIndex& index, const QString& text, Qt::Key key = Qt::Key_Return) {
        Tree().setCurrentIndex(index);
        Press(Qt::Key_F2);
        Type(text);
        Press(key);
    }
    bool IsEditing() const { return !Tree().findChildren<QLineEdit*>().isEmpty() && OpenLine(); }
    QLineEdit* OpenLine() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    QLabel* FindNote() const { return Tree().findChild<desktop::RefusalNote*>(); }
    QStringList ColumnTexts(int column) const {
        QStringList texts;
        for (int row = 0; row < 5; ++row)
            texts += TextAt({0, row}, column);
        return texts;
    }
    void SelectAllParts() {
        Tree().setCurrentIndex(At({0, 0}));
        QTest::keyClick(&Tree(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&Tree(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&Tree(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&Tree(), Qt::Key_Down, Qt::ShiftModifier);
        QApplication::processEvents();
    }
    void ClickHead(int column) {
        auto& head = *Tree().findChild<desktop::PanelHead*>();
        QTest::mouseClick(head.viewport(), Qt::LeftButton, Qt::NoModifier,
                          {head.sectionViewportPosition(column) + head.sectionSize(column) / 2, head.height() / 2});
        QApplication::processEvents();
    }

    int m_note = 0, m_teeth = 0, m_length = 0, m_spare = 0, m_finish = 0, m_batch = 0;
};

TEST_F(EditingTest, KeystrokesChangeAValueAndCanBeTakenBack) {
    Tree().setCurrentIndex(At({0, 1}, m_note));
    Type("left hand");
    Shoot("edit-text");
    Press(Qt::Key_Return);
    EXPECT_EQ(TextAt({0, 1}, m_note), "left hand");
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(Action("Undo")->text(), "&Undo Change of Note");

    Trigger("Undo");
    EXPECT_EQ(TextAt({0, 1}, m_note), "");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_FALSE(Action("Undo")->isEnabled());
    Trigger("Redo");
    EXPECT_EQ(TextAt({0, 1}, m_note), "left hand");
}

TEST_F(EditingTest, AnInputIsTakenOrTheOldValueStands) {
    const struct {
        const char* what;
        int column;
        QString typed;
        Qt::Key key;
        QString shown;
        const char* told;
    } cases[] = {
        {"given up", m_teeth, "7", Qt::Key_Escape, "17", ""},
        {"an integer", m_teeth, "42", Qt::Key_Return, "42", ""},
        {"above the limit", m_teeth, "201", Qt::Key_Return, "42", "Teeth: not taken, from 0 to 200 is allowed"},
        {"the same again", m_teeth, "42", Qt::Key_Return, "42", ""},
        {"no number", m_teeth, "4x", Qt::Key_Return, "42", "Teeth: not taken, from 0 to 200 is allowed"},
        {"in shown units", m_length, "12.5", Qt::Key_Return, "12.5", ""},
        {"above the limit in shown units", m_length, "2000.5", Qt::Key_Return, "12.5",
         "Length, mm: not taken, from 0 to 2000 is allowed"},
        {"left as it is", m_length, "", Qt::Key_Return, "12.5", ""},
        {"a text", m_note, "a", Qt::Key_Return, "a", ""},
    };
    for (const auto& input : cases) {
        m_window->statusBar()->clearMessage();
        Edit(At({0, 0}, input.column), input.typed, input.key);
        EXPECT_EQ(TextAt({0, 0}, input.column), input.shown) << input.what;
        EXPECT_EQ(m_window->statusBar()->currentMessage().toStdString(), input.told) << input.what;
        // What was refused stays in its editor until it is mended or given up.
        const bool isRefused = *input.told != '\0';
        EXPECT_EQ(IsEditing(), isRefused) << input.what;
        if (!isRefused)
            continue;
        EXPECT_EQ(OpenLine()->text(), input.typed) << input.what;
        EXPECT_TRUE(FindNote()->isVisible() && FindNote()->text() == input.told) << input.what;
        Press(Qt::Key_Escape);
        EXPECT_FALSE(IsEditing() || FindNote()->isVisible()) << input.what;
    }
    Tree().setCurrentIndex(At({0, 0}, m_length));
    Press(Qt::Key_F2);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    EXPECT_EQ(TextAt({0, 0}, m_length), "") << "emptied";
}

TEST_F(EditingTest, NumbersAreShownAndTypedInTheUsersLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    Edit(At({0, 0}, m_length), "1234,5");
    EXPECT_EQ(TextAt({0, 0}, m_length), "1234,5");
    QLocale::setDefault(before);
    EXPECT_EQ(TextAt({0, 0}, m_length), QLocale().toString(1234.5, 'f', 1).remove(QLocale().groupSeparator()));
}

TEST_F(EditingTest, AnUntouchedEditorChangesNothingHoweverOddTheTextIs) {
    QString odd = QStringLiteral("a\nb\tc\x01 \u05D0\u05D1 \U0001F600 \u00A0 \u2424");
    odd += QString(10'000 - odd.size(), QLatin1Char('x'));
    auto product = Parts();
    product.objects[0].properties.emplace_back(ProductProperties::GetPropId(L"note"),
                                               PropValue(SimplePropVal(Text(odd))));
    Show(product);
    Tree().expandAll();
    Tree().setCurrentIndex(At({0, 0}, m_note));
    Press(Qt::Key_F2);
    ASSERT_TRUE(OpenLine());
    Press(Qt::Key_Return);
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_EQ(At({0, 0}, m_note).data(Qt::EditRole).toString(), odd);
}

TEST_F(EditingTest, LineBreaksAreKeptWhileTheTextAroundThemIsEdited) {
    Tree().setCurrentIndex(At({0, 0}, m_note));
    Type("one");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Type("two");
    Press(Qt::Key_Return);
    EXPECT_EQ(At({0, 0}, m_note).data(Qt::EditRole).toString(), "one\ntwo");
    Press(Qt::Key_F2);
    EXPECT_EQ(OpenLine()->text(), QString::fromUtf16(u"one\u21B5two"));
    Press(Qt::Key_End);
    Type("!");
    Press(Qt::Key_Return);
    EXPECT_EQ(At({0, 0}, m_note).data(Qt::EditRole).toString(), "one\ntwo!");
    EXPECT_EQ(TextAt({0, 0}, m_note), "one two!");
}

TEST_F(EditingTest, TabMovesAlongTheRowAndOpensTheNextEditor) {
    Tree().setCurrentIndex(At({0, 2}, m_note));
    Press(Qt::Key_F2);
    Type("n");
    Press(Qt::Key_Tab);
    EXPECT_EQ(TextAt({0, 2}, m_note), "n");
    EXPECT_EQ(Tree().currentIndex(), At({0, 2}, m_teeth));
    Type("5");
    Press(Qt::Key_Tab);
    EXPECT_EQ(TextAt({0, 2}, m_teeth), "5");
    EXPECT_EQ(Tree().currentIndex(), At({0, 2}, m_length));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Tree().currentIndex(), At({0, 2}, m_teeth));
    EXPECT_TRUE(IsEditing());
    Tree().setCurrentIndex(At({0, 2}, m_finish));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Tree().currentIndex(), At({0, 3}));
    EXPECT_TRUE(Tree().selectionModel()->isRowSelected(3, At({0})));
}

TEST_F(EditingTest, AnOpenEditorStaysWithItsObjectWhateverElseMovesTheRows) {
    desktop::Document document;
    document.path = "small.json";
    document.model = Parts();
    for (platform::ObjectRecord& object : document.model.objects)
        object.marking = {};
    auto session = std::make_unique<desktop::Session>(std::move(document));
    desktop::Session& other = *session;
    m_window->Show(std::move(session));
    Tree().expandAll();
    Edit(At({0, 4}), "A lid");
    for (const int column : {m_note, 1}) {
        Tree().setCurrentIndex(At({0, 1}, column));
        Press(Qt::Key_F2);
        Type("draft");
        Press(Qt::Key_Left, Qt::ShiftModifier);
        other.Undo();
        QApplication::processEvents();
        EXPECT_EQ(Tree().currentIndex(), At({0, 0}, column));
        ASSERT_TRUE(OpenLine());
        EXPECT_EQ(OpenLine()->text() + OpenLine()->selectedText(), "draftt");
        Press(Qt::Key_Escape);
        other.Redo();
        QApplication::processEvents();
    }
    Edit(At({0, 1}, m_teeth), "201");
    other.Undo();
    QApplication::processEvents();
    EXPECT_EQ(OpenLine()->text(), "201");
    EXPECT_TRUE(FindNote()->isVisible());
}

TEST_F(EditingTest, LeftAndRightFold) {
    Tree().setCurrentIndex(At({0, 2}, m_note));
    Press(Qt::Key_Left);
    EXPECT_EQ(Tree().currentIndex(), At({0}, m_note));
    Press(Qt::Key_Left);
    EXPECT_FALSE(Tree().isExpanded(At({0})));
    Press(Qt::Key_Right);
    EXPECT_TRUE(Tree().isExpanded(At({0})));
    Press(Qt::Key_Right);
    EXPECT_EQ(Tree().currentIndex(), At({0, 0}, m_note));
}

TEST_F(EditingTest, ARenamedPartKeepsItsPlaceInTheUsersView) {
    auto product = Parts();
    // Nothing but their names puts them in order.
    for (platform::ObjectRecord& object : product.objects)
        object.marking = {};
    Show(product);
    Tree().expandAll();
    const QStringList before = ColumnTexts(0);
    Edit(At({0, 3}), "A lid");
    EXPECT_EQ(TextAt({0, 0}, 0), "A lid");
    EXPECT_EQ(Tree().currentIndex().data().toString(), "A lid");
    EXPECT_TRUE(Tree().isExpanded(At({0})));
    Trigger("Undo");
    EXPECT_EQ(ColumnTexts(0).join(' ').toStdString(), before.join(' ').toStdString());
    EXPECT_TRUE(Tree().isExpanded(At({0})));
}

TEST_F(EditingTest, ADesignationIsEditedInItsParts) {
    Tree().setCurrentIndex(At({0, 0}, 1));
    Press(Qt::Key_F2);
    auto* const editor = Tree().findChild<desktop::DesignationEdit*>();
    ASSERT_TRUE(editor);
    const auto parts = editor->findChildren<QLineEdit*>();
    ASSERT_EQ(parts.size(), 7);
    EXPECT_EQ(parts[0]->text(), "AB.10a");
    for (const int part : {0, 2, 4, 6})
        EXPECT_FALSE(parts[part]->toolTip().isEmpty()) << part;
    Press(Qt::Key_Tab);
    Type("-");
    Press(Qt::Key_Tab);
    Type("02");
    Shoot("edit-designation");
    Press(Qt::Key_Return);
    EXPECT_EQ(TextAt({0, 0}, 1), "AB.10a-02");
    EXPECT_TRUE(Action("Undo")->isEnabled());
}

TEST_F(EditingTest, AWholeDesignationIsTakenApart) {
    Tree().setCurrentIndex(At({0, 0}, 1));
    const auto parts = [&] { return Tree().currentIndex().siblingAtColumn(1).data(Qt::EditRole).toStringList(); };
    Press(Qt::Key_F2);
    Type("AB.107-02.11 AD");
    Press(Qt::Key_Return);
    EXPECT_EQ(parts(), QStringList({"AB.107", "-", "02", ".", "11", " ", "AD"}));
    Press(Qt::Key_F2);
    QApplication::clipboard()->setText("CD.1-03");
    OpenLine()->selectAll();
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(parts(), QStringList({"CD.1", "-", "03", "", "", "", ""})) << "in place of another";
}

TEST_F(EditingTest, AHeadIsOfferedWhereARowTakesItsValueAndTellsOfThoseThatDoNot) {
    auto product = Parts();
    product.objects[3].readOnlyProperties = {1001};
    Show(product);
    Tree().expandAll();
    SelectAllParts();
    ClickHead(m_batch);
    EXPECT_FALSE(OpenLine()) << "no row takes a batch";
    ClickHead(m_teeth);
    Type("20");
    Press(Qt::Key_Return);
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList({"20", "20", "20", "17", "20"}));
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "Teeth: taken by 4 of 5 rows, the others can't be edited there");
}

TEST_F(EditingTest, ALockedPartOfADesignationCannotBeTyped) {
    auto product = Parts();
    product.objects[0].lockedMarkingParts = {1, 7};
    Show(product);
    Tree().expandAll();
    Tree().setCurrentIndex(At({0, 0}, 1));
    Press(Qt::Key_F2);
    const auto parts = Tree().findChild<desktop::DesignationEdit*>()->findChildren<QLineEdit*>();
    EXPECT_FALSE(parts[0]->isEnabled());
    EXPECT_FALSE(parts[6]->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), parts[1]);
}

TEST_F(EditingTest, AMomentStaysOneHoweverItIsEdited) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    constexpr std::int64_t may31 = 1'780'185'600;
    auto product = Parts();
    product.objects[0].properties.emplace_back(ProductProperties::GetPropId(L"note"),
                                               PropValue(SimplePropVal(DateTime{may31})));
    Show(product);
    Tree().expandAll();
    const auto iso = [&] { return At({0, 0}, m_note).data(Qt::EditRole).toString(); };
    EXPECT_EQ(TextAt({0, 0}, m_note), "31.05.2026");
    Tree().setCurrentIndex(At({0, 0}, m_note));
    Press(Qt::Key_F2);
    Press(Qt::Key_Down, Qt::AltModifier);
    Shoot("edit-moment");
    Press(Qt::Key_Left);
    Press(Qt::Key_Return);
    ASSERT_TRUE(OpenLine());
    EXPECT_EQ(OpenLine()->text(), "30.05.2026") << "from the calendar";
    Press(Qt::Key_Return);
    const struct {
        const char* typed;
        const char* iso;
    } cases[] = {
        {"1.6.26", "2026-06-01T00:00:00Z"},          {"29.02.2026", "2026-06-01T00:00:00Z"},
        {"2026-02-04 7:05", "2026-02-04T07:05:00Z"}, {"someday", "2026-02-04T07:05:00Z"},
        {"31.05.2026", "2026-05-31T00:00:00Z"},
    };
    for (const auto& input : cases) {
        Edit(At({0, 0}, m_note), input.typed);
        EXPECT_EQ(iso(), input.iso) << input.typed;
        if (IsEditing()) {
            EXPECT_EQ(FindNote()->text(), "Note: not taken, a date is expected, as 2026-05-31");
            Press(Qt::Key_Escape);
        }
    }
    Trigger("Clear value");
    EXPECT_EQ(iso(), "");
    QLocale::setDefault(before);
}

TEST_F(EditingTest, ATruthValueIsToggledByClickAndBySpace) {
    const auto state = [&] { return At({0, 0}, m_spare).data(Qt::CheckStateRole).toInt(); };
    const int before = state();
    Tree().setCurrentIndex(At({0, 0}, m_spare));
    Press(Qt::Key_Space);
    EXPECT_EQ(state(), Qt::Checked);
    const QRect cell = Tree().visualRect(At({0, 0}, m_spare));
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, Qt::NoModifier, {cell.left() + 14, cell.center().y()});
    QApplication::processEvents();
    EXPECT_EQ(state(), Qt::Unchecked);
    Trigger("Undo");
    Trigger("Undo");
    EXPECT_EQ(state(), before);
}

TEST_F(EditingTest, AListOffersItsValues) {
    Tree().setCurrentIndex(At({0, 0}, m_finish));
    Press(Qt::Key_F2);
    auto* const list = Tree().findChild<QComboBox*>();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count(), 2);
    list->setCurrentIndex(1);
    emit list->activated(1);
    QApplication::processEvents();
    EXPECT_EQ(TextAt({0, 0}, m_finish), "Raw");
    Press(Qt::Key_F2);
    auto* const again = qobject_cast<QComboBox*>(Tree().findChildren<QComboBox*>().last());
    again->setCurrentIndex(again->findText("No value"));
    emit again->activated(2);
    QApplication::processEvents();
    EXPECT_EQ(TextAt({0, 0}, m_finish), "");
}

TEST_F(EditingTest, TypingWhereNothingCanBeEditedSaysSoAndDoesNothingElse) {
    for (const QModelIndex& cell : {At({0, 0}, m_batch), At({0}, 0)}) {
        Tree().setCurrentIndex(cell);
        const QString column = Tree().model()->headerData(cell.column(), Qt::Horizontal).toString();
        for (const char* typed : {"part b", "7850", "-5*+"}) {
            m_window->statusBar()->clearMessage();
            Type(typed);
            EXPECT_EQ(m_window->statusBar()->currentMessage(), column + " can't be edited in this row");
        }
        Press(Qt::Key_F2);
        EXPECT_FALSE(IsEditing());
        EXPECT_EQ(Tree().currentIndex(), cell);
        EXPECT_TRUE(Tree().isExpanded(At({0})));
    }
    EXPECT_FALSE(m_window->isWindowModified());
    Shoot("read-only");
}

TEST_F(EditingTest, ARefusedInputWaitsInItsEditorForTheUser) {
    Edit(At({0, 0}, m_teeth), "201");
    ASSERT_TRUE(IsEditing());
    Shoot("refused-cell");
    // On the way to another row, to another window, and by a command.
    Click(At({0, 2}, m_note));
    EXPECT_EQ(OpenLine()->text(), "201");
    EXPECT_EQ(Tree().currentIndex(), At({0, 0}, m_teeth));
    Trigger("Number positions");
    EXPECT_FALSE(m_window->close());
    ASSERT_TRUE(IsEditing());
    Press(Qt::Key_Backspace);
    EXPECT_FALSE(FindNote()->isVisible());
    Press(Qt::Key_Return);
    EXPECT_EQ(TextAt({0, 0}, m_teeth), "20");
    EXPECT_FALSE(IsEditing());
}

TEST_F(EditingTest, EnterOpensWhatAClickOpens) {
    Tree().setCurrentIndex(At({0, 0}, m_note));
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsEditing());
    Press(Qt::Key_Escape);
    Tree().setCurrentIndex(At({0, 0}, m_spare));
    Press(Qt::Key_Return);
    EXPECT_EQ(At({0, 0}, m_spare).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    Tree().setCurrentIndex(At({0, 0}, m_teeth));
    Trigger("Value by source");
    EXPECT_EQ(desktop::TreeItemModel::LookOf(At({0, 0}, m_teeth)).sourceIcon.Str(), L"PRODUCTTREE_VAL_NOT_BY_SRC");
}

TEST_F(EditingTest, AGroupIsEmptiedWhereItShowsNothing) {
    support::Product product;
    product.Root(L"r").NoSectionRows().Columns({L"note", L"user.1003", L"user.1004"});
    product.UserProperty(1003, L"Spare", c_boolean);
    product.UserProperty(1004, L"Finish", 2).LastPropertyList({SimplePropVal(Text("x")), SimplePropVal(Text("y"))});
    for (const char* const key : {"x", "y"}) {
        product.Object(key, L"Pin", L"P.1")
            .Value(L"note", SimplePropVal(Text(key)))
            .Value(L"user.1003", SimplePropVal(*key == 'x'))
            .Value(L"user.1004", SimplePropVal(Text(key)))
            .Uses();
    }
    Show(product);
    Tree().expandAll();
    ASSERT_EQ(TextAt({0}, 2), "x;y");
    Tree().setCurrentIndex(At({0}, 2));
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    EXPECT_FALSE(m_window->isWindowModified()) << "untouched";
    Type("z");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(TextAt({0}, 2) + TextAt({0, 0}, 2) + TextAt({0, 1}, 2), "");
    EXPECT_TRUE(m_window->isWindowModified());

    Tree().setCurrentIndex(At({0}, 3));
    Trigger("Clear value");
    EXPECT_EQ(At({0, 0}, 3).data(Qt::CheckStateRole).toInt(), Qt::PartiallyChecked);
    Tree().setCurrentIndex(At({0}, 4));
    Trigger("Clear value");
    EXPECT_EQ(TextAt({0, 0}, 4) + TextAt({0, 1}, 4), "");
}

TEST_F(EditingTest, TheSourceIconUntiesAValueAndTiesItAgain) {
    const auto icon = [&] { return desktop::TreeItemModel::LookOf(At({0, 0}, m_teeth)).sourceIcon.Str(); };
    EXPECT_EQ(icon(), L"PRODUCTTREE_VALUE_BY_SOURCE");
    ClickFromRight(At({0, 0}, m_teeth), 12);
    EXPECT_EQ(icon(), L"PRODUCTTREE_VAL_NOT_BY_SRC");
    Shoot("not-by-source");
    ClickFromRight(At({0, 0}, m_teeth), 12);
    EXPECT_EQ(icon(), L"PRODUCTTREE_VALUE_BY_SOURCE");
}

TEST_F(EditingTest, ANarrowColumnHasRoomForItsValueAlone) {
    constexpr int narrow = 36;
    Tree().header()->resizeSection(m_teeth, narrow);
    Shoot("narrow-column");
    ClickFromRight(At({0, 0}, m_teeth), 12);
    EXPECT_FALSE(m_window->isWindowModified()) << "where the icon was there is the value";
    Tree().header()->resizeSection(m_teeth, 2 * narrow);
    ClickFromRight(At({0, 0}, m_teeth), 12);
    EXPECT_TRUE(m_window->isWindowModified());
}

TEST_F(EditingTest, AHeadGivesItsValueToAllSelectedRows) {
    SelectAllParts();
    Shoot("heads-offered");
    ClickHead(m_teeth);
    ASSERT_TRUE(OpenLine());
    Type("33");
    Shoot("edit-head");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "");
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList(5, "33"));
    EXPECT_EQ(Tree().selectionModel()->selectedRows().size(), 5);
    EXPECT_EQ(Action("Undo")->text(), "&Undo Change of Teeth");
    Trigger("Undo");
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList(5, "17"));
}

TEST_F(EditingTest, AHeadTellsOfAValueThatNoRowHasTaken) {
    SelectAllParts();
    ClickHead(m_teeth);
    Type("201");
    Press(Qt::Key_Return);
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList(5, "17"));
    EXPECT_EQ(m_window->statusBar()->currentMessage(), "Teeth: not taken, from 0 to 200 is allowed");
    ASSERT_TRUE(OpenLine());
    EXPECT_EQ(OpenLine()->text(), "201");
    Shoot("refused");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList(5, "20"));
}

TEST_F(EditingTest, AHeadOffersNothingForOneRowOrWithoutInput) {
    Tree().setCurrentIndex(At({0, 0}));
    ClickHead(m_teeth);
    EXPECT_FALSE(OpenLine());
    SelectAllParts();
    ClickHead(m_note);
    ASSERT_TRUE(OpenLine());
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(ColumnTexts(m_teeth), QStringList(5, "17"));
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(EditingTest, NamesStayInViewWhenTheTreeIsScrolledAside) {
    m_window->resize(600, 400);
    Tree().header()->resizeSection(0, 200);
    QApplication::processEvents();
    auto* const bar = Tree().horizontalScrollBar();
    bar->setValue(bar->maximum());
    Shoot("scrolled-aside");
    const QRect name = Tree().visualRect(At({0, 1}));
    EXPECT_TRUE(name.left() >= 0 && name.right() < 200);
    EXPECT_EQ(Tree().indexAt(name.center()), At({0, 1}));
    Click(At({0, 1}));
    EXPECT_EQ(Tree().currentIndex(), At({0, 1}));
    EXPECT_EQ(bar->value(), bar->maximum());
    Press(Qt::Key_F2);
    ASSERT_TRUE(OpenLine());
    EXPECT_GE(OpenLine()->x(), 0);
    Press(Qt::Key_Escape);
    // The arrow of the section folds.
    const QRect section = Tree().visualRect(At({0}));
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, Qt::NoModifier,
                      {section.left() - Tree().indentation() / 2, section.center().y()});
    EXPECT_FALSE(Tree().isExpanded(At({0})));
    Tree().expandAll();
    // A cell is never scrolled to behind the names.
    Tree().setCurrentIndex(At({0, 1}, m_note));
    EXPECT_GE(Tree().visualRect(At({0, 1}, m_note)).left(), 200 - 1);
}

TEST_F(EditingTest, ARebuildClosesAnOpenEditorSafely) {
    Tree().setCurrentIndex(At({0, 0}, m_note));
    Press(Qt::Key_F2);
    Type("draft");
    Trigger("Collapse all");
    Trigger("Undo");
    Show(Parts());
    EXPECT_FALSE(OpenLine());
}

} // namespace

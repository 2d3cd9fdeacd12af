// How cells look: with PRODUCT_TREE_SHOTS set, pictures of each state are left to be looked at.
#include "desktop/tree/TreeItemModel.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QTest>
#include <QToolTip>

namespace {

using desktop::LinkLook;
using desktop::TreeItemModel;

constexpr unsigned c_integer = 0;
constexpr unsigned c_double = 1;
constexpr unsigned c_boolean = 3;

SimplePropVal Text(const std::wstring& text) { return SimplePropVal(SharedText(text)); }

/// Rows of the section, in the order of their names.
enum Row { Bolts, Dead, Lines, Linked, Long, Mirrored, Plain };

platform::ProductModel Looks() {
    support::Product product;
    product.Root(L"Gearbox", L"AB.100")
        .RootValue(L"user.1001", SimplePropVal(17))
        .UserProperty(1001, L"Teeth", c_integer, 0, 200)
        .UserProperty(1002, L"Length", c_double, 0, 2)
        .LastPropertyUnit(L"mm", 1000)
        .UserProperty(1003, L"Spare", c_boolean)
        .UserProperty(1004, L"Finish", 2)
        .LastPropertyList({Text(L"Painted"), Text(L"Zinc plated"), Text(L"Raw")})
        .UserProperty(1005, L"Batch", 2)
        .LastPropertyReadOnly()
        .Columns({L"note", L"comment", L"user.1001", L"user.1002", L"user.1003", L"user.1005", L"user.1004"});
    const auto add = [&](const char* key, const std::wstring& name) -> support::Product& {
        return product.Object(key, name, L"AB.10")
            .Section(20, L"Parts")
            .Value(L"user.1001", SimplePropVal(17))
            .Value(L"user.1005", Text(L"K7"));
    };
    add("bolt", L"Bolt").Use("b1").Value(L"user.1001", SimplePropVal(18));
    product.Value(L"note", Text(L"left")).Value(L"user.1003", SimplePropVal(true)).Value(L"user.1004", Text(L"Raw"));
    product.Use("b2").Value(L"note", Text(L"right")).Use("b3");
    add("dead", L"Dead link").Link(L"comment", "plain", L"zone").Uses();
    add("linked", L"Link").Link(L"comment", "plain", L"note").Uses();
    add("lines", L"Lines").Value(L"note", Text(L"first line\nsecond\tline")).Uses();
    add("long", L"Long").Value(L"note", Text(std::wstring(10'000, L'w'))).Uses();
    add("mirrored", L"Mirrored \u05E9\u05DC\u05D5\u05DD")
        .Value(L"note", Text(L"\u05E9\u05DC\u05D5\u05DD 12 \U0001F600"))
        .Uses();
    add("plain", L"Plain")
        .Value(L"note", Text(L"as it is"))
        .Value(L"user.1002", SimplePropVal(0.125))
        .Value(L"user.1003", SimplePropVal(false))
        .Value(L"user.1004", Text(L"Painted"))
        .Uses();
    return product;
}

class CellLooksTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        Show(Looks());
        Trigger("Expand all");
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
        Tree().setFocus();
    }
    QModelIndex Cell(int row, const char* column) const { return At({0, row}, Column(column)); }
    void Open(const QModelIndex& index) {
        Tree().setCurrentIndex(index);
        Press(Qt::Key_F2);
    }
    /// How far from the right end of the cell its rightmost letter is, its icon left out.
    int RoomAtRight(const QModelIndex& index) const {
        constexpr int darkest = 110;
        const QRect cell = Tree().visualRect(index);
        const QImage picture = Tree().viewport()->grab(cell).toImage();
        for (int x = picture.width() - 26; x > 0; --x) {
            for (int y = 4; y < picture.height() - 4; ++y) {
                if (qGray(picture.pixel(x, y)) < darkest)
                    return picture.width() - x;
            }
        }
        return 0;
    }
};

TEST_F(CellLooksTest, AllCellsShowOneLineWhateverTheirTextIs) {
    Shoot("looks");
    const int height = Tree().visualRect(At({0, Plain})).height();
    for (const int row : {Lines, Long, Mirrored})
        EXPECT_EQ(Tree().visualRect(At({0, row})).height(), height) << row;
    EXPECT_EQ(TextAt({0, Lines}, Column("Note")), "first line second line");
    EXPECT_EQ(TextAt({0, Long}, Column("Note")).size(), 10'000);
}

TEST_F(CellLooksTest, APictureJoinsTheTipOfANameThatIsOpen) {
    QImage picture;
    TreeItemModel::Questions questions;
    questions.picture = [&](const platform::TreeTableRow&) { return picture; };
    auto& model = *static_cast<TreeItemModel*>(Tree().model());
    model.SetQuestions(questions);
    const auto hover = [&](const QModelIndex& cell) {
        const QPoint place = Tree().visualRect(cell).center();
        QHelpEvent help(QEvent::ToolTip, place, Tree().viewport()->mapToGlobal(place));
        QApplication::sendEvent(Tree().viewport(), &help);
    };
    const QModelIndex name = At({0, Plain});
    hover(name);
    const QString text = name.data().toString();
    ASSERT_TRUE(QToolTip::text().startsWith(text));
    picture = QImage(160, 90, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::red);
    Tree().RenewTip();
    EXPECT_TRUE(QToolTip::text().contains(text) && QToolTip::text().contains("width='160' height='90'"));
    hover(Cell(Plain, "Note"));
    const QString note = QToolTip::text();
    EXPECT_FALSE(note.contains("<img"));
    picture.fill(Qt::blue);
    Tree().RenewTip();
    EXPECT_EQ(QToolTip::text(), note);
    QToolTip::hideText();
}

TEST_F(CellLooksTest, LiveAndDeadLinksAreToldApart) {
    EXPECT_EQ(TreeItemModel::LookOf(Cell(Linked, "Comment")).link, LinkLook::Live);
    EXPECT_EQ(TreeItemModel::LookOf(Cell(Dead, "Comment")).link, LinkLook::Dead);
    EXPECT_EQ(TextAt({0, Linked}, Column("Comment")), "as it is");
    EXPECT_EQ(TextAt({0, Dead}, Column("Comment")), "");
}

TEST_F(CellLooksTest, NumbersStandBelowEachOtherWithAndWithoutAnIcon) {
    const QModelIndex with = Cell(Plain, "Teeth");
    const QModelIndex without = At({}, Column("Teeth"));
    ASSERT_FALSE(TreeItemModel::LookOf(with).sourceIcon.IsEmpty());
    ASSERT_TRUE(TreeItemModel::LookOf(without).sourceIcon.IsEmpty());
    ASSERT_EQ(with.data().toString(), without.data().toString());
    EXPECT_EQ(RoomAtRight(with), RoomAtRight(without));
}

TEST_F(CellLooksTest, AListOffersItsChoicesAtOnce) {
    Open(Cell(Plain, "Finish"));
    ASSERT_TRUE(QApplication::activePopupWidget());
    Shoot("list-open");
    auto& list = *Tree().findChild<QComboBox*>();
    EXPECT_TRUE(Tree().viewport()->rect().contains(list.geometry()));
    list.hidePopup();
}

TEST_F(CellLooksTest, AnEditorIsWideEnoughAndInsideTheWindowHoweverNarrowItsColumnIs) {
    constexpr int narrow = 30;
    m_window->resize(700, 400);
    const int columns[] = {0, 1, Column("Note"), Column("Teeth")};
    for (const int column : columns)
        Tree().header()->resizeSection(column, narrow);
    // What is edited stands at the right end then.
    Tree().header()->resizeSection(0, 640);
    for (const int column : columns) {
        Open(At({0, Plain}, column));
        const QWidget* editor = QApplication::focusWidget();
        while (editor && editor->parentWidget() != Tree().viewport())
            editor = editor->parentWidget();
        ASSERT_TRUE(editor) << column;
        Shoot(("narrow-" + std::to_string(column)).c_str());
        EXPECT_GT(editor->width(), 2 * narrow) << column;
        EXPECT_TRUE(Tree().viewport()->rect().contains(editor->geometry())) << column;
        Press(Qt::Key_Escape);
    }
}

TEST_F(CellLooksTest, ACaptionIsWholeUntilTheUserChoosesAWidth) {
    constexpr int chosen = 40;
    QHeaderView& head = *Tree().header();
    const int length = Column("Length, mm");
    EXPECT_GE(head.sectionSize(length), head.sectionSizeHint(length));
    head.resizeSection(length, chosen);
    Open(At({0, Plain}));
    Type("A name that moves the row");
    Press(Qt::Key_Return);
    EXPECT_EQ(head.sectionSize(length), chosen);
}

TEST_F(CellLooksTest, OddTextsAreEditedAsTheyAre) {
    for (const int row : {Lines, Long, Mirrored}) {
        Open(Cell(row, "Note"));
        Shoot(("edit-odd-" + std::to_string(row)).c_str());
        Press(Qt::Key_Return);
    }
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(CellLooksTest, AGroupShowsWhetherItsMembersDiffer) {
    const auto& group = [&](const char* column) { return At({0, Bolts}, Column(column)); };
    EXPECT_EQ(group("Note").data().toString(), "left;right");
    EXPECT_EQ(group("Note").data(Qt::ToolTipRole).toString().toStdString(), "3 values:\nleft (1)\nright (1)\nnone (1)");
    EXPECT_EQ(group("Teeth").data(Qt::ToolTipRole).toString().toStdString(), "2 values:\n17 (2)\n18 (1)");
    EXPECT_EQ(group("Spare").data(Qt::CheckStateRole).toInt(), Qt::PartiallyChecked);
    EXPECT_EQ(group("Batch").data(Qt::ToolTipRole).toString(), "K7");

    // All take the value of the group, which is an ordinary one then.
    Open(group("Teeth"));
    Type("20");
    Press(Qt::Key_Return);
    Tree().setCurrentIndex(group("Spare"));
    Press(Qt::Key_Space);
    Shoot("group-of-one-value");
    EXPECT_EQ(group("Teeth").data(Qt::ToolTipRole).toString(), "20");
    EXPECT_EQ(TextAt({0, Bolts, 2}, Column("Teeth")), "20");
    EXPECT_EQ(group("Spare").data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

} // namespace

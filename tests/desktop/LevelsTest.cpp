// Going through the levels of a product with assemblies in it, as a user does.
#include "desktop/store/ProductFile.h"
#include "tests/desktop/WindowFixture.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>

namespace {

constexpr const char* c_car = R"({
 "format": "product-tree 1",
 "product": {"key": "car", "name": "Car"},
 "columns": ["count", "comment"],
 "objects": [
  {"key": "axle", "name": "Axle", "section": 15, "kind": "assembly", "uses": 2},
  {"key": "engine", "name": "Engine", "section": 15, "kind": "assembly", "uses": 1},
  {"key": "wheel", "name": "Wheel", "section": 20, "uses": 1}
 ],
 "objectsBelow": [{"key": "tube", "name": "Tube", "section": 20}],
 "assemblies": [
  {"object": "car"}, {"object": "engine"},
  {"object": "axle", "components": [{"object": "wheel", "uses": 2}, {"object": "tube", "uses": 1}]}
 ]
})";

class LevelsTest : public window_tests::WindowFixture {
protected:
    void SetUp() override {
        Show(std::get<platform::ProductModel>(desktop::store::ParseProduct(c_car)));
        Trigger("Expand all");
    }
    QModelIndex Find(const QString& name, int column = 0) const {
        const QAbstractItemModel& model = *Tree().model();
        const auto found =
            model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found[0].siblingAtColumn(column);
    }
    std::string Root() const { return TextAt({}, 0).toStdString(); }
    std::string Current() const { return Tree().currentIndex().siblingAtColumn(0).data().toString().toStdString(); }
    void DoubleClickIcon(const QModelIndex& index) const {
        const QRect cell = Tree().visualRect(index);
        const QPoint icon(cell.left() + 10, cell.center().y());
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, icon);
        QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, icon);
        QApplication::processEvents();
    }
};

TEST_F(LevelsTest, AnAssemblyIsOpenedEditedAndLeftAgain) {
    EXPECT_FALSE(Action("Back Up")->isEnabled());
    Tree().setCurrentIndex(Find("Wheel"));
    EXPECT_FALSE(Action("Open Assembly")->isEnabled());
    Tree().collapse(Find("Parts (x1)"));
    DoubleClickIcon(Find("Axle (x2)"));
    EXPECT_EQ(Root(), "Axle");
    Shoot("levels-axle");
    const QModelIndex comment = Find("Wheel (x2)", Column("Comment"));
    Tree().setCurrentIndex(comment);
    Press(Qt::Key_F2);
    Type("spare");
    // The edit is taken before the level is left.
    Trigger("Back Up");
    EXPECT_EQ(Root(), "Car");
    EXPECT_EQ(Current(), "Axle (x2)") << "where the user came from";
    EXPECT_FALSE(Tree().isExpanded(Find("Parts (x1)"))) << "as it was left";
    EXPECT_EQ(Find("Wheel", Column("Comment")).data().toString(), "spare");
    Trigger("Undo");
    EXPECT_EQ(Root(), "Axle") << "the user sees what is undone";
    EXPECT_EQ(Find("Wheel (x2)", Column("Comment")).data().toString(), "");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(LevelsTest, AllPartsAreShownAndTheirAssembliesReachedByKeysArrowAndLinks) {
    Trigger("All Parts");
    EXPECT_EQ(Find("Wheel (x5)", Column("Count")).data().toString(), "5");
    EXPECT_TRUE(Action("All Parts")->isChecked());
    Trigger("Direct Components");
    Tree().setCurrentIndex(Find("Engine"));
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Root(), "Engine") << "also without components";
    Press(Qt::Key_Up, Qt::AltModifier);
    ClickFromRight(Find("Axle (x2)"), 12);
    QApplication::processEvents();
    EXPECT_EQ(Root(), "Axle");
    for (QLabel* const label : m_window->findChildren<QLabel*>())
        emit label->linkActivated("0");
    EXPECT_EQ(Root(), "Car");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(LevelsTest, APartOfAListOfAllPartsIsShownInItsAssembly) {
    Trigger("All Parts");
    Trigger("Expand all");
    Tree().setCurrentIndex(Tree().model()->index(1, 0, Find("Tube (x2)")));
    Press(Qt::Key_F10, Qt::ShiftModifier);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction* const entry : menu->actions()) {
        if (entry->text().remove('&').startsWith("Show in its assembly"))
            entry->trigger();
    }
    menu->close();
    QApplication::processEvents();
    EXPECT_EQ(Root(), "Axle");
    EXPECT_EQ(Current(), "Tube");
    Trigger("Back Up");
    EXPECT_EQ(Root(), "Car");
}

} // namespace

#include "desktop/tree/AttributeBoxes.h"
#include "platform/view/TreeTableView.h"
#include "tests/desktop/WindowFixture.h"
#include "tests/support/ProductBuilder.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

namespace {

constexpr int c_product = 200, c_specification = 201;

/// Two parts and a group of two in one section, and one that the mark does not apply to.
platform::ProductModel Product() {
    platform::ProductModel model = support::Product()
                                       .Root(L"Gearbox")
                                       .Columns({L"comment", L"material", L"mass"})
                                       .Object("case", L"Case")
                                       .Section(20, L"Parts")
                                       .AggrIntoProduct(true)
                                       .Uses()
                                       .Object("sheet", L"Sheet")
                                       .Section(5, L"Documents")
                                       .Uses()
                                       .Object("pin", L"Pin", L"AB.7")
                                       .Section(20, L"Parts")
                                       .AggrIntoProduct(false)
                                       .Uses(2);
    model.isAggrIntoProductShown = model.isRegWithDescShown = true;
    return model;
}

class AttributeBoxesTest : public window_tests::WindowFixture {
protected:
    /// The middle of the row's box.
    QPoint BoxAt(const QModelIndex& row, int id) const {
        const QRect names(0, 0, Tree().columnWidth(0), 1);
        const desktop::AttributeBoxes boxes(*m_view, names, Qt::LeftToRight);
        const int y = Tree().visualRect(row).center().y();
        for (int x = 0; x < names.width(); ++x) {
            if (boxes.FindAt({x, y}) == id)
                return {x + 12, y};
        }
        return {-1, -1};
    }
    void ClickBox(const QModelIndex& row, int id) const {
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, BoxAt(row, id));
        QApplication::processEvents();
    }
    /// The states of the product box in the rows of parts: their section, the case, the pins.
    std::string States() const {
        std::string states;
        for (const QModelIndex& index : {At({1}), At({1, 0}), At({1, 1}), At({1, 1, 0})})
            states += std::to_string(Row(index).GetAggrIntoProductState());
        return states;
    }
    static const platform::TreeTableRow& Row(const QModelIndex& index) {
        return *static_cast<platform::TreeTableRow*>(index.internalPointer());
    }

    platform::TreeTableView* m_view = nullptr;
};

TEST_F(AttributeBoxesTest, AreClickedOrReachedByKeyAlsoWhereNamesAreScrolledAside) {
    m_view = &Show(Product());
    Tree().expandAll();
    EXPECT_EQ(States(), "1122");
    Tree().setCurrentIndex(At({1}));
    QApplication::processEvents();
    EXPECT_TRUE(At({1}).data(Qt::ToolTipRole).toString().contains("Aggregated into the product: some of them"));
    Trigger("Aggregated into the product");
    EXPECT_EQ(States(), "2222");
    EXPECT_FALSE(Action("Aggregated into the product")->isChecked());
    EXPECT_TRUE(At({1}).data(Qt::ToolTipRole).toString().contains("Aggregated into the product: no"));
    ClickBox(At({1, 1}), c_product);
    EXPECT_EQ(States(), "1211");
    m_window->resize(500, 400);
    Tree().header()->resizeSection(0, 200);
    Tree().header()->resizeSection(2, 900);
    QApplication::processEvents();
    Tree().horizontalScrollBar()->setValue(150);
    ClickBox(At({1, 0}), c_product);
    EXPECT_EQ(States(), "1111");
    Shoot("boxes");
    // No box, nothing to click.
    ClickBox(At({0, 0}), c_product);
    EXPECT_FALSE(Action("Aggregated into the product")->isEnabled());
    EXPECT_EQ(States(), "1111");
    for (int i = 0; i < 3; ++i)
        Trigger("Undo");
    EXPECT_EQ(States(), "1122");
    EXPECT_FALSE(m_window->isWindowModified());
}

TEST_F(AttributeBoxesTest, TakeNoRoomWhereTheirColumnIsNotShown) {
    platform::ProductModel model = Product();
    for (platform::ObjectRecord& object : model.objects)
        object.aggrIntoProduct.reset();
    // Without the first row, which the mouse may rest on.
    const auto grab = [&] {
        const QRect rows = Tree().viewport()->rect().adjusted(0, Tree().visualRect(At({0})).top(), 0, 0);
        return Tree().viewport()->grab(rows).toImage();
    };
    const auto picture = [&] {
        m_view = &Show(model);
        Tree().expandAll();
        QApplication::processEvents();
        return grab();
    };
    const QImage shown = picture();
    Trigger("Boxes Aggregated into Product");
    Trigger("Boxes Registered in Specification");
    EXPECT_EQ(BoxAt(At({1, 0}), c_product), QPoint(-1, -1));
    EXPECT_EQ(BoxAt(At({1, 0}), c_specification), QPoint(-1, -1));
    EXPECT_FALSE(At({1}).data(Qt::ToolTipRole).toString().contains("product"));
    const QImage hidden = grab();
    EXPECT_NE(hidden, shown);
    model.isAggrIntoProductShown = model.isRegWithDescShown = false;
    EXPECT_EQ(picture(), hidden);
    EXPECT_FALSE(Action("Boxes Aggregated into Product")->isEnabled());
    // What can't be changed is shown, and not clicked.
    model = Product();
    model.isReadOnly = true;
    picture();
    ClickBox(At({1, 0}), c_product);
    EXPECT_EQ(States(), "0344");
}

} // namespace

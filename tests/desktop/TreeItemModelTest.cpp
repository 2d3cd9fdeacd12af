#include "desktop/tree/TreeItemModel.h"
#include "host/ProductProperties.h"
#include "host/frame/FeatureTrees.h"
#include "platform/view/HostFrame.h"
#include "tests/support/ProductBuilder.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QIcon>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using desktop::TreeItemModel;
using platform::ProductModel;

class TreeItemModelTest : public testing::Test {
protected:
    std::shared_ptr<platform::MemoryProduct> m_product = support::Product()
                                                             .Root(L"Gearbox", L"AB.100")
                                                             .Simplified()
                                                             .Columns({L"mass", L"note"})
                                                             .Object("case", L"Case", L"AB.101")
                                                             .Section(20, L"Parts")
                                                             .Uses()
                                                             .Object("nut", L"Nut M8\nzinc")
                                                             .Section(25, L"Standard parts")
                                                             .Icon(2)
                                                             .Uses(3)
                                                             .Make();
    platform::HostFrame m_frame{m_product};
    TreeItemModel m_model{m_frame.GetView()};
    QAbstractItemModelTester m_tester{&m_model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    void Change(const std::function<void(ProductModel&)>& change) {
        m_product->Change(change);
        m_frame.GetTree().Synchronize();
    }

    QString Dump(const QModelIndex& index) const {
        QString text = index.data().toString();
        const QString designation = index.siblingAtColumn(1).data().toString();
        if (!designation.isEmpty())
            text += QStringLiteral(" {%1}").arg(designation);
        const int count = m_model.rowCount(index);
        for (int row = 0; row < count; ++row) {
            const QModelIndex child = m_model.index(row, 0, index);
            EXPECT_EQ(child.parent(), index);
            text += (row == 0 ? QStringLiteral(" [") : QStringLiteral(" | ")) + Dump(child);
        }
        return count > 0 ? text + QLatin1Char(']') : text;
    }
    std::string Dump() const { return Dump(m_model.index(0, 0)).toStdString(); }
};

TEST_F(TreeItemModelTest, ShowsTheRowsOfThePanel) {
    EXPECT_EQ(Dump(), "Gearbox {AB.100} [Parts (x1) [Case {AB.101}] | Standard parts (x3) "
                      "[Nut M8 zinc (x3) [Nut M8 zinc | Nut M8 zinc | Nut M8 zinc]]]");
    EXPECT_EQ(m_model.columnCount(), 4);
    EXPECT_EQ(m_model.headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Mass, kg");
    EXPECT_TRUE(m_model.headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    const QModelIndex group = m_model.index(0, 0, m_model.index(1, 0, m_model.index(0, 0)));
    EXPECT_FALSE(group.data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(group.data(Qt::ToolTipRole).toString(), "Nut M8\nzinc (x3)");
}

TEST_F(TreeItemModelTest, FollowsRebuildsThatAddAndDropRows) {
    Change([](ProductModel& model) { model.objects[1].occurrences.pop_back(); });
    EXPECT_EQ(Dump(), "Gearbox {AB.100} [Parts (x1) [Case {AB.101}] | Standard parts (x2) "
                      "[Nut M8 zinc (x2) [Nut M8 zinc | Nut M8 zinc]]]");
    Change([](ProductModel& model) { model.objects.clear(); });
    EXPECT_EQ(Dump(), "Gearbox {AB.100}");
    Change([](ProductModel& model) {
        model.objects = support::Product().Object("a", L"A").Uses(2).Model().objects;
        model.areSectionRowsShown = false;
    });
    EXPECT_NE(Dump().find("A"), std::string::npos);
}

TEST_F(TreeItemModelTest, TellsOfEachChangedRowOnceAndOfAnUnchangedWalkNever) {
    QCoreApplication::processEvents();
    QSignalSpy changed(&m_model, &TreeItemModel::dataChanged);
    QSignalSpy reset(&m_model, &TreeItemModel::modelReset);
    m_product->Change([](ProductModel& model) {
        model.root.name = SharedText(L"Reducer");
        model.objects[0].name = SharedText(L"Housing");
    });
    m_frame.GetTree().Refresh();
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(Dump().rfind("Reducer {AB.100} [Parts (x1) [Housing {AB.101}]", 0), 0U) << Dump();
    m_product->Change([](ProductModel&) {});
    m_frame.GetTree().Refresh();
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(TreeItemModelTest, ANameThatLooksLikeMarkupIsShownAsItIs) {
    Change([](ProductModel& model) { model.root.name = SharedText(L"<b>A</b>"); });
    const QModelIndex root = m_model.index(0, 0);
    EXPECT_EQ(root.data().toString(), "<b>A</b>");
    EXPECT_EQ(root.data(Qt::ToolTipRole).toString(), "<span>&lt;b&gt;A&lt;/b&gt;</span>");
}

TEST_F(TreeItemModelTest, HoldsWhileAUserEditsUndoesAndReloads) {
    const auto part = [&] { return m_model.index(0, 0, m_model.index(0, 0, m_model.index(0, 0))); };
    const auto tell = [&] {
        m_frame.TellDocumentChanged(m_product->IsRebuildRequired());
        m_model.TellChanges();
    };
    const std::string before = Dump();
    EXPECT_TRUE(m_model.setData(part(), "Housing", Qt::EditRole));
    m_model.TellChanges();
    EXPECT_EQ(part().data().toString(), "Housing");
    EXPECT_TRUE(
        m_model.setData(part().siblingAtColumn(1), QStringList{"AB.102", "-", "01", "", "", "", ""}, Qt::EditRole));
    m_model.TellChanges();
    EXPECT_EQ(part().siblingAtColumn(1).data().toString(), "AB.102-01");
    while (m_product->CanUndo()) {
        m_product->Undo();
        tell();
    }
    EXPECT_EQ(Dump(), before);
    m_product->Redo();
    tell();
    EXPECT_EQ(part().data().toString(), "Housing");
    platform::ProductModel other = m_product->GetModel();
    other.objects.pop_back();
    m_product->Replace(std::move(other), {});
    tell();
    EXPECT_EQ(Dump(), "Gearbox {AB.100} [Parts (x1) [Housing {AB.101}]]");
}

TEST_F(TreeItemModelTest, TellsOfAnEditedRowAlone) {
    Change([](ProductModel& model) { model.visibleProperties = {ProductProperties::GetPropId(L"note")}; });
    m_model.TellChanges();
    const QModelIndex part = m_model.index(0, 0, m_model.index(0, 0, m_model.index(0, 0)));
    QSignalSpy changed(&m_model, &TreeItemModel::dataChanged);
    QSignalSpy reset(&m_model, &TreeItemModel::modelReset);
    EXPECT_TRUE(m_model.setData(part.siblingAtColumn(2), "left hand", Qt::EditRole));
    m_model.TellChanges();
    EXPECT_EQ(reset.count(), 0);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex(), part);
    EXPECT_EQ(part.siblingAtColumn(2).data().toString(), "left hand");
}

TEST_F(TreeItemModelTest, InAReadOnlyDocumentNothingCanBeEdited) {
    Change([](ProductModel& model) { model.isReadOnly = true; });
    m_model.TellChanges();
    const QModelIndex part = m_model.index(0, 0, m_model.index(0, 0, m_model.index(0, 0)));
    for (int column = 0; column < m_model.columnCount(); ++column) {
        EXPECT_FALSE(part.siblingAtColumn(column).flags() & Qt::ItemIsEditable);
        EXPECT_FALSE(m_model.setData(part.siblingAtColumn(column), "x", Qt::EditRole));
        EXPECT_EQ(m_model.GetHeadEditor(column).kind, desktop::EditKind::None);
    }
}

TEST_F(TreeItemModelTest, FollowsTheShownColumns) {
    Change([](ProductModel& model) { model.visibleProperties.clear(); });
    QCoreApplication::processEvents();
    EXPECT_EQ(m_model.columnCount(), 2);
}

} // namespace

// The tree-table in memory as Qt's item views see it. It keeps nothing of the rows: an index points
// at its row, and a row knows its parent and its place. It changes nothing in the tree-table but
// what the user does through a view, and knows no widget.
#pragma once

#include "desktop/window/RowIcons.h"
#include "platform/view/TreeTableObserver.h"
#include "platform/view/TreeTableView.h"

#include <QAbstractItemModel>

#include <vector>

namespace desktop {

class TreeItemModel final : public QAbstractItemModel, private platform::TreeTableObserver {
    Q_OBJECT

public:
    /// The view must outlive the model, which is its observer from now on.
    explicit TreeItemModel(platform::TreeTableView& view, QObject* parent = nullptr);
    ~TreeItemModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The row of a valid index.
    static platform::TreeTableRow& RowOf(const QModelIndex& index);
    QModelIndex IndexOf(const platform::TreeTableRow& row, int column = 0) const;
    const std::vector<platform::ColumnHead>& GetHeads() const { return m_heads; }
    platform::TreeTableView& GetView() const { return m_view; }

signals:
    /// The expanded or selected rows have changed, or all rows were replaced.
    void RowStatesChanged();
    /// Caption and the like.
    void PanelChanged();

private:
    void OnRowsAboutToChange() override { beginResetModel(); }
    void OnRowsChanged() override { endResetModel(); }
    void OnChangesPending() override;
    void TakeChanges();
    void ResetColumns();

    platform::TreeTableView& m_view;
    /// The view's heads may change while a build runs; these do only with the model's own signals.
    std::vector<platform::ColumnHead> m_heads;
    RowIcons m_icons;
};

} // namespace desktop

// The tree-table on the screen. It shows what the view in memory says is expanded, selected and how
// wide, and writes back what the user does about it, so that a rebuild finds everything as the user
// left it.
#pragma once

#include <QTreeView>

#include <optional>
#include <vector>

namespace platform {
class TreeTableRow;
}

namespace desktop {

class TreeItemModel;

class PanelTree final : public QTreeView {
    Q_OBJECT

public:
    explicit PanelTree(QWidget* parent = nullptr);

    /// The model may be null; it must outlive its stay here.
    void ShowModel(TreeItemModel* model);
    /// How high the tree must be to show its rows without scrolling.
    int HeightForRows() const;

signals:
    void SelectedRowsChanged();

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ApplyRowStates();
    /// Collects the section rows on its way.
    void ApplyExpansion(const platform::TreeTableRow& row,
                        std::vector<const platform::TreeTableRow*>& sections);
    void ApplySelection();
    void ApplyWidths();
    void FitNameColumn();
    void OnExpanded(const QModelIndex& index, bool expanded);
    void OnSelectionChanged();
    void OnColumnResized(int column, int width);

    TreeItemModel* m_model = nullptr;
    /// The tree is being made to follow the view in memory: what it tells is no news.
    bool m_isFollowing = false;
    /// The user has chosen a width for the name; until then it takes the room that is left.
    bool m_isNameWidthChosen = false;
    /// Where the user was before the rows were replaced.
    std::optional<int> m_scrollPlace;
};

} // namespace desktop

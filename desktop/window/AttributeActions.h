// The menu entries about the check boxes beside the names: those of Edit give the current row's box
// its other state, those of View show and hide the columns. What can't be done is disabled.
#pragma once

#include <QObject>

#include <array>

class QAction;
class QMenu;

namespace platform {
class TreeTableView;
}

namespace desktop {

class PanelTree;

class AttributeActions final : public QObject {
    Q_OBJECT

public:
    AttributeActions(QMenu& edit, QMenu& view, PanelTree& tree);

    /// The columns, or the current row, are others. The view must outlive its stay here.
    void Show(platform::TreeTableView& view);

private:
    PanelTree& m_tree;
    platform::TreeTableView* m_view = nullptr;
    /// In the order of AttributeBoxes::GetIds.
    std::array<QAction*, 2> m_click{};
    std::array<QAction*, 2> m_show{};
};

} // namespace desktop

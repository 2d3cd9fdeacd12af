#include "desktop/window/AttributeActions.h"

#include "desktop/icons/MenuLetters.h"
#include "desktop/tree/AttributeBoxes.h"
#include "desktop/tree/PanelTree.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QMenu>

namespace desktop {

AttributeActions::AttributeActions(QMenu& edit, QMenu& view, PanelTree& tree) : m_tree(tree) {
    const std::array showTexts = {tr("Boxes Aggregated into &Product"),
                                  tr("Boxes Registered in &Specification")};
    edit.addSeparator();
    view.addSeparator();
    for (std::size_t i = 0; i < m_click.size(); ++i) {
        const int id = AttributeBoxes::GetIds()[i];
        m_click[i] = edit.addAction(AttributeBoxes::CaptionOf(id));
        m_click[i]->setCheckable(true);
        m_click[i]->setShortcut(QKeySequence(Qt::CTRL | AttributeBoxes::KeyOf(id)));
        connect(m_click[i], &QAction::triggered, this, [this, id] {
            m_tree.ClickAttribute(id);
            // The menu has checked the entry whatever came of it.
            Show(*m_view);
        });
        m_show[i] = view.addAction(showTexts[i]);
        m_show[i]->setCheckable(true);
        connect(m_show[i], &QAction::triggered, this,
                [this, id](bool on) { m_view->ShowAttributeColumnByUser(id, on); });
    }
    MarkLetters(edit.actions());
}

void AttributeActions::Show(platform::TreeTableView& view) {
    m_view = &view;
    const platform::TreeTableRow* const current = view.GetCurrent();
    for (std::size_t i = 0; i < m_click.size(); ++i) {
        const int id = AttributeBoxes::GetIds()[i];
        m_click[i]->setEnabled(current && AttributeBoxes::CanClick(view, *current, id));
        m_click[i]->setChecked(current && AttributeBoxes::IsShown(view, id) &&
                               AttributeBoxes::IsOn(*current, id));
        m_show[i]->setEnabled(view.GetAttributeColumn(id).isEnabled);
        m_show[i]->setChecked(AttributeBoxes::IsShown(view, id));
    }
}

} // namespace desktop

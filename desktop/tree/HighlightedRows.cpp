#include "desktop/tree/HighlightedRows.h"

#include "desktop/tree/PanelTree.h"
#include "desktop/tree/TreeItemModel.h"

#include <QKeyEvent>
#include <QPalette>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_pulseMilliseconds = 170;
/// Strong and weak by turns; what comes then stays.
constexpr float c_shares[] = {0.75F, 0.2F, 0.75F, 0.2F, 0.75F, 0.45F};
constexpr int c_lastPhase = static_cast<int>(std::size(c_shares)) - 1;
constexpr QColor c_tint(0xF2, 0xB8, 0x3C);

bool IsModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_AltGr || key == Qt::Key_Meta;
}

} // namespace

HighlightedRows::HighlightedRows(PanelTree& tree) : QObject(&tree), m_tree(tree) {
    m_timer.setInterval(c_pulseMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &HighlightedRows::Pulse);
    tree.installEventFilter(this);
    tree.viewport()->installEventFilter(this);
}

void HighlightedRows::Show(Find find) {
    m_find = std::move(find);
    m_phase = 0;
    if (!FindRows()) {
        End();
        return;
    }
    BringIntoView();
    m_timer.start();
    m_tree.viewport()->update();
}

void HighlightedRows::Hide() {
    m_find = nullptr;
    m_rows.clear();
    m_timer.stop();
    m_tree.viewport()->update();
}

void HighlightedRows::End() {
    Hide();
    emit Ended();
}

bool HighlightedRows::FindRows() {
    const std::vector<platform::TreeTableRow*> rows = m_find();
    m_rows = {rows.begin(), rows.end()};
    return !rows.empty();
}

void HighlightedRows::OnRowsChanged() {
    if (AreShown() && !FindRows())
        End();
}

void HighlightedRows::BringIntoView() {
    const auto& model = static_cast<const TreeItemModel&>(*m_tree.model());
    const std::vector<platform::TreeTableRow*> rows = m_find();
    for (const platform::TreeTableRow* const row : rows) {
        for (const platform::TreeTableRow* above = row->GetParentRow(); above;
             above = above->GetParentRow())
            m_tree.expand(model.IndexOf(*above));
    }
    // The first of them counts where they don't fit into the tree together.
    for (const platform::TreeTableRow* const row : {rows.back(), rows.front()})
        m_tree.scrollTo(model.IndexOf(*row));
}

void HighlightedRows::Pulse() {
    if (++m_phase >= c_lastPhase)
        m_timer.stop();
    m_tree.viewport()->update();
}

QColor HighlightedRows::GetGround(const QPalette& palette) const {
    const QColor ground = palette.color(QPalette::Base);
    const float share = c_shares[std::min(m_phase, c_lastPhase)];
    const auto mix = [&](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(ground.redF(), c_tint.redF()),
                            mix(ground.greenF(), c_tint.greenF()),
                            mix(ground.blueF(), c_tint.blueF()));
}

bool HighlightedRows::eventFilter(QObject* watched, QEvent* event) {
    if (!AreShown())
        return false;
    const bool isKey = event->type() == QEvent::KeyPress && watched == &m_tree;
    const bool isClick = event->type() == QEvent::MouseButtonPress && watched == m_tree.viewport();
    const int key = isKey ? static_cast<QKeyEvent*>(event)->key() : 0;
    if ((!isKey && !isClick) || IsModifier(key))
        return false;
    End();
    // The selection has come back, and the key or the click starts from there.
    static_cast<TreeItemModel*>(m_tree.model())->TellChanges();
    return key == Qt::Key_Escape;
}

} // namespace desktop

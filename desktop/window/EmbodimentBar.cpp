#include "desktop/window/EmbodimentBar.h"

#include "desktop/tree/PanelTree.h"
#include "desktop/window/EmbodimentCombo.h"
#include "platform/view/TreeTableView.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolButton>

namespace desktop {

EmbodimentBar::EmbodimentBar(QAction& modeSwitch, PanelTree& tree, QWidget* parent)
    : QWidget(parent), m_switch(modeSwitch), m_tree(tree), m_combo(new EmbodimentCombo) {
    auto* const button = new QToolButton;
    button->setDefaultAction(&modeSwitch);
    button->setFocusPolicy(Qt::TabFocus);
    m_combo->setToolTip(tr("Embodiments that have a column, counted from 0, for instance 3,5-9. "
                           "Alt+Down opens the list."));
    m_combo->lineEdit()->setPlaceholderText(tr("Counted together"));
    m_combo->setAccessibleName(tr("Embodiments"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(button);
    layout->addWidget(m_combo);
    layout->addStretch();
    connect(&modeSwitch, &QAction::triggered, this, &EmbodimentBar::Switch);
    connect(m_combo, &EmbodimentCombo::Entered, this, &EmbodimentBar::Enter);
    connect(m_combo, &EmbodimentCombo::Checked, this, &EmbodimentBar::Check);
}

void EmbodimentBar::Show(platform::TreeTableView* view) {
    m_view = view;
    if (!view)
        return;
    const platform::EmbodimentControls& controls = view->GetEmbodiments();
    m_switch.setEnabled(controls.isEnabled);
    m_switch.setChecked(controls.isOn);
    m_combo->setEnabled(!controls.lines.empty());
    std::vector<EmbodimentCombo::Line> lines;
    for (const platform::EmbodimentControls::Line& line : controls.lines)
        lines.push_back({QString::fromStdWString(line.text), line.isChecked});
    m_combo->Show(QString::fromStdWString(controls.filterText), lines);
}

void EmbodimentBar::ShowAgain() {
    m_combo->GiveBack();
    Show(m_view);
}

void EmbodimentBar::Switch(bool on) {
    // The action has changed its own look whatever comes of it.
    if (m_view && m_tree.CommitEditor())
        m_view->SwitchEmbodimentsByUser(on);
    ShowAgain();
}

void EmbodimentBar::Check(const QString& line, bool checked) {
    if (m_view && m_tree.CommitEditor())
        m_view->CheckEmbodimentsByUser(line.toStdWString(), checked);
    ShowAgain();
}

std::uint64_t EmbodimentBar::CountEmbodiments() const {
    // The last block ends with the last embodiment.
    const std::vector<platform::EmbodimentControls::Line>& lines = m_view->GetEmbodiments().lines;
    const QString last =
        lines.empty() ? QString() : QString::fromStdWString(lines.back().text).section('-', -1);
    bool isNumber = false;
    const std::uint64_t number = last.toULongLong(&isNumber);
    return isNumber ? number + 1 : 0;
}

QStringList EmbodimentBar::FindUnusable(const QString& ranges, std::uint64_t count) {
    static const QRegularExpression range(
        QRegularExpression::anchoredPattern(QStringLiteral("([0-9]+)(?:-([0-9]+))?")));
    QStringList unusable;
    for (const QString& entry : ranges.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch match = range.match(entry);
        bool isFirst = false, isLast = true;
        const std::uint64_t first = match.captured(1).toULongLong(&isFirst);
        const std::uint64_t last =
            match.captured(2).isEmpty() ? first : match.captured(2).toULongLong(&isLast);
        if (!match.hasMatch() || !isFirst || !isLast || std::min(first, last) >= count)
            unusable += entry;
    }
    return unusable;
}

void EmbodimentBar::Enter(const QString& text) {
    if (!m_view)
        return;
    // Blanks between numbers are a habit and mean nothing, but the filter passes over them with
    // their numbers.
    QString ranges = text;
    ranges.remove(QRegularExpression(QStringLiteral("\\s")));
    if (ranges == QString::fromStdWString(m_view->GetEmbodiments().filterText)) {
        ShowAgain();
        return;
    }
    // A filter that finds nothing in a text shows the last block, which nobody has asked for. So
    // the text is judged here, by what it is to the filter: entries of one number or two.
    const QStringList unusable = FindUnusable(ranges, CountEmbodiments());
    const qsizetype entries = ranges.split(QLatin1Char(','), Qt::SkipEmptyParts).size();
    if (unusable.size() == entries) {
        emit Told(entries == 0 ? tr("A range of embodiments is needed, for instance 3,5-9")
                               : tr("%1 is no range of embodiments, for instance 3,5-9").arg(text));
    } else if (m_tree.CommitEditor()) {
        m_view->EnterEmbodimentFilterByUser(ranges.toStdWString());
        if (!unusable.isEmpty())
            emit Told(tr("Left out, since there are no such embodiments: %1")
                          .arg(unusable.join(QStringLiteral(", "))));
    }
    ShowAgain();
}

} // namespace desktop

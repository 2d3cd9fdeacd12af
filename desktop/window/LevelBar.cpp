#include "desktop/window/LevelBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace desktop {

namespace {

constexpr qsizetype c_longestName = 40;
constexpr qsizetype c_mostNames = 4;

QString Shortened(const QString& name) {
    const QString line = name.simplified();
    return line.size() <= c_longestName ? line : line.left(c_longestName) + QChar(0x2026);
}

} // namespace

LevelBar::LevelBar(QWidget* parent) : QWidget(parent), m_up(new QToolButton), m_way(new QLabel) {
    m_up->setArrowType(Qt::UpArrow);
    m_up->setAutoRaise(true);
    m_up->setToolTip(tr("Back up (Alt+Up)"));
    m_way->setTextFormat(Qt::RichText);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_up);
    layout->addWidget(m_way);
    connect(m_up, &QToolButton::clicked, this, [this] { emit Chosen(m_above); });
    connect(m_way, &QLabel::linkActivated, this,
            [this](const QString& entry) { emit Chosen(entry.toInt()); });
}

void LevelBar::ShowWay(const QStringList& names, bool areAllParts) {
    m_above = static_cast<int>(names.size()) - 2;
    m_up->setEnabled(m_above >= 0);
    QStringList texts;
    for (qsizetype i = 0; i < names.size(); ++i) {
        // A long way must not make the window wider.
        if (i == 1 && names.size() > c_mostNames) {
            texts += QString(QChar(0x2026));
            i = names.size() - c_mostNames + 1;
        }
        const QString name = Shortened(names[i]).toHtmlEscaped();
        const bool isShown = i + 1 == names.size();
        texts += isShown ? QStringLiteral("<b>%1</b>").arg(name)
                         : QStringLiteral("<a href=\"%1\">%2</a>").arg(i).arg(name);
    }
    QString way = texts.join(QStringLiteral(" \u203A "));
    if (areAllParts)
        way += QStringLiteral(" \u203A ") + tr("all parts");
    m_way->setText(way);
}

} // namespace desktop

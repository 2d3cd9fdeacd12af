#include "desktop/help/HelpDialog.h"

#include <QListWidget>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace desktop {

namespace {

/// In widths and heights of a letter: who has large letters needs more room.
constexpr int c_letters = 130;
constexpr int c_lines = 38;
constexpr int c_roomBesideTitles = 16;

} // namespace

HelpDialog::HelpDialog(QWidget* parent)
    : QDialog(parent), m_titles(new QListWidget), m_text(new QTextBrowser) {
    setWindowTitle(tr("Help"));
    setSizeGripEnabled(true);
    auto* const parts = new QSplitter;
    parts->addWidget(m_titles);
    parts->addWidget(m_text);
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(parts);
    connect(m_titles, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row < m_pages.size())
            m_text->setHtml(m_pages[row].html);
    });
    const QFontMetrics letters = fontMetrics();
    resize(c_letters * letters.averageCharWidth(), c_lines * letters.lineSpacing());
}

void HelpDialog::ShowPages(const QList<HelpPage>& pages, const QString& topic) {
    m_pages = pages;
    m_titles->clear();
    int first = 0;
    for (qsizetype i = 0; i < pages.size(); ++i) {
        m_titles->addItem(pages[i].title);
        if (pages[i].topic == topic)
            first = static_cast<int>(i);
    }
    m_titles->setMinimumWidth(m_titles->sizeHintForColumn(0) + c_roomBesideTitles);
    m_titles->setCurrentRow(first);
    m_text->setFocus();
    show();
    raise();
    activateWindow();
}

} // namespace desktop

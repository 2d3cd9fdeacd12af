#include "desktop/window/HelpMenu.h"

#include "desktop/Versions.h"
#include "desktop/help/HelpDialog.h"
#include "desktop/tree/PanelKeys.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include <utility>

namespace desktop {

namespace {

constexpr const char* c_keysTopic = "PRODUCT_TREE_KEYS";

void AddKeys(const QMenu& menu, KeyGroup& group) {
    for (const QAction* const action : menu.actions()) {
        if (const QMenu* const inner = action->menu())
            AddKeys(*inner, group);
        const QString keys =
            QKeySequence::listToString(action->shortcuts(), QKeySequence::NativeText);
        if (!keys.isEmpty())
            group.lines += {keys, action->iconText()};
    }
}

} // namespace

HelpMenu::HelpMenu(QMainWindow& window, std::function<QString()> topic)
    : QObject(&window), m_window(window), m_topic(std::move(topic)) {
    QMenu* const help = window.menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&Contents"), QKeySequence::HelpContents, this,
                    [this] { ShowPage(m_topic()); });
    help->addAction(tr("All &Keys"), QKeySequence(Qt::CTRL | Qt::Key_F1), this,
                    [this] { ShowPage(QString::fromLatin1(c_keysTopic)); });
    help->addSeparator();
    help->addAction(tr("&About"), this, &HelpMenu::ShowAbout);
}

void HelpMenu::ShowPage(const QString& topic) {
    if (!m_dialog)
        m_dialog = new HelpDialog(&m_window);
    m_dialog->ShowPages(MakeHelpPages(ListKeys()), topic);
}

QList<KeyGroup> HelpMenu::ListKeys() const {
    QList<KeyGroup> groups;
    for (const QAction* const action : m_window.menuBar()->actions()) {
        KeyGroup group{action->iconText(), {}};
        AddKeys(*action->menu(), group);
        groups += group;
    }
    KeyGroup tree{tr("Tree"), {}};
    for (const PanelKey& key : ListPanelKeys())
        tree.lines += {key.keys, key.what};
    KeyGroup documents{tr("List of documents"), {}};
    for (const PanelKey& key : ListDocumentKeys())
        documents.lines += {key.keys, key.what};
    return groups << tree << documents;
}

void HelpMenu::ShowAbout() {
    QStringList lines;
    for (const PartVersion& part : ListVersions())
        lines += QStringLiteral("%1 %2").arg(QString::fromStdString(part.name),
                                             QString::fromStdString(part.version));
    lines += QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion()));
    auto* const box = new QMessageBox(QMessageBox::NoIcon, tr("About"),
                                      lines.join(QLatin1Char('\n')), QMessageBox::Ok, &m_window);
    box->setTextFormat(Qt::PlainText);
    box->setIconPixmap(m_window.windowIcon().pixmap(48));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace desktop

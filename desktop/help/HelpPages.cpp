#include "desktop/help/HelpPages.h"

#include "desktop/help/HelpTexts.h"

#include <QCoreApplication>
#include <QTextDocument>

namespace desktop {

namespace {

QString MakeKeysHtml(const QList<KeyGroup>& groups, const QString& title) {
    QString html = QStringLiteral("<h2>%1</h2>").arg(title.toHtmlEscaped());
    for (const KeyGroup& group : groups) {
        if (group.lines.isEmpty())
            continue;
        html += QStringLiteral("<h3>%1</h3><table cellspacing='0' cellpadding='3'>")
                    .arg(group.title.toHtmlEscaped());
        for (const KeyGroup::Line& line : group.lines)
            html += QStringLiteral("<tr><td width='200'><b>%1</b></td><td>%2</td></tr>")
                        .arg(line.keys.toHtmlEscaped(), line.what.toHtmlEscaped());
        html += QStringLiteral("</table>");
    }
    return html;
}

} // namespace

QList<HelpPage> MakeHelpPages(const QList<KeyGroup>& keys) {
    QTextDocument working;
    working.setMarkdown(QString::fromUtf8(c_workingText));
    const QString workingTitle =
        QCoreApplication::translate("Help", "Working with the product tree");
    const QString keysTitle = QCoreApplication::translate("Help", "All keys");
    return {{QStringLiteral("PRODUCT_TREE_HELP"), workingTitle, working.toHtml()},
            {QStringLiteral("PRODUCT_TREE_KEYS"), keysTitle, MakeKeysHtml(keys, keysTitle)}};
}

} // namespace desktop

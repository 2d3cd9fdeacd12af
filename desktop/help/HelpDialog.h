// Shows the pages of help beside the window, which can be worked in meanwhile.
#pragma once

#include "desktop/help/HelpPages.h"

#include <QDialog>

class QListWidget;
class QTextBrowser;

namespace desktop {

class HelpDialog final : public QDialog {
    Q_OBJECT

public:
    explicit HelpDialog(QWidget* parent = nullptr);

    /// Shows these pages from now on, first that of the topic; the first of all for an unknown one.
    void ShowPages(const QList<HelpPage>& pages, const QString& topic);

private:
    QList<HelpPage> m_pages;
    QListWidget* m_titles;
    QTextBrowser* m_text;
};

} // namespace desktop

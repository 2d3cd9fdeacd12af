// The Help menu: pages of help beside the window, and what the program is made of. The page of keys
// is made from the window's own menus whenever it is asked for.
#pragma once

#include "desktop/help/HelpPages.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QMainWindow;
class QMenu;

namespace desktop {

class HelpDialog;

class HelpMenu final : public QObject {
    Q_OBJECT

public:
    /// `topic` is that of what the user works with. Made behind the other menus.
    HelpMenu(QMainWindow& window, std::function<QString()> topic);

private:
    void ShowPage(const QString& topic);
    void ShowAbout();
    QList<KeyGroup> ListKeys() const;

    QMainWindow& m_window;
    std::function<QString()> m_topic;
    QPointer<HelpDialog> m_dialog;
};

} // namespace desktop

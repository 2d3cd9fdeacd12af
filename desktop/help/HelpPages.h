// The pages of help. A page is known by the name of its topic, which a panel gives for itself.
#pragma once

#include <QList>
#include <QString>

namespace desktop {

struct HelpPage {
    /// As the panel names its topic.
    QString topic;
    QString title;
    QString html;
};

/// Keys that belong together, from the first of the program's menus to what the tree itself does.
struct KeyGroup {
    struct Line {
        QString keys;
        QString what;
    };

    QString title;
    QList<Line> lines;
};

/// How the program is worked with, and all its keys.
QList<HelpPage> MakeHelpPages(const QList<KeyGroup>& keys);

} // namespace desktop

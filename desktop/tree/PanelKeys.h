// What the tree and its editors do with keys that no menu has.
#pragma once

#include <QList>
#include <QString>

namespace desktop {

struct PanelKey {
    QString keys;
    QString what;
};

QList<PanelKey> ListPanelKeys();

} // namespace desktop

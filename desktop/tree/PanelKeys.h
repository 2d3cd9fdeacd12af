// What the tree, its editors and the list of documents do with keys that no menu has.
#pragma once

#include <QList>
#include <QString>

namespace desktop {

struct PanelKey {
    QString keys;
    QString what;
};

QList<PanelKey> ListPanelKeys();
QList<PanelKey> ListDocumentKeys();

} // namespace desktop

#include "desktop/window/SourceDesk.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace desktop {

bool SourceDesk::OpenFile(const std::filesystem::path& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

void SourceDesk::SetBusy(bool isBusy) {
    if (isBusy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace desktop

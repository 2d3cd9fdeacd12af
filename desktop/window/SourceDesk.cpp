#include "desktop/window/SourceDesk.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace desktop {

bool SourceDesk::OpenFile(const std::filesystem::path& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

std::optional<platform::SheetSize> SourceDesk::FindSheetSize(const std::filesystem::path& path) {
    const std::optional<QSizeF> size = m_sheets.Find(QFile::decodeName(path.c_str()));
    return size ? std::optional(platform::SheetSize{size->width(), size->height()}) : std::nullopt;
}

void SourceDesk::SetBusy(bool isBusy) {
    if (isBusy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace desktop

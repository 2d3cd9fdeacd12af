#include "desktop/window/SourceDesk.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QUrl>
#ifdef PRODUCT_TREE_HAS_PDF
#include <QPdfDocument>
#endif

namespace desktop {

bool SourceDesk::OpenFile(const std::filesystem::path& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

std::optional<platform::SheetSize>
SourceDesk::FindSheetSize([[maybe_unused]] const std::filesystem::path& path) {
#ifdef PRODUCT_TREE_HAS_PDF
    QPdfDocument document;
    if (document.load(QFile::decodeName(path.c_str())) != QPdfDocument::Error::None)
        return std::nullopt;
    constexpr double c_millimetresInPoint = 25.4 / 72;
    const QSizeF points = document.pagePointSize(0);
    return platform::SheetSize{points.width() * c_millimetresInPoint,
                               points.height() * c_millimetresInPoint};
#else
    return std::nullopt;
#endif
}

void SourceDesk::SetBusy(bool isBusy) {
    if (isBusy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

} // namespace desktop

#include "desktop/preview/Pictures.h"

#include <QCoreApplication>
#include <QImageReader>

#include <algorithm>

namespace desktop {

namespace {

/// In MB: a scan of a large sheet. The process has a limit of its own.
constexpr int c_mostMemory = 1024;

/// Of what is stored, which the reader may turn by a quarter. A small image stays as it is.
QSize FindSize(const QImageReader& reader, const PreviewRequest& request) {
    const QSize stored = reader.size();
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize room = isTurned ? request.pixels.transposed() : request.pixels;
    if (stored.width() <= room.width() && stored.height() <= room.height())
        return stored;
    return stored.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

} // namespace

PreviewAnswer MakeImagePicture(const PreviewRequest& request, const FileHead&) {
    QImageReader::setAllocationLimit(c_mostMemory);
    QImageReader reader(request.path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    // A moving image shows how it begins.
    const int pages = reader.supportsAnimation() ? 1 : std::max(reader.imageCount(), 1);
    const int page = std::clamp(request.page, 0, pages - 1);
    if (page > 0)
        reader.jumpToImage(page);
    if (reader.size().isValid())
        reader.setScaledSize(FindSize(reader, request));
    QImage image = reader.read();
    if (image.isNull())
        return MakeFailure(
            QCoreApplication::translate("ImagePicture", "The image can't be read: %1")
                .arg(reader.errorString()));
    if (image.width() > request.pixels.width() || image.height() > request.pixels.height())
        image = image.scaled(request.pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return {PutOnPaper(image), page, pages, {}};
}

} // namespace desktop

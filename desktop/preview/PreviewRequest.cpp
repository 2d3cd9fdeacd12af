#include "desktop/preview/PreviewRequest.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

constexpr QImage::Format c_format = QImage::Format_ARGB32_Premultiplied;

/// The pixels as they are: an image of its own form would be packed on its way.
QByteArray TakePixels(const QImage& image) {
    const QImage plain = image.convertToFormat(c_format);
    return {reinterpret_cast<const char*>(plain.constBits()),
            static_cast<qsizetype>(plain.sizeInBytes())};
}

QImage MakeImage(QSize size, const QByteArray& pixels) {
    QImage image(size, c_format);
    if (image.isNull() || image.sizeInBytes() != pixels.size())
        return {};
    std::copy(pixels.begin(), pixels.end(), reinterpret_cast<char*>(image.bits()));
    return image;
}

} // namespace

PreviewAnswer MakeFailure(const QString& oneLine) {
    PreviewAnswer answer;
    answer.error = oneLine;
    return answer;
}

QByteArray ToBytes(const PreviewRequest& request) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << request.path << request.pixels << request.scale << request.page << request.ink
           << request.assembly << request.encoding;
    return bytes;
}

QByteArray ToBytes(const PreviewAnswer& answer) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << answer.error << answer.page << answer.pageCount << answer.image.size()
           << TakePixels(answer.image);
    return bytes;
}

std::optional<PreviewRequest> ReadRequest(const QByteArray& bytes) {
    PreviewRequest request;
    QDataStream stream(bytes);
    stream >> request.path >> request.pixels >> request.scale >> request.page >> request.ink >>
        request.assembly >> request.encoding;
    if (stream.status() != QDataStream::Ok || request.pixels.isEmpty())
        return std::nullopt;
    return request;
}

std::optional<PreviewAnswer> ReadAnswer(const QByteArray& bytes) {
    PreviewAnswer answer;
    QSize size;
    QByteArray pixels;
    QDataStream stream(bytes);
    stream >> answer.error >> answer.page >> answer.pageCount >> size >> pixels;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    if (!answer.error.isEmpty())
        return answer;
    answer.image = MakeImage(size, pixels);
    return answer.image.isNull() ? std::nullopt : std::optional(std::move(answer));
}

} // namespace desktop

#include "desktop/preview/PreviewRequest.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <utility>

namespace desktop {

namespace {

constexpr QImage::Format c_format = QImage::Format_ARGB32_Premultiplied;

constexpr qint64 c_lengthSize = sizeof(quint64);
using FrameLength = std::array<char, c_lengthSize>;

/// The pixels as they are: an image of its own form would be packed on its way.
QByteArray TakePixels(const QImage& image) {
    const QImage plain = image.convertToFormat(c_format);
    return {reinterpret_cast<const char*>(plain.constBits()),
            static_cast<qsizetype>(plain.sizeInBytes())};
}

QDataStream& operator<<(QDataStream& stream, const StepPart& part) {
    return stream << QString::fromStdWString(part.id) << QString::fromStdWString(part.name)
                  << QByteArray::fromStdString(part.key)
                  << QByteArray::fromStdString(part.encoding);
}

QDataStream& operator>>(QDataStream& stream, StepPart& part) {
    QString id;
    QString name;
    QByteArray key;
    QByteArray encoding;
    stream >> id >> name >> key >> encoding;
    part = {id.toStdWString(), name.toStdWString(), key.toStdString(), encoding.toStdString()};
    return stream;
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

QByteArray ToBytes(const StepPart& part) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << part;
    return bytes;
}

QByteArray ToBytes(const PreviewRequest& request) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << request.task << request.path << request.pixels << request.scale << request.page
           << request.ink << request.assembly << request.encoding << request.part
           << request.isPartAlone;
    return bytes;
}

QByteArray ToBytes(const PreviewAnswer& answer) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << answer.error << answer.page << answer.pageCount << answer.sheet << answer.image.size()
           << TakePixels(answer.image);
    return bytes;
}

std::optional<PreviewRequest> ReadRequest(const QByteArray& bytes) {
    PreviewRequest request;
    QDataStream stream(bytes);
    stream >> request.task >> request.path >> request.pixels >> request.scale >> request.page >>
        request.ink >> request.assembly >> request.encoding >> request.part >> request.isPartAlone;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    return request;
}

std::optional<PreviewAnswer> ReadAnswer(const QByteArray& bytes) {
    PreviewAnswer answer;
    QSize size;
    QByteArray pixels;
    QDataStream stream(bytes);
    stream >> answer.error >> answer.page >> answer.pageCount >> answer.sheet >> size >> pixels;
    if (stream.status() != QDataStream::Ok)
        return std::nullopt;
    if (!answer.error.isEmpty() || size.isEmpty())
        return answer;
    answer.image = MakeImage(size, pixels);
    return answer.image.isNull() ? std::nullopt : std::optional(std::move(answer));
}

QByteArray ToFrame(const QByteArray& bytes) {
    FrameLength length{};
    qToBigEndian(static_cast<quint64>(bytes.size()), length.data());
    return QByteArray(length.data(), c_lengthSize) + bytes;
}

std::optional<QByteArray> TakeFrame(QIODevice& pipe) {
    FrameLength length{};
    if (pipe.peek(length.data(), c_lengthSize) < c_lengthSize)
        return std::nullopt;
    const auto size = static_cast<qint64>(qFromBigEndian<quint64>(length.data()));
    if (pipe.bytesAvailable() - c_lengthSize < size)
        return std::nullopt;
    pipe.skip(c_lengthSize);
    return pipe.read(size);
}

} // namespace desktop

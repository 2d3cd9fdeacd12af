// What is asked of the process that works previews out, and what it answers. Both go as bytes over
// a pipe, on one machine and between runs of one program.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace desktop {

struct PreviewRequest {
    /// Absolute.
    QString path;
    /// Of the screen or the file; no picture is larger.
    QSize pixels;
    /// Pixels of the picture to one of the layout: more than 1 on a fine screen.
    double scale = 1;
    /// From 0 on.
    int page = 0;
    /// What has no colours of its own is drawn in this one, on nothing.
    QColor ink;
    /// Of a STEP file: the name of the product that is drawn, empty for all of it, and what its
    /// texts are read as.
    QString assembly;
    QString encoding;
};

struct PreviewAnswer {
    QImage image;
    int page = 0;
    int pageCount = 1;
    /// One line; empty where there is a picture.
    QString error;
};

PreviewAnswer MakeFailure(const QString& oneLine);

QByteArray ToBytes(const PreviewRequest& request);
QByteArray ToBytes(const PreviewAnswer& answer);
/// No value for bytes that are not whole.
std::optional<PreviewRequest> ReadRequest(const QByteArray& bytes);
std::optional<PreviewAnswer> ReadAnswer(const QByteArray& bytes);

} // namespace desktop

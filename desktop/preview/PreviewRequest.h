// What is asked of the process that works previews out, and what it answers. Both go as bytes over
// a pipe, on one machine and between runs of one program.
#pragma once

#include "desktop/StepPart.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QSizeF>
#include <QString>

#include <optional>

class QIODevice;

namespace desktop {

/// What is to be answered.
enum class PreviewTask : quint8 {
    Picture,
    /// How large the first page of a PDF is.
    SheetSize
};

struct PreviewRequest {
    PreviewTask task = PreviewTask::Picture;
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
    /// Of the file that a part came from: the part, which is drawn if it is there still.
    StepPart part;
    /// Else nothing is drawn, and not the whole file.
    bool isPartAlone = false;
};

struct PreviewAnswer {
    QImage image;
    int page = 0;
    int pageCount = 1;
    /// One line; empty where there is an answer.
    QString error;
    /// In millimetres, where that was asked for.
    QSizeF sheet{};
    /// It would be answered so again as long as the file stays as it is.
    bool isLasting = true;
};

PreviewAnswer MakeFailure(const QString& oneLine);

QByteArray ToBytes(const StepPart& part);
QByteArray ToBytes(const PreviewRequest& request);
QByteArray ToBytes(const PreviewAnswer& answer);
/// No value for bytes that are not whole.
std::optional<PreviewRequest> ReadRequest(const QByteArray& bytes);
std::optional<PreviewAnswer> ReadAnswer(const QByteArray& bytes);

/// The bytes with their length before them, and the first such in the pipe, once it is there as a
/// whole.
QByteArray ToFrame(const QByteArray& bytes);
std::optional<QByteArray> TakeFrame(QIODevice& pipe);

} // namespace desktop

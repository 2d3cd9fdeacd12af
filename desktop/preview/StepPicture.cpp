#include "desktop/LevelChoice.h"
#include "desktop/StepPart.h"
#include "desktop/import/StepImport.h"
#include "desktop/preview/LineSheet.h"
#include "desktop/preview/Pictures.h"

#include <QFile>
#include <QLineF>
#include <QList>

#include <cmath>

namespace desktop {

namespace {

/// Where surfaces go on smoothly, a faint line shows the form.
constexpr double c_seamWidth = 0.7;
constexpr double c_seamStrength = 0.4;

QList<QLineF> ToLines(const std::vector<step::DrawnLine>& drawn) {
    QList<QLineF> lines;
    lines.reserve(static_cast<qsizetype>(drawn.size()));
    for (const step::DrawnLine& line : drawn) {
        const QLineF made(line.fromX, line.fromY, line.toX, line.toY);
        if (std::isfinite(made.dx()) && std::isfinite(made.dy()))
            lines.push_back(made);
    }
    return lines;
}

QRectF FindExtent(const QList<QLineF>& lines) {
    QRectF extent;
    bool isFirst = true;
    for (const QLineF& line : lines) {
        for (const QPointF& point : {line.p1(), line.p2()}) {
            if (isFirst)
                extent = QRectF(point, QSizeF(0, 0));
            isFirst = false;
            extent.setCoords(std::min(extent.left(), point.x()), std::min(extent.top(), point.y()),
                             std::max(extent.right(), point.x()),
                             std::max(extent.bottom(), point.y()));
        }
    }
    return extent;
}

QImage Paint(const step::LineDrawing& drawing, const PreviewRequest& request) {
    QList<QLineF> edges = ToLines(drawing.edges);
    QList<QLineF> seams = ToLines(drawing.seams);
    LineSheet sheet(FindExtent(edges + seams), request);
    QPainter& painter = sheet.GetPainter();
    const auto draw = [&](QList<QLineF>& lines) {
        for (QLineF& line : lines)
            line = sheet.GetPlace().map(line);
        painter.drawLines(lines);
    };
    painter.setPen(sheet.MakePen(c_seamWidth, c_seamStrength));
    draw(seams);
    painter.setPen(sheet.MakePen());
    draw(edges);
    return sheet.Take();
}

using Read = decltype(step::StepDocument::Read({}, {}));

/// What was read last is kept: who wants many parts of a file asks for one after the other.
Read& ReadOnce(const QString& path, const std::string& encoding) {
    static QString lastPath;
    static std::string lastEncoding;
    static Read last;
    if (path != lastPath || encoding != lastEncoding) {
        lastPath.clear();
        last = FileError{};
        step::StepOptions options;
        options.encoding = encoding;
        last = step::StepDocument::Read(QFile::encodeName(path).toStdString(), options);
        lastPath = path;
        lastEncoding = encoding;
    }
    return last;
}

std::variant<UniqueMetaObjectKey, FileError> FindDrawn(const platform::ProductModel& model,
                                                       const PreviewRequest& request) {
    if (!request.part.IsEmpty()) {
        if (const auto part = FindObject(model, request.part))
            return *part;
        if (request.isPartAlone)
            return FileError{"the part is not in the file any more"};
    }
    return FindObject(model, request.assembly.toStdString());
}

PreviewAnswer Fail(const FileError& error) {
    QString line = QString::fromStdString(error.reason);
    line.front() = line.front().toUpper();
    return MakeFailure(line);
}

} // namespace

PreviewAnswer MakeStepPicture(const PreviewRequest& request, const FileHead&) {
    auto& read = ReadOnce(request.path, request.part.IsEmpty() ? request.encoding.toStdString()
                                                               : request.part.encoding);
    if (const auto* const error = std::get_if<FileError>(&read))
        return Fail(*error);
    step::StepDocument& document = *std::get<0>(read);
    const auto object = FindDrawn(document.GetModel(), request);
    if (const auto* const error = std::get_if<FileError>(&object))
        return Fail(*error);
    const auto drawing = document.Draw(std::get<UniqueMetaObjectKey>(object));
    if (const auto* const error = std::get_if<FileError>(&drawing))
        return Fail(*error);
    PreviewAnswer answer;
    answer.image = Paint(std::get<step::LineDrawing>(drawing), request);
    return answer;
}

} // namespace desktop

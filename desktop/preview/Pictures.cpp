#include "desktop/preview/Pictures.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>

namespace desktop {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("Pictures", text);
}

PreviewAnswer RefuseBinaryDxf(const PreviewRequest&, const FileHead&) {
    return MakeFailure(Tr("A binary DXF file has no preview"));
}

PreviewAnswer RefuseUnknown(const PreviewRequest&, const FileHead&) {
    return MakeFailure(Tr("No preview for this kind of file"));
}

[[maybe_unused]] PreviewAnswer RefuseAbsent(const PreviewRequest&, const FileHead&) {
    return MakeFailure(Tr("This build has no preview for this kind of file"));
}

#ifndef PRODUCT_TREE_HAS_PDF
constexpr auto MakePdfPicture = RefuseAbsent;
constexpr auto MeasurePdfSheet = RefuseAbsent;
#endif
#ifndef PRODUCT_TREE_HAS_STEP
constexpr auto MakeStepPicture = RefuseAbsent;
#endif
#ifndef PRODUCT_TREE_HAS_DXF
constexpr auto MakeDxfPicture = RefuseAbsent;
#endif
#ifndef PRODUCT_TREE_HAS_SVG
constexpr auto MakeSvgPicture = RefuseAbsent;
#endif

struct PictureRow {
    PreviewTask task;
    FileKind kind;
    PreviewAnswer (*make)(const PreviewRequest& request, const FileHead& head);
};

constexpr PictureRow c_pictures[] = {
    {PreviewTask::Picture, FileKind::Pdf, MakePdfPicture},
    {PreviewTask::Picture, FileKind::Step, MakeStepPicture},
    {PreviewTask::Picture, FileKind::Dxf, MakeDxfPicture},
    {PreviewTask::Picture, FileKind::BinaryDxf, RefuseBinaryDxf},
    {PreviewTask::Picture, FileKind::Svg, MakeSvgPicture},
    {PreviewTask::Picture, FileKind::Image, MakeImagePicture},
    {PreviewTask::Picture, FileKind::Text, MakeTextPicture},
    {PreviewTask::SheetSize, FileKind::Pdf, MeasurePdfSheet},
};

} // namespace

PreviewAnswer MakeAnswer(const PreviewRequest& request) {
    const auto loaded = LoadHead(request.path);
    if (const auto* const obstacle = std::get_if<QString>(&loaded))
        return MakeFailure(*obstacle);
    const auto& head = std::get<FileHead>(loaded);
    const FileKind kind = TellKind(head.bytes, request.path);
    if (!request.assembly.isEmpty() && kind != FileKind::Step)
        return MakeFailure(Tr("Not a STEP file"));
    const auto* const row = std::ranges::find_if(c_pictures, [&](const PictureRow& known) {
        return known.task == request.task && known.kind == kind;
    });
    return row == std::end(c_pictures) ? RefuseUnknown(request, head) : row->make(request, head);
}

QSize FitSize(QSizeF shape, const PreviewRequest& request) {
    const QSizeF fitted = shape.scaled(QSizeF(request.pixels), Qt::KeepAspectRatio);
    return fitted.toSize().expandedTo(QSize(1, 1)).boundedTo(request.pixels);
}

QImage PutOnPaper(const QImage& image) {
    if (!image.hasAlphaChannel())
        return image;
    QImage paper(image.size(), QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, image);
    return paper;
}

} // namespace desktop

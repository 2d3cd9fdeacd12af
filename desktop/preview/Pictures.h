// What a file looks like, as a picture: one function a kind of file, and the one that chooses among
// them. They take what time and memory they need and may end with the process: they are for a
// process that has nothing to lose.
#pragma once

#include "desktop/preview/FileKind.h"
#include "desktop/preview/PreviewRequest.h"

namespace desktop {

PreviewAnswer MakeAnswer(const PreviewRequest& request);

/// Of a file of that kind.
PreviewAnswer MakePdfPicture(const PreviewRequest& request, const FileHead& head);
PreviewAnswer MakeStepPicture(const PreviewRequest& request, const FileHead& head);
PreviewAnswer MakeDxfPicture(const PreviewRequest& request, const FileHead& head);
PreviewAnswer MakeSvgPicture(const PreviewRequest& request, const FileHead& head);
PreviewAnswer MakeImagePicture(const PreviewRequest& request, const FileHead& head);
PreviewAnswer MakeTextPicture(const PreviewRequest& request, const FileHead& head);

/// Of the first page of a PDF file.
PreviewAnswer MeasurePdfSheet(const PreviewRequest& request, const FileHead& head);

/// The size of a thing of that shape that fills the request as far as it can.
QSize FitSize(QSizeF shape, const PreviewRequest& request);
/// What was painted for white paper may be black on nothing.
QImage PutOnPaper(const QImage& image);

} // namespace desktop

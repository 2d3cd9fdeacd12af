#include "desktop/preview/Pictures.h"

#include <QCoreApplication>
#include <QPdfDocument>

#include <algorithm>

namespace desktop {

namespace {

const char* Explain(QPdfDocument::Error error) {
    switch (error) {
    case QPdfDocument::Error::IncorrectPassword:
        return "The PDF file is locked with a password";
    case QPdfDocument::Error::UnsupportedSecurityScheme:
        return "The PDF file is locked in a way that is not known here";
    default:
        return "The PDF file is damaged";
    }
}

PreviewAnswer Fail(const char* text) {
    return MakeFailure(QCoreApplication::translate("PdfPicture", text));
}

} // namespace

PreviewAnswer MakePdfPicture(const PreviewRequest& request, const FileHead&) {
    QPdfDocument document;
    const QPdfDocument::Error error = document.load(request.path);
    if (error != QPdfDocument::Error::None)
        return Fail(Explain(error));
    const int pages = document.pageCount();
    if (pages < 1)
        return Fail("The PDF file has no pages");
    const int page = std::clamp(request.page, 0, pages - 1);
    const QSizeF size = document.pagePointSize(page);
    if (size.isEmpty())
        return Fail("The page is empty");
    const QImage image = document.render(page, FitSize(size, request));
    if (image.isNull())
        return Fail("The page can't be shown");
    return {PutOnPaper(image), page, pages, {}};
}

PreviewAnswer MeasurePdfSheet(const PreviewRequest& request, const FileHead&) {
    constexpr double millimetresInPoint = 25.4 / 72;
    QPdfDocument document;
    const QPdfDocument::Error error = document.load(request.path);
    if (error != QPdfDocument::Error::None)
        return Fail(Explain(error));
    PreviewAnswer answer;
    answer.sheet = document.pagePointSize(0) * millimetresInPoint;
    return answer;
}

} // namespace desktop

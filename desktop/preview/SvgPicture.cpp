#include "desktop/preview/Pictures.h"

#include <QCoreApplication>
#include <QPainter>
#include <QSvgRenderer>

namespace desktop {

PreviewAnswer MakeSvgPicture(const PreviewRequest& request, const FileHead&) {
    QSvgRenderer renderer;
    if (!renderer.load(request.path) || renderer.viewBoxF().isEmpty())
        return MakeFailure(QCoreApplication::translate("SvgPicture", "The SVG file is damaged"));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage paper(FitSize(renderer.viewBoxF().size(), request), QImage::Format_ARGB32_Premultiplied);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    renderer.render(&painter, QRectF(paper.rect()));
    return {paper, 0, 1, {}};
}

} // namespace desktop

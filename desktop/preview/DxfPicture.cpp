#include "desktop/preview/DxfDrawing.h"
#include "desktop/preview/LineSheet.h"
#include "desktop/preview/Pictures.h"

#include <QCoreApplication>
#include <QFile>
#include <QFontMetricsF>

#include <dl_dxf.h>

#include <cmath>

namespace desktop {

namespace {

/// Fonts are laid out at this size and then scaled: at the size of a drawing they may be nothing.
constexpr int c_fontPixels = 64;

QFont MakeFont() {
    QFont font;
    font.setPixelSize(c_fontPixels);
    return font;
}

/// In the text's own place, with y upwards.
QRectF FindBox(const DxfText& text, const QFontMetricsF& metrics) {
    const double width = metrics.horizontalAdvance(text.text) / metrics.capHeight();
    return {-text.alignX * width, -text.alignY, width, 1};
}

QRectF FindExtent(const DxfBlock& drawing, const QFontMetricsF& metrics) {
    QRectF extent = drawing.lines.boundingRect();
    for (const DxfText& text : drawing.texts) {
        const QRectF box = text.place.mapRect(FindBox(text, metrics));
        extent = drawing.lines.isEmpty() && extent.isNull() ? box : extent.united(box);
    }
    return extent;
}

void DrawText(LineSheet& sheet, const DxfText& text, const QFontMetricsF& metrics) {
    const QRectF box = FindBox(text, metrics);
    QTransform place;
    place.translate(box.left(), box.top());
    place.scale(1 / metrics.capHeight(), -1 / metrics.capHeight());
    sheet.GetPainter().setTransform(place * text.place * sheet.GetPlace());
    sheet.GetPainter().drawText(QPointF(0, 0), text.text);
}

PreviewAnswer Fail(const char* text) {
    return MakeFailure(QCoreApplication::translate("DxfPicture", text));
}

} // namespace

PreviewAnswer MakeDxfPicture(const PreviewRequest& request, const FileHead&) {
    DxfDrawing read;
    DL_Dxf reader;
    // From a stream it does not tell of every line, which dimensions need.
    if (!reader.in(QFile::encodeName(request.path).toStdString(), &read))
        return Fail("The DXF file is damaged");
    const DxfBlock drawing = read.Flatten();
    const QFont font = MakeFont();
    const QFontMetricsF metrics(font);
    const QRectF extent = FindExtent(drawing, metrics);
    if (drawing.IsEmpty())
        return Fail("Nothing is drawn in the DXF file");
    if (!std::isfinite(extent.width()) || !std::isfinite(extent.height()))
        return Fail("The DXF file is damaged");
    LineSheet sheet(extent, request);
    sheet.GetPainter().drawPath(sheet.GetPlace().map(drawing.lines));
    sheet.GetPainter().setFont(font);
    for (const DxfText& text : drawing.texts)
        DrawText(sheet, text, metrics);
    return {sheet.Take(), 0, 1, {}};
}

} // namespace desktop

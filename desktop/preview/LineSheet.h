// A transparent sheet of paper that is as large as a drawing needs, and a painter with the pens for
// it. Shared by drawings of parts and drawings of files.
#pragma once

#include "desktop/preview/PreviewRequest.h"

#include <QPainter>
#include <QTransform>

namespace desktop {

class LineSheet final {
public:
    /// `extent` is that of the drawing, with y upwards.
    LineSheet(const QRectF& extent, const PreviewRequest& request);

    QPainter& GetPainter() { return m_painter; }
    /// From the drawing to the sheet.
    const QTransform& GetPlace() const { return m_place; }
    /// As thin as can be read at that size, or `share` of it, in the ink as strong as it says.
    QPen MakePen(double share = 1, double strength = 1) const;
    QImage Take();

private:
    QColor m_ink;
    double m_lineWidth;
    QImage m_image;
    QTransform m_place;
    QPainter m_painter;
};

} // namespace desktop

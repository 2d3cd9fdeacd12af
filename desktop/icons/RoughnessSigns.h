// The signs of surface roughness as drawings have them: legs at 60 degrees, of which the longer one
// carries the text below a shelf; a bar where material is removed, a circle where it must not be.
// Drawn in one colour, so that they suit any theme.
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;
class QPalette;

namespace desktop {

enum class RoughnessSign { None, Any, Machined, NotMachined };

/// In the middle of the frame, with lines and letters in the pen's colour and the painter's font. A
/// text that is too long ends in dots.
void DrawRoughness(QPainter& painter, const QRectF& frame, RoughnessSign sign, const QString& text);

/// The sign alone, for rows of lists, selected ones too.
QIcon MakeRoughnessIcon(RoughnessSign sign, const QSize& size, const QPalette& palette,
                        double pixelRatio);

} // namespace desktop

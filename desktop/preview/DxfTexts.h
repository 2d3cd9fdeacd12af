// The texts of a DXF file without the codes that stand in them.
#pragma once

#include <QString>
#include <QStringList>

#include <string>

namespace desktop {

/// Of one line; signs of drawings such as a diameter are written with percent signs.
QString ReadDxfText(const std::string& text);
/// Of several, with fonts, heights and colours among them.
QStringList ReadDxfParagraphs(const std::string& text);

} // namespace desktop

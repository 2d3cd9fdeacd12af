#include "desktop/books/BookColours.h"

#include <QLabel>

namespace desktop {

namespace {

constexpr QColor c_refused(0xC0, 0x2F, 0x2F);
constexpr QColor c_refusedOnDark(0xFF, 0x8A, 0x80);
/// Of what counts as light.
constexpr int c_darkest = 128;

} // namespace

QColor RefusalColour(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < c_darkest ? c_refusedOnDark : c_refused;
}

QLabel* MakeRefusalLabel(const QPalette& palette) {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QPalette colours = palette;
    colours.setColor(QPalette::WindowText, RefusalColour(palette));
    label->setPalette(colours);
    label->hide();
    return label;
}

} // namespace desktop

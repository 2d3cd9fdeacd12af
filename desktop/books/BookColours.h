// How the dialogs of books say that something was not taken, on light and on dark ground.
#pragma once

#include <QColor>
#include <QPalette>

class QLabel;

namespace desktop {

QColor RefusalColour(const QPalette& palette);
/// Hidden as long as there is nothing to say.
QLabel* MakeRefusalLabel(const QPalette& palette);

} // namespace desktop

// The letters by which entries of an open menu are chosen.
#pragma once

#include <QList>

class QAction;

namespace desktop {

/// Marks a letter in each text that has none yet, one that no other entry has; where none is left
/// the text stays as it is.
void MarkLetters(const QList<QAction*>& actions);

} // namespace desktop

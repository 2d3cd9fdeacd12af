// What a command looks like wherever the toolkit shows it: text, key and tip, from the host's
// resources.
#pragma once

#include <QKeySequence>
#include <QString>

namespace desktop {

/// These three are empty for an unknown command.
QString TextOfCommand(unsigned command);
QKeySequence KeyOfCommand(unsigned command);
/// For a button, which has no room for its text: what the command does, with its key.
QString TipOfCommand(unsigned command);
/// For a menu in which the key is a text alone: it belongs to somebody else's action.
QString EntryOfCommand(const QString& text, const QKeySequence& key);

} // namespace desktop

// Texts that are tables: lines of fields with something between them, some in quotes.
#pragma once

#include <QChar>
#include <QList>
#include <QStringList>

namespace desktop {

/// What stands between the fields; null for a text that is no table by its name.
QChar FindSeparator(const QString& path, const QStringList& lines);

/// A quoted field with a line break in it ends with its line: only the beginning is looked at.
QList<QStringList> SplitTable(const QStringList& lines, QChar separator);

} // namespace desktop

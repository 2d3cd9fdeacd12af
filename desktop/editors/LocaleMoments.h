// Moments in the user's locale. They are the product's, in UTC, and are not moved into the time
// zone of the machine: a day must not become another one on the way.
#pragma once

#include <QDateTime>
#include <QString>

namespace desktop {

/// Of an ISO 8601 text, as the product tells its moments. Invalid for any other text.
QDateTime ReadMoment(const QString& text);
/// As the product takes it.
QString WriteMoment(const QDateTime& moment);

/// As the locale writes dates, with all digits of the year; with the time where that is not
/// midnight. Empty for an invalid one.
QString FormatMoment(const QDateTime& moment);
/// The same of each moment in a text that lists such, as the cell of a group does; what is none
/// stays.
QString FormatMoments(const QString& list);
/// What the user has typed: a date in the order of his locale or of ISO 8601, with a time behind it
/// or without. Invalid when it is no date.
QDateTime ParseMoment(const QString& text);

} // namespace desktop

// Moments in the user's locale. They are the product's, in UTC, and are not moved into the time
// zone of the machine: a day must not become another one on the way.
#pragma once

#include <QDateTime>
#include <QString>

namespace desktop {

/// Of an ISO 8601 text.
QDateTime ReadMoment(const QString& text);
/// As the locale writes dates, with all digits of the year; with the time where that is not
/// midnight.
QString MomentFormat(const QDateTime& moment);
QString FormatMoment(const QString& text);

} // namespace desktop

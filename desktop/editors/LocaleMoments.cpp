#include "desktop/editors/LocaleMoments.h"

#include <QLocale>
#include <QStringList>

namespace desktop {

namespace {

constexpr QChar c_listDelim(';');
/// Nobody means the years before when he leaves the century out.
constexpr int c_century = 2000;

QString WithAllDigitsOfTheYear(QString format) {
    return format.contains(QStringLiteral("yyyy"))
               ? format
               : format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
}

QString IsoFormat() {
    return QStringLiteral("yyyy-MM-dd");
}

/// The user's own, unless that can't read what it writes.
QString DateFormat() {
    const QLocale locale;
    const QString own = WithAllDigitsOfTheYear(locale.dateFormat(QLocale::ShortFormat));
    const QDate day(2026, 5, 31);
    return locale.toDate(locale.toString(day, own), own) == day ? own : IsoFormat();
}

/// The formats in which a date may be typed: zeros before a day or a month may be left out, as may
/// the century.
QStringList DateFormats() {
    const QString own = DateFormat();
    QString loose = own;
    // Names of months keep their letters.
    if (!own.contains(QStringLiteral("MMM")))
        loose.replace(QStringLiteral("MM"), QStringLiteral("M"));
    if (!own.contains(QStringLiteral("ddd")))
        loose.replace(QStringLiteral("dd"), QStringLiteral("d"));
    QString shortYear = loose;
    shortYear.replace(QStringLiteral("yyyy"), QStringLiteral("yy"));
    return {own, loose, shortYear, IsoFormat()};
}

QDate ParseDate(const QString& text) {
    for (const QString& format : DateFormats()) {
        const QDate date = QLocale().toDate(text, format);
        const bool hasCentury = format.contains(QStringLiteral("yyyy"));
        if (date.isValid())
            return hasCentury ? date : date.addYears(c_century - date.year() / 100 * 100);
    }
    return {};
}

QTime ParseTime(const QString& text) {
    for (const char* const format : {"HH:mm:ss", "H:mm:ss", "HH:mm", "H:mm"}) {
        const QTime time = QTime::fromString(text, QLatin1String(format));
        if (time.isValid())
            return time;
    }
    return {};
}

} // namespace

QDateTime ReadMoment(const QString& text) {
    QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
    moment.setTimeSpec(Qt::UTC);
    return moment;
}

QString WriteMoment(const QDateTime& moment) {
    return moment.toString(Qt::ISODate);
}

QString FormatMoment(const QDateTime& moment) {
    if (!moment.isValid())
        return {};
    const QString date = QLocale().toString(moment.date(), DateFormat());
    return moment.time() == QTime(0, 0)
               ? date
               : date + moment.time().toString(QStringLiteral(" HH:mm:ss"));
}

QString FormatMoments(const QString& list) {
    QStringList texts = list.split(c_listDelim);
    for (QString& text : texts) {
        if (const QDateTime moment = ReadMoment(text); moment.isValid())
            text = FormatMoment(moment);
    }
    return texts.join(c_listDelim);
}

QDateTime ParseMoment(const QString& text) {
    const QString typed = text.trimmed();
    if (const QDate date = ParseDate(typed); date.isValid())
        return {date, QTime(0, 0), Qt::UTC};
    // The locale may write blanks inside the date; the time is what stands behind the last one.
    const qsizetype blank = typed.lastIndexOf(QLatin1Char(' '));
    const QDate date = ParseDate(typed.left(blank).trimmed());
    const QTime time = ParseTime(typed.mid(blank + 1));
    if (blank > 0 && date.isValid() && time.isValid())
        return {date, time, Qt::UTC};
    return ReadMoment(typed);
}

} // namespace desktop

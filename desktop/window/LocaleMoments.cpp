#include "desktop/window/LocaleMoments.h"

#include <QLocale>

namespace desktop {

QDateTime ReadMoment(const QString& text) {
    QDateTime moment = QDateTime::fromString(text, Qt::ISODate);
    moment.setTimeSpec(Qt::UTC);
    return moment;
}

QString MomentFormat(const QDateTime& moment) {
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return moment.time() == QTime(0, 0) ? format : format + QStringLiteral(" HH:mm:ss");
}

QString FormatMoment(const QString& text) {
    const QDateTime moment = ReadMoment(text);
    return moment.isValid() ? QLocale().toString(moment, MomentFormat(moment)) : text;
}

} // namespace desktop

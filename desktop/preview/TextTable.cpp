#include "desktop/preview/TextTable.h"

#include <algorithm>

namespace desktop {

namespace {

constexpr QChar c_quote(u'"');

QStringList SplitLine(const QString& line, QChar separator) {
    QStringList fields{QString()};
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar character = line[i];
        if (character == c_quote) {
            // Two of them inside stand for one.
            const bool isText = isQuoted && i + 1 < line.size() && line[i + 1] == c_quote;
            if (isText)
                fields.back() += line[++i];
            else
                isQuoted = !isQuoted;
        } else if (character == separator && !isQuoted) {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

} // namespace

QChar FindSeparator(const QString& path, const QStringList& lines) {
    if (path.endsWith(QStringLiteral(".tsv"), Qt::CaseInsensitive))
        return u'\t';
    if (!path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive) || lines.isEmpty())
        return {};
    static constexpr QChar known[] = {u';', u'\t', u','};
    return *std::ranges::max_element(
        known, {}, [&](QChar separator) { return lines.front().count(separator); });
}

QList<QStringList> SplitTable(const QStringList& lines, QChar separator) {
    QList<QStringList> rows;
    for (const QString& line : lines)
        rows.push_back(SplitLine(line, separator));
    return rows;
}

} // namespace desktop

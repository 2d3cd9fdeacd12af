#include "desktop/preview/DxfTexts.h"

#include "desktop/messages/MessageTexts.h"

#include <QRegularExpression>

namespace desktop {

namespace {

struct Sign {
    const char* code;
    char16_t sign;
};

constexpr Sign c_signs[] = {
    {"%%c", u'\u2300'},
    {"%%d", u'\u00B0'},
    {"%%p", u'\u00B1'},
    {"%%%", u'%'},
};

} // namespace

QString ReadDxfText(const std::string& text) {
    QString read = QString::fromStdWString(FromUtf8OrLatin1(text));
    for (const Sign& sign : c_signs)
        read.replace(QLatin1StringView(sign.code), QChar(sign.sign), Qt::CaseInsensitive);
    // Lines under and over the text.
    static const QRegularExpression marks(QStringLiteral("%%[uok]"),
                                          QRegularExpression::CaseInsensitiveOption);
    read.remove(marks);
    static const QRegularExpression escape(QStringLiteral("\\\\U\\+([0-9A-Fa-f]{4})"));
    for (auto found = escape.match(read); found.hasMatch(); found = escape.match(read))
        read.replace(found.capturedStart(), found.capturedLength(),
                     QChar(found.captured(1).toUShort(nullptr, 16)));
    return read;
}

QStringList ReadDxfParagraphs(const std::string& text) {
    QString read = ReadDxfText(text);
    static const QRegularExpression stacked(QStringLiteral("\\\\S([^;]*?)[#^]([^;]*);"));
    read.replace(stacked, QStringLiteral("\\1/\\2"));
    static const QRegularExpression settings(
        QStringLiteral("\\\\[ACFHQTWfp][^;]*;|\\\\[LlOoKkS]|(?<!\\\\)[{}]"));
    read.remove(settings);
    read.replace(QStringLiteral("\\~"), QStringLiteral(" "));
    QStringList lines = read.split(QStringLiteral("\\P"));
    for (QString& line : lines) {
        for (const char* const plain : {"{", "}", "\\"})
            line.replace(QLatin1StringView("\\") + QLatin1StringView(plain),
                         QLatin1StringView(plain));
    }
    return lines;
}

} // namespace desktop

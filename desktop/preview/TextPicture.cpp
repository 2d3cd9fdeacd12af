#include "desktop/preview/Pictures.h"
#include "desktop/preview/TextTable.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QStringDecoder>

#include <algorithm>

namespace desktop {

namespace {

constexpr int c_fontPixels = 12;
constexpr double c_margin = 6;
/// What stands right of it no picture is wide enough for.
constexpr qsizetype c_longestLine = 2000;
constexpr int c_tab = 8;
/// In widths of a digit.
constexpr double c_widestColumn = 40;
constexpr double c_columnGap = 2;

/// A character that is cut in two at the end is left out.
QString Decode(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF"))
        return QStringDecoder(QStringDecoder::Utf16).decode(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    // What most programs wrote before, or the part of it that everybody knows.
    QStringDecoder windows("windows-1252");
    return windows.isValid() ? QString(windows.decode(bytes)) : QString::fromLatin1(bytes);
}

QString ExpandTabs(const QString& line) {
    QString expanded;
    for (const QChar character : line) {
        if (character == QLatin1Char('\t'))
            expanded += QString(c_tab - expanded.size() % c_tab, QLatin1Char(' '));
        else
            expanded += character.category() == QChar::Other_Control ? QLatin1Char(' ') : character;
    }
    return expanded;
}

QStringList SplitLines(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line.truncate(c_longestLine);
    return lines;
}

/// A screen of text, in the ink on nothing.
class TextSheet final {
public:
    explicit TextSheet(const PreviewRequest& request)
        : m_image(request.pixels, QImage::Format_ARGB32_Premultiplied),
          m_margin(c_margin * request.scale) {
        m_image.fill(Qt::transparent);
        m_painter.begin(&m_image);
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPixelSize(std::max(1, qRound(c_fontPixels * request.scale)));
        m_painter.setFont(font);
        m_painter.setPen(request.ink);
    }

    qsizetype CountLines() const {
        return static_cast<qsizetype>((m_image.height() - m_margin) / Metrics().lineSpacing()) + 1;
    }
    double MeasureWidth(const QString& text) const { return Metrics().horizontalAdvance(text); }
    double GetMargin() const { return m_margin; }
    /// What is wider than `width` is cut off and ends in dots.
    void Write(double x, qsizetype line, const QString& text, double width) {
        const double y =
            m_margin + Metrics().ascent() + static_cast<double>(line) * Metrics().lineSpacing();
        m_painter.drawText(QPointF(x, y), Metrics().elidedText(text, Qt::ElideRight, width));
    }
    QImage Take() {
        m_painter.end();
        return m_image;
    }

private:
    QFontMetricsF Metrics() const { return QFontMetricsF(m_painter.font()); }

    QImage m_image;
    QPainter m_painter;
    double m_margin;
};

void WriteTable(TextSheet& sheet, const QList<QStringList>& rows) {
    qsizetype columns = 0;
    for (const QStringList& row : rows)
        columns = std::max(columns, row.size());
    const double digit = sheet.MeasureWidth(QStringLiteral("0"));
    double x = sheet.GetMargin();
    for (qsizetype column = 0; column < columns; ++column) {
        double width = 0;
        for (const QStringList& row : rows)
            width = std::max(width, sheet.MeasureWidth(row.value(column)));
        // Rounding must not cut what just fits.
        width = std::min(width, c_widestColumn * digit) + 1;
        for (qsizetype line = 0; line < rows.size(); ++line)
            sheet.Write(x, line, rows[line].value(column), width);
        x += width + c_columnGap * digit;
    }
}

} // namespace

PreviewAnswer MakeTextPicture(const PreviewRequest& request, const FileHead& head) {
    QStringList lines = SplitLines(Decode(head.bytes));
    TextSheet sheet(request);
    lines.resize(std::min(lines.size(), sheet.CountLines()));
    if (const QChar separator = FindSeparator(request.path, lines); !separator.isNull()) {
        WriteTable(sheet, SplitTable(lines, separator));
        return {sheet.Take(), 0, 1, {}};
    }
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = ExpandTabs(lines[i]);
        // Lines run out of the picture, as in an editor.
        sheet.Write(sheet.GetMargin(), i, line, sheet.MeasureWidth(line) + 1);
    }
    return {sheet.Take(), 0, 1, {}};
}

} // namespace desktop

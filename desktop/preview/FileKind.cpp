#include "desktop/preview/FileKind.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QXmlStreamReader>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string_view>

namespace desktop {

namespace {

constexpr qint64 c_headSize = qint64{64} * 1024;

QString Tr(const char* text) {
    return QCoreApplication::translate("FileKind", text);
}

/// Devices and pipes are not even opened: that alone may wait for ever.
QString FindObstacle(const QString& path) {
    std::error_code error;
    const auto status = std::filesystem::status(QFile::encodeName(path).toStdString(), error);
    switch (status.type()) {
    case std::filesystem::file_type::not_found:
        return Tr("No such file");
    case std::filesystem::file_type::directory:
        return Tr("A folder has no preview");
    case std::filesystem::file_type::regular:
        return {};
    default:
        return error ? Tr("Can't be read: %1").arg(QString::fromStdString(error.message()))
                     : Tr("Not a regular file");
    }
}

bool IsPdf(const QByteArray& head, const QString&) {
    // Some programs write a line of their own before it.
    static constexpr qsizetype furthest = 1024;
    const qsizetype mark = head.indexOf("%PDF-");
    return mark >= 0 && mark < furthest;
}

bool IsStep(const QByteArray& head, const QString&) {
    const QByteArray start = head.startsWith("\xEF\xBB\xBF") ? head.mid(3) : head;
    return start.trimmed().startsWith("ISO-10303-21");
}

bool IsBinaryDxf(const QByteArray& head, const QString&) {
    return head.startsWith("AutoCAD Binary DXF");
}

/// Pairs of lines, a code and its value: comments, and then the first section.
bool IsDxf(const QByteArray& head, const QString&) {
    const QList<QByteArray> lines = head.left(4096).split('\n');
    for (qsizetype i = 0; i + 1 < lines.size(); i += 2) {
        const QByteArray code = lines[i].trimmed();
        if (code != "999")
            return code == "0" && lines[i + 1].trimmed() == "SECTION";
    }
    return false;
}

bool IsSvg(const QByteArray& head, const QString& path) {
    if (head.startsWith("\x1F\x8B"))
        return path.endsWith(QStringLiteral(".svgz"), Qt::CaseInsensitive);
    if (head.indexOf("<svg") < 0 && head.indexOf(":svg") < 0)
        return false;
    QXmlStreamReader reader(head);
    return reader.readNextStartElement() && reader.name() == QStringLiteral("svg");
}

bool IsImage(const QByteArray&, const QString& path) {
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.canRead();
}

bool IsText(const QByteArray& head, const QString&) {
    if (head.startsWith("\xFF\xFE") || head.startsWith("\xFE\xFF"))
        return true;
    return std::ranges::none_of(head, [](char c) {
        static constexpr std::string_view blanks = "\t\n\v\f\r\x1A\x1B";
        const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
        return isControl && blanks.find(c) == std::string_view::npos;
    });
}

struct KindRow {
    FileKind kind;
    bool (*matches)(const QByteArray& head, const QString& path);
};

/// In the order in which they are tried: a drawing is text, too.
constexpr KindRow c_kinds[] = {
    {FileKind::Pdf, IsPdf},   {FileKind::Step, IsStep}, {FileKind::BinaryDxf, IsBinaryDxf},
    {FileKind::Dxf, IsDxf},   {FileKind::Svg, IsSvg},   {FileKind::Image, IsImage},
    {FileKind::Text, IsText},
};

} // namespace

std::variant<FileHead, QString> LoadHead(const QString& path) {
    if (QString obstacle = FindObstacle(path); !obstacle.isEmpty())
        return obstacle;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Tr("Can't be read: %1").arg(file.errorString());
    FileHead head{file.read(c_headSize)};
    if (file.error() != QFileDevice::NoError)
        return Tr("Can't be read: %1").arg(file.errorString());
    if (head.bytes.isEmpty())
        return Tr("The file is empty");
    return head;
}

bool IsPdfFile(const QString& path) {
    const auto loaded = LoadHead(path);
    const auto* const head = std::get_if<FileHead>(&loaded);
    return head && IsPdf(head->bytes, path);
}

FileKind TellKind(const QByteArray& head, const QString& path) {
    const auto* const row = std::ranges::find_if(
        c_kinds, [&](const KindRow& kind) { return kind.matches(head, path); });
    return row == std::end(c_kinds) ? FileKind::Unknown : row->kind;
}

} // namespace desktop

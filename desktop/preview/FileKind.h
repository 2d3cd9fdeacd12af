// What a file is by its first bytes, whatever its name says.
#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

namespace desktop {

enum class FileKind { Unknown, Pdf, Step, Dxf, BinaryDxf, Svg, Image, Text };

/// The first 64 KB, or one line of why they can't be had: nothing else than a plain file is opened.
struct FileHead {
    QByteArray bytes;
};

std::variant<FileHead, QString> LoadHead(const QString& path);

/// By its first bytes; false also where they can't be had.
bool IsPdfFile(const QString& path);

/// `path` is looked at for formats that the toolkit reads, and for packed files.
FileKind TellKind(const QByteArray& head, const QString& path);

} // namespace desktop

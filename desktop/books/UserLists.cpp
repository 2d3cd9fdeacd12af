#include "desktop/books/UserLists.h"

#include "desktop/store/FileReplacement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace desktop {

namespace {

constexpr qint64 c_largestFile = 1'000'000;
constexpr QChar c_escape('\\');

struct ListKind {
    TeeTypPopupIns list;
    /// How its part of the file begins.
    QLatin1String head;
    /// What it holds until the user changes it, one a character.
    QLatin1String standard;
};

// The letters that can be mistaken for digits or for each other are not used: I, O, Q, S, X and Z.
constexpr ListKind c_kinds[] = {
    {UserPopupLitera, QLatin1String("[revision letters]"), QLatin1String("ABCDEFGHJKLMNPRTUVWY")},
    {UserPopupParticipant, QLatin1String("[people]"), QLatin1String()},
};

constexpr const char* c_notes =
    "# Texts that product-tree offers in the popups of its cells, one a line.\n"
    "# Lines that begin with # are notes. A text that begins with #, [ or \\ has a \\ before it.\n";

QString Tr(const char* text) {
    return QCoreApplication::translate("UserLists", text);
}

const ListKind& KindOf(TeeTypPopupIns list) {
    const auto* const found = std::ranges::find(c_kinds, list, &ListKind::list);
    return found == std::end(c_kinds) ? c_kinds[0] : *found;
}

bool IsHead(const QString& line) {
    const QString text = line.trimmed();
    return text.startsWith(QLatin1Char('[')) && text.endsWith(QLatin1Char(']'));
}

/// Empty for a line that holds none.
QString TextOf(const QString& line) {
    const QString text = line.simplified();
    if (text.startsWith(QLatin1Char('#')))
        return {};
    return text.startsWith(c_escape) ? text.mid(1) : text;
}

QString LineOf(const QString& text) {
    const bool isOdd = !text.isEmpty() && QStringLiteral("#[\\").contains(text.front());
    return isOdd ? c_escape + text : text;
}

struct Contents {
    bool isThere = false;
    QStringList lines;
    /// Why it can't be read.
    QString fault;
};

Contents Load(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists())
        return {};
    Contents contents{true, {}, {}};
    // A pipe would be waited for.
    if (!info.isFile())
        contents.fault = Tr("it is no file");
    else if (info.size() > c_largestFile)
        contents.fault = Tr("it is too large");
    QFile file(path);
    if (!contents.fault.isEmpty())
        return contents;
    if (!file.open(QIODevice::ReadOnly)) {
        contents.fault = file.errorString();
        return contents;
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(file.read(c_largestFile));
    if (decoder.hasError() || text.contains(QChar(0)))
        contents.fault = Tr("it is no UTF-8 text");
    contents.lines = text.split(QLatin1Char('\n'));
    if (contents.lines.back().isEmpty())
        contents.lines.removeLast();
    return contents;
}

/// Whether each line belongs to the part of the list; its head does.
std::vector<bool> FindPart(const QStringList& lines, const ListKind& kind) {
    std::vector<bool> belongs;
    bool isInside = false;
    for (const QString& line : lines) {
        if (IsHead(line))
            isInside = line.trimmed().compare(kind.head, Qt::CaseInsensitive) == 0;
        belongs.push_back(isInside);
    }
    return belongs;
}

/// Adds the texts of the list that lines hold; why they can't be, or nothing.
QString AddTexts(QStringList& texts, const QStringList& lines, const std::vector<bool>& belongs) {
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool isText = belongs[static_cast<std::size_t>(i)] && !IsHead(lines[i]);
        const QString text = isText ? TextOf(lines[i]) : QString();
        if (text.isEmpty() || texts.contains(text))
            continue;
        if (text.size() > c_longestListText)
            return Tr("line %1 has more than %2 characters").arg(i + 1).arg(c_longestListText);
        if (texts.size() == c_mostListTexts)
            return Tr("line %1: a list holds at most %2 texts").arg(i + 1).arg(c_mostListTexts);
        texts += text;
    }
    return {};
}

SharedText ToShared(const QString& text) {
    return SharedText(text.toStdWString());
}

QStringList StandardTexts(const ListKind& kind) {
    QStringList texts;
    for (const char letter : kind.standard)
        texts += QString(QLatin1Char(letter));
    return texts;
}

} // namespace

QString UserLists::GetUsualFile() {
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) +
           QStringLiteral("/product-tree/lists.txt");
}

void UserLists::SetListener(std::function<void(const QString&)> listener) {
    m_listener = std::move(listener);
    if (m_listener && !m_fault.isEmpty())
        m_listener(std::exchange(m_fault, {}));
}

platform::UserListReading UserLists::Read(TeeTypPopupIns list) {
    const ListKind& kind = KindOf(list);
    const Contents contents = Load(m_file);
    const std::vector<bool> belongs = FindPart(contents.lines, kind);
    platform::UserListReading reading;
    reading.isStandard = std::ranges::find(belongs, true) == belongs.end();
    QStringList texts = reading.isStandard ? StandardTexts(kind) : QStringList();
    const QString fault =
        contents.fault.isEmpty() ? AddTexts(texts, contents.lines, belongs) : contents.fault;
    if (!fault.isEmpty()) {
        reading.fault =
            ToShared(Tr("%1 can't be read: %2").arg(QDir::toNativeSeparators(m_file), fault));
        return reading;
    }
    std::ranges::transform(texts, std::back_inserter(reading.texts), ToShared);
    return reading;
}

SharedText UserLists::Write(TeeTypPopupIns list, const std::vector<SharedText>& texts) {
    const ListKind& kind = KindOf(list);
    const QString path = QDir::toNativeSeparators(m_file);
    const Contents contents = Load(m_file);
    if (!contents.fault.isEmpty())
        return ToShared(Tr("%1 can't be read: %2").arg(path, contents.fault));
    const std::vector<bool> belongs = FindPart(contents.lines, kind);
    // Behind the head and the notes of the list's part, wherever that stands.
    QStringList lines;
    qsizetype place = -1;
    for (qsizetype i = 0; i < contents.lines.size(); ++i) {
        const bool isPart = belongs[static_cast<std::size_t>(i)];
        if (isPart && !IsHead(contents.lines[i]) && !TextOf(contents.lines[i]).isEmpty())
            continue;
        lines += contents.lines[i];
        const bool isBlank = contents.lines[i].trimmed().isEmpty();
        if (isPart && !isBlank)
            place = lines.size();
    }
    if (place < 0) {
        if (!contents.isThere)
            lines = QString::fromLatin1(c_notes).split(QLatin1Char('\n'));
        lines += QString(kind.head);
        place = lines.size();
    }
    for (const SharedText& text : texts)
        lines.insert(place++, LineOf(QString::fromStdWString(text.Str())));
    if (!QDir().mkpath(QFileInfo(m_file).path()))
        return ToShared(Tr("the folder of %1 can't be made").arg(path));
    const QByteArray bytes = (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
    const auto error = store::ReplaceFile(QFile::encodeName(m_file).toStdString(),
                                          {bytes.data(), static_cast<std::size_t>(bytes.size())});
    return error
               ? ToShared(
                     Tr("%1 can't be written: %2").arg(path, QString::fromStdString(error->reason)))
               : SharedText();
}

void UserLists::NoteUnreadable(const SharedText& fault) {
    m_fault = QString::fromStdWString(fault.Str());
    if (m_listener)
        m_listener(std::exchange(m_fault, {}));
}

} // namespace desktop

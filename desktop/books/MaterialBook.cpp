#include "desktop/books/MaterialBook.h"

#include "desktop/books/MaterialTable.h"
#include "desktop/store/FileReplacement.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <utility>

namespace desktop {

namespace {

constexpr qint64 c_largestFile = 4 << 20;
constexpr qsizetype c_longestField = 200;
constexpr qsizetype c_mostRecent = 8;
constexpr char c_separator = '\t';
constexpr QChar c_comment = u'#';
enum Field { Name, Standard, Density, Class, Source, FieldCount };

QString Tr(const char* text) {
    return QCoreApplication::translate("MaterialBook", text);
}

QString FindFaultOfText(const QString& text) {
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    if (std::ranges::any_of(text, isControl))
        return Tr("it has a character that can't be shown");
    return text.size() > c_longestField ? Tr("a text is too long") : QString();
}

/// What a line says; a fault instead of a material that makes no sense.
struct Reading {
    std::optional<Material> material;
    QString fault;
};

Reading ReadLine(QByteArrayView bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return {{}, Tr("it is not UTF-8 text")};
    if (text.trimmed().isEmpty() || text.trimmed().startsWith(c_comment))
        return {};
    QStringList fields = text.split(QLatin1Char(c_separator));
    if (fields.size() <= Density || fields.size() > FieldCount)
        return {{}, Tr("name, standard, density, class and source are expected")};
    fields.resize(FieldCount);
    bool isNumber = false;
    const double density = fields[Density].trimmed().toDouble(&isNumber);
    if (!isNumber)
        return {{}, Tr("the density is no number")};
    Material material{fields[Name].trimmed(), fields[Standard].trimmed(), density,
                      fields[Class].trimmed(), fields[Source].trimmed()};
    QString fault = FindFault(material);
    return fault.isEmpty() ? Reading{std::move(material), {}} : Reading{{}, std::move(fault)};
}

QByteArray WriteLine(const Material& material) {
    return QStringList{material.name, material.standard,
                       QString::number(material.density, 'g', QLocale::FloatingPointShortest),
                       material.classPath, material.source}
        .join(QLatin1Char(c_separator))
        .toUtf8();
}

QString RecentFile(const QString& file) {
    return QFileInfo(file).dir().filePath(QStringLiteral("recent.ini"));
}

QString RecentName() {
    return QStringLiteral("materials");
}

} // namespace

QString Material::GetText() const {
    return standard.isEmpty() ? name : name + QLatin1Char(' ') + standard;
}

QString FindFault(const Material& material) {
    if (material.name.isEmpty())
        return Tr("the name is missing");
    // Such a line would be a comment.
    if (material.name.startsWith(c_comment))
        return Tr("a name can't begin with #");
    if (!std::isfinite(material.density) || material.density <= 0)
        return Tr("the density must be more than 0");
    for (const QString* const text :
         {&material.name, &material.standard, &material.classPath, &material.source}) {
        if (QString fault = FindFaultOfText(*text); !fault.isEmpty())
            return fault;
    }
    return {};
}

MaterialBook::MaterialBook(QString file) : m_file(std::move(file)) {
    Read(c_materialTable);
    Refresh();
}

QString MaterialBook::GetUsualFile() {
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) +
           QStringLiteral("/product-tree/materials.tsv");
}

QByteArray MaterialBook::Load() {
    m_fault.clear();
    const QFileInfo info(m_file);
    if (!info.exists())
        return c_materialTable;
    QFile file(m_file);
    // Anything else might never end.
    if (!info.isFile())
        m_fault = Tr("it is no ordinary file");
    else if (info.size() > c_largestFile)
        m_fault = Tr("it is too large");
    else if (!file.open(QIODevice::ReadOnly))
        m_fault = file.errorString();
    if (!m_fault.isEmpty())
        return c_materialTable;
    QByteArray text = file.read(c_largestFile);
    if (file.error() == QFileDevice::NoError)
        return text;
    m_fault = file.errorString();
    return c_materialTable;
}

void MaterialBook::Refresh() {
    const QString faultBefore = m_fault;
    const QByteArray text = Load();
    if (text != m_text)
        Read(text);
    if (!m_fault.isEmpty() && m_fault != faultBefore)
        m_problems = {Tr("%1 can't be read and the usual materials are offered, %2")
                          .arg(QDir::toNativeSeparators(m_file), m_fault)};
}

void MaterialBook::Read(const QByteArray& text) {
    m_text = text;
    m_lines.clear();
    m_problems.clear();
    static const QByteArray mark = "\xEF\xBB\xBF";
    QList<QByteArray> lines = text.split('\n');
    // What follows the last line's end is no line.
    if (lines.back().isEmpty())
        lines.removeLast();
    for (const QByteArray& line : lines) {
        const bool isMarked = m_lines.empty() && line.startsWith(mark);
        Reading reading = ReadLine(isMarked ? line.mid(mark.size()) : line);
        if (reading.material && Find(reading.material->name, reading.material->standard))
            reading = {{}, Tr("the material was there before")};
        m_lines.push_back({line, std::move(reading.material)});
        if (!reading.fault.isEmpty())
            m_problems += Tr("line %1: %2").arg(m_lines.size()).arg(reading.fault);
    }
}

const MaterialBook::Line* MaterialBook::Find(const QString& name, const QString& standard) const {
    const auto found = std::ranges::find_if(m_lines, [&](const Line& line) {
        return line.material && line.material->name == name && line.material->standard == standard;
    });
    return found == m_lines.end() ? nullptr : &*found;
}

std::vector<Material> MaterialBook::GetMaterials() const {
    std::vector<Material> materials;
    for (const Line& line : m_lines) {
        if (line.material)
            materials.push_back(*line.material);
    }
    return materials;
}

std::vector<Material> MaterialBook::GetRecent() const {
    const QSettings settings(RecentFile(m_file), QSettings::IniFormat);
    std::vector<Material> recent;
    for (const QString& text : settings.value(RecentName()).toStringList()) {
        const auto found = std::ranges::find_if(m_lines, [&](const Line& line) {
            return line.material && line.material->GetText() == text;
        });
        if (found != m_lines.end())
            recent.push_back(*found->material);
    }
    return recent;
}

void MaterialBook::NoteUsed(const QString& text) const {
    QSettings settings(RecentFile(m_file), QSettings::IniFormat);
    QStringList texts = settings.value(RecentName()).toStringList();
    texts.removeAll(text);
    texts.prepend(text);
    settings.setValue(RecentName(), texts.mid(0, c_mostRecent));
}

QStringList MaterialBook::TakeProblems() {
    return std::exchange(m_problems, {});
}

QString MaterialBook::Edit(const std::function<QString(Lines&)>& edit) {
    // Somebody else may have written it meanwhile, and his work is to stay.
    Refresh();
    if (!m_fault.isEmpty())
        return Tr("the book can't be read: %1").arg(m_fault);
    Lines lines = m_lines;
    if (QString fault = edit(lines); !fault.isEmpty())
        return fault;
    QByteArray text;
    for (const Line& line : lines)
        text += line.text + '\n';
    const QString folder = QFileInfo(m_file).path();
    if (!QDir().mkpath(folder))
        return Tr("the folder %1 can't be made").arg(QDir::toNativeSeparators(folder));
    const auto error = store::ReplaceFile(QFile::encodeName(m_file).toStdString(),
                                          {text.data(), static_cast<std::size_t>(text.size())});
    if (error)
        return Tr("the book can't be written: %1").arg(QString::fromStdString(error->reason));
    m_text = text;
    m_lines = std::move(lines);
    return {};
}

QString MaterialBook::Add(const Material& material) {
    return Edit([&](Lines& lines) {
        if (Find(material.name, material.standard))
            return Tr("the book has %1 already").arg(material.GetText());
        lines.push_back({WriteLine(material), material});
        return QString();
    });
}

QString MaterialBook::Change(const Material& material, const Material& wanted) {
    return Edit([&](Lines& lines) {
        const auto found = std::ranges::find(lines, std::optional(material), &Line::material);
        if (found == lines.end())
            return Tr("the book does not have %1 any more").arg(material.GetText());
        const Line* const present = Find(wanted.name, wanted.standard);
        if (present && !(present->material == material))
            return Tr("the book has %1 already").arg(wanted.GetText());
        *found = {WriteLine(wanted), wanted};
        return QString();
    });
}

QString MaterialBook::Remove(const Material& material) {
    return Edit([&](Lines& lines) {
        const auto found = std::ranges::find(lines, std::optional(material), &Line::material);
        if (found == lines.end())
            return Tr("the book does not have %1 any more").arg(material.GetText());
        lines.erase(found);
        return QString();
    });
}

} // namespace desktop

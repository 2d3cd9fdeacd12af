// The materials that users choose from: a table of the program's own, until the user changes
// something of it. From then on his own file counts, which begins as a copy of the table and which
// he may edit by other means, too. Knows no dialog.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace desktop {

struct Material {
    QString name;
    /// May be empty, as class and source may.
    QString standard;
    /// In kg/m3.
    double density = 0;
    /// From the widest on, with '/' between them.
    QString classPath;
    /// Where the density comes from.
    QString source;

    /// As it stands in a product: name and standard on one line.
    QString GetText() const;

    friend bool operator==(const Material&, const Material&) = default;
};

/// Why that can't stand in a book; empty: it can.
QString FindFault(const Material& material);

class MaterialBook {
public:
    /// The user's own file, which need not be there. Which materials were used is kept beside it.
    explicit MaterialBook(QString file);
    /// In the place for what users set.
    static QString GetUsualFile();

    const QString& GetFile() const { return m_file; }
    /// Reads the user's file again.
    void Refresh();
    std::vector<Material> GetMaterials() const;
    /// The same, those used last first.
    std::vector<Material> GetRecent() const;
    void NoteUsed(const QString& text) const;
    /// What was passed over when the file was read, or why it was not read at all; each time that
    /// it is another file once.
    QStringList TakeProblems();

    /// Write the user's file. Empty: done; else why not, and all is as before.
    QString Add(const Material& material);
    QString Change(const Material& material, const Material& wanted);
    QString Remove(const Material& material);

private:
    /// What stands in a file is kept as it is, also what is no material.
    struct Line {
        QByteArray text;
        std::optional<Material> material;
    };
    using Lines = std::vector<Line>;

    void Read(const QByteArray& text);
    /// Empty, with a fault, for a file that can't be read.
    QByteArray Load();
    const Line* Find(const QString& name, const QString& standard) const;
    QString Edit(const std::function<QString(Lines&)>& edit);

    QString m_file;
    QByteArray m_text;
    Lines m_lines;
    QStringList m_problems;
    /// Why the user's file can't be read; empty where it can.
    QString m_fault;
};

} // namespace desktop

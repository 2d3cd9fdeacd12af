// How the user left the window and the rows of a file, kept for the next start in the settings of
// the program and never in the file.
#pragma once

#include "desktop/documents/DocumentPane.h"

#include <QByteArray>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <optional>

namespace platform {
class TreeTableView;
}

namespace desktop {

class WindowMemory {
public:
    struct FileState {
        /// As QWidget::saveGeometry gives it.
        QByteArray place;
        /// By column id, in pixels.
        QMap<QString, int> widths;
        /// The expanded rows, each by the names from the root on.
        QStringList expanded;
    };

    /// `file` is the settings' own.
    explicit WindowMemory(const QString& file) : m_settings(file, QSettings::IniFormat) {}

    QString GetFile() const { return m_settings.fileName(); }
    /// No value for a file that was never left.
    std::optional<FileState> Find(const QString& product) const;
    /// Of more files than are worth it, those left longest ago are forgotten.
    void Keep(const QString& product, const FileState& state);
    /// The box of documents, which is the same for all files.
    DocumentPane::State GetDocuments() const;
    void KeepDocuments(const DocumentPane::State& state);

private:
    QSettings m_settings;
};

/// The rows that are expanded now, and those rows expanded and no others. A row that is not there
/// any more is passed over.
QStringList ListExpanded(const platform::TreeTableView& view);
void Expand(platform::TreeTableView& view, const QStringList& expanded);

} // namespace desktop

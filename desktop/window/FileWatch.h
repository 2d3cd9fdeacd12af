// Watches one file for changes by other programs, also those that replace it as a whole. It does
// not look into the file: what it tells of may have left the contents as they were.
#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <filesystem>

namespace desktop {

class FileWatch final : public QObject {
    Q_OBJECT

public:
    explicit FileWatch(QObject* parent = nullptr);

    /// From now on this file and no other; an empty path: none. The file need not be there.
    void Watch(const std::filesystem::path& path);

signals:
    void Touched();

private:
    struct State {
        QDateTime time;
        qint64 size = -1;

        friend bool operator==(const State&, const State&) = default;
    };

    State LookAtFile() const;
    void OnSettled();

    QFileSystemWatcher m_watcher;
    QTimer m_settling;
    QString m_path;
    State m_state;
};

} // namespace desktop

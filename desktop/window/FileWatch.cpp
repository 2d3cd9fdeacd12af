#include "desktop/window/FileWatch.h"

#include <QFile>
#include <QFileInfo>

namespace desktop {

namespace {

/// A program that writes a file does so in pieces, each of which is told.
constexpr int c_settleMilliseconds = 100;

} // namespace

FileWatch::FileWatch(QObject* parent) : QObject(parent) {
    m_settling.setSingleShot(true);
    m_settling.setInterval(c_settleMilliseconds);
    const auto settle = [this] {
        if (!m_settling.isActive())
            m_settling.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, settle);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, settle);
    connect(&m_settling, &QTimer::timeout, this, &FileWatch::OnSettled);
}

void FileWatch::Watch(const std::filesystem::path& path) {
    const QStringList old = m_watcher.files() + m_watcher.directories();
    if (!old.isEmpty())
        m_watcher.removePaths(old);
    m_settling.stop();
    m_path = QFileInfo(QFile::decodeName(path.c_str())).absoluteFilePath();
    if (path.empty())
        return;
    m_state = LookAtFile();
    // The folder tells of a file that takes the place of the watched one, and of one that comes.
    m_watcher.addPath(QFileInfo(m_path).absolutePath());
    if (QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
}

FileWatch::State FileWatch::LookAtFile() const {
    const QFileInfo file(m_path);
    return file.exists() ? State{file.lastModified(), file.size()} : State{};
}

void FileWatch::OnSettled() {
    // The watch goes with the file that it was set on, even when another one has taken its name.
    m_watcher.removePath(m_path);
    if (QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
    const State state = LookAtFile();
    if (state == m_state)
        return;
    m_state = state;
    emit Touched();
}

} // namespace desktop

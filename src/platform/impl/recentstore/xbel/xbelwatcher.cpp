#include "xbelwatcher.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::recent {
namespace {

std::optional<quint64> inodeOf(const QString &path)
{
    struct stat status
    {
    };
    const QByteArray name = QFile::encodeName(path);
    if (::stat(name.constData(), &status) != 0 || ::access(name.constData(), R_OK) != 0)
        return {};
    return quint64(status.st_ino);
}

QString nearestExisting(QString folder)
{
    while (folder.size() > 1 && !QFileInfo(folder).isDir())
        folder = QFileInfo(folder).path();
    return folder;
}

QStringList existing(const QStringList &files, const QStringList &folders)
{
    QSet<QString> paths;
    for (const QString &folder : folders)
        paths.insert(nearestExisting(folder));
    for (const QString &file : files) {
        if (QFileInfo(file).isFile())
            paths.insert(file);
    }
    return paths.values();
}

} // namespace

XbelWatcher::XbelWatcher(QObject *parent) : QObject(parent)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        m_sinceFirst.invalidate();
        Q_EMIT changed();
    });
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &XbelWatcher::touched);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &XbelWatcher::touched);
}

void XbelWatcher::touched()
{
    if (!m_sinceFirst.isValid())
        m_sinceFirst.start();
    m_pause.start(int(std::clamp<qint64>(MostDelayMs - m_sinceFirst.elapsed(), 0, PauseMs)));
}

void XbelWatcher::watch(const QStringList &files, const QStringList &folders)
{
    // A folder may come into being while the one above it is being watched; then its own watch is due.
    QStringList wanted = existing(files, folders);
    for (int round = 0; round < 8; ++round) {
        arm(wanted);
        QStringList now = existing(files, folders);
        if (QSet<QString>(now.cbegin(), now.cend()) == QSet<QString>(wanted.cbegin(), wanted.cend()))
            return;
        wanted = std::move(now);
    }
}

// A path that was replaced by renaming carries on a watch of the old file, so it is watched anew.
void XbelWatcher::arm(const QStringList &wanted)
{
    QHash<QString, quint64> inodes;
    for (const QString &path : wanted) {
        if (const auto inode = inodeOf(path))
            inodes.insert(path, *inode);
    }
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    QStringList outdated;
    for (const QString &path : watched) {
        if (!inodes.contains(path) || inodes.value(path) != m_inodes.value(path))
            outdated.append(path);
    }
    if (!outdated.isEmpty())
        m_watcher.removePaths(outdated);
    const QSet<QString> kept(watched.cbegin(), watched.cend());
    QStringList fresh;
    for (auto it = inodes.cbegin(); it != inodes.cend(); ++it) {
        if (!kept.contains(it.key()) || outdated.contains(it.key()))
            fresh.append(it.key());
    }
    if (!fresh.isEmpty())
        m_watcher.addPaths(fresh);
    m_inodes = inodes;
}

} // namespace zel::recent

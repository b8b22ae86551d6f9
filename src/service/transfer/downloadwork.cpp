#include "service/transfer/downloadwork.h"

#include "service/drive/drivedisk.h"
#include "service/drive/drivenames.h"
#include "service/drive/drivetransfer.h"
#include "service/drive/localsource.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;

constexpr int DeepestFolder = 90;
const QLatin1String PartialPrefix(".zel-part-");

// Each process and attempt has a name of its own: what a service left that was killed, or that has not quite
// ended, is never taken for what is being written.
QString thisProcess()
{
    static const QString mark = QStringLiteral("-%1-").arg(QRandomGenerator::system()->generate64(), 0, 36);
    return mark;
}

QString partialName(const TransferTask &task)
{
    static std::atomic<int> attempt = 0;
    return PartialPrefix + task.id() + thisProcess() + QString::number(++attempt);
}

/// A file of this machine that remembers what went into it.
class PartialFile final : public QFile
{
public:
    WrittenContent content;

protected:
    qint64 writeData(const char *bytes, qint64 count) override
    {
        const qint64 written = QFile::writeData(bytes, count);
        if (written > 0)
            content.add(bytes, written);
        return written;
    }
};

void sweepFolder(const QString &folder, const QString &name, int depth)
{
    const QDir dir(folder);
    const QStringList parts = dir.entryList({name}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &part : parts)
        if (!part.contains(thisProcess()))
            QFile::remove(dir.filePath(part));
    if (depth >= DeepestFolder)
        return;
    const QStringList below =
        dir.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &child : below)
        sweepFolder(dir.filePath(child), name, depth + 1);
}

bool exists(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

// A folder itself: what a link leads to is not part of the target.
bool isFolder(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink();
}

// Permissions of a file here; -1 when there is none.
int modeOf(const QString &path)
{
    return path.isEmpty() ? -1 : disk::modeAt(AT_FDCWD, path);
}

DriveError cancelled()
{
    return {Kind::Cancelled, QStringLiteral("stopped")};
}

bool isSame(const DriveItem &item, const QFileInfo &file)
{
    return file.isFile() && item.size == file.size()
        && item.mtime / 1000 == file.lastModified().toMSecsSinceEpoch() / 1000;
}

posix::UniqueFd openFolder(const QString &path)
{
    return posix::UniqueFd(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

// Makes just this folder. EEXIST when anything has the name.
DriveDone makeFolder(const QString &path)
{
    if (::mkdir(QFile::encodeName(path).constData(), 0777) != 0)
        return disk::lastError("make a folder");
    return DriveOk();
}

} // namespace

DriveResult<TransferOutcome> DownloadWork::run()
{
    const auto item = m_drive.stat(QString::fromStdString(m_task.info.item.id));
    if (!item)
        return item.error();
    if (!QDir().mkpath(m_task.folder))
        return DriveError{Kind::Denied, QStringLiteral("The local folder cannot be made.")};
    if (!item->isFolder) {
        m_monitor.progress = {0, item->size, 0, 1};
        const auto path = putFile(*item, m_task.folder, m_task.name);
        if (!path)
            return path.error();
        return TransferOutcome{*item, *path, 1, item->size};
    }
    const auto measured = measure(*item, 0);
    if (!measured)
        return measured.error();
    const auto folder = topFolder();
    if (!folder)
        return folder.error();
    fill(*item, *folder, 0);
    if (m_failure.first())
        return *m_failure.first();
    return TransferOutcome{*item, *folder, m_monitor.progress.files, m_monitor.progress.total, m_leftOut};
}

void DownloadWork::sweep(const TransferTask &task)
{
    const QString name = PartialPrefix + task.id() + QStringLiteral("-*");
    if (!task.info.isFolder)
        sweepFolder(task.folder, name, DeepestFolder);
    else if (!task.made.isEmpty())
        sweepFolder(task.made, name, 0);
}

DriveDone DownloadWork::measure(const DriveItem &folder, int depth)
{
    if (m_monitor.order() != TransferMonitor::Order::GoOn)
        return cancelled();
    const auto items = m_drive.list(folder.id);
    if (!items)
        return items.error();
    if (!folder.localPath.isEmpty())
        m_leftOut += countUnstorable(folder.localPath, true);
    for (const DriveItem &item : *items) {
        if (item.isFolder && depth < DeepestFolder) {
            const auto below = measure(item, depth + 1);
            if (!below)
                return below;
        } else if (!item.isFolder) {
            m_monitor.progress.total += item.size;
            ++m_monitor.progress.files;
        }
    }
    return DriveOk();
}

DriveResult<QString> DownloadWork::topFolder()
{
    if (!m_task.made.isEmpty() && isFolder(m_task.made))
        return m_task.made;
    QString path = m_task.folder + QLatin1Char('/') + m_task.name;
    auto made = makeFolder(path);
    for (int number = 2; m_task.policy == ConflictPolicy::KeepBoth && !made
         && made.error().kind == Kind::Exists && number < 10000;
         ++number) {
        path = m_task.folder + QLatin1Char('/') + numberedDriveName(m_task.name, number, true);
        made = makeFolder(path);
    }
    const bool fills = m_task.policy == ConflictPolicy::Replace || m_task.policy == ConflictPolicy::Skip;
    if (!made && !(fills && made.error().kind == Kind::Exists && isFolder(path)))
        return made.error();
    m_monitor.tellMade(path);
    return path;
}

bool DownloadWork::fill(const DriveItem &source, const QString &target, int depth)
{
    if (depth > DeepestFolder)
        return m_failure.take({Kind::InvalidName, QStringLiteral("The folders are too deep.")});
    const auto items = m_drive.list(source.id);
    if (!items)
        return m_failure.take(items.error());
    for (const DriveItem &item : *items)
        if (!put(item, target, depth))
            return false;
    return true;
}

bool DownloadWork::put(const DriveItem &item, const QString &target, int depth)
{
    if (!m_monitor.advance(m_done))
        return m_failure.take(cancelled());
    const QString path = target + QLatin1Char('/') + item.name;
    if (item.isFolder) {
        const auto made = makeFolder(path);
        const bool isThere = !made && made.error().kind == Kind::Exists && isFolder(path);
        return made || isThere ? fill(item, path, depth + 1) : m_failure.take(made.error());
    }
    const auto done = putFile(item, target, item.name);
    if (done)
        ++m_monitor.progress.filesDone;
    return done || m_failure.take(done.error());
}

DriveResult<QString> DownloadWork::putFile(const DriveItem &item, const QString &folder, const QString &name)
{
    const QString path = folder + QLatin1Char('/') + name;
    const bool taken = exists(path);
    if (taken
        && (m_task.policy == ConflictPolicy::Skip || (m_task.resumed && isSame(item, QFileInfo(path))))) {
        m_done += item.size;
        return path;
    }
    if (taken && m_task.policy == ConflictPolicy::Refuse)
        return DriveError{Kind::Exists, QStringLiteral("The name is taken.")};
    const QString partial = partialName(m_task);
    const int replaced = m_task.policy == ConflictPolicy::Replace ? modeOf(path) : -1;
    const auto fetched = fetch(item, folder, partial, replaced);
    auto placed = fetched ? place(folder, partial, name) : DriveResult<QString>(fetched.error());
    if (!placed)
        QFile::remove(folder + QLatin1Char('/') + partial);
    m_done += item.size;
    return placed;
}

DriveDone DownloadWork::fetch(const DriveItem &item, const QString &folder, const QString &name, int mode)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const posix::UniqueFd place = openFolder(folder);
    const posix::UniqueFd fd(::openat(place.get(), QFile::encodeName(name).constData(), Flags, 0600));
    PartialFile file;
    if (!fd || !file.open(fd.get(), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return disk::error("a local file cannot be made", errno);
    const qint64 before = m_done;
    auto done = m_drive.read(
        item.id, file, [this, before](qint64 bytes, qint64) { return m_monitor.advance(before + bytes); });
    if (!done)
        return done;
    if (mode < 0)
        mode = modeOf(item.localPath);
    ::fchmod(fd.get(), mode_t(mode < 0 ? disk::usualMode() : mode));
    if (::fsync(fd.get()) != 0)
        return disk::lastError("sync");
    file.setFileTime(QDateTime::fromMSecsSinceEpoch(item.mtime), QFileDevice::FileModificationTime);
    return file.content.check(place.get(), name, fd.get());
}

DriveResult<QString> DownloadWork::place(const QString &folder, const QString &partial, const QString &name)
{
    const posix::UniqueFd fd = openFolder(folder);
    if (!fd)
        return disk::lastError("open the local folder");
    const auto taken = disk::rename(fd.get(), partial, fd.get(), name, false, driveConflict(m_task.policy));
    if (!taken)
        return taken.error();
    ::fsync(fd.get()); // the file is there all the same
    return QString(folder + QLatin1Char('/') + *taken);
}

} // namespace zel::service

#include "drivecopy.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace zel::service {
namespace {

DriveDone tooDeep()
{
    return DriveError{DriveError::Kind::InvalidName, QStringLiteral("copy: folders too deep")};
}

} // namespace

qint64 TreeCopy::measure(int from, const QString &name, bool isFolder, const QByteArray &root, int depth)
{
    if (!isFolder) {
        const auto entry = disk::entryAt(from, name, root);
        return entry ? entry->size : 0;
    }
    const disk::UniqueFd folder = disk::openFolder(from, name);
    int unreadable = 0;
    const auto entries = disk::entriesOf(folder.get(), root, unreadable);
    qint64 bytes = 0;
    if (!folder || !entries || depth > disk::DeepestFolder)
        return bytes;
    for (const disk::Entry &entry : *entries)
        bytes += entry.isFolder ? measure(folder.get(), entry.name, true, root, depth + 1) : entry.size;
    return bytes;
}

DriveDone TreeCopy::run(
    int from, const QString &name, int to, const QString &newName, bool isFolder, int depth)
{
    return isFolder ? copyFolder(from, name, to, newName, depth) : copyFile(from, name, to, newName);
}

DriveDone TreeCopy::copyFile(int from, const QString &name, int to, const QString &newName)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const disk::UniqueFd source = disk::openFile(from, name, m_root);
    if (!source)
        return disk::lastError("open");
    const disk::UniqueFd target(::openat(to, newName.toUtf8().constData(), Flags, 0600));
    if (!target)
        return disk::lastError("create");
    DriveDone done = copyBytes(source.get(), target.get(), m_meter);
    copyAttributes(source.get(), target.get());
    return done;
}

DriveDone TreeCopy::copyFolder(int from, const QString &name, int to, const QString &newName, int depth)
{
    if (depth >= disk::DeepestFolder)
        return tooDeep();
    const disk::UniqueFd source = disk::openFolder(from, name);
    if (!source)
        return disk::lastError("open folder");
    // Written to before it gets the original's permissions, which may forbid that.
    if (::mkdirat(to, newName.toUtf8().constData(), 0700) != 0)
        return disk::lastError("create folder");
    const disk::UniqueFd target = disk::openFolder(to, newName);
    int unreadable = 0;
    const auto entries = disk::entriesOf(source.get(), m_root, unreadable);
    if (!target || !entries)
        return target ? DriveDone(entries.error()) : DriveDone(disk::lastError("open folder"));
    for (const disk::Entry &entry : *entries) {
        DriveDone done = run(source.get(), entry.name, target.get(), entry.name, entry.isFolder, depth + 1);
        if (!done && done.error().kind != DriveError::Kind::NotFound) // gone meanwhile
            return done;
    }
    if (!m_meter.add(0))
        return DriveError{DriveError::Kind::Cancelled, QStringLiteral("cancelled")};
    copyAttributes(source.get(), target.get());
    return DriveOk();
}

} // namespace zel::service

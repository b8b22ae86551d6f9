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

qint64 TreeCopy::measure(int source, bool isFolder, const QByteArray &root, int depth)
{
    if (!isFolder) {
        const auto entry = disk::entryOf(source);
        return entry ? entry->size : 0;
    }
    int unreadable = 0;
    const auto entries = disk::entriesOf(source, root, unreadable);
    qint64 bytes = 0;
    if (!entries || depth > disk::DeepestFolder)
        return bytes;
    for (const disk::Entry &entry : *entries) {
        const disk::UniqueFd folder =
            entry.isFolder ? disk::openFolder(source, entry.name) : disk::UniqueFd();
        bytes += folder ? measure(folder.get(), true, root, depth + 1) : entry.size;
    }
    return bytes;
}

DriveDone TreeCopy::run(int source, int to, const QString &newName, bool isFolder, int depth)
{
    return isFolder ? copyFolder(source, to, newName, depth) : copyFile(source, to, newName);
}

DriveDone TreeCopy::copyFile(int source, int to, const QString &newName)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const disk::UniqueFd target(::openat(to, newName.toUtf8().constData(), Flags, 0600));
    if (!target)
        return disk::lastError("create");
    DriveDone done = copyBytes(source, target.get(), m_meter);
    copyAttributes(source, target.get());
    return done;
}

DriveDone TreeCopy::copyFolder(int source, int to, const QString &newName, int depth)
{
    if (depth >= disk::DeepestFolder)
        return tooDeep();
    // Written to before it gets the original's permissions, which may forbid that.
    if (::mkdirat(to, newName.toUtf8().constData(), 0700) != 0)
        return disk::lastError("create folder");
    const disk::UniqueFd target = disk::openFolder(to, newName);
    const auto entries = disk::entriesOf(source, m_root, m_unreadable);
    if (!target || !entries)
        return target ? DriveDone(entries.error()) : DriveDone(disk::lastError("open folder"));
    for (const disk::Entry &entry : *entries) {
        DriveDone done = copyChild(source, entry, target.get(), depth + 1);
        if (!done && done.error().kind != DriveError::Kind::NotFound) // gone meanwhile
            return done;
    }
    if (!m_meter.add(0))
        return DriveError{DriveError::Kind::Cancelled, QStringLiteral("cancelled")};
    copyAttributes(source, target.get());
    return DriveOk();
}

DriveDone TreeCopy::copyChild(int source, const disk::Entry &entry, int to, int depth)
{
    const disk::UniqueFd child =
        entry.isFolder ? disk::openFolder(source, entry.name) : disk::openFile(source, entry.name, m_root);
    if (!child)
        return disk::lastError("open");
    return run(child.get(), to, entry.name, entry.isFolder, depth);
}

} // namespace zel::service

#include "drivecopy.h"
#include "drivejournal.h"
#include "drivenames.h"
#include "drivetransfer.h"
#include "foldersync.h"
#include "localdrive.h"

#include "base/logging.h"

#include <QIODevice>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// The operations that make or move items: what goes before DrivePlacing gives each its place.
namespace zel::service {
namespace {

using Kind = DriveError::Kind;

DriveError invalidName()
{
    return {Kind::InvalidName, QStringLiteral("not a valid name")};
}

DriveError rootStays()
{
    return {Kind::Denied, QStringLiteral("the root stays")};
}

void setTime(int file, qint64 ms)
{
    const struct timespec time = {time_t(ms / 1000), (ms % 1000) * 1000000};
    const struct timespec times[] = {time, time};
    ::futimens(file, times);
}

// A file that is written anew stays as readable, or executable, as it was.
void keepMode(int folder, const QString &name, const TempEntry &temp)
{
    const int mode = disk::modeAt(folder, name);
    if (mode >= 0 && ::fchmodat(folder, temp.name().toUtf8().constData(), mode_t(mode), 0) != 0)
        qCWarning(
            lcService, "a document's new content does not keep its permissions: %s", std::strerror(errno));
}

} // namespace

DriveResult<DriveFolder> LocalDrive::folderToFill(const QString &id, const QString &newName, DriveHold &hold)
{
    const qint64 number = begin(id);
    if (!isValidDriveName(newName))
        return invalidName();
    if (number == DriveIndex::RootId) {
        const auto made = m_tree.openRoot(true);
        if (!made)
            return made.error();
    }
    auto fd = m_tree.openFolder(number, hold);
    if (!fd)
        return fd.error();
    if (m_index.chain(number).size() >= disk::DeepestFolder)
        return DriveError{Kind::InvalidName, QStringLiteral("folders too deep")};
    return DriveFolder{number, std::move(*fd)};
}

// Spares a transfer that cannot end well; the rename at its end decides.
DriveDone LocalDrive::checkTarget(
    const DriveFolder &folder, const QString &name, bool isFolder, DriveConflict conflict)
{
    struct stat status
    {
    };
    if (::fstatat(folder.fd.get(), name.toUtf8().constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return DriveOk();
    const bool sameKind = S_ISDIR(status.st_mode) == isFolder;
    if (conflict == DriveConflict::Fail || (conflict == DriveConflict::Replace && !sameKind))
        return disk::error("target", EEXIST);
    return DriveOk();
}

DriveResult<DriveItem> LocalDrive::createFolder(const QString &parentId, const QString &name)
{
    DriveHold hold;
    const auto folder = folderToFill(parentId, name, hold);
    if (!folder)
        return folder.error();
    if (::mkdirat(folder->fd.get(), name.toUtf8().constData(), 0777) != 0)
        return disk::lastError("create folder");
    return m_placing.adopt(*folder, name, true, hold);
}

DriveResult<DriveItem> LocalDrive::createFile(const QString &parentId, const QString &name)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    DriveHold hold;
    const auto folder = folderToFill(parentId, name, hold);
    if (!folder)
        return folder.error();
    const disk::UniqueFd file(::openat(folder->fd.get(), name.toUtf8().constData(), Flags, 0666));
    if (!file)
        return disk::lastError("create");
    return m_placing.adopt(*folder, name, false, hold);
}

DriveResult<DriveItem> LocalDrive::write(const QString &parentId, const QString &name, QIODevice &source,
    const DriveWriteOptions &options, const DriveProgress &progress)
{
    DriveHold hold;
    const auto folder = folderToFill(parentId, name, hold);
    if (!folder)
        return folder.error();
    const DriveDone checked = checkTarget(*folder, name, false, options.conflict);
    if (!checked)
        return checked.error();
    TempEntry temp(m_index, folder->id, folder->fd.get());
    if (m_index.failed())
        return m_index.error();
    hold.unlock();
    const DriveDone written = fill(temp, *folder, name, source, options, progress);
    return written ? m_placing.put(temp, *folder, name, false, options)
                   : DriveResult<DriveItem>(written.error());
}

DriveDone LocalDrive::fill(TempEntry &temp, const DriveFolder &folder, const QString &name, QIODevice &source,
    const DriveWriteOptions &options, const DriveProgress &progress)
{
    const auto file = temp.makeFile();
    if (!file)
        return file.error();
    TransferMeter meter(progress, source.isSequential() ? -1 : source.size() - source.pos());
    WrittenContent content;
    DriveDone copied = copyBytes(source, file->get(), meter, content);
    if (!copied)
        return copied;
    ::fchmod(file->get(), mode_t(options.mode >= 0 ? options.mode & 0777 : disk::usualMode()));
    if (options.conflict == DriveConflict::Replace)
        keepMode(folder.fd.get(), name, temp);
    if (options.mtime >= 0)
        setTime(file->get(), options.mtime);
    if (::fsync(file->get()) != 0)
        return disk::lastError("sync");
    return content.check(folder.fd.get(), temp.name(), file->get());
}

DriveDone LocalDrive::read(const QString &id, QIODevice &target, const DriveProgress &progress)
{
    DriveHold hold;
    const auto spot = m_tree.locate(begin(id), hold);
    if (!spot)
        return spot.error();
    const disk::Entry &entry = spot->record.entry;
    if (entry.isFolder)
        return DriveError{Kind::NotFound, QStringLiteral("read: a folder")};
    const disk::UniqueFd file = disk::openFile(spot->parent.get(), entry.name, m_tree.realRoot());
    if (!file)
        return disk::lastError("open");
    hold.unlock();
    TransferMeter meter(progress, entry.size);
    return copyBytes(file.get(), target, meter);
}

DriveResult<DriveItem> LocalDrive::rename(const QString &id, const QString &name)
{
    const qint64 number = begin(id);
    if (!isValidDriveName(name))
        return invalidName();
    DriveHold hold;
    const auto spot = m_tree.locate(number, hold);
    if (!spot)
        return spot.error();
    if (number == DriveIndex::RootId)
        return rootStays();
    return m_placing.move(*spot, spot->record.parent, spot->parent.get(), name, DriveConflict::Fail, hold);
}

DriveResult<DriveItem> LocalDrive::move(
    const QString &id, const QString &parentId, const QString &name, DriveConflict conflict)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return rootStays();
    // Searched for before both are looked at together.
    DriveHold hold;
    if (const auto found = m_tree.locate(number, hold); !found)
        return found.error();
    hold.unlock();
    DriveHold folderHold;
    const auto folder = folderToFill(parentId, name.isEmpty() ? QStringLiteral("any") : name, folderHold);
    if (!folder)
        return folder.error();
    const auto spot = m_tree.locate(number, hold);
    if (!spot)
        return spot.error();
    folderHold.unlock();
    const QString newName = name.isEmpty() ? spot->record.entry.name : name;
    return m_placing.move(*spot, folder->id, folder->fd.get(), newName, conflict, hold);
}

DriveDone LocalDrive::remove(const QString &id)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return rootStays();
    DriveHold hold;
    const auto spot = m_tree.locate(number, hold);
    if (!spot)
        return spot.error();
    Unsynced changed;
    changed.add(spot->parent.get());
    DriveDone gone = m_trash.destroy(*spot, hold);
    changed.sync(hold);
    return gone;
}

DriveResult<DriveItem> LocalDrive::copy(const QString &id, const QString &parentId, const QString &name,
    DriveConflict conflict, const DriveProgress &progress, int *leftOut)
{
    const qint64 number = begin(id);
    DriveHold hold;
    const auto spot = m_tree.locate(number, hold);
    if (!spot)
        return spot.error();
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("a folder cannot go into itself")};
    const disk::Entry &entry = spot->record.entry;
    const disk::UniqueFd source = entry.isFolder
        ? disk::openFolder(spot->parent.get(), entry.name)
        : disk::openFile(spot->parent.get(), entry.name, m_tree.realRoot());
    if (!source)
        return disk::lastError("open");
    hold.unlock();
    const QString newName = name.isEmpty() ? entry.name : name;
    const auto folder = folderToFill(parentId, newName, hold);
    if (!folder)
        return folder.error();
    const DriveDone checked = checkTarget(*folder, newName, entry.isFolder, conflict);
    if (!checked)
        return checked.error();
    TempEntry temp(m_index, folder->id, folder->fd.get());
    if (m_index.failed())
        return m_index.error();
    hold.unlock();
    const DriveDone copied = copyContent(source.get(), entry.isFolder, *folder, temp, progress, leftOut);
    if (!copied)
        return copied.error();
    if (conflict == DriveConflict::Replace && !entry.isFolder)
        keepMode(folder->fd.get(), newName, temp);
    auto item = m_placing.put(temp, *folder, newName, entry.isFolder, {conflict, -1});
    if (item && entry.isFolder) // what the index cannot take up now it takes up with the next look
        (void)m_tree.syncTree(driveIdNumber(item->id));
    return item;
}

DriveDone LocalDrive::copyContent(int source, bool isFolder, const DriveFolder &folder, TempEntry &temp,
    const DriveProgress &progress, int *leftOut)
{
    const QByteArray root = m_tree.realRoot();
    TransferMeter meter(progress, TreeCopy::measure(source, isFolder, root));
    TreeCopy copy(root, meter);
    DriveDone copied = copy.run(source, folder.fd.get(), temp.name(), isFolder);
    if (leftOut)
        *leftOut = copy.unreadable();
    // Once for all files: one by one would take many times as long.
    if (copied && ::syncfs(folder.fd.get()) != 0)
        return disk::lastError("sync");
    return copied;
}

} // namespace zel::service

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

/// The operations that make or move items.
namespace zel::service {
namespace {

using Kind = DriveError::Kind;

DriveError invalidName()
{
    return {Kind::InvalidName, QStringLiteral("not a valid name")};
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

DriveResult<LocalDrive::Folder> LocalDrive::folderToFill(const QString &id, const QString &newName)
{
    const qint64 number = begin(id);
    if (!isValidDriveName(newName))
        return invalidName();
    if (number == DriveIndex::RootId) {
        const auto made = m_tree.openRoot(true);
        if (!made)
            return made.error();
    }
    auto fd = m_tree.openFolder(number);
    if (!fd)
        return fd.error();
    if (m_index.chain(number).size() >= disk::DeepestFolder)
        return DriveError{Kind::InvalidName, QStringLiteral("folders too deep")};
    return Folder{number, std::move(*fd)};
}

// Spares a transfer that cannot end well; the rename at its end decides.
DriveDone LocalDrive::checkTarget(
    const Folder &folder, const QString &name, bool isFolder, DriveConflict conflict)
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

DriveResult<DriveItem> LocalDrive::adopt(const Folder &folder, const QString &name)
{
    const auto entry = disk::entryAt(folder.fd.get(), name, m_tree.realRoot());
    if (!entry)
        return disk::lastError("find");
    auto record = m_index.child(folder.id, name);
    sqlite::Transaction transaction(m_index.database());
    if (record && record->entry.isFolder == entry->isFolder) {
        refreshRecord(m_index, *record, *entry);
    } else {
        if (record)
            m_index.setState(record->id, DriveRecord::State::Missing);
        record = m_index.add(folder.id, *entry);
    }
    if (!transaction.commit())
        return m_index.error();
    return m_tree.item(record->id);
}

DriveResult<DriveItem> LocalDrive::finish(
    TempEntry &temp, const Folder &folder, const QString &name, bool isFolder, DriveConflict conflict)
{
    const auto taken = disk::rename(folder.fd.get(), temp.name(), folder.fd.get(), name, isFolder, conflict);
    if (!taken)
        return taken.error();
    temp.keep();
    if (::fsync(folder.fd.get()) != 0)
        return disk::lastError("sync");
    return adopt(folder, *taken);
}

// Only now, when all of the new content is there, does the old one go.
DriveResult<DriveItem> LocalDrive::finishTrashing(TempEntry &temp, const Folder &folder, const QString &name)
{
    const auto old = m_tree.childOf(folder.id, folder.fd.get(), name);
    if (!old || old->entry.isFolder)
        return finish(temp, folder, name, false, DriveConflict::Replace);
    const auto spot = m_tree.locate(old->id);
    const auto away = spot ? m_trash.put(*spot) : DriveResult<DriveTrashItem>(spot.error());
    if (!away)
        return away.error();
    auto item = finish(temp, folder, name, false, DriveConflict::Fail);
    if (!item && !m_trash.restore(away->id.toLongLong()))
        return DriveError{
            item.error().kind, item.error().text % QStringLiteral("; what was replaced is in the trash")};
    return item;
}

DriveResult<DriveItem> LocalDrive::createFolder(const QString &parentId, const QString &name)
{
    const auto folder = folderToFill(parentId, name);
    if (!folder)
        return folder.error();
    if (::mkdirat(folder->fd.get(), name.toUtf8().constData(), 0777) != 0)
        return disk::lastError("create folder");
    if (::fsync(folder->fd.get()) != 0)
        return disk::lastError("sync");
    return adopt(*folder, name);
}

DriveResult<DriveItem> LocalDrive::createFile(const QString &parentId, const QString &name)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const auto folder = folderToFill(parentId, name);
    if (!folder)
        return folder.error();
    const disk::UniqueFd file(::openat(folder->fd.get(), name.toUtf8().constData(), Flags, 0666));
    if (!file)
        return disk::lastError("create");
    if (::fsync(folder->fd.get()) != 0)
        return disk::lastError("sync");
    return adopt(*folder, name);
}

DriveResult<DriveItem> LocalDrive::write(const QString &parentId, const QString &name, QIODevice &source,
    const DriveWriteOptions &options, const DriveProgress &progress)
{
    const auto folder = folderToFill(parentId, name);
    if (!folder)
        return folder.error();
    const DriveDone checked = checkTarget(*folder, name, false, options.conflict);
    if (!checked)
        return checked.error();
    TempEntry temp(m_index, folder->id, folder->fd.get());
    if (m_index.failed())
        return m_index.error();
    const auto file = temp.makeFile();
    if (!file)
        return file.error();
    TransferMeter meter(progress, source.isSequential() ? -1 : source.size() - source.pos());
    const DriveDone copied = copyBytes(source, file->get(), meter);
    if (!copied)
        return copied.error();
    ::fchmod(file->get(), mode_t(options.mode >= 0 ? options.mode & 0777 : disk::usualMode()));
    if (options.conflict == DriveConflict::Replace)
        keepMode(folder->fd.get(), name, temp);
    if (options.mtime >= 0)
        setTime(file->get(), options.mtime);
    if (::fsync(file->get()) != 0)
        return disk::lastError("sync");
    if (options.conflict == DriveConflict::Replace && options.trashReplaced)
        return finishTrashing(temp, *folder, name);
    return finish(temp, *folder, name, false, options.conflict);
}

DriveDone LocalDrive::read(const QString &id, QIODevice &target, const DriveProgress &progress)
{
    const auto spot = m_tree.locate(begin(id));
    if (!spot)
        return spot.error();
    const disk::Entry &entry = spot->record.entry;
    if (entry.isFolder)
        return DriveError{Kind::NotFound, QStringLiteral("read: a folder")};
    const disk::UniqueFd file = disk::openFile(spot->parent.get(), entry.name, m_tree.realRoot());
    if (!file)
        return disk::lastError("open");
    TransferMeter meter(progress, entry.size);
    return copyBytes(file.get(), target, meter);
}

DriveResult<DriveItem> LocalDrive::rename(const QString &id, const QString &name)
{
    const qint64 number = begin(id);
    if (!isValidDriveName(name))
        return invalidName();
    const auto spot = m_tree.locate(number);
    if (!spot)
        return spot.error();
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
    return place(*spot, spot->record.parent, spot->parent.get(), name, DriveConflict::Fail);
}

DriveResult<DriveItem> LocalDrive::move(const QString &id, const QString &parentId, DriveConflict conflict)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
    const auto spot = m_tree.locate(number);
    if (!spot)
        return spot.error();
    const QString name = spot->record.entry.name;
    const auto folder = folderToFill(parentId, name);
    if (!folder)
        return folder.error();
    return place(*spot, folder->id, folder->fd.get(), name, conflict);
}

DriveResult<DriveItem> LocalDrive::place(
    const DriveTree::Spot &spot, qint64 folderId, int folder, const QString &name, DriveConflict conflict)
{
    DriveRecord record = spot.record;
    if (record.parent == folderId && record.entry.name == name)
        return m_tree.item(record.id);
    const QVector<DriveRecord> above = m_index.chain(folderId);
    for (const DriveRecord &step : above) {
        if (step.id == record.id)
            return DriveError{Kind::Denied, QStringLiteral("a folder cannot go into itself")};
    }
    const auto taken =
        disk::rename(spot.parent.get(), record.entry.name, folder, name, record.entry.isFolder, conflict);
    if (!taken)
        return taken.error();
    if (::fsync(folder) != 0 || ::fsync(spot.parent.get()) != 0)
        return disk::lastError("sync");
    {
        sqlite::Transaction transaction(m_index.database());
        // Replaced, or gone already and not noticed; then it may turn up elsewhere.
        if (const auto occupant = m_index.child(folderId, *taken))
            m_index.setState(occupant->id, DriveRecord::State::Missing);
        record.parent = folderId;
        record.entry.name = *taken;
        m_index.moved(record);
        if (!transaction.commit())
            return m_index.error();
    }
    return m_tree.item(record.id);
}

DriveResult<DriveItem> LocalDrive::copy(const QString &id, const QString &parentId, const QString &name,
    DriveConflict conflict, const DriveProgress &progress)
{
    const qint64 number = begin(id);
    const auto spot = m_tree.locate(number);
    if (!spot)
        return spot.error();
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("a folder cannot go into itself")};
    const bool isFolder = spot->record.entry.isFolder;
    const QString newName = name.isEmpty() ? spot->record.entry.name : name;
    const auto folder = folderToFill(parentId, newName);
    if (!folder)
        return folder.error();
    const DriveDone checked = checkTarget(*folder, newName, isFolder, conflict);
    if (!checked)
        return checked.error();
    TempEntry temp(m_index, folder->id, folder->fd.get());
    const DriveDone copied = m_index.failed() ? m_index.error() : copyContent(*spot, *folder, temp, progress);
    if (!copied)
        return copied.error();
    if (conflict == DriveConflict::Replace && !isFolder)
        keepMode(folder->fd.get(), newName, temp);
    auto item = finish(temp, *folder, newName, isFolder, conflict);
    if (item && isFolder) {
        const DriveDone synced = m_tree.syncTree(driveIdNumber(item->id));
        if (!synced)
            return synced.error();
    }
    return item;
}

DriveDone LocalDrive::copyContent(
    const DriveTree::Spot &spot, const Folder &folder, TempEntry &temp, const DriveProgress &progress)
{
    const disk::Entry &entry = spot.record.entry;
    const QByteArray root = m_tree.realRoot();
    const int from = spot.parent.get();
    TransferMeter meter(progress, TreeCopy::measure(from, entry.name, entry.isFolder, root));
    DriveDone copied =
        TreeCopy(root, meter).run(from, entry.name, folder.fd.get(), temp.name(), entry.isFolder);
    // Once for all files: one by one would take many times as long.
    if (copied && ::syncfs(folder.fd.get()) != 0)
        return disk::lastError("sync");
    return copied;
}

} // namespace zel::service

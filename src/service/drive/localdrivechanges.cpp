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

DriveResult<LocalDrive::Folder> LocalDrive::folderToFill(
    const QString &id, const QString &newName, DriveHold &hold)
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

// What has just been made here gets an id: under the hold since before it was made, so that nobody has seen
// it yet. An item that the index still has at this place went away without a word.
DriveResult<DriveItem> LocalDrive::adopt(const Folder &folder, const QString &name, TempEntry *temp)
{
    const auto entry = disk::entryAt(folder.fd.get(), name, m_tree.realRoot());
    if (!entry)
        return disk::lastError("find");
    sqlite::Transaction transaction(m_index.database());
    if (const auto stale = m_index.child(folder.id, name))
        m_index.setState(stale->id, DriveRecord::State::Missing);
    const DriveRecord record = m_index.add(folder.id, *entry);
    if (temp)
        temp->note();
    auto item = m_tree.item(record.id); // now, as nothing may fail once it is done
    if (!item || !transaction.commit())
        return m_index.failed() ? m_index.error() : item.error();
    return item;
}

// The new content gets its name. Somebody may have worked on the folder while it was written.
DriveResult<DriveItem> LocalDrive::finish(TempEntry &temp, const Folder &folder, const QString &name,
    bool isFolder, const DriveWriteOptions &options)
{
    DriveHold hold;
    m_index.database().clearFailure();
    const auto stillThere = m_tree.openFolder(folder.id, hold);
    if (!stillThere)
        return stillThere.error();
    if (!options.replacedId.isEmpty()) {
        const auto old = m_tree.childOf(folder.id, folder.fd.get(), name);
        const auto item = old ? m_tree.item(old->id) : DriveResult<DriveItem>(old.error());
        const bool isMeant = item && item->id == options.replacedId
            && (options.replacedVersion.isEmpty() || item->version == options.replacedVersion);
        if (!isMeant)
            return DriveError{Kind::Changed, QStringLiteral("what was to be replaced has changed")};
    }
    const bool trashes = options.conflict == DriveConflict::Replace && options.trashReplaced;
    auto item = trashes ? putTrashing(temp, folder, name)
                        : putInPlace(temp, folder, name, isFolder, options.conflict);
    return lasting(std::move(item), folder, hold);
}

DriveResult<DriveItem> LocalDrive::putInPlace(
    TempEntry &temp, const Folder &folder, const QString &name, bool isFolder, DriveConflict conflict)
{
    if (conflict == DriveConflict::Replace) {
        const auto replaced = m_tree.childOf(folder.id, folder.fd.get(), name);
        if (replaced && replaced->entry.isFolder == isFolder)
            return replace(temp, *replaced, folder, isFolder);
        if (!replaced && replaced.error().kind != Kind::NotFound)
            return replaced.error();
    }
    const auto taken = disk::rename(folder.fd.get(), temp.name(), folder.fd.get(), name, isFolder, conflict);
    if (!taken)
        return taken.error();
    auto item = adopt(folder, *taken, &temp);
    if (item)
        temp.keep();
    else // without an id it was not made
        (void)disk::rename(
            folder.fd.get(), *taken, folder.fd.get(), temp.name(), isFolder, DriveConflict::Fail);
    return item;
}

// It keeps the id of what it replaces. An index that cannot say now how the new content looks does so later.
DriveResult<DriveItem> LocalDrive::replace(
    TempEntry &temp, DriveRecord record, const Folder &folder, bool isFolder)
{
    const QString name = record.entry.name;
    const auto taken =
        disk::rename(folder.fd.get(), temp.name(), folder.fd.get(), name, isFolder, DriveConflict::Replace);
    if (!taken)
        return taken.error();
    temp.keep();
    if (const auto entry = disk::entryAt(folder.fd.get(), name, m_tree.realRoot())) {
        sqlite::Transaction transaction(m_index.database());
        refreshRecord(m_index, record, *entry);
        temp.note();
        transaction.commit();
        record.entry = *entry;
    }
    m_index.passOver();
    return m_tree.item(record, DriveTree::pathOf(m_index.chain(folder.id)));
}

// Only now, when all of the new content is there, does the old one go.
DriveResult<DriveItem> LocalDrive::putTrashing(TempEntry &temp, const Folder &folder, const QString &name)
{
    const auto old = m_tree.childOf(folder.id, folder.fd.get(), name);
    if (!old && old.error().kind != Kind::NotFound)
        return old.error();
    if (!old || old->entry.isFolder)
        return putInPlace(temp, folder, name, false, DriveConflict::Replace);
    DriveHold again;
    const auto spot = m_tree.locate(old->id, again);
    Unsynced changed;
    const auto away = spot ? m_trash.put(*spot, changed) : DriveResult<DriveTrashItem>(spot.error());
    if (!away)
        return away.error();
    auto item = putInPlace(temp, folder, name, false, DriveConflict::Fail);
    m_index.database().clearFailure(); // which is told in `item`; the old one comes back all the same
    if (!item && !m_trash.restore(away->id.toLongLong()))
        return DriveError{
            item.error().kind, item.error().text % QStringLiteral("; what was replaced is in the trash")};
    return item;
}

DriveResult<DriveItem> LocalDrive::createFolder(const QString &parentId, const QString &name)
{
    DriveHold hold;
    const auto folder = folderToFill(parentId, name, hold);
    if (!folder)
        return folder.error();
    const QByteArray bytes = name.toUtf8();
    if (::mkdirat(folder->fd.get(), bytes.constData(), 0777) != 0)
        return disk::lastError("create folder");
    auto item = adopt(*folder, name, nullptr);
    if (!item)
        ::unlinkat(folder->fd.get(), bytes.constData(), AT_REMOVEDIR);
    return lasting(std::move(item), *folder, hold);
}

DriveResult<DriveItem> LocalDrive::createFile(const QString &parentId, const QString &name)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    DriveHold hold;
    const auto folder = folderToFill(parentId, name, hold);
    if (!folder)
        return folder.error();
    const QByteArray bytes = name.toUtf8();
    const disk::UniqueFd file(::openat(folder->fd.get(), bytes.constData(), Flags, 0666));
    if (!file)
        return disk::lastError("create");
    auto item = adopt(*folder, name, nullptr);
    if (!item)
        ::unlinkat(folder->fd.get(), bytes.constData(), 0);
    return lasting(std::move(item), *folder, hold);
}

DriveResult<DriveItem> LocalDrive::lasting(DriveResult<DriveItem> item, const Folder &folder, DriveHold &hold)
{
    hold.unlock();
    Unsynced changed;
    if (item)
        changed.add(folder.fd.get());
    changed.sync();
    return item;
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
    return written ? finish(temp, *folder, name, false, options) : DriveResult<DriveItem>(written.error());
}

DriveDone LocalDrive::fill(TempEntry &temp, const Folder &folder, const QString &name, QIODevice &source,
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
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
    return place(*spot, spot->record.parent, spot->parent.get(), name, DriveConflict::Fail, hold);
}

DriveResult<DriveItem> LocalDrive::move(
    const QString &id, const QString &parentId, const QString &name, DriveConflict conflict)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
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
    return place(*spot, folder->id, folder->fd.get(), newName, conflict, hold);
}

DriveResult<DriveItem> LocalDrive::place(const DriveTree::Spot &spot, qint64 folderId, int folder,
    const QString &name, DriveConflict conflict, DriveHold &hold)
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
    {
        sqlite::Transaction transaction(m_index.database());
        // Replaced, or gone already and not noticed; then it may turn up elsewhere.
        const auto occupant = m_index.child(folderId, *taken);
        if (occupant && occupant->id != record.id)
            m_index.setState(occupant->id, DriveRecord::State::Missing);
        record.parent = folderId;
        record.entry.name = *taken;
        m_index.moved(record);
        transaction.commit();
    }
    m_index.passOver(); // it is found by its inode, as if another program had moved it
    DriveItem item = m_tree.item(record, DriveTree::pathOf(above));
    hold.unlock();
    Unsynced changed;
    changed.add(folder);
    changed.add(spot.parent.get());
    changed.sync();
    return item;
}

DriveDone LocalDrive::remove(const QString &id)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
    DriveHold hold;
    const auto spot = m_tree.locate(number, hold);
    if (!spot)
        return spot.error();
    Unsynced changed;
    changed.add(spot->parent.get());
    const DriveDone gone = m_trash.destroy(*spot, hold);
    hold.unlock();
    changed.sync();
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
    auto item = finish(temp, *folder, newName, entry.isFolder, {conflict, -1});
    if (item && entry.isFolder) // what the index cannot take up now it takes up with the next look
        (void)m_tree.syncTree(driveIdNumber(item->id));
    return item;
}

DriveDone LocalDrive::copyContent(int source, bool isFolder, const Folder &folder, TempEntry &temp,
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

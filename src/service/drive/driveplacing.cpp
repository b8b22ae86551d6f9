#include "driveplacing.h"

#include "foldersync.h"

#include <fcntl.h>
#include <unistd.h>

namespace zel::service {

using Kind = DriveError::Kind;

DriveResult<DriveItem> DrivePlacing::adopt(
    const DriveFolder &folder, const QString &name, bool isFolder, DriveHold &hold)
{
    auto item = addToIndex(folder, name, nullptr);
    if (!item)
        ::unlinkat(folder.fd.get(), name.toUtf8().constData(), isFolder ? AT_REMOVEDIR : 0);
    Unsynced changed;
    if (item)
        changed.add(folder.fd.get());
    changed.sync(hold);
    return item;
}

// Under the hold since before it was made, so that nobody has seen it yet. An item that the index still has
// at this place went away without a word.
DriveResult<DriveItem> DrivePlacing::addToIndex(
    const DriveFolder &folder, const QString &name, TempEntry *temp)
{
    const auto entry = disk::entryAt(folder.fd.get(), name, m_tree.realRoot());
    if (!entry)
        return disk::lastError("find");
    sqlite::Transaction transaction(m_index.database());
    if (const auto stale = m_index.child(folder.id, name))
        m_index.setState(stale->id, DriveRecord::State::Missing);
    const DriveRecord record = m_index.add(folder.id, *entry);
    if (temp)
        temp->dropRow();
    auto item = m_tree.item(record.id); // now, as nothing may fail once it is done
    if (!item || !transaction.commit())
        return m_index.failed() ? m_index.error() : item.error();
    return item;
}

DriveResult<DriveItem> DrivePlacing::put(TempEntry &temp, const DriveFolder &folder, const QString &name,
    bool isFolder, const DriveWriteOptions &options)
{
    DriveHold hold;
    m_index.database().clearFailure();
    const auto stillThere = m_tree.openFolder(folder.id, hold);
    const DriveDone mayGo = stillThere ? checkReplaced(folder, name, options) : DriveDone(stillThere.error());
    if (!mayGo)
        return mayGo.error();
    const bool trashes = options.conflict == DriveConflict::Replace && options.trashReplaced;
    Unsynced changed;
    auto item = trashes ? putTrashing(temp, folder, name, changed)
                        : putInPlace(temp, folder, name, isFolder, options.conflict);
    if (item)
        changed.add(folder.fd.get());
    changed.sync(hold);
    return item;
}

// Whether what has the name now is what the caller means to replace, if that was said.
DriveDone DrivePlacing::checkReplaced(
    const DriveFolder &folder, const QString &name, const DriveWriteOptions &options)
{
    if (options.replacedId.isEmpty())
        return DriveOk();
    const auto old = m_tree.childOf(folder.id, folder.fd.get(), name);
    const auto item = old ? m_tree.item(old->id) : DriveResult<DriveItem>(old.error());
    const bool isMeant = item && item->id == options.replacedId
        && (options.replacedVersion.isEmpty() || item->version == options.replacedVersion);
    if (!isMeant)
        return DriveError{Kind::Changed, QStringLiteral("what was to be replaced has changed")};
    return DriveOk();
}

DriveResult<DriveItem> DrivePlacing::putInPlace(
    TempEntry &temp, const DriveFolder &folder, const QString &name, bool isFolder, DriveConflict conflict)
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
    auto item = addToIndex(folder, *taken, &temp);
    if (item)
        temp.keep();
    else // without an id it was not made
        (void)disk::rename(
            folder.fd.get(), *taken, folder.fd.get(), temp.name(), isFolder, DriveConflict::Fail);
    return item;
}

// It keeps the id of what it replaces. An index that cannot say now how the new content looks does so later.
DriveResult<DriveItem> DrivePlacing::replace(
    TempEntry &temp, DriveRecord record, const DriveFolder &folder, bool isFolder)
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
        temp.dropRow();
        transaction.commit();
        record.entry = *entry;
    }
    m_index.passOver();
    return m_tree.item(record, DriveTree::pathOf(m_index.chain(folder.id)));
}

// Only now, when all of the new content is there, does the old one go.
DriveResult<DriveItem> DrivePlacing::putTrashing(
    TempEntry &temp, const DriveFolder &folder, const QString &name, Unsynced &changed)
{
    const auto old = m_tree.childOf(folder.id, folder.fd.get(), name);
    if (!old && old.error().kind != Kind::NotFound)
        return old.error();
    if (!old || old->entry.isFolder)
        return putInPlace(temp, folder, name, false, DriveConflict::Replace);
    DriveHold again;
    const auto spot = m_tree.locate(old->id, again);
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

DriveResult<DriveItem> DrivePlacing::move(const DriveTree::Spot &spot, qint64 folderId, int folder,
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
    Unsynced changed;
    changed.add(folder);
    changed.add(spot.parent.get());
    changed.sync(hold);
    return item;
}

} // namespace zel::service

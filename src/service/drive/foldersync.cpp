#include "foldersync.h"

#include <algorithm>

namespace zel::service {

bool isUnmoved(const DriveRecord &record, const disk::Entry &entry)
{
    const disk::Identity &a = record.entry.identity;
    const disk::Identity &b = entry.identity;
    // The device's number is not asked for: it may differ after each start of the machine.
    return record.entry.isFolder == entry.isFolder && a.inode == b.inode
        && (a.birthNs == b.birthNs || !a.birthNs || !b.birthNs);
}

bool isSameObject(const DriveRecord &record, const disk::Entry &entry)
{
    if (!isUnmoved(record, entry) || record.entry.identity.device != entry.identity.device)
        return false;
    // Without a time of birth the inode may be a new file's; renaming changes neither size nor time.
    return entry.identity.birthNs || entry.isFolder
        || (record.entry.size == entry.size && record.entry.mtimeNs == entry.mtimeNs);
}

void refreshRecord(DriveIndex &index, DriveRecord record, const disk::Entry &entry)
{
    const disk::Entry old = record.entry;
    const bool sameContent = old.size == entry.size && old.mtimeNs == entry.mtimeNs
        && old.identity.inode == entry.identity.inode && old.identity.birthNs == entry.identity.birthNs;
    if (sameContent && old.identity.device == entry.identity.device && old.ctimeNs == entry.ctimeNs)
        return;
    record.entry = entry;
    if (sameContent || entry.isFolder)
        index.update(record);
    else
        index.modified(record);
}

FolderSync::FolderSync(DriveIndex &index, qint64 folder, IsThere isThere)
    : m_index(index), m_folder(folder), m_isThere(std::move(isThere))
{
}

void FolderSync::run(const QVector<disk::Entry> &entries)
{
    compare(entries);
    // Before anything takes a name, so that two items can have changed theirs with each other.
    for (const DriveRecord &record : qAsConst(m_vanished))
        m_index.setState(record.id, DriveRecord::State::Missing);
    for (const disk::Entry &entry : qAsConst(m_fresh))
        settle(entry);
}

void FolderSync::compare(const QVector<disk::Entry> &entries)
{
    const QVector<DriveRecord> records = m_index.children(m_folder);
    m_vanished.reserve(records.size());
    for (const DriveRecord &record : records)
        m_vanished.insert(record.entry.name, record);
    for (const disk::Entry &entry : entries) {
        const auto known = m_vanished.constFind(entry.name);
        if (known != m_vanished.cend() && isUnmoved(*known, entry)) {
            refreshRecord(m_index, *known, entry);
            m_vanished.erase(known);
        } else {
            m_fresh.append(entry);
            m_freshInodes.insert(entry.identity.inode, entry);
        }
    }
}

void FolderSync::settle(const disk::Entry &entry)
{
    const auto old = m_vanished.constFind(entry.name);
    const bool replaced =
        old != m_vanished.cend() && old->entry.isFolder == entry.isFolder && !movedWithin(*old);
    // A file that was saved under a temporary name and renamed is the document it replaced, even when the
    // temporary file was seen. A folder that came from elsewhere brings its content and so its own id.
    if (replaced && !entry.isFolder) {
        refreshRecord(m_index, *old, entry);
    } else if (auto record = cameFrom(entry)) {
        record->parent = m_folder;
        record->entry.name = entry.name;
        record->state = DriveRecord::State::Present;
        m_index.moved(*record);
        refreshRecord(m_index, *record, entry);
    } else if (replaced) {
        refreshRecord(m_index, *old, entry);
    } else {
        m_index.add(m_folder, entry);
    }
}

bool FolderSync::movedWithin(const DriveRecord &record) const
{
    const auto range = m_freshInodes.equal_range(record.entry.identity.inode);
    return std::any_of(
        range.first, range.second, [&](const disk::Entry &entry) { return isSameObject(record, entry); });
}

std::optional<DriveRecord> FolderSync::cameFrom(const disk::Entry &entry)
{
    const QVector<DriveRecord> known = m_index.withInode(entry.identity.inode);
    for (const DriveRecord &record : known) {
        const bool gone = record.state == DriveRecord::State::Missing || !m_isThere(record);
        if (record.id != DriveIndex::RootId && isSameObject(record, entry) && gone)
            return record;
    }
    return {};
}

} // namespace zel::service

#include "drivetree.h"

#include "base/logging.h"
#include "driveitem.h"
#include "drivenames.h"
#include "foldersync.h"

#include <QDir>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;

DriveError notFound()
{
    return {Kind::NotFound, QStringLiteral("no such item")};
}

QByteArray realPath(int fd)
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink(disk::descriptorPath(fd).constData(), path, sizeof(path));
    return length > 0 ? QByteArray(path, int(length)) : QByteArray();
}

bool isStill(const DriveRecord &record, int fd)
{
    const auto entry = disk::entryOf(fd);
    return entry && isUnmoved(record, *entry);
}

} // namespace

DriveTree::DriveTree(const QString &root, DriveIndex &index) : m_root(QDir::cleanPath(root)), m_index(index)
{
}

DriveResult<disk::UniqueFd> DriveTree::openRoot(bool make)
{
    if (make && QDir().mkpath(QFileInfo(m_root).path()))
        ::mkdir(m_root.toUtf8().constData(), 0700); // documents are nobody else's business
    // The path itself is the user's choice and may lead over links.
    disk::UniqueFd fd(::open(m_root.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!fd)
        return disk::lastError("drive folder");
    if (!m_index.claim().own(fd.get()))
        return DriveError{Kind::Offline, QStringLiteral("another service has the drive's folder")};
    m_realRoot = realPath(fd.get());
    return fd;
}

DriveResult<DriveTree::Spot> DriveTree::locate(qint64 id, DriveHold &hold)
{
    hold = m_index.hold();
    auto spot = findNow(id);
    const auto searched = [&](const auto &search) {
        if (spot || spot.error().kind != Kind::NotFound || !mayExist(id))
            return;
        hold.unlock();
        const DriveDone done = search();
        hold.lock();
        if (done)
            spot = findNow(id);
    };
    searched([&] { return syncAncestors(id); });
    searched([&] { return scan(); });
    if (m_index.failed())
        return m_index.error();
    return spot;
}

DriveResult<DriveTree::Spot> DriveTree::findNow(qint64 id)
{
    QVector<DriveRecord> chain = m_index.chain(id);
    if (chain.isEmpty())
        return m_index.failed() ? m_index.error() : notFound();
    Spot spot{chain.takeLast(), {}};
    auto folder = chain.isEmpty() ? openRoot() : walk(chain);
    if (!folder)
        return folder.error();
    const auto entry = chain.isEmpty() ? disk::entryOf(folder->get())
                                       : disk::entryAt(folder->get(), spot.record.entry.name, m_realRoot);
    if (!entry)
        return disk::lastError("find");
    if (!chain.isEmpty()) {
        if (!isUnmoved(spot.record, *entry))
            return notFound();
        spot.parent = std::move(*folder);
        refresh(spot.record, *entry);
    }
    spot.record.entry = *entry;
    return spot;
}

// A full disk keeps nobody from what is there.
void DriveTree::refresh(const DriveRecord &record, const disk::Entry &entry)
{
    if (m_index.failed())
        return;
    refreshRecord(m_index, record, entry);
    m_index.passOver();
}

DriveResult<disk::UniqueFd> DriveTree::walk(const QVector<DriveRecord> &folders)
{
    auto folder = openRoot();
    for (int i = 1; folder && i < folders.size(); ++i) {
        disk::UniqueFd next = disk::openFolder(folder->get(), folders[i].entry.name);
        if (!next)
            return disk::lastError("open folder");
        *folder = std::move(next);
    }
    return folder;
}

DriveResult<disk::UniqueFd> DriveTree::openFolder(qint64 id, DriveHold &hold)
{
    if (id != DriveIndex::RootId)
        return openFound(locate(id, hold));
    hold = m_index.hold();
    return openRoot();
}

DriveResult<disk::UniqueFd> DriveTree::openFolder(qint64 id)
{
    return id == DriveIndex::RootId ? openRoot() : openFound(findNow(id));
}

DriveResult<disk::UniqueFd> DriveTree::openFound(const DriveResult<Spot> &spot)
{
    if (!spot)
        return spot.error();
    if (!spot->record.entry.isFolder)
        return notFound();
    disk::UniqueFd fd = disk::openFolder(spot->parent.get(), spot->record.entry.name);
    if (!fd)
        return disk::lastError("open folder");
    const auto entry = disk::entryOf(fd.get());
    if (!entry)
        return disk::lastError("look at a folder");
    if (!isUnmoved(spot->record, *entry)) // exchanged since
        return notFound();
    return fd;
}

DriveResult<DriveRecord> DriveTree::childOf(qint64 folderId, int folder, const QString &name)
{
    if (!isValidDriveName(name))
        return notFound();
    const auto entry = disk::entryAt(folder, name, m_realRoot);
    if (!entry)
        return disk::lastError("find");
    auto record = m_index.child(folderId, name);
    if (record && isUnmoved(*record, *entry)) {
        refresh(*record, *entry);
        record->entry = *entry;
        return *record;
    }
    const DriveDone synced = sync(folderId, folder);
    if (!synced)
        return synced.error();
    record = m_index.child(folderId, name);
    if (!record)
        return m_index.failed() ? m_index.error() : notFound();
    return *record;
}

DriveResult<QVector<disk::Entry>> DriveTree::entriesOf(qint64 folderId, int folder)
{
    int unreadable = 0;
    auto entries = disk::entriesOf(folder, m_realRoot, unreadable);
    if (entries && unreadable && !m_complained.contains(folderId)) {
        m_complained.insert(folderId);
        qCWarning(
            lcService, "drive: folder %lld: names that are not UTF-8 are left out: %d", folderId, unreadable);
    }
    return entries;
}

DriveDone DriveTree::sync(qint64 folderId, int folder)
{
    const DriveHold hold = m_index.hold(); // before reading: what it reads is what the index says meanwhile
    const auto entries = entriesOf(folderId, folder);
    return entries ? sync(folderId, *entries) : DriveDone(entries.error());
}

DriveDone DriveTree::sync(qint64 folderId, const QVector<disk::Entry> &entries)
{
    sqlite::Transaction transaction(m_index.database());
    if (!m_index.failed() && !m_index.find(folderId)) // removed since it was opened
        return notFound();
    FolderSync(m_index, folderId, [this](const DriveRecord &record) { return isThere(record); }).run(entries);
    if (!transaction.commit())
        return m_index.error();
    return DriveOk();
}

DriveResult<QVector<DriveRecord>> DriveTree::contentOf(qint64 folderId, int folder)
{
    const auto entries = entriesOf(folderId, folder);
    if (!entries)
        return entries.error();
    const DriveDone synced = sync(folderId, *entries);
    if (!synced && !m_index.failed())
        return synced.error();
    m_index.passOver();
    QVector<DriveRecord> records = m_index.children(folderId);
    if (!synced) { // what has no id as long as the disk is full is left out
        QHash<QString, disk::Entry> there;
        for (const disk::Entry &entry : *entries)
            there.insert(entry.name, entry);
        const auto isGone = [&there](const DriveRecord &record) {
            const auto entry = there.constFind(record.entry.name);
            return entry == there.cend() || !isUnmoved(record, *entry);
        };
        records.erase(std::remove_if(records.begin(), records.end(), isGone), records.end());
        for (DriveRecord &record : records)
            record.entry = there.value(record.entry.name);
    }
    if (m_index.failed())
        return m_index.error();
    return records;
}

DriveDone DriveTree::syncTree(qint64 folderId)
{
    DriveHold hold;
    const auto folder = openFolder(folderId, hold);
    hold = {};
    if (!folder)
        return folder.error();
    return syncBelow(folderId, folder->get(), 0);
}

DriveDone DriveTree::syncBelow(qint64 folderId, int folder, int depth)
{
    const DriveDone synced = sync(folderId, folder);
    if (!synced || depth >= disk::DeepestFolder)
        return synced;
    const QVector<DriveRecord> children = m_index.children(folderId);
    for (const DriveRecord &child : children) {
        const disk::UniqueFd fd =
            child.entry.isFolder ? disk::openFolder(folder, child.entry.name) : disk::UniqueFd();
        // What cannot be read now keeps what is known of it, and so does what has moved since.
        if (fd && isStill(child, fd.get()) && !syncBelow(child.id, fd.get(), depth + 1) && m_index.failed())
            return m_index.error();
    }
    return DriveOk();
}

DriveDone DriveTree::scan()
{
    DriveDone synced = syncTree(DriveIndex::RootId);
    // What someone moves meanwhile, from a folder not read yet to one that was, is found the second time.
    const QVector<qint64> missing = synced ? m_index.missing() : QVector<qint64>();
    if (!missing.isEmpty())
        synced = syncTree(DriveIndex::RootId);
    return synced ? dropMissing(missing) : synced;
}

// What came back meanwhile stays.
DriveDone DriveTree::dropMissing(const QVector<qint64> &ids)
{
    const DriveHold hold = m_index.hold();
    sqlite::Transaction transaction(m_index.database());
    for (const qint64 id : ids)
        m_index.dropMissing(id);
    if (!transaction.commit())
        return m_index.error();
    return DriveOk();
}

DriveDone DriveTree::refresh(QStringList folders)
{
    std::sort(folders.begin(), folders.end()); // those above first
    QVector<qint64> missing;
    for (const QString &path : qAsConst(folders)) {
        const DriveHold hold = m_index.hold();
        const auto id = idAt(path);
        const auto folder = id ? openFolder(*id) : DriveResult<disk::UniqueFd>(id.error());
        if (folder && sync(*id, folder->get()))
            missing += m_index.missing(*id);
        if (m_index.failed())
            return m_index.error();
    }
    return dropMissing(missing);
}

DriveResult<qint64> DriveTree::idAt(const QString &path)
{
    qint64 id = DriveIndex::RootId;
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        const auto folder = openFolder(id);
        if (!folder)
            return folder.error();
        const auto record = childOf(id, folder->get(), name);
        if (!record)
            return record.error();
        id = record->id;
    }
    return id;
}

DriveDone DriveTree::syncAncestors(qint64 id)
{
    auto folder = openRoot();
    if (!folder)
        return folder.error();
    QVector<qint64> above;
    for (auto record = m_index.find(id); record && record->parent && above.size() < disk::DeepestFolder;
         record = m_index.find(record->parent))
        above.prepend(record->parent);
    for (const qint64 step : qAsConst(above)) {
        // Found again by the sync of the folder above, if at all.
        const DriveHold hold = m_index.hold();
        const QVector<DriveRecord> chain = m_index.chain(step);
        auto next = chain.isEmpty() ? DriveResult<disk::UniqueFd>(notFound()) : walk(chain);
        if (!next || !sync(step, next->get()))
            break;
    }
    return DriveOk();
}

// Neither in the trash nor unknown.
bool DriveTree::mayExist(qint64 id)
{
    for (int depth = 0; id != DriveIndex::RootId && depth <= disk::DeepestFolder; ++depth) {
        const auto record = m_index.find(id);
        if (!record || record->state == DriveRecord::State::Trashed)
            return false;
        id = record->parent;
    }
    return id == DriveIndex::RootId;
}

bool DriveTree::isThere(const DriveRecord &record)
{
    QVector<DriveRecord> chain = m_index.chain(record.id);
    if (chain.size() < 2)
        return false;
    chain.removeLast();
    const auto folder = walk(chain);
    const auto entry = folder ? disk::entryAt(folder->get(), record.entry.name, m_realRoot) : std::nullopt;
    return entry && isUnmoved(record, *entry);
}

DriveResult<DriveItem> DriveTree::item(qint64 id)
{
    QVector<DriveRecord> chain = m_index.chain(id);
    if (m_index.failed())
        return m_index.error();
    if (chain.isEmpty())
        return notFound();
    const DriveRecord record = chain.takeLast();
    return item(record, pathOf(chain));
}

DriveItem DriveTree::item(const DriveRecord &record, const QString &folderPath) const
{
    return driveItem(record, m_root, folderPath);
}

QString DriveTree::pathOf(const QVector<DriveRecord> &chain)
{
    QStringList names;
    for (int i = 1; i < chain.size(); ++i)
        names.append(chain[i].entry.name);
    return names.join(QLatin1Char('/'));
}

} // namespace zel::service

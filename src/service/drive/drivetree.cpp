#include "drivetree.h"

#include "base/logging.h"
#include "drivejournal.h"
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

constexpr qint64 NsPerMs = 1000000;

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

QString versionOf(const disk::Entry &entry)
{
    return QStringLiteral("%1-%2-%3")
        .arg(entry.identity.inode, 0, 16)
        .arg(entry.mtimeNs, 0, 16)
        .arg(entry.size, 0, 16);
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
    m_realRoot = realPath(fd.get());
    return fd;
}

DriveResult<DriveTree::Spot> DriveTree::locate(qint64 id)
{
    auto spot = findNow(id);
    const auto lost = [&] { return !spot && spot.error().kind == Kind::NotFound && mayExist(id); };
    if (lost() && syncAncestors(id))
        spot = findNow(id);
    if (lost() && scan())
        spot = findNow(id);
    if (m_index.failed())
        return m_index.error();
    return spot;
}

DriveResult<DriveTree::Spot> DriveTree::findNow(qint64 id)
{
    QVector<DriveRecord> chain = m_index.chain(id);
    if (chain.isEmpty())
        return notFound();
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
        refreshRecord(m_index, spot.record, *entry);
    }
    spot.record.entry = *entry;
    return spot;
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

DriveResult<disk::UniqueFd> DriveTree::openFolder(qint64 id)
{
    if (id == DriveIndex::RootId)
        return openRoot();
    auto spot = locate(id);
    if (!spot)
        return spot.error();
    if (!spot->record.entry.isFolder)
        return notFound();
    disk::UniqueFd fd = disk::openFolder(spot->parent.get(), spot->record.entry.name);
    const auto entry = fd ? disk::entryOf(fd.get()) : std::nullopt;
    if (!entry)
        return disk::lastError("open folder");
    if (!isUnmoved(spot->record, *entry)) // exchanged since
        return notFound();
    return fd;
}

DriveResult<DriveRecord> DriveTree::childOf(qint64 folderId, int folder, const QString &name)
{
    const auto entry = isValidDriveName(name) ? disk::entryAt(folder, name, m_realRoot) : std::nullopt;
    if (!entry)
        return notFound();
    auto record = m_index.child(folderId, name);
    if (record && isUnmoved(*record, *entry)) {
        refreshRecord(m_index, *record, *entry);
        record->entry = *entry;
        return *record;
    }
    const DriveDone synced = sync(folderId, folder);
    if (!synced)
        return synced.error();
    record = m_index.child(folderId, name);
    return record ? DriveResult<DriveRecord>(*record) : notFound();
}

DriveDone DriveTree::sync(qint64 folderId, int folder)
{
    int unreadable = 0;
    const auto entries = disk::entriesOf(folder, m_realRoot, unreadable);
    if (!entries)
        return entries.error();
    if (unreadable && !m_complained.contains(folderId)) {
        m_complained.insert(folderId);
        qCWarning(
            lcService, "drive: folder %lld: names that are not UTF-8 are left out: %d", folderId, unreadable);
    }
    sqlite::Transaction transaction(m_index.database());
    FolderSync(m_index, folderId, [this](const DriveRecord &record) {
        return isThere(record);
    }).run(*entries);
    if (!transaction.commit())
        return m_index.error();
    return DriveOk();
}

DriveDone DriveTree::syncTree(qint64 folderId)
{
    const auto folder = openFolder(folderId);
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
        // What cannot be read now keeps what is known of it.
        if (fd && !syncBelow(child.id, fd.get(), depth + 1) && m_index.failed())
            return m_index.error();
    }
    return DriveOk();
}

DriveDone DriveTree::scan()
{
    DriveDone synced = syncTree(DriveIndex::RootId);
    // What someone moves meanwhile, from a folder not read yet to one that was, is found the second time.
    if (synced && m_index.anyMissing())
        synced = syncTree(DriveIndex::RootId);
    return synced ? dropMissing({0}) : synced;
}

DriveDone DriveTree::dropMissing(const QVector<qint64> &folders)
{
    sqlite::Transaction transaction(m_index.database());
    for (const qint64 id : folders)
        m_index.dropMissing(id);
    if (!transaction.commit())
        return m_index.error();
    return DriveOk();
}

DriveDone DriveTree::refresh(QStringList folders)
{
    std::sort(folders.begin(), folders.end()); // those above first
    QVector<qint64> synced;
    for (const QString &path : qAsConst(folders)) {
        const auto id = folderAt(path);
        const auto folder = id ? openFolder(*id) : DriveResult<disk::UniqueFd>(id.error());
        if (folder && sync(*id, folder->get()))
            synced.append(*id);
        if (m_index.failed())
            return m_index.error();
    }
    return dropMissing(synced);
}

DriveResult<qint64> DriveTree::folderAt(const QString &path)
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
    const disk::Entry &entry = record.entry;
    DriveItem item;
    item.id = driveIdText(record.id);
    item.parentId = driveIdText(record.parent);
    item.isFolder = entry.isFolder;
    item.size = entry.size;
    item.ctime = entry.ctimeNs / NsPerMs;
    item.mtime = entry.mtimeNs / NsPerMs;
    item.version = versionOf(entry);
    item.localPath = m_root;
    if (!folderPath.isEmpty())
        item.localPath += QLatin1Char('/') % folderPath;
    if (record.id != DriveIndex::RootId) {
        item.name = entry.name;
        item.localPath += QLatin1Char('/') % entry.name;
    }
    return item;
}

QString DriveTree::pathOf(const QVector<DriveRecord> &chain)
{
    QStringList names;
    for (int i = 1; i < chain.size(); ++i)
        names.append(chain[i].entry.name);
    return names.join(QLatin1Char('/'));
}

} // namespace zel::service

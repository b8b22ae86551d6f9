#include "localdrive.h"

#include "drivejournal.h"
#include "drivenames.h"
#include "driveschema.h"
#include "drivetransfer.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <sys/statvfs.h>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;

bool isAbsent(const DriveError &error)
{
    return error.kind == Kind::NotFound;
}

} // namespace

LocalDrive::LocalDrive(const QString &root, sqlite::Database &database, std::shared_ptr<DriveClaim> claim)
    : m_claim(std::move(claim)),
      m_index(database, *m_claim),
      m_tree(root, m_index),
      m_trash(m_tree, m_index),
      m_placing(m_tree, m_index, m_trash)
{
}

QString LocalDrive::rootId() const
{
    return driveIdText(DriveIndex::RootId);
}

qint64 LocalDrive::begin(const QString &id)
{
    m_index.database().clearFailure();
    return driveIdNumber(id);
}

DriveDone LocalDrive::prepare()
{
    begin({});
    const DriveHold hold = m_index.hold();
    if (!prepareDriveSchema(m_index.database())) {
        return m_index.failed() ? m_index.error()
                                : DriveError{Kind::Io, QStringLiteral("drive tables of a later version")};
    }
    const DriveDone removed = removeLeftovers();
    return removed ? m_trash.recover() : removed;
}

DriveDone LocalDrive::removeLeftovers()
{
    struct Leftover
    {
        qint64 row = 0;
        qint64 folder = 0;
        QString name;
    };
    QVector<Leftover> leftovers;
    {
        sqlite::Statement rows(m_index.database(), "SELECT id, folder, name FROM drive_temp");
        while (rows.step())
            leftovers.append({rows.number(0), rows.number(1), rows.text(2)});
    }
    if (leftovers.isEmpty() || !m_tree.openRoot()) // an absent drive may come back with them
        return m_index.failed() ? DriveDone(m_index.error()) : DriveOk();
    for (const Leftover &leftover : qAsConst(leftovers)) {
        const auto folder = m_tree.openFolder(leftover.folder);
        if (!folder && !isAbsent(folder.error()))
            continue;
        const bool ours = isHiddenDriveName(leftover.name) && !leftover.name.contains(QLatin1Char('/'));
        if (folder && ours && !disk::removeTree(folder->get(), leftover.name))
            continue;
        sqlite::Statement(m_index.database(), "DELETE FROM drive_temp WHERE id = ?")
            .bind(1, leftover.row)
            .run();
    }
    return m_index.failed() ? DriveDone(m_index.error()) : DriveOk();
}

DriveDone LocalDrive::refresh(const QStringList &folders)
{
    begin({});
    return m_tree.refresh(folders);
}

DriveDone LocalDrive::rescan()
{
    begin({});
    const DriveDone scanned = m_tree.scan();
    // Nothing is taken for removed while the whole folder is away, as with a disk that is not there.
    if (!scanned && !isAbsent(scanned.error()))
        return scanned;
    m_claim->scanned = bool(scanned);
    return DriveOk();
}

DriveDone LocalDrive::ensureScanned()
{
    return m_claim->watched && m_claim->scanned ? DriveDone(DriveOk()) : rescan();
}

DriveResult<QVector<DriveItem>> LocalDrive::list(const QString &folderId)
{
    const qint64 id = begin(folderId);
    QVector<DriveItem> items;
    DriveHold hold;
    const auto folder = m_tree.openFolder(id, hold);
    if (!folder) {
        const bool empty = id == DriveIndex::RootId && isAbsent(folder.error());
        return empty ? DriveResult<QVector<DriveItem>>(items) : folder.error();
    }
    const auto children = m_tree.contentOf(id, folder->get());
    if (!children)
        return children.error();
    const QString path = DriveTree::pathOf(m_index.chain(id));
    hold.unlock();
    items.reserve(children->size());
    for (const DriveRecord &child : *children)
        items.append(m_tree.item(child, path));
    if (m_index.failed())
        return m_index.error();
    return items;
}

DriveResult<DriveItem> LocalDrive::stat(const QString &id)
{
    auto steps = pathOf(id);
    if (!steps)
        return steps.error();
    return steps->last();
}

DriveResult<QVector<DriveItem>> LocalDrive::pathOf(const QString &id)
{
    const qint64 number = begin(id);
    DriveHold hold;
    const auto spot = m_tree.locate(number, hold);
    const bool absentRoot = !spot && number == DriveIndex::RootId && isAbsent(spot.error());
    if (!spot && !absentRoot)
        return spot.error();
    QVector<DriveRecord> chain = m_index.chain(number);
    if (chain.isEmpty())
        return m_index.failed() ? m_index.error()
                                : DriveError{Kind::NotFound, QStringLiteral("no such item")};
    if (spot)
        chain.last().entry = spot->record.entry;
    QVector<DriveItem> items;
    for (int i = 0; i < chain.size(); ++i)
        items.append(m_tree.item(chain[i], DriveTree::pathOf(chain.mid(0, i))));
    return items;
}

DriveResult<DriveItem> LocalDrive::resolve(const QString &path)
{
    begin({});
    const DriveHold hold = m_index.hold();
    const auto id = m_tree.idAt(path);
    if (!id)
        return id.error();
    return *id == DriveIndex::RootId ? stat(rootId()) : m_tree.item(*id);
}

DriveResult<DriveItem> LocalDrive::child(const QString &folderId, const QString &name)
{
    DriveHold hold;
    const auto folder = m_tree.openFolder(begin(folderId), hold);
    const auto record = folder ? m_tree.childOf(driveIdNumber(folderId), folder->get(), name)
                               : DriveResult<DriveRecord>(folder.error());
    return record ? m_tree.item(record->id) : DriveResult<DriveItem>(record.error());
}

DriveResult<DriveTrashItem> LocalDrive::trash(const QString &id)
{
    const qint64 number = begin(id);
    if (number == DriveIndex::RootId)
        return DriveError{Kind::Denied, QStringLiteral("the root stays")};
    DriveHold hold;
    auto spot = m_tree.locate(number, hold);
    // So that everything below can be told of, and comes back with its ids.
    if (spot && spot->record.entry.isFolder) {
        hold.unlock();
        const DriveDone synced = m_tree.syncTree(number);
        if (!synced && m_index.failed())
            return synced.error();
        spot = m_tree.locate(number, hold);
    }
    if (!spot)
        return spot.error();
    Unsynced changed;
    auto item = m_trash.put(*spot, changed);
    changed.sync(hold);
    return item;
}

DriveResult<QVector<DriveTrashItem>> LocalDrive::listTrash()
{
    begin({});
    return m_trash.list();
}

DriveResult<DriveItem> LocalDrive::restore(const QString &trashId)
{
    begin({});
    return m_trash.restore(trashId.toLongLong());
}

DriveDone LocalDrive::purge(const QString &trashId)
{
    begin({});
    return m_trash.purge(trashId.toLongLong());
}

DriveDone LocalDrive::emptyTrash()
{
    const auto items = listTrash();
    if (!items)
        return items.error();
    for (const DriveTrashItem &item : *items) {
        const DriveDone purged = purge(item.id);
        if (!purged)
            return purged;
    }
    return DriveOk();
}

DriveResult<DriveUsage> LocalDrive::usage()
{
    const DriveDone scanned = ensureScanned();
    if (!scanned)
        return scanned.error();
    begin({});
    DriveUsage usage{m_index.totalSize(), -1};
    QString place = m_tree.item(DriveRecord{}, {}).localPath;
    while (!QFileInfo::exists(place) && place.size() > 1)
        place = QFileInfo(place).path();
    struct statvfs status
    {
    };
    if (::statvfs(place.toUtf8().constData(), &status) == 0)
        usage.free = qint64(status.f_bavail) * qint64(status.f_frsize);
    if (m_index.failed())
        return m_index.error();
    return usage;
}

DriveResult<DriveChanges> LocalDrive::changesSince(const QString &cursor)
{
    const DriveDone scanned = ensureScanned();
    if (!scanned)
        return scanned.error();
    begin({});
    const DriveHold hold = m_index.hold();
    DriveJournal journal(m_index.database());
    journal.trim();
    DriveChanges changes = journal.since(cursor);
    if (m_index.failed())
        return m_index.error();
    return changes;
}

DriveResult<QVector<DriveItem>> LocalDrive::search(const QString &text, int limit)
{
    const DriveDone scanned = ensureScanned();
    if (!scanned)
        return scanned.error();
    begin({});
    QVector<DriveItem> found;
    sqlite::Statement rows(m_index.database(),
        "SELECT id FROM drive_item WHERE state = 0 AND instr(folded, ?) > 0 AND id > 1 ORDER BY mtime_ns "
        "DESC");
    rows.bind(1, text.toCaseFolded());
    while (found.size() < limit && !text.isEmpty() && rows.step()) {
        if (auto item = m_tree.item(rows.number(0))) // not in a folder that is away
            found.append(std::move(*item));
    }
    if (m_index.failed())
        return m_index.error();
    return found;
}

} // namespace zel::service

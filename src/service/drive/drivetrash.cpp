#include "drivetrash.h"

#include "base/logging.h"
#include "drivejournal.h"
#include "drivenames.h"

#include <QDateTime>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::service {
namespace {

using Kind = DriveError::Kind;
using State = DriveRecord::State;

constexpr char TrashName[] = ".zel-trash";
constexpr QLatin1String DoomedPrefix("purged-"); // places are numbers

bool makeFolder(int parent, const QString &name, mode_t mode)
{
    return ::mkdirat(parent, name.toUtf8().constData(), mode) == 0;
}

QString newPlace()
{
    return QString::number(QRandomGenerator::system()->generate64(), 16);
}

void removeEmpty(int parent, const QString &name)
{
    ::unlinkat(parent, name.toUtf8().constData(), AT_REMOVEDIR);
}

// Whatever it is: a relative link leads elsewhere from here than from where it was.
bool isThere(int place, const QString &name)
{
    struct stat status
    {
    };
    return ::fstatat(place, name.toUtf8().constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

// An error: it is not known.
DriveResult<bool> holds(int trash, const QString &place, const QString &name)
{
    const disk::UniqueFd folder = disk::openFolder(trash, place);
    if (folder && isThere(folder.get(), name))
        return true;
    const DriveError error = disk::lastError("trash");
    return error.kind == Kind::NotFound ? DriveResult<bool>(false) : error;
}

// Half a folder is nothing to give back: it stays out of sight.
void tellRest(const DriveError &error)
{
    qCWarning(lcService, "drive: a part of what was removed stays until the next start: %s",
        qUtf8Printable(error.text));
}

// What stands in one place of the trash, if it is just one thing.
std::optional<disk::Entry> contentOf(int trash, const QString &place, const QByteArray &root)
{
    const disk::UniqueFd folder = disk::openFolder(trash, place);
    int unreadable = 0;
    const auto entries = disk::entriesOf(folder.get(), root, unreadable);
    if (!folder || !entries || entries->size() != 1)
        return {};
    return entries->first();
}

} // namespace

DriveResult<disk::UniqueFd> DriveTrash::open(bool make)
{
    auto root = m_tree.openRoot();
    if (!root)
        return root;
    const QString name = QLatin1String(TrashName);
    if (make && !makeFolder(root->get(), name, 0700) && errno != EEXIST)
        return disk::lastError("trash");
    disk::UniqueFd trash = disk::openFolder(root->get(), name);
    if (!trash)
        return disk::lastError("trash");
    return trash;
}

DriveDone DriveTrash::recover()
{
    const auto root = m_tree.openRoot();
    if (!root) // an absent drive, perhaps on a disk that comes back
        return root.error().kind == Kind::NotFound ? DriveDone(DriveOk()) : root.error();
    const auto trash = open(false);
    if (!trash && trash.error().kind != Kind::NotFound)
        return trash.error();
    QSet<QString> known;
    const QVector<Row> noted = m_table.all();
    for (const Row &row : noted) {
        const auto held = trash ? holds(trash->get(), row.place, row.item.name) : DriveResult<bool>(false);
        known.insert(row.place);
        if (!held)
            continue;
        const bool there = *held;
        const auto record = m_index.find(row.record);
        if (there && record && record->state != State::Trashed)
            m_index.setState(row.record, State::Trashed);
        // Came back before its row was removed: found by its inode where it is now.
        if (!there
            && !forget(row, record && record->state == State::Trashed ? State::Missing : State::Present))
            return m_index.error();
        if (!there && trash)
            removeEmpty(trash->get(), row.place);
    }
    int unreadable = 0;
    const auto found = trash ? disk::entriesOf(trash->get(), m_tree.realRoot(), unreadable)
                             : DriveResult<QVector<disk::Entry>>(QVector<disk::Entry>());
    for (const disk::Entry &place : found ? *found : QVector<disk::Entry>()) {
        if (place.name.startsWith(DoomedPrefix)) {
            disk::removeTree(trash->get(), place.name); // tried again the next time
            continue;
        }
        const DriveDone adopted =
            known.contains(place.name) ? DriveDone(DriveOk()) : adoptOrphan(trash->get(), place.name);
        if (!adopted)
            return adopted;
    }
    return DriveOk();
}

// Without its row, after the database was lost, the original place is not known: the root then.
DriveDone DriveTrash::adoptOrphan(int trash, const QString &place)
{
    const auto entry = contentOf(trash, place, m_tree.realRoot());
    if (!entry) {
        removeEmpty(trash, place);
        return DriveOk();
    }
    Row row;
    row.parent = DriveIndex::RootId;
    row.place = place;
    row.item.name = entry->name;
    row.item.isFolder = entry->isFolder;
    row.item.size = entry->size;
    row.item.deletedAt = QDateTime::currentMSecsSinceEpoch();
    m_table.add(row);
    return m_index.failed() ? DriveDone(m_index.error()) : DriveOk();
}

// Removes a row; `state` is what becomes of the record, Trashed: it goes as well.
DriveDone DriveTrash::forget(const Row &row, State state)
{
    const DriveHold hold = m_index.hold();
    sqlite::Transaction transaction(m_index.database());
    m_table.remove(row.id);
    if (state == State::Missing)
        m_index.setState(row.record, State::Missing);
    else if (state == State::Trashed)
        m_index.removeTree(row.record);
    if (!transaction.commit())
        return m_index.error();
    return DriveOk();
}

DriveResult<DriveTrashItem> DriveTrash::put(const DriveTree::Spot &spot, Unsynced &changed)
{
    QVector<DriveRecord> chain = m_index.chain(spot.record.id);
    const auto trash = open(true);
    if (!trash || chain.size() < 2)
        return trash ? m_index.error() : trash.error();
    chain.removeLast();
    const disk::Entry &entry = spot.record.entry;
    Row row;
    row.record = spot.record.id;
    row.parent = spot.record.parent;
    row.place = newPlace();
    row.item = {QString(), driveIdText(row.record), entry.name, DriveTree::pathOf(chain), entry.isFolder,
        entry.size, QDateTime::currentMSecsSinceEpoch()};
    if (!makeFolder(trash->get(), row.place, 0700))
        return disk::lastError("trash");
    const disk::UniqueFd place = disk::openFolder(trash->get(), row.place);
    row.id = place ? m_table.add(row) : 0;
    DriveDone moved = place && !m_index.failed()
        ? moveThere(spot, place.get(), row)
        : DriveDone(place ? m_index.error() : disk::lastError("trash"));
    if (!moved) {
        removeEmpty(trash->get(), row.place);
        m_index.database().clearFailure();
        (void)forget(row, State::Present); // a row of nothing is not listed, and goes with the next start
        return moved.error();
    }
    changed.add(place.get());
    changed.add(trash->get());
    changed.add(spot.parent.get());
    row.item.id = QString::number(row.id);
    return row.item;
}

DriveDone DriveTrash::moveThere(const DriveTree::Spot &spot, int place, const Row &row)
{
    const disk::Entry &entry = spot.record.entry;
    const auto move = [&entry](int from, int to) {
        return disk::rename(from, entry.name, to, entry.name, entry.isFolder, DriveConflict::Fail);
    };
    const auto moved = move(spot.parent.get(), place);
    if (!moved)
        return moved.error();
    sqlite::Transaction transaction(m_index.database());
    m_index.journalTree(DriveChange::Kind::Removed, row.record);
    m_index.setState(row.record, State::Trashed);
    if (transaction.commit())
        return DriveOk();
    const DriveError error = m_index.error();
    (void)move(place, spot.parent.get()); // else a look takes it for gone, and its id with it
    return error;
}

DriveResult<QVector<DriveTrashItem>> DriveTrash::list()
{
    const auto trash = open(false);
    if (!trash && trash.error().kind != Kind::NotFound)
        return trash.error();
    QVector<DriveTrashItem> items;
    const QVector<Row> all = m_table.all();
    for (const Row &row : all) {
        const auto held = trash ? holds(trash->get(), row.place, row.item.name) : DriveResult<bool>(false);
        if (!held || *held)
            items.append(row.item);
    }
    if (m_index.failed())
        return m_index.error();
    return items;
}

DriveResult<qint64> DriveTrash::originalFolder(const Row &row)
{
    const auto known = m_tree.openFolder(row.parent);
    if (known)
        return row.parent;
    if (known.error().kind != Kind::NotFound)
        return known.error();
    qint64 id = DriveIndex::RootId;
    const QStringList names = row.item.folder.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        const auto folder = m_tree.openFolder(id);
        if (!folder)
            return folder.error();
        if (!makeFolder(folder->get(), name, 0777) && errno != EEXIST)
            return disk::lastError("create folder");
        const auto record = m_tree.childOf(id, folder->get(), name);
        if (!record)
            return record.error();
        id = record->id;
    }
    return id;
}

DriveResult<DriveItem> DriveTrash::restore(qint64 id)
{
    DriveHold hold = m_index.hold();
    auto row = m_table.find(id);
    if (row) { // its folder may have been moved, which takes long to find out
        hold.unlock();
        (void)m_tree.openFolder(row->parent, hold);
        row = m_table.find(id);
    }
    const auto trash = row ? open(false) : DriveResult<disk::UniqueFd>(row.error());
    if (!trash)
        return trash.error();
    const disk::UniqueFd place = disk::openFolder(trash->get(), row->place);
    const DriveTrashItem &item = row->item;
    if (!place || !isThere(place.get(), item.name))
        return disk::lastError("trash");
    const auto folderId = originalFolder(*row);
    const auto folder =
        folderId ? m_tree.openFolder(*folderId) : DriveResult<disk::UniqueFd>(folderId.error());
    if (!folder)
        return folder.error();
    const auto name = disk::rename(
        place.get(), item.name, folder->get(), item.name, item.isFolder, DriveConflict::KeepBoth);
    if (!name)
        return name.error();
    const auto entry = disk::entryAt(folder->get(), *name, m_tree.realRoot());
    if (!entry) { // a link whose file is gone: no item as long as that is so
        const DriveError lost = disk::lastError("restore");
        const auto back =
            disk::rename(folder->get(), *name, place.get(), item.name, item.isFolder, DriveConflict::Fail);
        return back ? lost : back.error();
    }
    auto restored = finishRestore(*row, *folderId, *entry);
    if (!restored) { // back again: without its id it would be another item
        (void)disk::rename(folder->get(), *name, place.get(), item.name, item.isFolder, DriveConflict::Fail);
        return restored;
    }
    removeEmpty(trash->get(), row->place);
    Unsynced changed;
    changed.add(folder->get());
    changed.sync(hold);
    return restored;
}

DriveResult<DriveItem> DriveTrash::finishRestore(const Row &row, qint64 folderId, const disk::Entry &entry)
{
    sqlite::Transaction transaction(m_index.database());
    auto record = m_index.find(row.record);
    m_table.remove(row.id);
    if (const auto stale = m_index.child(folderId, entry.name))
        m_index.setState(stale->id, State::Missing);
    if (record) {
        record->parent = folderId;
        record->entry = entry;
        record->state = State::Present;
        m_index.update(*record);
        m_index.journalTree(DriveChange::Kind::Created, record->id);
    } else {
        record = m_index.add(folderId, entry);
    }
    auto item = m_tree.item(record->id);
    if (!item || !transaction.commit())
        return m_index.failed() ? m_index.error() : item.error();
    return item;
}

DriveDone DriveTrash::purge(qint64 id)
{
    // Without a hold for long: what is in the trash stands alone.
    const auto row = m_table.find(id);
    if (!row)
        return row.error();
    const auto trash = open(false);
    if (!trash && trash.error().kind != Kind::NotFound)
        return trash.error();
    return trash ? destroy(trash->get(), *row) : forget(*row, State::Trashed);
}

// Under another name first, so that nobody restores what is going, nor waits until a large folder is gone.
DriveDone DriveTrash::destroy(int trash, const Row &row)
{
    const auto renamePlace = [this, trash](const QString &from, const QString &to) {
        const DriveHold hold = m_index.hold();
        return ::renameat(trash, from.toUtf8().constData(), trash, to.toUtf8().constData()) == 0;
    };
    const QString doomed = DoomedPrefix % row.place;
    if (!renamePlace(row.place, doomed) && errno != ENOENT)
        return disk::lastError("purge");
    bool begun = false;
    if (!disk::removeTree(trash, doomed, &begun)) {
        const DriveError error = disk::lastError("purge");
        if (!begun) {
            renamePlace(doomed, row.place);
            return error;
        }
        tellRest(error);
    }
    // A row without its files is not listed, and goes with the next start.
    if (!forget(row, State::Trashed))
        m_index.passOver();
    return DriveOk();
}

// A folder goes out of sight first, as far as there is room for that.
DriveDone DriveTrash::destroy(const DriveTree::Spot &spot, DriveHold &hold)
{
    const disk::Entry &entry = spot.record.entry;
    const QByteArray name = entry.name.toUtf8();
    const QString doomed = DoomedPrefix % newPlace();
    const auto trash = entry.isFolder ? open(true) : DriveResult<disk::UniqueFd>(disk::UniqueFd());
    const bool hidden = entry.isFolder && trash
        && ::renameat(spot.parent.get(), name.constData(), trash->get(), doomed.toUtf8().constData()) == 0;
    if (hidden)
        hold.unlock();
    bool begun = false;
    bool gone = hidden ? disk::removeTree(trash->get(), doomed, &begun)
                       : disk::removeTree(spot.parent.get(), entry.name);
    const DriveError error = gone ? DriveError() : disk::lastError("remove");
    if (hidden)
        hold.lock();
    if (!gone && begun) {
        tellRest(error);
        gone = true;
    }
    if (!gone && hidden)
        (void)disk::rename(
            trash->get(), doomed, spot.parent.get(), entry.name, true, DriveConflict::KeepBoth);
    if (!gone)
        return error;
    sqlite::Transaction transaction(m_index.database());
    m_index.journalTree(DriveChange::Kind::Removed, spot.record.id);
    m_index.removeTree(spot.record.id);
    transaction.commit();
    m_index.passOver(); // noticed with the next look
    return DriveOk();
}

} // namespace zel::service

#include "recentworker.h"

#include "base/posix/mounts.h"
#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/merge/roamingmerge.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>

// The worker's side that looks at files, and that knows of the cloud service's records.

namespace zel::recent {
namespace {

constexpr qint64 MissingLifetimeMs = 180LL * 24 * 3600 * 1000;

} // namespace

void RecentWorker::setPinned(const QStringList &ids, bool pinned)
{
    open();
    change([&](const RecentState &state, SourceTable &) { return markPinned(state, ids, pinned); },
        Durability::Full);
}

void RecentWorker::setSources(int sources)
{
    if (sources == m_filter.sources())
        return;
    m_filter.setSources(sources);
    if (m_handedOver)
        Q_EMIT replaced(m_filter.records(m_repository.state()));
}

void RecentWorker::clearHistory(bool serviceListCleared)
{
    open();
    if (m_mode == WorkMode::Full && !m_scanned) {
        m_clearWanted = serviceListCleared;
        if (!m_importer)
            followLists();
        return;
    }
    eraseHistory(serviceListCleared);
}

void RecentWorker::eraseHistory(bool serviceListCleared)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const QStringList ids = m_repository.state().keys();
    change([&](const RecentState &state, SourceTable &) { return markRemoved(state, ids, now); },
        Durability::Full);
    bool emptied = m_mode == WorkMode::Full;
    if (emptied) {
        m_edit = {};
        for (const StoredRecord &record : m_repository.state()) {
            if (record.accessOf(DesktopSource))
                m_edit.removals.append(record.id);
        }
        emptied = writeDesktopList();
    }
    change([&](const RecentState &state,
               SourceTable &) { return forgetTraces(state, emptied, serviceListCleared); },
        Durability::Full);
    m_repository.wipe();
    Q_EMIT historyCleared(emptied);
}

void RecentWorker::checkPresence(const QStringList &ids)
{
    open();
    m_checker.check(placesOf(ids), true);
}

void RecentWorker::lookUpSizes()
{
    open();
    QStringList paths;
    for (const StoredRecord &record : m_repository.state()) {
        const bool isGone = record.presence == RecentFileInfo::Presence::Missing;
        if (record.size < 0 && !isGone && !record.isRoamingOnly() && record.isVisible())
            paths.append(record.id);
    }
    m_checker.check(paths, false);
}

void RecentWorker::lookFor(const RecordInfoList &records)
{
    QStringList places;
    for (const RecentFileInfo &record : records) {
        if (record.roaming)
            places += placesOf({record.id});
        else
            places.append(record.path);
    }
    m_checker.check(places, false);
}

// Where the files of these records may be. Unknown ids have none.
QStringList RecentWorker::placesOf(const QStringList &ids)
{
    QStringList places;
    for (const QString &id : ids) {
        const auto record = m_repository.state().constFind(id);
        if (record == m_repository.state().cend())
            continue;
        if (!record->isRoamingOnly()) {
            places.append(id);
            continue;
        }
        if (!record->roaming)
            continue;
        for (const QString &place : {record->roaming->item.usedPath, record->roaming->item.cachePath}) {
            if (place.isEmpty())
                continue;
            m_idByPlace.insert(place, id);
            places.append(place);
        }
    }
    return places;
}

void RecentWorker::keepLooks(const FileLooks &looks)
{
    tellUses(looks);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto mark = [&](const RecentState &state) {
        RecentDelta delta = markLooks(state, looks, now, now - MissingLifetimeMs);
        if (!m_idByPlace.isEmpty())
            delta += markPlaces(state, m_idByPlace, looks);
        return delta;
    };
    if (!mark(m_repository.state()).storesNothing())
        change([&mark](const RecentState &state, SourceTable &) { return mark(state); }, Durability::Relaxed);
}

void RecentWorker::tellUses(const FileLooks &looks)
{
    QVector<FileUse> uses;
    for (auto it = m_usesToTell.begin(); it != m_usesToTell.end();) {
        const auto look = looks.constFind(it.key());
        if (look == looks.cend()) {
            ++it;
            continue;
        }
        const auto isAround = [path = QFile::encodeName(it.key())](const QString &folder) {
            return posix::isBelow(path.constData(), QFile::encodeName(folder).constData());
        };
        const auto &temporary = m_places.temporaryFolders;
        if (look->size >= 0 && std::none_of(temporary.cbegin(), temporary.cend(), isAround))
            uses.append({it.key(), it.value(), look->size, look->mtime});
        it = m_usesToTell.erase(it);
    }
    if (!uses.isEmpty())
        Q_EMIT used(uses);
}

void RecentWorker::takeRoaming(const RoamingList &list)
{
    open();
    const RecentDelta delta =
        change([&](const RecentState &state, SourceTable &) { return mergeRoaming(state, list); },
            Durability::Relaxed);
    lookFor(delta.added);
    lookFor(delta.changed);
}

void RecentWorker::keepRoamingOf(const QString &user)
{
    open();
    change([&](const RecentState &state, SourceTable &) { return zel::recent::keepRoamingOf(state, user); },
        Durability::Full);
}

void RecentWorker::markRead(const QStringList &ids)
{
    open();
    if (zel::recent::markRead(m_repository.state(), ids).storesNothing())
        return;
    change([&](const RecentState &state, SourceTable &) { return zel::recent::markRead(state, ids); },
        Durability::Full);
    tellMarks();
}

void RecentWorker::tellMarks()
{
    open();
    const QVector<ReadMark> marks = untoldMarks(m_repository.state());
    if (!marks.isEmpty())
        Q_EMIT marksSeen(marks);
}

void RecentWorker::marksTold(const QVector<ReadMark> &marks)
{
    change(
        [&](const RecentState &state, SourceTable &) { return markTold(state, marks); }, Durability::Relaxed);
}

} // namespace zel::recent

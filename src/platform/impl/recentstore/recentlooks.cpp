#include "recentlooks.h"

#include "base/posix/mounts.h"
#include "platform/impl/recentstore/merge/recentmerge.h"
#include "platform/impl/recentstore/merge/roamingmerge.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>

namespace zel::recent {

static constexpr qint64 MissingLifetimeMs = 180LL * 24 * 3600 * 1000;

RecentLooks::RecentLooks(const QStringList &temporaryFolders, QObject *parent)
    : QObject(parent), m_temporaryFolders(temporaryFolders)
{
    connect(&m_checker, &PresenceChecker::found, this, [this](const FileLooks &looks) {
        tellUses(looks);
        Q_EMIT found(looks);
    });
}

void RecentLooks::lookFor(const RecentState &state, const QStringList &ids)
{
    m_checker.check(placesOf(state, ids), true);
}

void RecentLooks::lookForSizes(const RecentState &state)
{
    QStringList paths;
    for (const StoredRecord &record : state) {
        const bool isGone = record.presence == RecentFileInfo::Presence::Missing;
        if (record.size < 0 && !isGone && !record.isRoamingOnly() && record.isVisible())
            paths.append(record.id);
    }
    m_checker.check(paths, false);
}

void RecentLooks::lookFor(const RecentState &state, const RecordInfoList &records)
{
    QStringList places;
    for (const RecentFileInfo &record : records) {
        if (record.roaming)
            places += placesOf(state, {record.id});
        else
            places.append(record.path);
    }
    m_checker.check(places, false);
}

void RecentLooks::lookForUses(const QHash<QString, qint64> &times)
{
    for (auto it = times.cbegin(); it != times.cend(); ++it)
        m_usesToTell.insert(it.key(), it.value());
    m_checker.check(times.keys(), true);
}

void RecentLooks::end()
{
    m_checker.end();
    m_usesToTell.clear();
}

// Where the files of these records may be. Unknown ids have none.
QStringList RecentLooks::placesOf(const RecentState &state, const QStringList &ids)
{
    QStringList places;
    for (const QString &id : ids) {
        const auto record = state.constFind(id);
        if (record == state.cend())
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

RecentDelta RecentLooks::marks(const RecentState &state, const FileLooks &looks) const
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    RecentDelta delta = markLooks(state, looks, now, now - MissingLifetimeMs);
    if (!m_idByPlace.isEmpty())
        delta += markPlaces(state, m_idByPlace, looks);
    return delta;
}

void RecentLooks::tellUses(const FileLooks &looks)
{
    QVector<FileUse> uses;
    QStringList folders;
    for (auto it = m_usesToTell.begin(); it != m_usesToTell.end();) {
        const auto look = looks.constFind(it.key());
        if (look == looks.cend()) {
            ++it;
            continue;
        }
        if (look->isFolder)
            folders.append(it.key());
        const auto isAround = [path = QFile::encodeName(it.key())](const QString &folder) {
            return posix::isBelow(path.constData(), QFile::encodeName(folder).constData());
        };
        if (look->size >= 0 && std::none_of(m_temporaryFolders.cbegin(), m_temporaryFolders.cend(), isAround))
            uses.append({it.key(), it.value(), look->size, look->mtime});
        it = m_usesToTell.erase(it);
    }
    if (!uses.isEmpty())
        Q_EMIT used(uses);
    if (!folders.isEmpty())
        Q_EMIT foldersUsed(folders);
}

} // namespace zel::recent

#include "recentfile/recentfileactions.h"

#include "base/logging.h"

#include <algorithm>

static QStringList idsOf(const RecordInfoList &records)
{
    QStringList ids;
    for (const RecentFileInfo &record : records)
        ids << record.id;
    return ids;
}

RecentFileActions::RecentFileActions(const Services &services, QObject *parent)
    : QObject(parent), m_services(services)
{
    qRegisterMetaType<RecordInfoList>();
    connect(trash(), &KFileTrash::trashed, this, &RecentFileActions::onTrashed);
    connect(trash(), &KFileTrash::restored, this,
        [this](const QString &trashId, const QString &, KFileTrash::Outcome outcome) {
            using Ended = RecentCloud::Ended;
            noteRestored(trashId, outcome == KFileTrash::Outcome::Done ? Ended::Done : Ended::Refused);
        });
    if (!m_services.cloud)
        return;
    connect(m_services.cloud, &RecentCloud::removeEnded, this, &RecentFileActions::onRemoveEnded);
    connect(m_services.cloud, &RecentCloud::recoverEnded, this, &RecentFileActions::noteRestored);
}

// Looked up at each use: the process's store comes and goes.
KRecentFileProxy *RecentFileActions::store() const
{
    return m_services.store ? m_services.store : KRecentFileProxy::instance();
}

KFileTrash *RecentFileActions::trash() const
{
    return m_services.trash ? m_services.trash : KFileTrash::instance();
}

void RecentFileActions::lookUpSizes()
{
    if (store())
        store()->lookUpSizes();
}

void RecentFileActions::report(const RecentFileInfo &record)
{
    if (m_services.cloud)
        m_services.cloud->report(record);
}

void RecentFileActions::setPinned(const RecordInfoList &records, bool pinned)
{
    if (store() && !records.isEmpty())
        store()->setPinned(idsOf(records), pinned);
}

void RecentFileActions::addFiles(const QStringList &paths)
{
    if (store())
        store()->noteAllOpened(paths);
}

void RecentFileActions::removeRecords(const RecordInfoList &records)
{
    if (records.isEmpty())
        return;
    if (m_services.cloud)
        m_services.cloud->forget(records);
    if (store())
        store()->removeRecords(idsOf(records));
}

void RecentFileActions::restoreRecords(const RecordInfoList &records)
{
    if (store())
        store()->undoRemoval(records);
}

void RecentFileActions::deleteFiles(const RecordInfoList &records)
{
    RecordInfoList wanted;
    for (const RecentFileInfo &record : records) {
        if (m_deletingIds.contains(record.id))
            continue;
        m_deletingIds.insert(record.id);
        wanted << record;
    }
    if (wanted.isEmpty())
        return;
    m_nextDeletions.enqueue(wanted);
    if (m_waitingFor == 0)
        deleteNext();
}

void RecentFileActions::deleteNext()
{
    const RecordInfoList records = m_nextDeletions.dequeue();
    m_waitingFor = records.size();
    for (const RecentFileInfo &record : records) {
        if (m_services.cloud)
            m_services.cloud->remove(record);
        else
            onRemoveEnded(record, RecentCloud::Ended::NotReached, {});
    }
}

// The service that does not answer must not keep anybody from deleting a file of this machine. Should it have
// done so after all, the trash finds it missing.
void RecentFileActions::onRemoveEnded(
    const RecentFileInfo &record, RecentCloud::Ended ended, const QString &recycleId)
{
    if (ended == RecentCloud::Ended::Done) {
        noteDeleted({record, recycleId, true});
    } else if (ended == RecentCloud::Ended::NotReached && !record.path.isEmpty()) {
        const bool asked = m_trashing.contains(record.path); // two records can be of one file
        m_trashing.insert(record.path, record);
        if (!asked)
            trash()->trash(record.path);
    } else {
        noteFailed(record);
    }
}

void RecentFileActions::onTrashed(const QString &path, const QString &trashId, KFileTrash::Outcome outcome)
{
    const QList<RecentFileInfo> asked = m_trashing.values(path); // none: somebody else's
    m_trashing.remove(path);
    for (const RecentFileInfo &record : asked) {
        if (outcome == KFileTrash::Outcome::Done)
            noteDeleted({record, trashId, false});
        else
            noteFailed(record);
    }
}

void RecentFileActions::noteDeleted(const Deleted &deleted)
{
    m_underWay << deleted;
    if (--m_waitingFor == 0)
        finishDeleting();
}

void RecentFileActions::noteFailed(const RecentFileInfo &record)
{
    m_failed << record;
    if (--m_waitingFor == 0)
        finishDeleting();
}

void RecentFileActions::finishDeleting()
{
    RecordInfoList records;
    for (const Deleted &deleted : std::as_const(m_underWay))
        records << deleted.record;
    if (!m_underWay.isEmpty()) // else what is offered to be undone is still what went before
        m_deleted = std::exchange(m_underWay, {});
    const RecordInfoList failed = std::exchange(m_failed, {});
    qCInfo(lcRecent, "deleted %d files, %d failed", int(records.size()), int(failed.size()));
    removeRecords(records);
    const auto forget = [this](const RecentFileInfo &record) { m_deletingIds.remove(record.id); };
    std::for_each(records.cbegin(), records.cend(), forget);
    std::for_each(failed.cbegin(), failed.cend(), forget);
    Q_EMIT filesDeleted(records, failed);
    if (m_waitingFor == 0 && !m_nextDeletions.isEmpty())
        deleteNext();
}

void RecentFileActions::undoDelete()
{
    const QVector<Deleted> deleted = std::exchange(m_deleted, {});
    if (deleted.isEmpty())
        return;
    Undo undo;
    for (const Deleted &each : deleted)
        undo.waiting.insert(each.recycleId, each);
    m_undos << undo;
    QSet<QString> asked; // two records can be of one file
    for (const Deleted &each : deleted) {
        if (asked.contains(each.recycleId))
            continue;
        asked.insert(each.recycleId);
        if (each.byService)
            m_services.cloud->recover(each.recycleId);
        else
            trash()->restore(each.recycleId);
    }
}

void RecentFileActions::noteRestored(const QString &recycleId, RecentCloud::Ended ended)
{
    const auto found = std::find_if(
        m_undos.begin(), m_undos.end(), [&](const Undo &undo) { return undo.waiting.contains(recycleId); });
    if (found == m_undos.end())
        return;
    const QList<Deleted> asked = found->waiting.values(recycleId);
    for (const Deleted &each : asked) {
        (ended == RecentCloud::Ended::Done ? found->restored : found->failed) << each.record;
        if (ended == RecentCloud::Ended::NotReached)
            found->notReached << each;
    }
    found->waiting.remove(recycleId);
    if (!found->waiting.isEmpty())
        return;
    const Undo undo = *found;
    m_undos.erase(found);
    if (m_deleted.isEmpty())
        m_deleted = undo.notReached;
    restoreRecords(undo.restored);
    Q_EMIT filesRestored(undo.restored, undo.failed);
}

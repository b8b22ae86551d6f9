// The part of the logic that does something with a document: open it, share it, look whether it is there,
// take it for seen.

#include "recentfile/recentfilelogic.h"

#include "base/logging.h"
#include "recentfile/recentcloud.h"
#include "recentfile/recentfilemodel.h"

// Also where the answer is known: files go and come back. The store tells only of what has changed.
void KRecentFileLogic::checkPresence(const QModelIndexList &rows)
{
    if (!m_model || !store())
        return;
    QStringList ids;
    for (const QModelIndex &index : rows) {
        const RecentFileInfo &record = m_model->record(index.row());
        if (!record.path.isEmpty())
            ids << record.id;
    }
    if (!ids.isEmpty())
        store()->checkPresence(ids);
}

void KRecentFileLogic::share(const QModelIndex &index)
{
    if (m_model && index.model() == m_model && index.isValid() && isLoggedIn())
        m_services.cloud->share(m_model->record(index.row()));
}

const RecentFileInfo *KRecentFileLogic::recordToOpen(const QModelIndex &index)
{
    if (!m_model || index.model() != m_model || !index.isValid())
        return nullptr;
    const RecentFileInfo &record = m_model->record(index.row());
    if (!record.path.isEmpty())
        m_openingIds.insert(record.path, record.id);
    return &record;
}

void KRecentFileLogic::open(const QModelIndex &index)
{
    if (const RecentFileInfo *record = recordToOpen(index))
        m_opening->open(record->path, index.data(ZelBoxRecentFileModel::NameRole).toString());
}

void KRecentFileLogic::openPath(const QString &path)
{
    m_openingIds.insert(path, path);
    m_opening->open(path);
}

void KRecentFileLogic::openWith(const QModelIndex &index, const QString &programId)
{
    if (const RecentFileInfo *record = recordToOpen(index))
        m_opening->openWith(record->path, programId);
}

void KRecentFileLogic::onOpened(const QString &path)
{
    qCInfo(lcRecent, "open: done");
    const QString id = m_openingIds.take(path);
    if (m_model)
        clearUnread(m_model->index(m_model->rowOf(id)));
    if (store())
        store()->noteOpened(path);
}

void KRecentFileLogic::onOpenFailed(const QString &, DocumentOpening::Problem problem, const QString &path)
{
    qCInfo(lcRecent) << "open:" << problem;
    const QString id = m_openingIds.take(path);
    if (problem == DocumentOpening::Problem::Missing && store())
        store()->checkPresence({id}); // the answer greys the row out
}

// What was reported stays known, so that the same report does not mark it again.
void KRecentFileLogic::clearUnread()
{
    m_pendingRoamingIds.clear();
    if (!m_model)
        return;
    const QStringList ids = m_model->unreadMarks().keys();
    if (!m_model->clearUnread())
        return;
    if (store())
        store()->markRead(ids);
    onUpdateRecentTabUnreadPoint();
}

void KRecentFileLogic::clearUnread(const QModelIndex &index)
{
    const auto none = ZelBoxRecentFileModel::NotUnread;
    if (!m_model || index.model() != m_model || index.data(ZelBoxRecentFileModel::UnreadRole).toInt() == none)
        return;
    const QString id = m_model->record(index.row()).id;
    m_model->setData(index, none, ZelBoxRecentFileModel::UnreadRole);
    if (store())
        store()->markRead({id});
    onUpdateRecentTabUnreadPoint();
}

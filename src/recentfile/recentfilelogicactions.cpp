// The part of the logic that does something with a document: open it, share it, look whether it is there.

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

KDocumentOpener *KRecentFileLogic::opener()
{
    KDocumentOpener *const used = m_services.opener ? m_services.opener : KDocumentOpener::instance();
    connect(used, &KDocumentOpener::opened, this, &KRecentFileLogic::onOpened, Qt::UniqueConnection);
    return used;
}

void KRecentFileLogic::open(const QModelIndex &index)
{
    if (!m_model || index.model() != m_model || !index.isValid())
        return;
    const RecentFileInfo record = m_model->record(index.row());
    if (beginOpening(record))
        opener()->open(record.path);
}

void KRecentFileLogic::openPath(const QString &path)
{
    RecentFileInfo record;
    record.id = record.path = path;
    if (beginOpening(record))
        opener()->open(path);
}

void KRecentFileLogic::openWith(const QModelIndex &index, const QString &programId)
{
    if (!m_model || index.model() != m_model || !index.isValid())
        return;
    const RecentFileInfo record = m_model->record(index.row());
    if (beginOpening(record))
        opener()->openWith(record.path, programId);
}

// False for what cannot be opened, and for an impatient second request.
bool KRecentFileLogic::beginOpening(const RecentFileInfo &record)
{
    if (record.path.isEmpty()) {
        Q_EMIT openFailed(record.path, OpenProblem::NotOnThisDevice);
        return false;
    }
    if (m_opening.contains(record.path))
        return false;
    m_opening.insert(record.path, record.id);
    return true;
}

// The opener serves every page; only what was asked for here counts here.
void KRecentFileLogic::onOpened(const QString &path, KDocumentOpener::Outcome outcome)
{
    if (!m_opening.contains(path))
        return;
    const QString id = m_opening.take(path);
    qCInfo(lcRecent) << "open:" << outcome;
    switch (outcome) {
    case KDocumentOpener::Outcome::Opened:
        if (m_model)
            clearUnread(m_model->index(m_model->rowOf(id)));
        if (store())
            store()->noteOpened(path);
        return;
    case KDocumentOpener::Outcome::Missing:
        if (store())
            store()->checkPresence({id}); // the answer greys the row out
        Q_EMIT openFailed(path, OpenProblem::Missing);
        return;
    case KDocumentOpener::Outcome::NotReadable:
        Q_EMIT openFailed(path, OpenProblem::NotReadable);
        return;
    case KDocumentOpener::Outcome::NoProgram:
        Q_EMIT openFailed(path, OpenProblem::NoProgram);
        return;
    }
}

#include "recentproxy.h"

#include "recentlist.h"
#include "recentthread.h"

#include "base/clock.h"
#include "base/logging.h"

#include <QDir>

namespace zel::recent {

RecentProxy::RecentProxy(const RecentPlaces &places, WorkMode mode, KRecentFileEvents &events)
    : m_events(events), m_thread(std::make_unique<RecentThread>(places, mode, *this))
{
    m_thread->start();
}

RecentProxy::~RecentProxy() = default;

bool RecentProxy::isKindReady(int) const
{
    return m_ready;
}

void RecentProxy::initKind(int)
{
    if (std::exchange(m_loading, true))
        return;
    m_thread->post([](RecentWorker &worker) { worker.load(); });
}

void RecentProxy::requestRoaming(int requestKind, const QString &, bool)
{
    qCDebug(lcRecent) << "no source of roaming records, request kind" << requestKind;
}

void RecentProxy::removeRecords(const QStringList &ids)
{
    if (!ids.isEmpty())
        m_thread->post([ids](RecentWorker &worker) { worker.removeRecords(ids); });
}

void RecentProxy::noteOpened(const QString &path)
{
    if (!QDir::isAbsolutePath(path) || path.contains(QChar::Null)) {
        qCWarning(lcRecent) << "an opened file without an absolute path is not noted";
        return;
    }
    const qint64 now = zel::now().toMSecsSinceEpoch();
    m_thread->post(
        [clean = QDir::cleanPath(path), now](RecentWorker &worker) { worker.noteOpened(clean, now); });
}

void RecentProxy::checkPresence(const QStringList &ids)
{
    if (!ids.isEmpty())
        m_thread->post([ids](RecentWorker &worker) { worker.checkPresence(ids); });
}

void RecentProxy::onLoaded(const RecordInfoList &records)
{
    m_records = records;
    m_ready = true;
    m_loading = false;
    Q_EMIT m_events.initFinished();
}

void RecentProxy::onReplaced(const RecordInfoList &records)
{
    m_records = records;
    Q_EMIT m_events.recordsArrived();
}

void RecentProxy::onUpdated(const RecentDelta &delta)
{
    update(m_records, delta);
    if (!delta.removed.isEmpty())
        Q_EMIT m_events.recordsRemoved(delta.removed);
    if (!delta.added.isEmpty())
        Q_EMIT m_events.recordsAdded(delta.added);
    if (!delta.changed.isEmpty())
        Q_EMIT m_events.recordsChanged(delta.changed);
}

void RecentProxy::onProblem(const QString &logText)
{
    Q_EMIT m_events.storeProblem(logText);
}

} // namespace zel::recent

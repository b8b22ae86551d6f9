#include "recentproxy.h"

#include "platform/impl/recentstore/records/recentlist.h"
#include "platform/impl/recentstore/roaming/roamingsource.h"
#include "recentthread.h"

#include "base/clock.h"
#include "base/logging.h"

#include <QDir>
#include <QTimer>

namespace zel::recent {
namespace {

constexpr int RoamingRequest = 1;

} // namespace

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
    const auto load = [this] { m_thread->post([](RecentWorker &worker) { worker.load(); }); };
    if (!m_prepared)
        return load();
    QTimer::singleShot(0, this, load); // the window first: it would take time from what paints the rows
    onLoaded(*std::exchange(m_prepared, std::nullopt));
}

void RecentProxy::prepare()
{
    m_thread->post([](RecentWorker &worker) { worker.prepare(); });
}

void RecentProxy::setCloudService(KCloudSvrProxy *cloud)
{
    if (!m_source && cloud)
        makeSource();
    if (m_source)
        m_source->setCloud(cloud);
}

void RecentProxy::makeSource()
{
    m_source = std::make_unique<RoamingSource>();
    connect(m_source.get(), &RoamingSource::userChanged, this, [this](const QString &user) {
        m_thread->post([user](RecentWorker &worker) { worker.keepRoamingOf(user); });
    });
    connect(m_source.get(), &RoamingSource::arrived, this, [this](const RoamingList &list) {
        m_thread->post([list](RecentWorker &worker) { worker.takeRoaming(list); });
    });
    connect(m_source.get(), &RoamingSource::ready, this,
        [this] { m_thread->post([](RecentWorker &worker) { worker.tellMarks(); }); });
    connect(m_source.get(), &RoamingSource::told, this, [this](const QVector<ReadMark> &marks) {
        m_thread->post([marks](RecentWorker &worker) { worker.marksTold(marks); });
    });
}

void RecentProxy::requestRoaming(int requestKind, const QString &filter, bool sync)
{
    if (requestKind == RoamingRequest && m_source)
        m_source->request(filter, sync);
}

void RecentProxy::removeRecords(const QStringList &ids)
{
    if (!ids.isEmpty())
        m_thread->post([ids](RecentWorker &worker) { worker.removeRecords(ids); });
}

void RecentProxy::undoRemoval(const RecordInfoList &records)
{
    QStringList pinned;
    QHash<QString, qint64> times;
    for (const RecentFileInfo &record : records) {
        if (!QDir::isAbsolutePath(record.path))
            continue;
        if (record.pinned)
            pinned.append(record.path);
        times.insert(record.path, record.lastAccess);
    }
    if (!times.isEmpty())
        m_thread->post([times](RecentWorker &worker) { worker.noteOpened(times); });
    setPinned(pinned, true);
}

void RecentProxy::noteOpened(const QString &path)
{
    noteAllOpened({path});
}

void RecentProxy::noteAllOpened(const QStringList &paths)
{
    const qint64 now = zel::now().toMSecsSinceEpoch();
    QHash<QString, qint64> times;
    for (const QString &path : paths) {
        if (QDir::isAbsolutePath(path) && !path.contains(QChar::Null))
            times.insert(QDir::cleanPath(path), now);
        else
            qCWarning(lcRecent) << "an opened file without an absolute path is not noted";
    }
    if (!times.isEmpty())
        m_thread->post([times](RecentWorker &worker) { worker.noteOpened(times); });
}

void RecentProxy::checkPresence(const QStringList &ids)
{
    if (!ids.isEmpty())
        m_thread->post([ids](RecentWorker &worker) { worker.checkPresence(ids); });
}

void RecentProxy::releaseMemory()
{
    m_thread->post([](RecentWorker &worker) { worker.releaseMemory(); });
}

void RecentProxy::lookUpSizes()
{
    m_thread->post([](RecentWorker &worker) { worker.lookUpSizes(); });
}

void RecentProxy::setPinned(const QStringList &ids, bool pinned)
{
    if (!ids.isEmpty())
        m_thread->post([ids, pinned](RecentWorker &worker) { worker.setPinned(ids, pinned); });
}

void RecentProxy::markRead(const QStringList &ids)
{
    if (!ids.isEmpty())
        m_thread->post([ids](RecentWorker &worker) { worker.markRead(ids); });
}

void RecentProxy::setSources(int sources)
{
    if (std::exchange(m_sources, sources) != sources)
        m_prepared.reset();
    m_thread->post([sources](RecentWorker &worker) { worker.setSources(sources); });
}

void RecentProxy::clearHistory(bool serviceListCleared)
{
    m_thread->post([serviceListCleared](RecentWorker &worker) { worker.clearHistory(serviceListCleared); });
}

void RecentProxy::onHistoryCleared(bool completely)
{
    Q_EMIT m_events.historyCleared(completely);
}

void RecentProxy::onFoldersLeftOut(const QStringList &paths)
{
    Q_EMIT m_events.foldersLeftOut(paths);
}

// Where a part of the list is wanted only, that part comes with loaded().
void RecentProxy::onPrepared(const RecordInfoList &records)
{
    if (m_ready || m_sources != RecentSource::All)
        return;
    if (m_loading)
        onLoaded(records);
    else
        m_prepared = records;
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

void RecentProxy::onKeepingChanged(RecentKeeping keeping)
{
    m_keeping = keeping;
    Q_EMIT m_events.keepingChanged(keeping);
}

void RecentProxy::onMarksSeen(const QVector<ReadMark> &marks)
{
    if (m_source)
        m_source->tellRead(marks);
}

void RecentProxy::onUsed(const QVector<FileUse> &uses)
{
    if (m_source)
        m_source->tellUses(uses);
}

} // namespace zel::recent

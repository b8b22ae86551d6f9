#include "recentthread.h"

#include "recentproxy.h"

namespace zel::recent {

RecentThread::RecentThread(const RecentPlaces &places, WorkMode mode, RecentProxy &proxy)
    : m_places(places), m_mode(mode), m_proxy(proxy)
{
    setObjectName(QStringLiteral("zel-recent"));
}

void RecentThread::post(Task task)
{
    const QMutexLocker lock(&m_mutex);
    m_tasks.push_back(std::move(task));
    if (m_worker && m_tasks.size() == 1)
        QMetaObject::invokeMethod(
            m_worker, [this] { work(); }, Qt::QueuedConnection);
}

void RecentThread::stop()
{
    quit();
    wait();
}

void RecentThread::run()
{
    RecentWorker worker(m_places, m_mode);
    connectTo(worker);
    {
        const QMutexLocker lock(&m_mutex);
        m_worker = &worker;
        if (!m_tasks.empty())
            QMetaObject::invokeMethod(
                &worker, [this] { work(); }, Qt::QueuedConnection);
    }
    exec();
    work();
    {
        const QMutexLocker lock(&m_mutex);
        m_worker = nullptr;
    }
    worker.finish();
}

void RecentThread::work()
{
    std::vector<Task> tasks;
    RecentWorker *worker = nullptr;
    {
        const QMutexLocker lock(&m_mutex);
        tasks.swap(m_tasks);
        worker = m_worker;
    }
    for (const Task &task : tasks)
        task(*worker);
}

void RecentThread::connectTo(RecentWorker &worker)
{
    connect(&worker, &RecentWorker::prepared, &m_proxy, &RecentProxy::onPrepared, Qt::QueuedConnection);
    connect(&worker, &RecentWorker::loaded, &m_proxy, &RecentProxy::onLoaded, Qt::QueuedConnection);
    connect(&worker, &RecentWorker::replaced, &m_proxy, &RecentProxy::onReplaced, Qt::QueuedConnection);
    connect(&worker, &RecentWorker::updated, &m_proxy, &RecentProxy::onUpdated, Qt::QueuedConnection);
    connect(&worker, &RecentWorker::keepingChanged, &m_proxy, &RecentProxy::onKeepingChanged,
        Qt::QueuedConnection);
    connect(&worker, &RecentWorker::marksSeen, &m_proxy, &RecentProxy::onMarksSeen, Qt::QueuedConnection);
    connect(&worker, &RecentWorker::historyCleared, &m_proxy, &RecentProxy::onHistoryCleared,
        Qt::QueuedConnection);
    connect(&worker, &RecentWorker::foldersLeftOut, &m_proxy, &RecentProxy::onFoldersLeftOut,
        Qt::QueuedConnection);
    connect(&worker, &RecentWorker::used, &m_proxy, &RecentProxy::onUsed, Qt::QueuedConnection);
}

} // namespace zel::recent

#include "recentfile/recentnamesorter.h"

#include <QThreadPool>
#include <mutex>

using namespace zel::recent;

struct RecentNameSorter::Job
{
    std::vector<NamedSlot> records;
    NameOrder order;
    std::stop_source stop;
    std::mutex mutex;                     // guards the receiver
    RecentNameSorter *receiver = nullptr; // null: nobody waits any more
};

RecentNameSorter::~RecentNameSorter()
{
    drop();
}

void RecentNameSorter::start(std::vector<NamedSlot> records)
{
    drop();
    m_job = std::make_shared<Job>();
    m_job->records = std::move(records);
    m_job->receiver = this;
    QThreadPool::globalInstance()->start([job = m_job] { run(job); });
}

void RecentNameSorter::drop()
{
    if (!m_job)
        return;
    const std::shared_ptr<Job> job = std::move(m_job);
    job->stop.request_stop();
    const std::lock_guard lock(job->mutex);
    job->receiver = nullptr;
}

void RecentNameSorter::run(const std::shared_ptr<Job> &job)
{
    job->order = orderByName(job->records, job->stop.get_token());
    const std::lock_guard lock(job->mutex);
    if (job->receiver != nullptr) {
        QMetaObject::invokeMethod(
            job->receiver, [job, sorter = job->receiver] { sorter->onDone(job); }, Qt::QueuedConnection);
    }
}

void RecentNameSorter::onDone(const std::shared_ptr<Job> &job)
{
    if (job != m_job)
        return;
    m_job.reset();
    m_result = std::move(job->order);
    Q_EMIT finished();
}

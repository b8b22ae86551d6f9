#include "recentfile/namesorter.h"

#include <QThreadPool>
#include <mutex>

using namespace zel;

struct NameSorter::Job
{
    std::vector<NamedRecord> records;
    NameOrder order;
    std::stop_source stop;
    std::mutex mutex;               // guards the receiver
    NameSorter *receiver = nullptr; // null: nobody waits any more
};

NameSorter::~NameSorter()
{
    drop();
}

void NameSorter::start(std::vector<NamedRecord> records)
{
    drop();
    m_job = std::make_shared<Job>();
    m_job->records = std::move(records);
    m_job->receiver = this;
    QThreadPool::globalInstance()->start([job = m_job] { run(job); });
}

void NameSorter::drop()
{
    if (!m_job)
        return;
    const std::shared_ptr<Job> job = std::move(m_job);
    job->stop.request_stop();
    const std::lock_guard lock(job->mutex);
    job->receiver = nullptr;
}

void NameSorter::run(const std::shared_ptr<Job> &job)
{
    job->order = orderByName(job->records, job->stop.get_token());
    const std::lock_guard lock(job->mutex);
    if (job->receiver != nullptr) {
        QMetaObject::invokeMethod(
            job->receiver, [job, sorter = job->receiver] { sorter->onDone(job); }, Qt::QueuedConnection);
    }
}

void NameSorter::onDone(const std::shared_ptr<Job> &job)
{
    if (job != m_job)
        return;
    m_job.reset();
    m_result = std::move(job->order);
    Q_EMIT finished();
}

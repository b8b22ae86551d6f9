#include "service/transfer/drivethread.h"

#include "base/logging.h"

#include <algorithm>

namespace zel::service {

DriveThread::DriveThread(Factory factory, QObject *parent)
    : QObject(parent), m_factory(std::move(factory)) { }

void DriveThread::post(std::unique_ptr<Job> job)
{
    if (m_stopping)
        return;
    ++m_jobs;
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(job));
    }
    m_wake.notify_one();
    if (!m_thread) {
        m_thread.reset(QThread::create([this] { loop(); }));
        m_thread->setObjectName(QStringLiteral("zel-drive"));
        m_thread->start();
    }
}

void DriveThread::stop()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    if (m_thread)
        m_thread->wait();
    m_thread.reset();
    // Jobs own answers to clients, which belong to this thread; they go only here.
    m_waiting.clear();
    m_finished.clear();
}

std::unique_ptr<DriveThread::Job> DriveThread::take()
{
    std::unique_lock lock(m_mutex);
    m_wake.wait(lock, [this] { return m_stopping || !m_waiting.empty(); });
    if (m_stopping)
        return {};
    std::unique_ptr<Job> job = std::move(m_waiting.front());
    m_waiting.pop_front();
    return job;
}

void DriveThread::loop()
{
    std::shared_ptr<CloudDrive> drive;
    while (std::unique_ptr<Job> job = take()) {
        perform(drive, *job);
        bool first = false;
        {
            const std::lock_guard lock(m_mutex);
            first = m_finished.empty();
            m_finished.push_back(std::move(job));
        }
        if (first)
            QMetaObject::invokeMethod(this, &DriveThread::finishJobs, Qt::QueuedConnection);
    }
}

void DriveThread::perform(std::shared_ptr<CloudDrive> &drive, Job &job)
{
    if (!drive) {
        auto opened = m_factory();
        if (!opened) {
            qCWarning(lcService, "the drive cannot be opened: %s", qUtf8Printable(opened.error().text));
            job.fail(opened.error());
            return;
        }
        drive = std::move(*opened);
    }
    job.work(*drive);
}

void DriveThread::finishJobs()
{
    std::deque<std::unique_ptr<Job>> finished;
    {
        const std::lock_guard lock(m_mutex);
        finished.swap(m_finished);
    }
    m_jobs -= int(finished.size());
    for (const auto &job : finished)
        job->finish();
}

DriveThreads::DriveThreads(const DriveThread::Factory &factory)
{
    for (int i = 0; i < Count; ++i)
        m_threads.push_back(std::make_unique<DriveThread>(factory));
}

DriveThread &DriveThreads::leastBusy()
{
    return **std::min_element(m_threads.begin(), m_threads.end(),
        [](const auto &left, const auto &right) { return left->jobs() < right->jobs(); });
}

void DriveThreads::stop()
{
    for (const auto &thread : m_threads)
        thread->stop();
}

} // namespace zel::service

#pragma once

#include "service/drive/clouddrive.h"

#include <QObject>
#include <QThread>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <vector>

namespace zel::service {

/// A drive on a thread of its own: jobs run one after the other there, what comes of them is told on the
/// thread of this object. The thread starts with the first job and sleeps between jobs. A drive that cannot
/// be opened fails the job and is tried again with the next one.
class DriveThread final : public QObject
{
    Q_OBJECT
public:
    /// Opens the drive; called on its thread.
    using Factory = std::function<DriveResult<std::shared_ptr<CloudDrive>>()>;

    explicit DriveThread(Factory factory, QObject *parent = nullptr);
    ~DriveThread() override { stop(); }

    /// Runs `work`, which returns a DriveResult, with the drive, then `done` with that result here. Thread of
    /// this object. Neither is called once stop() was.
    template <class Work, class Done> void run(Work work, Done done)
    {
        post(std::make_unique<TypedJob<Work, Done>>(std::move(work), std::move(done)));
    }

    /// Waits for the job that runs, which goingOn() asks to end soon, and drops the others. The drive is
    /// closed.
    void stop();
    int jobs() const { return m_jobs; } ///< whose end was not told yet
    /// False when jobs are to give up. Any thread; fits a DriveProgress.
    bool goingOn() const { return !m_stopping.load(std::memory_order_relaxed); }

private:
    struct Job
    {
        virtual ~Job() = default;
        virtual void work(CloudDrive &drive) = 0; ///< on the drive's thread
        virtual void fail(const DriveError &error) = 0;
        virtual void finish() = 0;
    };

    template <class Work, class Done> struct TypedJob final : Job
    {
        TypedJob(Work work, Done done) : m_work(std::move(work)), m_done(std::move(done)) { }
        void work(CloudDrive &drive) override { m_value.emplace(m_work(drive)); }
        void fail(const DriveError &error) override { m_value.emplace(error); }
        void finish() override { m_done(std::move(*m_value)); }

        Work m_work;
        Done m_done;
        std::optional<std::invoke_result_t<Work &, CloudDrive &>> m_value;
    };

    void post(std::unique_ptr<Job> job);
    std::unique_ptr<Job> take();
    void loop();
    void perform(std::shared_ptr<CloudDrive> &drive, Job &job);
    void finishJobs();

    const Factory m_factory;
    std::unique_ptr<QThread> m_thread;
    int m_jobs = 0;
    std::atomic<bool> m_stopping = false;
    std::mutex m_mutex; ///< of the three below
    std::condition_variable m_wake;
    std::deque<std::unique_ptr<Job>> m_waiting;
    std::deque<std::unique_ptr<Job>> m_finished;
};

/// A few of them, for jobs that look at files of any file system: one that does not answer holds up only what
/// asked it. Threads that are not needed are not made. Main thread.
class DriveThreads final
{
public:
    explicit DriveThreads(const DriveThread::Factory &factory);

    /// On the thread that has the least to do.
    template <class Work, class Done> void run(Work work, Done done)
    {
        leastBusy().run(std::move(work), std::move(done));
    }
    void stop();
    bool goingOn() const { return m_threads.front()->goingOn(); } ///< as DriveThread

private:
    static constexpr int Count = 4;

    DriveThread &leastBusy();

    std::vector<std::unique_ptr<DriveThread>> m_threads;
};

} // namespace zel::service

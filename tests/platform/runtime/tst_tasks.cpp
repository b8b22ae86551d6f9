#include "base/boundedjobs.h"
#include "kthreadtiming.h"
#include "quvlite/kasynctask.h"

#include <pthread.h>
#include <stdexcept>

using quvlite::KAsyncScheduler;
using quvlite::KAsyncTask;

class TasksTest : public QObject
{
    Q_OBJECT

public:
    enum Ending { Finish, Throw, CancelQueued, CancelRunning, SchedulerDies, SchedulerDiesQueued };
    Q_ENUM(Ending)

private Q_SLOTS:
    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(Task::living.load(), 0);
    }

    void endsExactlyOnce_data()
    {
        const auto row = zeltest::table<Ending, bool>("how", "runs");
        row("runs to its end", Finish, true);
        row("throws", Throw, true);
        row("cancelled in the queue", CancelQueued, false);
        row("cancelled while it runs", CancelRunning, true);
        row("scheduler destroyed while it runs", SchedulerDies, true);
        row("scheduler destroyed while it is queued", SchedulerDiesQueued, false);
    }
    void endsExactlyOnce()
    {
        QFETCH(Ending, how);
        const bool queued = how == CancelQueued || how == SchedulerDiesQueued;
        auto scheduler = std::make_unique<KAsyncScheduler>();
        std::unique_ptr<Plug> plug(queued ? new Plug(*scheduler) : nullptr);
        QSemaphore running;
        std::atomic_bool ran = false;
        QPointer<Task> task = new Task([&](Task &self) {
            ran = true;
            running.release();
            if (how == Throw)
                throw std::runtime_error("bad luck");
            if (how == CancelRunning || how == SchedulerDies)
                waitForCancel(self);
        });
        QSignalSpy finished(task, &KAsyncTask::finished);
        QThread *finishedOn = nullptr;
        connect(task, &KAsyncTask::finished, this, [&] { finishedOn = QThread::currentThread(); });

        scheduler->start(task);
        if (!queued)
            running.acquire();
        if (how == CancelQueued || how == CancelRunning)
            task->cancel();
        if (plug)
            plug->pull();
        if (how == SchedulerDies || how == SchedulerDiesQueued)
            scheduler.reset();

        QTRY_COMPARE(finished.count(), 1);
        QTRY_VERIFY(task.isNull());
        scheduler.reset();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finishedOn, QThread::currentThread());
        // A queued task may have been taken up between the plug and the end of the scheduler.
        if (how != SchedulerDiesQueued)
            QTEST(ran.load(), "runs");
    }

    void parentDiesWhileTheTaskRuns()
    {
        KAsyncScheduler scheduler;
        auto parent = std::make_unique<QObject>();
        QSemaphore running;
        std::atomic_bool sawCancel = false;
        QPointer<Task> task = new Task(
            [&](Task &self) {
                running.release();
                waitForCancel(self);
                sawCancel = true;
            },
            parent.get());
        QSignalSpy finished(task, &KAsyncTask::finished);
        scheduler.start(task);
        running.acquire();
        parent.reset();
        QVERIFY(task);
        QTRY_COMPARE(finished.count(), 1);
        QVERIFY(sawCancel);
        QTRY_VERIFY(task.isNull());
    }

    void slotThatRestartsCannotKeepADyingSchedulerAlive()
    {
        auto scheduler = std::make_unique<KAsyncScheduler>();
        QSemaphore running;
        auto *task = new Task([&](Task &self) {
            running.release();
            waitForCancel(self);
        });
        int later = 0;
        connect(task, &KAsyncTask::finished, this, [&] {
            auto *next = new Task([](Task &) { QFAIL("must not run"); });
            connect(next, &KAsyncTask::finished, this, [&later] { ++later; });
            scheduler->start(next);
        });
        scheduler->start(task);
        running.acquire();
        delete scheduler.get(); // not reset(): the slot above still uses the pointer meanwhile
        scheduler.release();
        QTRY_COMPARE(later, 1);
    }

    // A job that hangs keeps others off its place and nothing else, until it returns.
    void boundedJobs()
    {
        zel::BoundedJobs jobs(std::chrono::milliseconds(50));
        const auto gate = std::make_shared<QSemaphore>();
        QStringList ended;
        const auto start = [&](const char *name, std::function<void()> work) {
            const QString path = QLatin1String("/nowhere/") + QLatin1String(name);
            jobs.start(path, std::move(work), this,
                [&ended, path](bool inTime) { ended << (inTime ? path : path + QLatin1String(" late")); });
        };
        start("dead/a", [gate] { gate->acquire(); });
        QTRY_COMPARE(ended, QStringList{QStringLiteral("/nowhere/dead/a late")});
        start("dead/b", [] { qFatal("begun"); });
        start("live/c", [] {});
        QTRY_COMPARE(ended.size(), 3);
        QVERIFY(ended.contains(QStringLiteral("/nowhere/dead/b late")));
        QVERIFY(ended.contains(QStringLiteral("/nowhere/live/c")));
        for (std::size_t n = 1; n < jobs.Most; ++n)
            start(qPrintable(QString::number(n) + QLatin1Char('/')), [gate] { gate->acquire(); });
        start("one more/", [] { qFatal("begun"); });
        QTRY_COMPARE(ended.size(), 3 + int(jobs.Most));
        gate->release(int(jobs.Most));
        QTRY_VERIFY([&] {
            start("dead/b", [] {});
            const int before = ended.size();
            return QTest::qWaitFor([&] { return ended.size() > before; })
                && ended.constLast() == QLatin1String("/nowhere/dead/b");
        }());
    }

    // Which says nothing of the place, and counts for nothing later.
    void noThreadForAJob()
    {
        pthread_attr_t usual;
        QCOMPARE(pthread_getattr_default_np(&usual), 0);
        pthread_attr_t huge = usual;
        pthread_attr_setstacksize(&huge, std::size_t(1) << 46);
        zel::BoundedJobs jobs(std::chrono::milliseconds(50));
        QVector<bool> ended;
        const auto start = [&](std::function<void()> work) {
            jobs.start("/nowhere/a"_s, std::move(work), this, [&ended](bool inTime) { ended << inTime; });
        };
        pthread_setattr_default_np(&huge);
        start([] { qFatal("begun"); });
        pthread_setattr_default_np(&usual);
        QTRY_COMPARE(ended, QVector<bool>{false});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        start([] {});
        QTRY_COMPARE(ended, (QVector<bool>{false, true}));
    }

    void timing()
    {
        KThreadTiming timing;
        QSignalSpy done(&timing, &KThreadTiming::threadTiming);
        timing.endJob("never begun"_s);
        timing.beginJob("a"_s);
        timing.beginJob("a"_s);
        timing.beginJob("b"_s);
        timing.endJob("a"_s);
        QVERIFY(!timing.isThreadTimingFinished());
        QCOMPARE(done.count(), 0);
        timing.endJob("b"_s);
        QVERIFY(timing.isThreadTimingFinished());
        QCOMPARE(done.count(), 1);
    }

private:
    class Task : public KAsyncTask
    {
    public:
        explicit Task(std::function<void(Task &)> work, QObject *parent = nullptr)
            : KAsyncTask(parent), m_work(std::move(work))
        {
            ++living;
        }
        ~Task() override { --living; }
        void run() override { m_work(*this); }

        static inline std::atomic_int living = 0;

    private:
        std::function<void(Task &)> m_work;
    };
    // Holds every worker thread until let go, so that what is started next stays in the queue.
    struct Plug
    {
        explicit Plug(KAsyncScheduler &scheduler)
        {
            for (int n = 0; n < Count; ++n)
                scheduler.start(new Task([gate = m_gate](Task &) { gate->acquire(); }));
        }
        void pull() const { m_gate->release(Count); }

        static constexpr int Count = 4;
        std::shared_ptr<QSemaphore> m_gate = std::make_shared<QSemaphore>();
    };

    static void waitForCancel(Task &task)
    {
        while (!task.isCancelled())
            QThread::yieldCurrentThread();
    }
};

QTEST_GUILESS_MAIN(TasksTest)
#include "tst_tasks.moc"

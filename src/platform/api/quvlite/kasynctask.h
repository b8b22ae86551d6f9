#pragma once

#include "zelplatform_export.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <atomic>

class QThreadPool;

namespace quvlite {

/// One piece of work off the GUI thread. Create it on the GUI thread, hand it to KAsyncScheduler::start().
/// `finished` follows exactly once, on the GUI thread, also after cancel(); then the task deletes itself
/// unless it has a parent. Never delete a started task: cancel() it.
class ZELPLATFORM_EXPORT KAsyncTask : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    void cancel() { m_cancelled.store(true, std::memory_order_relaxed); } ///< any thread; run() may end early
    bool isCancelled() const { return m_cancelled.load(std::memory_order_relaxed); }

    virtual void run() = 0; ///< worker thread; must not touch widgets; results go out by queued signals

Q_SIGNALS:
    void finished();

private:
    std::atomic_bool m_cancelled = false;
};

/// The application's task scheduler: a small pool of worker threads that are started on demand and end when
/// idle. From start() to `finished` the scheduler owns the task (parent() is null), so that a parent that
/// dies meanwhile does not take a running task with it; the task is cancelled then, else it goes back to its
/// parent.
class ZELPLATFORM_EXPORT KAsyncScheduler : public QObject
{
    Q_OBJECT
public:
    explicit KAsyncScheduler(QObject *parent = nullptr);
    ~KAsyncScheduler()
        override; ///< cancels what is queued or running, waits for it, and lets every task finish

    void start(KAsyncTask *task); ///< GUI thread; a task that is already started is left alone

private:
    void end(KAsyncTask *task);

    QThreadPool *m_pool;
    QHash<KAsyncTask *, QPointer<QObject>> m_tasks; // with the parent that each goes back to
    bool m_closing = false;
};

} // namespace quvlite

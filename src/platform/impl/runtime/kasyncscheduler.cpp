#include "quvlite/kasynctask.h"

#include "base/logging.h"

#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <exception>

namespace quvlite {
namespace {

constexpr int IdleThreadExpiry = 5000; // ms

void runGuarded(KAsyncTask *task)
{
    if (task->isCancelled())
        return;
    try {
        task->run();
    } catch (const std::exception &error) {
        qCWarning(
            lcPlatform, "task %s ended with an error: %s", task->metaObject()->className(), error.what());
    } catch (...) {
        qCWarning(lcPlatform, "task %s ended with an unknown error", task->metaObject()->className());
    }
}

} // namespace

KAsyncScheduler::KAsyncScheduler(QObject *parent) : QObject(parent), m_pool(new QThreadPool(this))
{
    m_pool->setMaxThreadCount(qBound(2, QThread::idealThreadCount(), 4));
    m_pool->setExpiryTimeout(IdleThreadExpiry);
}

KAsyncScheduler::~KAsyncScheduler()
{
    for (auto it = m_tasks.keyBegin(); it != m_tasks.keyEnd(); ++it)
        (*it)->cancel();
    m_closing = true;
    m_pool->clear();
    m_pool->waitForDone();
    while (!m_tasks.isEmpty())
        end(m_tasks.begin().key());
}

void KAsyncScheduler::start(KAsyncTask *task)
{
    if (!task || m_tasks.contains(task)) {
        qCWarning(lcPlatform, "a task was started twice, or is none");
        return;
    }
    if (m_closing) { // by a slot of another task's `finished`
        task->cancel();
        QMetaObject::invokeMethod(task, &KAsyncTask::finished, Qt::QueuedConnection);
        connect(task, &KAsyncTask::finished, task, &QObject::deleteLater);
        return;
    }
    m_tasks.insert(task, task->parent());
    if (QObject *parent = task->parent()) {
        task->setParent(nullptr);
        connect(parent, &QObject::destroyed, task, &KAsyncTask::cancel, Qt::UniqueConnection);
    }
    m_pool->start([this, task] {
        runGuarded(task);
        QMetaObject::invokeMethod(
            this, [this, task] { end(task); }, Qt::QueuedConnection);
    });
}

void KAsyncScheduler::end(KAsyncTask *task)
{
    if (!m_tasks.contains(task))
        return;
    const QPointer<QObject> parent = m_tasks.take(task);
    const QPointer<KAsyncTask> guard(task); // a slot may delete it
    Q_EMIT task->finished();
    if (!guard || m_tasks.contains(task)) // or start it again
        return;
    if (parent)
        task->setParent(parent);
    else if (!task->parent())
        task->deleteLater();
}

} // namespace quvlite

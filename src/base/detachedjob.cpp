#include "base/detachedjob.h"

#include "base/logging.h"

#include <dlfcn.h>

namespace zel {
namespace {

// A thread that was left alone may still return into this code after the library was closed; keep it loaded.
void keepLibraryLoaded()
{
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void *>(&keepLibraryLoaded), &info) && info.dli_fname)
        ::dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

} // namespace

DetachedJob::DetachedJob(std::function<void()> work, QObject *parent)
    : QObject(parent), m_thread(QThread::create(std::move(work)))
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        qCWarning(lcPlatform, "a file system or a program did not answer in time");
        settle(false);
    });
    connect(m_thread, &QThread::finished, this, [this] { settle(true); });
    connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
}

DetachedJob::~DetachedJob()
{
    if (!m_thread)
        return;
    if (m_thread->isRunning())
        keepLibraryLoaded();
    else
        delete m_thread; // at the end of the process nobody deletes it later
}

void DetachedJob::start(std::chrono::milliseconds deadline)
{
    if (deadline > deadline.zero())
        m_deadline.start(deadline);
    m_thread->start();
    if (!m_thread->isRunning() && !m_thread->isFinished()) // there is none to be had
        QMetaObject::invokeMethod(
            this, [this] { settle(false); }, Qt::QueuedConnection);
}

bool DetachedJob::waitFor(std::chrono::milliseconds time)
{
    return !m_thread || m_thread->wait(QDeadlineTimer(time));
}

void DetachedJob::settle(bool inTime)
{
    if (m_settled)
        return;
    m_settled = true;
    m_deadline.stop();
    deleteLater();
    Q_EMIT done(inTime); // last: a slot may destroy this
}

} // namespace zel

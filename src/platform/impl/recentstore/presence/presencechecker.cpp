#include "presencechecker.h"

#include "base/logging.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <dlfcn.h>
#include <mutex>
#include <sys/stat.h>
#include <system_error>

namespace zel::recent {
namespace {

using Presence = RecentFileInfo::Presence;

constexpr int FirstBatch = 64;      // what is on screen
constexpr int LargestBatch = 32768; // each costs everybody who is told a look at the whole list
constexpr int FirstBatchMs = 250;
constexpr int LongestBatchMs = 2000;
constexpr int MostGivenUp = 4;
constexpr std::chrono::seconds EndPatience{1};

// A thread that was given up may still return into this code after the library was closed; keep it loaded.
void keepLibraryLoaded()
{
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void *>(&keepLibraryLoaded), &info) && info.dli_fname)
        ::dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

} // namespace

FileLook lookAt(const QString &path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) == 0) {
        const qint64 mtime = qint64(status.st_mtim.tv_sec) * 1000 + status.st_mtim.tv_nsec / 1000000;
        return {Presence::Present, S_ISREG(status.st_mode) ? qint64(status.st_size) : -1, mtime,
            S_ISDIR(status.st_mode)};
    }
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return {Presence::Missing};
    default: // no permission, no answer from the server: nothing is known
        return {};
    }
}

struct PresenceChecker::Shared
{
    Probe probe;
    std::function<void(const FileLooks &)> deliver;
    std::mutex mutex;
    std::condition_variable ended;
    std::deque<QString> queue;
    QHash<QString, bool> waiting; ///< what of the queue still counts; true: urgent
    FileLooks results;
    QString current;
    bool isUrgent = false; ///< the current one
    qint64 progress = 0;
    bool running = false;
    bool stopped = false; ///< nothing of the checker may be touched any more

    static void run(const std::shared_ptr<Shared> &shared);
    void add(const QStringList &paths, bool urgent);
    bool takeNext();
    bool hasUrgent() const { return !queue.empty() && waiting.value(queue.front()); }
    void deliverResults();
};

void PresenceChecker::Shared::add(const QStringList &paths, bool urgent)
{
    QStringList fresh;
    for (const QString &path : paths) {
        const auto known = waiting.find(path);
        if (known != waiting.end() && (*known || !urgent))
            continue;
        waiting.insert(path, urgent);
        fresh.append(path);
    }
    queue.insert(urgent ? queue.begin() : queue.end(), fresh.cbegin(), fresh.cend());
}

bool PresenceChecker::Shared::takeNext()
{
    const std::lock_guard lock(mutex);
    current.clear();
    while (!queue.empty() && !waiting.contains(queue.front()))
        queue.pop_front(); // was looked at as an urgent one
    if (stopped || queue.empty()) {
        deliverResults();
        running = false;
        ended.notify_all();
        return false;
    }
    current = queue.front();
    queue.pop_front();
    isUrgent = waiting.take(current);
    ++progress;
    return true;
}

void PresenceChecker::Shared::deliverResults()
{
    if (!stopped && !results.isEmpty())
        deliver(results);
    results.clear();
}

void PresenceChecker::Shared::run(const std::shared_ptr<Shared> &shared)
{
    int batch = FirstBatch;
    int batchMs = FirstBatchMs;
    QElapsedTimer sinceBatch;
    sinceBatch.start();
    while (shared->takeNext()) {
        const FileLook look = shared->probe(shared->current);
        const std::lock_guard lock(shared->mutex);
        shared->results.insert(shared->current, look);
        const bool wantedNow = shared->isUrgent && !shared->hasUrgent();
        if (wantedNow || shared->results.size() >= batch || sinceBatch.elapsed() >= batchMs) {
            shared->deliverResults();
            batch = std::min(2 * batch, LargestBatch);
            batchMs = std::min(batchMs + FirstBatchMs, LongestBatchMs);
            sinceBatch.restart();
        }
    }
}

PresenceChecker::PresenceChecker(QObject *parent, Probe probe, int patienceMs)
    : QObject(parent), m_probe(std::move(probe))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patienceMs);
    connect(&m_patience, &QTimer::timeout, this, &PresenceChecker::lookForProgress);
}

PresenceChecker::~PresenceChecker()
{
    end();
}

void PresenceChecker::check(const QStringList &paths, bool urgent)
{
    QStringList wanted = paths;
    const auto leftOut = [this](const QString &path) { return isLeftOut(path); };
    wanted.erase(std::remove_if(wanted.begin(), wanted.end(), leftOut), wanted.end());
    if (wanted.isEmpty() || m_givenUp > MostGivenUp)
        return;
    if (m_shared) {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->add(wanted, urgent);
        if (m_shared->running)
            return;
    } else {
        m_shared = std::make_shared<Shared>();
        m_shared->probe = m_probe;
        m_shared->add(wanted, urgent);
        m_shared->deliver = [this](const FileLooks &looks) {
            QMetaObject::invokeMethod(
                this, [this, looks] { Q_EMIT found(looks); }, Qt::QueuedConnection);
        };
    }
    start();
}

bool PresenceChecker::isLeftOut(const QString &path) const
{
    return !m_dead.isEmpty() && m_dead.contains(QFile::encodeName(path).toStdString());
}

void PresenceChecker::start()
{
    if (m_thread.joinable())
        m_thread.join(); // it is past its last look
    m_shared->running = true;
    try {
        m_thread = std::thread(&Shared::run, m_shared);
        m_patience.start();
    } catch (const std::system_error &error) {
        m_shared->running = false;
        qCWarning(lcRecent) << "no thread to look for files:" << error.what();
    }
}

void PresenceChecker::end()
{
    m_patience.stop();
    m_givenUp = MostGivenUp + 1; // nothing is begun any more
    if (!m_thread.joinable())
        return;
    std::unique_lock lock(m_shared->mutex);
    m_shared->stopped = true;
    const bool ended = m_shared->ended.wait_for(lock, EndPatience, [this] { return !m_shared->running; });
    lock.unlock();
    if (ended) {
        m_thread.join();
        return;
    }
    keepLibraryLoaded();
    m_thread.detach();
}

void PresenceChecker::lookForProgress()
{
    QStringList rest;
    {
        const std::lock_guard lock(m_shared->mutex);
        if (!m_shared->running)
            return;
        const bool stuck = m_shared->progress == m_seenProgress && !m_shared->current.isEmpty();
        m_seenProgress = m_shared->progress;
        if (!stuck) {
            m_patience.start();
            return;
        }
        giveUp(rest);
    }
    qCWarning(lcRecent) << "a file system does not answer; what lies there is not looked for any more";
    keepLibraryLoaded();
    m_thread.detach();
    m_shared.reset();
    m_seenProgress = -1;
    ++m_givenUp;
    check(rest, false);
}

// Under the lock, so that the look that is condemned is the one that hangs.
void PresenceChecker::giveUp(QStringList &rest)
{
    m_dead.add(QFile::encodeName(m_shared->current).toStdString());
    for (const QString &path : std::as_const(m_shared->queue)) {
        if (m_shared->waiting.remove(path) > 0)
            rest.append(path);
    }
    m_shared->deliverResults();
    m_shared->stopped = true;
    m_shared->queue.clear();
}

} // namespace zel::recent

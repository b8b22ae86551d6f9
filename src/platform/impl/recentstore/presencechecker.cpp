#include "presencechecker.h"

#include "mounts.h"

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

constexpr int FirstBatch = 64; // what is on screen
constexpr int LargestBatch = 2048;
constexpr int BatchMs = 250;
constexpr int MostGivenUp = 4;
constexpr std::chrono::seconds EndPatience{1};

// A thread that was given up may still return into this code after the library was closed; keep it loaded.
void keepLibraryLoaded()
{
    Dl_info info{};
    if (::dladdr(reinterpret_cast<const void *>(&keepLibraryLoaded), &info) && info.dli_fname)
        ::dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

QByteArray mountTable()
{
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    return table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
}

} // namespace

Presence presenceOf(const QString &path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) == 0)
        return Presence::Present;
    switch (errno) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG:
        return Presence::Missing;
    default: // no permission, no answer from the server: nothing is known
        return Presence::Unknown;
    }
}

struct PresenceChecker::Shared
{
    Probe probe;
    std::function<void(const PresenceResults &)> deliver;
    std::mutex mutex;
    std::condition_variable ended;
    std::deque<QString> queue;
    PresenceResults results;
    QString current;
    qint64 progress = 0;
    bool running = false;
    bool stopped = false; ///< nothing of the checker may be touched any more

    static void run(const std::shared_ptr<Shared> &shared);
    bool takeNext();
    void deliverResults();
};

bool PresenceChecker::Shared::takeNext()
{
    const std::lock_guard lock(mutex);
    if (stopped || queue.empty()) {
        deliverResults();
        running = false;
        ended.notify_all();
        return false;
    }
    current = queue.front();
    queue.pop_front();
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
    QElapsedTimer sinceBatch;
    sinceBatch.start();
    while (shared->takeNext()) {
        const Presence presence = shared->probe(shared->current);
        const std::lock_guard lock(shared->mutex);
        shared->results.insert(shared->current, presence);
        if (shared->results.size() >= batch || sinceBatch.elapsed() >= BatchMs) {
            shared->deliverResults();
            batch = std::min(2 * batch, LargestBatch);
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
    for (const QString &mount : std::as_const(m_deadMounts)) {
        const auto isDead = [&](const QString &path) { return isBelow(path, mount); };
        wanted.erase(std::remove_if(wanted.begin(), wanted.end(), isDead), wanted.end());
    }
    if (wanted.isEmpty() || m_givenUp > MostGivenUp)
        return;
    if (m_shared) {
        const std::lock_guard lock(m_shared->mutex);
        auto &queue = m_shared->queue;
        queue.insert(urgent ? queue.begin() : queue.end(), wanted.cbegin(), wanted.cend());
        if (m_shared->running)
            return;
    } else {
        m_shared = std::make_shared<Shared>();
        m_shared->probe = m_probe;
        m_shared->queue.assign(wanted.cbegin(), wanted.cend());
        m_shared->deliver = [this](const PresenceResults &results) {
            QMetaObject::invokeMethod(
                this, [this, results] { Q_EMIT found(results); }, Qt::QueuedConnection);
        };
    }
    start();
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
    std::unique_lock lock(m_shared->mutex);
    if (!m_shared->running)
        return;
    const bool stuck = m_shared->progress == m_seenProgress;
    m_seenProgress = m_shared->progress;
    lock.unlock();
    if (stuck)
        giveUp();
    else
        m_patience.start();
}

void PresenceChecker::giveUp()
{
    QStringList rest;
    {
        const std::lock_guard lock(m_shared->mutex);
        m_deadMounts.append(mountPointOf(m_shared->current, mountTable()));
        rest = QStringList(m_shared->queue.cbegin(), m_shared->queue.cend());
        m_shared->deliverResults();
        m_shared->stopped = true;
        m_shared->queue.clear();
    }
    qCWarning(lcRecent) << "a file system does not answer; its files are not looked for any more";
    keepLibraryLoaded();
    m_thread.detach();
    m_shared.reset();
    m_seenProgress = -1;
    ++m_givenUp;
    check(rest, false);
}

} // namespace zel::recent

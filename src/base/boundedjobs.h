#pragma once

#include "base/posix/mounts.h"

#include <QObject>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zel {

/// Does what may hang with a file system, each piece on a thread of its own (DetachedJob), and bounds those
/// threads: one that hangs keeps others away from its mount until it returns, and there are `Most` at once.
/// GUI thread.
class BoundedJobs
{
public:
    static constexpr std::size_t Most = 16;
    using Then = std::function<void(bool inTime)>;

    explicit BoundedJobs(std::chrono::milliseconds patience) : m_patience(patience) { }

    /// `work` is for the file at `path` and touches nothing but what it owns. `then` runs once on this
    /// thread, later: with false when the work did not end in time or was not begun; not at all when
    /// `context` has gone.
    void start(const QString &path, std::function<void()> work, QObject *context, const Then &then);

private:
    using Flag = std::shared_ptr<std::atomic_bool>;
    void forgetReturned();

    const std::chrono::milliseconds m_patience;
    std::vector<Flag> m_running; // true: the thread has come back
    posix::DeadPlaces m_dead;
    std::vector<Flag> m_late;
};

} // namespace zel

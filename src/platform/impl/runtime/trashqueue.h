#pragma once

#include "base/trash/trash.h"

#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace zel {
class DetachedJob;
}

namespace zel::platform {

/// Does what is asked of the trash one after the other on a thread apart. GUI thread. A file system that does
/// not answer costs its own request (Failed) and holds the others up until the deadline only. At the end what
/// still waits is done, as far as one second goes.
class TrashQueue final : public QObject
{
public:
    using Work = std::function<trash::Result()>;
    using Then = std::function<void(const trash::Result &)>;

    explicit TrashQueue(QObject *parent, std::chrono::milliseconds patience = std::chrono::seconds(15));
    ~TrashQueue() override;

    /// `then` follows exactly once, never from inside this call, unless the queue is destroyed before.
    void add(Work work, Then then);

private:
    struct Request
    {
        Work work;
        Then then;
    };

    void next();
    void finish(const trash::Result &result);

    const std::chrono::milliseconds m_patience;
    std::vector<Request> m_requests; ///< the first one is at work while there is a job
    DetachedJob *m_job = nullptr;
    std::shared_ptr<std::atomic_int> m_threads =
        std::make_shared<std::atomic_int>(0); ///< with those given up
};

} // namespace zel::platform

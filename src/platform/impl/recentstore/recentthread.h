#pragma once

#include "recentworker.h"

#include <QMutex>
#include <QThread>

#include <functional>
#include <vector>

namespace zel::recent {

class RecentProxy;

/// The store's thread: runs a worker and what is handed in for it, in order. What was handed in before stop()
/// is done before stop() returns, even when the application object is gone and with it the delivery of
/// events.
class RecentThread final : public QThread
{
public:
    using Task = std::function<void(RecentWorker &)>;

    /// News go to the proxy, queued.
    RecentThread(const RecentPlaces &places, WorkMode mode, RecentProxy &proxy);
    ~RecentThread() override { stop(); }

    void post(Task task); ///< any thread, not after stop()
    void stop();          ///< the thread that made this object

protected:
    void run() override;

private:
    void work();
    void connectTo(RecentWorker &worker);

    const RecentPlaces m_places;
    const WorkMode m_mode;
    RecentProxy &m_proxy;
    QMutex m_mutex;
    std::vector<Task> m_tasks;
    RecentWorker *m_worker = nullptr; ///< while its events are delivered
};

} // namespace zel::recent

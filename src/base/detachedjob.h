#pragma once

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <functional>

namespace zel {

/// Does one thing on a thread of its own, because a dead network mount may hold that thread for ever. `done`
/// follows exactly once on this object's thread, at the latest after the deadline; then it deletes itself.
/// When there is no thread to be had, the work goes unbegun, as late.
///
/// A thread that is late, or still at work when this object goes, is left alone and ends by itself if its
/// work ever returns. So the work may touch nothing but what it owns: results go into something shared.
class DetachedJob final : public QObject
{
    Q_OBJECT
public:
    DetachedJob(std::function<void()> work, QObject *parent);
    ~DetachedJob() override;

    void start(std::chrono::milliseconds deadline); ///< zero: none, for where no event loop runs any more
    /// Blocks until the work has returned, as long as that at most; for the end of the process. False: it has
    /// not.
    bool waitFor(std::chrono::milliseconds time);

Q_SIGNALS:
    void done(bool inTime);

private:
    void settle(bool inTime);

    QPointer<QThread> m_thread;
    QTimer m_deadline;
    bool m_settled = false;
};

} // namespace zel

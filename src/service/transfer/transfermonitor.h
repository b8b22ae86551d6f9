#pragma once

#include <QElapsedTimer>
#include <QString>
#include <atomic>
#include <functional>

namespace zel::service {

struct TransferProgress
{
    qint64 done = 0;  ///< bytes
    qint64 total = 0; ///< bytes
    int filesDone = 0;
    int files = 0;
};

/// Between a transfer that runs on a drive's thread and whoever watches and stops it.
class TransferMonitor
{
public:
    static constexpr int IntervalMs = 200; ///< at least, between two reports

    enum class Order { GoOn, Pause, Cancel, Quit };
    /// Called on the transfer's thread; hands over and returns.
    using Report = std::function<void(const TransferProgress &)>;
    /// The folder that was made for the transfer. Called on its thread.
    using Made = std::function<void(const QString &made)>;

    TransferMonitor(Report report, Made made) : m_report(std::move(report)), m_made(std::move(made)) { }

    void order(Order order) { m_order.store(order, std::memory_order_relaxed); } ///< any thread
    Order order() const { return m_order.load(std::memory_order_relaxed); }

    // On the transfer's thread:
    TransferProgress progress;
    void tellMade(const QString &made) { m_made(made); }
    /// `done` bytes of all; false when the transfer is to end.
    bool advance(qint64 done)
    {
        progress.done = done;
        if (!m_lastReport.isValid() || m_lastReport.elapsed() >= IntervalMs) {
            m_lastReport.start();
            m_report(progress);
        }
        return order() == Order::GoOn;
    }

private:
    const Report m_report;
    const Made m_made;
    std::atomic<Order> m_order = Order::GoOn;
    QElapsedTimer m_lastReport;
};

} // namespace zel::service

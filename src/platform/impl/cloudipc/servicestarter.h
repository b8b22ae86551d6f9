#pragma once

#include "base/posix/uniquefd.h"

#include <QObject>
#include <QTimer>
#include <memory>

class QSocketNotifier;

namespace zel::cloudipc {

/// Starts the service process and tells when it can be connected to. GUI thread; never blocks. The process
/// goes on when the starter is destroyed.
class ServiceStarter final : public QObject
{
    Q_OBJECT
public:
    explicit ServiceStarter(QObject *parent = nullptr);
    ~ServiceStarter() override;

    /// False with a log line when the program cannot run; else ready() or failed() follows once, on a later
    /// turn of the loop.
    bool start(const QString &program, const QStringList &arguments);

Q_SIGNALS:
    void ready();
    void failed(); ///< it ended, or did not get ready in time; the log says so

private:
    void onReport();
    void onTimeout();
    void stopWaiting();

    posix::UniqueFd m_report;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_timeout;
};

} // namespace zel::cloudipc

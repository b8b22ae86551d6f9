#pragma once

#include "base/posix/uniquefd.h"
#include "servicestarter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <memory>
#include <optional>

class QSocketNotifier;

namespace zel::cloudipc {

/// One connection to the cloud service, kept up once started: starts the service when nobody listens, comes
/// back after a loss, gives up after some failures in a row. GUI thread; never blocks; has no timer running
/// while connected.
class CloudLink final : public QObject
{
    Q_OBJECT
public:
    explicit CloudLink(QObject *parent = nullptr);
    ~CloudLink() override;

    /// `program` is started with `arguments` when needed. Does nothing while connected or connecting; ends a
    /// pause.
    void start(const QString &program, const QStringList &arguments);
    bool isConnected() const { return m_state == State::Connected; }

Q_SIGNALS:
    void up();   ///< on a later turn of the loop than start()
    void lost(); ///< follows each up() at most once

private:
    enum class State { Stopped, Starting, Connected, Pausing };

    void connectOrLaunch();
    void connectToReady();
    void launch();
    void adopt(posix::UniqueFd fd);
    void announce(int connection);
    void onReadable();
    void drop(const char *why);
    void pause();
    std::optional<std::string> socketPath() const;

    QString m_program;
    QStringList m_arguments;
    State m_state = State::Stopped;
    int m_failures = 0;
    int m_connection = 0; ///< number of the latest one
    bool m_announced = false;
    QElapsedTimer m_connected;
    posix::UniqueFd m_fd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    ServiceStarter m_starter;
    QTimer m_retry;
};

} // namespace zel::cloudipc

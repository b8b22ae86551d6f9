#pragma once

#include "base/posix/singleinstance.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>

class ClientConnection;

/// Accepts the clients of this user on the service's socket and keeps their connections. Thread of its event
/// loop.
class CloudServer final : public QObject
{
    Q_OBJECT
public:
    /// `instance` is owned by this process already and outlives the server.
    explicit CloudServer(zel::posix::SingleInstance &instance, QObject *parent = nullptr);

    /// From now on finished() follows once no client has been there for `grace`.
    void finishWithoutClients(std::chrono::milliseconds grace);
    int clientCount() const { return m_clients; }

Q_SIGNALS:
    void finished(); ///< the socket is gone; nobody can connect any more

private:
    void acceptClients();
    bool acceptOne();
    void onClientClosed(ClientConnection *client);
    void finishUnlessWanted();

    zel::posix::SingleInstance &m_instance;
    QSocketNotifier m_listening;
    QTimer m_acceptAgain; ///< after the process ran out of descriptors
    QTimer m_grace;
    bool m_finishWithoutClients = false;
    int m_clients = 0;
};

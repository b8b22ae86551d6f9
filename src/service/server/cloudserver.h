#pragma once

#include "base/posix/singleinstance.h"
#include "service/dispatch/pushes.h"
#include "service/server/sessionlimits.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <vector>

namespace zel::service {

class ClientSession;
class MethodTable;

/// Accepts the clients of this user on the service's socket and keeps their sessions. Main thread. Nothing
/// wakes it while no client does.
class CloudServer final : public QObject, public Pushes
{
    Q_OBJECT
public:
    static constexpr int MostClients = 64;

    /// `instance` is owned by this process already; it and `methods` outlive the server.
    CloudServer(posix::SingleInstance &instance, const MethodTable &methods, const SessionLimits &limits = {},
        QObject *parent = nullptr);
    ~CloudServer() override;

    void push(std::string_view method, const apache::thrift::TBase &record) override;
    void pushTo(ClientId client, std::string_view method, const apache::thrift::TBase &record) override;

    /// From now on finished() follows once no client has been there for `grace`, unless `hasWork` says by
    /// then that there is work left; then it is asked again `grace` after workEnded().
    void finishWithoutClients(std::chrono::milliseconds grace, std::function<bool()> hasWork = {});
    void workEnded(); ///< what kept the service
    /// Takes no further client or request, answers what it owes, and says finished(); a client that takes
    /// longer than `patience` to read its answers is cut off.
    void finish(std::chrono::milliseconds patience = std::chrono::milliseconds(3000));
    int clientCount() const { return int(m_sessions.size()); }
    int welcomeCount() const; ///< clients that have passed the handshake

Q_SIGNALS:
    void welcomed(zel::service::ClientId client); ///< pushes reach it from now on
    void gone(zel::service::ClientId client);     ///< also for one that was never welcome
    void finished();                              ///< every client is gone; once

private:
    void acceptClients();
    bool acceptOne();
    void admit(posix::UniqueFd socket);
    void onClosed(ClientSession *session);
    void leaveUnlessWanted();
    void leave();

    posix::SingleInstance &m_instance;
    const MethodTable &m_methods;
    const SessionLimits m_limits;
    QSocketNotifier m_listening;
    QTimer m_acceptAgain; ///< after the process ran out of descriptors
    QTimer m_grace;
    QTimer m_patience;
    std::vector<ClientSession *> m_sessions;
    quint64 m_lastId = 0;
    std::function<bool()> m_hasWork;
    bool m_finishWithoutClients = false;
    bool m_finishing = false;
    bool m_finished = false;
};

} // namespace zel::service

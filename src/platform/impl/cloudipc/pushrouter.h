#pragma once

#include "cloud/wire/message.h"

#include <QList>
#include <QPointer>
#include <QStringList>

class KClientSvrProxy;
class KVelaEventObject;
namespace zel::vela {
class NotifyActionArg;
}
namespace zel::wire {
class AnyRecord;
struct MethodType;
} // namespace zel::wire

namespace zel::cloudipc {

class LoginKeeper;

/// Hands the service's pushes to those that they concern. GUI thread.
class PushRouter final
{
public:
    PushRouter(KVelaEventObject *events, LoginKeeper *login) : m_events(events), m_login(login) { }

    void addClient(KClientSvrProxy *client);
    /// False when the push is damaged. Otherwise the router may be gone. Unknown pushes are logged once.
    bool takePush(const wire::MessageHead &head, wire::MessageReader &reader);

private:
    void route(const wire::MethodType &push, const wire::AnyRecord &record);
    bool tellLogin(const wire::AnyRecord &record);
    bool tellUser(const wire::AnyRecord &record);
    void askClients(const vela::NotifyActionArg &action);

    KVelaEventObject *m_events;
    LoginKeeper *m_login;
    QList<QPointer<KClientSvrProxy>> m_clients;
    QStringList m_unknown; ///< those logged
};

} // namespace zel::cloudipc

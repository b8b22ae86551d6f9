#pragma once

#include "service/dispatch/reply.h"

#include <QHash>
#include <QSet>
#include <QStringList>

namespace zel::service {

/// Which clients want to be told how far which transfers are. Forgotten with the connection. Main thread.
class TransferSubscriptions
{
public:
    /// No task means all of them, present and later ones.
    void subscribe(ClientId client, const QStringList &taskIds);
    /// No task ends everything that the client subscribed.
    void unsubscribe(ClientId client, const QStringList &taskIds);
    void forget(ClientId client) { m_clients.remove(quint64(client)); }
    QVector<ClientId> subscribersOf(const QString &taskId) const; ///< unordered

private:
    struct Wishes
    {
        bool all = false;
        QSet<QString> tasks;
    };
    QHash<quint64, Wishes> m_clients;
};

} // namespace zel::service

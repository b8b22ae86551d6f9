#include "service/dispatch/transfersubscriptions.h"

namespace zel::service {

void TransferSubscriptions::subscribe(ClientId client, const QStringList &taskIds)
{
    Wishes &wishes = m_clients[quint64(client)];
    wishes.all = wishes.all || taskIds.isEmpty();
    for (const QString &task : taskIds)
        wishes.tasks.insert(task);
}

void TransferSubscriptions::unsubscribe(ClientId client, const QStringList &taskIds)
{
    const auto wishes = m_clients.find(quint64(client));
    if (wishes == m_clients.end())
        return;
    for (const QString &task : taskIds)
        wishes->tasks.remove(task);
    if (taskIds.isEmpty() || (!wishes->all && wishes->tasks.isEmpty()))
        m_clients.erase(wishes);
}

QVector<ClientId> TransferSubscriptions::subscribersOf(const QString &taskId) const
{
    QVector<ClientId> clients;
    for (auto it = m_clients.begin(); it != m_clients.end(); ++it) {
        if (it->all || it->tasks.contains(taskId))
            clients.append(ClientId(it.key()));
    }
    return clients;
}

} // namespace zel::service

#include "service/cloudservice.h"

#include "service/methods/messages/messagenews.h"

#include <QSysInfo>

namespace zel::service {

CloudService::CloudService(posix::SingleInstance &instance, const QString &databaseFile,
    const SessionLimits &limits, QObject *parent)
    : QObject(parent),
      m_database(databaseFile),
      m_tables(m_database),
      m_account(LocalAccount::ofThisUser(), m_tables),
      m_server(instance, m_methods, limits),
      m_accountMethods(m_account, m_tables, m_server, m_hooks),
      m_messageMethods(m_database, m_account, m_server),
      m_messageLists(m_database, m_account),
      m_envelopeMethods({m_account, m_tables, m_server, m_hooks, m_subscriptions,
          [this](const QString &id, bool waits) { return m_messageMethods.setMessageWaits(id, waits); }})
{
    m_hooks.tellMessages = [this](const MessageNews &news) { m_messageMethods.tell(news); };
    m_hooks.clientCount = [this] { return m_server.welcomeCount(); };
    m_hooks.stopService = [this] { m_server.finish(); };
    m_accountMethods.serve(m_methods);
    m_messageMethods.serve(m_methods);
    m_messageLists.serve(m_methods);
    m_envelopeMethods.serve(m_methods);
    connect(&m_server, &CloudServer::welcomed, this, &CloudService::greet);
    connect(&m_server, &CloudServer::gone, this, [this](ClientId client) { m_subscriptions.forget(client); });
}

void CloudService::start()
{
    m_database.ready();
    connect(&m_database, &CloudDatabase::replaced, this, &CloudService::tellReplaced);
    connect(&m_database, &CloudDatabase::opened, this, [this] { m_messageMethods.tellReloaded(); });
}

CloudService::~CloudService() = default;

Identity CloudService::identity()
{
    QString device;
    m_tables.deviceId(device);
    return {m_account.userId(), m_account.account().fullName, device, QSysInfo::machineHostName()};
}

void CloudService::greet(ClientId client)
{
    if (!m_database.keptAside().isEmpty())
        m_server.pushTo(client, "notifyUserGenericInfo", databaseDamaged());
    m_messageMethods.greet(client);
}

void CloudService::tellReplaced()
{
    m_server.push("notifyUserGenericInfo", databaseDamaged());
}

vela::NotifyUserGenericInfoArg CloudService::databaseDamaged() const
{
    vela::NotifyUserGenericInfoArg damaged;
    damaged.infoKey = "databaseDamaged";
    damaged.info["keptAs"] = m_database.keptAside().toStdString();
    damaged.userId = m_account.userId().toStdString();
    return damaged;
}

} // namespace zel::service

#pragma once

#include "service/dispatch/methodtable.h"
#include "service/dispatch/transfersubscriptions.h"
#include "service/methods/account/accountmethods.h"
#include "service/methods/envelope/envelopemethods.h"
#include "service/methods/identity.h"
#include "service/methods/messages/messagelists.h"
#include "service/methods/messages/messagemethods.h"
#include "service/server/cloudserver.h"

namespace zel::service {

/// The service as a whole: what it keeps, what it serves, and the server that clients talk to. Main thread.
/// Each area of methods is a member, which adds itself to the table of methods when the service is made.
class CloudService final : public QObject
{
    Q_OBJECT
public:
    /// `instance` is owned by this process already and outlives the service.
    explicit CloudService(posix::SingleInstance &instance,
        const QString &databaseFile = CloudDatabase::defaultFile(), const SessionLimits &limits = {},
        QObject *parent = nullptr);
    ~CloudService() override;

    /// Opens the database. When that fails the service runs all the same, and its methods answer with the
    /// reason until it works. Areas that live outside add their methods, hooks and owners of tables before.
    void start();

    CloudServer &server() { return m_server; }
    CloudDatabase &database() { return m_database; }
    MethodTable &methods() { return m_methods; }
    const TransferSubscriptions &subscriptions() const { return m_subscriptions; }
    ServiceHooks &hooks() { return m_hooks; }
    Identity identity(); ///< of the account and this machine

private:
    void greet(ClientId client);
    void tellReplaced();
    vela::NotifyUserGenericInfoArg databaseDamaged() const;

    MethodTable m_methods;
    ServiceHooks m_hooks;
    TransferSubscriptions m_subscriptions;
    CloudDatabase m_database;
    ServiceTables m_tables;
    AccountState m_account;
    CloudServer m_server;
    AccountMethods m_accountMethods;
    MessageMethods m_messageMethods;
    MessageLists m_messageLists;
    EnvelopeMethods m_envelopeMethods;
};

} // namespace zel::service

#pragma once

#include "service/methods/account/localaccount.h"
#include "service/store/servicetables.h"

#include <map>
#include <string>

namespace zel::vela {
class UserData;
}

namespace zel::service {

/// Who is signed in. Without a server that is the local account, until it signs out; this outlives the
/// process. Main thread.
class AccountState
{
public:
    enum class Login { SignedOut = 0, Local = 1 }; ///< numbers of the link

    AccountState(LocalAccount account, ServiceTables &tables)
        : m_account(std::move(account)), m_tables(tables)
    {
    }

    const LocalAccount &account() const { return m_account; }
    QString userId() const { return m_account.userId; }
    vela::UserData userData() const;
    /// Empty names the account too. Requests for other users are answered with "notFound".
    bool isOurs(const std::string &userId) const;

    wire::ServiceError login(Login &state);
    wire::ServiceError setLogin(Login state);
    wire::ServiceError loginTime(qint64 &time); ///< ms since epoch; 0 when nobody ever signed in by hand
    /// The values of the login by name, as clients get them; all there with empty texts when signed out.
    wire::ServiceError loginInfo(std::map<std::string, std::string> &info);

private:
    const LocalAccount m_account;
    ServiceTables &m_tables;
};

} // namespace zel::service

#pragma once

#include "service/dispatch/reply.h"
#include "service/methods/account/accountstate.h"
#include "service/methods/failuretexts.h"
#include "service/tables/tableresult.h"

namespace zel::service {

/// What every method on a table asks first and afterwards. Answers the request itself when it is not so.
class TableAccess
{
public:
    TableAccess(CloudDatabase &database, AccountState &account) : m_database(database), m_account(account) { }

    /// Whether the user is known and the tables are open.
    template <class Result> bool isUsable(const std::string &userId, Answer<Result> &answer)
    {
        if (!m_account.isOurs(userId)) {
            answer.fail(wire::ServiceError::NotFound, unknownUserText());
            return false;
        }
        const wire::ServiceError error = m_database.ready();
        if (error != wire::ServiceError::None)
            answer.fail(error, databaseText());
        return error == wire::ServiceError::None;
    }
    template <class Result> bool worked(const TableResult &result, Answer<Result> &answer)
    {
        if (!result.ok())
            answer.fail(m_database.errorOf(result.failure), databaseText());
        return result.ok();
    }

private:
    CloudDatabase &m_database;
    AccountState &m_account;
};

} // namespace zel::service

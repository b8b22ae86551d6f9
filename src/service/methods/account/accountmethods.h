#pragma once

#include "service/dispatch/methodtable.h"
#include "service/dispatch/pushes.h"
#include "service/methods/account/accountstate.h"
#include "service/methods/servicehooks.h"

#include "account_types.h"
#include "common_types.h"

namespace zel::service {

/// The methods of the account: who is signed in, names and pictures, guides, the handshake, the end of a
/// client. Main thread.
///
/// getLoginInfo, login: resultMap holds "loginInfo", which is
/// userId|nickName|accountType|deviceId|loginStatus, and each of these by its name, with "userName" (the
/// login name), "userAvatar", "vipType", "accessID", "secretKey" and "cookie". "|" inside a value is written
/// as a blank. loginStatus: 0 signed out, 1 local account.
class AccountMethods
{
public:
    AccountMethods(AccountState &state, ServiceTables &tables, Pushes &pushes, ServiceHooks &hooks)
        : m_state(state), m_tables(tables), m_pushes(pushes), m_hooks(hooks)
    {
    }
    void serve(MethodTable &methods); ///< outlives the table's use

private:
    void getVersion(const vela::GetVersionArg &, Answer<vela::GetVersionResult> answer);
    void getLoginInfo(const QStringList &, Answer<vela::VelaIpcResult> answer);
    void login(const QStringList &request, Answer<vela::VelaIpcResult> answer);
    void logout(const vela::LogoutArg &request, Answer<vela::LogoutResult> answer);
    void getUserId(const QStringList &, Answer<vela::GetUserIdResult> answer);
    void getUsers(const vela::GetUsersArg &request, Answer<vela::GetUsersResult> answer);
    void batchQueryUserData(
        const vela::BatchQueryUserDataArg &request, Answer<vela::BatchQueryUserDataResult> answer);
    void getUserThumbnail(
        const vela::GetUserThumbnailArg &request, Answer<vela::GetUserThumbnailResult> answer);
    void userExtraInfo(const vela::UserExtraInfoArg &request, Answer<vela::UserExtraInfoResult> answer);
    void getUserGuideStatus(
        const vela::GetUserGuideStatusArg &request, Answer<vela::GetUserGuideStatusResult> answer);
    void setUserGuideStatus(
        const vela::SetUserGuideStatusArg &request, Answer<vela::SetUserGuideStatusResult> answer);
    void reportDcInfoc(const vela::ReportDcInfocArg &, Answer<vela::ReportDcInfocResult> answer);
    void notifyExit(const vela::NotifyExitArg &request, Answer<vela::NotifyExitResult> answer);

    void tellLoginChanged();

    AccountState &m_state;
    ServiceTables &m_tables;
    Pushes &m_pushes;
    ServiceHooks &m_hooks;
};

} // namespace zel::service

#include "service/methods/account/accountmethods.h"

#include "base/clock.h"
#include "base/logging.h"
#include "cloud/wire/limits.h"
#include "notify_types.h"
#include "service/methods/failuretexts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>

namespace zel::service {

using wire::ServiceError;

namespace {

constexpr int LastGuideState = 3;

bool isWanted(const std::vector<std::string> &wanted, const std::string &one)
{
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), one) != wanted.end();
}

QString guideKey(const std::string &guideId)
{
    return QLatin1String("guide/") + QString::fromStdString(guideId);
}

} // namespace

void AccountMethods::serve(MethodTable &methods)
{
    methods.serve("getVersion", this, &AccountMethods::getVersion);
    methods.serve("getLoginInfo", this, &AccountMethods::getLoginInfo);
    methods.serve("login", this, &AccountMethods::login);
    methods.serve("logout", this, &AccountMethods::logout);
    methods.serve("getUserId", this, &AccountMethods::getUserId);
    methods.serve("getUsers", this, &AccountMethods::getUsers);
    methods.serve("batchQueryUserData", this, &AccountMethods::batchQueryUserData);
    methods.serve("getUserThumbnail", this, &AccountMethods::getUserThumbnail);
    methods.serve("userExtraInfo", this, &AccountMethods::userExtraInfo);
    methods.serve("getUserGuideStatus", this, &AccountMethods::getUserGuideStatus);
    methods.serve("setUserGuideStatus", this, &AccountMethods::setUserGuideStatus);
    methods.serve("reportDcInfoc", this, &AccountMethods::reportDcInfoc);
    methods.serve("notifyExit", this, &AccountMethods::notifyExit);
}

// Answered also while the database cannot be used, then without a device: a client must be able to connect.
void AccountMethods::getVersion(const vela::GetVersionArg &, Answer<vela::GetVersionResult> answer)
{
    vela::GetVersionResult result;
    QString device;
    m_tables.deviceId(device);
    result.protocolVersion = wire::ProtocolVersion;
    result.serviceVersion = QCoreApplication::applicationVersion().toStdString();
    result.deviceId = device.toStdString();
    answer.send(result);
}

void AccountMethods::getLoginInfo(const QStringList &, Answer<vela::VelaIpcResult> answer)
{
    vela::VelaIpcResult result;
    if (const ServiceError error = m_state.loginInfo(result.resultMap); error != ServiceError::None)
        return answer.fail(error, databaseText());
    answer.send(result);
}

// Kind, name, password. Without a server only the local account can be signed in, which asks for no password.
void AccountMethods::login(const QStringList &request, Answer<vela::VelaIpcResult> answer)
{
    const QString kind = request.value(0);
    const QString name = request.value(1);
    if (!kind.isEmpty() && kind != QLatin1String("local"))
        return answer.fail(ServiceError::NotServed, QStringLiteral("No server is set up to sign in at."));
    if (!name.isEmpty() && name != m_state.account().loginName && name != m_state.userId())
        return answer.fail(ServiceError::NotFound, unknownUserText());
    ServiceError error = m_state.setLogin(AccountState::Login::Local);
    vela::VelaIpcResult result;
    if (error == ServiceError::None)
        error = m_state.loginInfo(result.resultMap);
    if (error != ServiceError::None)
        return answer.fail(error, databaseText());
    answer.send(result);
    tellLoginChanged();
}

void AccountMethods::logout(const vela::LogoutArg &request, Answer<vela::LogoutResult> answer)
{
    if (!m_state.isOurs(request.userId))
        return answer.fail(ServiceError::NotFound, unknownUserText());
    if (request.clearCache)
        return answer.fail(ServiceError::NotServed, QStringLiteral("Local copies cannot be removed yet."));
    vela::LogoutResult result;
    const QStringList waiting = m_hooks.waitingUploads ? m_hooks.waitingUploads() : QStringList();
    if (!waiting.isEmpty() && !request.force) {
        result.state = int32_t(ServiceError::Conflict);
        result.errorInfo = wire::errorInfo(ServiceError::Conflict, QStringLiteral("Uploads still wait."));
        for (const QString &task : waiting)
            result.waitingTaskIds.push_back(task.toStdString());
        return answer.send(result);
    }
    if (!waiting.isEmpty() && m_hooks.cancelTasks)
        m_hooks.cancelTasks(waiting);
    const ServiceError error = m_state.setLogin(AccountState::Login::SignedOut);
    if (error != ServiceError::None)
        return answer.fail(error, databaseText());
    result.userId = m_state.userId().toStdString();
    answer.send(result);
    tellLoginChanged();
}

void AccountMethods::getUserId(const QStringList &, Answer<vela::GetUserIdResult> answer)
{
    AccountState::Login state = AccountState::Login::SignedOut;
    if (const ServiceError error = m_state.login(state); error != ServiceError::None)
        return answer.fail(error, databaseText());
    vela::GetUserIdResult result;
    result.loginState = int32_t(state);
    if (state == AccountState::Login::Local)
        result.userId = m_state.userId().toStdString();
    answer.send(result);
}

void AccountMethods::getUsers(const vela::GetUsersArg &request, Answer<vela::GetUsersResult> answer)
{
    AccountState::Login state = AccountState::Login::SignedOut;
    qint64 time = 0;
    ServiceError error = m_state.login(state);
    if (error == ServiceError::None)
        error = m_state.loginTime(time);
    if (error != ServiceError::None)
        return answer.fail(error, databaseText());
    vela::GetUsersResult result;
    const vela::UserData user = m_state.userData();
    const bool in = state == AccountState::Login::Local;
    result.total = in || !request.loginedOnly ? 1 : 0;
    if (in)
        result.currentUserId = user.userId;
    if (result.total > 0 && request.offset <= 0) {
        result.users.push_back(user);
        result.loginTimes[user.userId] = time;
    }
    answer.send(result);
}

void AccountMethods::batchQueryUserData(
    const vela::BatchQueryUserDataArg &request, Answer<vela::BatchQueryUserDataResult> answer)
{
    vela::BatchQueryUserDataResult result;
    for (const std::string &id : request.userIds) {
        if (!id.empty() && m_state.isOurs(id))
            result.users.push_back(m_state.userData());
        else
            result.failedItems[id] = wire::errorInfo(ServiceError::NotFound, unknownUserText());
    }
    answer.send(result);
}

// The picture is given as it is; whoever shows it fits it to the size.
void AccountMethods::getUserThumbnail(
    const vela::GetUserThumbnailArg &request, Answer<vela::GetUserThumbnailResult> answer)
{
    vela::GetUserThumbnailResult result;
    const QString picture = m_state.account().picture();
    for (const vela::GetUserThumbnailArgEntry &asked : request.users) {
        if (asked.userId.empty() || !m_state.isOurs(asked.userId)) {
            result.failedItems[asked.userId] = wire::errorInfo(ServiceError::NotFound, unknownUserText());
            continue;
        }
        vela::UserThumbnailEntry entry;
        entry.userId = asked.userId;
        entry.userAvatar = entry.path = picture.toStdString();
        entry.thumbnailState = picture.isEmpty() ? 2 : 0;
        entry.mtime = picture.isEmpty() ? 0 : QFileInfo(picture).lastModified().toMSecsSinceEpoch();
        result.thumbnails.push_back(entry);
    }
    answer.send(result);
}

void AccountMethods::userExtraInfo(
    const vela::UserExtraInfoArg &request, Answer<vela::UserExtraInfoResult> answer)
{
    if (!m_state.isOurs(request.userId))
        return answer.fail(ServiceError::NotFound, unknownUserText());
    AccountState::Login state = AccountState::Login::SignedOut;
    if (const ServiceError error = m_state.login(state); error != ServiceError::None)
        return answer.fail(error, databaseText());
    vela::UserExtraInfoResult result;
    result.user = m_state.userData();
    result.loginState = int32_t(state);
    result.vipType = "normal";
    const std::map<std::string, std::string> infos = {
        {"loginName", m_state.account().loginName.toStdString()}, {"accountType", "local"}};
    for (const auto &[key, value] : infos) {
        if (isWanted(request.keys, key))
            result.infos[key] = value;
    }
    answer.send(result);
}

void AccountMethods::getUserGuideStatus(
    const vela::GetUserGuideStatusArg &request, Answer<vela::GetUserGuideStatusResult> answer)
{
    if (!m_state.isOurs(request.userId))
        return answer.fail(ServiceError::NotFound, unknownUserText());
    QMap<QString, QString> kept;
    if (const ServiceError error = m_tables.readAll(m_state.userId(), guideKey({}), kept);
        error != ServiceError::None)
        return answer.fail(error, databaseText());
    vela::GetUserGuideStatusResult result;
    for (const std::string &id : request.guideIds)
        result.guideStates[id] = 0;
    for (auto it = kept.begin(); it != kept.end(); ++it) {
        if (isWanted(request.guideIds, it.key().toStdString()))
            result.guideStates[it.key().toStdString()] = it.value().toInt();
    }
    answer.send(result);
}

void AccountMethods::setUserGuideStatus(
    const vela::SetUserGuideStatusArg &request, Answer<vela::SetUserGuideStatusResult> answer)
{
    if (!m_state.isOurs(request.userId))
        return answer.fail(ServiceError::NotFound, unknownUserText());
    vela::SetUserGuideStatusResult result;
    QMap<QString, QString> values;
    for (const auto &[id, state] : request.guideStates) {
        if (id.empty() || state < 0 || state > LastGuideState) {
            result.failedItems[id] = wire::errorInfo(
                ServiceError::InvalidArgument, QStringLiteral("There is no such guide state."));
            continue;
        }
        result.guideStates[id] = state;
        values.insert(guideKey(id), QString::number(state));
    }
    if (const ServiceError error = m_tables.write(m_state.userId(), values); error != ServiceError::None)
        return answer.fail(error, databaseText());
    answer.send(result);
}

// Usage statistics never leave this machine, and nothing here needs them: they are not kept either.
void AccountMethods::reportDcInfoc(const vela::ReportDcInfocArg &, Answer<vela::ReportDcInfocResult> answer)
{
    answer.send({});
}

void AccountMethods::notifyExit(const vela::NotifyExitArg &request, Answer<vela::NotifyExitResult> answer)
{
    vela::NotifyExitResult result;
    result.clientCount = std::max(m_hooks.clientCount() - 1, 0);
    result.runningTaskCount = m_hooks.runningTasks ? m_hooks.runningTasks() : 0;
    result.serviceStops = request.stopService && result.clientCount == 0;
    answer.send(result);
    if (result.serviceStops)
        m_hooks.stopService();
}

void AccountMethods::tellLoginChanged()
{
    vela::NotifyUserGenericInfoArg login;
    login.infoKey = "loginStatus";
    m_state.loginInfo(login.info);
    login.userId = m_state.userId().toStdString();
    m_pushes.push("notifyUserGenericInfo", login);
    vela::NotifyUserInfoArg user;
    user.user = m_state.userData();
    user.isSelf = true;
    user.mtime = now().toMSecsSinceEpoch();
    m_pushes.push("notifyUserInfo", user);
}

} // namespace zel::service

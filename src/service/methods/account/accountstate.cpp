#include "service/methods/account/accountstate.h"

#include "base/clock.h"
#include "base/latin1.h"
#include "common_types.h"

namespace zel::service {

using wire::ServiceError;

namespace {

constexpr QLatin1String LoginKey = latin1("account/login");
constexpr QLatin1String LoginTimeKey = latin1("account/loginTime");

// A field of "loginInfo" ends at the next "|".
std::string field(const QString &text)
{
    return QString(text).replace(QLatin1Char('|'), QLatin1Char(' ')).toStdString();
}

} // namespace

vela::UserData AccountState::userData() const
{
    vela::UserData user;
    user.userId = m_account.userId.toStdString();
    user.userName = m_account.fullName.toStdString();
    user.userAvatar = m_account.picture().toStdString();
    return user;
}

bool AccountState::isOurs(const std::string &userId) const
{
    return userId.empty() || userId == m_account.userId.toStdString();
}

ServiceError AccountState::login(Login &state)
{
    QString kept;
    const ServiceError error = m_tables.read(m_account.userId, LoginKey, kept);
    state = kept == latin1("0") ? Login::SignedOut : Login::Local;
    return error;
}

ServiceError AccountState::setLogin(Login state)
{
    QMap<QString, QString> values{{LoginKey, QString::number(int(state))}};
    if (state == Login::Local)
        values.insert(LoginTimeKey, QString::number(now().toMSecsSinceEpoch()));
    return m_tables.write(m_account.userId, values);
}

ServiceError AccountState::loginTime(qint64 &time)
{
    QString kept;
    const ServiceError error = m_tables.read(m_account.userId, LoginTimeKey, kept);
    time = kept.toLongLong();
    return error;
}

ServiceError AccountState::loginInfo(std::map<std::string, std::string> &info)
{
    Login state = Login::SignedOut;
    QString device;
    ServiceError error = login(state);
    if (error == ServiceError::None)
        error = m_tables.deviceId(device);
    const bool in = state == Login::Local;
    const auto whenIn = [in](const QString &text) { return in ? field(text) : std::string(); };
    info = {{"userId", whenIn(m_account.userId)}, {"nickName", whenIn(m_account.fullName)},
        {"userName", whenIn(m_account.loginName)}, {"userAvatar", whenIn(m_account.picture())},
        {"accountType", whenIn(QStringLiteral("local"))}, {"deviceId", field(device)},
        {"loginStatus", std::to_string(int(state))}, {"vipType", whenIn(QStringLiteral("normal"))},
        // Those of a server's account; the local one has nothing to prove.
        {"accessID", ""}, {"secretKey", ""}, {"cookie", ""}};
    info["loginInfo"] = info["userId"] + '|' + info["nickName"] + '|' + info["accountType"] + '|'
        + info["deviceId"] + '|' + info["loginStatus"];
    return error;
}

} // namespace zel::service

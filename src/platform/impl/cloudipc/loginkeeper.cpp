#include "loginkeeper.h"

#include "base/logging.h"
#include "cloud/wire/serviceerror.h"

namespace zel::cloudipc {
namespace {

KVelaIpcLoginCache loginOf(const KRpcResponse &response)
{
    KVelaIpcLoginCache login;
    login.loginState = response.value(QStringLiteral("loginStatus")).toInt();
    login.userId = response.value(QStringLiteral("userId"));
    login.nickName = response.value(QStringLiteral("nickName"));
    login.userAvatar = response.value(QStringLiteral("userAvatar"));
    login.vipType = response.value(QStringLiteral("vipType"));
    return login;
}

} // namespace

void LoginKeeper::refresh(Tell tell)
{
    m_tellAlways = m_tellAlways || tell == Tell::Always;
    m_askAgain = m_asking;
    if (!qExchange(m_asking, true))
        m_ask(this, QStringLiteral("onLoginInfo"));
}

void LoginKeeper::onLoginInfo(bool bOk, const QString &, const KRpcResponse &response)
{
    m_asking = false;
    if (qExchange(m_askAgain, false))
        return refresh(); // this answer may be older than what it was asked for
    if (!bOk)
        return;
    if (response.state() == 0)
        take(response);
    else if (response.state() == int(wire::ServiceError::NotSignedIn))
        take(KRpcResponse(response.state(), {}));
}

void LoginKeeper::onSigned(bool bOk, const QString &, const KRpcResponse &response)
{
    if (bOk && response.state() == 0)
        refresh();
    else
        qCWarning(lcPlatform, "the sign-in or sign-out failed: %d", bOk ? response.state() : -1);
}

void LoginKeeper::take(const KRpcResponse &response)
{
    const KVelaIpcLoginCache login = loginOf(response);
    const bool changed = !m_known || login != m_current;
    m_known = true;
    m_answer = response;
    m_current = login;
    if (login.isLogined())
        m_last = login;
    if (qExchange(m_tellAlways, false) || changed)
        Q_EMIT loginStatusChanged();
}

KCompanyInfoCache LoginKeeper::company() const
{
    return {m_answer.value(QStringLiteral("companyId")), m_answer.value(QStringLiteral("companyName"))};
}

} // namespace zel::cloudipc

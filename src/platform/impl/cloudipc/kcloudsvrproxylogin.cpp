#include "account_types.h"
#include "base/membership.h"
#include "base/settingskeys.h"
#include "common_types.h"
#include "kcloudsvrproxy.h"
#include "kcloudsvrproxy_p.h"

// The operations of the proxy that concern the user's login and the service itself.

namespace {

QString typeText(AdType type)
{
    switch (type) {
    case AdType::Local:
        return QStringLiteral("local");
    case AdType::Server:
        return QStringLiteral("server");
    case AdType::Company:
        return QStringLiteral("company");
    }
    return {};
}

QLatin1String vipText(VipType type)
{
    switch (type) {
    case VipType::Normal:
        return zel::membership::Normal;
    case VipType::Super:
        return zel::membership::Super;
    case VipType::Plume:
        return zel::membership::Plume;
    }
    return {};
}

} // namespace

QMap<QString, QString> KCloudSvrProxy::getLoginInfoMap()
{
    return d->login.answer().map();
}

QString KCloudSvrProxy::queryLoginInfo(const QString &key)
{
    return d->login.answer().value(key);
}

bool KCloudSvrProxy::getUserLoginInfo(KVelaIpcLoginCache *cache)
{
    if (cache && d->login.isKnown())
        *cache = d->login.current();
    return d->login.isKnown();
}

bool KCloudSvrProxy::getLastUserLoginInfo(KVelaIpcLoginCache *cache)
{
    const bool known = d->login.last().isLogined();
    if (cache && known)
        *cache = d->login.last();
    return known;
}

bool KCloudSvrProxy::getUserCompanyInfo(KCompanyInfoCache *cache)
{
    const KCompanyInfoCache company = d->login.company();
    if (company.companyId.isEmpty())
        return false;
    if (cache)
        *cache = company;
    return true;
}

bool KCloudSvrProxy::getLoginInfoIpcRes(KRpcResponse *response)
{
    if (response && d->login.isKnown())
        *response = d->login.answer();
    return d->login.isKnown();
}

QString KCloudSvrProxy::getCurrentSettingRootPath()
{
    return zel::keys::CloudSettingsPath;
}

QString KCloudSvrProxy::login(AdType type, const QString &name, const QString &password)
{
    return asyncCall(
        QStringLiteral("login"), {typeText(type), name, password}, &d->login, QStringLiteral("onSigned"));
}

QString KCloudSvrProxy::loginEx(const QString &ticket)
{
    return asyncCall(QStringLiteral("login"), {QStringLiteral("ticket"), QString(), ticket}, &d->login,
        QStringLiteral("onSigned"));
}

QString KCloudSvrProxy::logout(const QString &reason)
{
    zel::vela::LogoutArg arg;
    arg.reason = reason.toStdString();
    return asynCallEx(
        QStringLiteral("logout"), QGenericArgument("LogoutArg", &arg), &d->login, QStringLiteral("onSigned"));
}

bool KCloudSvrProxy::isLogined()
{
    return d->login.current().isLogined();
}

bool KCloudSvrProxy::isVip(VipType type)
{
    return isLogined() && d->login.current().vipType == vipText(type);
}

QString KCloudSvrProxy::openAutoLoginUrl(const QString &url)
{
    return asyncCall(QStringLiteral("redirect"), {url}, nullptr, QString());
}

QString KCloudSvrProxy::cmdNotify(const QString &commandline)
{
    zel::vela::ZelBoxAsynCommandLineArg arg;
    arg.commandline = commandline.toStdString();
    return asynCallEx(QStringLiteral("zelBoxAsynCommandLine"),
        QGenericArgument("ZelBoxAsynCommandLineArg", &arg), nullptr, QString());
}

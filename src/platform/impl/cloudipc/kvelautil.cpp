#include "kvelautil.h"

#include "cloud/wire/texts.h"
#include "common_types.h"
#include "proxylist.h"

#include <QVariant>
#include <algorithm>

bool KVelaUtil::canQueryDesktopSyncState()
{
    const auto &proxies = zel::cloudipc::liveProxies();
    return std::any_of(proxies.begin(), proxies.end(),
        [](KCloudSvrProxy *proxy) { return proxy->isConnected() && proxy->isLogined(); });
}

QString KVelaUtil::joinIds(const QStringList &ids)
{
    return ids.join(QLatin1Char('|'));
}

QStringList KVelaUtil::splitIds(const QString &ids)
{
    return ids.split(QLatin1Char('|'), Qt::SkipEmptyParts);
}

QString KVelaUtil::boolText(bool value)
{
    return QVariant(value).toString();
}

zel::vela::VelaIpcArg KVelaUtil::ipcArg(const QString &method, const QMap<QString, QString> &arguments)
{
    zel::vela::VelaIpcArg arg;
    arg.nameSpace = "KVelaIpcCallObj";
    arg.method = zel::wire::fromQt(method);
    arg.argMap = zel::wire::fromQt(arguments);
    return arg;
}

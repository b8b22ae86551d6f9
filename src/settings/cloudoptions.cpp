#include "settings/cloudoptions.h"

#include "common_types.h"
#include "kcloudsvrproxy.h"
#include "kvelaeventobject.h"
#include "kvelautil.h"

#include <QMap>

using zel::vela::VelaIpcArg;
using zel::vela::VelaIpcResult;

namespace {

// Empty unless the service did what it was asked.
QString valueOf(bool ok, const VelaIpcResult &result)
{
    return ok && result.state == 0 ? QString::fromStdString(result.resultString) : QString();
}

} // namespace

CloudOptions::CloudOptions(KCloudSvrProxy *cloud, QObject *parent) : QObject(parent), m_cloud(cloud)
{
    if (!cloud)
        return;
    connect(cloud, &KCloudSvrProxy::loginStatusChanged, this, &CloudOptions::ask);
    connect(cloud->velaEventObject(), &KVelaEventObject::SocketConnected, this, &CloudOptions::ask);
    connect(cloud->velaEventObject(), &KVelaEventObject::SocketDisConnected, this, &CloudOptions::forget);
    ask();
}

void CloudOptions::ask()
{
    if (!m_cloud || !m_cloud->isConnected())
        return;
    call(
        QStringLiteral("getCloudDiskEntryVisible"), {}, QStringLiteral("onGetCloudDiskEntryVisibleFinished"));
    call(QStringLiteral("getTransBubbleFrequncy"), {}, QStringLiteral("onGetTransBubbleFrequncyFinished"));
    call(QStringLiteral("getCloudFileCacheSize"), {}, QStringLiteral("onGetCloudFileCacheSizeFinished"));
}

void CloudOptions::forget()
{
    m_driveListed.reset();
    m_bubbles.reset();
    m_cacheSize = 0;
    Q_EMIT changed();
}

void CloudOptions::setDriveListed(bool listed)
{
    if (!m_cloud)
        return Q_EMIT failed();
    call(QStringLiteral("setCloudDiskEntryVisible"),
        {{QStringLiteral("visible"), KVelaUtil::boolText(listed)}},
        QStringLiteral("onSetCloudDiskEntryVisibleFinished"));
}

void CloudOptions::setBubbles(Bubbles bubbles)
{
    if (!m_cloud)
        return Q_EMIT failed();
    call(QStringLiteral("setTransBubbleFrequncy"),
        {{QStringLiteral("frequency"), QString::number(int(bubbles))}},
        QStringLiteral("onSetTransBubbleFrequncyFinished"));
}

void CloudOptions::call(const QString &method, const QMap<QString, QString> &arguments, const QString &slot)
{
    const VelaIpcArg arg = KVelaUtil::ipcArg(method, arguments);
    m_cloud->asynCallEx(QStringLiteral("velaIpcCall"), QArgument<VelaIpcArg>("VelaIpcArg", arg), this, slot);
}

void CloudOptions::onGetCloudDiskEntryVisibleFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    const QString value = valueOf(bOk, result);
    m_driveListed = value.isEmpty() ? std::nullopt : std::optional(value == QLatin1String("true"));
    Q_EMIT changed();
}

void CloudOptions::onSetCloudDiskEntryVisibleFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    const QString value = valueOf(bOk, result);
    if (value.isEmpty())
        return Q_EMIT failed();
    m_driveListed = value == QLatin1String("true");
    Q_EMIT changed();
}

std::optional<CloudOptions::Bubbles> CloudOptions::bubblesOf(bool bOk, const VelaIpcResult &answer)
{
    bool isNumber = false;
    const int number = valueOf(bOk, answer).toInt(&isNumber);
    if (!isNumber || number < int(Bubbles::EachTime) || number > int(Bubbles::Never))
        return {};
    return Bubbles(number);
}

void CloudOptions::onGetTransBubbleFrequncyFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    m_bubbles = bubblesOf(bOk, result);
    Q_EMIT changed();
}

void CloudOptions::onSetTransBubbleFrequncyFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    const std::optional<Bubbles> stored = bubblesOf(bOk, result);
    if (!stored)
        return Q_EMIT failed();
    m_bubbles = stored;
    Q_EMIT changed();
}

void CloudOptions::onGetCloudFileCacheSizeFinished(bool bOk, const QString &, const VelaIpcResult &result)
{
    m_cacheSize = valueOf(bOk, result).toLongLong();
    Q_EMIT changed();
}

#include "useragent/kxuseragentutil.h"

#include "base/logging.h"
#include "base/settingskeys.h"
#include "ksettings.h"
#include "useragent/interfacefacts.h"
#include "useragent/useragenttext.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QSysInfo>
#include <QUrl>

#include <optional>
#include <unistd.h>

using namespace zel;

namespace {

// The top-level domain "invalid" is reserved: without a configured service nothing reaches anybody.
constexpr QLatin1String NoServiceDomain = latin1(".zelbox.invalid");
constexpr size_t LongestHostName = 128;

struct Cache
{
    QString version;
    QString userAgent;
    std::optional<QString> deviceId;
};

Cache &cache()
{
    static Cache texts;
    return texts;
}

QString configured(QLatin1String key)
{
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    return settings.value(key).toString().trimmed();
}

QByteArray hostName()
{
    char name[LongestHostName + 1] = {}; // a name that was cut has no end of its own
    if (::gethostname(name, LongestHostName) != 0)
        qCWarning(lcUserAgent, "the host name could not be read");
    return QByteArray(name);
}

// The system's own mark of this machine must not leave it, nor lie about in plain text.
QString machineMark()
{
    const QByteArray mark = "zelbox device " + QSysInfo::machineUniqueId();
    return QString::fromLatin1(QCryptographicHash::hash(mark, QCryptographicHash::Sha256).toHex().left(32));
}

QString rememberedDeviceAddress()
{
    KSettings settings;
    settings.beginGroup(keys::Zelbox);
    const useragent::RememberedAddress remembered{
        settings.value(keys::DeviceMachine).toString(), settings.value(keys::DeviceAddress).toString()};
    const QString machine = machineMark();
    const QString address = useragent::deviceAddress(useragent::readInterfaces(), remembered, machine);
    if (address.isEmpty() || (address == remembered.address && machine == remembered.machine))
        return address;
    settings.setValue(keys::DeviceMachine, machine);
    settings.setValue(keys::DeviceAddress, address);
    if (!settings.sync())
        qCWarning(lcUserAgent, "the device's network card could not be remembered");
    return address;
}

} // namespace

QString KxUserAgentUtil::getUserAgent()
{
    QString &text = cache().userAgent;
    if (text.isEmpty())
        text = useragent::userAgentText(getVersion(), getHDID2(), hostName());
    return text;
}

QString KxUserAgentUtil::getBase64UserAgent()
{
    return useragent::urlSafeBase64(getUserAgent().toUtf8());
}

QNetworkCookie KxUserAgentUtil::getUserAgentCookie()
{
    const QString domain = configured(keys::UserAgentCookieDomain);
    QNetworkCookie cookie("zelua", getBase64UserAgent().toLatin1());
    cookie.setPath(QStringLiteral("/"));
    cookie.setDomain(domain.isEmpty() ? QString(NoServiceDomain) : useragent::cookieDomain(domain));
    cookie.setSecure(false);
    cookie.setExpirationDate(QDateTime::currentDateTimeUtc().addYears(1));
    return cookie;
}

QString KxUserAgentUtil::getHDID2()
{
    std::optional<QString> &id = cache().deviceId;
    if (!id)
        id = useragent::deviceId(rememberedDeviceAddress());
    return *id;
}

QString KxUserAgentUtil::getVersion()
{
    return cache().version;
}

void KxUserAgentUtil::setVersion(const QString &version)
{
    cache().version = version;
}

QString KxUserAgentUtil::getUserAgentTargetUrl()
{
    const QString address = configured(keys::UserAgentTargetUrl);
    const QUrl url(address, QUrl::StrictMode);
    if (url.isValid() && !url.host().isEmpty())
        return address;
    if (!address.isEmpty())
        qCWarning(lcUserAgent, "the configured service address is no address");
    return {};
}

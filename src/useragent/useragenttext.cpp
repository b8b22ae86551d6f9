#include "useragent/useragenttext.h"

#include <QCryptographicHash>

namespace zel::useragent {

QString urlSafeBase64(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64(QByteArray::Base64UrlEncoding));
}

QString deviceId(const QString &hardwareAddress)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(hardwareAddress.toUtf8(), QCryptographicHash::Md5).toHex());
}

QString userAgentText(const QString &version, const QString &deviceId, const QByteArray &hostName)
{
    // Servers read the pairs by their place: the device id is the second one's key.
    return QLatin1String("ZELUA/1.0 (") + QLatin1String("pc-office:") + version + QLatin1String("; ")
        + deviceId + QLatin1Char(':') + urlSafeBase64(hostName) + QLatin1Char(')');
}

QString cookieDomain(const QString &configured)
{
    const QString domain = configured.trimmed().toLower(); // as URLs have it
    return domain.startsWith(QLatin1Char('.')) ? domain : QLatin1Char('.') + domain;
}

} // namespace zel::useragent

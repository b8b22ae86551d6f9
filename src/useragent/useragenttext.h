#pragma once

#include <QByteArray>
#include <QString>

/// The texts that web requests carry, put together from plain values. Any thread.
namespace zel::useragent {

/// Base64 with "-" for "+" and "_" for "/"; the padding "=" stays.
QString urlSafeBase64(const QByteArray &bytes);

/// 32 lower-case hexadecimal digits that stand for a hardware address (empty: a machine without one).
QString deviceId(const QString &hardwareAddress);

/// "ZELUA/1.0 (pc-office:<version>; <device id>:<host name in URL-safe base64>)".
QString userAgentText(const QString &version, const QString &deviceId, const QByteArray &hostName);

/// The domain in small letters, with the leading dot that makes a cookie hold for every host below it.
QString cookieDomain(const QString &configured);

} // namespace zel::useragent

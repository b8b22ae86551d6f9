#pragma once

#include <QNetworkCookie>
#include <QString>

/// What web requests and embedded pages of the box say about the program and the machine: user agent, its
/// cookie, device id. GUI thread. Each text is made once and holds until the process ends.
///
/// The device id stands for one network card of this machine: the first built-in wired one in the system's
/// order, else the first built-in wireless one, else any other. The choice is remembered in the settings with
/// the machine it was made on, and stays: cards may be added, unplugged, listed in another order or given
/// another address. Only on another machine (settings copied there), or once the settings are gone, is it
/// made again. A machine without any card remembers nothing.
class Q_DECL_EXPORT KxUserAgentUtil
{
public:
    KxUserAgentUtil() = delete;

    static QString getUserAgent();
    static QString getBase64UserAgent(); ///< URL-safe, with padding

    /// "zelua" with the base64 user agent, for every host below the service's domain by the settings
    /// ("userAgentCookieDomain"; one that leads nowhere when none is set). Not cached; ends in a year.
    static QNetworkCookie getUserAgentCookie();

    /// 32 lower-case hexadecimal digits; the digest of the empty text on a machine without a network card.
    static QString getHDID2();

    static QString getVersion(); ///< of the product; empty unless set
    /// Before the first getUserAgent(), which keeps the version that it finds.
    static void setVersion(const QString &version);

    /// Address of the service that the cookie is meant for, by the settings (top-level group "zelbox",
    /// "userAgentTargetUrl"); empty when none is set or it is no address with a host.
    static QString getUserAgentTargetUrl();
};

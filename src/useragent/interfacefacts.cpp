#include "useragent/interfacefacts.h"

#include "base/latin1.h"
#include "base/logging.h"
#include "base/posix/uniquefd.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkInterface>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <linux/ethtool.h>
#include <linux/sockios.h>
#include <linux/wireless.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace zel::useragent {

namespace {

constexpr QLatin1String SysfsNet = latin1("/sys/class/net");
constexpr size_t LongestAddress = 32; // of any link type

using posix::UniqueFd;

UniqueFd openSocket()
{
    UniqueFd socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const int error = errno; // the log's own set-up may change it
    if (!socket)
        qCWarning(lcUserAgent, "socket: %s", std::strerror(error));
    return socket;
}

// The kernel ends an overlong name by itself.
void setName(char (&field)[IFNAMSIZ], const QByteArray &name)
{
    std::memcpy(field, name.constData(), std::min<size_t>(IFNAMSIZ, size_t(name.size())));
}

bool isWireless(int socket, const QString &name)
{
    iwreq request{};
    setName(request.ifr_ifrn.ifrn_name, name.toLocal8Bit());
    // Drivers of newer cards no longer answer the question, but show where they belong.
    return ::ioctl(socket, SIOCGIWNAME, &request) == 0
        || QFileInfo::exists(SysfsNet + QLatin1Char('/') + name + QLatin1String("/phy80211"));
}

// Network managers give wireless cards a random address, bonds give all their members one; this one stays.
QString burntInAddress(int socket, const QString &name)
{
    struct
    {
        __u32 command = ETHTOOL_GPERMADDR;
        __u32 size = LongestAddress;
        char address[LongestAddress] = {};
    } answer;
    ifreq request{};
    setName(request.ifr_ifrn.ifrn_name, name.toLocal8Bit());
    request.ifr_data = reinterpret_cast<char *>(&answer);
    if (::ioctl(socket, SIOCETHTOOL, &request) != 0 || answer.size > LongestAddress)
        return {};
    const auto bytes = QByteArray::fromRawData(answer.address, int(answer.size));
    if (bytes.count('\0') == bytes.size())
        return {};
    return QString::fromLatin1(bytes.toHex(':').toUpper());
}

QByteArray firstLine(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readLine().trimmed() : QByteArray();
}

} // namespace

Attachment attachmentOf(const QString &sysfsNet, const QString &interface)
{
    const QString device =
        QFileInfo(sysfsNet + QLatin1Char('/') + interface + QLatin1String("/device")).canonicalFilePath();
    if (device.isEmpty())
        return Attachment::Software;
    // The nearest device on the way up that knows whether it can be unplugged decides.
    for (QString place = device; place.count(QLatin1Char('/')) > 1; place = QFileInfo(place).path()) {
        const QByteArray removable = firstLine(place + QLatin1String("/removable"));
        if (removable == "fixed")
            return Attachment::BuiltIn;
        const QString bus = QFileInfo(place + QLatin1String("/subsystem")).canonicalFilePath();
        if (removable == "removable" || bus.endsWith(QLatin1String("/usb")))
            return Attachment::Removable;
    }
    return Attachment::BuiltIn;
}

QVector<InterfaceFact> readInterfaces()
{
    const UniqueFd socket = openSocket();
    QVector<InterfaceFact> facts;
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &interface : interfaces) {
        InterfaceFact fact;
        fact.name = interface.humanReadableName();
        fact.index = interface.index();
        fact.loopback = interface.flags().testFlag(QNetworkInterface::IsLoopBack);
        fact.wireless = isWireless(socket.get(), interface.name());
        fact.attachment = attachmentOf(SysfsNet, interface.name());
        fact.address = burntInAddress(socket.get(), interface.name());
        if (fact.address.isEmpty())
            fact.address = interface.hardwareAddress();
        facts.append(fact);
    }
    return facts;
}

} // namespace zel::useragent

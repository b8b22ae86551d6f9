#include "useragent/deviceaddress.h"

#include "base/latin1.h"

#include <algorithm>
#include <tuple>

namespace zel::useragent {

namespace {

// Tunnels have no address, and some drivers report zeros until they are ready.
bool isAddress(const QString &text)
{
    return std::any_of(
        text.cbegin(), text.cend(), [](QChar c) { return c != QLatin1Char('0') && c != QLatin1Char(':'); });
}

bool isEligible(const InterfaceFact &interface)
{
    const QString name = interface.name.toLower();
    return !interface.loopback && !name.contains(latin1("vmware")) && !name.contains(latin1("virtual"))
        && isAddress(interface.address);
}

int rank(const InterfaceFact &interface)
{
    switch (interface.attachment) {
    case Attachment::BuiltIn:
        return interface.wireless ? 1 : 0;
    case Attachment::Removable:
        return 2;
    case Attachment::Software:
        break;
    }
    return 3;
}

} // namespace

QString chooseAddress(const QVector<InterfaceFact> &interfaces)
{
    const InterfaceFact *best = nullptr;
    const auto order = [](const InterfaceFact &one) { return std::make_tuple(rank(one), one.index); };
    for (const InterfaceFact &interface : interfaces) {
        if (isEligible(interface) && (!best || order(interface) < order(*best)))
            best = &interface;
    }
    return best ? best->address : QString();
}

QString deviceAddress(
    const QVector<InterfaceFact> &interfaces, const RememberedAddress &remembered, const QString &machine)
{
    if (!remembered.address.isEmpty() && remembered.machine == machine)
        return remembered.address;
    return chooseAddress(interfaces);
}

} // namespace zel::useragent

#pragma once

#include <QString>
#include <QVector>

/// Which hardware address stands for this machine. Pure functions on values, any thread.
namespace zel::useragent {

/// How an interface is joined to the machine.
enum class Attachment {
    BuiltIn,   ///< on the mainboard or in a slot
    Removable, ///< on USB or another bus that is unplugged in daily use, as a docking station's
    Software,  ///< bridge, tunnel, container end: no device behind it
};

struct InterfaceFact
{
    QString name;    ///< as people read it
    QString address; ///< "AA:BB:CC:DD:EE:FF", the one burnt in where there is one; empty: none
    int index = 0;   ///< the system's order
    bool loopback = false;
    bool wireless = false;
    Attachment attachment = Attachment::Software;
};

/// The choice of an earlier run.
struct RememberedAddress
{
    QString machine; ///< the machine it was made on
    QString address; ///< empty: none was made
};

/// Address of the first built-in wired interface by system order, else of the first built-in wireless one,
/// else of the first removable one, else of the first made by software. Loopback, interfaces named as a
/// virtual machine's, and those without an address do not count. Cables and links play no part. Empty: none.
QString chooseAddress(const QVector<InterfaceFact> &interfaces);

/// The remembered address as long as it was chosen on this machine, whatever interfaces have come or gone
/// since; else a fresh choice.
QString deviceAddress(
    const QVector<InterfaceFact> &interfaces, const RememberedAddress &remembered, const QString &machine);

} // namespace zel::useragent

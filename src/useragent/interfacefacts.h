#pragma once

#include "useragent/deviceaddress.h"

/// A look at the machine's network interfaces through the kernel. Any thread; some system calls for each
/// interface, nothing is sent.
namespace zel::useragent {

/// All interfaces in system order. When no socket can be opened the log says why, under "socket"; wireless
/// interfaces are then known by their driver alone, and a changed address is taken for the burnt-in one.
QVector<InterfaceFact> readInterfaces();

/// How the interface is attached, by the kernel's device tree below `sysfsNet` ("/sys/class/net").
Attachment attachmentOf(const QString &sysfsNet, const QString &interface);

} // namespace zel::useragent

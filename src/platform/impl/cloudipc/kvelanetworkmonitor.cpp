#include "kvelanetworkmonitor.h"

#include <QCoreApplication>
#include <QPointer>

KVelaNetworkMonitor *KVelaNetworkMonitor::instance()
{
    static QPointer<KVelaNetworkMonitor> monitor;
    if (!monitor)
        monitor = new KVelaNetworkMonitor(QCoreApplication::instance());
    return monitor;
}

void KVelaNetworkMonitor::setOnline(bool online)
{
    const State state = online ? State::Online : State::Offline;
    if (qExchange(m_state, state) == state)
        return;
    if (online)
        Q_EMIT velaOnline();
    else
        Q_EMIT velaOffline();
}

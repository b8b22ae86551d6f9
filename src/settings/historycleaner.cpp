#include "settings/historycleaner.h"

#include "kcloudsvrproxy.h"
#include "krecentfile.h"
#include "recent_types.h"

using zel::vela::DelRoamingRecordArg;
using zel::vela::DelRoamingRecordResult;

HistoryCleaner::HistoryCleaner(KCloudSvrProxy *cloud, QObject *parent) : QObject(parent), m_cloud(cloud)
{
    qRegisterMetaType<Outcome>();
    connect(
        RecentFileEventObject(), &KRecentFileEvents::historyCleared, this, &HistoryCleaner::onStoreCleared);
}

// The window may be closed while the service takes its time, but the user has said yes.
HistoryCleaner::~HistoryCleaner()
{
    if (m_asking.isWaiting())
        ClearRecentHistory(false);
}

// The service first: what it still has would come back into the store.
void HistoryCleaner::clear()
{
    if (std::exchange(m_busy, true))
        return;
    m_serviceKept = !m_cloud || !m_cloud->isConnected() || !m_cloud->isLogined();
    if (m_serviceKept)
        return ClearRecentHistory(false);
    DelRoamingRecordArg arg;
    arg.allRecords = true;
    m_asking = zel::ask<DelRoamingRecordResult>(
        m_cloud, "delRoamingRecord", arg, this, [this](const CloudReply<DelRoamingRecordResult> &reply) {
            m_serviceKept = !reply;
            ClearRecentHistory(!m_serviceKept);
        });
}

void HistoryCleaner::onStoreCleared(bool completely)
{
    if (!std::exchange(m_busy, false))
        return; // somebody else's
    Q_EMIT finished(!completely ? Outcome::DesktopListKept
            : m_serviceKept     ? Outcome::ServiceKept
                                : Outcome::Cleared);
}

#pragma once

#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/recycle/localtrash.h"
#include "service/methods/roaming/roamingmessages.h"
#include "service/methods/roaming/roamingmethods.h"
#include "service/methods/servicehooks.h"
#include "service/methods/transfers/transfermethods.h"

namespace zel::service {

/// The recent list, the drive and the transfers, put together and served. Main thread; lives as long as the
/// table of methods. Threads and the drive's database begin with the first use.
class CloudDocuments final
{
public:
    struct Places
    {
        QString drive;         ///< the local folder that is the drive
        QString driveDatabase; ///< its file; not the service's
    };
    static QString defaultDrive();         ///< "ZEL Cloud" in the user's home
    static QString defaultDriveDatabase(); ///< beside the service's database

    /// `database` is not opened yet. Fills the hooks that are about transfers and the recent list; where
    /// somebody tells messages, uses on other devices become messages. `subscriptions` may be null.
    CloudDocuments(const Places &places, CloudDatabase &database, MethodTable &methods, Pushes &pushes,
        ServiceHooks &hooks, const TransferSubscriptions *subscriptions, IdentitySource identity);
    ~CloudDocuments();

    /// Goes on with transfers that were begun, and begins to tell what others do in the drive. Once the
    /// database is open; costs a reading of the drive's folders, so it can wait for the first client.
    void start();

    const TransferRunner &transfers() const { return m_runner; }
    RoamingMethods &roaming() { return m_roamingMethods; }
    DriveEvents &events() { return m_events; }

private:
    void fillHooks(ServiceHooks &hooks);
    void connectParts(CloudDatabase &database);
    void keepMessages(const ServiceHooks &hooks);

    const Places m_places;
    bool m_started = false;
    RoamingTable m_roaming;
    RoamingMessages m_messages;
    TransferTable m_transfers;
    const DriveThread::Factory m_drives;
    DriveThread m_quick;
    DriveThread m_bulk;
    DriveThread m_looking; ///< for what others do, which may mean to read all folders
    DriveThreads m_local;
    TransferRunner m_runner;
    DriveEvents m_events;
    LocalTrash m_localTrash;
    const DriveContext m_context;
    RoamingMethods m_roamingMethods;
    TransferMethods m_transferMethods;
};

} // namespace zel::service

#pragma once

#include "recent_types.h"
#include "service/dispatch/methodtable.h"
#include "service/methods/identity.h"
#include "service/roaming/roamingtable.h"

#include <QObject>

namespace zel::service {

class DriveThread;
class Pushes;

/// Serves the recent list over all devices of a user. Every change is on disk before it is answered, and
/// pushed to all clients after the answer. Main thread; lives as long as the method table.
class RoamingMethods final : public QObject
{
    Q_OBJECT
public:
    /// `drive` gives the cloud files of records.
    RoamingMethods(RoamingTable &table, DriveThread &drive, Pushes &pushes, IdentitySource identity);

    void serve(MethodTable &methods);
    /// Records of cloud files that went away or came back are marked so.
    void markFiles(const QStringList &fileIds, bool deleted);
    void tellReload(); ///< the list is another one than before

Q_SIGNALS:
    /// Another device brought `item` to the list or changed it, and the user has not seen that.
    void arrivedFromElsewhere(const vela::RecentFileItem &item);
    /// Records were removed with the wish that their cloud files go to the recycle bin, and they did.
    void filesRemoved();

private:
    void add(const vela::AddRoamingRecordArg &request, Answer<vela::AddRoamingRecordResult> answer);
    void remove(const vela::DelRoamingRecordArg &request, Answer<vela::DelRoamingRecordResult> answer);
    void removeFiles(const QStringList &fileIds, vela::DelRoamingRecordResult result,
        Answer<vela::DelRoamingRecordResult> answer);
    void recentFiles(const vela::GetRecentFilesArg &request, Answer<vela::GetRecentFilesResult> answer);
    void fileInfos(
        const vela::GetRecentFileInfoListArg &request, Answer<vela::GetRecentFileInfoListResult> answer);
    void noteList(const vela::NotifyRecentFilesArg &request, Answer<vela::NotifyRecentFilesResult> answer);
    void setRead(const vela::SetCloudItemReadArg &request, Answer<vela::SetCloudItemReadResult> answer);
    void defaultBox(const vela::GetCurrentDefaultRoamingBoxArg &request,
        Answer<vela::GetCurrentDefaultRoamingBoxResult> answer);
    void groups(const vela::GetRoamingGroupArg &request, Answer<vela::GetRoamingGroupResult> answer);
    void sync(const QStringList &, Answer<vela::RequestSyncRecentResult> answer);
    vela::RoamingGroupItem ownBox();
    void tell(const Identity &who, const RoamingChange &change, const std::string &clientName = {});

    void announce(const Identity &who, const RoamingChange &change);

    RoamingTable &m_table;
    DriveThread &m_drive;
    Pushes &m_pushes;
    const IdentitySource m_identity;
};

} // namespace zel::service

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
    /// Takes records off the list. `answer` gets the ids of those that were there, before clients are told of
    /// it; it is not called after an error.
    wire::ServiceError removeRecords(
        const RoamingSelection &selection, const std::function<void(const QStringList &)> &answer);

Q_SIGNALS:
    /// A change is on disk, answered and told to the clients.
    void told();
    /// Records were removed with the wish that their cloud files go to the recycle bin, and they did.
    void filesRemoved();

private:
    void add(const vela::AddRoamingRecordArg &request, Answer<vela::AddRoamingRecordResult> answer);
    void remove(const vela::DelRoamingRecordArg &request, Answer<vela::DelRoamingRecordResult> answer);
    void putIntoBin(const QStringList &fileIds, vela::DelRoamingRecordResult result,
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
    void pushChange(const Identity &who, const RoamingChange &change, const std::string &clientName);

    RoamingTable &m_table;
    DriveThread &m_drive;
    Pushes &m_pushes;
    const IdentitySource m_identity;
};

} // namespace zel::service

#pragma once

#include "service/dispatch/methodtable.h"
#include "service/dispatch/pushes.h"
#include "service/dispatch/transfersubscriptions.h"
#include "service/methods/account/accountstate.h"
#include "service/methods/servicehooks.h"

#include "common_types.h"

#include <QMap>
#include <QThreadPool>
#include <functional>
#include <optional>

namespace zel::service {

/// What the methods without records of their own need.
struct EnvelopeParts
{
    AccountState &account;
    ServiceTables &tables;
    Pushes &pushes;
    ServiceHooks &hooks;
    TransferSubscriptions &subscriptions;
    /// Marks a message as kept back until its document is up to date, or no longer.
    std::function<wire::ServiceError(const QString &messageId, bool waits)> setMessageWaits;
};

/// The methods of the object "KVelaIpcCallObj", asked for through velaIpcCall. Main thread.
///
/// Every method takes "userID"; without it the signed-in user is meant. Flags are "true" or "false"; several
/// ids or folders are joined with "|" and may not hold it. An answer with state 0 holds what the table says;
/// any other state is a wire::ServiceError, with "errResult" and "errString" in resultMap.
///
///   method                       takes                  gives in resultMap (the first also in resultString)
///   reloadMessageConfig          -                      -; settings are read when they are used
///   setMsgWaitForUpdate          msgId, waitForUpdate   -
///   reportCloudDoc               file                   -
///   getCloudFileCacheSize        -                      size: bytes of local copies
///   getCloudDiskEntryVisible     -                      visible: flag, whether file managers list the drive
///   setCloudDiskEntryVisible     visible                visible
///   getTransBubbleFrequncy       -                      frequency: "0" each transfer (at first),
///                                                       "1" once a day, "2" never
///   setTransBubbleFrequncy       frequency              frequency
///   getRealTimeUploadStateAsync  -                      enable: flag, at first "false"
///   setRealTimeUploadState       enable                 enable
///   getFolderAutoUpdateType      folderList             each folder: "1" goes up by itself, "0" not
///   updateAutoUpdateFolders      folderList: all        -; resultList: the folders; pushes the change
///   addSyncFolder                folderName, callFrom   folderName; resultList: all sync folders
///   getZelBoxAutoRunStatus       -                      autoRun: flag, whether the desktop starts the box
///   subscribeTransNotify         taskIDs, subscribe     -; no ids: all; holds for the connection
///   cancelTask                   taskIDs                -
///   delRoamingFileRecord         roamingIds, fileIds    removedCount; resultList: roaming ids that are off
///
/// Folders and switches are kept here; what acts on them asks for them.
class EnvelopeMethods final
{
public:
    explicit EnvelopeMethods(EnvelopeParts parts);
    ~EnvelopeMethods();               ///< waits for work on other threads
    void serve(MethodTable &methods); ///< outlives the table's use

private:
    using Values = QMap<QString, QString>;
    using Reply = Answer<vela::VelaIpcResult>;
    using Handler = void (EnvelopeMethods::*)(const Values &values, Reply reply);

    void call(const vela::VelaIpcArg &request, Reply reply);
    void answerApart(Reply reply, std::function<std::optional<vela::VelaIpcResult>()> work);
    bool callSetting(const QString &method, const Values &values, Reply &reply);
    static Handler handlerOf(const QString &method);

    void reloadMessageConfig(const Values &values, Reply reply);
    void setMsgWaitForUpdate(const Values &values, Reply reply);
    void reportCloudDoc(const Values &values, Reply reply);
    void getCloudFileCacheSize(const Values &values, Reply reply);
    void getCloudDiskEntryVisible(const Values &values, Reply reply);
    void setCloudDiskEntryVisible(const Values &values, Reply reply);
    void getFolderAutoUpdateType(const Values &values, Reply reply);
    void updateAutoUpdateFolders(const Values &values, Reply reply);
    void addSyncFolder(const Values &values, Reply reply);
    void getZelBoxAutoRunStatus(const Values &values, Reply reply);
    void subscribeTransNotify(const Values &values, Reply reply);
    void delRoamingFileRecord(const Values &values, Reply reply);
    void cancelTask(const Values &values, Reply reply);

    EnvelopeParts m_parts;
    QObject m_context; ///< goes after the pool, so that what the pool hands over has a receiver
    QThreadPool m_pool;
};

} // namespace zel::service

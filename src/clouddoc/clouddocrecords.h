#pragma once

#include "clouddoc/clouddocorder.h"
#include "clouddoc/cloudtransfer.h"

#include "common_types.h"
#include "drive_types.h"
#include "notify_types.h"
#include "recycle_types.h"
#include "transfer_types.h"

#include <QStringList>
#include <QVariant>

/// Between the page's values and the records of the link: the only place here that names their fields. Pure
/// functions; any thread.

/// A page of a folder's children.
struct CloudPage
{
    CloudDocument folder;
    CloudDocuments documents;
    int total = 0; ///< over all pages
    bool more = false;
    qint64 version = 0; ///< for the next page
};

/// What became of an operation on several items; each of them is in one of the lists, or counted as failed.
struct CloudOutcome
{
    CloudDocuments documents; ///< where they are now
    QStringList removed;      ///< ids
    QStringList recycled;     ///< ids in the recycle bin, one for each of `removed`
    CloudTransfers transfers;
    CloudConflicts conflicts;
    int failed = 0;
    QString firstFailed;                       ///< id, or path of an upload
    CloudProblem problem = CloudProblem::None; ///< of that one
    QString detail;
    int leftOut = 0; ///< entries of folders that lack in the copies, as their names cannot be stored
};

/// What the service tells unasked.
struct CloudNews
{
    CloudDocuments present; ///< came or changed, as they are now
    QStringList gone;       ///< ids
    QStringList unlisted;   ///< ids of folders in which more changed than is told one by one
    CloudTransfers transfers;
};

namespace zel::clouddoc {

CloudProblem problemOf(int state); ///< of an answer
CloudTransfer::State transferStateOf(int number);

zel::vela::GetInfoListArg listRequest(
    const QString &folderId, int offset, int count, zel::ListSort sort, qint64 version);
zel::vela::GetItemInfoListV5Arg pathRequest(const QString &id);
zel::vela::CreateFolderArg createFolderRequest(const QString &parentId, const QString &name);
zel::vela::RenameArg renameRequest(const QString &id, const QString &name);
zel::vela::CloudItemsMoveToArg moveRequest(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice);
zel::vela::CloudItemsCopyToArg copyRequest(
    const QStringList &ids, const QString &folderId, CloudNameChoice choice);
zel::vela::BatchRemoveArg removeRequest(const QStringList &ids);
zel::vela::RecoverRecyclesArg recoverRequest(const QStringList &recycleIds);
zel::vela::UploadItemsArg uploadRequest(
    const QStringList &paths, const QString &folderId, CloudNameChoice choice);
zel::vela::DownloadItemsArg downloadRequest(
    const QStringList &ids, const QString &targetFolder, CloudNameChoice choice);
zel::vela::TransferInfoListArg transfersRequest(int count);
enum class TransferStep : int { Cancel = 3, TryAgain = 4, TakeOff = 5 };
zel::vela::UpdateTransferInfoArg transferStepRequest(const QStringList &ids, TransferStep step);

CloudDocument documentOf(const zel::vela::CloudItem &item);
CloudPage pageOf(const zel::vela::GetInfoListResult &result);
CloudCrumbs crumbsOf(const zel::vela::GetItemInfoListV5Result &result); ///< empty: it is not there
CloudOutcome outcomeOf(const zel::vela::CloudItemsMoveToResult &result);
CloudOutcome outcomeOf(const zel::vela::CloudItemsCopyToResult &result);
CloudOutcome outcomeOf(const zel::vela::BatchRemoveResult &result);
CloudOutcome outcomeOf(const zel::vela::RecoverRecyclesResult &result);
/// `paths` as they were asked for: the answer names those that conflict by their last part only.
CloudOutcome outcomeOf(const zel::vela::UploadItemsResult &result, const QStringList &paths);
CloudOutcome outcomeOf(const zel::vela::DownloadItemsResult &result);
CloudOutcome outcomeOf(const zel::vela::UpdateTransferInfoResult &result); ///< `removed`: taken off the list
CloudTransfers transfersOf(const zel::vela::TransferInfoListResult &result);

CloudNews newsOf(const zel::vela::NotifyFileCreationArg &push);
/// Of a push that has no signal of its own; empty for one that does not matter here.
CloudNews newsOf(const QString &method, const QVariant &record);

} // namespace zel::clouddoc

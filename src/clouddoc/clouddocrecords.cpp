#include "clouddoc/clouddocrecords.h"

#include "cloud/wire/serviceerror.h"
#include "cloud/wire/texts.h"

// Requests; what is read from answers and pushes is in clouddocanswers.cpp.

using namespace zel::vela;

namespace zel::clouddoc {
namespace {

using wire::fromQt;

const auto SourcePage = "clouddoc";

CloudItemId idOf(const QString &id)
{
    CloudItemId item;
    item.id = fromQt(id);
    return item;
}

std::vector<CloudItemId> idsOf(const QStringList &ids)
{
    std::vector<CloudItemId> items;
    items.reserve(size_t(ids.size()));
    for (const QString &id : ids)
        items.push_back(idOf(id));
    return items;
}

const char *orderName(zel::ListSort::Key key)
{
    switch (key) {
    case zel::ListSort::Key::Name:
        return "name";
    case zel::ListSort::Key::Time:
        return "mtime";
    case zel::ListSort::Key::Size:
        return "size";
    case zel::ListSort::Key::Type:
        return "type";
    }
    return "name";
}

template <class Request>
Request placeRequest(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    Request request;
    request.items = idsOf(ids);
    request.targetParentId = fromQt(folderId);
    request.conflictPolicy = int32_t(choice);
    return request;
}

} // namespace

CloudProblem problemOf(int state)
{
    using wire::ServiceError;
    switch (ServiceError(state)) {
    case ServiceError::None:
        return CloudProblem::None;
    case ServiceError::InvalidArgument:
        return CloudProblem::InvalidName;
    case ServiceError::NotFound:
        return CloudProblem::NotFound;
    case ServiceError::Exists:
        return CloudProblem::Exists;
    case ServiceError::Denied:
        return CloudProblem::Denied;
    case ServiceError::DiskFull:
        return CloudProblem::DiskFull;
    case ServiceError::InputOutput:
        return CloudProblem::Io;
    case ServiceError::Offline:
        return CloudProblem::Offline;
    case ServiceError::Cancelled:
        return CloudProblem::Cancelled;
    default:
        return CloudProblem::Other;
    }
}

// The pages come in the order of the list, so that each is one range of rows.
GetInfoListArg listRequest(const QString &folderId, int offset, int count, zel::ListSort sort, qint64 version)
{
    GetInfoListArg request;
    request.parentId = fromQt(folderId);
    request.offset = offset;
    request.count = count;
    request.orderBy = orderName(sort.key);
    request.descending = sort.order == Qt::DescendingOrder;
    request.foldersFirst = true;
    request.showHidden = true; // the model hides them, and knows that their names are taken
    if (version != 0)
        request.extraParam["listVersion"] = std::to_string(version);
    return request;
}

GetItemInfoListV5Arg pathRequest(const QString &id)
{
    GetItemInfoListV5Arg request;
    request.items = idsOf({id});
    request.withPath = true;
    return request;
}

CreateFolderArg createFolderRequest(const QString &parentId, const QString &name)
{
    CreateFolderArg request;
    request.parentId = fromQt(parentId);
    request.name = fromQt(name);
    return request;
}

RenameArg renameRequest(const QString &id, const QString &name)
{
    RenameArg request;
    request.item = idOf(id);
    request.newName = fromQt(name);
    return request;
}

CloudItemsMoveToArg moveRequest(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    return placeRequest<CloudItemsMoveToArg>(ids, folderId, choice);
}

CloudItemsCopyToArg copyRequest(const QStringList &ids, const QString &folderId, CloudNameChoice choice)
{
    return placeRequest<CloudItemsCopyToArg>(ids, folderId, choice);
}

BatchRemoveArg removeRequest(const QStringList &ids)
{
    BatchRemoveArg request;
    request.items = idsOf(ids);
    return request;
}

RecoverRecyclesArg recoverRequest(const QStringList &recycleIds)
{
    RecoverRecyclesArg request;
    request.recycleIds = fromQt(recycleIds);
    request.remakeParents = true;
    request.conflictPolicy = int32_t(CloudNameChoice::KeepBoth); // nobody asks while undoing
    return request;
}

UploadItemsArg uploadRequest(const QStringList &paths, const QString &folderId, CloudNameChoice choice)
{
    UploadItemsArg request;
    request.localPaths = fromQt(paths);
    request.parentId = fromQt(folderId);
    request.conflictPolicy = int32_t(choice);
    request.includeHidden = true; // of a folder all that is in it
    request.sourcePage = SourcePage;
    return request;
}

DownloadItemsArg downloadRequest(const QStringList &ids, const QString &targetFolder, CloudNameChoice choice)
{
    DownloadItemsArg request;
    request.items = idsOf(ids);
    request.targetDir = fromQt(targetFolder);
    request.conflictPolicy = int32_t(choice);
    request.sourcePage = SourcePage;
    return request;
}

TransferInfoListArg transfersRequest(int count)
{
    TransferInfoListArg request;
    request.count = count;
    return request;
}

UpdateTransferInfoArg transferStepRequest(const QStringList &ids, TransferStep step)
{
    UpdateTransferInfoArg request;
    request.taskIds = fromQt(ids);
    request.operation = int32_t(step);
    return request;
}

} // namespace zel::clouddoc

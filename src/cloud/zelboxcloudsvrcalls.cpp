#include "cloud/zelboxcloudsvr.h"
#include "common_types.h"
#include "kvelautil.h"
#include "search_types.h"
#include "transfer_types.h"

// The typed operations of the facade: one request each.

namespace {

template <class Record> QGenericArgument argument(const char *name, const Record &record)
{
    return {name, &record};
}

} // namespace

QString ZelBoxCloudSvr::cloudDocSearch(
    const zel::vela::CloudDocSearchArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(QStringLiteral("cloudDocSearch"), argument("CloudDocSearchArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::cloudDocContentSearch(
    const zel::vela::CloudDocContentSearchArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(
        QStringLiteral("cloudDocContentSearch"), argument("CloudDocContentSearchArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::getContentSearchStatus(
    const zel::vela::GetContentSearchStatusArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(
        QStringLiteral("getContentSearchStatus"), argument("GetContentSearchStatusArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::changeContentSearchStatus(
    const zel::vela::ChangeContentSearchStatusArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(QStringLiteral("changeContentSearchStatus"),
        argument("ChangeContentSearchStatusArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::batchUploadFileListToAnyExistedPath(
    const zel::vela::BatchUploadFilesToCloudArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(QStringLiteral("batchUploadFileListToAnyExistedPath"),
        argument("BatchUploadFilesToCloudArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::folderUpload(
    const zel::vela::UploadFolderToCloudArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(
        QStringLiteral("folderUpload"), argument("UploadFolderToCloudArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::downloadFileFromCloud(
    const zel::vela::DownloadCloudFileArg &arg, QObject *receiver, const QString &slot)
{
    return asynCallEx(
        QStringLiteral("downloadFileFromCloud"), argument("DownloadCloudFileArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::cancelTask(const QStringList &taskIDs, QObject *receiver, const QString &slot)
{
    const zel::vela::VelaIpcArg arg = KVelaUtil::ipcArg(
        QStringLiteral("cancelTask"), {{QStringLiteral("taskIDs"), KVelaUtil::joinIds(taskIDs)}});
    return asynCallEx(QStringLiteral("velaIpcCall"), argument("VelaIpcArg", arg), receiver, slot);
}

QString ZelBoxCloudSvr::redirect(const QString &url)
{
    return asyncCall(QStringLiteral("redirect"), {url}, nullptr, QString());
}

QString ZelBoxCloudSvr::showUpgradeVip(const QString &query)
{
    return asyncCall(QStringLiteral("showUpgradeVip"), {query}, nullptr, QString());
}

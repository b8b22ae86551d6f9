#pragma once

#include "notify_types.h"
#include "service/methods/drivefixture.h"
#include "service/methods/transfers/transfermethods.h"

#include <unistd.h>

inline constexpr qint64 Large = qint64(16) << 30;

/// The same with transfers. A source of that size takes longer than any test waits.
class TransferFixture : public DriveFixture
{
public:
    zel::service::TransferTable table{database, 3};
    std::unique_ptr<zel::service::TransferRunner> runner;
    std::unique_ptr<zel::service::TransferMethods> transfers;

    TransferFixture()
    {
        QDir().mkpath(root());
        startRunner();
    }
    void startRunner()
    {
        transfers.reset();
        runner = std::make_unique<zel::service::TransferRunner>(table, drives);
        transfers = std::make_unique<zel::service::TransferMethods>(context, table, *runner, nullptr);
        transfers->serve(client.methods);
        runner->start();
    }
    QString makeLarge(const QString &path) const
    {
        write(path, {});
        if (::truncate(QFile::encodeName(path).constData(), Large) != 0)
            qFatal("no sparse files here");
        return path;
    }
    zel::service::TransferState stateOf(const std::string &id)
    {
        const auto task = table.find(QString::fromStdString(id));
        return task ? task->state() : zel::service::TransferState(0);
    }
    bool waitFor(const std::string &id, zel::service::TransferState state)
    {
        return QTest::qWaitFor([&] { return stateOf(id) == state; }, 20000);
    }
    bool waitForProgress(const std::string &id, size_t pushes = 1)
    {
        return QTest::qWaitFor(
            [&] {
                const auto told = client.pushed<zel::vela::NotifyFileTransferArg>("notifyFileTransfer");
                return size_t(std::count_if(told.begin(), told.end(),
                           [&](const zel::vela::NotifyFileTransferArg &push) {
                               return push.taskId == id && push.doneSize > 0 && push.transferState == 2;
                           }))
                    >= pushes;
            },
            20000);
    }
    std::string upload(const QString &path, int policy = 0, int priority = 0)
    {
        return client
            .call<zel::vela::UploadFileResult>("uploadFile",
                filled(&zel::vela::UploadFileArg::filePath, path.toStdString(),
                    &zel::vela::UploadFileArg::conflictPolicy, policy, &zel::vela::UploadFileArg::priority,
                    priority))
            .taskId;
    }
    std::string uploadFolder(const QString &path, int policy = 0)
    {
        auto request = filled(&zel::vela::UploadFolderToCloudArg::folderPath, path.toStdString(),
            &zel::vela::UploadFolderToCloudArg::conflictPolicy, policy);
        request.excludedSuffixes = {"tmp"};
        return client.call<zel::vela::VelaIpcResult>("folderUpload", request).resultList.at(0);
    }
    std::string download(const zel::vela::CloudItemId &item, const QString &target, int policy = 0)
    {
        return client
            .call<zel::vela::DownloadCloudFileResult>("downloadFileFromCloud",
                filled(&zel::vela::DownloadCloudFileArg::item, item,
                    &zel::vela::DownloadCloudFileArg::targetPath, target.toStdString(),
                    &zel::vela::DownloadCloudFileArg::conflictPolicy, policy))
            .taskId;
    }
    /// Pauses, continues, cancels and so on, by the service's numbers.
    zel::vela::UpdateTransferInfoResult update(const std::vector<std::string> &ids, int operation)
    {
        return client.call<zel::vela::UpdateTransferInfoResult>("updateTransferInfo",
            filled(&zel::vela::UpdateTransferInfoArg::taskIds, ids,
                &zel::vela::UpdateTransferInfoArg::operation, operation));
    }
    std::string errorOf(const std::string &id)
    {
        return table.find(QString::fromStdString(id))->info.errorInfo.errResult;
    }
};

#include "transferfixture.h"

using namespace zel;
using namespace zel::vela;
using service::TransferState;

class TestTransferList final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void refusedAtOnce_data()
    {
        const auto row = zeltest::table<QString, QString, int>("path", "name", "error");
        using Error = wire::ServiceError;

        row("taken", "a.txt", "", Error::Exists);
        row("not there", "none.txt", "", Error::NotFound);
        row("a folder as a file", ".", "n", Error::NotFound);
        row("out of the folder", "a.txt", "../a.txt", Error::InvalidArgument);
        row("the drive's own name", "a.txt", ".zel-trash", Error::InvalidArgument);
    }

    void refusedAtOnce()
    {
        const auto [path, name] = zeltest::row<QString, QString>();
        TransferFixture fixture;
        fixture.fill({"a.txt=drive"_s});
        DriveFixture::write(fixture.local("l/a.txt"), "local");
        const auto result = fixture.client.call<UploadFileResult>("uploadFile",
            filled(&UploadFileArg::filePath, QString(fixture.local("l/") + path).toStdString(),
                &UploadFileArg::newName, name.toStdString()));
        QTEST(result.state, "error");
        QVERIFY(result.taskId.empty());
        if (result.state == int(wire::ServiceError::Exists))
            QCOMPARE(result.conflict.suggestedName, std::string("a (2).txt"));
        QCOMPARE(fixture.client.call<TransferInfoListResult>("transferInfoList", TransferInfoListArg()).total,
            int64_t(0));
    }

    void twoAtOnceUrgentFirst()
    {
        TransferFixture fixture;
        const QString large = fixture.makeLarge(fixture.local("large"));
        const std::string first = fixture.upload(large, 1);
        const std::string second = fixture.upload(large, 1);
        DriveFixture::write(fixture.local("a"), "a");
        DriveFixture::write(fixture.local("b"), "b");
        const std::string usual = fixture.upload(fixture.local("a"));
        const std::string urgent = fixture.upload(fixture.local("b"), 0, 5);
        QVERIFY(fixture.waitForProgress(first));
        QVERIFY(fixture.waitForProgress(second));
        QCOMPARE(fixture.runner->running().size(), 2);
        QCOMPARE(fixture.stateOf(usual), TransferState::Waiting);
        QCOMPARE(fixture.transfers->runningTasks(), 4);
        fixture.runner->cancel(QString::fromStdString(first));
        QVERIFY(fixture.waitFor(usual, TransferState::Done));
        QVERIFY(fixture.waitFor(urgent, TransferState::Done));
        std::vector<std::string> done;
        for (const auto &push : fixture.client.pushed<NotifyFileTransferArg>("notifyFileTransfer"))
            if (push.transferState == 4)
                done.push_back(push.taskId);
        QCOMPARE(done, (std::vector<std::string>{urgent, usual}));
        fixture.runner->cancel(QString::fromStdString(second));
        QVERIFY(fixture.waitFor(second, TransferState::Cancelled));
    }

    void progressIsNotAFlood()
    {
        TransferFixture fixture;
        QElapsedTimer watch;
        watch.start();
        const std::string id = fixture.upload(fixture.makeLarge(fixture.local("large")));
        QVERIFY(fixture.waitForProgress(id, 3));
        const qint64 elapsed = watch.elapsed();
        size_t told = 0;
        qint64 last = -1;
        for (const auto &push : fixture.client.pushed<NotifyFileTransferArg>("notifyFileTransfer")) {
            told += push.doneSize > 0;
            QVERIFY(push.doneSize >= last);
            last = push.doneSize;
        }
        QVERIFY2(told <= size_t(elapsed / service::TransferMonitor::IntervalMs) + 1,
            qPrintable(QString::number(told)));
        const auto info =
            fixture.client.call<TransferInfoListResult>("transferInfoList", TransferInfoListArg());
        QVERIFY(info.tasks.at(0).doneSize >= last);
        QVERIFY(info.uploadSpeed > 0);
        fixture.runner->cancel(QString::fromStdString(id));
        QVERIFY(fixture.waitFor(id, TransferState::Cancelled));
    }

    void transferList()
    {
        TransferFixture fixture;
        DriveFixture::write(fixture.local("a.txt"), "a");
        const std::string up = fixture.upload(fixture.local("a.txt"));
        QVERIFY(fixture.waitFor(up, TransferState::Done));
        const std::string down = fixture.download(fixture.idOf("a.txt"), fixture.local("l/b.txt"));
        QVERIFY(fixture.waitFor(down, TransferState::Done));
        TransferInfoListArg request;
        auto list = fixture.client.call<TransferInfoListResult>("transferInfoList", request);
        QCOMPARE(list.total, int64_t(2));
        QCOMPARE(list.doneCount, 2);
        QCOMPARE(list.tasks.at(0).taskId, down);
        request.transferType = 1;
        request.count = 1;
        list = fixture.client.call<TransferInfoListResult>("transferInfoList", request);
        QCOMPARE(list.tasks.at(0).taskId, up);
        QVERIFY(!list.hasMore);
        const auto unread = [&] {
            return fixture.client
                .call<GetTransferUnreadCountResult>("getTransferUnreadCount", GetTransferUnreadCountArg())
                .unreadCount;
        };
        QCOMPARE(unread(), 2);
        auto update = filled(&UpdateTransferInfoArg::allTasks, true, &UpdateTransferInfoArg::operation, 6);
        QCOMPARE(fixture.client.call<UpdateTransferInfoResult>("updateTransferInfo", update).tasks.size(),
            size_t(2));
        QCOMPARE(unread(), 0);
        update.operation = 5;
        update.transferType = 2;
        QCOMPARE(fixture.client.call<UpdateTransferInfoResult>("updateTransferInfo", update).removedTaskIds,
            std::vector<std::string>{down});
        update.operation = 9;
        QCOMPARE(fixture.client.call<UpdateTransferInfoResult>("updateTransferInfo", update).state,
            int(wire::ServiceError::InvalidArgument));
    }

    void olderTasksAreForgotten()
    {
        TransferFixture fixture; // keeps three that have ended
        service::TransferTasks tasks(6);
        for (size_t i = 0; i < tasks.size(); ++i) {
            tasks[i].info.name = std::to_string(i);
            tasks[i].info.transferState = int(i == 0 ? TransferState::Paused : TransferState::Done);
        }
        QCOMPARE(fixture.table.add(fixture.me.userId, tasks), wire::ServiceError::None);
        service::TransferTasks left;
        QCOMPARE(fixture.table.all(fixture.me.userId, left), wire::ServiceError::None);
        QString names;
        for (const auto &task : left)
            names += QString::fromStdString(task.info.name);
        QCOMPARE(names, "5430"_s);
    }

    void takenOffWhilePaused()
    {
        TransferFixture fixture;
        const int32_t call = fixture.client.send("uploadFile",
            filled(&UploadFileArg::filePath, fixture.makeLarge(fixture.local("large")).toStdString(),
                &UploadFileArg::waitUntilDone, true));
        QTRY_COMPARE(fixture.runner->running().size(), 1);
        const QString id = fixture.runner->running().at(0);
        fixture.runner->pause(id);
        QVERIFY(fixture.waitFor(id.toStdString(), TransferState::Paused));
        const std::vector<std::string> ids{id.toStdString()};
        QCOMPARE(fixture.update(ids, 5).removedTaskIds, ids);
        QCOMPARE(fixture.client.answer<UploadFileResult>(call).state, int(wire::ServiceError::Cancelled));
        QVERIFY(!fixture.table.find(id));
    }

    void manyAtOnce()
    {
        TransferFixture fixture;
        service::TransferTasks tasks(5000);
        for (auto &task : tasks)
            task.info.transferState = int(TransferState::Paused);
        QCOMPARE(fixture.table.add(fixture.me.userId, tasks), wire::ServiceError::None);
        std::vector<std::string> ids{"nobody's"};
        for (const auto &task : tasks)
            ids.push_back(task.info.taskId);
        UploadItemsArg tooMany;
        tooMany.localPaths.assign(size_t(service::MostPaths) + 1, "/nowhere");
        QCOMPARE(fixture.client.call<UploadItemsResult>("uploadItems", tooMany).state,
            int(wire::ServiceError::TooLarge));
        for (const int operation : {7, 3, 5}) { // priority, cancel, take off
            const auto result = fixture.update(ids, operation);
            QCOMPARE(result.tasks.size() + result.removedTaskIds.size(), tasks.size());
            QCOMPARE(result.failedItems.size(), size_t(1));
        }
        service::TransferTasks left;
        QCOMPARE(fixture.table.all(fixture.me.userId, left), wire::ServiceError::None);
        QVERIFY(left.empty());
    }

    void refusedPaths_data()
    {
        // path: of an upload the source, of a download the target
        const auto row = zeltest::table<bool, QString, QString>("up", "path", "error");
        row("up into itself", true, "Drive/d", "denied");
        row("up into a folder below, by a link", true, "link", "denied");
        row("up, null", true, "a.txt"_s + QChar(QChar::Null), "invalidArgument");
        row("up beside", true, "other", "");
        row("down into itself", false, "Drive/d", "denied");
        row("down into a new folder below", false, "link/d/new/one", "denied");
        row("down, null", false, "l"_s + QChar(QChar::Null), "invalidArgument");
        row("down beside", false, "Drive/dd", "");
    }

    void refusedPaths()
    {
        const auto [up, path] = zeltest::row<bool, QString>();
        TransferFixture fixture;
        fixture.fill({"d/e/f.txt"_s});
        QVERIFY(QDir().mkpath(fixture.local("other")));
        QVERIFY(QFile::link(fixture.root(), fixture.local("link")));
        const std::string local = fixture.place.filePath(path).toStdString();
        std::string found;
        if (up) {
            UploadItemsArg request;
            request.localPaths = {local};
            request.parentId = fixture.idOf("d/e").id;
            const auto result = fixture.client.call<UploadItemsResult>("uploadItems", request);
            found = result.tasks.empty() ? result.failedItems.at(local).errResult : std::string();
        } else {
            DownloadItemsArg request;
            request.items = {fixture.idOf("d")};
            request.targetDir = local;
            const auto result = fixture.client.call<DownloadItemsResult>("downloadItems", request);
            found = result.failedItems.empty() ? std::string() : result.failedItems.begin()->second.errResult;
        }
        QTEST(QString::fromStdString(found), "error");
    }
};

QTEST_GUILESS_MAIN(TestTransferList)
#include "tst_transferlist.moc"

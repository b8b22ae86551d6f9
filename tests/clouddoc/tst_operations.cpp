#include "logicfixture.h"

#include <QSignalSpy>

using namespace zel::vela;
using Operation = CloudOperation;

static constexpr int DeniedState = 5;

/// What the user does, and how each request can end.
class TestCloudDocOperations : public LogicFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }
    void operationsEndOnce_data();
    void operationsEndOnce();
    void whatIsDoneInPart();
    void removalsOverlap();
    void takenNamesAreAsked();
};

void TestCloudDocOperations::operationsEndOnce_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QString>("end");
    struct Way
    {
        const char *name;
        const char *end;
    };
    const Way ways[] = {{"done", "done"}, {"refused", "failed"}, {"no answer", "failed"},
        {"connection lost", "failed"}, {"proxy gone", "failed"}};
    for (int operation = 0; operation <= int(Operation::Transfer); ++operation)
        for (const Way &way : ways)
            QTest::addRow("%d %s", operation, way.name) << operation << text(way.end);
}

void TestCloudDocOperations::operationsEndOnce()
{
    QFETCH(int, operation);
    QFETCH(QString, end);
    const QString way = text(QTest::currentDataTag()).section(QLatin1Char(' '), 1);
    openRoot({text("a"), text("f/")});
    if (Operation(operation) == Operation::UndoTrash) {
        logic().trash({text("a")});
        BatchRemoveResult removed;
        removed.removedIds = {"a"};
        removed.extraParam["a"] = "bin1";
        QVERIFY(cloud().answer("batchRemove", removed));
        QVERIFY(logic().canUndoTrash());
    }
    QSignalSpy done(&logic(), &CloudDocLogic::operationDone);
    QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
    const auto answer = [&](const char *method, auto result) {
        if (way == QLatin1String("connection lost"))
            cloud().disconnectNow();
        if (way == QLatin1String("proxy gone"))
            m_cloud.reset();
        else if (way == QLatin1String("refused"))
            QVERIFY(cloud().refuse(method, result, DeniedState));
        else
            QVERIFY(cloud().answer(method, result, way == QLatin1String("done")));
    };
    const auto run = [&](Operation what) {
        switch (what) {
        case Operation::CreateFolder:
            logic().createFolder(text("new"));
            return answer("createFolder", CreateFolderResult());
        case Operation::Rename:
            logic().rename(text("a"), text("b"));
            return answer("rename", RenameResult());
        case Operation::Move:
            logic().move({text("a")}, text("f"));
            return answer("cloudItemsMoveTo", CloudItemsMoveToResult());
        case Operation::Copy:
            logic().copy({text("a")}, text("f"));
            return answer("cloudItemsCopyTo", CloudItemsCopyToResult());
        case Operation::Trash:
            logic().trash({text("a")});
            return answer("batchRemove", BatchRemoveResult());
        case Operation::UndoTrash:
            logic().undoTrash();
            return answer("recoverRecycles", RecoverRecyclesResult());
        case Operation::Upload:
            logic().upload({text("/tmp/a")});
            return answer("uploadItems", UploadItemsResult());
        case Operation::Download:
            logic().download({text("a")}, text("/tmp"));
            return answer("downloadItems", DownloadItemsResult());
        case Operation::Transfer:
            logic().cancelTransfers({text("t")});
            return answer("updateTransferInfo", UpdateTransferInfoResult());
        }
    };
    run(Operation(operation));
    QTRY_COMPARE(done.count() + failed.count(), 1);
    QCOMPARE(done.count(), int(end == QLatin1String("done")));
    if (way == QLatin1String("refused"))
        QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Denied);
    else if (end == QLatin1String("failed"))
        QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::NotReached);
    const bool undo = Operation(operation) == Operation::UndoTrash;
    QCOMPARE(
        logic().canUndoTrash(), undo && end == QLatin1String("failed") && way != QLatin1String("refused"));
}

void TestCloudDocOperations::whatIsDoneInPart()
{
    openRoot({text("a"), text("b"), text("c"), text("f/")});
    QSignalSpy trashed(&logic(), &CloudDocLogic::trashed);
    QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
    logic().trash({text("b"), text("c")});
    BatchRemoveResult removed;
    removed.removedIds = {"b"};
    removed.extraParam["b"] = "bin";
    removed.failedItems["c"].errResult = "denied";
    QVERIFY(cloud().answer("batchRemove", removed));
    QCOMPARE(print(logic()), text("f a c"));
    QCOMPARE(trashed.at(0), (QVariantList{1, text("b")}));
    QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Denied);
    QCOMPARE(failed.at(0).at(2).toInt(), 1);

    logic().undoTrash();
    RecoverRecyclesResult back;
    back.items = {FakeCloud::item(text("b"))};
    QVERIFY(cloud().answer("recoverRecycles", back));
    QCOMPARE(print(logic()), text("f a b c"));

    logic().move({text("a"), text("b")}, text("f"));
    CloudItemsMoveToResult moved;
    moved.items = {FakeCloud::item(text("a"), text("f"))};
    moved.conflicts.resize(1);
    moved.conflicts[0].item.id = moved.conflicts[0].name = "b";
    QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
    QVERIFY(cloud().answer("cloudItemsMoveTo", moved));
    QCOMPARE(print(logic()), text("f b c"));
    QCOMPARE(conflicts.at(0).at(1).value<CloudConflicts>().at(0).source, text("b"));
}

// Each says its own name, and only the last one can be undone.
void TestCloudDocOperations::removalsOverlap()
{
    openRoot({text("a"), text("b")});
    QSignalSpy trashed(&logic(), &CloudDocLogic::trashed);
    logic().trash({text("a")});
    logic().trash({text("b")});
    const auto removed = [](const char *id) {
        BatchRemoveResult result;
        result.removedIds = {id};
        result.extraParam[id] = std::string("bin-") + id;
        return result;
    };
    QVERIFY(cloud().answer("batchRemove", removed("a")));
    QCOMPARE(trashed.at(0), (QVariantList{1, text("a")}));
    QVERIFY(logic().canUndoTrash()); // although the other one is under way
    QVERIFY(cloud().answer("batchRemove", removed("b")));
    QCOMPARE(trashed.at(1), (QVariantList{1, text("b")}));
    logic().undoTrash();
    QCOMPARE(cloud().askedFor("recoverRecycles"), QStringList(text("bin-b")));
}

// An upload's answer names conflicts by the last part of a path, a download's by the item's id alone.
void TestCloudDocOperations::takenNamesAreAsked()
{
    openRoot({text("a.odt")});
    QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
    QSignalSpy done(&logic(), &CloudDocLogic::operationDone);
    logic().upload({text("/x/a.odt"), text("/y//a.odt"), text("/y/gone"), text("/y/new")});
    UploadItemsResult uploads;
    uploads.tasks.resize(2);
    uploads.tasks[0].taskId = "1";
    uploads.tasks[0].localPath = "/x/a.odt";
    uploads.tasks[1].taskId = "2";
    uploads.tasks[1].localPath = "/y/new";
    uploads.failedItems["/y/gone"].errResult = "notFound";
    uploads.conflicts.resize(1);
    uploads.conflicts[0].name = "a.odt";
    uploads.conflicts[0].suggestedName = "a (2).odt";
    QVERIFY(cloud().answer("uploadItems", uploads));
    const CloudConflict up = conflicts.at(0).at(1).value<CloudConflicts>().at(0);
    QCOMPARE(up.source, text("/y/a.odt"));
    QCOMPARE(up.suggestedName, text("a (2).odt"));
    QCOMPARE(logic().transfers()->rowCount(), 2);

    logic().download({text("a.odt")}, text("/home/u"));
    DownloadItemsResult downloads;
    downloads.failedItems["a.odt"].errResult = "exists";
    QVERIFY(cloud().answer("downloadItems", downloads));
    const CloudConflict down = conflicts.at(1).at(1).value<CloudConflicts>().at(0);
    QCOMPARE(down.name, text("a.odt"));
    QCOMPARE(down.existing.localPath, text("/home/u/a.odt"));
    QCOMPARE(done.count(), 0);
}

QTEST_GUILESS_MAIN(TestCloudDocOperations)
#include "tst_operations.moc"

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
    void undoGoesBackOrSaysWhy_data();
    void undoGoesBackOrSaysWhy();
    void takenNamesOfTransfersAreAsked();
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
    const Way ways[] = {{"done", "done"}, {"refused", "failed"}, {"no answer", "failed"}};
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
    QSignalSpy begun(&logic(), &CloudDocLogic::operationBegun);
    QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
    QSignalSpy done(&logic(), &CloudDocLogic::operationDone);
    QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
    const auto answer = [&](const char *method, auto result) {
        if (way == QLatin1String("refused"))
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
            logic().undo({Operation::Trash, 1, {text("bin")}, text("a"), {}, {}, {}});
            return answer("recoverRecycles", RecoverRecyclesResult());
        case Operation::UndoMove:
            logic().undo({Operation::Move, 1, {text("a")}, text("a"), {}, text("root"), text("f")});
            return answer("cloudItemsMoveTo", CloudItemsMoveToResult());
        case Operation::UndoRename:
            logic().undo({Operation::Rename, 1, {text("a")}, text("old"), text("a"), {}, {}});
            return answer("rename", RenameResult());
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
    QCOMPARE(begun.count(), 1);
    const bool undo = operation >= int(Operation::UndoTrash) && operation <= int(Operation::UndoRename);
    const bool again = undo && way == QLatin1String("no answer"); // it can be tried again
    QCOMPARE(undoable.count(), int(again || (operation == int(Operation::Rename) && done.count() == 1)));
}

void TestCloudDocOperations::whatIsDoneInPart()
{
    openRoot({text("a"), text("b"), text("c"), text("f/")});
    QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
    QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
    logic().trash({text("b"), text("c")});
    BatchRemoveResult removed;
    removed.removedIds = {"b"};
    removed.extraParam["b"] = "bin";
    removed.failedItems["c"].errResult = "denied";
    QVERIFY(cloud().answer("batchRemove", removed));
    QCOMPARE(print(logic()), text("f a c"));
    const auto removal = undoable.at(0).at(0).value<CloudUndo>();
    QCOMPARE(removal, (CloudUndo{Operation::Trash, 1, {text("bin")}, text("b"), {}, {}, {}}));
    QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Denied);
    QCOMPARE(failed.at(0).mid(2), (QVariantList{1, text("c")}));

    logic().undo(removal);
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

void TestCloudDocOperations::undoGoesBackOrSaysWhy_data()
{
    QTest::addColumn<bool>("rename");
    QTest::addColumn<bool>("taken");
    for (const bool rename : {false, true})
        for (const bool taken : {false, true})
            QTest::addRow("%s%s", rename ? "rename" : "move", taken ? ", taken meanwhile" : "")
                << rename << taken;
}

// Nobody is asked about names: what was there before comes back as it was, or not at all.
void TestCloudDocOperations::undoGoesBackOrSaysWhy()
{
    QFETCH(bool, rename);
    QFETCH(bool, taken);
    constexpr int ExistsState = 4;
    openRoot({text("a"), text("f/")});
    QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
    QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
    QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
    QSignalSpy restored(&logic(), &CloudDocLogic::restored);
    RenameResult renamed;
    CloudItemsMoveToResult moved;
    if (rename) {
        logic().rename(text("a"), text("b"));
        renamed.item = FakeCloud::item(text("b"));
        renamed.item.id = "a";
        QVERIFY(cloud().answer("rename", renamed));
    } else {
        logic().move({text("a")}, text("f"));
        moved.items = {FakeCloud::item(text("a"), text("f"))};
        QVERIFY(cloud().answer("cloudItemsMoveTo", moved));
    }
    logic().undo(undoable.at(0).at(0).value<CloudUndo>());
    QCOMPARE(cloud().wanted.last(), rename ? text("rename a -> a") : text("cloudItemsMoveTo a -> root (0)"));
    renamed.item = FakeCloud::item(text("a"));
    moved.items = taken ? std::vector<CloudItem>() : std::vector{renamed.item};
    moved.conflicts.resize(taken ? 1 : 0);
    QVERIFY(rename ? cloud().refuse("rename", renamed, taken ? ExistsState : 0)
                   : cloud().answer("cloudItemsMoveTo", moved));
    QCOMPARE(restored.count(), int(!taken));
    QCOMPARE(failed.count(), int(taken));
    if (taken)
        QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Exists);
    QCOMPARE(print(logic()), taken ? (rename ? text("f b") : text("f")) : text("f a"));
    QCOMPARE(conflicts.count(), 0);
}

// Trying the same again would fail in the same way.
void TestCloudDocOperations::takenNamesOfTransfersAreAsked()
{
    openRoot({});
    CloudTransfer up;
    up.id = text("t");
    up.name = text("a.odt");
    up.localPath = text("/x/a.odt");
    up.folderId = text("f");
    up.state = CloudTransfer::State::Failed;
    up.problem = CloudProblem::Exists;
    CloudTransfer down = up;
    down.id = down.itemId = text("d");
    down.direction = CloudTransfer::Direction::Down;
    logic().transfers()->put({up, down});
    QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
    for (const CloudTransfer &transfer : {up, down})
        logic().retryTransfer(transfer.id);
    QCOMPARE(cloud().wanted, QStringList());
    QCOMPARE(conflicts.at(0).at(0).value<Operation>(), Operation::Upload);
    QCOMPARE(conflicts.at(0).at(1).value<CloudConflicts>().at(0).source, up.localPath);
    QCOMPARE(conflicts.at(0).at(2).toString(), up.folderId);
    QCOMPARE(conflicts.at(1).at(1).value<CloudConflicts>().at(0).source, down.itemId);
    QCOMPARE(conflicts.at(1).at(2).toString(), text("/x"));
    logic().upload({up.localPath}, up.folderId, CloudNameChoice::Replace);
    QCOMPARE(cloud().wanted, // the one that failed goes
        QStringList({text("updateTransferInfo t step 5"), text("uploadItems /x/a.odt -> f (2)")}));
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

#include "logicfixture.h"

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
    void operationsEndOnce_data()
    {
        const auto row = zeltest::table<int, QString>("operation", "way");
        for (int operation = 0; operation <= int(Operation::Transfer); ++operation)
            for (const QString &way : {"done"_s, "refused"_s, "no answer"_s})
                row("%1 %2"_s.arg(operation).arg(way), operation, way);
    }
    void operationsEndOnce()
    {
        const auto [operation, way] = zeltest::row<int, QString>();
        openRoot({"a"_s, "f/"_s});
        QSignalSpy begun(&logic(), &CloudDocLogic::operationBegun);
        QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
        QSignalSpy done(&logic(), &CloudDocLogic::operationDone);
        QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
        const auto answer = [&](const char *method, auto result) {
            if (way == "refused"_s)
                QVERIFY(cloud().refuse(method, result, DeniedState));
            else
                QVERIFY(cloud().answer(method, result, way == "done"_s));
        };
        const auto run = [&](Operation what) {
            switch (what) {
            case Operation::CreateFolder:
                logic().createFolder("new"_s);
                return answer("createFolder", CreateFolderResult());
            case Operation::Rename:
                logic().rename("a"_s, "b"_s);
                return answer("rename", RenameResult());
            case Operation::Move:
                logic().move({"a"_s}, "f"_s);
                return answer("cloudItemsMoveTo", CloudItemsMoveToResult());
            case Operation::Copy:
                logic().copy({"a"_s}, "f"_s);
                return answer("cloudItemsCopyTo", CloudItemsCopyToResult());
            case Operation::Trash:
                logic().trash({"a"_s});
                return answer("batchRemove", BatchRemoveResult());
            case Operation::UndoTrash:
                logic().undo({Operation::Trash, 1, {"bin"_s}, "a"_s, {}, {}, {}});
                return answer("recoverRecycles", RecoverRecyclesResult());
            case Operation::UndoMove:
                logic().undo({Operation::Move, 1, {"a"_s}, "a"_s, {}, "root"_s, "f"_s});
                return answer("cloudItemsMoveTo", CloudItemsMoveToResult());
            case Operation::UndoCreateFolder:
                logic().undo({Operation::CreateFolder, 1, {"f"_s}, "f"_s, {}, {}, {}});
                return answer("batchRemove", BatchRemoveResult());
            case Operation::UndoRename:
                logic().undo({Operation::Rename, 1, {"a"_s}, "old"_s, "a"_s, {}, {}});
                return answer("rename", RenameResult());
            case Operation::Upload:
                logic().upload({"/tmp/a"_s});
                return answer("uploadItems", UploadItemsResult());
            case Operation::Download:
                logic().download({"a"_s}, "/tmp"_s);
                return answer("downloadItems", DownloadItemsResult());
            case Operation::Transfer:
                logic().cancelTransfers({"t"_s});
                return answer("updateTransferInfo", UpdateTransferInfoResult());
            }
        };
        run(Operation(operation));
        QTRY_COMPARE(done.count() + failed.count(), 1);
        QCOMPARE(done.count(), int(way == "done"_s));
        if (way == "refused"_s)
            QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Denied);
        else if (way == "no answer"_s)
            QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::NotReached);
        QCOMPARE(begun.count(), 1);
        const bool undo = operation >= int(Operation::UndoTrash) && operation <= int(Operation::UndoRename);
        const bool again = undo && way == "no answer"_s; // it can be tried again
        const bool named = operation == int(Operation::Rename) || operation == int(Operation::CreateFolder);
        QCOMPARE(undoable.count(), int(again || (named && done.count() == 1)));
    }

    void whatIsDoneInPart()
    {
        openRoot({"a"_s, "b"_s, "c"_s, "f/"_s});
        QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
        QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
        logic().trash({"b"_s, "c"_s});
        BatchRemoveResult removed;
        removed.removedIds = {"b"};
        removed.extraParam["b"] = "bin";
        removed.failedItems["c"].errResult = "denied";
        QVERIFY(cloud().answer("batchRemove", removed));
        QCOMPARE(print(logic()), "f a c"_s);
        const auto removal = undoable.at(0).at(0).value<CloudUndo>();
        QCOMPARE(removal, (CloudUndo{Operation::Trash, 1, {"bin"_s}, "b"_s, {}, "root"_s, {}}));
        QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Denied);
        QCOMPARE(failed.at(0).mid(2), (QVariantList{1, "c"_s}));

        logic().undo(removal);
        RecoverRecyclesResult back;
        back.items = {FakeCloud::item("b"_s)};
        QVERIFY(cloud().answer("recoverRecycles", back));
        QCOMPARE(print(logic()), "f a b c"_s);

        logic().move({"a"_s, "b"_s}, "f"_s);
        CloudItemsMoveToResult moved;
        moved.items = {FakeCloud::item("a"_s, "f"_s)};
        moved.conflicts.resize(1);
        moved.conflicts[0].item.id = moved.conflicts[0].name = "b";
        QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
        QVERIFY(cloud().answer("cloudItemsMoveTo", moved));
        QCOMPARE(print(logic()), "f b c"_s);
        QCOMPARE(conflicts.at(0).at(1).value<CloudConflicts>().at(0).source, "b"_s);
    }

    void undoGoesBackOrSaysWhy_data()
    {
        const auto row = zeltest::table<bool, bool>("rename", "taken");
        row("move", false, false);
        row("move, taken meanwhile", false, true);
        row("rename", true, false);
        row("rename, taken meanwhile", true, true);
    }
    // Nobody is asked about names: what was there before comes back as it was, or not at all.
    void undoGoesBackOrSaysWhy()
    {
        const auto [rename, taken] = zeltest::row<bool, bool>();
        constexpr int ExistsState = 4;
        openRoot({"a"_s, "f/"_s});
        QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
        QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
        QSignalSpy failed(&logic(), &CloudDocLogic::operationFailed);
        QSignalSpy restored(&logic(), &CloudDocLogic::restored);
        RenameResult renamed;
        CloudItemsMoveToResult moved;
        if (rename) {
            logic().rename("a"_s, "b"_s);
            renamed.item = FakeCloud::item("b"_s);
            renamed.item.id = "a";
            QVERIFY(cloud().answer("rename", renamed));
        } else {
            logic().move({"a"_s}, "f"_s);
            moved.items = {FakeCloud::item("a"_s, "f"_s)};
            QVERIFY(cloud().answer("cloudItemsMoveTo", moved));
        }
        logic().undo(undoable.at(0).at(0).value<CloudUndo>());
        QCOMPARE(cloud().wanted.last(), rename ? "rename a -> a"_s : "cloudItemsMoveTo a -> root (0)"_s);
        renamed.item = FakeCloud::item("a"_s);
        moved.items = taken ? std::vector<CloudItem>() : std::vector{renamed.item};
        moved.conflicts.resize(taken ? 1 : 0);
        QVERIFY(rename ? cloud().refuse("rename", renamed, taken ? ExistsState : 0)
                       : cloud().answer("cloudItemsMoveTo", moved));
        QCOMPARE(restored.count(), int(!taken));
        QCOMPARE(failed.count(), int(taken));
        if (taken)
            QCOMPARE(failed.at(0).at(1).value<CloudProblem>(), CloudProblem::Exists);
        QCOMPARE(print(logic()), taken ? (rename ? "f b"_s : "f"_s) : "f a"_s);
        QCOMPARE(conflicts.count(), 0);
    }

    void whatWasNotReachedIsOfferedAgain()
    {
        openRoot({});
        QSignalSpy undoable(&logic(), &CloudDocLogic::undoable);
        QStringList ids;
        for (int i = 0; i < 2500; ++i)
            ids << QString::number(i);
        logic().undo({Operation::Trash, 2500, ids, "0"_s, {}, {}, {}});
        for (const bool reached : {true, false})
            QVERIFY(cloud().answer("recoverRecycles", RecoverRecyclesResult(), reached));
        QCOMPARE(undoable.at(0).at(0).value<CloudUndo>().ids, ids.mid(1000));
    }

    // Trying the same again would fail in the same way.
    void takenNamesOfTransfersAreAsked()
    {
        openRoot({});
        CloudTransfer up;
        up.id = "t"_s;
        up.name = "a.odt"_s;
        up.localPath = "/x/a.odt"_s;
        up.folderId = "f"_s;
        up.state = CloudTransfer::State::Failed;
        up.problem = CloudProblem::Exists;
        CloudTransfer down = up;
        down.id = down.itemId = "d"_s;
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
        QCOMPARE(conflicts.at(1).at(2).toString(), "/x"_s);
        logic().upload({up.localPath}, up.folderId, CloudNameChoice::Replace);
        QCOMPARE(cloud().wanted, // the one that failed goes
            QStringList({"updateTransferInfo t step 5"_s, "uploadItems /x/a.odt -> f (2)"_s}));
    }

    // An upload's answer names conflicts by the last part of a path, a download's by the item's id alone.
    void takenNamesAreAsked()
    {
        openRoot({"a.odt"_s});
        QSignalSpy conflicts(&logic(), &CloudDocLogic::conflictsFound);
        QSignalSpy done(&logic(), &CloudDocLogic::operationDone);
        logic().upload({"/x/a.odt"_s, "/y//a.odt"_s, "/y/gone"_s, "/y/new"_s});
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
        QCOMPARE(up.source, "/y/a.odt"_s);
        QCOMPARE(up.suggestedName, "a (2).odt"_s);
        QCOMPARE(logic().transfers()->rowCount(), 2);

        logic().download({"a.odt"_s}, "/home/u"_s);
        DownloadItemsResult downloads;
        downloads.failedItems["a.odt"].errResult = "exists";
        downloads.conflicts.resize(1);
        downloads.conflicts[0].item.id = "a.odt";
        downloads.conflicts[0].size = 5;
        downloads.conflicts[0].existing.size = 7;
        QVERIFY(cloud().answer("downloadItems", downloads));
        const CloudConflict down = conflicts.at(1).at(1).value<CloudConflicts>().at(0);
        QCOMPARE(down.name, "a.odt"_s);
        QCOMPARE(down.existing.localPath, "/home/u/a.odt"_s);
        QVERIFY(down.size == 5 && down.existing.size == 7);
        QCOMPARE(done.count(), 0);
    }
};

QTEST_GUILESS_MAIN(TestCloudDocOperations)
#include "tst_operations.moc"

#include "service/methods/drivefixture.h"

using namespace zel;
using namespace zel::vela;

class TestDriveEdits final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data()
    {
        // words: method, item ("?": named by its place only), folder, name; tree: empty for the same as
        // before
        const auto row =
            zeltest::table<QStringList, int, QString, QString>("words", "policy", "error", "tree");
        row("rename", words("rename|a.txt||x.txt"), 0, "", "b.txt d/ d/a.txt d/e/ d/e/f.txt x.txt");
        row("rename to a taken name", words("rename|a.txt||b.txt"), 0, "exists", "");
        row("rename, keep both", words("rename|a.txt||b.txt"), 1, "",
            "b$(2).txt b.txt d/ d/a.txt d/e/ d/e/f.txt");
        row("rename, replace", words("rename|a.txt||b.txt"), 2, "", "b.txt d/ d/a.txt d/e/ d/e/f.txt");
        row("rename, skip", words("rename|a.txt||b.txt"), 3, "", "");
        row("rename to itself", words("rename|a.txt||a.txt"), 2, "", "");
        row("move", words("move|b.txt|d|"), 0, "", "a.txt d/ d/a.txt d/b.txt d/e/ d/e/f.txt");
        row("move, keep both", words("move|a.txt|d|"), 1, "", "b.txt d/ d/a$(2).txt d/a.txt d/e/ d/e/f.txt");
        row("move under a new name past a taken one", words("move|a.txt|d|n.txt"), 0, "",
            "b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt");
        row("move under a taken name is taken back", words("move|b.txt|d|a.txt"), 0, "exists", "");
        row("copy a folder", words("copy|d||k"), 0, "",
            "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt k/ k/a.txt k/e/ k/e/f.txt");
        row("copy, replace", words("copy|a.txt|d|"), 2, "", "");
        row("copy over itself", words("copy|a.txt||"), 2, "denied", "");
        row("remove", words("remove|d||"), 0, "", "a.txt b.txt");
        row("remove what is not there", words("remove|nowhere||"), 0, "invalidArgument", "");
        row("new folder", words("createFolder||d|n"), 0, "", "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n/");
        row("new folder, keep both", words("createFolder|||d"), 1, "",
            "a.txt b.txt d$(2)/ d/ d/a.txt d/e/ d/e/f.txt");
        row("new folder, the one there will do", words("createFolder|||d"), 3, "", "");
        row("new folder, a file is there", words("createFolder|||a.txt"), 3, "exists", "");
        row("new file", words("createFile||d|n.txt"), 0, "", "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt");
        row("new file, keep both", words("createFile|||a.txt"), 1, "",
            "a$(2).txt a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt");
        for (const char *method : {"rename", "move", "copy", "update", "remove", "cloudItemsCopyTo",
                 "cloudItemsMoveTo", "cloudItemsDuplicate", "batchRemove"})
            row(method, {QLatin1String(method), "?"_s, QString(), "n"_s}, 0, "invalidArgument", "");
    }

    void edits()
    {
        const auto [words, policy] = zeltest::row<QStringList, int>();
        FilledDrive fixture;
        DriveFixture::write(fixture.local("new"), "new");
        const QString before = DriveFixture::tree(fixture.root());
        const std::string method = words.at(0).toStdString();
        const auto run = [&](auto request, auto result) {
            CloudItemId item = fixture.idOf(qPrintable(words.at(1)));
            if (words.at(1) == "?"_s)
                item.parentId = fixture.idOf("d/e").id;
            const std::string target = fixture.idOf(qPrintable(words.at(2))).id;
            if constexpr (requires { request.item; })
                request.item = item;
            if constexpr (requires { request.items; })
                request.items = {item};
            if constexpr (requires { request.newName; })
                request.newName = words.at(3).toStdString();
            if constexpr (requires { request.name; })
                request.name = words.at(3).toStdString();
            if constexpr (requires { request.conflictPolicy; })
                request.conflictPolicy = policy;
            if constexpr (requires { request.targetParentId; })
                request.targetParentId = target;
            else if constexpr (requires { request.parentId; })
                request.parentId = target;
            if constexpr (std::is_same_v<decltype(request), UpdateArg>)
                request.localPath = fixture.local("new").toStdString();
            result = fixture.client.call<decltype(result)>(method, request);
            std::string error = result.errorInfo.errResult;
            if constexpr (requires { result.failedItems; })
                error += result.failedItems[item.id].errResult;
            return QString::fromStdString(error);
        };
        const std::map<std::string, std::function<QString()>> calls{
            {"rename", [&] { return run(RenameArg(), RenameResult()); }},
            {"move", [&] { return run(MoveArg(), MoveResult()); }},
            {"copy", [&] { return run(CopyArg(), CopyResult()); }},
            {"update", [&] { return run(UpdateArg(), UpdateResult()); }},
            {"remove", [&] { return run(RemoveArg(), RemoveResult()); }},
            {"createFolder", [&] { return run(CreateFolderArg(), CreateFolderResult()); }},
            {"createFile", [&] { return run(CreateFileArg(), CreateFileResult()); }},
            {"cloudItemsCopyTo", [&] { return run(CloudItemsCopyToArg(), CloudItemsCopyToResult()); }},
            {"cloudItemsMoveTo", [&] { return run(CloudItemsMoveToArg(), CloudItemsMoveToResult()); }},
            {"cloudItemsDuplicate",
                [&] { return run(CloudItemsDuplicateArg(), CloudItemsDuplicateResult()); }},
            {"batchRemove", [&] { return run(BatchRemoveArg(), BatchRemoveResult()); }}};
        QTEST(calls.at(method)(), "error");
        QFETCH(QString, tree);
        QCOMPARE(DriveFixture::sorted(DriveFixture::tree(fixture.root())),
            DriveFixture::sorted(tree.isEmpty() ? before : tree));
    }

    void batchGoesOnAfterFailures()
    {
        FilledDrive fixture;
        BatchCopyArg request;
        request.ids = {fixture.idOf("a.txt").id, "12345", fixture.idOf("b.txt").id, ""};
        request.targetParentId = fixture.idOf("d").id;
        const auto result = fixture.client.call<BatchCopyResult>("batchCopy", request);
        QCOMPARE(result.state, 0);
        QCOMPARE(DriveFixture::names(result.items), "b.txt"_s);
        QCOMPARE(result.conflicts.size(), size_t(1));
        QCOMPARE(result.failedItems.size(), size_t(2));
        request.ids.resize(1);
        request.conflicts.push_back(result.conflicts[0]);
        request.conflicts[0].conflictPolicy = 1;
        QCOMPARE(DriveFixture::names(fixture.client.call<BatchCopyResult>("batchCopy", request).items),
            "a (2).txt"_s);

        BatchRemoveArg removal;
        removal.items = {fixture.idOf("a.txt"), CloudItemId(), fixture.idOf("d")};
        const auto removed = fixture.client.call<BatchRemoveResult>("batchRemove", removal);
        QCOMPARE(removed.removedIds.size(), size_t(2));
        QCOMPARE(DriveFixture::tree(fixture.root()), "b.txt"_s);
    }

    void updateRefusesOldBase()
    {
        FilledDrive fixture;
        DriveFixture::write(fixture.local("new"), "new content");
        const auto info = filled(&GetInfoArg::item, fixture.idOf("a.txt"));
        const auto update = filled(&UpdateArg::item, info.item, &UpdateArg::localPath,
            fixture.local("new").toStdString(), &UpdateArg::baseVersion,
            fixture.client.call<GetInfoResult>("getInfo", info).item.cloudVersion);
        QCOMPARE(fixture.client.call<UpdateResult>("update", update).item.id, info.item.id);
        QCOMPARE(DriveFixture::read(fixture.inDrive("a.txt")), QByteArray("new content"));
        const auto refused = fixture.client.call<UpdateResult>("update", update);
        QVERIFY(refused.versionConflict);
        QCOMPARE(refused.state, int(wire::ServiceError::Conflict));
    }

private:
    static QStringList words(const char *text) { return QString::fromUtf8(text).split(QLatin1Char('|')); }
};

QTEST_GUILESS_MAIN(TestDriveEdits)
#include "tst_driveedits.moc"

#include "service/methods/drivefixture.h"

using namespace zel;
using namespace zel::vela;

class TestDriveEdits final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data();
    void edits();
    void batchGoesOnAfterFailures();
    void updateRefusesOldBase();
    void noIdIsRefused();
};

void TestDriveEdits::edits_data()
{
    QTest::addColumn<QStringList>("words"); // method, item, folder, name
    QTest::addColumn<int>("policy");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("tree"); // empty: as before
    const auto row = [](const char *name, const char *words, int policy, const char *error,
                         const char *tree) {
        QTest::newRow(name) << QString::fromLatin1(words).split(QLatin1Char('|')) << policy
                            << QString::fromLatin1(error) << QString::fromLatin1(tree);
    };
    row("rename", "rename|a.txt||x.txt", 0, "", "b.txt d/ d/a.txt d/e/ d/e/f.txt x.txt");
    row("rename to a taken name", "rename|a.txt||b.txt", 0, "exists", "");
    row("rename, keep both", "rename|a.txt||b.txt", 1, "", "b$(2).txt b.txt d/ d/a.txt d/e/ d/e/f.txt");
    row("rename, replace", "rename|a.txt||b.txt", 2, "", "b.txt d/ d/a.txt d/e/ d/e/f.txt");
    row("rename, skip", "rename|a.txt||b.txt", 3, "", "");
    row("rename to itself", "rename|a.txt||a.txt", 2, "", "");
    row("move", "move|b.txt|d|", 0, "", "a.txt d/ d/a.txt d/b.txt d/e/ d/e/f.txt");
    row("move, keep both", "move|a.txt|d|", 1, "", "b.txt d/ d/a$(2).txt d/a.txt d/e/ d/e/f.txt");
    row("move under a new name past a taken one", "move|a.txt|d|n.txt", 0, "",
        "b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt");
    row("move under a taken name is taken back", "move|b.txt|d|a.txt", 0, "exists", "");
    row("copy a folder", "copy|d||k", 0, "",
        "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt k/ k/a.txt k/e/ k/e/f.txt");
    row("copy, replace", "copy|a.txt|d|", 2, "", "");
    row("copy over itself", "copy|a.txt||", 2, "denied", "");
    row("remove", "remove|d||", 0, "", "a.txt b.txt");
    row("remove what is not there", "remove|nowhere||", 0, "invalidArgument", "");
    row("new folder", "createFolder||d|n", 0, "", "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n/");
    row("new folder, keep both", "createFolder|||d", 1, "", "a.txt b.txt d$(2)/ d/ d/a.txt d/e/ d/e/f.txt");
    row("new folder, the one there will do", "createFolder|||d", 3, "", "");
    row("new folder, a file is there", "createFolder|||a.txt", 3, "exists", "");
    row("new file", "createFile||d|n.txt", 0, "", "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt");
    row("new file, keep both", "createFile|||a.txt", 1, "",
        "a$(2).txt a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt");
}

void TestDriveEdits::edits()
{
    QFETCH(QStringList, words);
    QFETCH(int, policy);
    DriveFixture fixture;
    fixture.fill();
    const QString before = DriveFixture::tree(fixture.root());
    const std::string method = words.at(0).toStdString();
    const auto run = [&](auto request, auto result) {
        const std::string target = fixture.idOf(qPrintable(words.at(2))).id;
        if constexpr (requires { request.item; })
            request.item = fixture.idOf(qPrintable(words.at(1)));
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
        return QString::fromStdString(
            fixture.client.call<decltype(result)>(method, request).errorInfo.errResult);
    };
    const std::map<std::string, std::function<QString()>> calls{
        {"rename", [&] { return run(RenameArg(), RenameResult()); }},
        {"move", [&] { return run(MoveArg(), MoveResult()); }},
        {"copy", [&] { return run(CopyArg(), CopyResult()); }},
        {"remove", [&] { return run(RemoveArg(), RemoveResult()); }},
        {"createFolder", [&] { return run(CreateFolderArg(), CreateFolderResult()); }},
        {"createFile", [&] { return run(CreateFileArg(), CreateFileResult()); }}};
    QTEST(calls.at(method)(), "error");
    QFETCH(QString, tree);
    QCOMPARE(DriveFixture::sorted(DriveFixture::tree(fixture.root())),
        tree.isEmpty() ? DriveFixture::sorted(before) : DriveFixture::sorted(tree));
}

void TestDriveEdits::batchGoesOnAfterFailures()
{
    DriveFixture fixture;
    fixture.fill();
    BatchCopyArg request;
    request.ids = {fixture.idOf("a.txt").id, "12345", fixture.idOf("b.txt").id, ""};
    request.targetParentId = fixture.idOf("d").id;
    const auto result = fixture.client.call<BatchCopyResult>("batchCopy", request);
    QCOMPARE(result.state, 0);
    QCOMPARE(DriveFixture::names(result.items), QStringLiteral("b.txt"));
    QCOMPARE(result.conflicts.size(), size_t(1));
    QCOMPARE(result.failedItems.size(), size_t(2));
    request.ids.resize(1);
    request.conflicts.push_back(result.conflicts[0]);
    request.conflicts[0].conflictPolicy = 1;
    QCOMPARE(DriveFixture::names(fixture.client.call<BatchCopyResult>("batchCopy", request).items),
        QStringLiteral("a (2).txt"));

    BatchRemoveArg removal;
    removal.items = {fixture.idOf("a.txt"), CloudItemId(), fixture.idOf("d")};
    const auto removed = fixture.client.call<BatchRemoveResult>("batchRemove", removal);
    QCOMPARE(removed.removedIds.size(), size_t(2));
    QCOMPARE(DriveFixture::tree(fixture.root()), QStringLiteral("b.txt"));
}

void TestDriveEdits::updateRefusesOldBase()
{
    DriveFixture fixture;
    fixture.fill();
    DriveFixture::write(fixture.local("new"), "new content");
    GetInfoArg info;
    info.item = fixture.idOf("a.txt");
    UpdateArg update;
    update.item = info.item;
    update.localPath = fixture.local("new").toStdString();
    update.baseVersion = fixture.client.call<GetInfoResult>("getInfo", info).item.cloudVersion;
    const auto done = fixture.client.call<UpdateResult>("update", update);
    QCOMPARE(done.item.id, info.item.id);
    QCOMPARE(DriveFixture::read(fixture.inDrive("a.txt")), QByteArray("new content"));
    const auto refused = fixture.client.call<UpdateResult>("update", update);
    QVERIFY(refused.versionConflict);
    QCOMPARE(refused.state, int(wire::ServiceError::Conflict));
}

void TestDriveEdits::noIdIsRefused()
{
    DriveFixture fixture;
    fixture.fill();
    DriveFixture::write(fixture.local("new"), "new");
    const QString before = DriveFixture::tree(fixture.root());
    const auto refuses = [&](const char *method, auto request, auto result) {
        CloudItemId item; // names d/e by its place only
        item.parentId = fixture.idOf("d/e").id;
        if constexpr (requires { request.item; })
            request.item = item;
        else
            request.items = {item};
        if constexpr (requires { request.newName; })
            request.newName = "n";
        if constexpr (requires { request.localPath; })
            request.localPath = fixture.local("new").toStdString();
        result = fixture.client.call<decltype(result)>(method, request);
        if constexpr (requires { result.failedItems; })
            return result.failedItems[""].errResult == "invalidArgument";
        else
            return result.errorInfo.errResult == "invalidArgument";
    };
    QVERIFY(refuses("rename", RenameArg(), RenameResult()));
    QVERIFY(refuses("move", MoveArg(), MoveResult()));
    QVERIFY(refuses("copy", CopyArg(), CopyResult()));
    QVERIFY(refuses("update", UpdateArg(), UpdateResult()));
    QVERIFY(refuses("remove", RemoveArg(), RemoveResult()));
    QVERIFY(refuses("cloudItemsCopyTo", CloudItemsCopyToArg(), CloudItemsCopyToResult()));
    QVERIFY(refuses("cloudItemsMoveTo", CloudItemsMoveToArg(), CloudItemsMoveToResult()));
    QVERIFY(refuses("cloudItemsDuplicate", CloudItemsDuplicateArg(), CloudItemsDuplicateResult()));
    QVERIFY(refuses("batchRemove", BatchRemoveArg(), BatchRemoveResult()));
    QCOMPARE(DriveFixture::tree(fixture.root()), before);
}

QTEST_GUILESS_MAIN(TestDriveEdits)
#include "tst_driveedits.moc"

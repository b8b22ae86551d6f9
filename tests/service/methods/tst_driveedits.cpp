#include "drivefixture.h"
#include "notify_types.h"

#include <QDateTime>
#include <QSemaphore>

using namespace zel;
using namespace zel::vela;

class TestDriveEdits final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data();
    void edits();
    void conflictNamesWhatIsThere();
    void batchGoesOnAfterFailures();
    void replacedItemsAreInTheBin_data();
    void replacedItemsAreInTheBin();
    void recycleBin();
    void updateRefusesOldBase();
    void noIdIsRefused_data();
    void noIdIsRefused();
    void clearingLeavesWhatCameLater_data();
    void clearingLeavesWhatCameLater();
    void recoverToTakenName();
};

namespace {

const QStringList Files{QStringLiteral("a.txt=one"), QStringLiteral("b.txt=three"),
    QStringLiteral("d/a.txt=old"), QStringLiteral("d/e/f.txt")};

QString names(const std::vector<CloudItem> &items)
{
    QStringList texts;
    for (const CloudItem &item : items)
        texts.append(QString::fromStdString(item.name));
    return texts.join(QLatin1Char(' '));
}

} // namespace

void TestDriveEdits::edits_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("policy");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("tree");
    const auto row = [](const char *name) -> QTestData & { return QTest::newRow(name); };
    const int exists = int(wire::ServiceError::Exists);
    const int invalid = int(wire::ServiceError::InvalidArgument);
    const QString same = QStringLiteral("a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt");
    row("rename") << "rename"
                  << "a.txt"
                  << ""
                  << "x.txt" << 0 << 0 << "b.txt d/ d/a.txt d/e/ d/e/f.txt x.txt";
    row("rename to a taken name") << "rename"
                                  << "a.txt"
                                  << ""
                                  << "b.txt" << 0 << exists << same;
    row("rename, keep both") << "rename"
                             << "a.txt"
                             << ""
                             << "b.txt" << 1 << 0 << "b (2).txt b.txt d/ d/a.txt d/e/ d/e/f.txt";
    row("rename, replace") << "rename"
                           << "a.txt"
                           << ""
                           << "b.txt" << 2 << 0 << "b.txt d/ d/a.txt d/e/ d/e/f.txt";
    row("rename, skip") << "rename"
                        << "a.txt"
                        << ""
                        << "b.txt" << 3 << 0 << same;
    row("rename to itself") << "rename"
                            << "a.txt"
                            << ""
                            << "a.txt" << 2 << 0 << same;
    row("rename to a path") << "rename"
                            << "a.txt"
                            << ""
                            << "../x" << 0 << invalid << same;
    row("move") << "move"
                << "b.txt"
                << "d"
                << "" << 0 << 0 << "a.txt d/ d/a.txt d/b.txt d/e/ d/e/f.txt";
    row("move to a taken name") << "move"
                                << "a.txt"
                                << "d"
                                << "" << 0 << exists << same;
    row("move, keep both") << "move"
                           << "a.txt"
                           << "d"
                           << "" << 1 << 0 << "b.txt d/ d/a (2).txt d/a.txt d/e/ d/e/f.txt";
    row("move under a new name past a taken one")
        << "move"
        << "a.txt"
        << "d"
        << "n.txt" << 0 << 0 << "b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt";
    row("move under a taken name is taken back") << "move"
                                                 << "b.txt"
                                                 << "d"
                                                 << "a.txt" << 0 << exists << same;
    row("move into itself") << "move"
                            << "d"
                            << "d/e"
                            << "" << 0 << int(wire::ServiceError::Denied) << same;
    row("copy a folder") << "copy"
                         << "d"
                         << ""
                         << "k" << 0 << 0
                         << "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt k/ k/a.txt k/e/ k/e/f.txt";
    row("copy, replace") << "copy"
                         << "a.txt"
                         << "d"
                         << "" << 2 << 0 << same;
    row("copy over itself") << "copy"
                            << "a.txt"
                            << ""
                            << "" << 2 << int(wire::ServiceError::Denied) << same;
    row("remove") << "remove"
                  << "d"
                  << ""
                  << "" << 0 << 0 << "a.txt b.txt";
    row("remove what is not there") << "remove"
                                    << "nowhere"
                                    << ""
                                    << "" << 0 << invalid << same;
    row("new folder") << "createFolder"
                      << ""
                      << "d"
                      << "n" << 0 << 0 << "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n/";
    row("new folder, taken") << "createFolder"
                             << ""
                             << ""
                             << "d" << 0 << exists << same;
    row("new folder, keep both") << "createFolder"
                                 << ""
                                 << ""
                                 << "d" << 1 << 0 << "a.txt b.txt d/ d (2)/ d/a.txt d/e/ d/e/f.txt";
    row("new folder, the one there will do") << "createFolder"
                                             << ""
                                             << ""
                                             << "d" << 3 << 0 << same;
    row("new folder, a file is there") << "createFolder"
                                       << ""
                                       << ""
                                       << "a.txt" << 3 << exists << same;
    row("new file") << "createFile"
                    << ""
                    << "d"
                    << "n.txt" << 0 << 0 << "a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt d/n.txt";
    row("new file, keep both") << "createFile"
                               << ""
                               << ""
                               << "a.txt" << 1 << 0 << "a (2).txt a.txt b.txt d/ d/a.txt d/e/ d/e/f.txt";
}

void TestDriveEdits::edits()
{
    QFETCH(QString, method);
    QFETCH(QString, item);
    QFETCH(QString, folder);
    QFETCH(QString, name);
    QFETCH(int, policy);
    DriveFixture fixture;
    fixture.fill(Files);
    const auto run = [&](auto request, auto result) {
        if constexpr (requires { request.item; })
            request.item = fixture.idOf(qPrintable(item));
        if constexpr (requires { request.newName; })
            request.newName = name.toStdString();
        if constexpr (requires { request.name; })
            request.name = name.toStdString();
        if constexpr (requires { request.conflictPolicy; })
            request.conflictPolicy = policy;
        const std::string target = fixture.idOf(qPrintable(folder)).id;
        if constexpr (requires { request.targetParentId; })
            request.targetParentId = target;
        else if constexpr (requires { request.parentId; })
            request.parentId = target;
        return fixture.client.call<decltype(result)>(method.toStdString(), request).state;
    };
    int state = -1;
    if (method == QLatin1String("rename"))
        state = run(RenameArg(), RenameResult());
    else if (method == QLatin1String("move"))
        state = run(MoveArg(), MoveResult());
    else if (method == QLatin1String("copy"))
        state = run(CopyArg(), CopyResult());
    else if (method == QLatin1String("remove"))
        state = run(RemoveArg(), RemoveResult());
    else if (method == QLatin1String("createFolder"))
        state = run(CreateFolderArg(), CreateFolderResult());
    else
        state = run(CreateFileArg(), CreateFileResult());
    QTEST(state, "state");
    QFETCH(QString, tree);
    QStringList expected = tree.split(QLatin1Char(' '));
    QStringList found = DriveFixture::tree(fixture.root()).split(QLatin1Char(' '));
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
}

void TestDriveEdits::conflictNamesWhatIsThere()
{
    DriveFixture fixture;
    fixture.fill({QStringLiteral("a.txt=one"), QStringLiteral("b.txt=three"), QStringLiteral("b (2).txt")});
    RenameArg request;
    request.item = fixture.idOf("a.txt");
    request.newName = "b.txt";
    const auto result = fixture.client.call<RenameResult>("rename", request);
    QCOMPARE(result.conflict.existing.id, fixture.idOf("b.txt").id);
    QCOMPARE(result.conflict.item, request.item);
    QCOMPARE(result.conflict.suggestedName, std::string("b (3).txt"));
    QCOMPARE(result.errorInfo.errResult, std::string("exists"));
}

void TestDriveEdits::batchGoesOnAfterFailures()
{
    DriveFixture fixture;
    fixture.fill(Files);
    BatchCopyArg request;
    request.ids = {fixture.idOf("a.txt").id, "12345", fixture.idOf("b.txt").id, ""};
    request.targetParentId = fixture.idOf("d").id;
    const auto result = fixture.client.call<BatchCopyResult>("batchCopy", request);
    QCOMPARE(result.state, 0);
    QCOMPARE(names(result.items), QStringLiteral("b.txt"));
    QCOMPARE(result.conflicts.size(), size_t(1));
    QCOMPARE(result.failedItems.size(), size_t(2));
    request.ids.resize(1);
    request.conflicts.push_back(result.conflicts[0]);
    request.conflicts[0].conflictPolicy = 1;
    QCOMPARE(
        names(fixture.client.call<BatchCopyResult>("batchCopy", request).items), QStringLiteral("a (2).txt"));

    BatchRemoveArg removal;
    removal.items = {fixture.idOf("a.txt"), CloudItemId(), fixture.idOf("d")};
    const auto removed = fixture.client.call<BatchRemoveResult>("batchRemove", removal);
    QCOMPARE(removed.removedIds.size(), size_t(2));
    QCOMPARE(DriveFixture::tree(fixture.root()), QStringLiteral("b.txt"));
}

void TestDriveEdits::replacedItemsAreInTheBin_data()
{
    QTest::addColumn<QString>("source"); // of createFile; "copy": another method
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("copy") << "copy" << QByteArray("one");
    QTest::newRow("new from a local file") << "new" << QByteArray("local");
    QTest::newRow("new and empty") << "" << QByteArray();
}

void TestDriveEdits::replacedItemsAreInTheBin()
{
    QFETCH(QString, source);
    DriveFixture fixture;
    fixture.fill(Files);
    DriveFixture::write(fixture.local("new"), "local");
    const std::string before = fixture.idOf("d/a.txt").id;
    if (source == QLatin1String("copy")) {
        CopyArg copy;
        copy.item = fixture.idOf("a.txt");
        copy.targetParentId = fixture.idOf("d").id;
        copy.conflictPolicy = 2;
        QCOMPARE(fixture.client.call<CopyResult>("copy", copy).state, 0);
    } else {
        CreateFileArg create;
        create.parentId = fixture.idOf("d").id;
        create.name = "a.txt";
        create.conflictPolicy = 2;
        if (!source.isEmpty())
            create.localPath = fixture.local("new").toStdString();
        const auto made = fixture.client.call<CreateFileResult>("createFile", create);
        QCOMPARE(made.state, 0);
        QVERIFY(made.item.id != before);
    }
    QTEST(DriveFixture::read(fixture.inDrive("d/a.txt")), "content");
    const auto bin =
        fixture.client.call<GetRecycleBinListResult>("getRecycleBinList", GetRecycleBinListArg());
    QCOMPARE(bin.items.size(), size_t(1));
    RecoverRecyclesArg recover;
    recover.recycleIds = {bin.items[0].recycleId};
    QCOMPARE(fixture.client.call<RecoverRecyclesResult>("recoverRecycles", recover).items.size(), size_t(1));
    QCOMPARE(DriveFixture::read(fixture.inDrive("d/a (2).txt")), QByteArray("old"));
}

void TestDriveEdits::recycleBin()
{
    DriveFixture fixture;
    fixture.fill(Files);
    const CloudItemId first = fixture.idOf("a.txt");
    RemoveArg remove;
    remove.item = first;
    const auto removed = fixture.client.call<RemoveResult>("remove", remove);
    remove.item = fixture.idOf("d");
    fixture.client.call<RemoveResult>("remove", remove);
    const auto pushes = [&] { return fixture.client.pushed<NotifyRecycleBinArg>("notifyRecycleBin"); };
    QTRY_COMPARE(pushes().size(), size_t(2));
    QCOMPARE(pushes()[0].items.at(0).recycleId, removed.recycleId);

    GetRecycleBinListV5Arg page;
    page.orderBy = "name";
    page.count = 1;
    auto bin = fixture.client.call<GetRecycleBinListV5Result>("getRecycleBinListV5", page);
    QCOMPARE(bin.items.at(0).name, std::string("a.txt"));
    QVERIFY(bin.hasMore);
    page.cursor = bin.nextCursor;
    bin = fixture.client.call<GetRecycleBinListV5Result>("getRecycleBinListV5", page);
    QCOMPARE(bin.items.at(0).name, std::string("d"));
    QVERIFY(!bin.hasMore && bin.nextCursor.empty());

    BatchRecoverRecycleFilesArg recover;
    recover.recycleIds = {removed.recycleId, "77"};
    const auto back =
        fixture.client.call<BatchRecoverRecycleFilesResult>("batchRecoverRecycleFiles", recover);
    QCOMPARE(back.items.at(0).id, first.id);
    QVERIFY(back.failedItems.count("77"));
    QTRY_COMPARE(pushes().size(), size_t(3));
    QCOMPARE(pushes()[2].action, 2);
    QCOMPARE(pushes()[2].total, int64_t(1));

    const auto cleared = fixture.client.call<ClearRecycleBinResult>("clearRecycleBin", ClearRecycleBinArg());
    QCOMPARE(cleared.clearedCount, int64_t(1));
    QTRY_COMPARE(pushes().size(), size_t(4));
    QCOMPARE(pushes()[3].action, 4);
    QCOMPARE(DriveFixture::tree(fixture.root()), QStringLiteral("a.txt b.txt"));
}

void TestDriveEdits::updateRefusesOldBase()
{
    DriveFixture fixture;
    fixture.fill(Files);
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

void TestDriveEdits::noIdIsRefused_data()
{
    QTest::addColumn<QString>("method");
    for (const char *method : {"rename", "move", "copy", "update", "remove", "cloudItemsCopyTo",
             "cloudItemsMoveTo", "cloudItemsDuplicate", "batchRemove"})
        QTest::newRow(method) << method;
}

void TestDriveEdits::noIdIsRefused()
{
    QFETCH(QString, method);
    DriveFixture fixture;
    fixture.fill(Files);
    DriveFixture::write(fixture.local("new"), "new");
    const QString before = DriveFixture::tree(fixture.root());
    const auto run = [&](auto request, auto result) {
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
        result = fixture.client.call<decltype(result)>(method.toStdString(), request);
        if constexpr (requires { result.failedItems; })
            return QString::fromStdString(result.failedItems[""].errResult);
        else
            return QString::fromStdString(result.errorInfo.errResult);
    };
    QString error;
    if (method == QLatin1String("rename"))
        error = run(RenameArg(), RenameResult());
    else if (method == QLatin1String("move"))
        error = run(MoveArg(), MoveResult());
    else if (method == QLatin1String("copy"))
        error = run(CopyArg(), CopyResult());
    else if (method == QLatin1String("update"))
        error = run(UpdateArg(), UpdateResult());
    else if (method == QLatin1String("remove"))
        error = run(RemoveArg(), RemoveResult());
    else if (method == QLatin1String("cloudItemsCopyTo"))
        error = run(CloudItemsCopyToArg(), CloudItemsCopyToResult());
    else if (method == QLatin1String("cloudItemsMoveTo"))
        error = run(CloudItemsMoveToArg(), CloudItemsMoveToResult());
    else if (method == QLatin1String("cloudItemsDuplicate"))
        error = run(CloudItemsDuplicateArg(), CloudItemsDuplicateResult());
    else
        error = run(BatchRemoveArg(), BatchRemoveResult());
    QCOMPARE(error, QStringLiteral("invalidArgument"));
    QCOMPARE(DriveFixture::tree(fixture.root()), before);
}

void TestDriveEdits::clearingLeavesWhatCameLater_data()
{
    QTest::addColumn<bool>("v5");
    QTest::newRow("one space") << false;
    QTest::newRow("several") << true;
}

void TestDriveEdits::clearingLeavesWhatCameLater()
{
    QFETCH(bool, v5);
    DriveFixture fixture;
    fixture.fill(Files);
    RemoveArg remove;
    remove.item = fixture.idOf("a.txt");
    fixture.client.call<RemoveResult>("remove", remove);
    QSemaphore mayGoOn;
    fixture.bulk.run(
        [&mayGoOn](service::CloudDrive &) -> service::DriveDone {
            mayGoOn.acquire();
            return service::DriveOk();
        },
        [](const service::DriveDone &) {});
    const int32_t call = v5 ? fixture.client.send("clearRecycleBinV5", ClearRecycleBinV5Arg())
                            : fixture.client.send("clearRecycleBin", ClearRecycleBinArg());
    const qint64 sent = QDateTime::currentMSecsSinceEpoch();
    const bool later = QTest::qWaitFor([sent] { return QDateTime::currentMSecsSinceEpoch() > sent; });
    remove.item = fixture.idOf("b.txt");
    fixture.client.call<RemoveResult>("remove", remove);
    mayGoOn.release();
    QVERIFY(later);
    QCOMPARE(v5 ? fixture.client.answer<ClearRecycleBinV5Result>(call).clearedCount
                : fixture.client.answer<ClearRecycleBinResult>(call).clearedCount,
        int64_t(1));
    const auto bin =
        fixture.client.call<GetRecycleBinListResult>("getRecycleBinList", GetRecycleBinListArg());
    QCOMPARE(bin.items.size(), size_t(1));
    QCOMPARE(bin.items[0].name, std::string("b.txt"));
    ClearRecycleBinV5Arg odd;
    odd.deletedBefore = -1;
    QCOMPARE(fixture.client.call<ClearRecycleBinV5Result>("clearRecycleBinV5", odd).state,
        int(wire::ServiceError::InvalidArgument));
}

void TestDriveEdits::recoverToTakenName()
{
    DriveFixture fixture;
    fixture.fill(Files);
    RemoveArg remove;
    remove.item = fixture.idOf("a.txt");
    BatchRecoverRecycleFilesArg request;
    request.recycleIds = {fixture.client.call<RemoveResult>("remove", remove).recycleId};
    request.targetParentId = fixture.idOf("d").id;
    const auto refused =
        fixture.client.call<BatchRecoverRecycleFilesResult>("batchRecoverRecycleFiles", request);
    QCOMPARE(refused.conflicts.size(), size_t(1));
    // The id that the answer names is good for the next try.
    request.recycleIds = {refused.conflicts[0].item.id};
    request.conflictPolicy = 1;
    const auto done =
        fixture.client.call<BatchRecoverRecycleFilesResult>("batchRecoverRecycleFiles", request);
    QCOMPARE(names(done.items), QStringLiteral("a (2).txt"));
    QCOMPARE(DriveFixture::read(fixture.inDrive("d/a (2).txt")), QByteArray("one"));
}

QTEST_GUILESS_MAIN(TestDriveEdits)
#include "tst_driveedits.moc"

#include "notify_types.h"
#include "service/methods/drivefixture.h"

using namespace zel;
using namespace zel::vela;

/// The drive's recycle bin, and the trash of this machine.
class TestRecycle final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void replacedItemsAreInTheBin_data()
    {
        // source: of createFile; "copy": another method
        const auto row = zeltest::table<QString, QByteArray>("source", "content");
        row("copy", "copy", QByteArray("one"));
        row("new from a local file", "new", QByteArray("local"));
        row("new and empty", "", QByteArray());
    }

    void replacedItemsAreInTheBin()
    {
        QFETCH(QString, source);
        FilledDrive fixture;
        DriveFixture::write(fixture.local("new"), "local");
        const std::string before = fixture.idOf("d/a.txt").id;
        if (source == "copy"_s) {
            const auto copy = filled(&CopyArg::item, fixture.idOf("a.txt"), &CopyArg::targetParentId,
                fixture.idOf("d").id, &CopyArg::conflictPolicy, 2);
            QCOMPARE(fixture.client.call<CopyResult>("copy", copy).state, 0);
        } else {
            auto create = filled(&CreateFileArg::parentId, fixture.idOf("d").id, &CreateFileArg::name,
                "a.txt", &CreateFileArg::conflictPolicy, 2);
            if (!source.isEmpty())
                create.localPath = fixture.local("new").toStdString();
            const auto made = fixture.client.call<CreateFileResult>("createFile", create);
            QCOMPARE(made.state, 0);
            QVERIFY(made.item.id != before);
        }
        QTEST(DriveFixture::read(fixture.inDrive("d/a.txt")), "content");
        const auto bin = fixture.recycleBin();
        QCOMPARE(bin.size(), size_t(1));
        QCOMPARE(fixture.recover({bin[0].recycleId}).items.size(), size_t(1));
        QCOMPARE(DriveFixture::read(fixture.inDrive("d/a (2).txt")), QByteArray("old"));
    }

    void recycleBin()
    {
        FilledDrive fixture;
        const CloudItemId first = fixture.idOf("a.txt");
        const auto removed = fixture.remove(first);
        fixture.remove(fixture.idOf("d"));
        const auto pushes = [&] { return fixture.client.pushed<NotifyRecycleBinArg>("notifyRecycleBin"); };
        QTRY_COMPARE(pushes().size(), size_t(2));
        QCOMPARE(pushes()[0].items.at(0).recycleId, removed.recycleId);

        auto page = filled(&GetRecycleBinListV5Arg::orderBy, "name", &GetRecycleBinListV5Arg::count, 1);
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

        const auto cleared =
            fixture.client.call<ClearRecycleBinResult>("clearRecycleBin", ClearRecycleBinArg());
        QCOMPARE(cleared.clearedCount, int64_t(1));
        QTRY_COMPARE(pushes().size(), size_t(4));
        QCOMPARE(pushes()[3].action, 4);
        QCOMPARE(DriveFixture::tree(fixture.root()), "a.txt b.txt"_s);
    }

    void clearingLeavesWhatCameLater_data()
    {
        zeltest::rows<bool>("v5", {{"one space", false}, {"several", true}});
    }

    void clearingLeavesWhatCameLater()
    {
        QFETCH(bool, v5);
        FilledDrive fixture;
        fixture.remove(fixture.idOf("a.txt"));
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
        fixture.remove(fixture.idOf("b.txt"));
        mayGoOn.release();
        QVERIFY(later);
        QCOMPARE(v5 ? fixture.client.answer<ClearRecycleBinV5Result>(call).clearedCount
                    : fixture.client.answer<ClearRecycleBinResult>(call).clearedCount,
            int64_t(1));
        const auto bin = fixture.recycleBin();
        QCOMPARE(bin.size(), size_t(1));
        QCOMPARE(bin[0].name, std::string("b.txt"));
        sqlite::Database dates; // removed when the clock was wrong
        QVERIFY(dates.open(fixture.local("drive.db"))
            && dates.exec("UPDATE drive_trash SET deleted_at = 1 << 52"));
        QCOMPARE(
            fixture.client.call<ClearRecycleBinResult>("clearRecycleBin", ClearRecycleBinArg()).clearedCount,
            int64_t(1));
        QCOMPARE(fixture.client
                     .call<ClearRecycleBinV5Result>(
                         "clearRecycleBinV5", filled(&ClearRecycleBinV5Arg::deletedBefore, -1))
                     .state,
            int(wire::ServiceError::InvalidArgument));
    }

    void localFiles_data()
    {
        // path: in the folder of the test; as it is when it begins with "=" or "/"
        const auto row = zeltest::table<QString, QString>("path", "error");
        row("file", "l/a.txt", "");
        row("folder with its content", "l", "");
        row("link, not what it points to", "link", "");
        row("path written otherwise", "l/../l//a.txt", "");
        row("beyond a link, where the file system goes", "far/../b.txt", "");
        row("not there", "l/nothing", "notFound");
        row("relative", "=l/a.txt", "invalidArgument");
        row("root", "/", "denied");
        row("home", "=home", "denied");
        row("above home", "=home/..", "denied");
        row("the drive", "Drive", "denied");
        row("above the drive", "", "denied");
        row("the drive by a link", "far/../../Drive", "denied");
        row("device", "/dev/null", "denied");
        row("other file system", "/proc/self/status", "denied");
    }

    // What was put into the trash is gone from its place, and comes back by the id that the answer gave.
    void localFiles()
    {
        QFETCH(QString, path);
        FilledDrive fixture;
        DriveFixture::write(fixture.local("l/a.txt"), "mine");
        DriveFixture::write(fixture.local("away/b.txt"), "mine");
        DriveFixture::write(fixture.local("away/in/"), {});
        DriveFixture::write(fixture.local("b.txt"), "not meant");
        QVERIFY(QFile::link(fixture.local("away/in"), fixture.local("far")));
        QVERIFY(QFile::link(fixture.local("l/a.txt"), fixture.local("link")));
        QCOMPARE(fixture.list().state, 0); // the drive has its database now
        const QString before = DriveFixture::tree(fixture.place.path());
        path.replace("=home"_s, QDir::homePath());
        if (!path.startsWith(QLatin1Char('/')) && !path.startsWith(QLatin1Char('=')))
            path = fixture.local(qPrintable(path));
        const QFileInfo named(path);
        const QString real = QDir(QFileInfo(named.path()).canonicalFilePath()).filePath(named.fileName());
        RemoveArg remove;
        remove.extraParam["path"] =
            path.startsWith(QLatin1Char('=')) ? path.mid(1).toStdString() : path.toStdString();
        const auto removed = fixture.client.call<RemoveResult>("remove", remove);
        QTEST(QString::fromStdString(removed.errorInfo.errResult), "error");
        if (removed.state != 0) {
            QCOMPARE(DriveFixture::tree(fixture.place.path()), before);
            return;
        }
        QVERIFY(DriveFixture::tree(fixture.place.path()) != before);
        QVERIFY2(!QFileInfo(path).isSymLink() && !QFileInfo::exists(path), "gone from its place");
        QVERIFY(fixture.client.pushed<NotifyRecycleBinArg>("notifyRecycleBin").empty());

        const auto back = fixture.recover({removed.recycleId, "77", "/nowhere.trashinfo"});
        QCOMPARE(back.recoveredIds, std::vector<std::string>{removed.recycleId});
        QCOMPARE(back.items.at(0).extraParam.at("path"), real.toStdString());
        QCOMPARE(back.failedItems.size(), size_t(2));
        QCOMPARE(DriveFixture::tree(fixture.place.path()), before);
    }

    // A path in the drive goes into the drive's own bin, where other devices find it too.
    void pathInTheDrive()
    {
        FilledDrive fixture;
        RemoveArg remove;
        remove.extraParam["path"] = fixture.inDrive("d/a.txt").toStdString();
        const auto removed = fixture.client.call<RemoveResult>("remove", remove);
        QCOMPARE(fixture.recycleBin().at(0).recycleId, removed.recycleId);
        remove.permanent = true; // of a local file it would be for good
        remove.extraParam["path"] = fixture.local("x").toStdString();
        QCOMPARE(
            fixture.client.call<RemoveResult>("remove", remove).errorInfo.errResult, std::string("denied"));
    }
};

QTEST_GUILESS_MAIN(TestRecycle)
#include "tst_recycle.moc"

#include "transferfixture.h"

#include "service/drive/drivedisk.h"

using namespace zel;
using namespace zel::vela;
using service::TransferState;

class TestTransfer final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void uploads_data()
    {
        // content: of f/a.txt or a.txt
        const auto row = zeltest::table<bool, int, QString, QString>("folder", "policy", "tree", "content");
        row("file", false, 1, "a (2).txt a.txt f/ f/a.txt f/old.txt", "drive");
        row("file replaces", false, 2, "a.txt f/ f/a.txt f/old.txt", "local");
        row("file is skipped", false, 3, "a.txt f/ f/a.txt f/old.txt", "drive");
        row("folder beside", true, 1,
            "a.txt f/ f/a.txt f/old.txt f (2)/ f (2)/a.txt f (2)/sub/ f (2)/sub/b.txt", "drive");
        row("folder merges", true, 2, "a.txt f/ f/a.txt f/old.txt f/sub/ f/sub/b.txt", "local");
        row("folder merges what is missing", true, 3, "a.txt f/ f/a.txt f/old.txt f/sub/ f/sub/b.txt",
            "drive");
    }

    void uploads()
    {
        const auto [folder, policy] = zeltest::row<bool, int>();
        TransferFixture fixture;
        fixture.fill({"a.txt=drive"_s, "f/a.txt=drive"_s, "f/old.txt"_s});
        DriveFixture::write(fixture.local("l/a.txt"), "local");
        for (const char *file : {"l/f/a.txt", "l/f/sub/b.txt", "l/f/.hidden", "l/f/x.tmp"})
            DriveFixture::write(fixture.local(file), "local");
        QVERIFY(QFile::link(fixture.local("l"), fixture.local("l/f/round")));
        std::string id;
        if (folder) {
            id = fixture.uploadFolder(fixture.local("l/f"), policy);
        } else {
            BatchUploadFilesToCloudArg request;
            request.filePaths = {fixture.local("l/a.txt").toStdString(), "/nowhere", "/proc/self/status"};
            request.conflictPolicy = policy;
            auto result = fixture.client.call<VelaIpcResult>("batchUploadFileListToAnyExistedPath", request);
            QCOMPARE(result.state, 0);
            QCOMPARE(result.resultMap.at("/nowhere"), std::string("notFound"));
            QCOMPARE(result.resultMap.at("/proc/self/status"), std::string("denied"));
            QCOMPARE(result.resultList.size(), size_t(1));
            id = result.resultList[0];
        }
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        QFETCH(QString, tree);
        QCOMPARE(DriveFixture::sorted(DriveFixture::tree(fixture.root())), DriveFixture::sorted(tree));
        QTEST(
            QString::fromUtf8(DriveFixture::read(fixture.inDrive(folder ? "f/a.txt" : "a.txt"))), "content");
    }

    void downloads_data()
    {
        // state: of the answer
        // content: of what was there
        const auto row =
            zeltest::table<QString, int, int, QString, QString>("item", "policy", "state", "tree", "content");
        const int exists = int(wire::ServiceError::Exists);

        row("file, refused", "a.txt", 0, exists, "a.txt f/ f/a.txt", "mine");
        row("file beside", "a.txt", 1, 0, "a (2).txt a.txt f/ f/a.txt", "mine");
        row("file replaces", "a.txt", 2, 0, "a.txt f/ f/a.txt", "drive");
        row("file is skipped", "a.txt", 3, 0, "a.txt f/ f/a.txt", "mine");
        row("new file", "b.txt", 0, 0, "a.txt b.txt f/ f/a.txt", "mine");
        row("folder beside", "f", 1, 0, "a.txt f/ f/a.txt f (2)/ f (2)/a.txt f (2)/e/", "mine");
        row("folder merges", "f", 2, 0, "a.txt f/ f/a.txt f/e/", "drive");
    }

    void downloads()
    {
        const auto [item, policy] = zeltest::row<QString, int>();
        TransferFixture fixture;
        fixture.fill({"a.txt=drive"_s, "b.txt=drive"_s, "f/a.txt=drive"_s, "f/e/"_s});
        DriveFixture::write(fixture.local("l/a.txt"), "mine");
        DriveFixture::write(fixture.local("l/f/a.txt"), "mine");
        const auto result = fixture.client.call<DownloadCloudFileResult>("downloadFileFromCloud",
            filled(&DownloadCloudFileArg::item, fixture.idOf(qPrintable(item)),
                &DownloadCloudFileArg::targetPath, fixture.local("l/").toStdString(),
                &DownloadCloudFileArg::conflictPolicy, policy));
        QTEST(result.state, "state");
        QCOMPARE(result.taskId.empty(), result.state != 0);
        if (result.state == 0)
            QVERIFY(fixture.waitFor(result.taskId, TransferState::Done));
        QFETCH(QString, tree);
        QCOMPARE(DriveFixture::sorted(DriveFixture::tree(fixture.local("l"))), DriveFixture::sorted(tree));
        QTEST(QString::fromUtf8(DriveFixture::read(fixture.local(item == "f"_s ? "l/f/a.txt" : "l/a.txt"))),
            "content");
        if (item == "b.txt"_s)
            QCOMPARE(QFileInfo(fixture.local("l/b.txt")).lastModified(),
                QFileInfo(fixture.inDrive("b.txt")).lastModified());
    }

    void permissions_data()
    {
        // replaced: 0: nothing is there
        const auto row = zeltest::table<bool, int, int, int>("up", "source", "replaced", "mode");
        row("upload", true, 0600, 0, 0600);
        row("upload replaces", true, 0644, 0640, 0640);
        row("download", false, 0600, 0, 0600);
        row("download replaces", false, 0644, 0600, 0600);
    }

    void permissions()
    {
        const auto [up, source, replaced] = zeltest::row<bool, int, int>();
        TransferFixture fixture;
        const QString here = fixture.local("l/a.txt");
        const QString there = fixture.inDrive("a.txt");
        const auto make = [](const QString &path, int mode) {
            DriveFixture::write(path, path.toUtf8());
            return ::chmod(QFile::encodeName(path).constData(), mode_t(mode)) == 0;
        };
        const auto modeOf = [](const QString &path) { return service::disk::modeAt(AT_FDCWD, path); };
        QVERIFY(QDir().mkpath(fixture.local("l")) && make(up ? here : there, source));
        QVERIFY(replaced == 0 || make(up ? there : here, replaced));
        const auto id = up ? fixture.upload(here, 2) : fixture.download(fixture.idOf("a.txt"), here, 2);
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        QCOMPARE(DriveFixture::read(up ? there : here), (up ? here : there).toUtf8());
        QTEST(modeOf(up ? there : here), "mode");
        QCOMPARE(fixture.recycleBin().size(), size_t(up && replaced ? 1 : 0)); // a person's document
        for (const char *file : {"drive.db", "drive.db-wal", "drive.db-shm"})
            QCOMPARE(modeOf(fixture.local(file)), 0600);
    }

    void tellsWhatCannotBeStored_data()
    {
        zeltest::rows<bool>("up", {{"upload", true}, {"download and copy", false}});
    }
    void tellsWhatCannotBeStored()
    {
        QFETCH(bool, up);
        TransferFixture fixture;
        const QString source = up ? fixture.local("f") : fixture.inDrive("f");
        DriveFixture::write(source + "/sub/a.txt"_s, "a");
        const QByteArray bad = QFile::encodeName(source) + "/sub/bad\xff";
        QCOMPARE(::mkdir(bad.constData(), 0700), 0);
        const auto gone = qScopeGuard([&bad] { ::rmdir(bad.constData()); }); // QTemporaryDir cannot
        const auto id =
            up ? fixture.uploadFolder(source) : fixture.download(fixture.idOf("f"), fixture.local("l/"));
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        auto told = fixture.client.pushed<NotifyFileTransferArg>("notifyFileTransfer").back();
        QCOMPARE(told.errorInfo.extraParam["leftOut"], std::string("1"));
        const auto copy = filled(&CopyArg::item, fixture.idOf("f"), &CopyArg::newName, "g");
        QCOMPARE(
            fixture.client.call<CopyResult>("copy", copy).extraParam["leftOut"], std::string(up ? "" : "1"));
    }

    void linkedFoldersAreNotFilled()
    {
        TransferFixture fixture;
        fixture.fill({"f/s/a.txt=drive"_s, "f/t.txt=drive"_s});
        DriveFixture::write(fixture.local("far/a.txt"), "mine");
        QVERIFY(QDir().mkpath(fixture.local("l/f")) && QDir().mkpath(fixture.local("m")));
        for (const char *link : {"l/f/s", "m/f"})
            QVERIFY(QFile::link(fixture.local("far"), fixture.local(link)));
        for (const char *target : {"l/", "m/"}) {
            const auto id = fixture.download(fixture.idOf("f"), fixture.local(target), 2);
            QVERIFY(fixture.waitFor(id, TransferState::Failed));
        }
        QCOMPARE(DriveFixture::read(fixture.local("l/f/t.txt")), QByteArray("drive"));
        QCOMPARE(DriveFixture::tree(fixture.local("far")), "a.txt"_s);
        QCOMPARE(DriveFixture::read(fixture.local("far/a.txt")), QByteArray("mine"));
    }

    void stoppedInTheMiddle_data()
    {
        // end: of the service, else the user cancels
        const auto row = zeltest::table<bool, bool>("up", "end");
        row("upload cancelled", true, false);
        row("download cancelled", false, false);
        row("upload at the end of the service", true, true);
        row("download at the end of the service", false, true);
    }

    void stoppedInTheMiddle()
    {
        const auto [up, end] = zeltest::row<bool, bool>();
        TransferFixture fixture;
        std::string id;
        if (up) {
            id = fixture.upload(fixture.makeLarge(fixture.local("large")));
        } else {
            fixture.makeLarge(fixture.inDrive("large"));
            id = fixture.download(fixture.idOf("large"), fixture.local("l/large"));
        }
        QVERIFY(fixture.waitForProgress(id));
        if (end) {
            fixture.runner->stop();
            QCOMPARE(fixture.stateOf(id), TransferState::Running); // and so it goes on after the next start
        } else {
            QCOMPARE(fixture.transfers->cancelTasks({QString::fromStdString(id)}), wire::ServiceError::None);
            QVERIFY(fixture.waitFor(id, TransferState::Cancelled));
            QCOMPARE(
                fixture.transfers->cancelTasks({QString::fromStdString(id)}), wire::ServiceError::NotFound);
            QCOMPARE(
                fixture.client.pushed<NotifyFileTransferArg>("notifyFileTransfer").back().transferState, 6);
        }
        QCOMPARE(DriveFixture::tree(up ? fixture.root() : fixture.local("l")), QString());
    }

    void pausedAndContinued()
    {
        TransferFixture fixture;
        const QString path = fixture.makeLarge(fixture.local("large"));
        const std::string id = fixture.upload(path);
        QVERIFY(fixture.waitForProgress(id));
        QVERIFY(fixture.update({id, "nobody's"}, 1).failedItems.count("nobody's"));
        QVERIFY(fixture.waitFor(id, TransferState::Paused));
        QCOMPARE(DriveFixture::tree(fixture.root()), QString());
        DriveFixture::write(path, "short now");
        fixture.update({id}, 2);
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        QCOMPARE(DriveFixture::read(fixture.inDrive("large")), QByteArray("short now"));
    }

    void goesOnAfterRestart_data()
    {
        // there: in the drive when the next process starts
        // source: is still there
        const auto row = zeltest::table<QString, bool, int, QString>("there", "source", "state", "tree");
        row("nothing done", "", true, int(TransferState::Done), "a.txt");
        row("all done but noted", "same", true, int(TransferState::Done), "a.txt");
        row("somebody else took the name", "other", true, int(TransferState::Failed), "a.txt");
        row("the file went", "", false, int(TransferState::Failed), "");
    }

    void goesOnAfterRestart()
    {
        const auto [there, source] = zeltest::row<QString, bool>();
        TransferFixture fixture;
        const QString path = fixture.local("a.txt");
        DriveFixture::write(path, "content");
        service::TransferTasks tasks(1);
        tasks[0].info.transferType = int(service::TransferType::Upload);
        tasks[0].info.transferState = int(TransferState::Running);
        tasks[0].info.localPath = path.toStdString();
        tasks[0].folder = "root"_s;
        tasks[0].name = "a.txt"_s;
        QCOMPARE(fixture.table.add(fixture.me.userId, tasks), wire::ServiceError::None);
        if (!there.isEmpty()) {
            DriveFixture::write(fixture.inDrive("a.txt"), there == "same"_s ? "content" : "something else");
            QFile copy(fixture.inDrive("a.txt"));
            QVERIFY(copy.open(QIODevice::ReadWrite));
            QVERIFY(copy.setFileTime(QFileInfo(path).lastModified(), QFileDevice::FileModificationTime));
        }
        if (!source)
            QVERIFY(QFile::remove(path));
        fixture.startRunner();
        QFETCH(int, state);
        QVERIFY(fixture.waitFor(tasks[0].info.taskId, TransferState(state)));
        const auto after = fixture.table.find(tasks[0].id());
        QCOMPARE(after->info.errorInfo.errResult.empty(), state == int(TransferState::Done));
        QTEST(DriveFixture::tree(fixture.root()), "tree");
    }

    void folderGoesOnWhereItWas()
    {
        TransferFixture fixture;
        DriveFixture::write(fixture.local("f/a.txt"), "small");
        fixture.makeLarge(fixture.local("f/large"));
        const auto id = fixture.uploadFolder(fixture.local("f"));
        QVERIFY(fixture.waitForProgress(id, 2));
        fixture.runner->stop();
        QCOMPARE(DriveFixture::tree(fixture.root()), "f/ f/a.txt"_s);
        DriveFixture::write(fixture.local("f/large"), "small now");
        fixture.startRunner();
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        QCOMPARE(DriveFixture::tree(fixture.root()), "f/ f/a.txt f/large"_s);
    }

    void fullDisk_data() { zeltest::rows<bool>("up", {{"upload", true}, {"download", false}}); }

    void fullDisk()
    {
        QFETCH(bool, up);
        TransferFixture fixture;
        const QByteArray content(3 << 20, 'x');
        DriveFixture::write(up ? fixture.local("big") : fixture.inDrive("big"), content);
        std::signal(SIGXFSZ, SIG_IGN);
        struct rlimit before;
        ::getrlimit(RLIMIT_FSIZE, &before);
        struct rlimit small = before;
        small.rlim_cur = 2 << 20;
        ::setrlimit(RLIMIT_FSIZE, &small);
        const std::string id = up ? fixture.upload(fixture.local("big"))
                                  : fixture.download(fixture.idOf("big"), fixture.local("l/big"));
        const bool failed = fixture.waitFor(id, TransferState::Failed);
        ::setrlimit(RLIMIT_FSIZE, &before);
        QVERIFY(failed);
        const std::string error = fixture.errorOf(id);
        QVERIFY2(error == "diskFull" || error == "inputOutput", error.c_str());
        QCOMPARE(DriveFixture::tree(up ? fixture.root() : fixture.local("l")), QString());
        fixture.update({id}, 4);
        QVERIFY(fixture.waitFor(id, TransferState::Done));
        QCOMPARE(DriveFixture::read(up ? fixture.inDrive("big") : fixture.local("l/big")), content);
    }

    void unreadableFileLeavesTheOthers()
    {
        TransferFixture fixture;
        fixture.fill({"f/b.txt/"_s}); // a folder where a file is to go
        for (const char *file : {"f/a.txt", "f/b.txt", "f/c.txt"})
            DriveFixture::write(fixture.local(file), "x");
        const auto id = fixture.uploadFolder(fixture.local("f"), 2);
        QVERIFY(fixture.waitFor(id, TransferState::Failed));
        QCOMPARE(fixture.errorOf(id), std::string("exists"));
        QCOMPARE(DriveFixture::tree(fixture.root()), "f/ f/a.txt f/b.txt/ f/c.txt"_s);
    }
};

QTEST_GUILESS_MAIN(TestTransfer)
#include "tst_transfer.moc"

#include "notify_types.h"
#include "service/methods/drivefixture.h"

using namespace zel;
using namespace zel::vela;

class TestDriveEvents final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void tellsWhatOthersDo_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("from", "to", "push");
        row("new file", "", "d/n.txt", "notifyFileCreation");
        row("saved", "", "a.txt", "notifyFileProperty");
        row("moved", "a.txt", "d/m.txt", "notifyFileProperty");
        row("removed", "a.txt", "", "notifyFileAction");
    }

    void tellsWhatOthersDo()
    {
        const auto [from, to, push] = zeltest::row<QString, QString, QString>();
        FilledDrive fixture;
        const std::string id = fixture.idOf("a.txt").id;
        QSignalSpy told(&fixture.events, &service::DriveEvents::told);
        fixture.events.start(fixture.root());
        QVERIFY(told.wait());
        QVERIFY(fixture.client.pushed<NotifyFileCreationArg>("notifyFileCreation").empty());
        if (from.isEmpty())
            DriveFixture::write(fixture.inDrive(qPrintable(to)), "changed by others");
        else if (to.isEmpty())
            QVERIFY(QFile::remove(fixture.inDrive(qPrintable(from))));
        else
            QVERIFY(QFile::rename(fixture.inDrive(qPrintable(from)), fixture.inDrive(qPrintable(to))));
        QTRY_VERIFY(std::any_of(fixture.client.arrived.begin(), fixture.client.arrived.end(),
            [&](const auto &one) { return one.isPush && one.method == push.toStdString(); }));
        if (push == "notifyFileProperty"_s) {
            const auto item =
                fixture.client.pushed<NotifyFilePropertyArg>(push.toStdString()).at(0).items.at(0);
            QCOMPARE(item.id, id);
            QCOMPARE(item.name, QFileInfo(to).fileName().toStdString());
        }
        if (push == "notifyFileAction"_s)
            QVERIFY(fixture.client.pushed<NotifyFileActionArg>(push.toStdString()).at(0).item.deleted);
    }

    void tellsOwnChangesAfterTheAnswer()
    {
        FilledDrive fixture;
        QSignalSpy told(&fixture.events, &service::DriveEvents::told);
        fixture.events.start({}); // not watched
        QVERIFY(told.wait());
        const auto created =
            fixture.client.call<CreateFolderResult>("createFolder", filled(&CreateFolderArg::name, "new"));
        QTRY_COMPARE(fixture.client.arrived.back().method, std::string("notifyFileCreation"));
        QCOMPARE(fixture.client.pushed<NotifyFileCreationArg>("notifyFileCreation").at(0).item.id,
            created.item.id);

        RenameArg rename;
        rename.item.id = created.item.id;
        rename.newName = "newer";
        fixture.client.call<RenameResult>("rename", rename);
        QTRY_COMPARE(fixture.client.arrived.back().method, std::string("notifyFileProperty"));
        QCOMPARE(
            fixture.client.pushed<NotifyFileActionArg>("notifyFileAction").at(0).oldName, std::string("new"));

        QSignalSpy gone(&fixture.events, &service::DriveEvents::filesGone);
        fixture.remove(rename.item);
        QVERIFY(gone.count() > 0 || gone.wait());
        QCOMPARE(gone[0][0].toStringList(), QStringList{QString::fromStdString(created.item.id)});
    }

    void manyChangesAreToldByFolder()
    {
        FilledDrive fixture;
        QSignalSpy told(&fixture.events, &service::DriveEvents::told);
        fixture.events.start({});
        QVERIFY(told.wait());
        for (int i = 0; i <= service::DriveEvents::MostItems; ++i)
            DriveFixture::write(fixture.inDrive(qPrintable("d/%1"_s.arg(i))), {});
        fixture.events.check();
        QVERIFY(told.wait());
        QCOMPARE(fixture.client.arrived.back().method, std::string("notifyFileProperty"));
        const auto push = fixture.client.pushed<NotifyFilePropertyArg>("notifyFileProperty").at(0);
        QCOMPARE(push.changedFields, std::vector<std::string>{"children"});
        QCOMPARE(DriveFixture::names(push.items), "d"_s);
        QVERIFY(fixture.client.pushed<NotifyFileCreationArg>("notifyFileCreation").empty());
    }

    void newsOfManySteps()
    {
        // What happened to one item, and how many then count as created, modified, moved and gone.
        const std::map<QString, QVector<int>> cases{{"CMR"_s, {0, 0, 0, 0}}, {"CMV"_s, {1, 0, 0, 0}},
            {"VM"_s, {0, 1, 1, 0}}, {"MR"_s, {0, 0, 0, 1}}, {"RC"_s, {0, 1, 0, 0}}, {"RCR"_s, {0, 0, 0, 1}}};
        for (const auto &[steps, counts] : cases) {
            QVector<service::DriveChange> changes;
            for (const QChar step : steps)
                changes.append(
                    {service::DriveChange::Kind("CMVR"_s.indexOf(step)), "7"_s, "1"_s, "n"_s, false});
            const service::DriveNews news = service::summarize(changes);
            QCOMPARE((QVector<int>{int(news.created.size()), int(news.modified.size()),
                         int(news.moved.size()), int(news.gone.size())}),
                counts);
        }
    }

    void driveThatCannotBeOpened()
    {
        MethodClient client;
        bool offline = true;
        QTemporaryDir place;
        const auto drives = service::localDrives(place.path(), place.filePath("drive.db"_s));
        service::DriveThread thread([&]() -> service::DriveResult<std::shared_ptr<service::CloudDrive>> {
            if (offline)
                return service::DriveError{service::DriveError::Kind::Offline, "away"_s};
            return drives();
        });
        const service::IdentitySource identity = [] { return service::Identity(); };
        service::DriveEvents events(thread, client, identity);
        service::LocalTrash localTrash(place.filePath("Drive"_s));
        service::DriveThreads threads([] { return service::DriveError{}; });
        const service::DriveContext context{
            thread, thread, threads, events, localTrash, client, identity, {}};
        addDriveQueries(client.methods, context);
        const auto refused = client.call<GetInfoListResult>("getInfoList", GetInfoListArg());
        QCOMPARE(refused.state, int(wire::ServiceError::Offline));
        QCOMPARE(refused.errorInfo.errResult, std::string("offline"));
        // What was done on this machine is told all the same.
        addRemoval(client.methods, context);
        RemoveArg remove;
        remove.extraParam["path"] = place.filePath("l.txt"_s).toStdString();
        DriveFixture::write(place.filePath("l.txt"_s), "mine");
        RecoverRecyclesArg recover;
        recover.recycleIds = {"7", client.call<RemoveResult>("remove", remove).recycleId};
        const auto recovered = client.call<RecoverRecyclesResult>("recoverRecycles", recover);
        QCOMPARE(recovered.recoveredIds, std::vector<std::string>{recover.recycleIds[1]});
        QCOMPARE(recovered.failedItems.at("7").errResult, std::string("offline"));
        offline = false;
        QCOMPARE(client.call<GetInfoListResult>("getInfoList", GetInfoListArg()).state, 0);
    }

    // What waits is dropped, on the thread that the answers belong to; what runs is asked to end.
    void endsWithJobsWaiting()
    {
        FilledDrive fixture;
        struct Probe
        {
            QThread **where;
            explicit Probe(QThread **place) : where(place) { }
            Probe(Probe &&other) noexcept : where(std::exchange(other.where, nullptr)) { }
            ~Probe()
            {
                if (where)
                    *where = QThread::currentThread();
            }
        };
        QThread *droppedOn = nullptr;
        QThread *doneOn = nullptr;
        std::atomic<bool> running = false;
        const auto wait = [&](service::CloudDrive &) -> service::DriveDone {
            running = true;
            while (fixture.bulk.goingOn())
                QThread::yieldCurrentThread();
            return service::DriveOk();
        };
        fixture.bulk.run(
            wait, [probe = Probe(&doneOn)](const service::DriveDone &) { QFAIL("told after the end"); });
        fixture.bulk.run([](service::CloudDrive &) -> service::DriveDone { return service::DriveOk(); },
            [probe = Probe(&droppedOn)](const service::DriveDone &) { QFAIL("told after the end"); });
        QTRY_VERIFY(running);
        fixture.bulk.stop();
        QCOMPARE(doneOn, QThread::currentThread());
        QCOMPARE(droppedOn, QThread::currentThread());
    }

    void damagedDatabaseIsKeptAside()
    {
        FilledDrive fixture;
        DriveFixture::write(fixture.local("drive.db"), QByteArray(8192, 'x'));
        QCOMPARE(fixture.list().state, 0);
        QCOMPARE(QDir(fixture.place.path()).entryList({"drive.db.damaged-*"_s}).size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestDriveEvents)
#include "tst_driveevents.moc"

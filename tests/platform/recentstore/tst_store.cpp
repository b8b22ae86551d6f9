// The whole store with its thread, real files and real notices.
#include "repositoryfixture.h"

#include "platform/impl/recentstore/recentworker.h"
#include "platform/impl/recentstore/xbel/xbelwatcher.h"
#include "platform/impl/recentstore/xbel/xbelwriter.h"

using namespace zel::recent;
using namespace zel::recent::test;
using Presence = RecentFileInfo::Presence;

class StoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noticesComeLaterAndInOrder()
    {
        Home home({{A, 1}, {B, 2}});
        Store store(home);
        QVERIFY(!store.proxy.isKindReady(RecentRecordKind::Roaming));
        store.proxy.initKind(RecentRecordKind::Roaming);
        store.proxy.initKind(RecentRecordKind::Desktop);
        QVERIFY(store.initFinished.isEmpty());
        QVERIFY(store.initFinished.wait());
        QCOMPARE(store.shown(), "b:32 a:32"_s);
        QVERIFY(store.proxy.isKindReady(RecentRecordKind::Roaming));
        const RecentFileInfo record = store.record(B);
        QCOMPARE(record.id, B);
        QCOMPARE(record.lastAccess, timeOf(2));
        QCOMPARE(record.mimeType, "text/plain"_s);
        store.proxy.noteOpened(A);
        store.proxy.removeRecords({B});
        QCOMPARE(store.shown(), "b:32 a:32"_s);
        QTRY_COMPARE(store.shown(), "a:8"_s);
        QCOMPARE(store.initFinished.size(), 1);
        QVERIFY(store.load()); // once more: ready at once
        QCOMPARE(store.added.size(), 0);
    }

    void whatWasReadBeforehandIsNotReadAgain()
    {
        Home home({{A, 1}, {B, 2}});
        {
            LoadedStore store(home);
        }
        for (const bool changed : {false, true}) {
            RecentWorker worker(home.places, WorkMode::ReadOnly);
            QSignalSpy prepared(&worker, &RecentWorker::prepared);
            QSignalSpy loaded(&worker, &RecentWorker::loaded);
            worker.prepare();
            QCOMPARE(textOf(prepared.at(0).at(0).value<RecordInfoList>()), "b:32 a:32"_s);
            if (changed)
                worker.removeRecords({B});
            worker.load();
            QCOMPARE(loaded.size(), int(changed));
        }
        Store store(home);
        store.proxy.onPrepared({{}});
        store.proxy.initKind(RecentRecordKind::Roaming);
        QVERIFY(store.proxy.isKindReady(RecentRecordKind::Roaming)); // for the window's first painting
        QTRY_COMPARE(store.shown(), "a:32"_s);
    }

    void manyFilesAreNotedAtOneGo()
    {
        Home home;
        LoadedStore store(home);
        QStringList paths{"not absolute"_s};
        for (int i = 0; i < 300; ++i)
            paths << "/nowhere/%1.odt"_s.arg(i);
        store.proxy.noteAllOpened(paths + paths);
        QTRY_COMPARE(store.proxy.records().size(), 300);
        QCOMPARE(store.added.size(), 1);
        QTRY_COMPARE(contentOf(home.places.desktopList).count("<bookmark "), 300);
    }

    void removalIsTakenBack()
    {
        Home home({{A, 1}, {B, 2}});
        {
            LoadedStore store(home);
            const RecentFileInfo older = store.record(A);
            store.proxy.removeRecords({A});
            QTRY_COMPARE(store.shown(), "b:32"_s);
            store.proxy.undoRemoval({older});
            QTRY_COMPARE(store.shown(), "b:32 a:8"_s); // where it stood
        }
        LoadedStore store(home);
        QCOMPARE(store.shown(), "b:32 a:8"_s);
    }

    void listsAreFollowed()
    {
        Home home;
        LoadedStore store(home);
        QCOMPARE(store.shown(), QString());
        QVERIFY(home.setDesktop({{A, 1}})); // comes into being
        QTRY_COMPARE(store.shown(), "a:32"_s);
        QFile held(home.places.desktopList); // a reader keeps the old file alive
        QVERIFY(held.open(QIODevice::ReadOnly));
        QVERIFY(home.setDesktop({{A, 1}, {B, 2}})); // replaced by renaming
        QTRY_COMPARE(store.shown(), "b:32 a:32"_s);
        QFile file(home.places.desktopList); // written in place, after a replacement
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(listText({{A, 3}, {B, 2}}));
        file.close();
        QTRY_COMPARE(store.shown(), "a:32 b:32"_s);
        QVERIFY(replaceFile(home.sandboxList("org.x"_s), listText({{C, 9}, {B, 4}})));
        QTRY_COMPARE(store.shown(), "c:64 b:64 a:32"_s);
        QVERIFY(replaceFile(
            home.sandboxList("org.y"_s), listText({{C, 5}, {"/nowhere/p"_s, 5, "<bookmark:private/>"_s}})));
        QVERIFY(home.setDesktop({{A, 3}}));
        QTRY_COMPARE(store.shown(), "c:64 b:64 a:32"_s);
        QVERIFY(QDir(home.path("var/app/org.x"_s)).removeRecursively()); // uninstalled
        QTRY_COMPARE(store.shown(), "c:64 a:32"_s);
    }

    void vanishedEntries()
    {
        Home home({{A, 1}, {B, 2}, {C, 3}});
        LoadedStore store(home);
        store.proxy.noteOpened(A);
        QTRY_VERIFY(listed(home).contains(QLatin1String(ApplicationName)));
        QVERIFY(replaceFile(home.places.desktopList, listText({{C, 3}}).chopped(12))); // damaged
        QVERIFY(replaceFile(home.sandboxList("s"_s), listText({{"/nowhere/s"_s, 0}})));
        QTRY_COMPARE(store.shown(), "a:8 c:32 b:32 s:64"_s);
        QVERIFY(home.setDesktop({{C, 3}}));
        QTRY_COMPARE(store.shown(), "a:8 c:32 s:64"_s);
        QVERIFY(QFile::remove(home.places.desktopList)); // no intact list either
        QVERIFY(replaceFile(home.sandboxList("s"_s), listText({})));
        QTRY_COMPARE(store.shown(), "a:8 c:32"_s);
    }

    void removedRecordsStayAwayUntilUsedAgain()
    {
        Home home;
        const QString sandbox = home.sandboxList("s"_s);
        QVERIFY(home.setDesktop({{A, 1}, {B, 2}}));
        QVERIFY(replaceFile(sandbox, listText({{A, 1}})));
        {
            LoadedStore store(home);
            store.proxy.removeRecords({A});
            QTRY_COMPARE(store.shown(), "b:32"_s);
        }
        QVERIFY(!listed(home).contains(A)); // forgotten by the desktop too
        QVERIFY(listed(home).contains(B));
        LoadedStore store(home);
        QVERIFY(home.setDesktop({{A, 1}, {B, 2}, {C, 3}})); // another program puts its old entry back
        QTRY_COMPARE(store.shown(), "c:32 b:32"_s);
        QVERIFY(replaceFile(sandbox, listText({{A, 9}})));
        QTRY_COMPARE(store.shown(), "a:64 c:32 b:32"_s);
    }

    void openedFilesAreToldToTheDesktop()
    {
        Home home({{B, 2}});
        const QString file = home.path("müller & co.html"_s);
        QVERIFY(replaceFile(file, "<!DOCTYPE html><html><body>x</body></html>"));
        LoadedStore store(home);
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        store.proxy.noteOpened(file);
        QTRY_COMPARE(store.added.size(), 1);
        QVERIFY(store.record(file).lastAccess >= before);
        QTRY_COMPARE(store.record(file).mimeType, "text/html"_s);
        QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
        QTRY_VERIFY(listed(home).contains(QLatin1String(ApplicationName)));
        // What the store wrote itself is no news when it is read back, which the marker behind it shows.
        const int told = calls(store);
        const QByteArray marked =
            contentOf(home.places.desktopList).replace("</xbel>", bookmarkText({C, 3}).toUtf8() + "</xbel>");
        QVERIFY(replaceFile(home.places.desktopList, marked));
        QTRY_COMPARE(store.added.size(), 2);
        QCOMPARE(store.record(file).kind, int(RecentRecordKind::Opened));
        QCOMPARE(calls(store) - told, store.record(C).presence == Presence::Unknown ? 1 : 2);
    }

    void readOnlyNeitherFollowsNorWrites()
    {
        Home home({{A, 1}});
        {
            LoadedStore store(home, WorkMode::ReadOnly);
            QCOMPARE(store.shown(), QString());
            store.proxy.noteOpened(B);
            QTRY_COMPARE(store.shown(), "b:8"_s);
            store.proxy.removeRecords({A});
        }
        QCOMPARE(contentOf(home.places.desktopList), listText({{A, 1}}));
        LoadedStore store(home);
        QTRY_COMPARE(store.shown(), "b:8 a:32"_s); // what the list says comes now
    }

    void presence()
    {
        Home home;
        const QString file = home.path("doc"_s);
        QVERIFY(replaceFile(file, "x"));
        QVERIFY(home.setDesktop({{A, 1}, {file, 2}}));
        {
            LoadedStore store(home);
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
            QTRY_COMPARE(int(store.record(A).presence), int(Presence::Missing));
            QCOMPARE(store.record(file).size, 1);
            QCOMPARE(store.record(A).size, -1);
            QVERIFY(QFile::remove(file));
            store.proxy.checkPresence({file});
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Missing));
            QVERIFY(replaceFile(file, "xyz"));
            store.proxy.checkPresence({file, "unknown"_s});
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
            QCOMPARE(store.record(file).size, 3);
            execute(home, "UPDATE record SET size=-1");
            store.proxy.noteOpened(B); // sees what another process did
            QTRY_COMPARE(store.record(file).size, -1);
            store.proxy.lookUpSizes();
            QTRY_COMPARE(store.record(file).size, 3);
        }
        QVERIFY(QFile::remove(file)); // while nobody looks
        LoadedStore store(home);
        QTRY_COMPARE(int(store.record(file).presence), int(Presence::Missing));
        const auto told = store.changed.first().first().value<RecordInfoList>();
        QCOMPARE(told.size(), 1); // what is as it was is not told of
    }

    void pinnedRecordsStay()
    {
        Home home({{A, 1}, {B, 2}});
        LoadedStore store(home);
        store.proxy.setPinned({A}, true);
        QTRY_VERIFY(store.record(A).pinned);
        QVERIFY(home.setDesktop({{C, 3}}));
        QTRY_COMPARE(store.shown(), "c:32 a:8"_s);
        store.proxy.setPinned({A}, false);
        QTRY_VERIFY(!store.record(A).pinned);
        QCOMPARE(store.shown(), "c:32 a:8"_s); // does not vanish at once
    }

    void largeChangesAreToldOnce()
    {
        Home home({{A, 1}});
        LoadedStore store(home);
        QVERIFY(home.setDesktop(numbered(6000)));
        QTRY_COMPARE(store.proxy.records().size(), 6000);
        QCOMPARE(store.arrived.size(), 1);
        QCOMPARE(store.added.size() + store.removed.size(), 0);
    }

    void aListThatNeverRestsIsReadAllTheSame()
    {
        Home home;
        LoadedStore store(home);
        int round = 0;
        QTimer writer;
        connect(&writer, &QTimer::timeout, this, [&] { home.setDesktop({{A, ++round, {}}}); });
        writer.start(XbelWatcher::PauseMs / 6);
        QTRY_VERIFY_WITH_TIMEOUT(!store.changed.isEmpty(), 20000); // read twice
        QVERIFY(writer.isActive());
        writer.stop();
        QTRY_COMPARE(store.record(A).lastAccess, timeOf(round));
    }

    void damagedDatabaseIsMadeAnewFromTheLists()
    {
        Home home({{A, 1}});
        QVERIFY(replaceFile(home.places.database, QByteArray(5000, 'x')));
        LoadedStore store(home);
        QCOMPARE(store.shown(), "a:32"_s);
        QTRY_COMPARE(store.keeping.size(), 1);
    }

    void aLockedDatabaseComesBack()
    {
        Home home({{B, 2}, {C, 3}});
        QVERIFY(replaceFile(home.sandboxList("s"_s), listText({{A, 1}})));
        {
            LoadedStore store(home);
            store.proxy.removeRecords({A});
            QTRY_COMPARE(store.shown(), "c:32 b:32"_s);
        }
        {
            zel::sqlite::Database other;
            QVERIFY(lock(home, other));
            LoadedStore store(home);
            QCOMPARE(store.shown(), "c:32 b:32 a:64"_s);
            QCOMPARE(store.keeping.takeFirst().at(0).value<RecentKeeping>(), RecentKeeping::NotKept);
            store.proxy.removeRecords({B});
            QTRY_COMPARE(store.shown(), "c:32 a:64"_s);
            other.close();
            QTRY_COMPARE_WITH_TIMEOUT(store.shown(), "c:32"_s, 30000); // both removals
            QCOMPARE(store.keeping.takeFirst().at(0).value<RecentKeeping>(), RecentKeeping::Kept);
            QVERIFY(home.setDesktop({{B, 2}, {C, 4}})); // another program puts its old entry back
            QTRY_COMPARE(store.record(C).lastAccess, timeOf(4));
        }
        LoadedStore store(home);
        QCOMPARE(store.shown(), "c:32"_s);
    }

    void foldersAreNoDocuments()
    {
        Home home;
        const QString folder = home.path("folder"_s);
        QVERIFY(replaceFile(home.path("doc"_s), "x") && QDir().mkpath(folder));
        LoadedStore store(home);
        QSignalSpy leftOut(&store.events, &KRecentFileEvents::foldersLeftOut);
        store.proxy.noteAllOpened({folder, home.path("doc"_s)});
        QTRY_COMPARE(leftOut.size(), 1);
        QCOMPARE(leftOut.constFirst().constFirst().toStringList(), QStringList{folder});
        QTRY_COMPARE(store.shown(), "doc:8"_s);
        QTRY_VERIFY(listed(home).contains("/doc"_s));
        QVERIFY(!listed(home).contains("/folder"_s));
    }

    void aListThatCouldNotBeWrittenIsTriedAgain()
    {
        Home home;
        QVERIFY(QDir().mkpath(home.places.desktopList));
        LoadedStore store(home);
        store.proxy.noteOpened(A);
        QTRY_VERIFY(store.record(A).presence == Presence::Missing); // it is written once that is known
        QVERIFY(QDir().rmdir(home.places.desktopList));
        QTRY_VERIFY_WITH_TIMEOUT(listed(home).contains(A), 30000);
    }

private:
    static int calls(const Store &store)
    {
        return store.arrived.size() + store.added.size() + store.removed.size() + store.changed.size();
    }
    static QVector<Bookmark> numbered(int count)
    {
        QVector<Bookmark> list;
        for (int i = 0; i < count; ++i)
            list.append({"/nowhere/file %1.txt"_s.arg(i), i, {}});
        return list;
    }
    static QString listed(const Home &home) { return QString::fromUtf8(contentOf(home.places.desktopList)); }
};

namespace {

// By the public functions and the environment: notes of a store that is stopped after, with and without an
// application.
QString notesAroundTheApplicationsEnd(int &argc, char **argv)
{
    InitRecentFile(WorkMode::Full);
    KRecentFileProxy::instance()->noteOpened(A); // before there is an application
    UninitRecentFile();
    {
        const QCoreApplication application(argc, argv);
        InitRecentFile(WorkMode::Full);
        KRecentFileProxy *proxy = KRecentFileProxy::instance();
        InitRecentFile(WorkMode::Full);
        if (KRecentFileProxy::instance() != proxy)
            return "a second start replaced the store"_s;
        proxy->initKind(RecentRecordKind::Opened);
        proxy->noteOpened(B);
    }
    UninitRecentFile();
    if (KRecentFileProxy::instance())
        return "not stopped"_s;
    RecentRepository repository(RecentPlaces::fromEnvironment().database, [](RecentKeeping) {});
    return zeltest::joined(repository.open(), &RecentFileInfo::displayText);
}

QStringList warnings;

void keepWarnings(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // Qt's word when the store's thread gets its first turn only after the application's end, which loses
    // nothing.
    const bool late = text.startsWith("QEventLoop: Cannot be used without Q"_s);
    if (type != QtDebugMsg && type != QtInfoMsg && !late)
        warnings.append(text);
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(keepWarnings);
    const QString notes = notesAroundTheApplicationsEnd(argc, argv);
    qInstallMessageHandler(nullptr);
    if (notes != "b a"_s || !warnings.isEmpty())
        qFatal("around the application's end: %s, %s", qPrintable(notes),
            qPrintable(warnings.join(QLatin1Char(','))));
    QCoreApplication application(argc, argv);
    StoreTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_store.moc"

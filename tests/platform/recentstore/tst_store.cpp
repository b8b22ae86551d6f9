// The whole store with its thread, real files and real notices.
#include "repositoryfixture.h"

#include "platform/impl/recentstore/xbel/xbelwatcher.h"
#include "platform/impl/recentstore/xbel/xbelwriter.h"

#include "base/paths.h"

#include <QTest>

using namespace zel::recent;
using namespace zel::recent::test;
using Presence = RecentFileInfo::Presence;

namespace {

int calls(const Store &store)
{
    return store.arrived.size() + store.added.size() + store.removed.size() + store.changed.size();
}

QVector<Bookmark> numbered(int count)
{
    QVector<Bookmark> list;
    for (int i = 0; i < count; ++i)
        list.append({QStringLiteral("/nowhere/file %1.txt").arg(i), i, {}});
    return list;
}

QString listed(const Home &home)
{
    return QString::fromUtf8(contentOf(home.places.desktopList));
}

} // namespace

class StoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noticesComeLaterAndInOrder()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}}));
        Store store(home);
        QVERIFY(!store.proxy.isKindReady(RecentRecordKind::Roaming));
        store.proxy.initKind(RecentRecordKind::Roaming);
        store.proxy.initKind(RecentRecordKind::Desktop);
        QVERIFY(store.initFinished.isEmpty());
        QVERIFY(store.initFinished.wait());
        QCOMPARE(store.shown(), QStringLiteral("b:32 a:32"));
        QVERIFY(store.proxy.isKindReady(RecentRecordKind::Roaming));
        const RecentFileInfo record = store.record(B);
        QCOMPARE(record.id, B);
        QCOMPARE(record.lastAccess, timeOf(2));
        QCOMPARE(record.mimeType, QStringLiteral("text/plain"));
        store.proxy.noteOpened(A);
        store.proxy.removeRecords({B});
        QCOMPARE(store.shown(), QStringLiteral("b:32 a:32"));
        QTRY_COMPARE(store.shown(), QStringLiteral("a:8"));
        QCOMPARE(store.initFinished.size(), 1);
        QVERIFY(store.load()); // once more: ready at once
        QCOMPARE(store.added.size(), 0);
    }

    void manyFilesAreNotedAtOneGo()
    {
        Home home;
        Store store(home);
        QVERIFY(store.load());
        QStringList paths{QStringLiteral("not absolute")};
        for (int i = 0; i < 300; ++i)
            paths << QStringLiteral("/nowhere/%1.odt").arg(i);
        store.proxy.noteAllOpened(paths + paths);
        QTRY_COMPARE(store.proxy.records().size(), 300);
        QCOMPARE(store.added.size(), 1);
        QTRY_COMPARE(contentOf(home.places.desktopList).count("<bookmark "), 300);
    }

    void removalIsTakenBack()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}}));
        {
            Store store(home);
            QVERIFY(store.load());
            const RecentFileInfo older = store.record(A);
            store.proxy.removeRecords({A});
            QTRY_COMPARE(store.shown(), QStringLiteral("b:32"));
            store.proxy.undoRemoval({older});
            QTRY_COMPARE(store.shown(), QStringLiteral("b:32 a:8")); // where it stood
        }
        Store store(home);
        QVERIFY(store.load());
        QCOMPARE(store.shown(), QStringLiteral("b:32 a:8"));
    }

    void listsAreFollowed()
    {
        Home home;
        Store store(home);
        QVERIFY(store.load());
        QCOMPARE(store.shown(), QString());
        QVERIFY(home.setDesktop({{A, 1, {}}})); // comes into being
        QTRY_COMPARE(store.shown(), QStringLiteral("a:32"));
        QFile held(home.places.desktopList); // a reader keeps the old file alive
        QVERIFY(held.open(QIODevice::ReadOnly));
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}})); // replaced by renaming
        QTRY_COMPARE(store.shown(), QStringLiteral("b:32 a:32"));
        QFile file(home.places.desktopList); // written in place, after a replacement
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(listText({{A, 3, {}}, {B, 2, {}}}));
        file.close();
        QTRY_COMPARE(store.shown(), QStringLiteral("a:32 b:32"));
        QVERIFY(replaceFile(home.sandboxList(QStringLiteral("org.x")), listText({{C, 9, {}}, {B, 4, {}}})));
        QTRY_COMPARE(store.shown(), QStringLiteral("c:64 b:64 a:32"));
        QVERIFY(replaceFile(home.sandboxList(QStringLiteral("org.y")),
            listText(
                {{C, 5, {}}, {QStringLiteral("/nowhere/p"), 5, QStringLiteral("<bookmark:private/>")}})));
        QVERIFY(home.setDesktop({{A, 3, {}}}));
        QTRY_COMPARE(store.shown(), QStringLiteral("c:64 b:64 a:32"));
        QVERIFY(QDir(home.path(QStringLiteral("var/app/org.x"))).removeRecursively()); // uninstalled
        QTRY_COMPARE(store.shown(), QStringLiteral("c:64 a:32"));
    }

    void vanishedEntries()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}, {C, 3, {}}}));
        Store store(home);
        QVERIFY(store.load());
        store.proxy.noteOpened(A);
        QTRY_VERIFY(listed(home).contains(QLatin1String(ApplicationName)));
        QVERIFY(replaceFile(home.places.desktopList, listText({{C, 3, {}}}).chopped(12))); // damaged
        QVERIFY(replaceFile(
            home.sandboxList(QStringLiteral("s")), listText({{QStringLiteral("/nowhere/s"), 0, {}}})));
        QTRY_COMPARE(store.shown(), QStringLiteral("a:8 c:32 b:32 s:64"));
        QVERIFY(home.setDesktop({{C, 3, {}}}));
        QTRY_COMPARE(store.shown(), QStringLiteral("a:8 c:32 s:64"));
        QVERIFY(QFile::remove(home.places.desktopList)); // no intact list either
        QVERIFY(replaceFile(home.sandboxList(QStringLiteral("s")), listText({})));
        QTRY_COMPARE(store.shown(), QStringLiteral("a:8 c:32"));
    }

    void removedRecordsStayAwayUntilUsedAgain()
    {
        Home home;
        const QString sandbox = home.sandboxList(QStringLiteral("s"));
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}}));
        QVERIFY(replaceFile(sandbox, listText({{A, 1, {}}})));
        {
            Store store(home);
            QVERIFY(store.load());
            store.proxy.removeRecords({A});
            QTRY_COMPARE(store.shown(), QStringLiteral("b:32"));
        }
        QVERIFY(!listed(home).contains(A)); // forgotten by the desktop too
        QVERIFY(listed(home).contains(B));
        Store store(home);
        QVERIFY(store.load());
        QVERIFY(
            home.setDesktop({{A, 1, {}}, {B, 2, {}}, {C, 3, {}}})); // another program puts its old entry back
        QTRY_COMPARE(store.shown(), QStringLiteral("c:32 b:32"));
        QVERIFY(replaceFile(sandbox, listText({{A, 9, {}}})));
        QTRY_COMPARE(store.shown(), QStringLiteral("a:64 c:32 b:32"));
    }

    void openedFilesAreToldToTheDesktop()
    {
        Home home;
        QVERIFY(home.setDesktop({{B, 2, {}}}));
        const QString file = home.path(QStringLiteral("müller & co.html"));
        QVERIFY(replaceFile(file, "<!DOCTYPE html><html><body>x</body></html>"));
        Store store(home);
        QVERIFY(store.load());
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        store.proxy.noteOpened(file);
        QTRY_COMPARE(store.added.size(), 1);
        QVERIFY(store.record(file).lastAccess >= before);
        QTRY_COMPARE(store.record(file).mimeType, QStringLiteral("text/html"));
        QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
        QTRY_VERIFY(listed(home).contains(QLatin1String(ApplicationName)));
        // What the store wrote itself is no news when it is read back, which the marker behind it shows.
        const int told = calls(store);
        const QByteArray marked = contentOf(home.places.desktopList)
                                      .replace("</xbel>", bookmarkText({C, 3, {}}).toUtf8() + "</xbel>");
        QVERIFY(replaceFile(home.places.desktopList, marked));
        QTRY_COMPARE(store.added.size(), 2);
        QCOMPARE(store.record(file).kind, int(RecentRecordKind::Opened));
        QCOMPARE(calls(store) - told, store.record(C).presence == Presence::Unknown ? 1 : 2);
    }

    void readOnlyNeitherFollowsNorWrites()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}}));
        {
            Store store(home, WorkMode::ReadOnly);
            QVERIFY(store.load());
            QCOMPARE(store.shown(), QString());
            store.proxy.noteOpened(B);
            QTRY_COMPARE(store.shown(), QStringLiteral("b:8"));
            store.proxy.removeRecords({A});
        }
        QCOMPARE(contentOf(home.places.desktopList), listText({{A, 1, {}}}));
        Store store(home);
        QVERIFY(store.load());
        QTRY_COMPARE(store.shown(), QStringLiteral("b:8 a:32")); // what the list says comes now
    }

    void presence()
    {
        Home home;
        const QString file = home.path(QStringLiteral("doc"));
        QVERIFY(replaceFile(file, "x"));
        QVERIFY(home.setDesktop({{A, 1, {}}, {file, 2, {}}}));
        {
            Store store(home);
            QVERIFY(store.load());
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
            QTRY_COMPARE(int(store.record(A).presence), int(Presence::Missing));
            QCOMPARE(store.record(file).size, 1);
            QCOMPARE(store.record(A).size, -1);
            QVERIFY(QFile::remove(file));
            store.proxy.checkPresence({file});
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Missing));
            QVERIFY(replaceFile(file, "xyz"));
            store.proxy.checkPresence({file, QStringLiteral("unknown")});
            QTRY_COMPARE(int(store.record(file).presence), int(Presence::Present));
            QCOMPARE(store.record(file).size, 3);
            execute(home, "UPDATE record SET size=-1");
            store.proxy.noteOpened(B); // sees what another process did
            QTRY_COMPARE(store.record(file).size, -1);
            store.proxy.lookUpSizes();
            QTRY_COMPARE(store.record(file).size, 3);
        }
        QVERIFY(QFile::remove(file)); // while nobody looks
        Store store(home);
        QVERIFY(store.load());
        QTRY_COMPARE(int(store.record(file).presence), int(Presence::Missing));
        const auto told = store.changed.first().first().value<RecordInfoList>();
        QCOMPARE(told.size(), 1); // what is as it was is not told of
    }

    void pinnedRecordsStay()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}, {B, 2, {}}}));
        Store store(home);
        QVERIFY(store.load());
        store.proxy.setPinned({A}, true);
        QTRY_VERIFY(store.record(A).pinned);
        QVERIFY(home.setDesktop({{C, 3, {}}}));
        QTRY_COMPARE(store.shown(), QStringLiteral("c:32 a:8"));
        store.proxy.setPinned({A}, false);
        QTRY_VERIFY(!store.record(A).pinned);
        QCOMPARE(store.shown(), QStringLiteral("c:32 a:8")); // does not vanish at once
    }

    void largeChangesAreToldOnce()
    {
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}}));
        Store store(home);
        QVERIFY(store.load());
        QVERIFY(home.setDesktop(numbered(6000)));
        QTRY_COMPARE(store.proxy.records().size(), 6000);
        QCOMPARE(store.arrived.size(), 1);
        QCOMPARE(store.added.size() + store.removed.size(), 0);
    }

    void aListThatNeverRestsIsReadAllTheSame()
    {
        Home home;
        Store store(home);
        QVERIFY(store.load());
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
        Home home;
        QVERIFY(home.setDesktop({{A, 1, {}}}));
        QVERIFY(replaceFile(home.places.database, QByteArray(5000, 'x')));
        Store store(home);
        QVERIFY(store.load());
        QCOMPARE(store.shown(), QStringLiteral("a:32"));
        QTRY_COMPARE(store.problem.size(), 1);
    }
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
            return QStringLiteral("a second start replaced the store");
        proxy->initKind(RecentRecordKind::Opened);
        proxy->noteOpened(B);
    }
    UninitRecentFile();
    if (KRecentFileProxy::instance())
        return QStringLiteral("not stopped");
    RecentRepository repository(RecentPlaces::fromEnvironment().database, [](const QString &) {});
    QStringList names;
    for (const RecentFileInfo &record : repository.open())
        names.append(record.displayText);
    return names.join(QLatin1Char(' '));
}

QStringList warnings;

void keepWarnings(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // Qt's word when the store's thread gets its first turn only after the application's end, which loses
    // nothing.
    const bool late = text.startsWith(QLatin1String("QEventLoop: Cannot be used without Q"));
    if (type != QtDebugMsg && type != QtInfoMsg && !late)
        warnings.append(text);
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(keepWarnings);
    const QString notes = notesAroundTheApplicationsEnd(argc, argv);
    qInstallMessageHandler(nullptr);
    if (notes != QLatin1String("b a") || !warnings.isEmpty())
        qFatal("around the application's end: %s, %s", qPrintable(notes),
            qPrintable(warnings.join(QLatin1Char(','))));
    QCoreApplication application(argc, argv);
    StoreTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_store.moc"

// Sources that the user switches off and on, and the clearing of everything.
#include "platform/recentstore/recentfixture.h"
#include "platform/recentstore/recordtext.h"

#include "platform/impl/recentstore/records/sourcefilter.h"

using namespace zel::recent;
using namespace zel::recent::test;

class SourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seenThroughSources_data()
    {
        using namespace RecentSource;
        const auto row = zeltest::table<QString, int, QString>("state", "sources", "shown");
        row("the list only", "a d5; b o3", Desktop, "+a32@5");
        row("sandboxes are lists", "a s5; b o3", Box, "+b8@3");
        row("known twice, by the other one", "a d9 o3", Box, "+a8@3");
        row("known twice, by the list", "a d3 o9", Desktop, "+a32@3");
        row("nothing is on", "a d3 o9; b d1", 0, "");
        row("removed since its use here", "a d9 o3 r4", Box, "");
        row("a pin is the box's", "a d3 p3", Box, "+a8@3");
        row("a pin alone shows nothing without the box", "a p3; b d2 p2", Desktop, "+b32@2");
        row("another device's use", "a d3 c:x9+", Desktop | Box, "+a32@3");
        row("another device only", "=x c:x9+; a d3", Desktop | Box, "+a32@3");
        row("other devices only", "a d3 c:x9+; b d4", Devices, "+a2@9+");
    }

    // The change arrives as one delta: what was there under other sources does not matter.
    void seenThroughSources()
    {
        const auto [state, sources] = zeltest::row<QString, int>();
        RecentState records = toState(state);
        for (StoredRecord &record : records) {
            if (!record.roaming)
                continue;
            RoamingPart part = *record.roaming;
            part.item.deviceName = "Tablet"_s;
            record.roaming = part;
        }
        SourceFilter view;
        view.setSources(sources);
        RecentDelta change;
        for (const StoredRecord &record : qAsConst(records))
            change.stored.append(record);
        QTEST(shownText(view.visiblePart(change, records)), "shown");
        QVERIFY(view.visiblePart(change, records).showsNothing()); // it knows what it told
        change.erased = std::exchange(change.stored, {});
        QCOMPARE(view.visiblePart(change, {}).removed.size(), view.records(records).size());
    }

    void switchedWhileItRuns()
    {
        Home home({{A, 1}});
        Store store(home);
        store.proxy.setSources(RecentSource::Box);
        QVERIFY(store.load());
        QCOMPARE(store.shown(), QString());
        store.proxy.noteOpened(B); // which also puts it on the desktop's list
        QTRY_COMPARE(store.shown(), "b:8"_s);
        store.proxy.setSources(RecentSource::All);
        QTRY_COMPARE(store.shown(), "b:8 a:32"_s);
        store.proxy.setSources(RecentSource::Devices);
        QTRY_COMPARE(store.shown(), QString());
        store.proxy.setSources(RecentSource::All);
        QTRY_COMPARE(store.shown(), "b:8 a:32"_s);
    }

    void nothingStaysOfWhatIsCleared()
    {
        Home home({{A, 1}});
        QVERIFY(replaceFile(home.sandboxList("org.x"_s), listText({{B, 2}})));
        const QString copy = home.places.database + ".damaged-20240101T000000"_s;
        Store store(home);
        QSignalSpy cleared(&store.events, &KRecentFileEvents::historyCleared);
        QVERIFY(store.load());
        QVERIFY(replaceFile(copy, "old records"));
        QTRY_COMPARE(store.shown(), "b:64 a:32"_s);
        store.proxy.setSources(RecentSource::Box); // clears also what is not shown
        store.proxy.clearHistory(false);
        QVERIFY(cleared.wait());
        QCOMPARE(cleared.takeFirst().constFirst().toBool(), true);
        store.proxy.setSources(RecentSource::All);
        QTRY_COMPARE(store.shown(), QString());
        QVERIFY(!contentOf(home.places.desktopList).contains("nowhere"));
        QVERIFY(!filesOf(home.places.database).contains(A.toUtf8()));
        QVERIFY(!QFile::exists(copy));
        QVERIFY(home.setDesktop({{A, 1}})); // the user works on
        QTRY_COMPARE(store.shown(), "a:32"_s);
    }

    // In the background nobody has asked for the list yet.
    void clearedBeforeAnythingWasRead()
    {
        Home home({{A, 1}});
        Store store(home);
        QSignalSpy cleared(&store.events, &KRecentFileEvents::historyCleared);
        store.proxy.clearHistory(false);
        QVERIFY(cleared.wait());
        QVERIFY(!contentOf(home.places.desktopList).contains("nowhere"));
        QCOMPARE(store.initFinished.size(), 0);
        QVERIFY(store.load());
        QCOMPARE(store.shown(), QString());
    }

    void aListThatCannotBeWritten()
    {
        Home home({{A, 1}});
        Store store(home);
        QSignalSpy cleared(&store.events, &KRecentFileEvents::historyCleared);
        QVERIFY(store.load());
        QVERIFY(replaceFile(home.places.desktopList, "<xbel version=\"1.0\"><bookmark"));
        store.proxy.clearHistory(false);
        QVERIFY(cleared.wait());
        QCOMPARE(cleared.takeFirst().constFirst().toBool(), false);
        QCOMPARE(store.shown(), QString());
        QVERIFY(home.setDesktop({{A, 1}, {B, 1}}));
        QTRY_COMPARE(store.shown(), "b:32"_s);
    }

private:
    static inline const QString A = "/nowhere/a"_s;
    static inline const QString B = "/nowhere/b"_s;
    static QByteArray filesOf(const QString &database)
    {
        return contentOf(database) + contentOf(database + "-wal"_s);
    }
};

QTEST_GUILESS_MAIN(SourcesTest)
#include "tst_sources.moc"

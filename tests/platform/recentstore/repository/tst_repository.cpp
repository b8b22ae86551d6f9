// The store's database: what survives a restart, an older version, damage, and a full disk.
#include "platform/recentstore/recordtext.h"
#include "platform/recentstore/repositoryfixture.h"

#include "platform/impl/recentstore/merge/roamingmerge.h"

using namespace zel::recent;
using namespace zel::recent::test;

class RepositoryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingSurvivesARestart()
    {
        Home home;
        RecentState before;
        {
            Opened store(home);
            QVERIFY(store.repository.isFresh());
            store.import({entry(A, 10), entry(B, 20), entry(C, 5)});
            store.note(A, 30);
            store.remove(C);
            store.change([](const RecentState &state) {
                return markLooks(state, {{B, {RecentFileInfo::Presence::Missing, 7}}}, 70, 0);
            });
            store.change([](const RecentState &state) { return markPinned(state, {A}, true); });
            RoamingList list{"me"_s, {toPart("x25*"_s).item, toPart("y8%q+"_s).item}, true};
            list.items[0].usedPath = B;
            store.change([&](const RecentState &state) { return mergeRoaming(state, list); });
            store.change([](const RecentState &state) { return markRead(state, {B}); });
            store.remove("roaming:y"_s);
            before = store.repository.state();
        }
        Opened again(home);
        QCOMPARE(again.repository.state(), before);
        QCOMPARE(again.repository.sources().value(DesktopSourceName).stamp, (FileStamp{1, 2, 3}));
        QCOMPARE(toText(before),
            "=y r8 c:y8%q+-8;nowhere/a d10 o30 p30;"
            "nowhere/b d20 m70 c:x25@nowhere/b!;nowhere/c d5 r5"_s);
        QCOMPARE(again.texts(), "a:8 b:32"_s);
        QCOMPARE(again.shown, visibleRecords(before));
        QVERIFY(again.import({entry(A, 10), entry(B, 20), entry(C, 5)}).showsNothing());
        QCOMPARE(again.import({entry(C, 6)}).added.size(), 1); // used again since it was removed
        QVERIFY(again.told.isEmpty());
    }

    void olderVersions_data()
    {
        const auto row = zeltest::table<QString>("back");
        const QString toTwo = "ALTER TABLE record DROP COLUMN size; ALTER TABLE record DROP COLUMN pin_time;"
                              "DROP TABLE roaming; PRAGMA user_version=2;"_s;
        row("2", toTwo);
        row("1", toTwo + "ALTER TABLE record DROP COLUMN missing_since; PRAGMA user_version=1"_s);
    }
    void olderVersions()
    {
        QFETCH(QString, back);
        Home home;
        fillDatabase(home);
        execute(home, qPrintable(back));
        {
            Opened store(home);
            QCOMPARE(store.texts(), "a:8 b:32"_s);
            store.change([](const RecentState &state) {
                return markLooks(state, {{B, {RecentFileInfo::Presence::Missing, 7}}}, 70, 0);
            });
            QVERIFY(store.told.isEmpty());
        }
        const StoredRecord record = Opened(home).repository.state().value(B);
        QCOMPARE(record.missingSince, 70);
        QCOMPARE(record.size, 7);
    }

    void damage_data()
    {
        const auto row = zeltest::table<QString>("expected");
        row("garbage", "");
        row("truncated", "");
        row("newer version", "");
        row("tables of another program", "");
        row("folder in its place", "");
        row("without access", "a:8"); // what the box opened is carried over
        row("without roaming", "a:8");
    }
    void damage()
    {
        const QByteArray what = QTest::currentDataTag();
        Home home;
        fillDatabase(home);
        const QString file = home.places.database;
        if (what == "garbage") {
            overwrite(home, QByteArray(20000, 'x'));
        } else if (what == "truncated") {
            QVERIFY(QFile::resize(file, QFileInfo(file).size() / 2));
        } else if (what == "newer version") {
            execute(home, "PRAGMA user_version=99");
        } else if (what == "tables of another program") {
            QFile::remove(file);
            execute(home, "CREATE TABLE record(x)");
        } else if (what == "folder in its place") {
            QFile::remove(file);
            QVERIFY(QDir().mkpath(file + "/inside"_s));
        } else {
            execute(home, what == "without access" ? "DROP TABLE access" : "DROP TABLE roaming");
        }
        {
            Opened store(home);
            QTEST(store.texts(), "expected");
            QCOMPARE(store.told.size(), 1);
            QCOMPARE(keptAside(home).size(), 1);
            store.import({entry(B, 20)});
            store.note(C, 40);
        }
        Opened again(home);
        QFETCH(QString, expected);
        QCOMPARE(again.texts(), "c:8 %1 b:32"_s.arg(expected).simplified());
        QVERIFY(again.told.isEmpty());
    }

    void damageWhileRunning_data()
    {
        zeltest::rows<bool>("pages", {{"a table is gone", false}, {"pages are overwritten", true}});
    }
    // The file is damaged under the running store: its memory makes the new database.
    void damageWhileRunning()
    {
        QFETCH(bool, pages);
        Home home;
        {
            Opened store(home);
            store.import({entry(A, 10), entry(B, 20)});
            store.note(A, 30);
            if (pages) {
                execute(home, "UPDATE record SET mime_type='x'; PRAGMA wal_checkpoint(TRUNCATE)");
                QFile file(home.places.database);
                QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(4096));
                file.write(QByteArray(int(file.size()) - 4096, 'x'));
            } else {
                execute(home, "DROP TABLE access");
            }
            store.note(C, 40);
            store.note(B, 50);
            QCOMPARE(store.texts(), "b:8 c:8 a:8"_s);
            QCOMPARE(store.told.size(), 1);
        }
        QCOMPARE(keptAside(home).size(), 1);
        QCOMPARE(Opened(home).texts(), "b:8 c:8 a:8"_s);
    }

    void withoutAWritableFolder()
    {
        Home home;
        QVERIFY(replaceFile(QFileInfo(home.places.database).path(), "a file where the folder should be"));
        Opened store(home);
        store.note(A, 10);
        QCOMPARE(store.import({entry(B, 20)}).added.size(), 1);
        QCOMPARE(store.texts(), "b:32 a:8"_s);
        QCOMPARE(store.told.size(), 1);
    }

    // Like a full disk: files cannot grow for a while. Then what was kept in memory goes into the database.
    void aFullDiskIsOnlyABreak()
    {
        Home home;
        fillDatabase(home);
        {
            Opened store(home);
            rlimit old{};
            ::getrlimit(RLIMIT_FSIZE, &old);
            const auto handler = ::signal(SIGXFSZ, SIG_IGN);
            const rlimit none{0, old.rlim_max};
            ::setrlimit(RLIMIT_FSIZE, &none);
            store.note(B, 40);
            store.note(C, 50);
            store.remove(A);
            QVERIFY(store.repository.hasUnwritten());
            ::setrlimit(RLIMIT_FSIZE, &old);
            ::signal(SIGXFSZ, handler);
            QCOMPARE(store.texts(), "c:8 b:8"_s);
            QCOMPARE(store.told.size(), 1);
            store.note(C, 60);
            QVERIFY(!store.repository.hasUnwritten());
            QCOMPARE(store.told, (QVector{RecentKeeping::NotKept, RecentKeeping::Kept}));
        }
        QVERIFY(keptAside(home).isEmpty());
        QCOMPARE(Opened(home).texts(), "c:8 b:8"_s);
    }

    void nobodyElseMayRead_data()
    {
        zeltest::rows<bool>("old", {{"new", false}, {"made readable by an older version", true}});
    }
    void nobodyElseMayRead()
    {
        QFETCH(bool, old);
        Home home;
        const mode_t mask = ::umask(0);
        if (old) {
            fillDatabase(home);
            QCOMPARE(::chmod(QFile::encodeName(home.places.database).constData(), 0644), 0);
        }
        Opened store(home);
        store.note(B, 40);
        ::umask(mask);
        for (const char *suffix : {"", "-wal", "-shm"}) {
            struct stat status = {};
            QCOMPARE(
                ::stat(QFile::encodeName(home.places.database + QLatin1String(suffix)).constData(), &status),
                0);
            QCOMPARE(int(status.st_mode & 0777), 0600);
        }
    }

private:
    static void overwrite(const Home &home, const QByteArray &data)
    {
        QFile file(home.places.database);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(data);
    }
};

QTEST_GUILESS_MAIN(RepositoryTest)
#include "tst_repository.moc"

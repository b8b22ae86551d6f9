// The store's database: what survives a restart, damage, a full disk, and a second process.
#include "recentfixture.h"

#include "platform/impl/recentstore/recentmerge.h"
#include "platform/impl/recentstore/recentrepository.h"
#include "platform/impl/recentstore/recentschema.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <array>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace zel::recent;
using namespace zel::recent::test;

namespace {

constexpr char WriterOption[] = "--write-and-die";
constexpr int WriterNotes = 40;

struct Opened
{
    QStringList problems;
    RecentRepository repository;
    RecordInfoList shown;

    explicit Opened(const Home &home) : Opened(home.places.database) { }
    explicit Opened(const QString &database)
        : repository(database, [this](const QString &text) { problems.append(text); }),
          shown(repository.open())
    {
    }
    RecentDelta note(const QString &path, qint64 time)
    {
        return repository.change(
            [&](const RecentState &state, SourceTable &) { return markOpened(state, path, time); },
            Durability::Full);
    }
    RecentDelta remove(const QString &path)
    {
        return repository.change(
            [&](const RecentState &state, SourceTable &) { return markRemoved(state, {path}, 1000000); },
            Durability::Full);
    }
    RecentDelta import(const QVector<XbelEntry> &entries, const FileStamp &stamp = {1, 2, 3})
    {
        return repository.change(
            [&](const RecentState &state, SourceTable &sources) {
                sources[DesktopSourceName] = {DesktopSource, stamp};
                return mergeImport(state, DesktopSource, entries, true);
            },
            Durability::Relaxed);
    }
    QString texts() const
    {
        QStringList list;
        for (const RecentFileInfo &record : visibleRecords(repository.state()))
            list.append(record.displayText + QLatin1Char(':') + QString::number(record.kind));
        return list.join(QLatin1Char(' '));
    }
};

XbelEntry entry(const QString &path, qint64 time)
{
    XbelEntry made;
    made.path = path;
    made.time = time;
    made.mimeType = QStringLiteral("text/plain");
    return made;
}

const QString A = QStringLiteral("/a");
const QString B = QStringLiteral("/b");
const QString C = QStringLiteral("/c");

QStringList keptAside(const Home &home)
{
    return QDir(QFileInfo(home.places.database).path())
        .entryList({QStringLiteral("recent.db.damaged-*")}, QDir::AllEntries);
}

void fillDatabase(const Home &home)
{
    Opened store(home);
    store.import({entry(A, 10), entry(B, 20)});
    store.note(A, 30);
}

void execute(const Home &home, const char *sql)
{
    zel::sqlite::Database database;
    database.open(home.places.database);
    database.exec(sql);
}

void overwrite(const Home &home, const QByteArray &data)
{
    QFile file(home.places.database);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(data);
}

} // namespace

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
            store.repository.change(
                [](const RecentState &state, SourceTable &) {
                    return markPresence(state, {{B, RecentFileInfo::Presence::Missing}}, 70, 0);
                },
                Durability::Relaxed);
            before = store.repository.state();
        }
        Opened again(home);
        QCOMPARE(again.repository.state(), before);
        QCOMPARE(again.repository.sources().value(DesktopSourceName).stamp, (FileStamp{1, 2, 3}));
        QCOMPARE(again.texts(), QStringLiteral("a:8 b:32"));
        QCOMPARE(again.shown, visibleRecords(before));
        QVERIFY(again.import({entry(A, 10), entry(B, 20), entry(C, 5)}).showsNothing());
        QCOMPARE(again.import({entry(C, 6)}).added.size(), 1); // used again since it was removed
        QCOMPARE(again.texts(), QStringLiteral("a:8 c:32"));
        QVERIFY(again.problems.isEmpty());
    }

    void aDatabaseOfTheFirstVersion()
    {
        Home home;
        fillDatabase(home);
        execute(home, "ALTER TABLE record DROP COLUMN missing_since; PRAGMA user_version=1");
        {
            Opened store(home);
            QCOMPARE(store.texts(), QStringLiteral("a:8 b:32"));
            store.repository.change(
                [](const RecentState &state, SourceTable &) {
                    return markPresence(state, {{B, RecentFileInfo::Presence::Missing}}, 70, 0);
                },
                Durability::Relaxed);
            QVERIFY(store.problems.isEmpty());
        }
        QCOMPARE(Opened(home).repository.state().value(B).missingSince, 70);
    }

    void damage_data()
    {
        QTest::addColumn<QString>("expected");
        QTest::newRow("garbage") << "";
        QTest::newRow("truncated") << "";
        QTest::newRow("newer version") << "";
        QTest::newRow("tables of another program") << "";
        QTest::newRow("folder in its place") << "";
        QTest::newRow("broken accesses") << "a:8"; // what the box opened is carried over
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
            QVERIFY(QDir().mkpath(file + QStringLiteral("/inside")));
        } else {
            execute(home, "DROP TABLE access");
        }
        {
            Opened store(home);
            QTEST(store.texts(), "expected");
            QCOMPARE(store.problems.size(), 1);
            QCOMPARE(keptAside(home).size(), 1);
            store.import({entry(B, 20)});
            store.note(C, 40);
        }
        Opened again(home);
        QFETCH(QString, expected);
        QCOMPARE(again.texts(), QStringLiteral("c:8 %1 b:32").arg(expected).simplified());
        QVERIFY(again.problems.isEmpty());
    }

    void damageWhileRunning_data()
    {
        QTest::addColumn<bool>("pages");
        QTest::newRow("a table is gone") << false;
        QTest::newRow("pages are overwritten") << true;
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
            QCOMPARE(store.texts(), QStringLiteral("b:8 c:8 a:8"));
            QCOMPARE(store.problems.size(), 1);
        }
        QCOMPARE(keptAside(home).size(), 1);
        QCOMPARE(Opened(home).texts(), QStringLiteral("b:8 c:8 a:8"));
    }

    void withoutAWritableFolder()
    {
        Home home;
        QVERIFY(replaceFile(QFileInfo(home.places.database).path(), "a file where the folder should be"));
        Opened store(home);
        store.note(A, 10);
        QCOMPARE(store.import({entry(B, 20)}).added.size(), 1);
        QCOMPARE(store.texts(), QStringLiteral("b:32 a:8"));
        QCOMPARE(store.problems.size(), 1);
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
            QCOMPARE(store.texts(), QStringLiteral("c:8 b:8"));
            QCOMPARE(store.problems.size(), 1);
            store.note(C, 60);
            QVERIFY(!store.repository.hasUnwritten());
        }
        QVERIFY(keptAside(home).isEmpty());
        QCOMPARE(Opened(home).texts(), QStringLiteral("c:8 b:8"));
    }

    void nobodyElseMayRead_data()
    {
        QTest::addColumn<bool>("old");
        QTest::newRow("new") << false;
        QTest::newRow("made readable by an older version") << true;
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
            struct stat status
            {
            };
            QCOMPARE(
                ::stat(QFile::encodeName(home.places.database + QLatin1String(suffix)).constData(), &status),
                0);
            QCOMPARE(int(status.st_mode & 0777), 0600);
        }
    }

    // A list's stamp that was not stored is stored later, or the list would count as read for ever.
    void sourcesThatCouldNotBeStored()
    {
        Home home;
        fillDatabase(home);
        {
            Opened store(home);
            {
                zel::sqlite::Database other;
                QVERIFY(other.open(home.places.database));
                zel::sqlite::Transaction lock(other);
                store.import({entry(A, 10), entry(B, 20)}, {7, 8, 9});
            }
            QVERIFY(store.repository.hasUnwritten());
            store.note(C, 70);
            QVERIFY(!store.repository.hasUnwritten());
        }
        QCOMPARE(Opened(home).repository.sources().value(DesktopSourceName).stamp, (FileStamp{7, 8, 9}));
    }

    void twoStoresOnOneDatabase()
    {
        Home home;
        Opened one(home);
        Opened two(home);
        one.import({entry(A, 10), entry(B, 20)});
        one.note(C, 30);
        const RecentDelta delta = two.note(A, 40); // learns of what the other one did
        QCOMPARE(delta.added.size(), 3);
        QCOMPARE(two.texts(), QStringLiteral("a:8 c:8 b:32"));
        one.remove(C);
        QCOMPARE(one.texts(), QStringLiteral("a:8 b:32"));
        QVERIFY(two.import({}).removed.size() == 2); // c by the other one, b vanished from the list
        QCOMPARE(Opened(home).texts(), QStringLiteral("a:8"));
    }

    void aBusyDatabaseLosesNothing()
    {
        Home home;
        fillDatabase(home);
        Opened store(home);
        {
            zel::sqlite::Database other;
            QVERIFY(other.open(home.places.database));
            zel::sqlite::Transaction lock(other);
            store.note(B, 50);
            QVERIFY(store.repository.isBusy());
            QCOMPARE(store.texts(), QStringLiteral("b:8 a:8"));
            other.exec("UPDATE record SET opened_at=60,time=60 WHERE path='/a'");
            QVERIFY(lock.commit());
        }
        const RecentDelta others = store.repository.writeUnwritten();
        QCOMPARE(others.changed.size(), 1); // told like any other news
        QVERIFY(!store.repository.hasUnwritten());
        QCOMPARE(store.texts(), QStringLiteral("a:8 b:8"));
        QCOMPARE(Opened(home).texts(), QStringLiteral("a:8 b:8"));
        QVERIFY(store.problems.isEmpty());
    }

    // Several processes note at once, and are killed without any farewell; what note() returned from is
    // there.
    void processesAtOnceKilled()
    {
        constexpr int Processes = 3;
        Home home;
        std::array<QProcess, Processes> writers;
        for (int p = 0; p < Processes; ++p) {
            writers[size_t(p)].setProcessChannelMode(QProcess::ForwardedChannels);
            writers[size_t(p)].start(QCoreApplication::applicationFilePath(),
                {QLatin1String(WriterOption), home.places.database, QString::number(p)});
        }
        for (QProcess &writer : writers) {
            QVERIFY(writer.waitForFinished());
            QCOMPARE(writer.exitStatus(), QProcess::CrashExit);
        }
        Opened store(home);
        QCOMPARE(store.shown.size(), Processes * WriterNotes);
        QVERIFY(keptAside(home).isEmpty());
    }
};

// One of the processes of processesAtOnceKilled(). A program of its own, because a fork of the test would
// inherit the locks that the test's watchdog thread holds at that moment.
static void writeAndDie(const QString &database, const QString &name)
{
    Opened store(database);
    for (int n = 0; n < WriterNotes; ++n)
        store.note(QStringLiteral("/p%1n%2").arg(name).arg(n), 1000 + n);
    ::raise(SIGKILL);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String(WriterOption))
        writeAndDie(arguments.at(2), arguments.at(3));
    RepositoryTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_repository.moc"

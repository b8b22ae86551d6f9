// The store's database among several processes.
#include "repositoryfixture.h"

#include <array>

using namespace zel::recent;
using namespace zel::recent::test;

namespace {

constexpr char WriterOption[] = "--write-and-die";
constexpr int WriterNotes = 40;

} // namespace

class SharedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // A list's stamp that was not stored is stored later, or the list would count as read for ever.
    void sourcesThatCouldNotBeStored()
    {
        Home home;
        fillDatabase(home);
        Opened store(home);
        {
            zel::sqlite::Database other;
            QVERIFY(other.open(home.places.database));
            zel::sqlite::Transaction lock(other);
            store.import({entry(A, 10), entry(B, 20)}, {7, 8, 9});
            QVERIFY(store.repository.hasUnwritten());
        }
        store.note(C, 70);
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
        QCOMPARE(two.texts(), "a:8 c:8 b:32"_s);
        one.remove(C);
        QCOMPARE(one.texts(), "a:8 b:32"_s);
        QVERIFY(two.import({}).removed.size() == 2); // c by the other one, b vanished from the list
        QCOMPARE(Opened(home).texts(), "a:8"_s);
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
            QVERIFY(store.repository.hasUnwritten());
            QCOMPARE(store.texts(), "b:8 a:8"_s);
            other.exec("UPDATE record SET opened_at=60,time=60 WHERE path='/nowhere/a'");
            QVERIFY(lock.commit());
        }
        const RecentDelta others = store.repository.writeUnwritten();
        QCOMPARE(others.changed.size(), 1); // told like any other news
        QVERIFY(!store.repository.hasUnwritten());
        QCOMPARE(store.texts(), "a:8 b:8"_s);
        QCOMPARE(Opened(home).texts(), "a:8 b:8"_s);
        QVERIFY(store.told.isEmpty());
    }

    void clearedWhileTheDatabaseCouldNotBeHad()
    {
        Home home;
        fillDatabase(home);
        zel::sqlite::Database other;
        QVERIFY(lock(home, other));
        Opened store(home);
        store.repository.wipe();
        store.note(C, 50);
        other.close();
        store.repository.writeUnwritten();
        QCOMPARE(store.texts(), "c:8"_s);
        QCOMPARE(Opened(home).texts(), "c:8"_s);
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
        store.note("/p%1n%2"_s.arg(name).arg(n), 1000 + n);
    ::raise(SIGKILL);
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String(WriterOption))
        writeAndDie(arguments.at(2), arguments.at(3));
    SharedTest test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_shared.moc"

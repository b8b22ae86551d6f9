// Looking whether files exist, also where a file system never answers.
#include "platform/recentstore/recentfixture.h"

#include "platform/impl/recentstore/presence/presencechecker.h"

using namespace zel::recent;
using Presence = RecentFileInfo::Presence;

class PresenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paths_data()
    {
        const auto row = zeltest::table<int, qint64>("presence", "size");
        row("file", Presence::Present, 3);
        row("link", Presence::Present, 3);
        row("locked", Presence::Present, -1);
        row("none", Presence::Missing, -1);
        row("dangling", Presence::Missing, -1);
        row("loop", Presence::Missing, -1);
        row("file/below", Presence::Missing, -1);
        if (::geteuid() != 0)
            row("locked/file", Presence::Unknown, -1);
    }
    void paths()
    {
        QFETCH(int, presence);
        test::Home home;
        home.make({"file=xyz", "locked/file=x", "link->file", "dangling->nowhere", "loop->loop"});
        QCOMPARE(::chmod(home.bytes("locked").constData(), 0), 0);
        const FileLook found = lookAt(home.path(QString::fromLatin1(QTest::currentDataTag())));
        ::chmod(home.bytes("locked").constData(), 0700);
        QCOMPARE(int(found.presence), presence);
        QTEST(found.size, "size");
    }

    void everythingIsToldOnceUrgentFirst()
    {
        QStringList order;
        QMutex mutex;
        const auto mount = std::make_shared<Mount>();
        PresenceChecker checker(nullptr, [&](const QString &path) {
            if (path == "/first"_s) {
                mount->entered.release();
                mount->letGo.acquire();
            }
            const QMutexLocker lock(&mutex);
            order.append(path);
            return FileLook{Presence::Present};
        });
        QSignalSpy found(&checker, &PresenceChecker::found);
        QStringList many{"/first"_s};
        for (int i = 0; i < 10000; ++i)
            many.append("/n%1"_s.arg(i));
        checker.check(many, false);
        QVERIFY(mount->entered.tryAcquire(1, 30000)); // before that, an urgent one would be looked at at once
        checker.check({"/urgent"_s}, true);
        checker.check({"/n7"_s, "/urgent"_s}, false); // they wait already
        checker.check({"/urgent"_s}, true);
        mount->letGo.release();
        QTRY_COMPARE(collected(found).size(), 10002);
        QCOMPARE(order.indexOf("/urgent"_s), 1);
        QCOMPARE(order.mid(2), many.mid(1));
        QCOMPARE(order.size(), 10002);
        QVERIFY2(found.size() < 20, "told in batches");
        checker.check({"/n1"_s}, false); // the thread has ended; a new one begins
        QTRY_COMPARE(order.size(), 10003);
    }

    void aDeadMountHoldsUpNeitherTheRestNorTheEnd()
    {
        const auto mount = std::make_shared<Mount>();
        QElapsedTimer watch;
        {
            PresenceChecker checker(nullptr, probeOf(mount), 1000); // a busy machine is not a dead one
            QSignalSpy found(&checker, &PresenceChecker::found);
            checker.check({"/a"_s, "/proc/dead/b"_s, "/proc/c"_s, "/z"_s}, false);
            QTRY_COMPARE_WITH_TIMEOUT(collected(found).size(), 2, 30000);
            checker.check({"/proc/d"_s, "/y"_s}, true);
            QTRY_COMPARE_WITH_TIMEOUT(collected(found).size(), 3, 30000);
            QStringList told = collected(found).keys();
            told.sort();
            QCOMPARE(told.join(QLatin1Char(' ')), "/a /y /z"_s); // nothing below /proc any more
            watch.start();
        }
        QVERIFY(watch.elapsed() < 5000);
        mount->letGo.release(); // the thread that was given up ends by itself and touches nothing
        QVERIFY(mount->returned.tryAcquire(1, 10000));
    }

    void theEndWaitsOnlyAWhile()
    {
        const auto mount = std::make_shared<Mount>();
        auto checker = std::make_unique<PresenceChecker>(nullptr, probeOf(mount));
        checker->check({"/dead"_s}, false);
        QVERIFY(mount->entered.tryAcquire(1, 10000));
        QElapsedTimer watch;
        watch.start();
        checker.reset();
        QVERIFY(watch.elapsed() < 10000); // and not until the mount answers
        mount->letGo.release();
        QVERIFY(mount->returned.tryAcquire(1, 10000));
    }

private:
    // Hangs at paths that contain "dead" until it is let go.
    struct Mount
    {
        QSemaphore entered;
        QSemaphore letGo;
        QSemaphore returned;
    };
    static PresenceChecker::Probe probeOf(const std::shared_ptr<Mount> &mount)
    {
        return [mount](const QString &path) {
            if (path.contains("dead"_s)) {
                mount->entered.release();
                mount->letGo.acquire();
                mount->returned.release();
            }
            return FileLook{Presence::Present};
        };
    }
    static FileLooks collected(const QSignalSpy &spy)
    {
        FileLooks all;
        for (const QList<QVariant> &call : spy)
            all.insert(call.at(0).value<FileLooks>());
        return all;
    }
};

QTEST_GUILESS_MAIN(PresenceTest)
#include "tst_presence.moc"

#include "drivefixture.h"
#include "service/drive/drivewatcher.h"

using namespace zel::service;

namespace {

using Happening = std::function<bool(DriveFixture &)>;

/// Everything that a watcher told, until a marker of the test's own was told as well.
class Told
{
public:
    explicit Told(const QString &root, int mostWatches = DriveWatcher::MostWatches)
        : watcher(root, mostWatches),
          changed(&watcher, &DriveWatcher::changed),
          rescan(&watcher, &DriveWatcher::rescanNeeded)
    {
        if (!watcher.start())
            qFatal("the watcher does not start");
    }
    QString folders() const
    {
        QSet<QString> all;
        for (const auto &arguments : changed) {
            const QStringList folders = arguments.first().toStringList();
            all.unite({folders.cbegin(), folders.cend()});
        }
        QStringList sorted = all.values();
        sorted.sort();
        return sorted.join(QLatin1Char(','));
    }

    DriveWatcher watcher;
    QSignalSpy changed;
    QSignalSpy rescan;
};

} // namespace

Q_DECLARE_METATYPE(Happening)

class TestWatcher : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void tells_data()
    {
        const auto row = zeltest::table<QString, Happening>("folders", "happening");
        using F = DriveFixture;
        row("new file", "", [](F &f) { return f.make("n"); });
        row("saved in place", "d", [](F &f) { return f.make("d/a", "longer"); });
        row("moved", ",d", [](F &f) { return f.outsideMove("d/a", "a"); });
        row("new folders", ",n,n/m,n/m/o", [](F &f) { return f.make("n/m/o/file"); });
        row("folder moved with its content", ",d,x,x/e",
            [](F &f) { return f.outsideMove("d", "x") && f.make("d/"); });
        row("folder removed", "d,d/e", [](F &f) { return QDir(f.at("d/e")).removeRecursively(); });
    }

    void tells()
    {
        const auto [folders, happening] = zeltest::row<QString, Happening>();
        DriveFixture f;
        QVERIFY(f.make("d/a") && f.make("d/e/b"));
        Told told(f.root());
        QVERIFY(happening(f));
        QTRY_VERIFY(!told.changed.isEmpty());
        QCOMPARE(told.folders(), folders);
        QVERIFY2(!told.changed.wait(2 * DriveWatcher::BatchMs), "one batch");
        QCOMPARE(told.rescan.size(), 0);
    }

    void followsFolders()
    {
        DriveFixture f;
        QVERIFY(f.make("d/e/b") && f.make("x/"));
        Told told(f.root());
        QCOMPARE(told.watcher.watchCount(), 4);
        QVERIFY(f.outsideMove("d/e", "x/e") && f.outsideMove("x", "y") && f.make("d/new/deep/"));
        QVERIFY(told.changed.wait());
        QCOMPARE(told.watcher.watchCount(), 6);
        told.changed.clear();
        QVERIFY(f.make("y/e/n") && f.make("d/new/deep/n"));
        QVERIFY(told.changed.wait());
        QCOMPARE(told.folders(), "d/new/deep,y/e"_s);
        QVERIFY(QDir(f.at("y")).removeRecursively());
        QVERIFY(told.changed.wait());
        QCOMPARE(told.watcher.watchCount(), 4);
    }

    void appearsLater()
    {
        DriveFixture f;
        const QString root = f.outside("far/away/drive"_s);
        Told told(root);
        QCOMPARE(told.watcher.watchCount(), 0);
        QVERIFY(QDir().mkpath(f.outside("far"_s)));
        QVERIFY2(!told.rescan.wait(2 * DriveWatcher::BatchMs), "not yet");
        QVERIFY(QDir().mkpath(root));
        QVERIFY(told.rescan.wait());
        QFile file(root + "/a"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(told.changed.wait());
        QCOMPARE(told.watcher.watchCount(), 1);
    }

    void vanishesAndComesBack()
    {
        DriveFixture f;
        QVERIFY(f.make("d/a"));
        const QString away = f.outside("away"_s);
        Told told(f.root());
        for (int round = 0; round < 2; ++round) {
            QVERIFY(QDir().rename(f.root(), away));
            QVERIFY(told.rescan.wait());
            QCOMPARE(told.watcher.watchCount(), 0);
            QVERIFY(QDir().rename(away, f.root()));
            QVERIFY(told.rescan.wait());
            QCOMPARE(told.watcher.watchCount(), 2);
        }
        told.changed.clear();
        QVERIFY(f.make("d/b"));
        QVERIFY(told.changed.wait());
        QCOMPARE(told.folders(), "d"_s);
    }

    void limit()
    {
        DriveFixture f;
        for (const char *folder : {"1/", "2/", "3/", "4/"})
            QVERIFY(f.make(folder));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("3 are watched for changes, 2 are not"_s));
        Told told(f.root(), 3);
        QVERIFY(!told.watcher.isComplete());
        QCOMPARE(told.watcher.watchCount(), 3);
        QVERIFY(f.make("5/") && f.make("a"));
        QVERIFY(told.changed.wait());
        QCOMPARE(told.folders(), QString());
    }

    void overflow()
    {
        QFile setting("/proc/sys/fs/inotify/max_queued_events"_s);
        QVERIFY(setting.open(QIODevice::ReadOnly));
        const int most = setting.readAll().trimmed().toInt();
        if (most > 100000)
            QSKIP("the system's queue is too long to fill");
        DriveFixture f;
        QVERIFY(f.make("a") && f.make("late/"));
        Told told(f.root());
        for (int i = 0; i <= most / 2; ++i)
            QVERIFY(f.outsideMove(i % 2 ? "b" : "a", i % 2 ? "a" : "b"));
        QVERIFY(f.make("unseen/"));
        QVERIFY(told.rescan.wait());
        QVERIFY(f.make("unseen/n"));
        QVERIFY(told.changed.wait());
        QVERIFY(told.folders().contains("unseen"_s));
    }
};

QTEST_GUILESS_MAIN(TestWatcher)
#include "tst_watcher.moc"

#include "drivefixture.h"

using namespace zel::service;

class TestCrash : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void killedInTheMiddle_data()
    {
        const auto row = zeltest::table<QString>("mode");
        row("write", "write");
        row("copy", "copy");
    }

    void killedInTheMiddle()
    {
        QFETCH(QString, mode);
        DriveFixture f;
        QVERIFY(f.make("a", "old") && f.make("d/1", QByteArray(1000, 'x'))
            && f.make("d/2", QByteArray(1000, 'x')));
        const QString a = f.id("a");
        const QString before = f.tree();
        f.close();
        QProcess helper;
        start(helper, mode, f);
        QVERIFY(helper.waitForReadyRead());
        QCOMPARE(helper.readAll(), QByteArray("middle\n"));
        helper.kill();
        QVERIFY(helper.waitForFinished());
        f.open();
        QVERIFY2(f.tree() != before, "something lies about, but hidden");
        QCOMPARE(f.listed(f.drive().rootId()), "a d/"_s);
        QCOMPARE(f.content(a), QByteArray("old"));
        QVERIFY(f.reopen());
        QCOMPARE(f.tree(), before);
    }

    void fullDisk_data()
    {
        const auto row = zeltest::table<QString>("mode");
        row("limit on the size of files", "limit");
        row("small file system", "small");
    }

    void fullDisk()
    {
        QFETCH(QString, mode);
        DriveFixture f;
        QVERIFY(f.make("big", QByteArray(4 * 1024 * 1024, 'x')));
        QProcess helper;
        start(helper, mode, f);
        QVERIFY(helper.waitForFinished());
        const QByteArray said = helper.readAll();
        if (said == "no mount\n")
            QSKIP("mounting is not permitted here");
        const QByteArray full = QByteArray::number(int(DriveError::Kind::DiskFull));
        QCOMPARE(said, QByteArray(full + ' ' + full + " big\n"));
    }

private:
    static void start(QProcess &helper, const QString &mode, const DriveFixture &f)
    {
        helper.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        helper.start(qEnvironmentVariable("ZEL_DRIVE_HELPER"), {mode, f.root(), f.database()});
    }
};

QTEST_GUILESS_MAIN(TestCrash)
#include "tst_crash.moc"

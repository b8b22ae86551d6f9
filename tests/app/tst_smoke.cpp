// The real launcher, box and service on a real X screen.

#include "support/text.h"
#include "support/xscreen.h"

#include <QProcess>
#include <QtTest>

using namespace std::chrono_literals;

namespace {

constexpr char Title[] = "ZEL Box";

QString program(const char *name)
{
    return qEnvironmentVariable("ZEL_BUILD_DIR") + "/bin/"_s + QLatin1String(name);
}

int forward(const QStringList &arguments)
{
    QProcess second;
    second.setProcessChannelMode(QProcess::ForwardedChannels);
    second.start(program("zelbox"), arguments);
    return second.waitForFinished(20'000) && second.exitStatus() == QProcess::NormalExit ? second.exitCode()
                                                                                         : -1;
}

} // namespace

class TestSmoke : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void window()
    {
        zeltest::XScreen screen;
        QVERIFY(screen.isConnected());
        QProcess box;
        box.setProcessChannelMode(QProcess::ForwardedChannels);
        box.start(program("zelbox"), QStringList());
        QVERIFY(screen.waitForTitle(Title, 30s) != 0);

        // A second start does not open a second window, and a command without a window hides the first.
        QCOMPARE(forward({}), 0);
        QCOMPARE(int(screen.viewable(Title).size()), 1);
        QCOMPARE(forward({"/from=tray"_s}), 0);
        QVERIFY(screen.waitUntilGone(Title, 10s));
        QCOMPARE(forward({"/options=showZelBox|showZelBoxMini"_s}), 0);
        QVERIFY(screen.waitForTitle(Title, 10s) != 0);
        QVERIFY(screen.waitForTitle("Mini window — ZEL Box", 10s) != 0);
        QCOMPARE(forward({"/action=exitdlg"_s}), 0);
        QCOMPARE(forward({"/options=settings|folderselector"_s, "/param=/a b"_s}), 0);
        for (const char *title : {"Exit — ZEL Box", "Settings — ZEL Box", "Select folder — ZEL Box",
                 "Synchronise folder — ZEL Box"})
            QVERIFY2(screen.waitForTitle(title, 10s) != 0, title);

        QCOMPARE(forward({"/action=exit"_s}), 0);
        QVERIFY(box.waitForFinished(20'000));
        QCOMPARE(box.exitStatus(), QProcess::NormalExit);
        QCOMPARE(box.exitCode(), 0);
    }

    // A start that comes while the box is leaving is neither lost nor told "handled": it becomes the next
    // box.
    void startWhileLeaving()
    {
        zeltest::XScreen screen;
        for (int round = 0; round < 6; ++round) {
            QProcess first;
            first.setProcessChannelMode(QProcess::ForwardedChannels);
            first.start(program("zelbox"), QStringList());
            QVERIFY(screen.waitForTitle(Title, 30s) != 0);
            QCOMPARE(forward({"/action=exit"_s}), 0);
            QProcess second;
            second.setProcessChannelMode(QProcess::ForwardedChannels);
            second.start(program("zelbox"), {"/show=main"_s});
            QVERIFY(second.waitForStarted());
            QVERIFY(first.waitForFinished(20'000));
            QVERIFY(screen.waitForTitle(Title, 30s) != 0);
            QCOMPARE(second.state(), QProcess::Running);
            QCOMPARE(forward({"/action=exit"_s}), 0);
            QVERIFY(second.waitForFinished(20'000));
        }
    }

    // Qt ends the process from inside its loop when the X server goes; that must not look like a crash.
    void lostDisplay()
    {
        QProcess server;
        server.start("Xvfb"_s, {"-displayfd"_s, "1"_s, "-nolisten"_s, "tcp"_s});
        QVERIFY(server.waitForReadyRead(20'000));
        const QByteArray outer = qgetenv("DISPLAY");
        qputenv("DISPLAY", ':' + server.readLine().trimmed());
        QProcess box;
        {
            zeltest::XScreen screen;
            box.start(program("zelbox"), QStringList());
            QVERIFY(screen.waitForTitle(Title, 30s) != 0);
        }
        qputenv("DISPLAY", outer);
        server.kill();
        QVERIFY(server.waitForFinished(10'000));
        QVERIFY(box.waitForFinished(20'000));
        QCOMPARE(box.exitStatus(), QProcess::NormalExit);
    }
};

QTEST_GUILESS_MAIN(TestSmoke)
#include "tst_smoke.moc"

// The real launcher, box and service on a real X screen.

#include "base/posix/unixsocket.h"
#include "support/xscreen.h"

using namespace std::chrono_literals;

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

    // An exit that comes as early as it can, and at once the next start, which must not be told "handled" by
    // the box that leaves. The users keep each other waiting.
    void startWhileLeaving()
    {
        std::atomic_int lost = 0;
        std::vector<std::thread> users;
        for (int user = 0; user < 4; ++user)
            users.emplace_back([&lost] { lost += lostStarts(25); });
        for (std::thread &user : users)
            user.join();
        QCOMPARE(lost.load(), 0);
    }

    void busThatDoesNotAnswer_data()
    {
        const auto row = zeltest::table<bool, bool>("listens", "stopped");
        row("nobody listens", false, false);
        row("takes connections only", true, false);
        row("stopped", false, true);
    }
    void busThatDoesNotAnswer()
    {
        const auto [listens, stopped] = zeltest::row<bool, bool>();
        QTemporaryDir folder;
        const QString path = folder.filePath("bus"_s);
        const auto mute = listens ? zel::posix::listenUnix(path.toStdString()) : zel::posix::UniqueFd();
        QProcess daemon;
        if (stopped) {
            daemon.start("dbus-daemon"_s,
                {"--session"_s, "--nofork"_s, "--print-address"_s, "--address=unix:path="_s + path});
            QVERIFY(daemon.waitForReadyRead(20'000));
            QCOMPARE(::kill(pid_t(daemon.processId()), SIGSTOP), 0);
        }
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + QFile::encodeName(path));
        zeltest::XScreen screen;
        QProcess box;
        box.start(program("zelbox"), QStringList());
        QVERIFY(screen.waitForTitle(Title, 10s) != 0);
        QCOMPARE(forward({"/options=showZelBoxMini|settings|folderselector"_s, "/param=/a b"_s}), 0);
        QVERIFY(screen.waitForTitle("Synchronise folder — ZEL Box", 10s) != 0);
        QCOMPARE(forward({"/action=exit"_s}), 0);
        QVERIFY(box.waitForFinished(10'000));
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        QCOMPARE(box.exitCode(), 0);
        daemon.kill();
        daemon.waitForFinished();
    }

    void deadDisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY"_s, ":4711"_s);
        QProcess box;
        box.setProcessEnvironment(environment);
        box.start(program("zelbox"), QStringList());
        QVERIFY(box.waitForFinished(20'000));
        QCOMPARE(box.exitStatus(), QProcess::NormalExit);
        QCOMPARE(box.exitCode(), 1);
        QCOMPARE(QString::fromUtf8(box.readAllStandardError()),
            "zelbox: the display cannot be used (DISPLAY=:4711, QT_QPA_PLATFORM=xcb)\n"_s);
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

private:
    static constexpr char Title[] = "ZEL Box";
    static QString program(const char *name)
    {
        return qEnvironmentVariable("ZEL_BUILD_DIR") + "/bin/"_s + QLatin1String(name);
    }
    static int forward(const QStringList &arguments)
    {
        QProcess second;
        second.setProcessChannelMode(QProcess::ForwardedChannels);
        second.start(program("zelbox"), arguments);
        return second.waitForFinished(20'000) && second.exitStatus() == QProcess::NormalExit
            ? second.exitCode()
            : -1;
    }
    // How many boxes in a row are told to exit before they have a window, and then swallow the next start.
    static int lostStarts(int rounds)
    {
        QTemporaryDir home;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM"_s, "offscreen"_s);
        for (const char *name :
            {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
            environment.insert(QLatin1String(name), home.path());
        const auto start = [&environment](const QStringList &arguments) {
            auto process = std::make_unique<QProcess>();
            process->setProcessEnvironment(environment);
            process->start(program("zelbox"), arguments);
            return process;
        };
        int lost = 0;
        auto box = start({});
        const auto waitUntilItCanBeTold = [&] {
            while (!QFileInfo::exists(home.filePath("zelbox/zelbox.sock"_s)) && !box->waitForFinished(1)) { }
        };
        for (int round = 0; round < rounds; ++round) {
            waitUntilItCanBeTold();
            if (box->state() == QProcess::NotRunning) {
                ++lost;
                box = start({});
                continue;
            }
            start({"/action=exit"_s})->waitForFinished(20'000);
            auto next = start({"/show=main"_s});
            box->waitForFinished(20'000);
            box = std::move(next);
        }
        waitUntilItCanBeTold();
        start({"/action=exit"_s})->waitForFinished(20'000);
        return box->waitForFinished(20'000) ? lost : rounds;
    }
};

QTEST_GUILESS_MAIN(TestSmoke)
#include "tst_smoke.moc"

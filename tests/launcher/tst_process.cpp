#include "base/posix/unixsocket.h"
#include "launcher/boxtree.h"
#include "launcher/frame.h"

#include <poll.h>
#include <sys/socket.h>

using namespace std::chrono_literals;

class TestProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whereTheBoxLies_data()
    {
        const auto row = zeltest::table<QString, int>("folder", "code");
        row("build tree", "lib", 0);
        row("installed", "lib/zelbox", 0);
        row("missing", "", 1);
    }
    void whereTheBoxLies()
    {
        const auto [folder, code] = zeltest::row<QString, int>();
        BoxTree tree(folder);
        QCOMPARE(tree.run({exitCommand}), code);
        QCOMPARE(tree.texts("end").size(), code == 0 ? 1 : 0);
        QCOMPARE(tree.errors.contains("zelbox: cannot load the box"), code != 0);
        QCOMPARE(tree.run({exitCommand}), code); // the first one has left nothing behind
    }

    void forwardedCommandLine_data()
    {
        const auto row = zeltest::table<QStringList, QString>("arguments", "line");
        const QString longLine(100000, QLatin1Char('x'));
        row("none", {}, {});
        row("Chinese, blanks, beyond the first plane",
            {"/id=\u6587\u6863 \u7BB1"_s, QString(), "\U0001F4C4"_s},
            "\"/id=\u6587\u6863 \u7BB1\" \"\" \U0001F4C4"_s);
        row("100 kB", {longLine}, longLine);
        row("the launcher's options behind --", words({"--", "--help", "/x"}), "--help /x");
    }
    void forwardedCommandLine()
    {
        const auto [arguments, line] = zeltest::row<QStringList, QString>();
        BoxTree tree;
        const auto box = tree.startBox(arguments);
        QVERIFY(box);
        QCOMPARE(tree.run(arguments), 0);
        QCOMPARE(tree.texts("start"), QStringList{line});
        QCOMPARE(tree.texts("message"), QStringList{activate(line)});
        QVERIFY(tree.texts("arguments").value(0).endsWith(" terminated"_s));
        QVERIFY(tree.end(*box));
    }

    void forwardedStartupToken_data()
    {
        const auto row = zeltest::table<QString, QString>("startupId", "activationToken");
        row("X11", "panel/box/1_TIME77", {});
        row("Wayland", {}, "8f3c");
        row("both", "id", "8f3c");
    }
    void forwardedStartupToken()
    {
        const auto [startupId, activationToken] = zeltest::row<QString, QString>();
        BoxTree tree;
        const auto box = tree.startBox();
        QVERIFY(box);
        tree.set("DESKTOP_STARTUP_ID", startupId);
        tree.set("XDG_ACTIVATION_TOKEN", activationToken);
        QCOMPARE(tree.run({"/show"_s}), 0);
        // The record keeps one line a message.
        const QString token = "zelbox_startup?="_s + startupId + QLatin1Char('|') + activationToken;
        QCOMPARE(tree.texts("message"), (QStringList{token, activate("/show")}));
        QVERIFY(tree.end(*box));
    }

    void startsAtOnce_data()
    {
        const auto row = zeltest::table<int, bool>("count", "ends");
        row("starts", 20, false);
        row("starts and ends", 60, true);
    }
    // Whatever the order turns out to be: no start fails, no command line is lost, there are never two boxes.
    void startsAtOnce()
    {
        const auto [count, ends] = zeltest::row<int, bool>();
        BoxTree tree;
        std::vector<BoxTree::Process> all;
        QStringList lines;
        for (int i = 0; i < count; ++i) {
            const bool end = ends && i % 3 == 2;
            const QString line = end ? exitCommand : "/n=%1"_s.arg(i);
            if (!end)
                lines << activate(line);
            all.push_back(tree.start({line}));
        }
        const auto running = [&all] {
            return std::count_if(
                all.begin(), all.end(), [](const auto &p) { return p->state() != QProcess::NotRunning; });
        };
        QTRY_VERIFY_WITH_TIMEOUT(ends ? running() <= 1 : running() == 1, patience);
        QCOMPARE(tree.run({exitCommand}), 0);
        QTRY_COMPARE_WITH_TIMEOUT(running(), 0, patience);
        QStringList heard = tree.texts("message");
        const QStringList started = tree.texts("start");
        for (const QString &line : started)
            heard << activate(line);
        QVERIFY(ends || (started.size() == 1 && heard.size() == count + 1));
        for (const QString &line : std::as_const(lines))
            QVERIFY2(heard.contains(line), qPrintable(line));
        for (const auto &process : all)
            QVERIFY2(process->exitCode() == 0, process->readAllStandardError().constData());

        qint64 owner = 0;
        for (const BoxTree::Record &record : tree.records()) {
            if (record.what == "start"_s) {
                QCOMPARE(owner, 0);
                owner = record.pid;
            }
            QCOMPARE(record.pid, owner);
            if (record.what == "end"_s)
                owner = 0;
        }
        QCOMPARE(owner, 0);
    }

    void startWhileTheOwnerLeaves()
    {
        BoxTree tree;
        tree.hold(holdEnd);
        const auto leaving = tree.startBox({"/first"_s});
        QVERIFY(leaving);
        QCOMPARE(tree.run({exitCommand}), 0);
        QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdEnd).size(), 1, patience);
        const auto next = tree.start({"/second"_s});
        QTRY_COMPARE_WITH_TIMEOUT(connectionsTo(tree.socketPath()), 1, patience);
        QCOMPARE(next->state(), QProcess::Running);
        tree.letGo(holdEnd);
        QVERIFY(leaving->waitForFinished(patience));
        QCOMPARE(leaving->exitCode(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(tree.texts("start"), words({"/first", "/second"}), patience);
        QVERIFY2(!tree.texts("message").contains(activate("/second")),
            "the leaving box must not swallow the command line");
        QCOMPARE(tree.run({exitCommand}), 0);
        tree.letGo(holdEnd);
        QVERIFY(next->waitForFinished(patience));
    }

    void boxThatNeverListens()
    {
        BoxTree tree;
        tree.set("FAKEBOX_DEAF", "1");
        tree.hold(holdStart);
        const auto deaf = tree.startBox({"/deaf"_s});
        QVERIFY(deaf);
        QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdStart).size(), 1, patience);
        tree.environment.remove("FAKEBOX_DEAF"_s);
        tree.environment.remove(holdStart);
        const auto second = tree.start({"/second"_s});
        QTRY_COMPARE_WITH_TIMEOUT(connectionsTo(tree.socketPath()), 1, patience);
        tree.letGo(holdStart);
        QVERIFY(deaf->waitForFinished(patience));
        QTRY_COMPARE_WITH_TIMEOUT(tree.texts("start").size(), 2, patience);
        QVERIFY(tree.end(*second));
    }

    void strangeOwner_data()
    {
        // reply: null: closes the connection
        const auto row = zeltest::table<QString, QByteArray>("reply", "message");
        row("refuses", "error", "refused");
        row("talks nonsense", "hello", "no sense");
        row("closes every time", {}, "does not take");
    }
    void strangeOwner()
    {
        const auto [reply, message] = zeltest::row<QString, QByteArray>();
        BoxTree tree;
        // The lock is the real box's; the socket is ours.
        const auto box = tree.startBox();
        QVERIFY(box);
        const zel::posix::UniqueFd listener = zel::posix::listenUnix(tree.socketPath());
        QVERIFY(listener);
        const auto start = tree.start();
        QSocketNotifier notifier(listener.get(), QSocketNotifier::Read);
        connect(&notifier, &QSocketNotifier::activated, this, [&] {
            const zel::posix::UniqueFd client = zel::posix::acceptUnix(listener.get());
            const std::string frame = zel::launcher::encodeFrame({u"", reply.toStdU16String()}).value();
            char buffer[4096];
            pollfd entry = {client.get(), POLLIN, 0};
            ::poll(&entry, 1, patience);
            while (::recv(client.get(), buffer, sizeof(buffer), 0) > 0) { }
            if (!reply.isNull())
                ::send(client.get(), frame.data(), frame.size(), MSG_NOSIGNAL);
        });
        QTRY_COMPARE_WITH_TIMEOUT(start->state(), QProcess::NotRunning, patience);
        QCOMPARE(start->exitCode(), 1);
        const QByteArray errors = start->readAllStandardError();
        QVERIFY2(errors.contains(message), errors.constData());
        QCOMPARE(tree.texts("start").size(), 1);
        // One that is killed leaves lock and socket behind, and the next start is the box.
        box->kill();
        QVERIFY(box->waitForFinished(patience));
        const auto next = tree.startBox();
        QVERIFY(next);
        QVERIFY(tree.end(*next));
    }

    void forwardingIsFast()
    {
        BoxTree tree;
        const auto box = tree.startBox();
        QVERIFY(box);
        std::vector<qint64> times;
        for (int i = 0; i < 50; ++i) {
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(tree.run({"/n=%1"_s.arg(i)}), 0);
            times.push_back(timer.nsecsElapsed());
        }
        std::sort(times.begin(), times.end());
        const double median = double(times[times.size() / 2]) / 1e6;
        qInfo("a forwarded second start takes %.1f ms (median of %d)", median, int(times.size()));
        QVERIFY2(median < 50, "a forwarded second start must not load what only the box needs");
        QVERIFY(tree.end(*box));
    }

private:
    // How many connections the socket has on the box's side, accepted or queued.
    static int connectionsTo(const std::string &socketPath)
    {
        QFile file("/proc/net/unix"_s);
        if (!file.open(QIODevice::ReadOnly))
            return -1;
        int count = 0;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray &line : lines) {
            const bool listening = line.simplified().split(' ').value(3) == "00010000";
            count += line.endsWith(QByteArray(" ") + socketPath.c_str()) && !listening ? 1 : 0;
        }
        return count;
    }
};

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"

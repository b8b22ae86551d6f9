#include "base/posix/unixsocket.h"
#include "launcher/boxtree.h"
#include "launcher/frame.h"

#include <QElapsedTimer>
#include <QtTest>
#include <algorithm>
#include <poll.h>
#include <sys/socket.h>

using namespace std::chrono_literals;

namespace {

// How many connections the socket has on the box's side, accepted or queued.
int connectionsTo(const std::string &socketPath)
{
    QFile file(QStringLiteral("/proc/net/unix"));
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

} // namespace

class TestProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whereTheBoxLies_data();
    void whereTheBoxLies();
    void forwardedCommandLine_data();
    void forwardedCommandLine();
    void forwardedStartupToken_data();
    void forwardedStartupToken();
    void startsAtOnce_data();
    void startsAtOnce();
    void startAfterKill();
    void startWhileTheOwnerLeaves();
    void boxThatNeverListens();
    void strangeOwner_data();
    void strangeOwner();
    void forwardingIsFast();
};

void TestProcess::whereTheBoxLies_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("code");
    QTest::newRow("build tree") << "lib" << 0;
    QTest::newRow("installed") << "lib/zelbox" << 0;
    QTest::newRow("missing") << "" << 1;
}

void TestProcess::whereTheBoxLies()
{
    QFETCH(QString, folder);
    QFETCH(int, code);
    BoxTree tree(folder);
    QCOMPARE(tree.run({exitCommand}), code);
    QCOMPARE(tree.texts(QStringLiteral("end")).size(), code == 0 ? 1 : 0);
    QCOMPARE(tree.errors.contains("zelbox: cannot load the box"), code != 0);
    QCOMPARE(tree.run({exitCommand}), code); // the first one has left nothing behind
}

void TestProcess::forwardedCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const QStringList &arguments, const QString &line) {
        QTest::newRow(name) << arguments << line;
    };
    const QString longLine(100000, QLatin1Char('x'));
    row("none", {}, QString());
    row("Chinese, blanks, beyond the first plane",
        {QStringLiteral("/id=\u6587\u6863 \u7BB1"), QString(), QStringLiteral("\U0001F4C4")},
        QStringLiteral("\"/id=\u6587\u6863 \u7BB1\" \"\" \U0001F4C4"));
    row("100 kB", {longLine}, longLine);
    row("the launcher's options behind --", words({"--", "--help", "/x"}), QStringLiteral("--help /x"));
}

void TestProcess::forwardedCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);
    BoxTree tree;
    const auto box = tree.startBox(arguments);
    QVERIFY(box);
    QCOMPARE(tree.run(arguments), 0);
    QCOMPARE(tree.texts(QStringLiteral("start")), QStringList{line});
    QCOMPARE(tree.texts(QStringLiteral("message")), QStringList{activate(line)});
    QVERIFY(tree.texts(QStringLiteral("arguments")).value(0).endsWith(QLatin1String(" terminated")));
    QVERIFY(tree.end(*box));
}

void TestProcess::forwardedStartupToken_data()
{
    QTest::addColumn<QString>("startupId");
    QTest::addColumn<QString>("activationToken");
    QTest::newRow("X11") << QStringLiteral("panel/box/1_TIME77") << QString();
    QTest::newRow("Wayland") << QString() << QStringLiteral("8f3c");
    QTest::newRow("both") << QStringLiteral("id") << QStringLiteral("8f3c");
}

void TestProcess::forwardedStartupToken()
{
    QFETCH(QString, startupId);
    QFETCH(QString, activationToken);
    BoxTree tree;
    const auto box = tree.startBox();
    QVERIFY(box);
    tree.set(QStringLiteral("DESKTOP_STARTUP_ID"), startupId);
    tree.set(QStringLiteral("XDG_ACTIVATION_TOKEN"), activationToken);
    QCOMPARE(tree.run({QStringLiteral("/show")}), 0);
    // The record keeps one line a message.
    const QString token = QStringLiteral("zelbox_startup?=") + startupId + QLatin1Char('|') + activationToken;
    QCOMPARE(tree.texts(QStringLiteral("message")), (QStringList{token, activate(QStringLiteral("/show"))}));
    QVERIFY(tree.end(*box));
}

void TestProcess::startsAtOnce_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("ends");
    QTest::newRow("starts") << 20 << false;
    QTest::newRow("starts and ends") << 60 << true;
}

// Whatever the order turns out to be: no start fails, no command line is lost, there are never two boxes.
void TestProcess::startsAtOnce()
{
    QFETCH(int, count);
    QFETCH(bool, ends);
    BoxTree tree;
    std::vector<BoxTree::Process> all;
    QStringList lines;
    for (int i = 0; i < count; ++i) {
        const bool end = ends && i % 3 == 2;
        const QString line = end ? exitCommand : QStringLiteral("/n=%1").arg(i);
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
    QStringList heard = tree.texts(QStringLiteral("message"));
    const QStringList started = tree.texts(QStringLiteral("start"));
    for (const QString &line : started)
        heard << activate(line);
    QVERIFY(ends || (started.size() == 1 && heard.size() == count + 1));
    for (const QString &line : std::as_const(lines))
        QVERIFY2(heard.contains(line), qPrintable(line));
    for (const auto &process : all)
        QVERIFY2(process->exitCode() == 0, process->readAllStandardError().constData());

    qint64 owner = 0;
    for (const BoxTree::Record &record : tree.records()) {
        if (record.what == QLatin1String("start")) {
            QCOMPARE(owner, 0);
            owner = record.pid;
        }
        QCOMPARE(record.pid, owner);
        if (record.what == QLatin1String("end"))
            owner = 0;
    }
    QCOMPARE(owner, 0);
}

void TestProcess::startAfterKill()
{
    BoxTree tree;
    for (int i = 0; i < 5; ++i) {
        const auto box = tree.startBox();
        QVERIFY(box);
        box->kill();
        QVERIFY(box->waitForFinished(patience));
    }
    const auto box = tree.startBox();
    QVERIFY(box);
    QVERIFY(tree.end(*box));
    QCOMPARE(tree.texts(QStringLiteral("start")).size(), 6);
}

void TestProcess::startWhileTheOwnerLeaves()
{
    BoxTree tree;
    tree.hold(holdEnd);
    const auto leaving = tree.startBox({QStringLiteral("/first")});
    QVERIFY(leaving);
    QCOMPARE(tree.run({exitCommand}), 0);
    QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdEnd).size(), 1, patience);
    const auto next = tree.start({QStringLiteral("/second")});
    QTRY_COMPARE_WITH_TIMEOUT(connectionsTo(tree.socketPath()), 1, patience);
    QCOMPARE(next->state(), QProcess::Running);
    tree.letGo(holdEnd);
    QVERIFY(leaving->waitForFinished(patience));
    QCOMPARE(leaving->exitCode(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(tree.texts(QStringLiteral("start")),
        (QStringList{QStringLiteral("/first"), QStringLiteral("/second")}), patience);
    QVERIFY2(!tree.texts(QStringLiteral("message")).contains(activate(QStringLiteral("/second"))),
        "the leaving box must not swallow the command line");
    QCOMPARE(tree.run({exitCommand}), 0);
    tree.letGo(holdEnd);
    QVERIFY(next->waitForFinished(patience));
}

void TestProcess::boxThatNeverListens()
{
    BoxTree tree;
    tree.set(QStringLiteral("FAKEBOX_DEAF"), QStringLiteral("1"));
    tree.hold(holdStart);
    const auto deaf = tree.startBox({QStringLiteral("/deaf")});
    QVERIFY(deaf);
    QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdStart).size(), 1, patience);
    tree.environment.remove(QStringLiteral("FAKEBOX_DEAF"));
    tree.environment.remove(holdStart);
    const auto second = tree.start({QStringLiteral("/second")});
    QTRY_COMPARE_WITH_TIMEOUT(connectionsTo(tree.socketPath()), 1, patience);
    tree.letGo(holdStart);
    QVERIFY(deaf->waitForFinished(patience));
    QTRY_COMPARE_WITH_TIMEOUT(tree.texts(QStringLiteral("start")).size(), 2, patience);
    QVERIFY(tree.end(*second));
}

void TestProcess::strangeOwner_data()
{
    QTest::addColumn<QString>("reply"); // null: closes the connection
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("refuses") << "error" << QByteArray("refused");
    QTest::newRow("talks nonsense") << "hello" << QByteArray("no sense");
    QTest::newRow("closes every time") << QString() << QByteArray("does not take");
}

void TestProcess::strangeOwner()
{
    QFETCH(QString, reply);
    QFETCH(QByteArray, message);
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
    QCOMPARE(tree.texts(QStringLiteral("start")).size(), 1);
    box->kill();
    QVERIFY(box->waitForFinished(patience));
}

void TestProcess::forwardingIsFast()
{
    BoxTree tree;
    const auto box = tree.startBox();
    QVERIFY(box);
    std::vector<qint64> times;
    for (int i = 0; i < 50; ++i) {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(tree.run({QStringLiteral("/n=%1").arg(i)}), 0);
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    const double median = double(times[times.size() / 2]) / 1e6;
    qInfo("a forwarded second start takes %.1f ms (median of %d)", median, int(times.size()));
    QVERIFY2(median < 50, "a forwarded second start must not load what only the box needs");
    QVERIFY(tree.end(*box));
}

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"

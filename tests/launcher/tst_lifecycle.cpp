#include "launcher/boxtree.h"

/// The real launcher: its own options, its folder, signals and the self-test.
class TestLifecycle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void options_data()
    {
        const auto row = zeltest::table<int, QString, QString>("code", "output", "errors");
        row("--help", 0, "^Usage: zelbox", "^$");
        row("--version", 0, "^zelbox \\d+\\.\\d+\\.\\d+\n$", "^$");
        row("--xyz", 2, "^$", "unknown option --xyz\n\nUsage: zelbox");
    }
    void options()
    {
        QFETCH(QString, output);
        QFETCH(QString, errors);
        BoxTree tree;
        QTEST(tree.run(words({"/a=b", QTest::currentDataTag()})), "code");
        QVERIFY2(QRegularExpression(output).match(QString::fromUtf8(tree.output)).hasMatch(),
            tree.output.constData());
        QVERIFY2(QRegularExpression(errors).match(QString::fromUtf8(tree.errors)).hasMatch(),
            tree.errors.constData());
        QCOMPARE(tree.records().size(), 0);
    }

    // Which folders and locks will do is told in tests/base.
    void unusableRuntimeFolder()
    {
        BoxTree tree;
        QVERIFY(QDir(tree.runtimeFolder()).mkpath("zelbox.lock"_s));
        QCOMPARE(tree.run(), 1);
        QVERIFY2(tree.errors.contains("zelbox.lock: is not a plain file of ours"), tree.errors.constData());
        QCOMPARE(tree.records().size(), 0);
    }

    void terminate_data()
    {
        const auto row = zeltest::table<int, bool>("number", "early");
        row("SIGTERM", SIGTERM, false);
        row("SIGINT", SIGINT, false);
        row("SIGHUP", SIGHUP, false);
        row("SIGTERM before the handler", SIGTERM, true);
    }
    void terminate()
    {
        const auto [number, early] = zeltest::row<int, bool>();
        BoxTree tree;
        if (early)
            tree.hold(holdStart);
        const auto box = tree.startBox();
        QVERIFY(box);
        if (early)
            QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdStart).size(), 1, patience);
        else
            QVERIFY(tree.isUp());
        QCOMPARE(::kill(pid_t(box->processId()), number), 0);
        if (early) {
            QTRY_VERIFY_WITH_TIMEOUT(!catchesSignal(box->processId(), number), patience);
            tree.letGo(holdStart);
        }
        QVERIFY(box->waitForFinished(patience));
        QCOMPARE(box->exitStatus(), QProcess::NormalExit);
        QCOMPARE(box->exitCode(), 0);
        QCOMPARE(tree.texts("message").last(), activate(exitCommand));
    }

    void secondSignalKills()
    {
        BoxTree tree;
        tree.hold(holdStart);
        const auto box = tree.startBox();
        QVERIFY(box);
        QTRY_COMPARE_WITH_TIMEOUT(tree.texts(holdStart).size(), 1, patience);
        QVERIFY(catchesSignal(box->processId(), SIGTERM));
        box->terminate();
        QTRY_VERIFY_WITH_TIMEOUT(!catchesSignal(box->processId(), SIGTERM), patience);
        ::kill(pid_t(box->processId()), SIGINT);
        QVERIFY(box->waitForFinished(patience));
        QCOMPARE(box->exitStatus(), QProcess::CrashExit);
    }

    void selfTest_data()
    {
        const auto row = zeltest::table<QString, int, QByteArray>("result", "code", "output");
        row("works", "ok", 0, "self-test: ok");
        row("box reports a failure", "failed: no window", 1, "self-test: failed: no window");
        row("box reports nothing", "", 1, "self-test: failed: the box reported nothing");
        row("box crashes", "crash", 1, "self-test: failed: the box was ended by a signal: Killed");
    }
    void selfTest()
    {
        QFETCH(QString, result);
        BoxTree tree;
        const auto running = tree.startBox();
        QVERIFY(running);
        tree.set("FAKEBOX_RESULT", result);
        QTEST(tree.run({"--self-test"_s, "-platform"_s, "offscreen"_s}), "code");
        QTEST(tree.output.trimmed(), "output");

        QCOMPARE(tree.texts("start").last(), "-platform offscreen"_s);
        const QString folder = tree.texts("runtime").value(0);
        QVERIFY(folder != tree.environment.value("XDG_RUNTIME_DIR"_s));
        QVERIFY2(!folder.isEmpty() && !QFileInfo::exists(folder), "the folders of the self-test are gone");
        for (const BoxTree::Record &record : tree.records()) {
            if (record.what == "child"_s)
                QVERIFY2(::kill(pid_t(record.pid), 0) != 0, "what the box has started is gone");
        }
        QCOMPARE(tree.texts("message").size(), 0); // the running box has noticed nothing
        QVERIFY(tree.end(*running));
    }

private:
    static bool catchesSignal(qint64 pid, int number)
    {
        QFile file("/proc/%1/status"_s.arg(pid));
        if (!file.open(QIODevice::ReadOnly))
            return false;
        const QRegularExpression line("SigCgt:\\s*([0-9a-f]+)"_s);
        const qulonglong mask =
            line.match(QString::fromLatin1(file.readAll())).captured(1).toULongLong(nullptr, 16);
        return (mask >> (number - 1) & 1) != 0;
    }
};

QTEST_GUILESS_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"

#include "launcher/boxtree.h"

#include <QDir>
#include <QRegularExpression>
#include <QtTest>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool catchesSignal(qint64 pid, int number)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QRegularExpression line(QStringLiteral("SigCgt:\\s*([0-9a-f]+)"));
    const qulonglong mask =
        line.match(QString::fromLatin1(file.readAll())).captured(1).toULongLong(nullptr, 16);
    return (mask >> (number - 1) & 1) != 0;
}

} // namespace

/// The real launcher: its own options, its folder, signals and the self-test.
class TestLifecycle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void options_data();
    void options();
    void runtimeFolder_data();
    void runtimeFolder();
    void terminate_data();
    void terminate();
    void secondSignalKills();
    void selfTest_data();
    void selfTest();
};

void TestLifecycle::options_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("errors");
    const auto row = [](const char *option, int code, const char *output, const char *errors) {
        QTest::newRow(option) << words({"/a=b", option}) << code << output << errors;
    };
    row("--help", 0, "^Usage: zelbox", "^$");
    row("--version", 0, "^zelbox \\d+\\.\\d+\\.\\d+\n$", "^$");
    row("--xyz", 2, "^$", "unknown option --xyz\n\nUsage: zelbox");
}

void TestLifecycle::options()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, output);
    QFETCH(QString, errors);
    BoxTree tree;
    QTEST(tree.run(arguments), "code");
    QVERIFY2(
        QRegularExpression(output).match(QString::fromUtf8(tree.output)).hasMatch(), tree.output.constData());
    QVERIFY2(
        QRegularExpression(errors).match(QString::fromUtf8(tree.errors)).hasMatch(), tree.errors.constData());
    QCOMPARE(tree.records().size(), 0);
}

void TestLifecycle::runtimeFolder_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("of another user") << "stranger" << QByteArray("belongs to another user");
    QTest::newRow("path too long for a socket") << "long" << QByteArray("too long");
    QTest::newRow("no XDG_RUNTIME_DIR") << "none" << QByteArray();
}

void TestLifecycle::runtimeFolder()
{
    QFETCH(QString, what);
    QFETCH(QByteArray, error);
    BoxTree tree;
    const QByteArray folder = QFile::encodeName(tree.runtimeFolder());
    if (what == QLatin1String("stranger")) {
        QCOMPARE(::mkdir(folder.constData(), 0700), 0);
        if (::chown(folder.constData(), 12345, 12345) != 0)
            QSKIP("only root can give a folder away");
    } else if (what == QLatin1String("long")) {
        const QString path = tree.root.filePath(QString(120, QLatin1Char('x')));
        QVERIFY(QDir().mkdir(path));
        tree.set(QStringLiteral("XDG_RUNTIME_DIR"), path);
    } else {
        tree.environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
        tree.set(QStringLiteral("TMPDIR"), tree.root.path());
        const auto box = tree.startBox();
        QVERIFY(box);
        QVERIFY(tree.end(*box));
        QVERIFY(QFileInfo::exists(tree.root.filePath(QStringLiteral("zelbox-%1").arg(::getuid()))));
        return;
    }
    QCOMPARE(tree.run(), 1);
    QVERIFY2(tree.errors.contains(error), tree.errors.constData());
    QCOMPARE(tree.records().size(), 0);
}

void TestLifecycle::terminate_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("early");
    QTest::newRow("SIGTERM") << SIGTERM << false;
    QTest::newRow("SIGINT") << SIGINT << false;
    QTest::newRow("SIGHUP") << SIGHUP << false;
    QTest::newRow("SIGTERM before the handler") << SIGTERM << true;
}

void TestLifecycle::terminate()
{
    QFETCH(int, number);
    QFETCH(bool, early);
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
    QCOMPARE(tree.texts(QStringLiteral("message")).last(), activate(exitCommand));
}

void TestLifecycle::secondSignalKills()
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

void TestLifecycle::selfTest_data()
{
    QTest::addColumn<QString>("result");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("output");
    const auto row = [](const char *name, const char *result, int code, const char *output) {
        QTest::newRow(name) << result << code << QByteArray("self-test: ").append(output).append('\n');
    };
    row("works", "ok", 0, "ok");
    row("box reports a failure", "failed: no window", 1, "failed: no window");
    row("box reports nothing", "", 1, "failed: the box reported nothing");
    row("box crashes", "crash", 1, "failed: the box was ended by a signal: Killed");
}

void TestLifecycle::selfTest()
{
    QFETCH(QString, result);
    BoxTree tree;
    const auto running = tree.startBox();
    QVERIFY(running);
    tree.set(QStringLiteral("FAKEBOX_RESULT"), result);
    QTEST(tree.run({QStringLiteral("--self-test"), QStringLiteral("-platform"), QStringLiteral("offscreen")}),
        "code");
    QTEST(tree.output, "output");

    QCOMPARE(tree.texts(QStringLiteral("start")).last(), QStringLiteral("-platform offscreen"));
    const QString folder = tree.texts(QStringLiteral("runtime")).value(0);
    QVERIFY(folder != tree.environment.value(QStringLiteral("XDG_RUNTIME_DIR")));
    QVERIFY2(!folder.isEmpty() && !QFileInfo::exists(folder), "the folders of the self-test are gone");
    for (const BoxTree::Record &record : tree.records()) {
        if (record.what == QLatin1String("child"))
            QVERIFY2(::kill(pid_t(record.pid), 0) != 0, "what the box has started is gone");
    }
    QCOMPARE(tree.texts(QStringLiteral("message")).size(), 0); // the running box has noticed nothing
    QVERIFY(tree.end(*running));
}

QTEST_GUILESS_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"

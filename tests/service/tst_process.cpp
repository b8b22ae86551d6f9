#include "base/posix/unixsocket.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>

using namespace zel::posix;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 30000;

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void options_data();
    void options();
    void oneInstance();
    void endsOnSignal_data();
    void endsOnSignal();
    void leavesWithTheLastClient();

private:
    using Process = std::unique_ptr<QProcess>;
    Process start(const char *arguments = "");
    Process startReady(const char *arguments = "");
    QString socketPath() const { return m_folder->filePath(QStringLiteral("zelbox/cloud.sock")); }
    UniqueFd connectClient()
    {
        return connectUnixUntil(QFile::encodeName(socketPath()).toStdString(), deadlineIn(5s));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProcess::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
}

TestProcess::Process TestProcess::start(const char *arguments)
{
    Process process(new QProcess);
    process->start(QFile::decodeName(qgetenv("ZEL_CLOUD")), words(arguments));
    return process;
}

// The line that it logs when clients can connect is what we wait for.
TestProcess::Process TestProcess::startReady(const char *arguments)
{
    Process process = start(arguments);
    QByteArray log;
    process->setReadChannel(QProcess::StandardError);
    while (!log.contains("ready") && process->waitForReadyRead(patience))
        log += process->readAllStandardError();
    return log.contains("ready") ? std::move(process) : nullptr;
}

void TestProcess::options_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("output");
    QTest::newRow("help") << QByteArray("--help") << 0 << "^Usage: .*--exit-with-last-client";
    QTest::newRow("version") << QByteArray("--version") << 0 << "^zelcloud \\d+\\.\\d+\\.\\d+\n$";
    QTest::newRow("unknown") << QByteArray("--xyz") << 2 << "xyz";
    QTest::newRow("stray argument") << QByteArray("xyz") << 2 << "Wrong arguments";
    QTest::newRow("descriptor is no number") << QByteArray("--ready-fd x") << 2 << "Wrong arguments";
    QTest::newRow("standard descriptor") << QByteArray("--ready-fd 1") << 2 << "Wrong arguments";
    QTest::newRow("closed descriptor") << QByteArray("--ready-fd 77") << 1 << "not open";
}

void TestProcess::options()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QString, output);
    const Process process = start(arguments.constData());
    QVERIFY(process->waitForFinished(patience));
    QTEST(process->exitCode(), "code");
    const QByteArray text = process->readAllStandardOutput() + process->readAllStandardError();
    const QRegularExpression expected(output, QRegularExpression::DotMatchesEverythingOption);
    QVERIFY2(expected.match(QString::fromUtf8(text)).hasMatch(), text.constData());
    QVERIFY(!QFileInfo::exists(socketPath()));
}

void TestProcess::oneInstance()
{
    const Process first = startReady();
    QVERIFY(first);
    const Process second = start();
    QVERIFY(second->waitForFinished(patience));
    QCOMPARE(second->exitCode(), 0);
    QVERIFY(second->readAllStandardError().contains("runs already"));
    QVERIFY(connectClient());
    first->kill();
    QVERIFY(first->waitForFinished(patience));
}

void TestProcess::endsOnSignal_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestProcess::endsOnSignal()
{
    QFETCH(int, number);
    const Process process = startReady();
    QVERIFY(process);
    const UniqueFd client = connectClient();
    ::kill(pid_t(process->processId()), number);
    QVERIFY(process->waitForFinished(patience));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(process->exitCode(), 0);
    QVERIFY(!QFileInfo::exists(socketPath()));
}

void TestProcess::leavesWithTheLastClient()
{
    const Process process = startReady("--exit-with-last-client");
    QVERIFY(process);
    UniqueFd client = connectClient();
    QVERIFY(client);
    QVERIFY2(!process->waitForFinished(6000), "stays as long as somebody is connected");
    client.reset();
    QVERIFY(process->waitForFinished(patience));
    QCOMPARE(process->exitCode(), 0);
    QVERIFY(!QFileInfo::exists(socketPath()));
}

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"

#include "base/posix/unixsocket.h"
#include "cloudipc/retrydelay.h"
#include "kcloudsvrproxy.h"

#include <QDir>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <krt/krt.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace zel::posix;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 20000;
QString programFolder;

} // namespace

QString krt::dirs::programs()
{
    return programFolder;
}

class TestCloudIpc : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void startsTheService();
    void connectsToARunningService();
    void comesBackAfterACrash();
    void serviceThatCannotRun_data();
    void serviceThatCannotRun();
    void serviceInheritsNothing();
    void serviceLeavesAfterTheProxy();
    void destroyedAtAnyMoment_data();
    void destroyedAtAnyMoment();
    void retryDelays();

private:
    std::string socketPath() const
    {
        return m_folder->filePath(QStringLiteral("zelbox/cloud.sock")).toStdString();
    }
    pid_t servicePid() const;
    static bool hasChildren()
    {
        return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_programs;
};

void TestCloudIpc::initTestCase()
{
    m_programs = QFileInfo(QFile::decodeName(qgetenv("ZEL_CLOUD"))).path();
}

void TestCloudIpc::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
    programFolder = m_programs;
}

// Every service of a test is gone afterwards, and has been reaped by the proxy's own means.
void TestCloudIpc::cleanup()
{
    const pid_t pid = servicePid();
    if (pid > 0)
        ::kill(pid, SIGKILL);
    QTRY_VERIFY_WITH_TIMEOUT(!hasChildren(), patience);
}

pid_t TestCloudIpc::servicePid() const
{
    const UniqueFd fd = connectUnixUntil(socketPath(), deadlineIn(5s));
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return fd && ::getsockopt(fd.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? peer.pid : -1;
}

void TestCloudIpc::startsTheService()
{
    KCloudSvrProxy proxy;
    QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
    proxy.startVelaProcess(QString());
    proxy.startVelaProcess(QString()); // already on its way
    QVERIFY(!proxy.isConnected());
    QVERIFY(inited.wait(patience));
    QVERIFY(proxy.isConnected());
    proxy.startVelaProcess(QString());
    QVERIFY2(!inited.wait(100), "told once");
    QCOMPARE(inited.size(), 1);
}

void TestCloudIpc::connectsToARunningService()
{
    KCloudSvrProxy first;
    QSignalSpy firstInited(&first, &KCloudSvrProxy::velaInited);
    first.startVelaProcess(QString());
    QVERIFY(firstInited.wait(patience));
    const pid_t pid = servicePid();

    KCloudSvrProxy second;
    QSignalSpy inited(&second, &KCloudSvrProxy::velaInited);
    second.startVelaProcess(QString());
    QCOMPARE(inited.size(), 0); // only on a later turn of the loop
    QVERIFY(inited.wait(patience));
    QCOMPARE(servicePid(), pid);
}

void TestCloudIpc::comesBackAfterACrash()
{
    KCloudSvrProxy proxy;
    QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
    QSignalSpy lost(proxy.velaEventObject(), &KVelaEventObject::SocketDisConnected);
    proxy.startVelaProcess(QString());
    QVERIFY(inited.wait(patience));
    for (int crash = 1; crash <= 2; ++crash) {
        const pid_t pid = servicePid();
        QVERIFY(pid > 0);
        ::kill(pid, SIGKILL);
        QVERIFY(lost.wait(patience));
        QVERIFY(!proxy.isConnected());
        QTRY_COMPARE_WITH_TIMEOUT(inited.size(), crash + 1, patience);
        QVERIFY(proxy.isConnected());
        QCOMPARE(lost.size(), crash);
        QVERIFY(servicePid() != pid);
    }
}

void TestCloudIpc::serviceThatCannotRun_data()
{
    QTest::addColumn<QByteArray>("script"); // null: none
    QTest::addColumn<QString>("log");
    QTest::newRow("missing") << QByteArray() << "cannot start the service process";
    QTest::newRow("ends at once") << QByteArray("#!/bin/sh\nexit 3\n") << "ended before it was ready";
    QTest::newRow("says ready and ends")
        << QByteArray("#!/bin/sh\nprintf x >&3\n") << "cannot connect to the started";
}

void TestCloudIpc::serviceThatCannotRun()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, log);
    QTemporaryDir folder;
    programFolder = folder.path();
    QFile file(folder.filePath(QStringLiteral("zelcloud")));
    if (!script.isNull()) {
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(script) == script.size());
        file.close();
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(log)); // fails the test when it does not come
    KCloudSvrProxy proxy;
    QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
    QSignalSpy lost(proxy.velaEventObject(), &KVelaEventObject::SocketDisConnected);
    proxy.startVelaProcess(QString());
    QVERIFY(!inited.wait(300));
    QVERIFY(!proxy.isConnected());

    // It is there after all, for example after an update: one of the next tries finds it.
    programFolder = m_programs;
    proxy.startVelaProcess(QString());
    QVERIFY(inited.size() == 1 || inited.wait(patience));
    QCOMPARE(lost.size(), 0);
}

void TestCloudIpc::serviceInheritsNothing()
{
    const UniqueFd careless(::open("/proc/self/status", O_RDONLY)); // stays open over exec
    KCloudSvrProxy proxy;
    QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
    proxy.startVelaProcess(QString());
    QVERIFY(inited.wait(patience));
    const pid_t pid = servicePid();
    const QString process = QStringLiteral("/proc/%1/").arg(pid);
    QCOMPARE(::getsid(pid), pid);
    QCOMPARE(QFile::symLinkTarget(process + QStringLiteral("cwd")), QStringLiteral("/"));
    QCOMPARE(QFile::symLinkTarget(process + QStringLiteral("fd/0")), QStringLiteral("/dev/null"));
    QCOMPARE(QFile::symLinkTarget(process + QStringLiteral("fd/1")), QStringLiteral("/dev/null"));
    struct stat info = {};
    if (::fstat(2, &info) == 0 && S_ISFIFO(info.st_mode))
        QCOMPARE(QFile::symLinkTarget(process + QStringLiteral("fd/2")), QStringLiteral("/dev/null"));
    const QStringList descriptors = QDir(process + QStringLiteral("fd"))
                                        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
    for (const QString &fd : descriptors) {
        const QString target = QFile::symLinkTarget(process + QStringLiteral("fd/") + fd);
        QVERIFY2(!target.endsWith(QLatin1String("/status")), qPrintable(target));
    }
}

void TestCloudIpc::serviceLeavesAfterTheProxy()
{
    auto proxy = std::make_unique<KCloudSvrProxy>();
    QSignalSpy inited(proxy.get(), &KCloudSvrProxy::velaInited);
    proxy->startVelaProcess(QString());
    QVERIFY(inited.wait(patience));
    proxy.reset();
    QVERIFY(hasChildren());
    QTRY_VERIFY_WITH_TIMEOUT(!hasChildren(), patience);
    QVERIFY(!QFileInfo::exists(QString::fromStdString(socketPath())));
}

void TestCloudIpc::destroyedAtAnyMoment_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : {"unused", "started", "introducing", "told", "lost", "pausing"})
        QTest::newRow(moment) << moment;
}

void TestCloudIpc::destroyedAtAnyMoment()
{
    QFETCH(QString, moment);
    auto *proxy = new KCloudSvrProxy;
    QPointer<KCloudSvrProxy> alive(proxy);
    const auto die = [&alive] { delete alive; };
    if (moment == QLatin1String("told"))
        connect(proxy, &KCloudSvrProxy::velaInited, this, die);
    if (moment == QLatin1String("lost"))
        connect(proxy->velaEventObject(), &KVelaEventObject::SocketDisConnected, this, die);
    if (moment == QLatin1String("unused") || moment == QLatin1String("started")) {
        if (moment == QLatin1String("started"))
            proxy->startVelaProcess(QString());
        die();
        QTRY_VERIFY_WITH_TIMEOUT(!hasChildren(), patience); // the service does not wait for anybody
        return;
    }
    proxy->startVelaProcess(QString());
    QTRY_VERIFY_WITH_TIMEOUT(!alive || alive->isConnected(), patience);
    if (moment == QLatin1String("introducing")) {
        KCloudSvrProxy second; // its socket connects at once
        second.startVelaProcess(QString());
        QVERIFY(!second.isConnected());
    } else if (moment != QLatin1String("told")) {
        QSignalSpy lost(proxy->velaEventObject(), &KVelaEventObject::SocketDisConnected);
        ::kill(servicePid(), SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(!alive || !alive->isConnected(), patience);
    }
    if (moment == QLatin1String("told") || moment == QLatin1String("lost"))
        QTRY_VERIFY_WITH_TIMEOUT(!alive, patience);
    die();
    QTest::qWait(150); // time for whatever would still refer to it; a memory checker reports that
}

void TestCloudIpc::retryDelays()
{
    QList<qint64> delays;
    for (int failures : {1, 2, 3, 4, 5, 6, 7, 1000})
        delays << zel::cloudipc::retryDelay(failures).count();
    QCOMPARE(delays, (QList<qint64>{100, 400, 1600, 6400, 25600, 60000, 60000, 60000}));
}

QTEST_GUILESS_MAIN(TestCloudIpc)
#include "tst_cloudipc.moc"

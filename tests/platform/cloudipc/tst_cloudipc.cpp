#include "base/posix/unixsocket.h"
#include "cloudipc/retrydelay.h"
#include "kcloudsvrproxy.h"
#include "support/temptree.h"

#include <krt/krt.h>
#include <sys/socket.h>

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
    void initTestCase() { m_programs = QFileInfo(QFile::decodeName(qgetenv("ZEL_CLOUD"))).path(); }

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
        programFolder = m_programs;
    }

    // Every service of a test is gone afterwards, and has been reaped by the proxy's own means.
    void cleanup()
    {
        const pid_t pid = servicePid();
        if (pid > 0)
            ::kill(pid, SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(!hasChildren(), patience);
    }

    void startsTheService()
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

    void serviceThatCannotRun_data()
    {
        // script: null: none
        const auto row = zeltest::table<QByteArray, QString>("script", "log");
        row("missing", {}, "cannot start the service process");
        row("ends at once", "exit 3\n", "ended before it was ready");
        row("says ready and ends", "printf x >&3\n", "cannot connect to the started");
    }
    void serviceThatCannotRun()
    {
        const auto [script, log] = zeltest::row<QByteArray, QString>();
        const zeltest::TempTree folder;
        programFolder = folder.path();
        if (!script.isNull())
            folder.writeScript("zelcloud", script);
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

    void serviceInheritsNothing()
    {
        const UniqueFd careless(::open("/proc/self/status", O_RDONLY)); // stays open over exec
        KCloudSvrProxy proxy;
        QVERIFY(connectNow(proxy));
        const pid_t pid = servicePid();
        const QString process = "/proc/%1/"_s.arg(pid);
        QCOMPARE(::getsid(pid), pid);
        QCOMPARE(QFile::symLinkTarget(process + "cwd"_s), "/"_s);
        QCOMPARE(QFile::symLinkTarget(process + "fd/0"_s), "/dev/null"_s);
        QCOMPARE(QFile::symLinkTarget(process + "fd/1"_s), "/dev/null"_s);
        struct stat info = {};
        if (::fstat(2, &info) == 0 && S_ISFIFO(info.st_mode))
            QCOMPARE(QFile::symLinkTarget(process + "fd/2"_s), "/dev/null"_s);
        const QStringList descriptors =
            QDir(process + "fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
        for (const QString &fd : descriptors) {
            const QString target = QFile::symLinkTarget(process + "fd/"_s + fd);
            QVERIFY2(!target.endsWith("/status"_s), qPrintable(target));
        }
    }

    // When its last client has gone, and when none ever came.
    void serviceLeavesByItself()
    {
        auto proxy = std::make_unique<KCloudSvrProxy>();
        QVERIFY(connectNow(*proxy));
        proxy.reset();
        const QTemporaryDir other;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(other.path()));
        KCloudSvrProxy().startVelaProcess(QString());
        QVERIFY(hasChildren());
        QTRY_VERIFY_WITH_TIMEOUT(!hasChildren(), patience);
        QVERIFY(!QFileInfo::exists(QString::fromStdString(socketPath())));
    }

    // What destroys it in its own signals is tested with a service that plays along.
    void destroyedAtAnyMoment_data()
    {
        zeltest::rows<bool>("connected", {{"unused", false}, {"introducing", true}, {"pausing", true}});
    }
    void destroyedAtAnyMoment()
    {
        QFETCH(bool, connected);
        auto proxy = std::make_unique<KCloudSvrProxy>();
        if (connected)
            QVERIFY(connectNow(*proxy));
        if (qstrcmp(QTest::currentDataTag(), "introducing") == 0) {
            KCloudSvrProxy second; // its socket connects at once
            second.startVelaProcess(QString());
            QVERIFY(!second.isConnected());
        } else if (connected) {
            ::kill(servicePid(), SIGKILL);
            QTRY_VERIFY_WITH_TIMEOUT(!proxy->isConnected(), patience);
        }
        proxy.reset();
        QTest::qWait(150); // time for whatever would still refer to it; a memory checker reports that
    }

    void retryDelays()
    {
        QList<qint64> delays;
        for (int failures : {1, 2, 3, 4, 5, 6, 7, 1000})
            delays << zel::cloudipc::retryDelay(failures).count();
        QCOMPARE(delays, (QList<qint64>{100, 400, 1600, 6400, 25600, 60000, 60000, 60000}));
    }

private:
    std::string socketPath() const { return m_folder->filePath("zelbox/cloud.sock"_s).toStdString(); }
    pid_t servicePid() const
    {
        const UniqueFd fd = connectUnixUntil(socketPath(), deadlineIn(5s));
        ucred peer = {};
        socklen_t size = sizeof(peer);
        return fd && ::getsockopt(fd.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? peer.pid : -1;
    }

    static bool connectNow(KCloudSvrProxy &proxy)
    {
        QSignalSpy inited(&proxy, &KCloudSvrProxy::velaInited);
        proxy.startVelaProcess(QString());
        return inited.wait(patience);
    }
    static bool hasChildren()
    {
        return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_programs;
};

QTEST_GUILESS_MAIN(TestCloudIpc)
#include "tst_cloudipc.moc"

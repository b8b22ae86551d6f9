#include "app/instancelock.h"
#include "app/zelboxipc.h"
#include "fakehost.h"

#include <QSignalSpy>
#include <QtTest>

#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray utf16WithZero(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), (text.size() + 1) * 2);
}

// What another process sees of the lock: 0 free, 1 held by somebody else.
int lockSeenFromOutside()
{
    // Before the fork: the child may not wait for a lock that another thread of ours holds.
    const QByteArray path = zel::instanceLockPath().toLocal8Bit();
    const pid_t child = ::fork();
    if (child == 0) {
        const int fd = ::open(path.constData(), O_RDWR);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        ::_exit(::fcntl(fd, F_GETLK, &lock) == 0 && lock.l_type == F_WRLCK ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status);
}

int openDescriptorsOf(const QString &path)
{
    int count = 0;
    for (const QFileInfo &fd :
        QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System))
        count += fd.symLinkTarget() == path;
    return count;
}

} // namespace

class TestIpc : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void waitsForAListener();
    void message_data();
    void message();
    void messageFromAnotherThread();
    void lock();
};

void TestIpc::initTestCase()
{
    QVERIFY(ZelBoxIpc::instance()->registerTransmission());
    QVERIFY(ZelBoxIpc::instance()->registerTransmission());
    QCOMPARE(FakeHost::instance().readyQuestions, 1);
    QCOMPARE(FakeHost::instance().registrations, 1);
    QCOMPARE(FakeHost::instance().channelName, std::wstring(L"_TRANSMISSION_"));
}

// The host may deliver while the box is still starting; nothing of that may get lost, and the order stays.
void TestIpc::waitsForAListener()
{
    FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=1");
    FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=2");
    QSignalSpy spy(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission);
    FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=3");
    QTRY_COMPARE(spy.size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(spy.at(i).at(1).toString(), QStringLiteral("/tab=%1").arg(i + 1));
}

void TestIpc::message_data()
{
    QTest::addColumn<QString>("channel");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("emitted"); // key, value; empty: nothing
    QTest::addColumn<QString>("reply");
    const QString channel = QStringLiteral("_TRANSMISSION_");
    const QString handled = QStringLiteral("handled");
    const auto row = [&](const char *name, const char *text, const QStringList &emitted) {
        QTest::newRow(name) << channel << QString::fromUtf8(text) << emitted << handled;
    };
    const QString key = QStringLiteral("zelbox_active_window");
    row("command line", "zelbox_active_window?=/from=tray", {key, QStringLiteral("/from=tray")});
    row("empty value", "zelbox_active_window?=", {key, QString()});
    row("no separator", "zelbox_active_window", {key, QString()});
    row("separator inside the value is lost", "a?=b?=c", {QStringLiteral("a"), QStringLiteral("bc")});
    row("empty key", "?=x", {QString(), QStringLiteral("x")});
    row("empty", "", {QString(), QString()});
    row("beyond the BMP", "k?=\xF0\x9F\x93\x84 文",
        {QStringLiteral("k"), QString::fromUtf8("\xF0\x9F\x93\x84 文")});
    const QString error = QStringLiteral("error");
    for (const char *other : {"", "_transmission_", "_TRANSMISSION_2", "other"})
        QTest::addRow("channel \"%s\"", other)
            << QString::fromLatin1(other) << QStringLiteral("a?=b") << QStringList() << error;
}

void TestIpc::message()
{
    QFETCH(QString, channel);
    QFETCH(QString, text);
    QFETCH(QStringList, emitted);
    QFETCH(QString, reply);
    QSignalSpy spy(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission);
    const std::vector<char> bytes = FakeHost::instance().send(channel.toStdWString(), text.toStdU16String());
    QCOMPARE(QByteArray(bytes.data(), int(bytes.size())), utf16WithZero(reply));
    QCOMPARE(int(spy.size()), emitted.isEmpty() ? 0 : 1);
    if (!emitted.isEmpty()) {
        QCOMPARE(spy.at(0).at(0).toString(), emitted.at(0));
        QCOMPARE(spy.at(0).at(1).toString(), emitted.at(1));
    }
}

// A listener on the GUI thread hears of it there, after the reply was given.
void TestIpc::messageFromAnotherThread()
{
    QThread *heardOn = nullptr;
    QObject listener;
    connect(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission, &listener,
        [&] { heardOn = QThread::currentThread(); });
    std::vector<char> reply;
    std::thread host([&] { reply = FakeHost::instance().send(L"_TRANSMISSION_", u"k?=v"); });
    host.join();
    QCOMPARE(reply.size(), std::size_t(16));
    QVERIFY(!heardOn);
    QTRY_COMPARE(heardOn, thread());
}

void TestIpc::lock()
{
    const QString path = zel::instanceLockPath();
    QCOMPARE(path,
        QDir::tempPath() + QStringLiteral("/__#_ZELBOX_INVELA_INSTANCE_KEY_#__") + QString::number(::getuid())
            + QStringLiteral(".lock"));
    zel::takeInstanceLock();
    QCOMPARE(lockSeenFromOutside(), 1);
    QCOMPARE(int(QFile::permissions(path) & 0x777), 0x644);
    zel::takeInstanceLock();
    QCOMPARE(openDescriptorsOf(path), 2);
    QCOMPARE(lockSeenFromOutside(), 1);
}

QTEST_GUILESS_MAIN(TestIpc)
#include "tst_ipc.moc"

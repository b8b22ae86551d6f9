#include "app/instancelock.h"
#include "app/zelboxipc.h"
#include "base/posix/uniquefd.h"
#include "fakehost.h"

class TestIpc : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(ZelBoxIpc::instance()->registerTransmission());
        QVERIFY(ZelBoxIpc::instance()->registerTransmission());
        QCOMPARE(FakeHost::instance().readyQuestions, 1);
        QCOMPARE(FakeHost::instance().registrations, 1);
        QCOMPARE(FakeHost::instance().channelName, std::wstring(L"_TRANSMISSION_"));
    }

    // The host may deliver while the box is still starting; nothing of that may get lost, and the order
    // stays.
    void waitsForAListener()
    {
        FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=1");
        FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=2");
        QSignalSpy spy(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission);
        FakeHost::instance().send(L"_TRANSMISSION_", u"zelbox_active_window?=/tab=3");
        QTRY_COMPARE(spy.size(), 3);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(spy.at(i).at(1).toString(), "/tab=%1"_s.arg(i + 1));
    }

    void message_data()
    {
        // emitted: key, value; empty: nothing
        const auto table =
            zeltest::table<QString, QString, QStringList, QString>("channel", "text", "emitted", "reply");
        const auto row = [&](const char *name, const char *text, const QStringList &emitted) {
            table(name, "_TRANSMISSION_", text, emitted, "handled");
        };
        const QString key = "zelbox_active_window"_s;
        row("command line", "zelbox_active_window?=/from=tray", {key, "/from=tray"_s});
        row("empty value", "zelbox_active_window?=", {key, QString()});
        row("no separator", "zelbox_active_window", {key, QString()});
        row("separator inside the value is lost", "a?=b?=c", {"a"_s, "bc"_s});
        row("exit under another key", "zelbox_other?=/action=exit", {"zelbox_other"_s, "/action=exit"_s});
        row("empty key", "?=x", {QString(), "x"_s});
        row("empty", "", {QString(), QString()});
        row("beyond the BMP", "k?=\xF0\x9F\x93\x84 文", {"k"_s, "\xF0\x9F\x93\x84 文"_s});
        for (const char *other : {"", "_transmission_", "_TRANSMISSION_2", "other"})
            table("channel \"%1\""_s.arg(QLatin1String(other)), other, "a?=b", {}, "error");
    }
    void message()
    {
        const auto [channel, text, emitted, reply] = zeltest::row<QString, QString, QStringList, QString>();
        QSignalSpy spy(ZelBoxIpc::instance(), &ZelBoxIpc::ipcTransmission);
        const std::vector<char> bytes =
            FakeHost::instance().send(channel.toStdWString(), text.toStdU16String());
        QCOMPARE(QByteArray(bytes.data(), int(bytes.size())), utf16WithZero(reply));
        QCOMPARE(int(spy.size()), emitted.isEmpty() ? 0 : 1);
        if (!emitted.isEmpty()) {
            QCOMPARE(spy.at(0).at(0).toString(), emitted.at(0));
            QCOMPARE(spy.at(0).at(1).toString(), emitted.at(1));
        }
    }

    // A listener on the GUI thread hears of it there, after the reply was given.
    void messageFromAnotherThread()
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

    // Everybody may put something into the temporary folder.
    void lockIsAPlainFile_data()
    {
        zeltest::rows<int>(
            "type", {{"pipe", S_IFIFO}, {"pipe with a reader", S_IFIFO | 1}, {"link", S_IFLNK}});
    }
    void lockIsAPlainFile()
    {
        QFETCH(int, type);
        const QByteArray name = zel::instanceLockPath().toLocal8Bit();
        const char *path = name.constData();
        QCOMPARE(type == S_IFLNK ? ::symlink("target", path) : ::mkfifo(path, 0600), 0);
        const zel::posix::UniqueFd reader((type & 1) != 0 ? ::open(path, O_RDONLY | O_NONBLOCK) : -1);
        const int before = openDescriptorsOf(zel::instanceLockPath());
        zel::takeInstanceLock();
        QCOMPARE(openDescriptorsOf(zel::instanceLockPath()), before);
        QCOMPARE(::unlink(path), 0);
        QVERIFY(!QFileInfo::exists(QDir::temp().filePath("target"_s)));
    }

    void lock()
    {
        const QString path = zel::instanceLockPath();
        QCOMPARE(path,
            QDir::tempPath() + "/__#_ZELBOX_INVELA_INSTANCE_KEY_#__"_s + QString::number(::getuid())
                + ".lock"_s);
        zel::takeInstanceLock();
        QCOMPARE(lockSeenFromOutside(), 1);
        QCOMPARE(int(QFile::permissions(path) & 0x777), 0x644);
        zel::takeInstanceLock();
        QCOMPARE(openDescriptorsOf(path), 2);
        QCOMPARE(lockSeenFromOutside(), 1);
    }

private:
    static QByteArray utf16WithZero(const QString &text)
    {
        return QByteArray(reinterpret_cast<const char *>(text.utf16()), (text.size() + 1) * 2);
    }
    // What another process sees of the lock: 0 free, 1 held by somebody else.
    static int lockSeenFromOutside()
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
    static int openDescriptorsOf(const QString &path)
    {
        int count = 0;
        for (const QFileInfo &fd : QDir("/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System))
            count += fd.symLinkTarget() == path;
        return count;
    }
};

QTEST_GUILESS_MAIN(TestIpc)
#include "tst_ipc.moc"

#include "base/posix/filelock.h"
#include "base/posix/mounts.h"
#include "base/posix/runtimedir.h"
#include "base/posix/singleinstance.h"
#include "base/posix/unixsocket.h"

using namespace zel::posix;
using namespace std::chrono_literals;

using zel::posix::DeadPlace;
using zel::posix::deadPlaceOf;

class TestPosix : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", m_folder->path().toLocal8Bit());
    }

    void runtimeDirIsPrivate_data()
    {
        const auto row = zeltest::table<QString, bool>("before", "usable");
        row("missing", "", true);
        row("private", "private", true);
        row("open to others is closed", "open", true);
        row("symbolic link", "link", false);
        row("file", "file", false);
        row("of another user", "stranger", false);
    }
    void runtimeDirIsPrivate()
    {
        const auto [before, usable] = zeltest::row<QString, bool>();
        const std::string folder = path("zelbox");
        if (before == "link"_s) {
            QCOMPARE(::mkdir(path("target").c_str(), 0700), 0);
            QCOMPARE(::symlink(path("target").c_str(), folder.c_str()), 0);
        } else if (before == "file"_s) {
            QVERIFY(openLockFile(folder));
        } else if (!before.isEmpty()) {
            QCOMPARE(::mkdir(folder.c_str(), 0700), 0);
            QCOMPARE(::chmod(folder.c_str(), before == "open"_s ? 0777 : 0700), 0);
            if (before == "stranger"_s && ::chown(folder.c_str(), stranger, stranger) != 0)
                QSKIP("only root can give a folder away");
        }
        const RuntimeDir dir = openRuntimeDir();
        QCOMPARE(dir.error.empty(), usable);
        QCOMPARE(dir.path, usable ? folder : std::string());
        struct stat info = {};
        if (usable) {
            QCOMPARE(::stat(folder.c_str(), &info), 0);
            QCOMPARE(info.st_mode & 0777U, 0700U);
        }
    }

    void runtimeDirWithoutXdg_data()
    {
        zeltest::rows<QString>("set", {{"unset", {}}, {"relative", "relative/folder"}, {"too long", "/%1"}});
    }
    void runtimeDirWithoutXdg()
    {
        QFETCH(QString, set);
        const QByteArray temporary = qgetenv("TMPDIR");
        qputenv("TMPDIR", m_folder->path().toLocal8Bit());
        if (set == "/%1"_s)
            set = m_folder->filePath(QString(90, QLatin1Char('x')));
        QVERIFY(!set.startsWith(m_folder->path()) || QDir().mkdir(set));
        if (!set.isEmpty())
            qputenv("XDG_RUNTIME_DIR", set.toLocal8Bit());
        else
            qunsetenv("XDG_RUNTIME_DIR");
        const RuntimeDir dir = openRuntimeDir();
        qputenv("TMPDIR", temporary);
        QCOMPARE(dir.error, std::string());
        QCOMPARE(dir.path, path("zelbox-") + std::to_string(::getuid()));
    }

    void lockWaitEndsAtDeadline()
    {
        const UniqueFd held = openLockFile(path("lock"));
        const UniqueFd waiting = openLockFile(path("lock"));
        QVERIFY(tryLock(held.get()));
        QVERIFY(!tryLock(waiting.get()));
        QCOMPARE(errno, EWOULDBLOCK);
        const auto begin = std::chrono::steady_clock::now();
        QVERIFY(!lockUntil(waiting.get(), deadlineIn(80ms)));
        QCOMPARE(errno, ETIMEDOUT);
        const auto took = std::chrono::steady_clock::now() - begin;
        QVERIFY2(took >= 80ms && took < 5s, "the wait did not keep to its deadline");
    }

    void lockWaitEndsWithTheHolder()
    {
        Other holder([this] {
            static UniqueFd held = openLockFile(path("lock"));
            if (!tryLock(held.get()))
                ::_exit(1);
        });
        QVERIFY(holder.done());
        const UniqueFd waiting = openLockFile(path("lock"));
        QVERIFY(!tryLock(waiting.get()));
        std::thread killer([&holder] { holder.kill(); });
        const bool locked = lockUntil(waiting.get(), deadlineIn(20s));
        killer.join();
        QVERIFY(locked);
    }

    void lockFileIsPlain()
    {
        QCOMPARE(::symlink(path("target").c_str(), path("link").c_str()), 0);
        QCOMPARE(::mkfifo(path("pipe").c_str(), 0600), 0);
        for (const char *name : {"link", "pipe", "."}) {
            QVERIFY2(!openLockFile(path(name)), name);
            QCOMPARE(errno, EINVAL);
        }
        QVERIFY(!QFileInfo::exists(QString::fromStdString(path("target"))));
    }

    void oneOwner()
    {
        const std::string folder = m_folder->path().toStdString();
        SingleInstance first(folder, "one");
        SingleInstance second(folder, "one");
        SingleInstance unrelated(folder, "other");
        QCOMPARE(first.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
        QCOMPARE(second.claim(deadlineIn(5s)), SingleInstance::Claim::Taken);
        QCOMPARE(unrelated.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);

        const UniqueFd client = connectUnixUntil(second.socketPath(), deadlineIn(5s));
        QVERIFY(client);
        QVERIFY(peerIsSameUser(client.get()));
        QVERIFY(acceptUnix(first.listener()));
        QVERIFY(!acceptUnix(unrelated.listener()));
    }

    void killedOwnerLeavesNothing()
    {
        const std::string folder = m_folder->path().toStdString();
        Other owner([&folder] {
            static SingleInstance instance(folder, "one");
            if (instance.claim(deadlineIn(5s)) != SingleInstance::Claim::Owner)
                ::_exit(1);
        });
        QVERIFY(owner.done());
        SingleInstance next(folder, "one");
        QCOMPARE(next.claim(deadlineIn(5s)), SingleInstance::Claim::Taken);
        owner.kill();
        QVERIFY2(
            QFileInfo::exists(QString::fromStdString(next.socketPath())), "the stale socket should be there");
        QCOMPARE(next.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
        QVERIFY(connectUnixUntil(next.socketPath(), deadlineIn(5s)));
    }

    void releasedOwnershipIsFree()
    {
        const std::string folder = m_folder->path().toStdString();
        SingleInstance first(folder, "one");
        SingleInstance second(folder, "one");
        QCOMPARE(first.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
        {
            const UniqueFd starts = first.holdStarts(deadlineIn(5s));
            QVERIFY(starts);
            QCOMPARE(second.claim(deadlineIn(50ms)), SingleInstance::Claim::Failed);
            first.release();
            QVERIFY(!connectUnixNow(first.socketPath()));
            QCOMPARE(errno, ENOENT);
        }
        QCOMPARE(second.claim(deadlineIn(5s)), SingleInstance::Claim::Owner);
        first.release(); // not the owner any more: must leave the new one's socket alone
        QVERIFY(connectUnixNow(second.socketPath()));
    }

    void fullQueueEndsAtDeadline()
    {
        const UniqueFd listener = listenUnix(path("socket"), 0);
        QVERIFY(listener);
        std::vector<UniqueFd> queued;
        while (queued.size() < 10) {
            UniqueFd fd = connectUnixNow(path("socket"));
            if (!fd)
                break;
            queued.push_back(std::move(fd));
        }
        QCOMPARE(errno, EAGAIN);
        QVERIFY(!connectUnixUntil(path("socket"), deadlineIn(50ms)));
        QCOMPARE(errno, EAGAIN);
    }

    void deadPlaces_data()
    {
        const auto row = zeltest::table<QString, QString>("mounts", "folder");
        row("nas/a/b", "%1/nas", "");
        row("nas2/a", "", "%1/nas2");
        row("my disk/a", "%1/my disk", "");
        row("home/docs/a", "%1/nas %1/home/docs", ""); // by a link
        row("home/far/a", "%1/nas %1/home/far", "");   // by two, one of them relative
        row("home/near/a", "", "%1/home/near");
        row("home/loop/a", "", "%1/home/loop");
        row("hidden/a", "", "%1/hidden"); // a local one is mounted over a remote one
    }
    // What a hanging look condemns: never more than the mount that can hang.
    void deadPlaces()
    {
        const QTemporaryDir home;
        const QString root = QFileInfo(home.path()).canonicalFilePath();
        const auto in = [&](QString text) { return text.replace(QLatin1String("%1"), root); };
        QVERIFY(QDir().mkpath(root + "/home"_s));
        const auto link = [&](const QString &name, const QString &target) {
            return QFile::link(target, root + "/home/"_s + name);
        };
        QVERIFY(link("docs"_s, root + "/nas/docs"_s));
        QVERIFY(link("far"_s, "../home/docs/x"_s));
        QVERIFY(link("near"_s, ".."_s));
        QVERIFY(link("loop"_s, "loop"_s));
        const std::string table = in("21 1 8:1 / / rw shared:1 - ext4 /dev/a rw\n"
                                     "40 21 0:5 / %1/nas rw - nfs4 s:/x rw\n"
                                     "41 21 0:6 / %1/my\\040disk rw - cifs s:/y rw\n"
                                     "42 21 0:7 / %1/hidden rw - nfs s:/z rw\n"
                                     "43 42 0:8 / %1/hidden rw - tmpfs t rw\n\n"_s)
                                      .toStdString();
        const auto [mounts, folder] = zeltest::row<QString, QString>();
        const QString path = root + QLatin1Char('/') + QString::fromLatin1(QTest::currentDataTag());
        const DeadPlace dead = deadPlaceOf(path.toStdString(), table);
        QCOMPARE(zeltest::joined(dead.mounts, std::identity()), in(mounts));
        QCOMPARE(QString::fromStdString(dead.folder), in(folder));
        QVERIFY(deadPlaceOf("/a", "21 1 0:1 / / rw - nfs s:/ rw\n").mounts.empty());
    }

private:
    static constexpr uid_t stranger = 12345;
    // A process that does one thing and then stands still until it is killed.
    class Other
    {
    public:
        explicit Other(const std::function<void()> &action)
        {
            int ends[2];
            if (::pipe(ends) != 0)
                return;
            m_pid = ::fork();
            if (m_pid == 0) {
                action();
                [[maybe_unused]] const auto written = ::write(ends[1], "x", 1);
                for (;;)
                    ::pause();
            }
            ::close(ends[1]);
            char byte = 0;
            m_done = ::read(ends[0], &byte, 1) == 1;
            ::close(ends[0]);
        }
        ~Other() { kill(); }
        bool done() const { return m_done; }
        void kill()
        {
            if (m_pid > 0 && ::kill(m_pid, SIGKILL) == 0)
                ::waitpid(m_pid, nullptr, 0);
            m_pid = -1;
        }

    private:
        pid_t m_pid = -1;
        bool m_done = false;
    };

    std::string path(const char *name) const { return m_folder->filePath(QLatin1String(name)).toStdString(); }
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_APPLESS_MAIN(TestPosix)
#include "tst_posix.moc"

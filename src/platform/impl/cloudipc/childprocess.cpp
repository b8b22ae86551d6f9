#include "childprocess.h"

#include "base/logging.h"
#include "base/posix/uniquefd.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace zel::cloudipc {
namespace {

constexpr char nowhere[] = "/dev/null";

// Waits for one child's end without blocking, on behalf of the application rather than of whoever started the
// child.
class Reaper final : public QObject
{
public:
    Reaper(pid_t pid, posix::UniqueFd pidFd, QObject *parent)
        : QObject(parent),
          m_pid(pid),
          m_pidFd(std::move(pidFd)),
          m_ended(m_pidFd.get(), QSocketNotifier::Read)
    {
        connect(&m_ended, &QSocketNotifier::activated, this, &Reaper::reap);
    }

private:
    void reap()
    {
        int status = 0;
        if (::waitpid(m_pid, &status, WNOHANG) == 0)
            return;
        if (WIFSIGNALED(status))
            qCWarning(lcPlatform, "service process ended by signal %d", WTERMSIG(status));
        else if (WEXITSTATUS(status) != 0)
            qCWarning(lcPlatform, "service process ended with %d", WEXITSTATUS(status));
        m_ended.setEnabled(false);
        deleteLater();
    }

    pid_t m_pid;
    posix::UniqueFd m_pidFd;
    QSocketNotifier m_ended;
};

void reapWhenEnded(pid_t pid)
{
    // Not by the C library's function: its header declares it without C linkage in some versions.
    posix::UniqueFd pidFd(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
    if (pidFd)
        new Reaper(pid, std::move(pidFd), qApp);
    else
        qCWarning(lcPlatform, "cannot watch the service process: %s", std::strerror(errno));
}

// A pipe or socket of ours must not stay open for as long as the program runs: somebody may wait for its end.
// The journal's socket is meant for that.
bool mayInherit(int fd)
{
    struct stat info = {};
    if (::fstat(fd, &info) != 0)
        return false;
    if (!S_ISFIFO(info.st_mode) && !S_ISSOCK(info.st_mode))
        return true;
    const QByteArray self =
        QByteArray::number(qulonglong(info.st_dev)) + ':' + QByteArray::number(qulonglong(info.st_ino));
    return qgetenv("JOURNAL_STREAM") == self;
}

// What the child changes between its birth and the program's start.
class Setup
{
public:
    explicit Setup(int handed)
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, 0, nowhere, O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&actions, 1, nowhere, O_WRONLY, 0);
        if (!mayInherit(2))
            ::posix_spawn_file_actions_addopen(&actions, 2, nowhere, O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions, handed, handedFd);
        ::posix_spawn_file_actions_addclosefrom_np(&actions, handedFd + 1);
        ::posix_spawn_file_actions_addchdir_np(&actions, "/");

        ::posix_spawnattr_init(&attributes);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
        ::posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Setup()
    {
        ::posix_spawnattr_destroy(&attributes);
        ::posix_spawn_file_actions_destroy(&actions);
    }
    Setup(const Setup &) = delete;
    Setup &operator=(const Setup &) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

} // namespace

pid_t startDetached(const QString &program, const QStringList &arguments, int handed)
{
    QList<QByteArray> bytes = {QFile::encodeName(program)};
    for (const QString &argument : arguments)
        bytes.append(argument.toLocal8Bit());
    std::vector<char *> argv;
    for (QByteArray &argument : bytes)
        argv.push_back(argument.data());
    argv.push_back(nullptr);

    const Setup setup(handed);
    pid_t pid = -1;
    const int error =
        ::posix_spawn(&pid, argv.front(), &setup.actions, &setup.attributes, argv.data(), environ);
    if (error != 0) {
        errno = error;
        return -1;
    }
    reapWhenEnded(pid);
    return pid;
}

} // namespace zel::cloudipc

#include "base/posix/filelock.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::posix {
namespace {

// Interrupts a blocking call of the calling thread at the deadline: flock knows no time-out of its own.
class Interrupter
{
public:
    explicit Interrupter(Deadline deadline)
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {}; // without SA_RESTART, so that the call returns EINTR
        ::sigaction(SIGALRM, &action, &m_earlier);
        sigevent event = {};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = SIGALRM;
        event._sigev_un._tid = ::gettid();
        m_armed = ::timer_create(CLOCK_MONOTONIC, &event, &m_timer) == 0;
        if (m_armed)
            arm(timeLeft(deadline));
    }
    ~Interrupter()
    {
        if (m_armed)
            ::timer_delete(m_timer);
        ::sigaction(SIGALRM, &m_earlier, nullptr);
    }
    Interrupter(const Interrupter &) = delete;
    Interrupter &operator=(const Interrupter &) = delete;

    bool armed() const { return m_armed; }

private:
    void arm(std::chrono::milliseconds left)
    {
        const long long ms = std::max<long long>(left.count(), 1);
        itimerspec times = {};
        times.it_value = {static_cast<time_t>(ms / 1000), static_cast<long>(ms % 1000) * 1000000};
        // Repeats, for the case that the first signal comes just before the call blocks.
        times.it_interval = {0, 20 * 1000000};
        ::timer_settime(m_timer, 0, &times, nullptr);
    }

    struct sigaction m_earlier = {};
    timer_t m_timer = {};
    bool m_armed = false;
};

} // namespace

UniqueFd openLockFile(const std::string &path)
{
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    UniqueFd fd(::open(path.c_str(), flags, 0600));
    if (fd ? !isOwnPlainFile(fd.get()) : errno == ELOOP || errno == EISDIR || errno == ENXIO) {
        fd.reset();
        errno = EINVAL;
    }
    // The sticky bit exempts it from the periodic clean-up of runtime folders; without it only that is lost.
    if (fd && ::fchmod(fd.get(), S_ISVTX | 0600) != 0)
        ::fchmod(fd.get(), 0600);
    return fd;
}

bool isOwnPlainFile(int fd)
{
    struct stat info = {};
    return ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == ::geteuid();
}

bool tryLock(int fd)
{
    int result = 0;
    do {
        result = ::flock(fd, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

bool lockUntil(int fd, Deadline deadline)
{
    if (tryLock(fd))
        return true;
    if (errno != EWOULDBLOCK)
        return false;
    const Interrupter interrupter(deadline);
    if (!interrupter.armed())
        return false;
    while (::flock(fd, LOCK_EX) != 0) {
        if (errno != EINTR)
            return false;
        if (std::chrono::steady_clock::now() >= deadline) {
            errno = ETIMEDOUT;
            return false;
        }
    }
    return true;
}

} // namespace zel::posix

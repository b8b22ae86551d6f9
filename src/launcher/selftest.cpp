#include "launcher/selftest.h"

#include "base/posix/deadline.h"
#include "launcher/privatesurroundings.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zel::launcher {
namespace {

constexpr std::chrono::seconds watchdog{60};
constexpr std::chrono::seconds leavingTime{5};

sigset_t watchedSignals()
{
    sigset_t set;
    ::sigemptyset(&set);
    for (const int number : {SIGCHLD, SIGINT, SIGTERM, SIGHUP})
        ::sigaddset(&set, number);
    return set;
}

// The next of them; 0 when none has come in time.
int waitForSignal(posix::Deadline deadline)
{
    const sigset_t set = watchedSignals();
    for (;;) {
        const auto left = posix::timeLeft(deadline).count();
        const timespec time = {static_cast<time_t>(left / 1000), static_cast<long>(left % 1000) * 1000000};
        const int number = ::sigtimedwait(&set, nullptr, &time);
        if (number > 0)
            return number;
        if (errno != EINTR)
            return 0;
    }
}

enum class Wait { Ended, TimedOut, Interrupted };

// Waits for the box; everything else that it left behind comes to us as well and is reaped on the way.
Wait waitForEnd(pid_t box, posix::Deadline deadline, int &status)
{
    for (;;) {
        int ended = 0;
        pid_t pid = 0;
        while ((pid = ::waitpid(-1, &ended, WNOHANG)) > 0) {
            if (pid == box) {
                status = ended;
                return Wait::Ended;
            }
        }
        const int number = waitForSignal(deadline);
        if (number == 0)
            return Wait::TimedOut;
        if (number != SIGCHLD)
            return Wait::Interrupted;
    }
}

void signalChildren(int number)
{
    std::ifstream children("/proc/thread-self/children");
    for (pid_t pid = 0; children >> pid;)
        ::kill(pid, number);
}

// True once no child is left.
bool reapChildren(posix::Deadline deadline)
{
    for (;;) {
        const pid_t pid = ::waitpid(-1, nullptr, WNOHANG);
        if (pid < 0)
            return true;
        if (pid == 0 && waitForSignal(deadline) == 0)
            return false;
    }
}

// The services that the box has started must not outlive their folders.
void endChildren()
{
    for (const int number : {SIGTERM, SIGKILL}) {
        signalChildren(number);
        if (reapChildren(posix::deadlineIn(leavingTime)))
            return;
    }
}

pid_t startBox(char **argv, const sigset_t &signalMask)
{
    const pid_t pid = ::fork();
    if (pid != 0)
        return pid;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::sigprocmask(SIG_SETMASK, &signalMask, nullptr);
    ::execv("/proc/self/exe", argv);
    std::perror("zelbox: cannot start the box");
    ::_exit(127);
}

std::string verdict(Wait wait, int status, const std::string &resultFile)
{
    if (wait == Wait::TimedOut)
        return "failed: the box did not quit within " + std::to_string(watchdog.count()) + " s";
    if (wait == Wait::Interrupted)
        return "failed: interrupted";
    if (WIFSIGNALED(status))
        return std::string("failed: the box was ended by a signal: ") + ::strsignal(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0)
        return "failed: the box ended with " + std::to_string(WEXITSTATUS(status));
    std::string line;
    std::ifstream file(resultFile);
    return std::getline(file, line) ? line : "failed: the box reported nothing";
}

} // namespace

int runSelfTest(char **argv)
{
    PrivateSurroundings surroundings;
    if (!surroundings.enter()) {
        std::perror("zelbox: cannot make folders for the self-test");
        return 1;
    }
    const std::string resultFile = surroundings.folder() + "/result";
    ::setenv("ZELBOX_SELF_TEST", "1", 1);
    ::setenv("ZELBOX_SELF_TEST_RESULT", resultFile.c_str(), 1);
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    const sigset_t set = watchedSignals();
    sigset_t earlier;
    ::sigprocmask(SIG_BLOCK, &set, &earlier);
    const pid_t box = startBox(argv, earlier);
    if (box < 0) {
        std::perror("zelbox: cannot start the box");
        return 1;
    }
    int status = 0;
    const Wait wait = waitForEnd(box, posix::deadlineIn(watchdog), status);
    endChildren();
    const std::string result = verdict(wait, status, resultFile);
    std::printf("self-test: %s\n", result.c_str());
    return result == "ok" ? 0 : 1;
}

} // namespace zel::launcher

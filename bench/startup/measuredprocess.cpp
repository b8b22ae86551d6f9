#include "measuredprocess.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int MostMillisecondsToEnd = 5000;

long fieldOf(const std::filesystem::path &file, const std::string &field)
{
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(field, 0) == 0)
            return std::stol(line.substr(field.size()));
    }
    return -1;
}

} // namespace

MeasuredProcess::MeasuredProcess(const std::vector<std::string> &command, Output output)
    : m_start(std::chrono::steady_clock::now())
{
    std::vector<char *> arguments;
    for (const std::string &word : command)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    const int nowhere = output == Output::Dropped ? ::open("/dev/null", O_WRONLY | O_CLOEXEC) : -1;
    m_pid = ::vfork();
    if (m_pid == 0) {
        if (nowhere >= 0 && ::dup2(nowhere, 1) >= 0)
            ::dup2(nowhere, 2);
        ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
    if (nowhere >= 0)
        ::close(nowhere);
}

MeasuredProcess::~MeasuredProcess()
{
    if (m_pid <= 0)
        return;
    const int ended = int(::syscall(SYS_pidfd_open, m_pid, 0));
    ::kill(m_pid, SIGTERM);
    pollfd end{ended, POLLIN, 0};
    if (ended < 0 || ::poll(&end, 1, MostMillisecondsToEnd) != 1)
        ::kill(m_pid, SIGKILL); // not every program that is measured ends when told
    ::close(ended);
    wait();
}

std::chrono::duration<double, std::milli> MeasuredProcess::sinceExec() const
{
    return std::chrono::steady_clock::now() - m_start;
}

long MeasuredProcess::pssKilobytesOf(pid_t process)
{
    return fieldOf("/proc/" + std::to_string(process) + "/smaps_rollup", "Pss:");
}

MeasuredProcess::Threads MeasuredProcess::threadsOf(pid_t process)
{
    Threads found;
    std::error_code error;
    for (const auto &task :
        std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task", error)) {
        Thread thread;
        std::ifstream comm(task.path() / "comm");
        std::getline(comm, thread.name);
        thread.sleeps = fieldOf(task.path() / "status", "voluntary_ctxt_switches:");
        found.emplace(task.path().filename().string(), thread);
    }
    return found;
}

std::map<std::string, long> MeasuredProcess::wakeUpsSince(pid_t process, const Threads &earlier)
{
    std::map<std::string, long> wakeUps;
    for (const auto &[id, thread] : threadsOf(process)) {
        const auto before = earlier.find(id);
        const long count = thread.sleeps - (before == earlier.end() ? 0 : before->second.sleeps);
        if (count > 0)
            wakeUps[thread.name] += count;
    }
    return wakeUps;
}

int MeasuredProcess::wait()
{
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

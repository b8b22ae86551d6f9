#include "measuredprocess.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

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

MeasuredProcess::MeasuredProcess(const std::vector<std::string> &command)
    : m_start(std::chrono::steady_clock::now())
{
    std::vector<char *> arguments;
    for (const std::string &word : command)
        arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    m_pid = ::vfork();
    if (m_pid == 0) {
        ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
}

MeasuredProcess::~MeasuredProcess()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGTERM);
        wait();
    }
}

std::chrono::duration<double, std::milli> MeasuredProcess::sinceExec() const
{
    return std::chrono::steady_clock::now() - m_start;
}

long MeasuredProcess::pssKilobytes() const
{
    return fieldOf("/proc/" + std::to_string(m_pid) + "/smaps_rollup", "Pss:");
}

std::map<std::string, MeasuredProcess::Thread> MeasuredProcess::threads() const
{
    std::map<std::string, Thread> found;
    for (const auto &task : std::filesystem::directory_iterator("/proc/" + std::to_string(m_pid) + "/task")) {
        Thread thread;
        std::ifstream comm(task.path() / "comm");
        std::getline(comm, thread.name);
        thread.sleeps = fieldOf(task.path() / "status", "voluntary_ctxt_switches:");
        found.emplace(task.path().filename().string(), thread);
    }
    return found;
}

int MeasuredProcess::wait()
{
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#pragma once

#include <chrono>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

/// A child process under measurement. Not copyable; ends its child when it goes.
class MeasuredProcess
{
public:
    enum class Output { Shown, Dropped };
    /// Started at once.
    explicit MeasuredProcess(const std::vector<std::string> &command, Output output = Output::Shown);
    ~MeasuredProcess();
    MeasuredProcess(const MeasuredProcess &) = delete;
    MeasuredProcess &operator=(const MeasuredProcess &) = delete;

    std::chrono::duration<double, std::milli> sinceExec() const;
    pid_t pid() const { return m_pid; }
    long pssKilobytes() const { return pssKilobytesOf(m_pid); }
    int wait(); ///< exit code, -1 when it was killed

    struct Thread
    {
        std::string name;
        long sleeps = 0; ///< how often it has gone to sleep so far; each one is a wake-up
    };
    using Threads = std::map<std::string, Thread>; ///< by thread id

    // Of any process; empty or -1 when it is gone.
    static long pssKilobytesOf(pid_t process); ///< proportional resident memory
    static Threads threadsOf(pid_t process);
    static std::map<std::string, long> wakeUpsSince(
        pid_t process, const Threads &earlier); ///< by thread name, without those that slept on

private:
    pid_t m_pid;
    std::chrono::steady_clock::time_point m_start;
};

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
    explicit MeasuredProcess(const std::vector<std::string> &command); ///< started at once
    ~MeasuredProcess();
    MeasuredProcess(const MeasuredProcess &) = delete;
    MeasuredProcess &operator=(const MeasuredProcess &) = delete;

    std::chrono::duration<double, std::milli> sinceExec() const;
    long pssKilobytes() const; ///< proportional resident memory (smaps_rollup); -1 when not readable
    struct Thread
    {
        std::string name;
        long sleeps = 0; ///< how often it has gone to sleep so far; each one is a wake-up
    };
    std::map<std::string, Thread> threads() const; ///< by thread id
    int wait();                                    ///< exit code, -1 when it was killed

private:
    pid_t m_pid;
    std::chrono::steady_clock::time_point m_start;
};

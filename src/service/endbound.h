#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace zel::service {

/// Ends the process when its orderly end takes too long, as when a thread waits for a file system that does
/// not answer: nobody may have to wait for this process, which still owns the user's data. What it leaves is
/// what a killed one leaves. One thread.
class EndBound
{
public:
    EndBound() = default;
    ~EndBound(); ///< the orderly end was in time
    EndBound(const EndBound &) = delete;
    EndBound &operator=(const EndBound &) = delete;

    void start(std::chrono::milliseconds patience);

private:
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_ended = false;
};

} // namespace zel::service

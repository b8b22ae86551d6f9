#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"
#include "launcher/connection.h"

#include <atomic>
#include <list>
#include <string>
#include <thread>
#include <vector>

struct pollfd;

namespace zel::launcher {

class HostMessages;

/// Takes the messages of later starts and hands them to the box, on a thread of its own, which sleeps while
/// there is nothing to do. A message for the box waits until the box has registered its handler.
class InstanceServer
{
public:
    struct Limits
    {
        std::chrono::milliseconds silence{1000}; ///< of a sender in the middle of its message
        std::size_t connections = 64;            ///< at once; more wait in the socket's queue
    };

    /// `listener` and `messages` outlive the server. `exitSignal` becomes readable when the box is to end
    /// (-1: none).
    InstanceServer(int listener, HostMessages &messages, int exitSignal, Limits limits);
    ~InstanceServer();
    InstanceServer(const InstanceServer &) = delete;
    InstanceServer &operator=(const InstanceServer &) = delete;

    bool start(); ///< false with errno when the thread cannot run
    /// Ends the thread and closes what is still open; whoever waits for an answer sees the end of the
    /// connection.
    void stop();

private:
    void wake();
    void run();
    void collect(std::vector<pollfd> &polled) const;
    int pollTimeout() const;
    void handle(const std::vector<pollfd> &polled);
    void handleListener(short events);
    void deliver();
    bool deliverTo(Connection &connection, bool held);
    void dropFinished();
    bool mayAccept() const;

    const int m_listener;
    HostMessages &m_messages;
    int m_exitSignal;
    const Limits m_limits;
    posix::UniqueFd m_wake;
    std::atomic<bool> m_stop = false;
    bool m_exitWanted = false;
    posix::Deadline m_acceptAgain; ///< after the process ran out of descriptors
    std::list<Connection> m_connections;
    std::thread m_thread;
};

} // namespace zel::launcher

#pragma once

#include "base/posix/deadline.h"
#include "base/posix/uniquefd.h"

#include <string>
#include <string_view>

namespace zel::posix {

/// One process per user and name that listens on a socket; every other start finds it there. One thread.
///
/// Two locks in the private runtime folder make this exact: the instance lock is held for the owner's life,
/// the start lock only while someone finds out who the owner is. The owner listens before it lets go of the
/// start lock, so whoever finds the instance lock taken can connect, unless the owner has ended since: then
/// claim() again.
class SingleInstance
{
public:
    enum class Claim {
        Owner, ///< this process is the one; listener() is open
        Taken, ///< another process is; connect to socketPath()
        Failed ///< see error()
    };

    /// Uses `<folder>/<name>.lock`, `.start.lock` and `.sock`.
    SingleInstance(std::string folder, std::string_view name);
    ~SingleInstance();
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;

    Claim claim(Deadline deadline);
    /// The same with a socket at socketPath() that somebody else, a service manager, listens on for us and
    /// will go on to: it is not removed at the end.
    Claim claimWith(UniqueFd listener, Deadline deadline);
    /// Keeps other starts waiting while the result lives; empty when that was not possible before the
    /// deadline.
    UniqueFd holdStarts(Deadline deadline);
    /// Gives the ownership up: removes the socket, then the lock. Hold the starts meanwhile. Does nothing
    /// when not owner.
    void release();

    int listener() const { return m_listener.get(); }
    const std::string &socketPath() const { return m_socketPath; }
    const std::string &error() const { return m_error; } ///< for the log

private:
    Claim fail(const std::string &path);
    bool listen();

    std::string m_lockPath;
    std::string m_startLockPath;
    std::string m_socketPath;
    std::string m_error;
    UniqueFd m_lock;
    UniqueFd m_listener;
    bool m_socketIsOurs = true;
};

} // namespace zel::posix

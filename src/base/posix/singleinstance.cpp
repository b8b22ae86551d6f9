#include "base/posix/singleinstance.h"

#include "base/posix/filelock.h"
#include "base/posix/unixsocket.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace zel::posix {

SingleInstance::SingleInstance(std::string folder, std::string_view name)
{
    const std::string base = std::move(folder) + '/' + std::string(name);
    m_lockPath = base + ".lock";
    m_startLockPath = base + ".start.lock";
    m_socketPath = base + ".sock";
}

SingleInstance::~SingleInstance()
{
    release();
}

SingleInstance::Claim SingleInstance::claim(Deadline deadline)
{
    return claimWith({}, deadline);
}

SingleInstance::Claim SingleInstance::claimWith(UniqueFd listener, Deadline deadline)
{
    const UniqueFd starts = holdStarts(deadline);
    if (!starts)
        return fail(m_startLockPath);
    UniqueFd lock = openLockFile(m_lockPath);
    if (!lock)
        return fail(m_lockPath);
    if (!tryLock(lock.get()))
        return errno == EWOULDBLOCK ? Claim::Taken : fail(m_lockPath);
    m_socketIsOurs = !listener;
    m_listener = std::move(listener);
    if (m_socketIsOurs && !listen())
        return fail(m_socketPath);
    m_lock = std::move(lock);
    return Claim::Owner;
}

UniqueFd SingleInstance::holdStarts(Deadline deadline)
{
    UniqueFd fd = openLockFile(m_startLockPath);
    if (fd && !lockUntil(fd.get(), deadline))
        fd.reset();
    return fd;
}

void SingleInstance::release()
{
    if (!m_lock)
        return;
    m_listener.reset();
    if (m_socketIsOurs)
        ::unlink(m_socketPath.c_str());
    m_lock.reset();
}

SingleInstance::Claim SingleInstance::fail(const std::string &path)
{
    m_error = path + ": " + (errno == EINVAL ? "is not a plain file of ours" : std::strerror(errno));
    return Claim::Failed;
}

bool SingleInstance::listen()
{
    m_listener = listenUnix(m_socketPath);
    // As with the lock files: the sticky bit keeps the clean-up of runtime folders away; a refusal costs only
    // that.
    if (m_listener && ::chmod(m_socketPath.c_str(), S_ISVTX | 0600) != 0)
        ::chmod(m_socketPath.c_str(), 0600);
    return static_cast<bool>(m_listener);
}

} // namespace zel::posix

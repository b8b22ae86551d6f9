#include "driveclaim.h"

#include "base/posix/filelock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace zel::service {

void DriveClaim::lock()
{
    std::unique_lock lock(m_mutex);
    const auto self = std::this_thread::get_id();
    if (m_holder != self) {
        const quint64 ticket = m_nextTicket++;
        m_turn.wait(lock, [this, ticket] { return m_served == ticket; });
        m_holder = self;
    }
    ++m_depth;
}

void DriveClaim::unlock()
{
    {
        const std::lock_guard lock(m_mutex);
        if (--m_depth > 0)
            return;
        m_holder = {};
        ++m_served;
    }
    m_turn.notify_all();
}

bool DriveClaim::own(int folder)
{
    const std::lock_guard lock(m_ownMutex);
    struct stat status
    {
    };
    if (::fstat(folder, &status) != 0 || (m_folder && m_device == status.st_dev && m_inode == status.st_ino))
        return true;
    // A lock belongs to the open file, so it gets one that stays.
    posix::UniqueFd fd(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd && !posix::tryLock(fd.get()) && errno == EWOULDBLOCK)
        return false;
    m_folder = std::move(fd);
    m_device = status.st_dev;
    m_inode = status.st_ino;
    return true;
}

} // namespace zel::service

#pragma once

#include "base/posix/uniquefd.h"

#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace zel::service {

/// What the drives of one process on the same folder and index have in common, each on a thread of its own:
/// who may change the two at the moment, and that no other process does. Any thread.
///
/// Whatever looks at the folder and then writes to the index, or the other way round, does so under a
/// DriveHold. Long steps, such as copying bytes, are done without. The same thread may take it again.
class DriveClaim
{
public:
    void lock(); ///< first come, first served, so that reading a large tree lets others in between
    void unlock();

    /// Takes the drive's folder for this process as long as this lives. False: another process has it. A file
    /// system without locks is taken as it is.
    bool own(int folder);

    std::atomic<bool> watched = false; ///< all changes of others are told, see LocalDrive::setWatched()
    std::atomic<bool> scanned = false; ///< the index was brought in line with the whole folder since

private:
    std::mutex m_mutex; ///< of the four below
    std::condition_variable m_turn;
    std::thread::id m_holder;
    int m_depth = 0;
    quint64 m_nextTicket = 0;
    quint64 m_served = 0;

    std::mutex m_ownMutex; ///< of the three below
    posix::UniqueFd m_folder;
    quint64 m_device = 0;
    quint64 m_inode = 0;
};

using DriveHold = std::unique_lock<DriveClaim>;

} // namespace zel::service

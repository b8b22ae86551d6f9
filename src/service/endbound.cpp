#include "service/endbound.h"

#include "base/logging.h"

#include <cstdlib>
#include <unistd.h>

namespace zel::service {

EndBound::~EndBound()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void EndBound::start(std::chrono::milliseconds patience)
{
    m_thread = std::thread([this, patience] {
        std::unique_lock lock(m_mutex);
        if (m_changed.wait_for(lock, patience, [this] { return m_ended; }))
            return;
        qCCritical(lcService, "something does not end, perhaps a file system does not answer; ends at once");
        ::_exit(EXIT_FAILURE);
    });
}

} // namespace zel::service

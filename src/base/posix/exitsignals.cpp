#include "base/posix/exitsignals.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

namespace zel::posix {
namespace {

constexpr int exitSignals[] = {SIGTERM, SIGINT, SIGHUP};
int signalled = -1;

void onExitSignal(int)
{
    const int earlier = errno;
    for (const int number : exitSignals) {
        struct sigaction action = {};
        action.sa_handler = SIG_DFL;
        ::sigaction(number, &action, nullptr);
    }
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(signalled, &one, sizeof(one));
    errno = earlier;
}

} // namespace

int catchExitSignals()
{
    signalled = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (signalled < 0)
        return -1;
    for (const int number : exitSignals) {
        struct sigaction action = {};
        if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = onExitSignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
    return signalled;
}

} // namespace zel::posix

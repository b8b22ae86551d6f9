#include "retrydelay.h"

namespace zel::cloudipc {

std::optional<std::chrono::milliseconds> retryDelay(int failures)
{
    constexpr int tries = 6;
    if (failures >= tries)
        return std::nullopt;
    std::chrono::milliseconds delay(100);
    for (int i = 1; i < failures; ++i)
        delay *= 4;
    return delay;
}

} // namespace zel::cloudipc

#include "retrydelay.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace zel::cloudipc {

std::chrono::milliseconds retryDelay(int failures)
{
    std::chrono::milliseconds delay = 100ms;
    for (int i = 1; i < failures && delay < 1min; ++i)
        delay *= 4;
    return std::min<std::chrono::milliseconds>(delay, 1min);
}

} // namespace zel::cloudipc

#pragma once

#include <algorithm>
#include <chrono>

namespace zel::posix {

using Deadline = std::chrono::steady_clock::time_point;

inline Deadline deadlineIn(std::chrono::milliseconds time)
{
    return std::chrono::steady_clock::now() + time;
}

/// What is left, rounded up so that a wait of this length never ends early; 0 once it has passed.
inline std::chrono::milliseconds timeLeft(Deadline deadline)
{
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return std::max(left, std::chrono::milliseconds(0));
}

} // namespace zel::posix

#pragma once

#include <chrono>

namespace zel::cloudipc {

/// How long to wait after this many failures in a row (1 for the first) before the next try: longer each
/// time, a minute at most. Pure.
std::chrono::milliseconds retryDelay(int failures);

} // namespace zel::cloudipc

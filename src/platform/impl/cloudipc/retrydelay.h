#pragma once

#include <chrono>
#include <optional>

namespace zel::cloudipc {

/// How long to wait after this many failures in a row (1 for the first) before the next try; empty: try no
/// more. Pure.
std::optional<std::chrono::milliseconds> retryDelay(int failures);

} // namespace zel::cloudipc

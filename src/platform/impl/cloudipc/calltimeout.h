#pragma once

#include <chrono>
#include <string_view>

namespace zel::cloudipc {

/// How long the answer to a method may take. Pure.
std::chrono::milliseconds callTimeout(std::string_view method);

} // namespace zel::cloudipc

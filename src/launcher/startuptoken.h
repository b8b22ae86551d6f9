#pragma once

#include <string>

namespace zel::launcher {

/// What whoever started us gave along so that the box's window may come to the front, as the text behind
/// startupKey: DESKTOP_STARTUP_ID, a line feed, XDG_ACTIVATION_TOKEN. Empty when there is neither. The
/// environment stays as it is: a box that starts now needs it.
std::string startupToken();

} // namespace zel::launcher

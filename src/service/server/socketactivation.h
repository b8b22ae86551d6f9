#pragma once

#include "base/posix/uniquefd.h"

namespace zel::service {

/// The listening socket that the service manager opened for this process, as sd_listen_fds(3) describes:
/// descriptor 3 with LISTEN_PID and LISTEN_FDS in the environment, which are removed. Empty when the process
/// was started otherwise, or with anything but one listening Unix stream socket (then with a line in the
/// log). Call once, before other threads exist.
posix::UniqueFd takeActivationSocket();

} // namespace zel::service

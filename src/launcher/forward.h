#pragma once

#include "base/posix/deadline.h"

#include <string>
#include <sys/types.h>

namespace zel::launcher {

struct Message;

/// How forwarding a message to the running box ended.
struct Forwarding
{
    enum class Result {
        Answered, ///< `reply` is what the box said
        Gone,     ///< nobody listens, or the owner ended without an answer: find out anew who the owner is
        Failed    ///< `error` says why, for the person who started us
    };

    Result result = Result::Failed;
    std::u16string reply;
    std::string error;
    pid_t owner = 0; ///< process that closed the connection; 0 when there was none
};

/// Sends one message to the box that listens on `socketPath` and waits for its reply, until `deadline`.
/// Blocks.
Forwarding forwardMessage(const std::string &socketPath, const Message &message, posix::Deadline deadline);

} // namespace zel::launcher

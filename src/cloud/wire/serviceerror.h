#pragma once

#include <QString>
#include <cstdint>

namespace zel::vela {
class ServerErrorInfo;
}

/// Why the service did not do what a request asked; the number stands in an answer's `state`, the name in
/// ServerErrorInfo::errResult. Numbers are part of the link: append, never change.
namespace zel::wire {

enum class ServiceError : int32_t {
    None = 0,
    NotServed = 1,       ///< this service does not do it (yet)
    InvalidArgument = 2, ///< the request makes no sense
    NotFound = 3,
    Exists = 4,
    Denied = 5,
    DiskFull = 6,
    InputOutput = 7,
    Offline = 8,
    Cancelled = 9,
    Conflict = 10,
    Corrupt = 11,
    VersionMismatch = 12,
    NotSignedIn = 13,
    TooLarge = 14,
    Internal = 15,
};

const char *errorName(ServiceError error); ///< "notServed"; empty for none
/// `text`: one English sentence for the log.
vela::ServerErrorInfo errorInfo(ServiceError error, const QString &text);

} // namespace zel::wire

#include "cloud/wire/serviceerror.h"

#include "common_types.h"

namespace zel::wire {

const char *errorName(ServiceError error)
{
    switch (error) {
    case ServiceError::None:
        return "";
    case ServiceError::NotServed:
        return "notServed";
    case ServiceError::InvalidArgument:
        return "invalidArgument";
    case ServiceError::NotFound:
        return "notFound";
    case ServiceError::Exists:
        return "exists";
    case ServiceError::Denied:
        return "denied";
    case ServiceError::DiskFull:
        return "diskFull";
    case ServiceError::InputOutput:
        return "inputOutput";
    case ServiceError::Offline:
        return "offline";
    case ServiceError::Cancelled:
        return "cancelled";
    case ServiceError::Conflict:
        return "conflict";
    case ServiceError::Corrupt:
        return "corrupt";
    case ServiceError::VersionMismatch:
        return "versionMismatch";
    case ServiceError::NotSignedIn:
        return "notSignedIn";
    case ServiceError::TooLarge:
        return "tooLarge";
    case ServiceError::Internal:
        return "internal";
    }
    return "internal";
}

vela::ServerErrorInfo errorInfo(ServiceError error, const QString &text)
{
    vela::ServerErrorInfo info;
    info.errResult = errorName(error);
    info.errString = text.toStdString();
    return info;
}

} // namespace zel::wire

#include "service/transfer/driveerrors.h"

namespace zel::service {

using wire::ServiceError;

ServiceError serviceError(DriveError::Kind kind)
{
    switch (kind) {
    case DriveError::Kind::NotFound:
        return ServiceError::NotFound;
    case DriveError::Kind::Exists:
        return ServiceError::Exists;
    case DriveError::Kind::Denied:
        return ServiceError::Denied;
    case DriveError::Kind::InvalidName:
        return ServiceError::InvalidArgument;
    case DriveError::Kind::Changed:
        return ServiceError::Conflict;
    case DriveError::Kind::NotEmpty:
        return ServiceError::Conflict;
    case DriveError::Kind::DiskFull:
        return ServiceError::DiskFull;
    case DriveError::Kind::Io:
        return ServiceError::InputOutput;
    case DriveError::Kind::Offline:
        return ServiceError::Offline;
    case DriveError::Kind::Cancelled:
        return ServiceError::Cancelled;
    }
    return ServiceError::Internal;
}

vela::ServerErrorInfo errorInfo(const DriveError &error)
{
    return wire::errorInfo(serviceError(error.kind), error.text);
}

} // namespace zel::service

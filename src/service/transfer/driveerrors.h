#pragma once

#include "cloud/wire/serviceerror.h"
#include "common_types.h"
#include "service/drive/driveresult.h"

/// A drive's failures as the link tells them. Any thread.
namespace zel::service {

wire::ServiceError serviceError(DriveError::Kind kind);
vela::ServerErrorInfo errorInfo(const DriveError &error);

} // namespace zel::service

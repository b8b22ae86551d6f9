#pragma once

#include <QString>
#include <functional>

namespace zel::service {

/// Who uses the service, and on which machine.
struct Identity
{
    QString userId;
    QString userName;
    QString deviceId; ///< of this machine and user; the same over restarts
    QString deviceName;
};

/// Asked for each request, as another user may have signed in.
using IdentitySource = std::function<Identity()>;

} // namespace zel::service

#pragma once

#include <QString>

/// Texts of errors that many methods give. English, for the log of a client.
namespace zel::service {

inline QString databaseText()
{
    return QStringLiteral("The service's database cannot be used.");
}
inline QString unknownUserText()
{
    return QStringLiteral("There is no such user here.");
}

} // namespace zel::service

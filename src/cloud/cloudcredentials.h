#pragma once

#include <QString>

/// What signs requests of the signed-in user. Lives in memory only: never stored, never logged.
struct CloudCredentials
{
    QString accessID;
    QString secretKey;
    QString cookie;

    bool operator==(const CloudCredentials &) const = default;
};

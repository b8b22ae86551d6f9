#pragma once

#include <QString>

namespace zel::service {

/// The account that the service has without a server: the operating system's user. A value; any thread.
struct LocalAccount
{
    QString userId;    ///< "local-<number of the user>"; the same when the login name changes
    QString loginName; ///< also where the system knows no name for the user
    QString fullName;  ///< as people write it; the login name when there is none
    QString home;      ///< without a trailing slash

    static LocalAccount ofThisUser(); ///< may wait for a directory server; ask once

    /// The picture that the user chose on the desktop, whatever its format; empty when there is none to read.
    QString picture() const;
};

} // namespace zel::service

#pragma once

#include <QString>

/// Who is signed in, as the service told last. Holds no secret.
struct KVelaIpcLoginCache
{
    int loginState = 0; ///< 0 signed out, 1 local account, 2 signed in, 3 the sign-in has run out
    QString userId;
    QString nickName;
    QString userAvatar; ///< path or address of the picture
    QString vipType;    ///< "normal", "super" or "plume"

    bool isLogined() const { return !userId.isEmpty() && (loginState == 1 || loginState == 2); }
    bool operator==(const KVelaIpcLoginCache &) const = default;
};

#pragma once

#include "base/latin1.h"

/// Names of the kinds of membership, as the service tells them.
namespace zel::membership {

inline constexpr QLatin1String Normal = latin1("normal");
inline constexpr QLatin1String Super = latin1("super");
inline constexpr QLatin1String Plume = latin1("plume");

} // namespace zel::membership

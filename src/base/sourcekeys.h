#pragma once

#include "base/latin1.h"

/// Source keys of the pages, one set for the whole process.
namespace zel::source {

inline constexpr QLatin1String RecentFile = latin1("RecentFile");
inline constexpr QLatin1String TeamFile = latin1("TeamFile");
inline constexpr QLatin1String DocMsg = latin1("DocMsg");
inline constexpr QLatin1String FileRadar = latin1("FileRadar");
inline constexpr QLatin1String MsgChannel = latin1("MsgChannel");
inline constexpr QLatin1String DesktopSync = latin1("DesktopSync");
inline constexpr QLatin1String CloudDoc = latin1("CloudDoc");

inline constexpr QLatin1String EmptyId = latin1("0");

} // namespace zel::source

/// What can be opened on a page by its name.
namespace zel::place {

inline constexpr QLatin1String Transfers = latin1("transfers"); ///< of the cloud documents

} // namespace zel::place

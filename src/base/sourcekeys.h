#pragma once

#include <QLatin1String>

/// Source keys of the pages, one set for the whole process.
namespace zel::source {

inline constexpr QLatin1String RecentFile("RecentFile");
inline constexpr QLatin1String TeamFile("TeamFile");
inline constexpr QLatin1String DocMsg("DocMsg");
inline constexpr QLatin1String FileRadar("FileRadar");
inline constexpr QLatin1String MsgChannel("MsgChannel");
inline constexpr QLatin1String DesktopSync("DesktopSync");
inline constexpr QLatin1String CloudDoc("CloudDoc");

inline constexpr QLatin1String EmptyId("0");

} // namespace zel::source

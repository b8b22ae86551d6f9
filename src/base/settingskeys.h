#pragma once

#include <QLatin1String>

/// Every group and key of the settings store, once.
namespace zel::keys {

inline constexpr QLatin1String ApplicationSettings("Application Settings"); // group
inline constexpr QLatin1String WindowPosX("WindowPosX");
inline constexpr QLatin1String WindowPosY("WindowPosY");
inline constexpr QLatin1String WindowWidth("WindowWidth");
inline constexpr QLatin1String WindowHeight("WindowHeight");
inline constexpr QLatin1String WindowIsMaximized("WindowIsMaximized");

inline constexpr QLatin1String Plugins("plugins"); // group, holds group "zelbox"
inline constexpr QLatin1String Zelbox("zelbox");   // group, also at the top level
inline constexpr QLatin1String UpdateRoamingFilesInterval("updateRoamingFilesInterval"); // ms as text
inline constexpr QLatin1String Theme("theme");       // "auto", "light", "dark"
inline constexpr QLatin1String Language("language"); // locale name, empty: the desktop's
inline constexpr QLatin1String TelemetryEnabled("telemetryEnabled");
inline constexpr QLatin1String Enterprise("enterprise");
inline constexpr QLatin1String CloseAction("closeAction"); // "hide", "ask"

// Top-level group "zelbox".
inline constexpr QLatin1String RecentRecordType("RecentRecordType");
inline constexpr QLatin1String RecentFileLoadingOuttimeTime("recentFileLoadingOuttimeTime"); // ms

} // namespace zel::keys

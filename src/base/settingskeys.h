#pragma once

#include "base/latin1.h"

/// Every group and key of the settings store, once.
namespace zel::keys {

inline constexpr QLatin1String ApplicationSettings = latin1("Application Settings"); // group
inline constexpr QLatin1String WindowPosX = latin1("WindowPosX");
inline constexpr QLatin1String WindowPosY = latin1("WindowPosY");
inline constexpr QLatin1String WindowWidth = latin1("WindowWidth");
inline constexpr QLatin1String WindowHeight = latin1("WindowHeight");
inline constexpr QLatin1String WindowIsMaximized = latin1("WindowIsMaximized");
inline constexpr QLatin1String WindowScreens =
    latin1("WindowScreens"); // and the scale, when those were written

inline constexpr QLatin1String Plugins = latin1("plugins"); // group, holds group "zelbox"
inline constexpr QLatin1String Zelbox = latin1("zelbox");   // group, also at the top level
inline constexpr QLatin1String UpdateRoamingFilesInterval =
    latin1("updateRoamingFilesInterval");                           // ms as text
inline constexpr QLatin1String Theme = latin1("theme");             // "auto", "light", "dark"
inline constexpr QLatin1String DesktopLook = latin1("desktopLook"); // group: what the desktop said last
inline constexpr QLatin1String DesktopDark = latin1("dark");        // bool; absent: no preference
inline constexpr QLatin1String DesktopContrast = latin1("highContrast");
inline constexpr QLatin1String DesktopTextScale = latin1("textScale");
inline constexpr QLatin1String Language = latin1("language"); // locale name, empty: the desktop's
inline constexpr QLatin1String TelemetryEnabled = latin1("telemetryEnabled");
inline constexpr QLatin1String Enterprise = latin1("enterprise");
inline constexpr QLatin1String CloseAction = latin1("closeAction");               // "hide", "ask", "exit"
inline constexpr QLatin1String LastTransferBubble = latin1("lastTransferBubble"); // date, ISO 8601
inline constexpr QLatin1String MiniWindow = latin1("miniWindow");                 // group of the next three
inline constexpr QLatin1String MiniPlaces = latin1("places");   // group: screen -> "left 0 120"
inline constexpr QLatin1String MiniScreen = latin1("screen");   // where it was put last
inline constexpr QLatin1String MiniPinned = latin1("pinned");   // docked, it stays in sight
inline constexpr QLatin1String Shortcuts = latin1("shortcuts"); // group: action -> keys, empty: none
// Sources of the recent list, of bool; all true at first.
inline constexpr QLatin1String RecentSourceDesktop = latin1("recentSourceDesktop");
inline constexpr QLatin1String RecentSourceBox = latin1("recentSourceBox");
inline constexpr QLatin1String RecentSourceDevices = latin1("recentSourceDevices");

// Top-level group "zelbox".
inline constexpr QLatin1String RecentRecordType = latin1("RecentRecordType");
inline constexpr QLatin1String RecentFileLoadingOuttimeTime = latin1("recentFileLoadingOuttimeTime"); // ms
inline constexpr QLatin1String RemindMsg = latin1("zelbox_remind_msg"); // show what is unread
inline constexpr QLatin1String IgnoreMsg = latin1("zelbox_ignore_msg"); // the opposite, for other readers
inline constexpr QLatin1String RecentSortKey = latin1("recentSortKey"); // "time", "name", "size", "type"
inline constexpr QLatin1String RecentSortDescending = latin1("recentSortDescending");
inline constexpr QLatin1String CloudSortKey = latin1("cloudSortKey"); // likewise
inline constexpr QLatin1String CloudSortDescending = latin1("cloudSortDescending");
inline constexpr QLatin1String UserAgentTargetUrl = latin1("userAgentTargetUrl");
inline constexpr QLatin1String UserAgentCookieDomain = latin1("userAgentCookieDomain");
inline constexpr QLatin1String DeviceAddress = latin1("deviceAddress"); // of the chosen network card
inline constexpr QLatin1String DeviceMachine = latin1("deviceMachine"); // digest of where it was

// The cloud service's settings: a path that holds backup switches, and keys of the user's entry.
inline constexpr QLatin1String CloudSettingsPath = latin1("HKEY_CURRENT_USER\\SOFTWARE\\Halvorn\\ZELCloud");
inline constexpr QLatin1String UserType = latin1("usertype");
inline constexpr QLatin1String MultiUserType = latin1("multi_usertype");

} // namespace zel::keys

#pragma once

/// Fixed words between launchers and the box.
namespace zel::launcher {

inline constexpr char16_t transmissionChannel[] = u"_TRANSMISSION_"; ///< takes forwarded command lines
inline constexpr char16_t activateKey[] = u"zelbox_active_window?="; ///< followed by the whole command line
inline constexpr char16_t startupKey[] =
    u"zelbox_startup?="; ///< followed by the startup token of the next one
inline constexpr char16_t exitCommand[] = u"/action=exit";

inline constexpr char16_t handledReply[] = u"handled";
inline constexpr char16_t errorReply[] = u"error";

} // namespace zel::launcher

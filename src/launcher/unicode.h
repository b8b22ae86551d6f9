#pragma once

#include <string>
#include <string_view>

/// Text conversions of the launcher, which has no Qt. Pure functions. What cannot be converted becomes
/// U+FFFD.
namespace zel::launcher {

std::u32string decodeUtf8(std::string_view bytes); ///< one U+FFFD for each broken sequence
std::string encodeUtf8(std::u32string_view text);
std::u16string toUtf16(std::u32string_view text);
std::u32string fromUtf16(std::u16string_view text); ///< one U+FFFD for each lone surrogate
std::wstring toWide(std::u32string_view text);      ///< wchar_t holds a whole code point here

} // namespace zel::launcher

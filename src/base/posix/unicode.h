#pragma once

#include <string>
#include <string_view>

/// Text conversions for what has no Qt. Pure functions. What cannot be converted becomes U+FFFD.
namespace zel::posix {

/// Takes one code point off the front of `bytes`, which must not be empty; of a broken sequence as much as
/// was well formed, one byte at least.
char32_t takeCodePoint(std::string_view &bytes);
std::u32string decodeUtf8(std::string_view bytes); ///< one U+FFFD for each broken sequence
void appendUtf8(std::string &bytes, char32_t c);
std::string encodeUtf8(std::u32string_view text);
std::u16string toUtf16(std::u32string_view text);
std::u32string fromUtf16(std::u16string_view text); ///< one U+FFFD for each lone surrogate
std::wstring toWide(std::u32string_view text);      ///< wchar_t holds a whole code point here

} // namespace zel::posix

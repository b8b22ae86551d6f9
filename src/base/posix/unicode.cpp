#include "base/posix/unicode.h"

#include <cstddef>

namespace zel::posix {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char32_t), "the box takes its command line as UCS-4");

constexpr char32_t replacement = 0xFFFD;

bool isSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}
bool isHighSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}
bool isScalar(char32_t c)
{
    return c <= 0x10FFFF && !isSurrogate(c);
}

// What may follow a lead byte: how many bytes, and the range of the first of them, which rules out overlong
// forms, surrogates and values past the last plane.
struct Lead
{
    int following = -1; // -1: not a lead byte
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    char32_t bits = 0;
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {0, 0, 0, byte};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF, char32_t(byte & 0x1F)};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
            static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF), char32_t(byte & 0x0F)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF), char32_t(byte & 0x07)};
    return {};
}

} // namespace

char32_t takeCodePoint(std::string_view &bytes)
{
    Lead lead = leadOf(static_cast<unsigned char>(bytes.front()));
    bytes.remove_prefix(1);
    for (; lead.following > 0; --lead.following) {
        const unsigned char next = bytes.empty() ? 0 : static_cast<unsigned char>(bytes.front());
        if (next < lead.low || next > lead.high)
            return replacement;
        lead.bits = (lead.bits << 6) | (next & 0x3F);
        lead.low = 0x80;
        lead.high = 0xBF;
        bytes.remove_prefix(1);
    }
    return lead.following == 0 ? lead.bits : replacement;
}

std::u32string decodeUtf8(std::string_view bytes)
{
    std::u32string text;
    text.reserve(bytes.size());
    while (!bytes.empty())
        text += takeCodePoint(bytes);
    return text;
}

void appendUtf8(std::string &bytes, char32_t c)
{
    if (!isScalar(c))
        c = replacement;
    if (c < 0x80) {
        bytes += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned marks[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(marks[following] | (c >> (6 * following)));
    for (int i = following - 1; i >= 0; --i)
        bytes += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

std::string encodeUtf8(std::u32string_view text)
{
    std::string bytes;
    for (const char32_t c : text)
        appendUtf8(bytes, c);
    return bytes;
}

std::u16string toUtf16(std::u32string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    for (char32_t c : text) {
        if (!isScalar(c))
            c = replacement;
        if (c >= 0x10000) {
            units += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            units += static_cast<char16_t>(c);
        }
    }
    return units;
}

std::u32string fromUtf16(std::u16string_view text)
{
    std::u32string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1]))
            result += 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        else
            result += isSurrogate(c) ? replacement : c;
    }
    return result;
}

std::wstring toWide(std::u32string_view text)
{
    return {text.begin(), text.end()};
}

} // namespace zel::posix

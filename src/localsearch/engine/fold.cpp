#include "localsearch/engine/fold.h"

#include "base/posix/unicode.h"
#include "localsearch/engine/tables/foldtable.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace zel::localsearch {
namespace {

constexpr auto asciiFolds = [] {
    std::array<char, 128> folds = {};
    for (std::size_t c = 0; c < folds.size(); ++c)
        folds[c] = char(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
    return folds;
}();

// Hangul is composed by rule.
constexpr char32_t firstSyllable = 0xAC00, firstLead = 0x1100, firstVowel = 0x1161, beforeTrail = 0x11A7;
constexpr char32_t leads = 19, vowels = 21, trails = 28;

bool isKanaMark(char32_t c)
{
    return c == 0x3099 || c == 0x309A;
}

bool mayJoin(char32_t c)
{
    return isKanaMark(c) || (c >= firstVowel && c < firstVowel + vowels)
        || (c > beforeTrail && c < beforeTrail + trails);
}

// The one character that `before` and `c` are together; 0 when there is none.
char32_t joined(char32_t before, char32_t c)
{
    if (isKanaMark(c)) {
        const auto key = [](const table::VoicedKana &kana) { return std::tuple(kana.base, kana.mark); };
        const auto wanted = std::tuple(char16_t(before), char16_t(c));
        const auto found = std::ranges::lower_bound(table::voicedKana, wanted, {}, key);
        const bool isThere = found != table::voicedKana.end() && key(*found) == wanted;
        return isThere && before < 0x10000 ? found->composed : 0;
    }
    if (c < firstVowel + vowels) {
        const bool isLead = before >= firstLead && before < firstLead + leads;
        return isLead ? firstSyllable + ((before - firstLead) * vowels + (c - firstVowel)) * trails : 0;
    }
    const bool isOpen = before >= firstSyllable && before < firstSyllable + leads * vowels * trails
        && (before - firstSyllable) % trails == 0;
    return isOpen ? before + (c - beforeTrail) : 0;
}

std::size_t lastCharacter(std::string_view text)
{
    std::size_t at = text.size() - 1;
    while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
        --at;
    return at;
}

// Puts `c` together with the last character; false where they stay two.
bool join(std::string &target, std::size_t start, char32_t c)
{
    if (target.size() == start)
        return false;
    const std::size_t at = std::max(lastCharacter(target), start);
    std::string_view last = std::string_view(target).substr(at);
    const char32_t together = joined(posix::takeCodePoint(last), c);
    if (together == 0)
        return false;
    target.resize(at);
    posix::appendUtf8(target, together);
    return true;
}

void appendFoldedCharacter(std::string &target, std::size_t start, char32_t c)
{
    if (const std::uint16_t place = table::foldedCharacter.at(c)) {
        std::string_view text(
            table::foldPool + place + 1, static_cast<unsigned char>(table::foldPool[place]));
        const bool isOneThatMayJoin = text.size() == 3 && (text.front() & 0xF0) == 0xE0;
        if (!isOneThatMayJoin) {
            target += text;
            return;
        }
        c = posix::takeCodePoint(text);
    }
    if (!mayJoin(c) || !join(target, start, c))
        posix::appendUtf8(target, c);
}

// Calls `appended` with the place in `text` that each step came from.
template <class Appended> void foldInto(std::string &target, std::string_view text, Appended appended)
{
    const std::size_t start = target.size();
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t from = text.size() - rest.size();
        const auto byte = static_cast<unsigned char>(rest.front());
        if (byte < 0x80) {
            target += asciiFolds[byte];
            rest.remove_prefix(1);
        } else {
            appendFoldedCharacter(target, start, posix::takeCodePoint(rest));
        }
        appended(from);
    }
}

} // namespace

void appendFolded(std::string &target, std::string_view text)
{
    foldInto(target, text, [](std::size_t) {});
}

std::string folded(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    appendFolded(result, text);
    return result;
}

FoldedText::FoldedText(std::string_view original)
{
    m_text.reserve(original.size());
    m_origins.reserve(original.size() + 1);
    foldInto(
        m_text, original, [this](std::size_t from) { m_origins.resize(m_text.size(), std::uint32_t(from)); });
    m_origins.push_back(std::uint32_t(original.size()));
}

Range FoldedText::originalOf(Range range) const
{
    std::uint32_t end = range.end;
    while (end < m_text.size() && m_origins[end] == m_origins[end - 1])
        ++end;
    return {m_origins[range.begin], m_origins[end]};
}

} // namespace zel::localsearch

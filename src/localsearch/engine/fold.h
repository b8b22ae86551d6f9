#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel::localsearch {

/// Bytes [begin, end) of a text.
struct Range
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    bool operator==(const Range &) const = default;
};
using Ranges = std::vector<Range>; ///< in order, without overlaps

/// Appends `text` as a search compares it: UTF-8 without case, accents, strokes, the width of letters and
/// what cannot be seen; letters and marks in one character where there is one. Each broken sequence of bytes
/// becomes U+FFFD. Folded text stays as it is. Any thread; O(length).
void appendFolded(std::string &target, std::string_view text);
std::string folded(std::string_view text);

/// A folded text that knows where its bytes come from.
class FoldedText
{
public:
    explicit FoldedText(std::string_view original);

    const std::string &text() const { return m_text; }
    /// The whole characters of the original, with their accents, that gave these bytes of text(); not empty.
    Range originalOf(Range range) const;

private:
    std::string m_text;
    std::vector<std::uint32_t> m_origins; ///< of each byte of m_text, and the original's end
};

} // namespace zel::localsearch

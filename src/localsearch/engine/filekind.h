#pragma once

#include <cstdint>
#include <string_view>

namespace zel::localsearch {

/// What an entry is, by the suffix of its name.
enum class FileKind : std::uint8_t {
    Other,
    Document,
    Sheet,
    Slides,
    Pdf,
    Text,
    Picture,
    Sound,
    Film,
    Archive,
    Code,
    Book,
    Folder
};

/// A set of kinds: bit n is kind n.
using FileKinds = std::uint16_t;
constexpr FileKinds kindBit(FileKind kind)
{
    return FileKinds(1U << unsigned(kind));
}
constexpr FileKinds allKinds = FileKinds((2U << unsigned(FileKind::Folder)) - 1);

/// Where the dot of the suffix stands; the length of the name where there is none. A dot at the beginning
/// hides a file, and what follows a blank or is longer than 16 bytes is part of a title.
std::size_t stemLength(std::string_view name);
/// Of a folded name; without the dot.
std::string_view suffixOf(std::string_view name);
/// Of a folded suffix. Never Folder.
FileKind kindOfSuffix(std::string_view suffix);
/// What a user calls kinds, folded: "picture", "images", "图片"; 0 for a word that means none.
FileKinds kindsNamed(std::string_view word);

} // namespace zel::localsearch

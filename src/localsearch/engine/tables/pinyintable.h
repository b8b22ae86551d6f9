#pragma once

#include "localsearch/engine/tables/codepointtable.h"

#include <array>

/// Written at build time by make_pinyin.py.
namespace zel::localsearch::table {

using Syllable = std::array<char, 7>; ///< ends with 0

extern const CodePointTable readingsOfCharacter; ///< where in the pool they begin; 0 is none
/// The readings of a character one after the other: a syllable's number and two marks.
extern const std::uint16_t readingPool[];
constexpr std::uint16_t rareMark = 0x8000;
constexpr std::uint16_t lastMark = 0x4000;
extern const std::span<const Syllable> syllables; ///< in order

} // namespace zel::localsearch::table

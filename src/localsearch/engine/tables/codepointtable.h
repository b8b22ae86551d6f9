#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zel::localsearch {

/// A number for each code point, most of them 0; written by tablewriter.py.
struct CodePointTable
{
    static constexpr std::size_t BlockSize = 64;

    std::span<const std::uint16_t> blocks; ///< which block of values each 64 code points have
    std::span<const std::uint16_t> values;

    constexpr std::uint16_t at(char32_t c) const
    {
        const std::size_t block = c / BlockSize;
        return block < blocks.size() ? values[blocks[block] * BlockSize + c % BlockSize] : std::uint16_t(0);
    }
};

} // namespace zel::localsearch

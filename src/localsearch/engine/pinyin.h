#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

namespace zel::localsearch {

/// One way to read a Chinese character.
struct Reading
{
    std::uint16_t syllable = 0; ///< below syllableCount()
    bool isCommon = false;      ///< people read it so; otherwise only dictionaries know

    std::string_view letters() const; ///< as it is typed: lower case, no tone, "nv" and not "nü"
    bool operator==(const Reading &) const = default;
};

/// The readings of one character, common ones first, each once. Points into a constant table.
class Readings
{
public:
    class iterator
    {
    public:
        using value_type = Reading;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        explicit iterator(const std::uint16_t *at) : m_at(at) { }
        Reading operator*() const;
        iterator &operator++();
        iterator operator++(int)
        {
            const iterator old = *this;
            ++*this;
            return old;
        }
        bool operator==(const iterator &) const = default;

    private:
        const std::uint16_t *m_at = nullptr; ///< null: past the last
    };

    Readings() = default;
    explicit Readings(const std::uint16_t *first) : m_first(first) { }
    bool empty() const { return !m_first; }
    iterator begin() const { return iterator(m_first); }
    iterator end() const { return iterator(); }

private:
    const std::uint16_t *m_first = nullptr;
};

/// Of the Chinese character `c`; empty for all others. Any thread; O(1).
Readings readingsOf(char32_t c);
std::uint16_t syllableCount();
std::string_view syllableLetters(std::uint16_t syllable);

} // namespace zel::localsearch

#include "localsearch/engine/pinyin.h"

#include "localsearch/engine/tables/pinyintable.h"

namespace zel::localsearch {
std::uint16_t syllableCount()
{
    return std::uint16_t(table::syllables.size());
}

std::string_view syllableLetters(std::uint16_t syllable)
{
    return table::syllables[syllable].data();
}

std::string_view Reading::letters() const
{
    return syllableLetters(syllable);
}

Reading Readings::iterator::operator*() const
{
    return {std::uint16_t(*m_at & ~(table::rareMark | table::lastMark)), !(*m_at & table::rareMark)};
}

Readings::iterator &Readings::iterator::operator++()
{
    m_at = *m_at & table::lastMark ? nullptr : m_at + 1;
    return *this;
}

Readings readingsOf(char32_t c)
{
    const std::uint16_t place = table::readingsOfCharacter.at(c);
    return place == 0 ? Readings() : Readings(table::readingPool + place);
}

} // namespace zel::localsearch

#include "clouddoc/clouddocfilter.h"

#include "base/searchfold.h"

#include <algorithm>

bool CloudDocFilter::setText(const QString &text)
{
    m_text = text;
    QStringList words = zel::searchWords(text);
    if (words == m_words)
        return false;
    m_words = std::move(words);
    if (m_words.isEmpty())
        m_folded.clear();
    return true;
}

void CloudDocFilter::forget(int slot)
{
    if (slot < m_folded.size())
        m_folded[slot] = QString();
}

bool CloudDocFilter::passes(int slot, const QString &name) const
{
    if (m_words.isEmpty())
        return true;
    if (slot >= m_folded.size())
        m_folded.resize(slot + 1);
    QString &folded = m_folded[slot];
    if (folded.isEmpty())
        zel::appendFolded(folded, name);
    return std::all_of(
        m_words.cbegin(), m_words.cend(), [&folded](const QString &word) { return folded.contains(word); });
}

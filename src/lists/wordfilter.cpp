#include "lists/wordfilter.h"

#include "base/searchfold.h"

#include <QTextBoundaryFinder>
#include <algorithm>

namespace zel {

namespace {

/// A text as it is searched, with the way back to its characters.
struct FoldedText
{
    QString folded;
    QVector<TextRange> origins; ///< by folded character: the one that it came from

    explicit FoldedText(const QString &text)
    {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
        for (int start = 0, end = finder.toNextBoundary(); end > start;
             start = end, end = finder.toNextBoundary()) {
            appendFolded(folded, text.mid(start, end - start));
            origins.insert(origins.size(), folded.size() - origins.size(), TextRange{start, end - start});
        }
    }

    TextRange originOf(int start, int length) const
    {
        const TextRange &first = origins.at(start);
        const TextRange &last = origins.at(start + length - 1);
        return {first.start, last.start + last.length - first.start};
    }
};

TextRanges joined(TextRanges ranges)
{
    std::sort(ranges.begin(), ranges.end(),
        [](const TextRange &a, const TextRange &b) { return a.start < b.start; });
    TextRanges all;
    for (const TextRange &range : qAsConst(ranges)) {
        if (all.isEmpty() || all.last().start + all.last().length < range.start)
            all.append(range);
        else
            all.last().length = std::max(all.last().length, range.start + range.length - all.last().start);
    }
    return all;
}

} // namespace

WordFilter::WordFilter(const QString &text) : m_words(searchWords(text)) { }

WordFilter WordFilter::ofWords(const QStringList &folded)
{
    WordFilter filter;
    filter.m_words = folded;
    return filter;
}

bool WordFilter::haveAll(const QString *texts, size_t count) const
{
    if (m_words.isEmpty())
        return true;
    m_folded.resize(0); // keeps its memory
    for (size_t i = 0; i < count; ++i) {
        if (i > 0)
            m_folded += QLatin1Char('\n'); // is in no word
        appendFolded(m_folded, texts[i]);
    }
    return std::all_of(
        m_words.cbegin(), m_words.cend(), [this](const QString &word) { return m_folded.contains(word); });
}

bool WordFilter::isNarrowerThan(const WordFilter &wider) const
{
    constexpr int MostCompared = 100; // with each other
    if (wider.m_words.size() > MostCompared)
        return false;
    return std::all_of(wider.m_words.cbegin(), wider.m_words.cend(), [this](const QString &word) {
        return std::any_of(m_words.cbegin(), m_words.cend(),
            [&word](const QString &longer) { return longer.contains(word); });
    });
}

TextRanges WordFilter::ranges(const QString &text) const
{
    if (m_words.isEmpty())
        return {};
    const FoldedText searched(text);
    TextRanges found;
    for (const QString &word : m_words) {
        for (int at = searched.folded.indexOf(word); at >= 0; at = searched.folded.indexOf(word, at + 1))
            found.append(searched.originOf(at, word.size()));
    }
    return joined(found);
}

} // namespace zel

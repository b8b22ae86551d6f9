#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace zel {

/// Characters of a text that are to be marked.
struct TextRange
{
    int start = 0;
    int length = 0;

    bool operator==(const TextRange &) const = default;
};
using TextRanges = QVector<TextRange>;

/// Words that a text must all contain, in any order; case, accents and the width of letters do not matter.
/// One thread at a time.
class WordFilter
{
public:
    explicit WordFilter(const QString &text = {});        ///< as the user typed it
    static WordFilter ofWords(const QStringList &folded); ///< none of them empty

    bool isEmpty() const { return m_words.isEmpty(); }   ///< everything matches
    const QStringList &words() const { return m_words; } ///< folded
    /// O(length).
    bool matches(const QString &text) const { return haveAll(&text, 1); }
    /// Each word must be in one of the texts; none spans two.
    bool matches(std::initializer_list<QString> texts) const { return haveAll(texts.begin(), texts.size()); }
    /// True when whatever passes this passes `wider` too, for sure.
    bool isNarrowerThan(const WordFilter &wider) const;
    /// Where any of the words stand in `text` itself, although it is searched folded: whole characters with
    /// their accents, in order, without overlaps.
    TextRanges ranges(const QString &text) const;

    bool operator==(const WordFilter &other) const { return m_words == other.m_words; }

private:
    bool haveAll(const QString *texts, size_t count) const;

    QStringList m_words;
    mutable QString m_folded; ///< keeps its memory from one text to the next
};

} // namespace zel

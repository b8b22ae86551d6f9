#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Words that a name must all contain, in any order; case, accents and the width of letters do not matter.
/// Keeps the folded names, by slot, from the first use on. One thread at a time.
class CloudDocFilter
{
public:
    QString text() const { return m_text; }
    bool setText(const QString &text); ///< false when it means the same as before
    bool isEmpty() const { return m_words.isEmpty(); }
    void forget(int slot);             ///< its name is another one
    void clear() { m_folded.clear(); } ///< of all slots
    bool passes(int slot, const QString &name) const;

private:
    QString m_text;
    QStringList m_words;               ///< folded
    mutable QVector<QString> m_folded; ///< by slot; null: not yet
};

#pragma once

#include <QString>
#include <QStringList>

namespace zel {

/// Appends `text` as a search sees it: without case, accents, strokes and the width of letters. Of plain
/// Latin or CJK text one character each. Any thread; O(length).
void appendFolded(QString &target, const QString &text);
/// The words of what a user typed into a search field, folded so; a text matches when it contains them all.
/// Each word once.
QStringList searchWords(const QString &text);

} // namespace zel

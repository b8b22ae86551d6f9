#pragma once

#include <QFontMetrics>
#include <QStringList>

/// Names of files as lists may show them. GUI thread.
namespace zel {

/// `text` as it may be shown: line breaks and other control characters become blanks, and so do the
/// characters that turn the direction of writing, with which a name can pretend to end in another suffix.
QString plainLine(QString text);

/// plainLine(`name`) as a sentence can carry it: the middle of a long one is left out.
QString shortName(const QString &name);

/// `lines` as a tool tip that shows them just so: names may look like mark-up.
QString plainToolTip(const QStringList &lines);

/// plainLine(`name`) in at most `width`: the middle of the base name goes first, the suffix stays readable.
QString elidedName(const QString &name, const QFontMetrics &metrics, int width);

} // namespace zel

#pragma once

#include <QFontMetrics>
#include <QRect>
#include <QString>

/// Sizes that a row of the recent list is made of, in device-independent pixels.
struct RecentCellMetrics
{
    int sideMargin = 0; ///< from the view's edge to the row's ground
    int padding = 0;    ///< from the ground's edge to what is in it
    int iconSize = 0;
    int spacing = 0; ///< between icon, texts and time
    int badgeHeight = 0;
    int badgePadding = 0; ///< left and right of a badge's text
    int nameHeight = 0;   ///< line of the name
    int folderHeight = 0; ///< line of the folder
    int leastNameWidth = 0;
    int rowHeight = 0;

    static RecentCellMetrics of(const QFontMetrics &name, const QFontMetrics &small);
};

/// Places of what a row shows, for the delegate to paint. Plain value.
struct RecentCell
{
    /// Widths that the row's own texts want; 0: not shown.
    struct Wishes
    {
        int name = 0;
        int badge = 0; ///< without padding
        int time = 0;
    };
    QRect ground; ///< what hover and selection fill
    QRect icon;
    QRect name;
    QRect badge; ///< null when there is none, or no room
    QRect folder;
    QRect time; ///< null when there is none, or no room

    static RecentCell layout(const QRect &row, const RecentCellMetrics &metrics, const Wishes &wishes);
};

namespace zel::recent {

/// `text` as it may be shown: line breaks and other control characters become blanks, and so do the
/// characters that turn the direction of writing, with which a name can pretend to end in another suffix.
QString plainLine(QString text);

/// plainLine(`name`) in at most `width`: the middle of the base name goes first, the suffix stays readable.
QString elidedName(const QString &name, const QFontMetrics &metrics, int width);

/// Folder of `path` for a person: the home folder as "~". Empty when there is no path.
QString folderText(const QString &path, const QString &home);

} // namespace zel::recent

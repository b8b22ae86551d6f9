#pragma once

#include "widgets/nametext.h"

#include <QRect>

/// Sizes that a row of the recent list is made of, in device-independent pixels.
struct RecentCellMetrics
{
    int sideMargin = 0; ///< from the view's edge to the row's ground
    int padding = 0;    ///< from the ground's edge to what is in it
    int iconSize = 0;
    int spacing = 0;    ///< between icon, texts and time
    int gap = 0;        ///< between what stands in one line of text
    int glyphSize = 0;  ///< of pin and cloud
    int buttonSize = 0; ///< side of a row button
    int badgeHeight = 0;
    int badgePadding = 0; ///< left and right of a badge's text
    int nameHeight = 0;   ///< line of the name
    int folderHeight = 0; ///< line of the folder
    int leastNameWidth = 0;
    int rowHeight = 0;

    static RecentCellMetrics of(const QFontMetrics &name, const QFontMetrics &small);
};

/// Places of what a row shows, for painting, clicks and tool tips alike. Plain value; what is not wished for,
/// or finds no room, is a null rectangle.
struct RecentCell
{
    enum class Button { None, Share, More };

    /// Widths that the row's own texts want; 0: not shown.
    struct Wishes
    {
        int name = 0;
        int badge = 0; ///< without padding
        int folder = 0;
        int detail = 0;
        int time = 0;
        bool pin = false;
        bool cloud = false;
        bool buttons = false; ///< in place of the time
    };
    QRect ground; ///< what hover and selection fill
    QRect icon;
    QRect name;
    QRect pin;
    QRect badge;
    QRect cloud;
    QRect folder;
    QRect detail;
    QRect time;
    QRect share;
    QRect more;

    static RecentCell layout(const QRect &row, const RecentCellMetrics &metrics, const Wishes &wishes);
    Button buttonAt(const QPoint &point) const;
    QRect rectOf(Button button) const;

private:
    int layoutRight(const RecentCellMetrics &m, const Wishes &wishes, int left, int right);
    void layoutNameLine(const RecentCellMetrics &m, const Wishes &wishes, const QRect &line);
    void layoutFolderLine(const RecentCellMetrics &m, const Wishes &wishes, const QRect &line);
};

namespace zel::recent {

using zel::elidedName;
using zel::plainLine;

/// Folder of `path` for a person: the home folder as "~". Empty when there is no path.
QString folderText(const QString &path, const QString &home);

} // namespace zel::recent

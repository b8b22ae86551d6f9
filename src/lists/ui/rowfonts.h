#pragma once

#include <QFont>
#include <QFontMetrics>

/// What can stand in a column of its own beside the name.
enum class RowColumn { Time, Size };

/// Sizes that the rows of all lists are made of, in device-independent pixels. Plain value.
struct RowMetrics
{
    int sideMargin = 0; ///< from the view's edge to the row's ground
    int padding = 0;    ///< from the ground's edge to what is in it
    int iconSize = 0;
    int spacing = 0;    ///< between icon, texts, columns and what stands at the end
    int gap = 0;        ///< between what stands in one line of text
    int lineGap = 0;    ///< between lines of text
    int glyphSize = 0;  ///< of marks within a line
    int buttonSize = 0; ///< side of a row button
    int badgeHeight = 0;
    int badgePadding = 0;   ///< left and right of a badge's text
    int barHeight = 0;      ///< of a progress bar
    int nameHeight = 0;     ///< line of the name
    int smallHeight = 0;    ///< every other line
    int leastNameWidth = 0; ///< of a name beside what stands at the row's end; else that goes
    int wideNameWidth = 0;  ///< of a name beside columns; else they go below it
    int timeColumn = 0;     ///< wide enough for every time text
    int sizeColumn = 0;     ///< likewise for sizes
    int stateColumn = 0;    ///< likewise for what is going on with a row, with its bar
    int rowHeight = 0;      ///< of two lines, or one with columns
    int snippetHeight = 0;  ///< of three lines

    static RowMetrics of(const QFontMetrics &name, const QFontMetrics &small);
    int widthOf(RowColumn column) const;
};

/// The fonts of a list's rows with their measures. Dear to make: keep it as long as the font stays. GUI
/// thread.
struct RowFonts
{
    explicit RowFonts(const QFont &font);

    QFont name;
    QFont small; ///< of everything else, also of section headers
    QFontMetrics nameMetrics;
    QFontMetrics smallMetrics;
    RowMetrics sizes;
};

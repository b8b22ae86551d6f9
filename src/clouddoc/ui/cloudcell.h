#pragma once

#include <QFontMetrics>
#include <QRect>

/// Sizes that a row of the cloud list is made of, in device-independent pixels.
struct CloudCellMetrics
{
    int sideMargin = 0; ///< from the view's edge to the row's ground
    int padding = 0;    ///< from the ground's edge to what is in it
    int iconSize = 0;
    int spacing = 0;       ///< between icon, texts and columns
    int gap = 0;           ///< between what stands in one line of text
    int glyphSize = 0;     ///< of the state
    int barHeight = 0;     ///< of a running transfer's progress
    int nameHeight = 0;    ///< line of the name
    int detailHeight = 0;  ///< line below it
    int timeColumn = 0;    ///< wide enough for every time text of this year and the last
    int sizeColumn = 0;    ///< likewise for sizes
    int stateColumn = 0;   ///< likewise for the texts of transfers
    int wideNameWidth = 0; ///< the name keeps this much beside the columns, else they go below it
    int rowHeight = 0;

    static CloudCellMetrics of(const QFontMetrics &name, const QFontMetrics &small);
};

/// Places of what a row shows, for painting, editing and tool tips alike. Plain value; what finds no room is
/// a null rectangle. In a wide row time and size are columns of their own, in a narrow one they stand below
/// the name; the rows of one list are of one kind, whatever each of them says.
struct CloudCell
{
    /// Widths that the row's own texts want; 0: not shown.
    struct Wishes
    {
        int name = 0;
        int detail = 0; ///< below the name, in a narrow row
        int state = 0;  ///< text of a transfer, or of what went wrong with it
        bool glyph = false;
        bool progress = false;
    };
    QRect ground; ///< what hover, selection and drop fill
    QRect icon;
    QRect name;
    QRect glyph; ///< of the state, behind the name
    QRect detail;
    QRect state;
    QRect progress;
    QRect time;
    QRect size;

    static CloudCell layout(const QRect &row, const CloudCellMetrics &metrics, const Wishes &wishes);
    static bool isWide(int rowWidth, const CloudCellMetrics &metrics); ///< columns, and no second line

private:
    int layoutColumns(const CloudCellMetrics &m, const Wishes &wishes, int left, int right);
    void layoutTexts(const CloudCellMetrics &m, const Wishes &wishes, const QRect &room, bool twoLines);
    void layoutState(const CloudCellMetrics &m, const Wishes &wishes, const QRect &room);
};

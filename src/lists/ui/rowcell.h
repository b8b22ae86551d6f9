#pragma once

#include "lists/ui/rowfonts.h"

#include <QRect>
#include <QVarLengthArray>
#include <QVector>

using RowColumns = QVector<RowColumn>; ///< from left to right

/// Places of what a row shows, for painting, editing, clicks and tool tips alike. Plain value; what is not
/// wished for, or finds no room, is a null rectangle.
struct RowCell
{
    /// Widths that the row's own texts want; 0: not shown.
    struct Wishes
    {
        int name = 0;
        int badge = 0; ///< without padding
        int place = 0;
        int detail = 0;
        int state = 0; ///< what is going on with the row; takes the line of place and detail
        int time = 0;  ///< at the row's end
        bool nameGlyph = false;
        bool placeGlyph = false;
        bool progress = false;
        bool barBelow =
            false;          ///< with two lines the progress has one of its own, else it is behind the state
        int buttons = 0;    ///< that show, in place of the time
        int buttonRoom = 0; ///< for so many there is room even while they do not show
    };
    QRect ground; ///< what hover, selection and drop fill
    QRect icon;
    QRect name;
    QRect nameGlyph; ///< behind the name
    QRect badge;     ///< behind both
    QRect snippet;
    QRect placeGlyph; ///< before the place
    QRect place;
    QRect detail; ///< behind the place
    QRect state;
    QRect progress;
    QRect time;
    QVarLengthArray<QRect, 4> columns; ///< as many as were asked for, or none
    QVarLengthArray<QRect, 4> buttons; ///< those that show

    /// Name; below it place and details, or what is going on; time or buttons at the end.
    static RowCell twoLines(const QRect &row, const RowMetrics &sizes, const Wishes &wishes);
    /// Name, what is going on, and columns, in a row that isWide().
    static RowCell oneLine(
        const QRect &row, const RowMetrics &sizes, const Wishes &wishes, const RowColumns &columns);
    /// Name; a line of the document's text; place and details. Time or buttons at the end.
    static RowCell withSnippet(const QRect &row, const RowMetrics &sizes, const Wishes &wishes);
    /// There is room for columns. The rows of one list are of one kind, whatever each of them says.
    static bool isWide(int rowWidth, const RowMetrics &sizes, const RowColumns &columns);

    int buttonAt(const QPoint &point) const; ///< place of the button among `buttons`; -1: none

private:
    static RowCell framed(const QRect &row, const RowMetrics &sizes);
    int textLeft(const RowMetrics &sizes) const { return icon.right() + 1 + sizes.spacing; }
    int textRight(const RowMetrics &sizes) const { return ground.right() + 1 - sizes.padding; }
    QRect textRoom(const RowMetrics &sizes, const Wishes &wishes);
    void layoutButtons(const RowMetrics &sizes, int count);
    void layoutNameLine(const RowMetrics &sizes, const Wishes &wishes, const QRect &line);
    void layoutPlaceLine(const RowMetrics &sizes, const Wishes &wishes, const QRect &line);
    void layoutState(const RowMetrics &sizes, const Wishes &wishes, const QRect &room, bool barBelow);
};

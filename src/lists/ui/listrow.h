#pragma once

#include "lists/ui/listrowdelegate.h"
#include "lists/ui/rowcell.h"
#include "lists/ui/textmarks.h"

/// A button at the end of a row.
struct RowButton
{
    int number = 0; ///< the page's
    QString icon;   ///< line icon
};
using RowButtons = QVector<RowButton>; ///< from left to right

/// What one row says, ready to be shown: no text can break the line or turn its direction (zel::plainLine()).
/// Plain value; a page's own row adds how it is made from an index. The texts that are empty are not shown.
struct ListRow
{
    enum class Kind {
        TwoLines, ///< name; place and details
        Columns,  ///< name and `columns` in one line; in a narrow list their texts stand below the name
        Snippet,  ///< name; a piece of the document's text; place and details
    };
    Kind kind = Kind::TwoLines;
    QString fileName;  ///< in full, for the icon; a folder's ends in "/"
    QString picture;   ///< local file with a thumbnail; empty: none
    QString name;      ///< as shown
    QString nameGlyph; ///< line icon behind the name
    QString badge;
    QString placeGlyph; ///< line icon before the place
    QString place;
    QString detail; ///< behind the place
    QString time;   ///< at the end of the row; not with columns
    zel::MarkedText snippet;
    RowColumns columns;
    QStringList columnTexts;  ///< one for each of them
    QString state;            ///< what is going on with the row; takes the line of the place
    int progress = -1;        ///< percent; below 0: nothing runs
    bool barBelow = false;    ///< the progress has a line of its own, else it is behind the state
    bool problem = false;     ///< `state` and `nameGlyph` tell of one
    bool missing = false;     ///< what the row is for is not there
    bool faded = false;       ///< it is about to go away, or not confirmed yet
    RowButtons buttons;       ///< show when the list says so
    bool buttonsStay = false; ///< they always show
    int buttonRoom = 0;       ///< for so many there is room in every row of the list

    zel::TextRanges nameMarks; ///< by fit()
    zel::TextRanges placeMarks;

    /// Shortens the texts to their room, marks words in them, and returns where everything goes.
    RowCell fit(const ListRowOption &option, const RowFonts &fonts);
    /// Into `cell`, from fit() with the same option. GUI thread; asks for the thumbnail.
    void paint(
        QPainter *painter, const RowCell &cell, const RowFonts &fonts, const ListRowOption &option) const;
    int height(const RowMetrics &sizes) const
    {
        return kind == Kind::Snippet ? sizes.snippetHeight : sizes.rowHeight;
    }

private:
    RowCell::Wishes wishes(const RowFonts &fonts, const ListRowOption &option) const;
    RowCell layout(const QRect &rect, const RowFonts &fonts, const RowCell::Wishes &wishes) const;
    bool isOneLine(const QRect &rect, const RowFonts &fonts) const;
};

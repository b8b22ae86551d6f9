#pragma once

#include "lists/ui/dragcard.h"
#include "lists/ui/listrow.h"

#include <optional>

/// The delegate of a list whose rows are values: it asks for the row of an index, fits it into its place, and
/// answers painting, clicks and tool tips from the same cell. `Row` is a ListRow, or one with more. A page's
/// delegate says what a row is, and the names of its buttons. GUI thread.
template <typename Row> class RowDelegate : public ListRowDelegate
{
public:
    using ListRowDelegate::ListRowDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const ListRowOption ours(option);
        Row row = shownRow(index);
        const RowFonts &rowFonts = fonts(ours.font);
        const RowCell cell = row.fit(ours, rowFonts);
        row.paint(painter, cell, rowFonts, ours);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        return {1, rowHeight(option.font)}; // as wide as the view
    }
    int rowHeight(const QFont &font) const override { return Row().height(fonts(font).sizes); }

    int buttonAt(const ListRowOption &option, const QModelIndex &index, const QPoint &pos) const override
    {
        Row row = shownRow(index);
        const int place = row.fit(option, fonts(option.font)).buttonAt(pos);
        return place < 0 ? ListRowOption::NoButton : row.buttons.at(place).number;
    }
    QRect buttonRect(const ListRowOption &option, const QModelIndex &index, int button) const override
    {
        Row row = shownRow(index);
        const RowCell cell = row.fit(option, fonts(option.font));
        for (int i = 0; i < cell.buttons.size(); ++i) {
            if (row.buttons.at(i).number == button)
                return cell.buttons[i];
        }
        return {};
    }
    QPixmap dragPixmap(const QModelIndex &index, int count, const QFont &font, qreal ratio) const override
    {
        return zel::dragCard(rowOf(index), count, fonts(font), ratio);
    }

    /// Where the row has what, as it is painted with the same option.
    RowCell cell(const QStyleOptionViewItem &option, const QModelIndex &index) const
    {
        const ListRowOption ours(option);
        return shownRow(index).fit(ours, fonts(ours.font));
    }
    const RowFonts &fonts(const QFont &font) const
    {
        if (!m_fonts || m_fonts->name != font)
            m_fonts.emplace(font);
        return *m_fonts;
    }

protected:
    virtual Row rowOf(const QModelIndex &index) const = 0; ///< `index` is valid

private:
    Row shownRow(const QModelIndex &index) const
    {
        Row row = rowOf(index);
        if (!offersButtons()) {
            row.buttons.clear();
            row.buttonRoom = 0;
        }
        return row;
    }

    mutable std::optional<RowFonts> m_fonts; // of the font that was last asked for
};

#pragma once

#include "lists/listlayout.h"

#include <QFont>
#include <QRegion>

class QPainter;

/// Paints what stands above the sections of a list: titles, the one that stays at the top edge included, and
/// lines before sections without one. GUI thread.
class ListHeads
{
public:
    explicit ListHeads(const QFont &list); ///< of the list that they are in

    int height() const; ///< of a title, pixels
    int gap() const;    ///< before a section without title

    /// Where a list with these places is scrolled to `scroll`, as far as `region` wants it; `area` is the
    /// viewport as wide as rows are.
    void paint(QPainter *painter, const QRegion &region, const QRect &area, int scroll,
        const ListLayout &layout, const zel::ListSections &sections) const;

private:
    void paintHead(QPainter *painter, const QRect &rect, const ListLayout::Head &head,
        const zel::ListSections &sections) const;

    QFont m_font;
};

#include "lists/ui/listheads.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

#include <QPainter>

namespace {
constexpr int HeadHeight = 36;
constexpr int Gap = 13;
constexpr int LowerBy = 6; // a title is nearer to the rows that it is for
} // namespace

ListHeads::ListHeads(const QFont &list) : m_font(zel::look::font(zel::look::Type::Caption, list))
{
    m_font.setWeight(QFont::DemiBold);
}

int ListHeads::height() const
{
    return qMax(KLiteStyle::dpiScaled(HeadHeight), QFontMetrics(m_font).height() + 8);
}

int ListHeads::gap() const
{
    return KLiteStyle::dpiScaled(Gap);
}

void ListHeads::paint(QPainter *painter, const QRegion &region, const QRect &area, int scroll,
    const ListLayout &layout, const zel::ListSections &sections) const
{
    const auto sticky = layout.stickyHeader(scroll);
    const auto heads = layout.headsBetween(scroll, scroll + area.height());
    for (const ListLayout::Head &head : heads) {
        const QRect rect(area.left(), head.top - scroll, area.width(), head.height);
        if (head.section != sticky.section && region.intersects(rect))
            paintHead(painter, rect, head, sections);
    }
    if (sticky.section < 0)
        return;
    const QRect rect(area.left(), sticky.top, area.width(), sticky.height);
    paintHead(painter, rect, sticky, sections);
    if (layout.rowTop(sections.at(sticky.section).firstRow) < scroll + sticky.height) // rows are under it
        painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, KSkin::color(KSkin::Color::Border));
}

void ListHeads::paintHead(QPainter *painter, const QRect &rect, const ListLayout::Head &head,
    const zel::ListSections &sections) const
{
    const int side = KLiteStyle::dpiScaled(zel::look::SpaceXL);
    if (!head.titled) {
        const QRect line(rect.left() + side, rect.center().y(), rect.width() - 2 * side, 1);
        painter->fillRect(line, KSkin::color(KSkin::Color::Border));
        return;
    }
    painter->fillRect(rect, KSkin::color(KSkin::Color::Surface));
    painter->setFont(m_font);
    painter->setPen(KSkin::color(KSkin::Color::TextSecondary));
    const QRect text = rect.adjusted(side, KLiteStyle::dpiScaled(LowerBy), -side, 0);
    const QFontMetrics metrics = painter->fontMetrics();
    const QString title = sections.at(head.section).title;
    const int top = text.top() + (text.height() - metrics.height()) / 2; // by the base line, as in a row
    painter->drawText(
        text.left(), top + metrics.ascent(), metrics.elidedText(title, Qt::ElideRight, text.width()));
}

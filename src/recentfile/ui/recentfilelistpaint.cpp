// Painting of the recent list.
#include "klitestyle.h"
#include "kskin.h"
#include "kthumbnailcache.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentfilelistview.h"

#include <QPaintEvent>
#include <QPainter>

using View = ZelBoxRecentFileListView;

void View::setShownDetail(Detail detail)
{
    if (ZelBoxRecentFileDelegate *delegate = rowDelegate())
        delegate->setShownDetail(detail);
    viewport()->update();
}

ZelBoxRecentFileDelegate *View::rowDelegate() const
{
    return qobject_cast<ZelBoxRecentFileDelegate *>(itemDelegate());
}

// One row at a time: where the pointer is, else where the keyboard is.
bool View::showsButtons(const QModelIndex &index) const
{
    if (m_hover.isValid())
        return m_hover == index;
    return m_keyboardLeads && hasFocus() && currentIndex() == index;
}

ListRowOption View::rowOption(const QModelIndex &index) const
{
    ListRowOption option(viewOptions());
    option.rect = visualRect(index);
    option.widget = this;
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_MouseOver, m_hover == index);
    option.state.setFlag(QStyle::State_HasFocus, m_keyboardLeads && hasFocus() && currentIndex() == index);
    option.buttons = showsButtons(index);
    if (m_hotButton.row == index)
        option.hovered = m_hotButton.button;
    if (m_pressedButton.row == index)
        option.pressed = m_pressedButton.button;
    return option;
}

void View::updateRow(const QModelIndex &index)
{
    viewport()->update(visualRect(index));
}

// The region of a scrolled list is two strips with most of the rows between them.
void View::paintEvent(QPaintEvent *event)
{
    followThumbnails();
    QPainter painter(viewport());
    const QRegion &region = event->region();
    for (const QRect &rect : region)
        painter.fillRect(rect, KSkin::color(KSkin::Color::Surface));
    const int scroll = verticalOffset();
    const QRect bounds = region.boundingRect();
    const auto [first, last] = m_layout.rowsBetween(bounds.top() + scroll, bounds.bottom() + 1 + scroll);
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model->index(row);
        if (region.intersects(visualRect(index)))
            itemDelegate()->paint(&painter, rowOption(index), index);
    }
    paintHeaders(&painter, region);
    if (m_dropFrame)
        paintDropFrame(&painter);
}

void View::paintHeaders(QPainter *painter, const QRegion &region)
{
    const int scroll = verticalOffset();
    const auto sticky = m_layout.stickyHeader(scroll);
    const auto heads = m_layout.headsBetween(scroll, scroll + viewport()->height());
    for (RecentListLayout::Head head : heads) {
        head.top -= scroll;
        if (head.section != sticky.section
            && region.intersects(QRect(0, head.top, viewport()->width(), head.height)))
            paintHead(painter, head);
    }
    if (sticky.section < 0)
        return;
    paintHead(painter, sticky);
    const int firstRow = m_model->sections().at(sticky.section).firstRow;
    if (m_layout.rowTop(firstRow) < scroll + sticky.height) { // rows have gone under it
        const int bottom = sticky.top + sticky.height;
        painter->fillRect(0, bottom - 1, viewport()->width(), 1, KSkin::color(KSkin::Color::Border));
    }
}

void View::paintHead(QPainter *painter, const RecentListLayout::Head &head)
{
    const QRect rect(0, head.top, viewport()->width(), head.height);
    const int side = KLiteStyle::dpiScaled(24);
    if (!head.titled) {
        const QRect line(side, rect.center().y(), rect.width() - 2 * side, 1);
        painter->fillRect(line, KSkin::color(KSkin::Color::Border));
        return;
    }
    painter->fillRect(rect, KSkin::color(KSkin::Color::Surface));
    QFont font = RowFonts(this->font()).small;
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(KSkin::color(KSkin::Color::TextSecondary));
    const int lower = KLiteStyle::dpiScaled(6); // nearer to the rows it is for
    const QRect text = rect.adjusted(side, lower, -side, 0);
    const QFontMetrics metrics = painter->fontMetrics();
    const QString title = m_model->sections().at(head.section).title;
    const int top = text.top() + (text.height() - metrics.height()) / 2; // by the base line, as in a row
    painter->drawText(
        text.left(), top + metrics.ascent(), metrics.elidedText(title, Qt::ElideRight, text.width()));
}

void View::paintDropFrame(QPainter *painter)
{
    const QColor accent = KSkin::color(KSkin::Color::Accent);
    QColor veil = accent;
    veil.setAlphaF(0.06);
    const qreal width = KLiteStyle::dpiScaledF(2);
    const qreal radius = KLiteStyle::dpiScaledF(8);
    const qreal inset = KLiteStyle::dpiScaledF(6);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(veil);
    painter->setPen(QPen(accent, width));
    painter->drawRoundedRect(
        QRectF(viewport()->rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

// At the first painting, because nothing of it is needed before.
void View::followThumbnails()
{
    KThumbnailCache *cache = KThumbnailCache::instance();
    if (m_thumbnails == cache)
        return;
    if (m_thumbnails)
        m_thumbnails->disconnect(this);
    m_thumbnails = cache;
    if (cache)
        connect(cache, &KThumbnailCache::loaded, this, &View::onThumbnailLoaded);
}

void View::onThumbnailLoaded(const QString &path)
{
    const auto [first, last] = visibleRows();
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model->index(row);
        if (index.data(ZelBoxRecentFileModel::PathRole).toString() == path)
            updateRow(index);
    }
}

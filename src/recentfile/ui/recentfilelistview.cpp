#include "recentfile/ui/recentfilelistview.h"

#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/ui/recentcell.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentlistaccessible.h"

#include <QAccessible>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace {
constexpr int HeaderHeight = 36;
constexpr int BottomMargin = 12;
constexpr int WheelStep = 20; // pixels a line of the wheel
} // namespace

ZelBoxRecentFileListView::ZelBoxRecentFileListView(QWidget *parent) : QAbstractItemView(parent)
{
    RecentListAccessible::install();
    setItemDelegate(new ZelBoxRecentFileDelegate(this));
    setFrameShape(NoFrame);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Recent files"));
    viewport()->setMouseTracking(true);
}

void ZelBoxRecentFileListView::setModel(QAbstractItemModel *newModel)
{
    if (m_model)
        m_model->disconnect(this);
    m_model = qobject_cast<ZelBoxRecentFileModel *>(newModel);
    Q_ASSERT(m_model || !newModel);
    QAbstractItemView::setModel(newModel);
    if (m_model) {
        connect(m_model, &ZelBoxRecentFileModel::groupsChanged, this, &ZelBoxRecentFileListView::relayout);
        connect(m_model, &QAbstractItemModel::rowsAboutToBeMoved, this,
            [this](const QModelIndex &, int row) { leaveMovingAnchor(row); });
        connect(m_model, &QAbstractItemModel::rowsMoved, this, &ZelBoxRecentFileListView::relayout);
        connect(m_model, &QAbstractItemModel::rowsRemoved, this, &ZelBoxRecentFileListView::relayout);
    }
    relayout();
}

void ZelBoxRecentFileListView::reset()
{
    QAbstractItemView::reset();
    relayout();
}

void ZelBoxRecentFileListView::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
    relayout();
}

// Only the seven groups are looked at. The row at the top edge keeps its place while something changes above
// it, except at the very top, where new rows are to be seen.
void ZelBoxRecentFileListView::relayout()
{
    if (m_layingOut)
        return;
    {
        const QScopedValueRollback guard(m_layingOut, true);
        const int scroll = verticalOffset();
        const QFont small = ZelBoxRecentFileDelegate::smallFont(font());
        const int rowHeight = RecentCellMetrics::of(fontMetrics(), QFontMetrics(small)).rowHeight;
        const int headerHeight = qMax(KLiteStyle::dpiScaled(HeaderHeight), QFontMetrics(small).height() + 8);
        m_layout = m_model ? RecentListLayout(
                       m_model->groups(), rowHeight, headerHeight, KLiteStyle::dpiScaled(BottomMargin))
                           : RecentListLayout();
        updateGeometries();
        if (scroll > 0 && m_anchor.isValid())
            verticalScrollBar()->setValue(m_layout.rowTop(m_anchor.row()) - m_anchorOffset);
    }
    noteAnchor();
    updateHover();
    viewport()->update();
    settleSoon();
}

void ZelBoxRecentFileListView::noteAnchor()
{
    const int scroll = verticalOffset();
    const int row = m_layout.rowAtOrAfter(scroll);
    m_anchor = row >= 0 ? model()->index(row, 0) : QModelIndex();
    m_anchorOffset = m_layout.rowTop(row) - scroll;
}

// A file that is opened goes to the top of the list; what the user looks at must not go with it.
void ZelBoxRecentFileListView::leaveMovingAnchor(int row)
{
    const int neighbour = row + 1 < m_model->rowCount() ? row + 1 : row - 1;
    if (m_anchor.row() != row || neighbour < 0)
        return;
    m_anchor = m_model->index(neighbour);
    m_anchorOffset = m_layout.rowTop(neighbour) - verticalOffset();
}

void ZelBoxRecentFileListView::updateGeometries()
{
    const int height = viewport()->height();
    verticalScrollBar()->setSingleStep(KLiteStyle::dpiScaled(WheelStep));
    verticalScrollBar()->setPageStep(qMax(1, height - m_layout.headerHeight()));
    verticalScrollBar()->setRange(0, qMax(0, m_layout.contentHeight() - height));
    QAbstractItemView::updateGeometries();
}

int ZelBoxRecentFileListView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

void ZelBoxRecentFileListView::scrollContentsBy(int, int)
{
    if (m_layingOut)
        return;
    noteAnchor();
    updateHover();
    viewport()->update();
    settleSoon();
}

QRect ZelBoxRecentFileListView::visualRect(const QModelIndex &index) const
{
    const int top = index.isValid() ? m_layout.rowTop(index.row()) : -1;
    if (top < 0)
        return {};
    return {0, top - verticalOffset(), viewport()->width(), m_layout.rowHeight()};
}

QModelIndex ZelBoxRecentFileListView::indexAt(const QPoint &point) const
{
    if (!m_model || !viewport()->rect().contains(point))
        return {};
    const auto sticky = m_layout.stickyHeader(verticalOffset());
    if (sticky.group >= 0 && point.y() < sticky.top + m_layout.headerHeight())
        return {};
    const int row = m_layout.rowAt(point.y() + verticalOffset());
    return row >= 0 ? m_model->index(row) : QModelIndex();
}

// The sticky header covers the top of the viewport: a row is in view only below it.
void ZelBoxRecentFileListView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int top = index.isValid() ? m_layout.rowTop(index.row()) : -1;
    if (top < 0)
        return;
    const int highest = top + m_layout.rowHeight() - viewport()->height(); // row ends at the bottom edge
    const int lowest = top - m_layout.headerHeight();                      // row begins below the header
    int scroll = verticalOffset();
    switch (hint) {
    case EnsureVisible:
        scroll = qMin(qMax(scroll, highest), lowest);
        break;
    case PositionAtTop:
        scroll = lowest;
        break;
    case PositionAtBottom:
        scroll = highest;
        break;
    case PositionAtCenter:
        scroll = (highest + lowest) / 2;
        break;
    }
    verticalScrollBar()->setValue(scroll);
}

QModelIndex ZelBoxRecentFileListView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int count = m_model ? m_model->rowCount() : 0;
    if (count == 0)
        return {};
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    return m_model->index(qBound(0, current < 0 ? 0 : clampedRow(action, current), count - 1));
}

int ZelBoxRecentFileListView::clampedRow(CursorAction action, int row) const
{
    const int page = verticalScrollBar()->pageStep() - m_layout.rowHeight();
    const int topOfRow = m_layout.rowTop(row); // both ways a page leads to the furthest row that begins in it
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return row - 1;
    case MoveDown:
    case MoveNext:
        return row + 1;
    case MovePageUp:
        return qMin(row - 1, m_layout.rowAtOrAfter(qMax(0, topOfRow - page + m_layout.rowHeight() - 1)));
    case MovePageDown:
        return qMax(row + 1, m_layout.rowAtOrBefore(topOfRow + page));
    case MoveHome:
        return 0;
    case MoveEnd:
        return m_model->rowCount() - 1;
    case MoveLeft:
    case MoveRight:
        return row;
    }
    return row;
}

void ZelBoxRecentFileListView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    const QRect area = rect.normalized().translated(0, verticalOffset());
    const auto [first, last] = m_layout.rowsBetween(area.top(), area.bottom() + 1);
    QItemSelection selection;
    if (first >= 0)
        selection.select(m_model->index(first), m_model->index(last));
    selectionModel()->select(selection, command);
}

QRegion ZelBoxRecentFileListView::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        const QRect rect = visualRect(range.topLeft()) | visualRect(range.bottomRight());
        region += rect & viewport()->rect();
    }
    return region;
}

void ZelBoxRecentFileListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    viewport()->update(visualRect(previous));
    viewport()->update(visualRect(current));
    if (QAccessible::isActive() && current.isValid()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(current.row());
        QAccessible::updateAccessibility(&event);
    }
    Q_EMIT sigCurrentChanged(current, previous);
}

void ZelBoxRecentFileListView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QAbstractItemView::rowsInserted(parent, start, end);
    relayout();
    if (start == 0 && end == model()->rowCount() - 1)
        restoreAfterReload();
}

// A reload takes all rows away and brings most of them back at once.
void ZelBoxRecentFileListView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    if (m_model && start == 0 && end == m_model->rowCount() - 1) {
        const QModelIndex current = currentIndex();
        m_kept.currentId = current.data(ZelBoxRecentFileModel::IdRole).toString();
        m_kept.selected = selectionModel()->isSelected(current);
        m_kept.anchorId =
            verticalOffset() > 0 ? m_anchor.data(ZelBoxRecentFileModel::IdRole).toString() : QString();
        m_kept.anchorOffset = m_anchorOffset;
    }
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
}

void ZelBoxRecentFileListView::restoreAfterReload()
{
    const Kept kept = std::exchange(m_kept, {});
    const int current = m_model->rowOf(kept.currentId);
    if (current >= 0) {
        const auto how = kept.selected ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
        selectionModel()->setCurrentIndex(m_model->index(current), how);
    }
    const int anchor = m_model->rowOf(kept.anchorId);
    verticalScrollBar()->setValue(anchor < 0 ? 0 : m_layout.rowTop(anchor) - kept.anchorOffset);
}

void ZelBoxRecentFileListView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
    const int scroll = verticalOffset();
    const auto [first, last] =
        m_layout.rowsBetween(event->rect().top() + scroll, event->rect().bottom() + 1 + scroll);
    for (int row = first; row <= last; ++row)
        paintRow(&painter, row);
    paintHeaders(&painter);
}

void ZelBoxRecentFileListView::paintRow(QPainter *painter, int row)
{
    const QModelIndex index = m_model->index(row);
    QStyleOptionViewItem option = viewOptions();
    option.rect = visualRect(index);
    option.widget = this;
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_MouseOver, m_hover == index);
    option.state.setFlag(QStyle::State_HasFocus, m_showFocusRing && hasFocus() && currentIndex() == index);
    itemDelegate()->paint(painter, option, index);
}

void ZelBoxRecentFileListView::paintHeaders(QPainter *painter)
{
    const int scroll = verticalOffset();
    const auto sticky = m_layout.stickyHeader(scroll);
    for (int group = 0; group < zel::recent::TimeGroupCount; ++group) {
        const int top = m_layout.headerTop(group) - scroll;
        if (m_layout.headerTop(group) >= 0 && group != sticky.group && top < viewport()->height()
            && top > -m_layout.headerHeight())
            paintHeader(painter, group, top);
    }
    if (sticky.group < 0)
        return;
    paintHeader(painter, sticky.group, sticky.top);
    if (m_layout.headerTop(sticky.group) < scroll) { // rows have gone under it
        const int bottom = sticky.top + m_layout.headerHeight();
        painter->fillRect(0, bottom - 1, viewport()->width(), 1, KSkin::color(KSkin::Color::Border));
    }
}

void ZelBoxRecentFileListView::paintHeader(QPainter *painter, int group, int top)
{
    const QRect rect(0, top, viewport()->width(), m_layout.headerHeight());
    const int side = KLiteStyle::dpiScaled(24);
    painter->fillRect(rect, KSkin::color(KSkin::Color::Surface));
    QFont font = ZelBoxRecentFileDelegate::smallFont(this->font());
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(KSkin::color(KSkin::Color::TextSecondary));
    const int lower = KLiteStyle::dpiScaled(6); // nearer to the rows it is for
    painter->drawText(rect.adjusted(side, lower, -side, 0),
        Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, m_model->groups()[size_t(group)].title);
}

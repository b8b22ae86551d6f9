// Places: where the rows of the recent list are, and that they stay where the user looks.
#include "recentfile/ui/recentfilelistview.h"

#include "klitestyle.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentfiledelegate.h"
#include "recentfile/ui/recentlistaccessible.h"

#include <QScopedValueRollback>
#include <QScrollBar>

namespace {
constexpr int HeaderHeight = 36;
constexpr int SectionGap = 13;
constexpr int BottomMargin = 12;
constexpr int WheelStep = 20; // pixels a line of the wheel
} // namespace

using View = ZelBoxRecentFileListView;

ZelBoxRecentFileListView::ZelBoxRecentFileListView(QWidget *parent) : QAbstractItemView(parent)
{
    RecentListAccessible::install();
    setItemDelegate(new ZelBoxRecentFileDelegate(this));
    setFrameShape(NoFrame);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setDragEnabled(true);
    setAcceptDrops(true);
    setAccessibleName(tr("Recent files"));
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void View::setModel(QAbstractItemModel *newModel)
{
    if (m_model)
        m_model->disconnect(this);
    m_model = qobject_cast<RecentSortFilterModel *>(newModel);
    Q_ASSERT(m_model || !newModel);
    QAbstractItemView::setModel(newModel);
    if (m_model)
        connectModel();
    relayout();
}

void View::connectModel()
{
    using Model = RecentSortFilterModel;
    connect(m_model, &Model::sectionsChanged, this, &View::relayout);
    connect(m_model, &Model::rowsAboutToBeMoved, this,
        [this](const QModelIndex &, int first, int last) { leaveMovingAnchor(first, last); });
    connect(m_model, &Model::rowsMoved, this, &View::relayout);
    connect(m_model, &Model::rowsRemoved, this, &View::relayout);
    connect(m_model, &Model::layoutAboutToBeChanged, this, &View::leaveOldOrder);
}

void View::reset()
{
    QAbstractItemView::reset();
    relayout();
}

void View::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
    relayout();
}

// Only the sections are looked at. The row at the top edge keeps its place while something changes above it,
// except at the very top, where new rows are to be seen.
void View::relayout()
{
    if (m_layingOut)
        return;
    {
        const QScopedValueRollback guard(m_layingOut, true);
        const int scroll = verticalOffset();
        const RowFonts fonts(font());
        RecentListLayout::Sizes sizes;
        sizes.row = fonts.sizes.rowHeight;
        sizes.header = qMax(KLiteStyle::dpiScaled(HeaderHeight), fonts.smallMetrics.height() + 8);
        sizes.gap = KLiteStyle::dpiScaled(SectionGap);
        sizes.bottom = KLiteStyle::dpiScaled(BottomMargin);
        m_layout = m_model ? RecentListLayout(m_model->sections(), sizes) : RecentListLayout();
        updateGeometries();
        if (scroll > 0 && m_anchor.isValid())
            verticalScrollBar()->setValue(m_layout.rowTop(m_anchor.row()) - m_anchorOffset);
    }
    noteAnchor();
    updateHover();
    viewport()->update();
    settleSoon();
}

void View::noteAnchor()
{
    const int scroll = verticalOffset();
    const int row = m_layout.rowAtOrAfter(scroll);
    m_anchor = row >= 0 ? m_model->index(row) : QModelIndex();
    m_anchorOffset = m_layout.rowTop(row) - scroll;
}

// A file that is opened goes to the top of the list; what the user looks at must not go with it.
void View::leaveMovingAnchor(int first, int last)
{
    if (m_anchor.row() < first || m_anchor.row() > last)
        return;
    const int neighbour = last + 1 < m_model->rowCount() ? last + 1 : first - 1;
    if (neighbour < 0)
        return;
    m_anchor = m_model->index(neighbour);
    m_anchorOffset = m_layout.rowTop(neighbour) - verticalOffset();
}

// In another order only the current row says where the user was; without it in sight, the list begins anew.
void View::leaveOldOrder()
{
    const QRect current = visualRect(currentIndex());
    if (current.isNull() || !viewport()->rect().intersects(current)) {
        verticalScrollBar()->setValue(0);
        return;
    }
    m_anchor = currentIndex();
    m_anchorOffset = current.top();
}

void View::updateGeometries()
{
    const int height = viewport()->height();
    verticalScrollBar()->setSingleStep(KLiteStyle::dpiScaled(WheelStep));
    verticalScrollBar()->setPageStep(qMax(1, height - m_layout.headerHeight()));
    verticalScrollBar()->setRange(0, qMax(0, m_layout.contentHeight() - height));
    QAbstractItemView::updateGeometries();
}

int View::verticalOffset() const
{
    return verticalScrollBar()->value();
}

// What is painted already moves as a picture; only what comes into view and the title at the top are painted.
// Where a pixel of ours is not a whole number of the screen's, the picture could not move exactly.
void View::scrollContentsBy(int, int dy)
{
    if (m_layingOut)
        return;
    noteAnchor();
    const qreal ratio = viewport()->devicePixelRatioF();
    if (ratio == qRound(ratio) && !m_dropFrame) {
        viewport()->scroll(0, dy, viewport()->rect());
        viewport()->update(0, 0, viewport()->width(), m_layout.headerHeight() + qMax(0, dy));
    } else {
        viewport()->update();
    }
    updateHover();
    settleSoon();
}

QRect View::visualRect(const QModelIndex &index) const
{
    const int top = index.isValid() ? m_layout.rowTop(index.row()) : -1;
    if (top < 0)
        return {};
    return {0, top - verticalOffset(), viewport()->width(), m_layout.rowHeight()};
}

QModelIndex View::indexAt(const QPoint &point) const
{
    if (!m_model || !viewport()->rect().contains(point))
        return {};
    const auto sticky = m_layout.stickyHeader(verticalOffset());
    if (sticky.section >= 0 && point.y() < sticky.top + sticky.height)
        return {};
    const int row = m_layout.rowAt(point.y() + verticalOffset());
    return row >= 0 ? m_model->index(row) : QModelIndex();
}

// The title at the top edge covers the top of the viewport: a row is in view only below it.
void View::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int top = index.isValid() ? m_layout.rowTop(index.row()) : -1;
    if (top < 0)
        return;
    const int highest = top + m_layout.rowHeight() - viewport()->height(); // row ends at the bottom edge
    const int lowest = top - m_layout.coverOf(index.row());                // row begins below the title
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

std::pair<int, int> View::visibleRows() const
{
    return m_layout.rowsBetween(verticalOffset(), verticalOffset() + viewport()->height());
}

void View::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QAbstractItemView::rowsInserted(parent, start, end);
    relayout();
    if (start == 0 && end == m_model->rowCount() - 1)
        restoreAfterReload();
}

// A reload takes all rows away and brings most of them back at once.
void View::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    if (m_model && start == 0 && end == m_model->rowCount() - 1) {
        m_memory.keep(*m_model, *selectionModel());
        m_keptAnchorId =
            verticalOffset() > 0 ? m_anchor.data(ZelBoxRecentFileModel::IdRole).toString() : QString();
        m_keptAnchorOffset = m_anchorOffset;
    } else if (m_model) {
        leaveRemovedRows(start, end);
    }
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
}

void View::restoreAfterReload()
{
    m_memory.giveBack(*m_model, selectionModel());
    const int anchor = m_model->rowOf(std::exchange(m_keptAnchorId, {}));
    verticalScrollBar()->setValue(anchor < 0 ? 0 : m_layout.rowTop(anchor) - m_keptAnchorOffset);
}

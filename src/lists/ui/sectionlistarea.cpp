#include "lists/ui/sectionlistarea.h"

#include "klitestyle.h"
#include "kskin.h"
#include "lists/ui/listheads.h"
#include "widgets/contentcolumn.h"
#include "widgets/rowpaint.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimerEvent>

namespace {
constexpr int BottomMargin = 12;
constexpr int LineHeight = 1;
constexpr int WheelStep = 20;    // pixels a line of the wheel
constexpr int SettleDelay = 250; // ms
} // namespace

using View = SectionListArea;

SectionListArea::SectionListArea(QWidget *parent) : QAbstractItemView(parent)
{
    setFrameShape(NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void View::setModel(QAbstractItemModel *newModel)
{
    if (m_model)
        m_model->disconnect(this);
    m_model = qobject_cast<ListModel *>(newModel);
    Q_ASSERT(m_model || !newModel);
    QAbstractItemView::setModel(newModel);
    if (m_model)
        connectModel();
    relayout();
}

void View::connectModel()
{
    connect(m_model, &ListModel::sectionsChanged, this, &View::relayout);
    connect(m_model, &QObject::destroyed, this, &View::relayout);
    connect(m_model, &QAbstractItemModel::rowsAboutToBeMoved, this,
        [this](const QModelIndex &, int first, int last) {
            m_anchor.leave(*m_model, m_layout, verticalOffset(), first, last);
        });
    connect(m_model, &QAbstractItemModel::rowsMoved, this, &View::relayout);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &View::relayout);
    connect(m_model, &QAbstractItemModel::layoutChanged, this, [this] { relayout(); });
    connect(m_model, &QAbstractItemModel::layoutAboutToBeChanged, this,
        [this](const auto &, QAbstractItemModel::LayoutChangeHint hint) { leaveOldOrder(hint); });
}

ListRowDelegate *View::rowDelegate() const
{
    return qobject_cast<ListRowDelegate *>(itemDelegate());
}

int View::rowHeight() const
{
    return rowDelegate() ? rowDelegate()->rowHeight(font()) : 1;
}

int View::heightOf(int rows) const
{
    return rows * rowHeight() + KLiteStyle::dpiScaled(BottomMargin);
}

void View::setSectionsShown(bool shown)
{
    m_sectionsShown = shown;
    relayout();
}

void View::setMarkedWords(const QStringList &words)
{
    if (std::exchange(m_markedWords, words) != words)
        viewport()->update();
}

zel::ListSections View::sections() const
{
    if (!m_model)
        return {};
    return m_sectionsShown ? m_model->sections() : m_model->ListModel::sections();
}

void View::reset()
{
    QAbstractItemView::reset();
    relayout();
}

// First: the base class hides the editor of a row that it finds no place for, which ends a rename.
void View::doItemsLayout()
{
    relayout();
    QAbstractItemView::doItemsLayout();
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
        const ListHeads heads(font());
        m_layout = ListLayout(
            sections(), {rowHeight(), heads.height(), heads.gap(), KLiteStyle::dpiScaled(BottomMargin)});
        updateGeometries();
        if (scroll > 0 && m_anchor.isValid())
            verticalScrollBar()->setValue(m_anchor.scroll(m_layout));
    }
    if (m_model)
        m_anchor.note(*m_model, m_layout, verticalOffset());
    updateEditorGeometries();
    viewport()->update();
    placesChanged();
    settleSoon();
}

// In another order only the current row says where the user was; without it in sight, the list begins anew.
// Where many rows come and go at once, any of them may have gone: the list stays where it is.
void View::leaveOldOrder(QAbstractItemModel::LayoutChangeHint hint)
{
    const QRect current = visualRect(currentIndex());
    if (hint != QAbstractItemModel::VerticalSortHint)
        m_anchor.drop();
    else if (viewport()->rect().intersects(current))
        m_anchor.take(currentIndex(), current.top());
    else
        verticalScrollBar()->setValue(0);
}

void View::setEndRoom(int pixels)
{
    if (std::exchange(m_endRoom, pixels) != pixels)
        updateGeometries();
}

void View::updateGeometries()
{
    const int height = viewport()->height();
    verticalScrollBar()->setSingleStep(KLiteStyle::dpiScaled(WheelStep));
    verticalScrollBar()->setPageStep(qMax(1, height - m_layout.headerHeight()));
    verticalScrollBar()->setRange(0, qMax(0, m_layout.contentHeight() + m_endRoom - height));
    QAbstractItemView::updateGeometries();
}

int View::verticalOffset() const
{
    return verticalScrollBar()->value();
}

// By the width of the list, as the page's header does it: a scroll bar that comes and goes moves nothing.
QRect View::column() const
{
    return zel::contentRect({0, 0, width(), viewport()->height()}) & viewport()->rect();
}

// What is painted already moves as a picture; only what comes into view and the title at the top are painted.
// Where a pixel of ours is not a whole number of the screen's, the picture could not move exactly.
void View::scrollContentsBy(int, int dy)
{
    if (m_layingOut || !m_model)
        return;
    m_anchor.note(*m_model, m_layout, verticalOffset());
    const qreal ratio = viewport()->devicePixelRatioF();
    if (ratio == qRound(ratio) && !isDropTarget()) {
        viewport()->scroll(0, dy, viewport()->rect());
        viewport()->update(
            0, 0, viewport()->width(), qMax(LineHeight, m_layout.headerHeight()) + qMax(0, dy));
    } else {
        viewport()->update();
    }
    updateEditorGeometries();
    placesChanged();
    settleSoon();
}

QRect View::visualRect(const QModelIndex &index) const
{
    const int top = index.isValid() ? m_layout.rowTop(index.row()) : -1;
    if (top < 0)
        return {};
    const QRect column = this->column();
    return {column.left(), top - verticalOffset(), column.width(), m_layout.rowHeight()};
}

QModelIndex View::indexAt(const QPoint &point) const
{
    if (!m_model || !column().contains(point))
        return {};
    const auto sticky = m_layout.stickyHeader(verticalOffset());
    if (sticky.section >= 0 && point.y() < sticky.top + sticky.height)
        return {};
    return m_model->index(m_layout.rowAt(point.y() + verticalOffset()));
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
    relayout(); // first: see doItemsLayout()
    QAbstractItemView::rowsInserted(parent, start, end);
    if (start == 0 && end == m_model->rowCount() - 1)
        verticalScrollBar()->setValue(m_anchor.keptScroll(*m_model, m_layout));
}

// A reload takes all rows away and brings most of them back at once.
void View::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    if (start == 0 && end == m_model->rowCount() - 1)
        m_anchor.keep(*m_model, verticalOffset());
    m_anchor.give(*m_model, start, end);
    QAbstractItemView::rowsAboutToBeRemoved(parent, start, end);
}

void View::changeEvent(QEvent *event)
{
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        relayout();
}

void View::settleSoon()
{
    if (isVisible() && m_layout.contentHeight() > 0)
        m_settle.start(SettleDelay, this);
}

void View::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_settle.timerId())
        return QAbstractItemView::timerEvent(event);
    m_settle.stop();
    QModelIndexList rows;
    const auto [first, last] = visibleRows();
    for (int row = first; row <= last; ++row)
        rows << m_model->index(row);
    if (isVisible() && !rows.isEmpty())
        Q_EMIT visibleRowsSettled(rows);
}

ListRowOption View::plainOption() const
{
    ListRowOption option;
    static_cast<QStyleOptionViewItem &>(option) = viewOptions();
    option.version = ListRowOption::Version;
    option.widget = this;
    option.markedWords = m_markedWords;
    return option;
}

void View::fillOption(ListRowOption *option, const QModelIndex &index) const
{
    option->rect = visualRect(index);
    option->state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
}

ListRowOption View::rowOption(const QModelIndex &index) const
{
    ListRowOption option = plainOption();
    fillOption(&option, index);
    return option;
}

// The region of a scrolled list is two strips with most of the rows between them.
void View::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QRegion &region = event->region();
    for (const QRect &rect : region)
        painter.fillRect(rect, KSkin::color(KSkin::Color::Surface));
    const int scroll = verticalOffset();
    const QRect bounds = region.boundingRect();
    const auto [first, last] = m_layout.rowsBetween(bounds.top() + scroll, bounds.bottom() + 1 + scroll);
    ListRowOption option = plainOption();
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model->index(row);
        if (!region.intersects(visualRect(index)))
            continue;
        fillOption(&option, index);
        itemDelegate()->paint(&painter, option, index);
    }
    ListHeads(font()).paint(&painter, region, column(), scroll, m_layout, sections());
    if (scroll > 0 && m_layout.stickyHeader(scroll).section < 0) // rows are under what stands above the list
        painter.fillRect(0, 0, viewport()->width(), LineHeight, KSkin::color(KSkin::Color::Border));
    if (isDropTarget()) {
        const int inset = KLiteStyle::dpiScaled(6);
        painter.setRenderHint(QPainter::Antialiasing);
        zel::paintDropGround(&painter, viewport()->rect().adjusted(inset, inset, -inset, -inset), true);
    }
}

QModelIndex View::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int count = m_model ? m_model->rowCount() : 0;
    if (count == 0)
        return {};
    const int current = currentIndex().row();
    return m_model->index(qBound(0, current < 0 ? 0 : rowFrom(current, action), count - 1));
}

int View::rowFrom(int row, CursorAction action) const
{
    const int page = verticalScrollBar()->pageStep() - m_layout.rowHeight();
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return row - 1;
    case MoveDown:
    case MoveNext:
        return row + 1;
    case MovePageUp:
        return m_layout.pageUp(row, page);
    case MovePageDown:
        return m_layout.pageDown(row, page);
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

// The corners come in any order; QRect::normalized() would take a pixel off each side of swapped ones.
void View::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    const int top = qMin(rect.top(), rect.bottom()) + verticalOffset();
    const int bottom = qMax(rect.top(), rect.bottom()) + verticalOffset();
    const auto [first, last] = m_layout.rowsBetween(top, bottom + 1);
    QItemSelection selection;
    if (first >= 0)
        selection.select(m_model->index(first), m_model->index(last));
    selectionModel()->select(selection, command);
}

QRegion View::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        const QRect rect = visualRect(range.topLeft()) | visualRect(range.bottomRight());
        region += rect & viewport()->rect();
    }
    return region;
}

#include "lists/ui/columnheadings.h"

#include "klitestyle.h"
#include "klook.h"
#include "lists/ui/columnheading.h"
#include "lists/ui/listsortmenu.h"
#include "widgets/contentcolumn.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <algorithm>

namespace look = zel::look;
using zel::ListSort;

namespace {

ListSort::Key keyOf(RowColumn column)
{
    switch (column) {
    case RowColumn::Time:
        return ListSort::Key::Time;
    case RowColumn::Size:
        return ListSort::Key::Size;
    }
    return ListSort::Key::Name;
}

} // namespace

ColumnHeadings::ColumnHeadings(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAccessibleName(tr("Columns of the list"));
}

ColumnHeading *ColumnHeadings::addHeading(ListSort::Key key, const QString &title)
{
    auto *heading = new ColumnHeading(key, title, this);
    heading->installEventFilter(this);
    connect(heading, &QAbstractButton::clicked, this, [this, heading] { choose(*heading); });
    return heading;
}

void ColumnHeadings::setName(const QString &title)
{
    m_headings.prepend(addHeading(ListSort::Key::Name, title));
}

void ColumnHeadings::addColumn(RowColumn column, const QString &title)
{
    m_columns << column;
    m_headings << addHeading(keyOf(column), title);
}

// One stop of the Tab key for all of them: the one that the list is sorted by, or the name.
void ColumnHeadings::setSort(const ListSort &sort)
{
    m_sort = sort;
    ColumnHeading *stop = m_headings.value(0);
    for (ColumnHeading *heading : std::as_const(m_headings)) {
        const bool sorted = heading->key() == sort.key;
        heading->setSorted(sorted, sort.order);
        heading->setFocusPolicy(Qt::NoFocus);
        stop = sorted ? heading : stop;
    }
    if (stop)
        stop->setFocusPolicy(Qt::TabFocus);
}

void ColumnHeadings::choose(const ColumnHeading &heading)
{
    const bool turns = heading.key() == m_sort.key;
    setSort({heading.key(),
        turns ? ListSortMenu::turned(m_sort.order) : ListSortMenu::usualOrder(heading.key())});
    Q_EMIT sortChosen(m_sort);
}

void ColumnHeadings::follow(QAbstractScrollArea *list)
{
    m_list = list;
    list->viewport()->installEventFilter(this);
    place();
}

QSize ColumnHeadings::sizeHint() const
{
    int height = KLiteStyle::dpiScaled(look::RowHeight);
    for (const ColumnHeading *heading : m_headings)
        height = qMax(height, heading->sizeHint().height());
    return {KLiteStyle::dpiScaled(200), height};
}

// Like a row of the list, whose scroll bar may take a part of the page's column.
QRect ColumnHeadings::rowArea() const
{
    const QRect column = zel::contentRect({0, 0, m_list ? m_list->width() : width(), height()});
    if (!m_list)
        return column;
    const QWidget *rows = m_list->viewport();
    const int left = mapFromGlobal(rows->mapToGlobal(QPoint())).x();
    return (column & QRect(0, 0, rows->width(), height())).translated(left, 0);
}

void ColumnHeadings::place()
{
    const QRect row = rowArea();
    const RowMetrics sizes = RowFonts(font()).sizes;
    const int padding = ColumnHeading::sidePadding();
    const bool wide = RowCell::isWide(row.width(), sizes, m_columns);
    const RowCell cell = RowCell::oneLine(row, sizes, {row.width()}, m_columns);
    int x = cell.name.left() - padding;
    for (int i = 0; i < m_headings.size(); ++i) {
        ColumnHeading *heading = m_headings.at(i);
        heading->setAtEnd(wide && i > 0 && m_columns.at(i - 1) == RowColumn::Size);
        const QRect column = i == 0 ? cell.name : cell.columns[i - 1];
        const int wanted = qMin(heading->sizeHint().width(), qMax(0, row.right() + 1 - x));
        const QRect place = wide ? column.adjusted(-padding, 0, padding, 0) : QRect(x, 0, wanted, height());
        heading->setGeometry(place.left(), 0, place.width(), height());
        x += wanted;
    }
}

void ColumnHeadings::resizeEvent(QResizeEvent *)
{
    place();
}

void ColumnHeadings::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        place();
    }
}

bool ColumnHeadings::eventFilter(QObject *watched, QEvent *event)
{
    const auto heading = std::find(m_headings.cbegin(), m_headings.cend(), watched); // else the list's rows
    if (heading != m_headings.cend() && event->type() == QEvent::KeyPress)
        return step(int(heading - m_headings.cbegin()), static_cast<QKeyEvent *>(event)->key());
    if (heading == m_headings.cend() && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

bool ColumnHeadings::step(int from, int key)
{
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_headings.at(from)->click();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int to = from + ((key == Qt::Key_Right) == leftToRight ? 1 : -1);
        m_headings.at(qBound(0, to, m_headings.size() - 1))->setFocus(Qt::TabFocusReason);
        return true;
    }
    default:
        return false;
    }
}

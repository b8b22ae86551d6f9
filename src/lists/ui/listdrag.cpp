#include "lists/ui/listdrag.h"

#include "lists/ui/listrowdelegate.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace {
constexpr int Moment = 800; // ms; shorter, and folders would open that a drag merely passes
} // namespace

bool ListCargo::canDrag(const QModelIndex &row) const
{
    return row.isValid();
}

std::unique_ptr<QMimeData> ListCargo::dragData(const QModelIndexList &) const
{
    return nullptr;
}

Qt::DropActions ListCargo::dragActions() const
{
    return Qt::CopyAction | Qt::LinkAction;
}

bool ListCargo::acceptDrop(QDropEvent *, const QModelIndex &)
{
    return false;
}

bool ListCargo::rowsTakeDrops() const
{
    return false;
}

void ListCargo::dropInto(const QModelIndex &, QDropEvent *) { }

void ListCargo::runDrag(QWidget *list, const ListRowDelegate &delegate, const QModelIndexList &rows,
    const QModelIndex &pressed, Qt::DropActions actions) const
{
    QModelIndexList going;
    std::copy_if(rows.cbegin(), rows.cend(), std::back_inserter(going),
        [this](const QModelIndex &row) { return canDrag(row); });
    std::unique_ptr<QMimeData> data = going.isEmpty() ? nullptr : dragData(going);
    if (!data)
        return;
    const QModelIndex shown = going.contains(pressed) ? pressed : going.constFirst();
    auto *drag = new QDrag(list); // deletes itself
    drag->setPixmap(delegate.dragPixmap(shown, going.size(), list->font(), list->devicePixelRatioF()));
    drag->setHotSpot({-12, -8}); // beside the pointer, so that it hides no drop target
    drag->setMimeData(data.release());
    drag->exec(actions, Qt::CopyAction);
}

ListDropTarget::ListDropTarget(ListCargo *cargo) : m_cargo(cargo)
{
    m_lingering.setSingleShot(true);
    m_lingering.setInterval(Moment);
    connect(&m_lingering, &QTimer::timeout, this, [this] {
        if (m_row.isValid())
            Q_EMIT rowLingered(m_row);
    });
}

// Without an accepted begin no steps follow, and a row that takes it may come under the pointer.
void ListDropTarget::enter(QDropEvent *event, const QModelIndex &row, int offset)
{
    m_pos = {-1, -1};
    move(event, row, offset);
    if (m_cargo->rowsTakeDrops())
        event->setAccepted(true);
}

// Scrolling under a still pointer is the user's own; rows that go or slide are not.
QModelIndex ListDropTarget::meantRow(const QPoint &pos, const QModelIndex &row, int offset)
{
    const bool gone = m_pointsAtRow && !m_pointed.isValid();
    if (pos != m_pos || (offset != m_offset && !gone)) {
        m_pointed = row;
        m_pointsAtRow = row.isValid();
    }
    m_pos = pos;
    m_offset = offset;
    return m_pointed;
}

void ListDropTarget::move(QDropEvent *event, const QModelIndex &under, int offset)
{
    const QModelIndex row = meantRow(event->pos(), under, offset);
    const bool byRow = row.isValid() && m_cargo->rowsTakeDrops() && m_cargo->acceptDrop(event, row);
    const bool byList = !byRow && m_cargo->acceptDrop(event, {});
    set(byList, byRow ? row : QModelIndex());
    event->setAccepted(byRow || byList);
}

void ListDropTarget::drop(QDropEvent *event, const QModelIndex &row, int offset)
{
    move(event, row, offset);
    const QModelIndex into = m_row;
    leave();
    if (event->isAccepted())
        m_cargo->dropInto(into, event);
}

void ListDropTarget::set(bool list, const QModelIndex &row)
{
    if (m_list == list && m_row == row)
        return;
    m_list = list;
    m_row = row;
    if (row.isValid())
        m_lingering.start();
    else
        m_lingering.stop();
    Q_EMIT changed();
}

#include "lists/ui/listhover.h"

#include "lists/ui/sectionlistarea.h"

ListHover::Spot ListHover::buttonAt(const QPoint &pos) const
{
    const QModelIndex row = m_list->indexAt(pos);
    const ListRowDelegate *delegate = m_list->rowDelegate();
    if (!row.isValid() || !delegate)
        return {};
    return {row, delegate->buttonAt(m_list->rowOption(row), row, pos)};
}

QPoint ListHover::below(const Spot &spot) const
{
    const ListRowOption option = m_list->rowOption(spot.row);
    const QRect rect = m_list->rowDelegate()->buttonRect(option, spot.row, spot.button);
    return m_list->viewport()->mapToGlobal(rect.bottomLeft() + QPoint(0, 1));
}

// The row comes first: it has buttons because the pointer is there.
bool ListHover::moveTo(const QPoint &pos)
{
    const bool changed = setRow(m_list->indexAt(pos));
    setSpot(buttonAt(pos));
    return changed;
}

bool ListHover::leave()
{
    setSpot({});
    return setRow({});
}

bool ListHover::setRow(const QModelIndex &row)
{
    if (m_row == row)
        return false;
    m_list->updateRow(m_row);
    m_row = row;
    m_list->updateRow(m_row);
    return true;
}

void ListHover::setSpot(const Spot &spot)
{
    if (m_spot == spot)
        return;
    m_list->updateRow(m_spot.row);
    m_spot = spot;
    m_list->updateRow(m_spot.row);
}

void ListHover::press(const Spot &spot)
{
    m_pressed = spot;
    if (!spot.isButton())
        return;
    setSpot(spot);
    m_list->updateRow(spot.row);
}

ListHover::Spot ListHover::release()
{
    const Spot pressed = std::exchange(m_pressed, {});
    m_list->updateRow(pressed.row);
    return pressed;
}

void ListHover::fill(ListRowOption *option, const QModelIndex &row) const
{
    option->hovered = m_spot.row == row ? m_spot.button : ListRowOption::NoButton;
    option->pressed = m_pressed.row == row ? m_pressed.button : ListRowOption::NoButton;
}

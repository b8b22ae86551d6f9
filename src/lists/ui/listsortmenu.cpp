#include "lists/ui/listsortmenu.h"

#include <QActionGroup>

using zel::ListSort;

ListSortMenu::ListSortMenu(QWidget *parent)
    : QMenu(parent), m_keys(new QActionGroup(this)), m_directions(new QActionGroup(this))
{
    setAccessibleName(tr("Order of the list"));
    m_separator = addSeparator();
    m_usual = addDirection(true);
    m_other = addDirection(false);
}

QAction *ListSortMenu::addDirection(bool usual)
{
    QAction *action = m_directions->addAction(addAction(QString(), this, [this, usual] {
        const Qt::SortOrder order = usualOrder(m_sort.key);
        choose({m_sort.key, usual ? order : turned(order)});
    }));
    action->setCheckable(true);
    return action;
}

void ListSortMenu::addKey(Key key, const QString &text)
{
    auto *action = new QAction(text, m_keys);
    action->setCheckable(true);
    action->setData(int(key));
    insertAction(m_separator, action);
    connect(action, &QAction::triggered, this, [this, key] {
        choose({key, key == m_sort.key ? m_sort.order : usualOrder(key)});
    });
}

void ListSortMenu::choose(const ListSort &sort)
{
    setSort(sort);
    Q_EMIT sortChosen(sort);
}

void ListSortMenu::setSort(const ListSort &sort)
{
    m_sort = sort;
    const auto keys = m_keys->actions();
    for (QAction *action : keys)
        action->setChecked(action->data().toInt() == int(sort.key));
    const Qt::SortOrder usual = usualOrder(sort.key);
    m_usual->setText(orderText({sort.key, usual}));
    m_other->setText(orderText({sort.key, turned(usual)}));
    (sort.order == usual ? m_usual : m_other)->setChecked(true);
}

Qt::SortOrder ListSortMenu::turned(Qt::SortOrder order)
{
    return order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
}

Qt::SortOrder ListSortMenu::usualOrder(Key key)
{
    return key == Key::Time || key == Key::Size ? Qt::DescendingOrder : Qt::AscendingOrder;
}

QString ListSortMenu::orderText(const ListSort &sort)
{
    const bool ascending = sort.order == Qt::AscendingOrder;
    switch (sort.key) {
    case Key::Time:
        return ascending ? tr("Oldest first") : tr("Newest first");
    case Key::Size:
        return ascending ? tr("Smallest first") : tr("Largest first");
    case Key::Name:
    case Key::Type:
        break;
    }
    return ascending ? tr("A to Z") : tr("Z to A");
}

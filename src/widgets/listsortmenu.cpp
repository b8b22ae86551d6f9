#include "widgets/listsortmenu.h"

#include <QActionGroup>

namespace {

Qt::SortOrder turned(Qt::SortOrder order)
{
    return order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
}

} // namespace

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
        const Qt::SortOrder order = usualOrder(kindOf(m_key));
        choose(m_key, usual ? order : turned(order));
    }));
    action->setCheckable(true);
    return action;
}

void ListSortMenu::addKey(int key, Kind kind, const QString &text)
{
    m_kinds.insert(key, kind);
    auto *action = new QAction(text, m_keys);
    action->setCheckable(true);
    action->setData(key);
    insertAction(m_separator, action);
    connect(action, &QAction::triggered, this,
        [this, key] { choose(key, key == m_key ? m_order : usualOrder(kindOf(key))); });
}

ListSortMenu::Kind ListSortMenu::kindOf(int key) const
{
    return m_kinds.value(key, Kind::Text);
}

void ListSortMenu::choose(int key, Qt::SortOrder order)
{
    setSort(key, order);
    Q_EMIT chosen(key, order);
}

void ListSortMenu::setSort(int key, Qt::SortOrder order)
{
    m_key = key;
    m_order = order;
    const auto keys = m_keys->actions();
    for (QAction *action : keys)
        action->setChecked(action->data().toInt() == key);
    const Kind kind = kindOf(key);
    m_usual->setText(orderText(kind, usualOrder(kind)));
    m_other->setText(orderText(kind, turned(usualOrder(kind))));
    (order == usualOrder(kind) ? m_usual : m_other)->setChecked(true);
}

Qt::SortOrder ListSortMenu::usualOrder(Kind kind)
{
    return kind == Kind::Text ? Qt::AscendingOrder : Qt::DescendingOrder;
}

QString ListSortMenu::orderText(Kind kind, Qt::SortOrder order)
{
    const bool ascending = order == Qt::AscendingOrder;
    switch (kind) {
    case Kind::Time:
        return ascending ? tr("Oldest first") : tr("Newest first");
    case Kind::Size:
        return ascending ? tr("Smallest first") : tr("Largest first");
    case Kind::Text:
        break;
    }
    return ascending ? tr("A to Z") : tr("Z to A");
}

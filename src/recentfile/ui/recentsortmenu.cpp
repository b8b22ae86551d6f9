#include "recentfile/ui/recentsortmenu.h"

#include <QActionGroup>

using Key = RecentSort::Key;

// The order that a person means by naming the key alone.
static Qt::SortOrder usualOrder(Key key)
{
    return key == Key::Time || key == Key::Size ? Qt::DescendingOrder : Qt::AscendingOrder;
}

RecentSortMenu::RecentSortMenu(QWidget *parent) : QMenu(parent), m_keys(new QActionGroup(this))
{
    setAccessibleName(tr("Order of the list"));
    const auto addKey = [this](Key key, const QString &text) {
        QAction *action = m_keys->addAction(addAction(text, this, [this, key] { chooseKey(key); }));
        action->setCheckable(true);
        action->setData(int(key));
    };
    addKey(Key::Time, tr("Last opened"));
    addKey(Key::Name, tr("Name"));
    addKey(Key::Size, tr("Size"));
    addKey(Key::Type, tr("Type"));
    addSeparator();
    auto *orders = new QActionGroup(this);
    const auto addOrder = [&](bool usual) {
        QAction *action = orders->addAction(addAction(QString(), this, [this, usual] {
            const Qt::SortOrder order = usualOrder(m_sort.key);
            chooseOrder(usual ? order : Qt::SortOrder(1 - order));
        }));
        action->setCheckable(true);
        return action;
    };
    m_forward = addOrder(true);
    m_backward = addOrder(false);
    update();
}

void RecentSortMenu::setSort(const RecentSort &sort)
{
    m_sort = sort;
    update();
}

void RecentSortMenu::chooseKey(Key key)
{
    if (key != m_sort.key)
        m_sort = {key, usualOrder(key)};
    update();
    Q_EMIT sortChosen(m_sort);
}

void RecentSortMenu::chooseOrder(Qt::SortOrder order)
{
    m_sort.order = order;
    update();
    Q_EMIT sortChosen(m_sort);
}

void RecentSortMenu::update()
{
    const auto keys = m_keys->actions();
    for (QAction *action : keys)
        action->setChecked(action->data().toInt() == int(m_sort.key));
    switch (m_sort.key) {
    case Key::Time:
        m_forward->setText(tr("Newest first"));
        m_backward->setText(tr("Oldest first"));
        break;
    case Key::Size:
        m_forward->setText(tr("Largest first"));
        m_backward->setText(tr("Smallest first"));
        break;
    case Key::Name:
    case Key::Type:
        m_forward->setText(tr("A to Z"));
        m_backward->setText(tr("Z to A"));
        break;
    }
    const bool usual = m_sort.order == usualOrder(m_sort.key);
    (usual ? m_forward : m_backward)->setChecked(true);
}

#include "clouddoc/ui/cloudsortmenu.h"

#include <QActionGroup>

using Key = CloudSort::Key;

// The order that a person means by naming the key alone.
static Qt::SortOrder usualOrder(Key key)
{
    return key == Key::Time || key == Key::Size ? Qt::DescendingOrder : Qt::AscendingOrder;
}

CloudSortMenu::CloudSortMenu(QWidget *parent) : QMenu(parent), m_keys(new QActionGroup(this))
{
    setAccessibleName(tr("Order of the list"));
    const auto addKey = [this](Key key, const QString &text) {
        QAction *action = m_keys->addAction(addAction(text, this, [this, key] {
            choose({key, key == m_sort.key ? m_sort.order : usualOrder(key)});
        }));
        action->setCheckable(true);
        action->setData(int(key));
    };
    addKey(Key::Name, tr("Name"));
    addKey(Key::Time, tr("Last modified"));
    addKey(Key::Size, tr("Size"));
    addKey(Key::Type, tr("Type"));
    addSeparator();
    auto *orders = new QActionGroup(this);
    const auto addOrder = [&](bool usual) {
        QAction *action = orders->addAction(addAction(QString(), this, [this, usual] {
            const Qt::SortOrder order = usualOrder(m_sort.key);
            choose({m_sort.key, usual ? order : Qt::SortOrder(1 - order)});
        }));
        action->setCheckable(true);
        return action;
    };
    m_forward = addOrder(true);
    m_backward = addOrder(false);
    update();
}

void CloudSortMenu::setSort(const CloudSort &sort)
{
    m_sort = sort;
    update();
}

void CloudSortMenu::choose(const CloudSort &sort)
{
    setSort(sort);
    Q_EMIT sortChosen(sort);
}

void CloudSortMenu::update()
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
    (m_sort.order == usualOrder(m_sort.key) ? m_forward : m_backward)->setChecked(true);
}

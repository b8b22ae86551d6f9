#include "recentfile/ui/recentsortmenu.h"

using Key = zel::ListSort::Key;

RecentSortMenu::RecentSortMenu(QWidget *parent) : ListSortMenu(parent)
{
    addKey(int(Key::Time), Kind::Time, tr("Last opened"));
    addKey(int(Key::Name), Kind::Text, tr("Name"));
    addKey(int(Key::Size), Kind::Size, tr("Size"));
    addKey(int(Key::Type), Kind::Text, tr("Type"));
    setSort(zel::ListSort());
    connect(this, &ListSortMenu::chosen, this, [this](int key, Qt::SortOrder order) {
        Q_EMIT sortChosen({Key(key), order});
    });
}

void RecentSortMenu::setSort(const zel::ListSort &sort)
{
    ListSortMenu::setSort(int(sort.key), sort.order);
}

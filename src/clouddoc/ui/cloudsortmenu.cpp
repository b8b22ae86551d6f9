#include "clouddoc/ui/cloudsortmenu.h"

using Key = zel::ListSort::Key;

CloudSortMenu::CloudSortMenu(QWidget *parent) : ListSortMenu(parent)
{
    addKey(int(Key::Name), Kind::Text, tr("Name"));
    addKey(int(Key::Time), Kind::Time, tr("Last modified"));
    addKey(int(Key::Size), Kind::Size, tr("Size"));
    addKey(int(Key::Type), Kind::Text, tr("Type"));
    setSort({Key::Name, Qt::AscendingOrder});
    connect(this, &ListSortMenu::chosen, this, [this](int key, Qt::SortOrder order) {
        Q_EMIT sortChosen({Key(key), order});
    });
}

void CloudSortMenu::setSort(const zel::ListSort &sort)
{
    ListSortMenu::setSort(int(sort.key), sort.order);
}

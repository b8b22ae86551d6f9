#include "clouddoc/ui/cloudsortmenu.h"

CloudSortMenu::CloudSortMenu(QWidget *parent) : ListSortMenu(parent)
{
    addKey(Key::Name, tr("Name"));
    addKey(Key::Time, tr("Last modified"));
    addKey(Key::Size, tr("Size"));
    addKey(Key::Type, tr("Type"));
    setSort({Key::Name, Qt::AscendingOrder});
}

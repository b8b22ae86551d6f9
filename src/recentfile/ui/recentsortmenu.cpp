#include "recentfile/ui/recentsortmenu.h"

RecentSortMenu::RecentSortMenu(QWidget *parent) : ListSortMenu(parent)
{
    addKey(Key::Time, tr("Last opened"));
    addKey(Key::Name, tr("Name"));
    addKey(Key::Size, tr("Size"));
    addKey(Key::Type, tr("Type"));
    setSort({});
}

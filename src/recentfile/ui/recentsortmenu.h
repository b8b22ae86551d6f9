#pragma once

#include "lists/ui/listsortmenu.h"

/// The menu that chooses the order of the recent list. GUI thread.
class RecentSortMenu : public ListSortMenu
{
    Q_OBJECT
public:
    explicit RecentSortMenu(QWidget *parent = nullptr);
};

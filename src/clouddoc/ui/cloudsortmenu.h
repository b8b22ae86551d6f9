#pragma once

#include "lists/ui/listsortmenu.h"

/// The menu that chooses the order of the cloud documents. GUI thread.
class CloudSortMenu : public ListSortMenu
{
    Q_OBJECT
public:
    explicit CloudSortMenu(QWidget *parent = nullptr);
};

#pragma once

#include "lists/listsort.h"
#include "widgets/listsortmenu.h"

/// The menu that chooses the order of the recent list. GUI thread.
class RecentSortMenu : public ListSortMenu
{
    Q_OBJECT
public:
    explicit RecentSortMenu(QWidget *parent = nullptr);

    void setSort(const zel::ListSort &sort); ///< shows it; emits nothing

Q_SIGNALS:
    void sortChosen(const zel::ListSort &sort);
};

#pragma once

#include "recentfile/recentfilter.h"
#include "widgets/listsortmenu.h"

/// The menu that chooses the order of the recent list. GUI thread.
class RecentSortMenu : public ListSortMenu
{
    Q_OBJECT
public:
    explicit RecentSortMenu(QWidget *parent = nullptr);

    void setSort(const RecentSort &sort); ///< shows it; emits nothing

Q_SIGNALS:
    void sortChosen(const RecentSort &sort);
};

#pragma once

#include "clouddoc/clouddocorder.h"
#include "widgets/listsortmenu.h"

/// The menu that chooses the order of the cloud documents. GUI thread.
class CloudSortMenu : public ListSortMenu
{
    Q_OBJECT
public:
    explicit CloudSortMenu(QWidget *parent = nullptr);

    void setSort(const zel::ListSort &sort); ///< shows it; emits nothing

Q_SIGNALS:
    void sortChosen(const zel::ListSort &sort);
};

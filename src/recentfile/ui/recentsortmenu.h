#pragma once

#include "recentfile/recentfilter.h"

#include <QMenu>

class QActionGroup;

/// The menu that chooses the order of the list. GUI thread.
class RecentSortMenu : public QMenu
{
    Q_OBJECT
public:
    explicit RecentSortMenu(QWidget *parent = nullptr);

    void setSort(const RecentSort &sort); ///< shows it; emits nothing
    RecentSort sort() const { return m_sort; }

Q_SIGNALS:
    void sortChosen(const RecentSort &sort);

private:
    void chooseKey(RecentSort::Key key);
    void chooseOrder(Qt::SortOrder order);
    void update();

    RecentSort m_sort;
    QActionGroup *m_keys;
    QAction *m_forward; // as one expects of the key: newest, A, largest first
    QAction *m_backward;
};

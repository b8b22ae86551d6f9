#pragma once

#include "clouddoc/clouddocorder.h"

#include <QMenu>

class QActionGroup;

/// The menu that chooses the order of the list. GUI thread.
class CloudSortMenu : public QMenu
{
    Q_OBJECT
public:
    explicit CloudSortMenu(QWidget *parent = nullptr);

    void setSort(const CloudSort &sort); ///< shows it; emits nothing
    CloudSort sort() const { return m_sort; }

Q_SIGNALS:
    void sortChosen(const CloudSort &sort);

private:
    void choose(const CloudSort &sort);
    void update();

    CloudSort m_sort;
    QActionGroup *m_keys;
    QAction *m_forward; // as one expects of the key: A, newest, largest first
    QAction *m_backward;
};

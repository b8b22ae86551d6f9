#pragma once

#include "lists/listsort.h"

#include <QMenu>

class QActionGroup;

/// The menu that chooses the order of a list: the keys to sort by, and below them the two directions in the
/// words of the chosen key ("Newest first", "A to Z"). GUI thread.
class ListSortMenu : public QMenu
{
    Q_OBJECT
public:
    using Key = zel::ListSort::Key;

    explicit ListSortMenu(QWidget *parent = nullptr);

    void addKey(Key key, const QString &text); ///< in the order of the calls; before the first setSort()
    void setSort(const zel::ListSort &sort);   ///< shows it; emits nothing

    static Qt::SortOrder usualOrder(Key key); ///< the one that a person means by naming the key alone
    static Qt::SortOrder turned(Qt::SortOrder order);
    static QString orderText(const zel::ListSort &sort); ///< "Newest first"

Q_SIGNALS:
    void sortChosen(const zel::ListSort &sort); ///< another key comes in its usual direction

private:
    void choose(const zel::ListSort &sort);
    QAction *addDirection(bool usual);

    QActionGroup *m_keys;
    QActionGroup *m_directions;
    QAction *m_separator;
    QAction *m_usual; ///< as one expects of the key: newest, A, largest first
    QAction *m_other;
    zel::ListSort m_sort;
};

#pragma once

#include <QMenu>

class QActionGroup;

/// The menu that chooses the order of a list: the keys to sort by, and below them the two directions in the
/// words of the chosen key ("Newest first", "A to Z"). GUI thread.
class ListSortMenu : public QMenu
{
    Q_OBJECT
public:
    enum class Kind { Time, Text, Size }; ///< of what a key compares: its words and its usual direction

    explicit ListSortMenu(QWidget *parent = nullptr);

    /// In the order of the calls; before the first setSort(). `key` is the caller's own number.
    void addKey(int key, Kind kind, const QString &text);
    void setSort(int key, Qt::SortOrder order); ///< shows it; emits nothing

    static Qt::SortOrder usualOrder(Kind kind); ///< the one that a person means by naming the key alone
    static QString orderText(Kind kind, Qt::SortOrder order); ///< "Newest first"

Q_SIGNALS:
    void chosen(int key, Qt::SortOrder order); ///< another key comes in its usual direction

private:
    Kind kindOf(int key) const;
    void choose(int key, Qt::SortOrder order);
    QAction *addDirection(bool usual);

    QHash<int, Kind> m_kinds;
    QActionGroup *m_keys;
    QActionGroup *m_directions;
    QAction *m_separator;
    QAction *m_usual; ///< as one expects of the key: newest, A, largest first
    QAction *m_other;
    int m_key = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

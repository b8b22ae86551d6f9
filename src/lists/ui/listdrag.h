#pragma once

#include <QModelIndexList>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QTimer>
#include <memory>

class ListRowDelegate;
class QDropEvent;
class QMimeData;
class QWidget;

/// What of a list can be dragged out, and what can be dropped into it. A page says so by deriving from it.
class ListCargo
{
public:
    virtual ~ListCargo() = default;

    virtual bool canDrag(const QModelIndex &row) const; ///< here: every row
    /// What these rows are for others; null for nothing.
    virtual std::unique_ptr<QMimeData> dragData(const QModelIndexList &rows) const;
    virtual Qt::DropActions dragActions() const; ///< here: copies and links
    /// Whether what is dragged may be dropped into `row`, or with an invalid one into all that the list
    /// shows. Accepts the event with the action when it may, does nothing else. Asked at each step of the
    /// drag.
    virtual bool acceptDrop(QDropEvent *event, const QModelIndex &row);
    virtual bool rowsTakeDrops() const; ///< else acceptDrop() is asked for the whole list only; here: no
    virtual void dropInto(const QModelIndex &row, QDropEvent *event); ///< after acceptDrop()

    /// Drags those of `rows` that can be dragged until they fall; the pointer carries the pressed one.
    void runDrag(QWidget *list, const ListRowDelegate &delegate, const QModelIndexList &rows,
        const QModelIndex &pressed, Qt::DropActions actions) const;
};

/// Where what is dragged over a list would go: nowhere, into one row, or into all that the list shows. GUI
/// thread.
class ListDropTarget : public QObject
{
    Q_OBJECT
public:
    explicit ListDropTarget(ListCargo *cargo);

    /// Steps of a drag; `row` is under the pointer, in a list that is scrolled by `offset`. Accept or ignore
    /// the event. What comes under a pointer that stands still, as when a folder opens, is not meant.
    void enter(QDropEvent *event, const QModelIndex &row, int offset);
    void move(QDropEvent *event, const QModelIndex &row, int offset);
    void drop(QDropEvent *event, const QModelIndex &row, int offset);
    void leave() { set(false, {}); }

    bool isList() const { return m_list; }
    const QPersistentModelIndex &row() const { return m_row; }

Q_SIGNALS:
    void changed();
    void rowLingered(const QModelIndex &row); ///< the drag has stayed over it for a moment

private:
    void set(bool list, const QModelIndex &row);
    QModelIndex meantRow(const QPoint &pos, const QModelIndex &row, int offset);

    ListCargo *m_cargo;
    QPersistentModelIndex m_row;
    QPersistentModelIndex m_pointed; ///< what the pointer came to rest over
    QPoint m_pos{-1, -1};
    int m_offset = 0;
    bool m_pointsAtRow = false;
    QTimer m_lingering;
    bool m_list = false;
};

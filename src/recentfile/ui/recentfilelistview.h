#pragma once

#include "recentfile/ui/recentlistlayout.h"

#include <QAbstractItemView>
#include <QBasicTimer>
#include <QPersistentModelIndex>

class ZelBoxRecentFileModel;

/// The grouped list of the Recent page. GUI thread. Every place comes from RecentListLayout, so that nothing
/// depends on the number of rows; only rows that show are asked for data. The header of the topmost group
/// stays at the top edge. Enter, or a double click as doubleClicked(), is for opening; typing finds a name.
class ZelBoxRecentFileListView : public QAbstractItemView
{
    Q_OBJECT
public:
    explicit ZelBoxRecentFileListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override; ///< a ZelBoxRecentFileModel

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override; ///< invalid on headers
    void doItemsLayout() override;
    void reset() override;

Q_SIGNALS:
    void sigCurrentChanged(QModelIndex current, QModelIndex previous);
    void sigShareDoc(QPersistentModelIndex index);
    /// The rows that show have not changed for a moment, or the user has come back to them.
    void sigVisibleRowsSettled(int first, int last);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &) const override { return false; }
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

    void paintEvent(QPaintEvent *event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void relayout();
    void noteAnchor();
    void leaveMovingAnchor(int row);
    void restoreAfterReload();
    void setHover(const QModelIndex &index);
    void updateHover();
    void refreshDay();
    void settleSoon();
    int clampedRow(CursorAction action, int row) const;
    void paintRow(QPainter *painter, int row);
    void paintHeaders(QPainter *painter);
    void paintHeader(QPainter *painter, int group, int top);

    /// What the user was looking at when all rows went, to come back to when they return.
    struct Kept
    {
        QString currentId;
        QString anchorId;
        int anchorOffset = 0;
        bool selected = false;
    };

    ZelBoxRecentFileModel *m_model = nullptr;
    RecentListLayout m_layout;
    QPersistentModelIndex m_anchor; // row at the top edge; stays there when rows come and go above it
    int m_anchorOffset = 0;
    Kept m_kept;
    QPersistentModelIndex m_hover;
    QPersistentModelIndex m_pressed; // by the left button; the second half of a double click has to meet it
    QBasicTimer m_settle;
    bool m_layingOut = false;
    bool m_showFocusRing = false; // only for who works with the keyboard
    bool m_releaseEndsDoubleClick = false;
};

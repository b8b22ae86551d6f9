#pragma once

#include "recentfile/ui/recentlistlayout.h"
#include "recentfile/ui/recentlistmemory.h"
#include "recentfile/ui/recentrowtexts.h"

#include <QAbstractItemView>
#include <QBasicTimer>
#include <QPersistentModelIndex>
#include <QPointer>
#include <memory>

class KThumbnailCache;
class RecentSortFilterModel;
class ZelBoxRecentFileDelegate;

/// The list of the Recent page, in sections. GUI thread. Every place comes from RecentListLayout, so that
/// nothing depends on the number of rows; only rows that show are asked for data. The title of the topmost
/// section stays at the top edge. Enter, or a double click as doubleClicked(), is for opening. Menus are
/// asked for with customContextMenuRequested() in viewport coordinates, by keyboard at the current row.
class ZelBoxRecentFileListView : public QAbstractItemView
{
    Q_OBJECT
public:
    using Detail = RecentDetail;

    explicit ZelBoxRecentFileListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override; ///< a RecentSortFilterModel
    RecentSortFilterModel *recentModel() const { return m_model; }
    void setShownDetail(Detail detail);
    QModelIndexList selectedRows() const; ///< in the order of the rows

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override; ///< invalid on headers
    void doItemsLayout() override;
    void reset() override;
    void keyboardSearch(const QString &text) override; ///< sigTextTyped()
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    /// Asks for the menu of the current row, which is selected for it. Nothing without a current row.
    void requestMenuOfCurrent();

Q_SIGNALS:
    void sigCurrentChanged(QModelIndex current, QModelIndex previous);
    void sigShareDoc(QPersistentModelIndex index);
    void sigMoreRequested(QPersistentModelIndex index, QPoint globalPos);
    void sigRemoveRequested();     ///< of the selected rows, from the list
    void sigDeleteFileRequested(); ///< the files of the selected rows
    void sigCopyRequested();
    void sigOpenFolderRequested();                ///< of the current row
    void sigTextTyped(QString text);              ///< printable, to find by
    void sigFilesDropped(QStringList localPaths); ///< by another program; perhaps folders, too
    /// The rows that show have not changed for a moment, or the user has come back to them.
    void sigVisibleRowsSettled(QModelIndexList rows);

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
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    /// The selected rows' files that can be given to other programs; null when there are none.
    std::unique_ptr<QMimeData> dragData() const;

private:
    enum class Command { None, Open, OpenFolder, Remove, DeleteFile, Copy, Toggle, Menu };
    /// A row button, or none.
    struct ButtonSpot
    {
        QPersistentModelIndex row;
        int button = ListRowOption::NoButton;
        bool operator==(const ButtonSpot &other) const { return row == other.row && button == other.button; }
    };

    void connectModel();
    void relayout();
    void noteAnchor();
    void leaveMovingAnchor(int first, int last);
    void leaveOldOrder();
    void leaveRemovedRows(int start, int end);
    void restoreAfterReload();
    int clampedRow(CursorAction action, int row) const;
    std::pair<int, int> visibleRows() const;

    ZelBoxRecentFileDelegate *rowDelegate() const;
    ListRowOption rowOption(const QModelIndex &index) const;
    bool showsButtons(const QModelIndex &index) const;
    ButtonSpot buttonAt(const QPoint &point) const;
    void updateRow(const QModelIndex &index);
    void paintHeaders(QPainter *painter, const QRegion &region);
    void paintHead(QPainter *painter, const RecentListLayout::Head &head);
    void paintDropFrame(QPainter *painter);
    void followThumbnails();
    void onThumbnailLoaded(const QString &path);

    void setKeyboardLeads(bool leads);
    void setHover(const QModelIndex &index);
    void setHotButton(const ButtonSpot &spot);
    void updateHover();
    void clickButton(const ButtonSpot &spot);
    Command commandFor(const QKeyEvent &event) const;
    void run(Command command);
    void setDropFrame(bool shown);
    void refreshDay();
    void settleSoon();

    RecentSortFilterModel *m_model = nullptr;
    RecentListLayout m_layout;
    QPersistentModelIndex m_anchor; // row at the top edge; stays there when rows come and go above it
    int m_anchorOffset = 0;
    RecentListMemory m_memory;
    QString m_keptAnchorId; // over a reload
    int m_keptAnchorOffset = 0;
    QPersistentModelIndex m_hover;
    QPersistentModelIndex m_pressed; // by the left button; the second half of a double click has to meet it
    QPoint m_pressPos;
    ButtonSpot m_hotButton;
    ButtonSpot m_pressedButton;
    QPointer<KThumbnailCache> m_thumbnails;
    QBasicTimer m_settle;
    bool m_layingOut = false;
    bool m_keyboardLeads = false; // focus ring and row buttons are where the keyboard is
    bool m_releaseEndsDoubleClick = false;
    bool m_dropFrame = false;
};

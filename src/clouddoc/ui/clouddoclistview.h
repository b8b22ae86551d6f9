#pragma once

#include <QListView>
#include <QPersistentModelIndex>
#include <QSet>

class CloudDocDelegate;
class CloudDocModel;

/// The rows of one cloud folder. GUI thread. Uniform rows, so that nothing depends on how many there are.
/// activated() is for opening; menus are asked for with customContextMenuRequested() in viewport coordinates,
/// by keyboard at the current row. Files and items are dragged out and dropped here, onto a folder's row or
/// into the folder that is shown.
class CloudDocListView : public QListView
{
    Q_OBJECT
public:
    explicit CloudDocListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override; ///< a CloudDocModel
    CloudDocDelegate *rowDelegate() const { return m_delegate; }

    void setFolderId(const QString &id); ///< that is shown
    QStringList selectedIds() const;     ///< in the order of the rows
    int selectedCount() const;           ///< O(ranges)
    QString currentId() const;
    void selectIds(const QStringList &ids); ///< those that are here; the first becomes the current row
    /// Items that the user sends away: when the current one of them goes, the row after it is selected. When
    /// others take a row away nothing is, else the next key or an open menu would hit what nobody chose.
    void setLeaving(const QStringList &ids);
    void beginRename(const QModelIndex &index);
    bool isRenaming() const { return state() == EditingState; }

    void reset() override;

Q_SIGNALS:
    void sigItemsDropped(const QString &folderId, const QStringList &itemIds);
    void sigFilesDropped(const QString &folderId, const QStringList &localPaths);
    void sigUpRequested();
    void sigSelectionChanged();

protected:
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;

private:
    void requestMenuOfCurrent();
    void setKeyboardLeads(bool leads);
    QModelIndex dropRow(const QPoint &pos) const; ///< the folder under the pointer; invalid: none
    void setDropTarget(const QModelIndex &folder, bool whole);

    CloudDocModel *m_documents = nullptr;
    CloudDocDelegate *m_delegate;
    QString m_folderId;
    QSet<QString> m_leaving;
    QPersistentModelIndex m_dropRow;
    bool m_dropWhole = false;     // into the folder that is shown
    bool m_keyboardLeads = false; // the focus ring is shown
};

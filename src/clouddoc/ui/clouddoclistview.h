#pragma once

#include "lists/ui/sectionlistview.h"

class CloudDocDelegate;
class CloudDocModel;

/// The rows of one cloud folder. GUI thread. activated() is for opening, by a double click, too. Files and
/// items are dragged out and dropped here, onto a folder's row or into the folder that is shown.
class CloudDocListView : public SectionListView
{
    Q_OBJECT
public:
    explicit CloudDocListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override; ///< a CloudDocModel
    CloudDocDelegate *rowDelegate() const { return m_delegate; }
    void setFolderId(const QString &id); ///< that is shown

Q_SIGNALS:
    /// `fromFolder` is where they lie; the folder that is shown may have been opened during the drag.
    void itemsDropped(const QString &folderId, const QStringList &itemIds, const QString &fromFolder);
    void filesDropped(const QString &folderId, const QStringList &localPaths);
    void upRequested();
    void folderLingered(const QString &folderId); ///< a drag has stayed over it for a moment

protected:
    std::unique_ptr<QMimeData> dragData(const QModelIndexList &rows) const override;
    bool rowsTakeDrops() const override { return true; }
    bool acceptDrop(QDropEvent *event, const QModelIndex &row) override;
    void dropInto(const QModelIndex &row, QDropEvent *event) override;

private:
    CloudDocModel *m_documents = nullptr;
    CloudDocDelegate *m_delegate;
    QString m_folderId;
};

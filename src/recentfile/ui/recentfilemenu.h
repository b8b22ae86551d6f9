#pragma once

#include "kdocumentopener.h"

#include <QMenu>
#include <QPersistentModelIndex>

/// The menu of the rows that are selected. GUI thread. Its signals carry the row that it was opened on; the
/// page decides which other rows are meant with it.
class KRecentFileMenu : public QMenu
{
    Q_OBJECT
public:
    /// What can be done with the rows.
    struct Rows
    {
        int count = 1;
        bool haveFiles = true; ///< all of them, on this device
        bool canDelete = true;
        bool pinned = false; ///< all of them
        bool inCloud = false;
    };

    KRecentFileMenu(const QPersistentModelIndex &index, const Rows &rows, QWidget *parent = nullptr);

    /// Fills the submenu of programs; it says that it is looking for them until then.
    void setPrograms(const KProgramList &programs);

Q_SIGNALS:
    void openFile(QPersistentModelIndex index);
    void openFileWith(QPersistentModelIndex index, const QString &programId);
    void openFilePath(QPersistentModelIndex index);
    void removeRecord(QPersistentModelIndex index);
    void removeFile(QPersistentModelIndex index);
    void sigShareDoc(QPersistentModelIndex index, bool bFromMenu);
    void sigTipOffFile(QPersistentModelIndex index);
    void pinToggled(QPersistentModelIndex index, bool pinned);
    void copyFile(QPersistentModelIndex index);
    void copyPath(QPersistentModelIndex index);

public Q_SLOTS:
    void onOpenFileAction();
    void onShareDocAction();
    void onOpenFilePathAction();
    void onRemoveRecordAction();
    void onRemoveFileAction();
    void onTipOffFileAction();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addOpening(const Rows &rows);
    void addKeeping(const Rows &rows);
    void addRemoving(const Rows &rows);

    QPersistentModelIndex m_index;
    QMenu *m_programs = nullptr;
};

#pragma once

#include "kdocumentopener.h"
#include "recentfile/ui/recentactiontable.h"

#include <QMenu>
#include <QPersistentModelIndex>

class ListActions;
class ListModel;

/// The menu of the rows that are selected; its entries come from the page's table of actions. GUI thread. Its
/// signals carry the row that it was opened on, also after a reload; the page decides which other rows are
/// meant with it. The row's model outlives it.
class KRecentFileMenu : public QMenu
{
    Q_OBJECT
public:
    /// `rows` are those that are meant; `pinned`: all of them are.
    KRecentFileMenu(const QPersistentModelIndex &index, const ListActions &actions,
        const QModelIndexList &rows, bool pinned, QWidget *parent = nullptr);

    bool wantsPrograms() const; ///< there is a file to open with one
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
    void commandChosen(QPersistentModelIndex index, RecentCommand command); ///< any other

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
    QAction *entry(RecentCommand command) const; ///< null: not in this menu
    void choose(RecentCommand command);
    void addPrograms(QAction *entry);

    QPersistentModelIndex row() const;

    const ListModel *m_model;
    QString m_id;
    QMenu *m_programs = nullptr;
};

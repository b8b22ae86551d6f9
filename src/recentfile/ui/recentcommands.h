#pragma once

#include "krecentfile.h"
#include "recentfile/ui/recentactiontable.h"
#include "widgets/noticebar.h"

#include <QModelIndex>
#include <QPointer>
#include <QWidget>

class KRecentFileLogic;
class KRecentFileMenu;
class ListActions;
class NoticeArea;
class OpeningNotices;
class RecentFileActions;
class RecentSortFilterModel;
class UndoOffer;
class ZelBoxRecentFileListView;

/// What the commands of the Recent page do to which rows: the dialogs that they ask with, what is said
/// afterwards, and what takes them back. GUI thread. Rows are those of the view.
class RecentCommands : public QObject
{
    Q_OBJECT
public:
    /// Everything outlives it; `page` is its parent and that of the dialogs.
    RecentCommands(KRecentFileLogic *logic, RecentFileActions *actions, ZelBoxRecentFileListView *view,
        NoticeArea *notices, QWidget *page);

    void run(RecentCommand command, const QModelIndexList &rows);
    /// One row is opened whatever is known of it: a file may have come back.
    void open(const QModelIndexList &rows);
    void openWith(const QModelIndex &row, const QString &programId);
    QAction *action(RecentCommand command) const;
    /// The menu of these rows, asked for on one of them; deletes itself.
    KRecentFileMenu *makeMenu(const QModelIndex &row, const QModelIndexList &rows);
    const RecentFileInfo &recordAt(const QModelIndex &row) const;
    void addFiles(const QStringList &paths);
    void retire(); ///< the user does something else: notices go, and what was done stays done

Q_SIGNALS: // of single rows
    void openRequested(QPersistentModelIndex row);
    void folderRequested(QPersistentModelIndex row);
    void shareRequested(QPersistentModelIndex row);
    void otherRequested(QPersistentModelIndex row);

private:
    void bindOpening();
    void bindKeeping();
    void bindRemoving();
    void connectResults();
    RecordInfoList recordsOf(const QModelIndexList &rows) const;
    QStringList pathsOf(const QModelIndexList &rows) const;
    void openAll(const QModelIndexList &rows);
    void setPinned(const QModelIndexList &rows);
    void askToRemove(const QModelIndexList &rows);
    void remove(const RecordInfoList &records);
    void restore(const RecordInfoList &records);
    void askToDelete(const QModelIndexList &rows);
    void onFilesDeleted(const RecordInfoList &deleted, const RecordInfoList &failed);
    void offerUndoDelete(const QString &text, NoticeBar::Tone tone);
    void onFilesRestored(const RecordInfoList &restored, const RecordInfoList &failed);
    void onLeftOut(const QModelIndexList &rows);
    void share(const QModelIndex &row);
    void showShareDialog(const RecentFileInfo &record);
    void report(const QModelIndex &row);

    KRecentFileLogic *m_logic;
    RecentFileActions *m_actions;
    ZelBoxRecentFileListView *m_view;
    NoticeArea *m_notices;
    QWidget *m_page;
    NoticeBar *m_notice;
    ListActions *m_commands;
    UndoOffer *m_undo;
    OpeningNotices *m_openingNotices;
};

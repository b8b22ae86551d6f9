#pragma once

#include "recentfile/recentfileactions.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentguides.h"
#include "widgets/boxpage.h"

#include <QPersistentModelIndex>
#include <QStackedLayout>
#include <QTimer>
#include <QWidget>

class NoticeBar;
class KRecentFileMenu;
class LoadingOuttime;
class RecentFilterBar;
class ZelBoxRecentFileListView;
class ZelBoxRecentFileModel;
class ZelBoxRecentFileTitleWidget;

/// The Recent page: title strip, filter chips, notices, and below them one of five states. GUI thread. Owns
/// the models and gives the source one to the logic; loading begins with onWindowFirstShown(). Indexes in its
/// signals and slots are those of the view, unless said otherwise.
class ZelBoxRecentFileWidgetBase : public QWidget, public BoxPage
{
    Q_OBJECT
public:
    enum class State { Waiting, TimedOut, Empty, NothingFound, List };
    Q_ENUM(State)

    /// Outlived by `logic` and `actions`.
    ZelBoxRecentFileWidgetBase(
        KRecentFileLogic *logic, RecentFileActions *actions, QWidget *parent = nullptr);

    State state() const { return m_state; }
    ZelBoxRecentFileListView *view() const { return m_view; }
    KRecentFileMenu *openMenu() const; ///< the one that is on the screen; null when there is none

    // BoxPage
    void setFilterText(const QString &text) override;
    QWidget *focusTarget() override;
    void findEnded(bool toFirstRow) override;
    void setHost(BoxPageHost *host) override { m_host = host; }

Q_SIGNALS:
    void recentFileUnreadMsgCount(quint64 count); ///< 0 while the user does not want to be reminded
    void sigRecentFileItemOpen(QPersistentModelIndex index); ///< the user asked to open it
    void sigRecentFileItemOpenPath(QPersistentModelIndex index);
    void sigRecentFileItemShare(QPersistentModelIndex index);
    void sigRecentFileItemOtherMenuTriggered(QPersistentModelIndex index);
    void sigRecentFileMenuAboutToShow();
    void sigRecentFileMenuAboutToHide();
    void sigFeedBack();       ///< the user wants to tell that loading does not work
    void sigSettingsWanted(); ///< to sign in, or to switch roaming on

public Q_SLOTS:
    void onItemClicked(const QModelIndex &index);
    void onItemDoubleClicked(const QModelIndex &index);
    void onCustomContextMenuRequested(const QPoint &pos);
    void onMoreBtnCustomContextMenuRequested(const QPoint &globalPos); ///< for the current row
    void onMenuOpenFileAction(const QPersistentModelIndex &index);
    void onMenuOpenFilePathAction(const QPersistentModelIndex &index);
    void onMenuRemoveRecordAction(const QPersistentModelIndex &index);
    void onMenuRemoveFileAction(const QPersistentModelIndex &index);
    void onMenuTipOffFileAction(const QPersistentModelIndex &index);
    void onLoginStatusChanged(bool bLogin);
    void onRoamingStatusChanged(bool bAutoRoaming);
    void onNotifyNeedOpenRoaming();
    void onClearUnreadMsg();
    void onRowCountChanged(int rowCount);
    void onWindowReadyToShow();
    void onWindowFirstShown(); ///< starts the first load; later calls do nothing
    void onClickTimeout();
    void onShareDoc(const QPersistentModelIndex &index, bool bFromMenu);

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    KRecentFileLogic *logic() const { return m_logic; }

private:
    void layOut();
    void connectLogic();
    void connectView();
    void connectTitle();
    void connectActions();
    void applySort(const RecentSort &sort);
    void applyFilter();
    void clearFilter();
    void checkPresence(const QModelIndexList &rows);
    void tellUnread(quint64 count);

    QModelIndex toSource(const QModelIndex &index) const;
    const RecentFileInfo &recordAt(const QModelIndex &index) const;
    QModelIndexList rowsFor(const QModelIndex &index) const; ///< the selection, when it holds the row
    QModelIndex actedOn() const;
    RecordInfoList recordsFor(const QModelIndex &index) const;
    QStringList filesFor(const QModelIndex &index) const;
    void open(const QModelIndex &index);
    void openRows(const QModelIndexList &rows);
    void openWith(const QModelIndex &index, const QString &programId);
    void copyFiles(const QModelIndex &index);
    void copyPaths(const QModelIndex &index);
    void showMenu(const QModelIndex &index, const QPoint &globalPos);
    void connectMenu(KRecentFileMenu *menu);
    void showShareDialog(const RecentFileInfo &record);
    void onFilesDeleted(const RecordInfoList &deleted, const RecordInfoList &failed);
    void onFilesRestored(int restored, int failed);
    void openChosenFile();
    void showRoamingGuide();

    void beginWaiting();
    void onLoadingTimeout();
    void onRetry();
    void onFeedBack();
    void onOpenFailed(const QString &path, KRecentFileLogic::OpenProblem problem);
    State wantedState() const;
    void updateState();
    void setState(State state);
    void showListTools(bool shown);
    QWidget *widgetFor(State state);
    QWidget *makeWidget(State state);
    ZelBoxRecentFileEmptyGuideWidget::Reason emptyReason() const;
    void updateEmptyGuide();
    void tellShown();

    KRecentFileLogic *m_logic;
    RecentFileActions *m_actions;
    ZelBoxRecentFileModel *m_model;
    RecentSortFilterModel *m_rows; ///< m_model as the view shows it
    ZelBoxRecentFileTitleWidget *m_title;
    RecentFilterBar *m_filterBar;
    ZelBoxRecentFileRoamingGuideWidget *m_roamingGuide;
    NoticeBar *m_notice;
    NoticeBar *m_undo; ///< the offer to bring back, in a place of its own so that no notice takes it away
    ZelBoxRecentFileListView *m_view;
    QStackedLayout *m_stack;
    LoadingOuttime *m_outtime;
    QPointer<KRecentFileMenu> m_menu;
    QWidget *m_widgets[5] = {}; // by State; made when first shown
    BoxPageHost *m_host = nullptr;
    QString m_filterText;
    State m_state = State::Waiting;
    bool m_timedOut = false;
    bool m_pageShowToTell = false;
    bool m_listShowTold = false;
    bool m_roamingOn = true; // until the service says otherwise
    QPersistentModelIndex m_clicked;
    QTimer m_clickTimer; // a click counts as one only when no second follows
};

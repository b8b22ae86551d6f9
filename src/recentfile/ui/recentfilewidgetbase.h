#pragma once

#include "lists/ui/statestack.h"
#include "recentfile/recentfileactions.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/ui/recentactiontable.h"
#include "recentfile/ui/recentclicks.h"
#include "recentfile/ui/recentguides.h"
#include "widgets/boxpage.h"

#include <QPersistentModelIndex>
#include <QWidget>

class KRecentFileMenu;
class NoticeArea;
class RecentCommands;
class RecentFilterBar;
class RecentListing;
class RecentStates;
class ZelBoxRecentFileListView;
class ZelBoxRecentFileModel;
class ZelBoxRecentFileTitleWidget;

/// The Recent page: title strip, filter chips, and below them the list or why there is none. GUI thread. Owns
/// the models and gives the source one to the logic; loading begins with onWindowFirstShown(). What is done
/// with rows is the business of its RecentCommands. Indexes in its signals and slots are those of the view.
class ZelBoxRecentFileWidgetBase : public QWidget, public BoxPage
{
    Q_OBJECT
public:
    using State = StateStack::State;

    /// Outlived by `logic` and `actions`.
    ZelBoxRecentFileWidgetBase(
        KRecentFileLogic *logic, RecentFileActions *actions, QWidget *parent = nullptr);
    ~ZelBoxRecentFileWidgetBase() override;

    State state() const { return m_stack->state(); }
    ZelBoxRecentFileListView *view() const { return m_view; }
    KRecentFileMenu *openMenu() const; ///< the one that is on the screen; null when there is none

    // BoxPage
    void setFilterText(const QString &text) override;
    QWidget *focusTarget() override;
    void findEnded(bool toFirstRow) override;
    void setHost(BoxPageHost *host) override;
    void windowFirstShown() override { onWindowFirstShown(); }
    void windowReady() override { onWindowReadyToShow(); }
    void pageHidden() override;

Q_SIGNALS:
    void recentFileUnreadMsgCount(quint64 count); ///< 0 while the user does not want to be reminded
    void sigRecentFileItemOpen(QPersistentModelIndex index); ///< the user asked to open it
    void sigRecentFileItemOpenPath(QPersistentModelIndex index);
    void sigRecentFileItemShare(QPersistentModelIndex index);
    void sigRecentFileItemOtherMenuTriggered(QPersistentModelIndex index);
    void sigRecentFileMenuAboutToShow();
    void sigRecentFileMenuAboutToHide();
    void settingsRequested(); ///< to sign in, or to switch roaming on

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
    void connectCommands();
    void clearFilter();
    void checkPresence(const QModelIndexList &rows);
    void tellUnread(quint64 count);

    QModelIndexList rowsFor(const QModelIndex &index) const; ///< the selection, when it holds the row
    void run(RecentCommand command, const QModelIndex &index);
    void showMenu(const QModelIndex &index, const QPoint &globalPos);
    void connectMenu(KRecentFileMenu *menu);
    void openChosenFile();
    void showRoamingGuide();

    void onStateChanged();

    KRecentFileLogic *m_logic;
    RecentFileActions *m_actions;
    ZelBoxRecentFileModel *m_model;
    RecentSortFilterModel *m_rows; ///< m_model as the view shows it
    ZelBoxRecentFileTitleWidget *m_title;
    RecentFilterBar *m_filterBar;
    ZelBoxRecentFileListView *m_view;
    StateStack *m_stack;
    NoticeArea *m_notices;
    ZelBoxRecentFileRoamingGuideWidget *m_roamingGuide;
    RecentCommands *m_commands;
    RecentStates *m_states;
    RecentListing *m_listing;
    QPointer<KRecentFileMenu> m_menu;
    BoxPageHost *m_host = nullptr;
    RecentClicks m_clicks;
};

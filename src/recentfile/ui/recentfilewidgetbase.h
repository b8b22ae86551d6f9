#pragma once

#include "recentfile/recentfilelogic.h"

#include <QPersistentModelIndex>
#include <QStackedLayout>
#include <QTimer>
#include <QWidget>

class InlineNotice;
class LoadingOuttime;
class ZelBoxRecentFileListView;
class ZelBoxRecentFileModel;
class ZelBoxRecentFileTitleWidget;

/// The Recent page: title strip, notices, and below them one of four states. GUI thread. Owns the model and
/// gives it to the logic; loading begins with onWindowFirstShown().
class ZelBoxRecentFileWidgetBase : public QWidget
{
    Q_OBJECT
public:
    enum class State { Waiting, TimedOut, Empty, List };
    Q_ENUM(State)

    explicit ZelBoxRecentFileWidgetBase(
        KRecentFileLogic *logic, QWidget *parent = nullptr); ///< outlived by `logic`

    State state() const { return m_state; }
    ZelBoxRecentFileListView *view() const { return m_view; }

Q_SIGNALS:
    void recentFileUnreadMsgCount(quint64 count);
    void sigRecentFileItemOpen(QPersistentModelIndex index); ///< the user asked to open it
    void sigFeedBack(); ///< the user wants to tell that loading does not work

public Q_SLOTS:
    void onItemClicked(const QModelIndex &index);
    void onItemDoubleClicked(const QModelIndex &index);
    void onLoginStatusChanged(bool bLogin);
    void onClearUnreadMsg();
    void onRowCountChanged(int rowCount);
    void onWindowReadyToShow();
    void onWindowFirstShown(); ///< starts the first load; later calls do nothing
    void onClickTimeout();

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    KRecentFileLogic *logic() const { return m_logic; }

private:
    void connectLogic();
    void connectView();
    void open(const QModelIndex &index);
    void beginWaiting();
    void onLoadingTimeout();
    void onRetry();
    void onFeedBack();
    void onOpenFailed(const QString &path, KRecentFileLogic::OpenProblem problem);
    State wantedState() const;
    void updateState();
    void setState(State state);
    QWidget *widgetFor(State state);
    void tellShown();

    KRecentFileLogic *m_logic;
    ZelBoxRecentFileModel *m_model;
    ZelBoxRecentFileTitleWidget *m_title;
    InlineNotice *m_notice;
    ZelBoxRecentFileListView *m_view;
    QStackedLayout *m_stack;
    LoadingOuttime *m_outtime;
    QWidget *m_widgets[4] = {}; // by State; made when first shown
    State m_state = State::Waiting;
    bool m_timedOut = false;
    bool m_pageShowToTell = false;
    bool m_listShowTold = false;
    QPersistentModelIndex m_clicked;
    QTimer m_clickTimer; // a click counts as one only when no second follows
};

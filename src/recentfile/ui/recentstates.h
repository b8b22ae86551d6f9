#pragma once

#include "lists/ui/statestack.h"
#include "recentfile/ui/recentguides.h"

#include <QTimer>

class KRecentFileLogic;
class LoadingOuttime;
class RecentSortFilterModel;

/// Which state the Recent page is in, and what stands there instead of the list. GUI thread; child of the
/// stack.
class RecentStates : public QObject
{
    Q_OBJECT
public:
    using State = StateStack::State;

    /// All outlive it; the logic has to have its model.
    RecentStates(KRecentFileLogic *logic, const RecentSortFilterModel *rows, StateStack *stack);

    void waitFromNowOn(); ///< the time-out of a first load runs from now
    void update();        ///< looks at the logic and the rows
    void pageShown();     ///< to the user: telemetry
    void setRoamingOn(bool on);
    void updateGuide(); ///< the service was reached, or the login is another

Q_SIGNALS:
    void openFileRequested();
    void settingsRequested(); ///< to sign in, or to switch roaming on

private:
    QWidget *makeOuttime();
    QWidget *makeGuide();
    void beginWaiting();
    void onLoadingTimeout();
    void onRetry();
    void onFeedBack();
    State wanted() const;
    QString nothingFoundText() const;
    void tellShown();
    ZelBoxRecentFileEmptyGuideWidget::Reason emptyReason() const;

    KRecentFileLogic *m_logic;
    const RecentSortFilterModel *m_rows;
    StateStack *m_stack;
    LoadingOuttime *m_outtime;
    bool m_timedOut = false;
    bool m_roamingOn = true;
    bool m_pageShowToTell = false;
    QTimer m_loginPatience; ///< runs while that waits for who is signed in
    bool m_listShowTold = false;
};

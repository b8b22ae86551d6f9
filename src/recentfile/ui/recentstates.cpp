#include "recentfile/ui/recentstates.h"

#include "krt/krt.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/feedbackdialog.h"
#include "recentfile/ui/loadingouttime.h"

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;
using zel::recent::kindMask;

static constexpr std::chrono::seconds LoginPatience(10); // the service starts after the page is shown

RecentStates::RecentStates(KRecentFileLogic *logic, const RecentSortFilterModel *rows, StateStack *stack)
    : QObject(stack),
      m_logic(logic),
      m_rows(rows),
      m_stack(stack),
      m_outtime(new LoadingOuttime(zel::recent::loadingTimeout(), this))
{
    stack->setMaker(State::TimedOut, [this] { return makeOuttime(); });
    stack->setMaker(State::Empty, [this] { return makeGuide(); });
    using Logic = KRecentFileLogic;
    connect(m_logic, &Logic::needToWaitFirstLoading, this, &RecentStates::beginWaiting);
    connect(m_logic, &Logic::itemsBatchArrived, this, &RecentStates::update);
    connect(m_logic, &Logic::itemStateChanged, this, &RecentStates::update); // it may pass the filter no more
    connect(stack, &StateStack::stateChanged, this, [this] {
        if (m_stack->isVisible())
            tellShown();
    });
    m_loginPatience.setSingleShot(true);
    connect(&m_loginPatience, &QTimer::timeout, this, &RecentStates::tellShown);
    connect(m_logic, &Logic::loginTold, this, &RecentStates::tellShown);
    connect(m_outtime, &LoadingOuttime::sigTimeout, this, &RecentStates::onLoadingTimeout);
}

QWidget *RecentStates::makeOuttime()
{
    auto *outtime = new ZelBoxLoadingOuttimeWidget(m_stack);
    connect(outtime, &ZelBoxLoadingOuttimeWidget::retryRequested, this, &RecentStates::onRetry);
    connect(outtime, &ZelBoxLoadingOuttimeWidget::feedbackRequested, this, &RecentStates::onFeedBack);
    return outtime;
}

QWidget *RecentStates::makeGuide()
{
    using Guide = ZelBoxRecentFileEmptyGuideWidget;
    auto *guide = new Guide(m_stack);
    connect(guide, &Guide::openFileRequested, this, &RecentStates::openFileRequested);
    connect(guide, &Guide::loginRequested, this, &RecentStates::settingsRequested);
    connect(guide, &Guide::enableRoamingRequested, this, &RecentStates::settingsRequested);
    guide->setReason(emptyReason());
    return guide;
}

void RecentStates::waitFromNowOn()
{
    if (m_stack->state() == State::Waiting && kindMask() != 0)
        m_outtime->start();
}

void RecentStates::beginWaiting()
{
    m_timedOut = false;
    if (kindMask() != 0)
        m_outtime->start();
    update();
}

void RecentStates::onLoadingTimeout()
{
    m_timedOut = true;
    update();
    telemetry::post(Event::TimeoutShow);
}

void RecentStates::onRetry()
{
    telemetry::timeoutClicked(telemetry::TimeoutTarget::Redo);
    beginWaiting();
    m_logic->onUpdateRecentRoamingFileItemsWithSync();
    m_logic->loadAll();
}

void RecentStates::onFeedBack()
{
    telemetry::timeoutClicked(telemetry::TimeoutTarget::Feedback);
    auto *dialog = new FeedbackDialog(tr("The list of recent files could not be loaded yet."), m_stack);
    connect(dialog, &FeedbackDialog::logRequested, this,
        [this] { m_logic->opening()->reveal(krt::log::filePath()); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

RecentStates::State RecentStates::wanted() const
{
    if (kindMask() == 0) // nothing to wait for
        return State::Empty;
    // A sign-in loads at once what the store has, which may be nothing yet.
    const bool empty = m_logic->model()->rowCount() == 0;
    if (m_logic->isWaitingForFirstLoad() || (empty && !m_logic->isStoreReady()))
        return m_timedOut ? State::TimedOut : State::Waiting;
    if (empty)
        return State::Empty;
    return m_rows->rowCount() == 0 ? State::NothingFound : State::List;
}

void RecentStates::update()
{
    const State state = wanted();
    if (state != State::Waiting && state != State::TimedOut)
        m_outtime->stop();
    if (state == State::NothingFound)
        m_stack->setTexts(state, tr("Nothing found"), nothingFoundText());
    m_stack->setState(state);
}

QString RecentStates::nothingFoundText() const
{
    if (!m_rows->filter().kinds)
        return tr("No recent document has these words in its name or folder.");
    return m_rows->words().words().isEmpty()
        ? tr("No recent document is of this kind.")
        : tr("No recent document of this kind has these words in its name or folder.");
}

void RecentStates::pageShown()
{
    m_pageShowToTell = true;
    if (!m_logic->isLoginKnown())
        m_loginPatience.start(LoginPatience);
    tellShown();
}

// The page's own event carries the number of rows and who is signed in, so it waits until they are known.
void RecentStates::tellShown()
{
    const State state = m_stack->state();
    if (state == State::Waiting)
        return;
    if (m_logic->isLoginKnown())
        m_loginPatience.stop();
    if (!m_loginPatience.isActive() && std::exchange(m_pageShowToTell, false)) {
        const bool loggedIn = m_logic->isLoggedIn();
        const ZelBoxRecentFileModel *model = m_logic->model();
        telemetry::pageShown({loggedIn, loggedIn && m_roamingOn, model->unreadCount(), model->rowCount()});
    }
    if (state == State::List && !std::exchange(m_listShowTold, true))
        telemetry::post(Event::ListShow);
    if (state == State::Empty)
        telemetry::post(Event::EmptyPageShow);
}

void RecentStates::setRoamingOn(bool on)
{
    m_roamingOn = on;
    updateGuide();
}

// Until the service is there nobody knows who is logged in, and a button to sign in would only flash.
ZelBoxRecentFileEmptyGuideWidget::Reason RecentStates::emptyReason() const
{
    using Reason = ZelBoxRecentFileEmptyGuideWidget::Reason;
    if (!m_logic->isCloudReached())
        return Reason::NothingOpened;
    if (!m_logic->isLoggedIn())
        return Reason::NotLoggedIn;
    return m_roamingOn ? Reason::NothingOpened : Reason::RoamingOff;
}

void RecentStates::updateGuide()
{
    if (auto *guide = static_cast<ZelBoxRecentFileEmptyGuideWidget *>(m_stack->widgetOf(State::Empty)))
        guide->setReason(emptyReason());
}

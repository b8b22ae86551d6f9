#include "recentfile/ui/recentfilewidgetbase.h"

#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/loadingouttime.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentfilterbar.h"
#include "recentfile/ui/recentguides.h"
#include "widgets/loadingindicator.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

using namespace zel::recent;
using telemetry::Event;

ZelBoxRecentFileWidgetBase::ZelBoxRecentFileWidgetBase(
    KRecentFileLogic *logic, RecentFileActions *actions, QWidget *parent)
    : QWidget(parent),
      m_logic(logic),
      m_actions(actions),
      m_model(new ZelBoxRecentFileModel(this)),
      m_rows(new RecentSortFilterModel(this)),
      m_title(new ZelBoxRecentFileTitleWidget(this)),
      m_filterBar(new RecentFilterBar(this)),
      m_roamingGuide(new ZelBoxRecentFileRoamingGuideWidget(this)),
      m_notice(new NoticeBar(this)),
      m_undo(new NoticeBar(this)),
      m_view(new ZelBoxRecentFileListView(this)),
      m_stack(new QStackedLayout),
      m_outtime(new LoadingOuttime(loadingTimeout(), this))
{
    layOut();
    m_rows->setSourceModel(m_model);
    const RecentSort sort = storedSort();
    m_title->setSort(sort);
    applySort(sort);
    m_view->setModel(m_rows);
    m_logic->setModel(m_model);
    connectLogic();
    connectView();
    connectTitle();
    connectActions();
    m_title->onLoginStatusChanged(m_logic->isLoggedIn());
}

void ZelBoxRecentFileWidgetBase::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_filterBar);
    auto *notices = new QVBoxLayout;
    notices->setContentsMargins(KLiteStyle::dpiScaledMargins({12, 0, 12, 0}));
    notices->setSpacing(KLiteStyle::dpiScaled(6));
    notices->addWidget(m_roamingGuide);
    notices->addWidget(m_notice);
    notices->addWidget(m_undo);
    layout->addLayout(notices);
    layout->addLayout(m_stack, 1);
    m_widgets[int(State::List)] = m_view;
    m_stack->addWidget(m_view);
    m_stack->setCurrentWidget(widgetFor(m_state));
    showListTools(false);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
}

void ZelBoxRecentFileWidgetBase::connectLogic()
{
    using Logic = KRecentFileLogic;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_logic, &Logic::recentFileUnreadMsgCount, this, &Self::tellUnread);
    connect(m_logic, &Logic::needToWaitFirstLoading, this, &Self::beginWaiting);
    connect(m_logic, &Logic::itemsBatchArrived, this, &Self::updateState);
    connect(m_logic, &Logic::itemStateChanged, this, &Self::updateState); // it may pass the filter no more
    connect(m_logic, &Logic::openFailed, this, &Self::onOpenFailed);
    connect(m_model, &ZelBoxRecentFileModel::rowCountChanged, this, &Self::onRowCountChanged);
    connect(m_outtime, &LoadingOuttime::sigTimeout, this, &Self::onLoadingTimeout);
}

void ZelBoxRecentFileWidgetBase::connectTitle()
{
    using Title = ZelBoxRecentFileTitleWidget;
    using Self = ZelBoxRecentFileWidgetBase;
    using Guide = ZelBoxRecentFileRoamingGuideWidget;
    connect(m_title, &Title::clearUnreadMsg, this, &Self::onClearUnreadMsg);
    connect(m_filterBar, &RecentFilterBar::kindsChanged, this, &Self::applyFilter);
    connect(m_title, &Title::sortChosen, this, [this](const RecentSort &sort) {
        storeSort(sort);
        applySort(sort);
        m_view->scrollToTop();
    });
    connect(zel::recent::SettingsEvents::instance(), &zel::recent::SettingsEvents::remindersChanged, this,
        [this] { tellUnread(quint64(m_model->unreadCount())); });
    connect(m_title, &Title::refreshRequested, m_logic,
        &KRecentFileLogic::onUpdateRecentRoamingFileItemsWithSync);
    connect(m_title, &Title::roamingGuideWanted, this, &Self::showRoamingGuide);
    connect(m_title, &Title::needOpenRoaming, m_roamingGuide, &Guide::setNeeded);
    connect(m_roamingGuide, &Guide::explanationRequested, m_title, &Title::onRoamingGuideLinkClicked);
    connect(m_roamingGuide, &Guide::enableRoamingRequested, this, &Self::sigSettingsWanted);
    const auto shortcut = [this](const QKeySequence &keys, auto *receiver, auto slot) {
        auto *made = new QShortcut(keys, this);
        made->setContext(Qt::WidgetWithChildrenShortcut);
        connect(made, &QShortcut::activated, receiver, slot);
    };
    shortcut(QKeySequence::Refresh, m_logic, &KRecentFileLogic::onUpdateRecentRoamingFileItemsWithSync);
    shortcut(QKeySequence::Undo, m_undo, &NoticeBar::triggerAction);
}

void ZelBoxRecentFileWidgetBase::applySort(const RecentSort &sort)
{
    m_rows->setSort(sort);
    m_view->setShownDetail(sort.key == RecentSort::Key::Size ? ZelBoxRecentFileListView::Detail::Size
                                                             : ZelBoxRecentFileListView::Detail::Time);
    if (sort.key == RecentSort::Key::Size)
        m_actions->lookUpSizes();
}

void ZelBoxRecentFileWidgetBase::applyFilter()
{
    m_rows->setFilter({m_filterText, m_filterBar->kinds()});
    m_view->scrollToTop(); // the first hits are what was looked for
    updateState();
}

void ZelBoxRecentFileWidgetBase::clearFilter()
{
    setFilterText({});
    if (m_host)
        m_host->clearFilter();
    m_filterBar->chooseAll();
    m_view->setFocus(Qt::OtherFocusReason);
}

void ZelBoxRecentFileWidgetBase::setFilterText(const QString &text)
{
    if (std::exchange(m_filterText, text) != text)
        applyFilter();
}

QWidget *ZelBoxRecentFileWidgetBase::focusTarget()
{
    return m_stack->currentWidget();
}

void ZelBoxRecentFileWidgetBase::findEnded(bool toFirstRow)
{
    focusTarget()->setFocus(Qt::OtherFocusReason);
    if (toFirstRow && m_rows->rowCount() > 0)
        m_view->setCurrentIndex(m_rows->index(0));
}

KRecentFileMenu *ZelBoxRecentFileWidgetBase::openMenu() const
{
    return m_menu;
}

void ZelBoxRecentFileWidgetBase::onWindowFirstShown()
{
    if (m_state == State::Waiting && kindMask() != 0)
        m_outtime->start();
    m_logic->onWindowFirstShown();
    if (m_rows->sort().key == RecentSort::Key::Size)
        m_actions->lookUpSizes();
    updateState();
}

void ZelBoxRecentFileWidgetBase::onWindowReadyToShow()
{
    m_model->refreshDay();
}

void ZelBoxRecentFileWidgetBase::onLoginStatusChanged(bool bLogin)
{
    m_title->onLoginStatusChanged(bLogin);
    m_logic->onLoginStatusChanged(bLogin);
    updateState();
    updateEmptyGuide();
}

void ZelBoxRecentFileWidgetBase::onRoamingStatusChanged(bool bAutoRoaming)
{
    m_roamingOn = bAutoRoaming;
    if (bAutoRoaming)
        m_roamingGuide->setNeeded(false);
    else
        onNotifyNeedOpenRoaming();
    updateEmptyGuide();
}

void ZelBoxRecentFileWidgetBase::onNotifyNeedOpenRoaming()
{
    m_title->onNotifyNeedOpenRoaming();
}

void ZelBoxRecentFileWidgetBase::onClearUnreadMsg()
{
    m_logic->clearUnread();
}

void ZelBoxRecentFileWidgetBase::tellUnread(quint64 count)
{
    m_title->setUnreadCount(int(qMin<quint64>(count, INT_MAX)));
    Q_EMIT recentFileUnreadMsgCount(remindersOn() ? count : 0);
}

void ZelBoxRecentFileWidgetBase::onRowCountChanged(int)
{
    if (!m_logic->isReloading()) // else it is the count on the way from the old rows to the new ones
        updateState();
}

void ZelBoxRecentFileWidgetBase::beginWaiting()
{
    m_timedOut = false;
    if (kindMask() != 0)
        m_outtime->start();
    updateState();
}

void ZelBoxRecentFileWidgetBase::onLoadingTimeout()
{
    m_timedOut = true;
    updateState();
    telemetry::post(Event::TimeoutShow);
}

void ZelBoxRecentFileWidgetBase::onRetry()
{
    telemetry::timeoutClicked(telemetry::TimeoutTarget::Redo);
    beginWaiting();
    m_logic->onUpdateRecentRoamingFileItemsWithSync();
    m_logic->loadAll();
}

void ZelBoxRecentFileWidgetBase::onFeedBack()
{
    telemetry::timeoutClicked(telemetry::TimeoutTarget::Feedback);
    Q_EMIT sigFeedBack();
}

ZelBoxRecentFileWidgetBase::State ZelBoxRecentFileWidgetBase::wantedState() const
{
    if (kindMask() == 0) // nothing to wait for
        return State::Empty;
    // A sign-in loads at once what the store has, which may be nothing yet.
    const bool empty = m_model->rowCount() == 0;
    if (m_logic->isWaitingForFirstLoad() || (empty && !m_logic->isStoreReady()))
        return m_timedOut ? State::TimedOut : State::Waiting;
    if (empty)
        return State::Empty;
    return m_rows->rowCount() == 0 ? State::NothingFound : State::List;
}

void ZelBoxRecentFileWidgetBase::updateState()
{
    m_title->setCount(m_rows->rowCount());
    const State wanted = wantedState();
    if (wanted != State::Waiting && wanted != State::TimedOut)
        m_outtime->stop();
    setState(wanted);
}

void ZelBoxRecentFileWidgetBase::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    const QWidget *left = m_stack->currentWidget();
    const bool hadFocus =
        left == QApplication::focusWidget() || left->isAncestorOf(QApplication::focusWidget());
    showListTools(state == State::List || state == State::NothingFound);
    m_stack->setCurrentWidget(widgetFor(state));
    if (hadFocus) // else it would go to whatever comes next in the window
        focusTarget()->setFocus(Qt::OtherFocusReason);
    if (isVisible())
        tellShown();
}

// Where there is no list, there is nothing to find, to narrow or to order.
void ZelBoxRecentFileWidgetBase::showListTools(bool shown)
{
    m_filterBar->setVisible(shown);
    m_title->setListTools(shown);
}

QWidget *ZelBoxRecentFileWidgetBase::widgetFor(State state)
{
    QWidget *&widget = m_widgets[int(state)];
    if (!widget) {
        widget = makeWidget(state);
        m_stack->addWidget(widget);
    }
    return widget;
}

QWidget *ZelBoxRecentFileWidgetBase::makeWidget(State state)
{
    using Self = ZelBoxRecentFileWidgetBase;
    switch (state) {
    case State::Waiting:
        return new LoadingIndicator(tr("Loading recent files"), this);
    case State::TimedOut: {
        auto *outtime = new ZelBoxLoadingOuttimeWidget(this);
        connect(outtime, &ZelBoxLoadingOuttimeWidget::sigRetry, this, &Self::onRetry);
        connect(outtime, &ZelBoxLoadingOuttimeWidget::sigFeedBack, this, &Self::onFeedBack);
        return outtime;
    }
    case State::Empty: {
        using Guide = ZelBoxRecentFileEmptyGuideWidget;
        auto *guide = new Guide(this);
        connect(guide, &Guide::openFileRequested, this, &Self::openChosenFile);
        connect(guide, &Guide::loginRequested, this, &Self::sigSettingsWanted);
        connect(guide, &Guide::enableRoamingRequested, this, &Self::sigSettingsWanted);
        guide->setReason(emptyReason());
        return guide;
    }
    case State::NothingFound: {
        auto *nothing = new RecentNothingFoundWidget(this);
        connect(nothing, &RecentNothingFoundWidget::clearRequested, this, &Self::clearFilter);
        return nothing;
    }
    case State::List:
        break;
    }
    return m_view; // there from the beginning
}

// Until the service is there nobody knows who is logged in, and a button to sign in would only flash.
ZelBoxRecentFileEmptyGuideWidget::Reason ZelBoxRecentFileWidgetBase::emptyReason() const
{
    using Reason = ZelBoxRecentFileEmptyGuideWidget::Reason;
    if (!m_logic->isCloudReached())
        return Reason::NothingOpened;
    if (!m_logic->isLoggedIn())
        return Reason::NotLoggedIn;
    return m_roamingOn ? Reason::NothingOpened : Reason::RoamingOff;
}

void ZelBoxRecentFileWidgetBase::updateEmptyGuide()
{
    if (auto *guide = static_cast<ZelBoxRecentFileEmptyGuideWidget *>(m_widgets[int(State::Empty)]))
        guide->setReason(emptyReason());
}

void ZelBoxRecentFileWidgetBase::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_pageShowToTell = true;
    tellShown();
}

// The page's own event carries the number of rows, so it waits until they are known.
void ZelBoxRecentFileWidgetBase::tellShown()
{
    if (m_state == State::Waiting)
        return;
    if (std::exchange(m_pageShowToTell, false)) {
        const bool loggedIn = m_logic->isLoggedIn();
        telemetry::pageShown(
            {loggedIn, loggedIn && m_roamingOn, m_model->unreadCount(), m_model->rowCount()});
    }
    if (m_state == State::List && !std::exchange(m_listShowTold, true))
        telemetry::post(Event::ListShow);
    if (m_state == State::Empty)
        telemetry::post(Event::EmptyPageShow);
}

void ZelBoxRecentFileWidgetBase::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
}

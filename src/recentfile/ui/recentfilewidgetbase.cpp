#include "recentfile/ui/recentfilewidgetbase.h"

#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/inlinenotice.h"
#include "recentfile/ui/loadingindicator.h"
#include "recentfile/ui/loadingouttime.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

using namespace zel::recent;

ZelBoxRecentFileWidgetBase::ZelBoxRecentFileWidgetBase(KRecentFileLogic *logic, QWidget *parent)
    : QWidget(parent),
      m_logic(logic),
      m_model(new ZelBoxRecentFileModel(this)),
      m_title(new ZelBoxRecentFileTitleWidget(this)),
      m_notice(new InlineNotice(this)),
      m_view(new ZelBoxRecentFileListView(this)),
      m_stack(new QStackedLayout),
      m_outtime(new LoadingOuttime(loadingTimeout(), this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_title);
    auto *noticeRow = new QVBoxLayout;
    noticeRow->setContentsMargins(KLiteStyle::dpiScaledMargins({12, 0, 12, 0}));
    noticeRow->addWidget(m_notice);
    layout->addLayout(noticeRow);
    layout->addLayout(m_stack, 1);
    m_widgets[int(State::List)] = m_view;
    m_stack->addWidget(m_view);
    m_stack->setCurrentWidget(widgetFor(m_state));
    setFocusProxy(m_view);

    m_view->setModel(m_model);
    m_logic->setModel(m_model);
    connectLogic();
    connectView();
}

void ZelBoxRecentFileWidgetBase::connectLogic()
{
    using Logic = KRecentFileLogic;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_logic, &Logic::recentFileUnreadMsgCount, this, &Self::recentFileUnreadMsgCount);
    connect(m_logic, &Logic::needToWaitFirstLoading, this, &Self::beginWaiting);
    connect(m_logic, &Logic::firstLoadingFinish, m_outtime, &LoadingOuttime::stop);
    connect(m_logic, &Logic::itemsBatchArrived, this, &Self::updateState);
    connect(m_logic, &Logic::openFailed, this, &Self::onOpenFailed);
    connect(m_model, &ZelBoxRecentFileModel::rowCountChanged, this, &Self::onRowCountChanged);
    connect(m_outtime, &LoadingOuttime::sigTimeout, this, &Self::onLoadingTimeout);
}

void ZelBoxRecentFileWidgetBase::connectView()
{
    using View = ZelBoxRecentFileListView;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_view, &View::clicked, this, &Self::onItemClicked);
    connect(m_view, &View::doubleClicked, this, &Self::onItemDoubleClicked);
    connect(m_view, &View::activated, this, &Self::open);
    connect(m_view, &View::sigVisibleRowsSettled, m_logic, &KRecentFileLogic::checkPresence);
    m_clickTimer.setSingleShot(true);
    connect(&m_clickTimer, &QTimer::timeout, this, &Self::onClickTimeout);
}

void ZelBoxRecentFileWidgetBase::onWindowFirstShown()
{
    if (m_logic->isWaitingForFirstLoad() && m_state == State::Waiting && kindMask() != 0)
        m_outtime->start();
    m_logic->onWindowFirstShown();
    updateState();
}

void ZelBoxRecentFileWidgetBase::onWindowReadyToShow()
{
    m_model->refreshDay();
}

void ZelBoxRecentFileWidgetBase::onItemClicked(const QModelIndex &index)
{
    m_clicked = index;
    m_clickTimer.start(QApplication::doubleClickInterval());
}

void ZelBoxRecentFileWidgetBase::onClickTimeout()
{
    if (m_clicked.isValid())
        telemetry::clicked(m_clicked.row(), m_model->record(m_clicked.row()));
}

void ZelBoxRecentFileWidgetBase::onItemDoubleClicked(const QModelIndex &index)
{
    m_clickTimer.stop();
    if (!index.isValid())
        return;
    telemetry::doubleClicked(index.row(), m_model->record(index.row()));
    open(index);
}

void ZelBoxRecentFileWidgetBase::open(const QModelIndex &index)
{
    const QPersistentModelIndex kept = index;
    m_logic->open(index);
    m_logic->onUpdateRecentRoamingFileItemsWithSync();
    Q_EMIT sigRecentFileItemOpen(kept);
}

void ZelBoxRecentFileWidgetBase::onOpenFailed(const QString &, KRecentFileLogic::OpenProblem problem)
{
    switch (problem) {
    case KRecentFileLogic::OpenProblem::Missing:
        m_notice->showText(tr("This file is no longer there."));
        return;
    case KRecentFileLogic::OpenProblem::NotReadable:
        m_notice->showText(tr("You do not have permission to read this file."));
        return;
    case KRecentFileLogic::OpenProblem::NoProgram:
        m_notice->showText(tr("No program on this computer opens this kind of file."));
        return;
    case KRecentFileLogic::OpenProblem::NotOnThisDevice:
        m_notice->showText(tr("This file is on another device only."));
        return;
    }
}

void ZelBoxRecentFileWidgetBase::onLoginStatusChanged(bool bLogin)
{
    m_logic->onLoginStatusChanged(bLogin);
    updateState();
}

void ZelBoxRecentFileWidgetBase::onClearUnreadMsg()
{
    m_logic->clearUnread();
}

void ZelBoxRecentFileWidgetBase::onRowCountChanged(int rowCount)
{
    if (m_logic->isReloading())
        return; // the count on the way from the old rows to the new ones
    m_title->setCount(rowCount);
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
    telemetry::timeoutShown();
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
    if (m_logic->isWaitingForFirstLoad())
        return m_timedOut ? State::TimedOut : State::Waiting;
    return m_model->rowCount() == 0 ? State::Empty : State::List;
}

void ZelBoxRecentFileWidgetBase::updateState()
{
    m_title->setCount(m_model->rowCount());
    setState(wantedState());
}

void ZelBoxRecentFileWidgetBase::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    m_stack->setCurrentWidget(widgetFor(state));
    if (isVisible())
        tellShown();
}

QWidget *ZelBoxRecentFileWidgetBase::widgetFor(State state)
{
    QWidget *&widget = m_widgets[int(state)];
    if (widget)
        return widget;
    switch (state) {
    case State::Waiting:
        widget = new LoadingIndicator(this);
        break;
    case State::TimedOut: {
        auto *outtime = new ZelBoxLoadingOuttimeWidget(this);
        connect(outtime, &ZelBoxLoadingOuttimeWidget::sigRetry, this, &ZelBoxRecentFileWidgetBase::onRetry);
        connect(
            outtime, &ZelBoxLoadingOuttimeWidget::sigFeedBack, this, &ZelBoxRecentFileWidgetBase::onFeedBack);
        widget = outtime;
        break;
    }
    case State::Empty:
        widget = new ZelBoxRecentFileEmptyGuideWidget(this);
        break;
    case State::List:
        break; // there from the beginning
    }
    m_stack->addWidget(widget);
    return widget;
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
        telemetry::pageShown({loggedIn, loggedIn, m_model->unreadCount(), m_model->rowCount()});
    }
    if (m_state == State::List && !std::exchange(m_listShowTold, true))
        telemetry::listShown();
    if (m_state == State::Empty)
        telemetry::emptyPageShown();
}

void ZelBoxRecentFileWidgetBase::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
}

#include "recentfile/ui/recentfilewidgetbase.h"

#include "kskin.h"
#include "lists/ui/pagedrops.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsettings.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/recentcommands.h"
#include "recentfile/ui/recentcounts.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentfilterbar.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/recentlisting.h"
#include "recentfile/ui/recentstates.h"
#include "recentfile/ui/recentstorenotices.h"
#include "widgets/filechooser.h"
#include "widgets/noticearea.h"

#include <QPaintEvent>
#include <QPainter>
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
      m_view(new ZelBoxRecentFileListView(this)),
      m_stack(new StateStack(m_view, tr("Loading recent files"), this)),
      m_notices(new NoticeArea(this, m_stack)),
      m_roamingGuide(new ZelBoxRecentFileRoamingGuideWidget(m_notices))
{
    m_notices->addBar(m_roamingGuide);
    m_rows->setSourceModel(m_model);
    m_view->setModel(m_rows);
    new RecentStoreNotices(m_logic, m_notices, this);
    m_commands = new RecentCommands(m_logic, m_actions, m_view, m_notices, this);
    m_logic->setModel(m_model);
    m_states = new RecentStates(m_logic, m_rows, m_stack);
    layOut();
    m_listing = new RecentListing({m_rows, m_view, m_filterBar, m_actions}, this);
    m_title->setSort(m_listing->sort());
    connectLogic();
    connectView();
    connectTitle();
    connectCommands();
    m_title->onLoginStatusChanged(m_logic->isLoggedIn());
}

// The record model goes before the rows that hang on it; nobody is to hear that these leave with the page.
ZelBoxRecentFileWidgetBase::~ZelBoxRecentFileWidgetBase()
{
    m_rows->blockSignals(true);
}

void ZelBoxRecentFileWidgetBase::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(m_filterBar);
    layout->addWidget(m_stack, 1);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    new PageDrops(this, m_stack, m_view->cargo());
    m_title->addCommands(
        {m_commands->action(RecentCommand::Undo), m_commands->action(RecentCommand::Refresh)});
    onStateChanged();
}

void ZelBoxRecentFileWidgetBase::connectLogic()
{
    using Logic = KRecentFileLogic;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_logic, &Logic::recentFileUnreadMsgCount, this, &Self::tellUnread);
    connect(m_model, &ZelBoxRecentFileModel::rowCountChanged, this, &Self::onRowCountChanged);
    new RecentCounts(m_rows, m_view, m_title);
    connect(m_states, &RecentStates::openFileRequested, this, &Self::openChosenFile);
    connect(m_states, &RecentStates::settingsRequested, this, &Self::settingsRequested);
    connect(m_stack, &StateStack::clearFilterRequested, this, &Self::clearFilter);
    connect(m_stack, &StateStack::stateChanged, this, &Self::onStateChanged);
}

void ZelBoxRecentFileWidgetBase::connectTitle()
{
    using Title = ZelBoxRecentFileTitleWidget;
    using Self = ZelBoxRecentFileWidgetBase;
    using Guide = ZelBoxRecentFileRoamingGuideWidget;
    connect(m_title, &Title::clearUnreadMsg, this, &Self::onClearUnreadMsg);
    connect(m_title, &Title::sortChosen, m_listing, &RecentListing::chooseSort);
    connect(m_listing, &RecentListing::filtered, m_notices, &NoticeArea::retire);
    connect(m_listing, &RecentListing::filtered, m_states, &RecentStates::update);
    connect(zel::recent::SettingsEvents::instance(), &zel::recent::SettingsEvents::remindersChanged, this,
        [this] { tellUnread(quint64(m_model->unreadCount())); });
    connect(m_title, &Title::roamingGuideWanted, this, &Self::showRoamingGuide);
    connect(m_title, &Title::needOpenRoaming, m_roamingGuide, &Guide::setNeeded);
    connect(m_roamingGuide, &Guide::explanationRequested, m_title, &Title::onRoamingGuideLinkClicked);
    connect(m_roamingGuide, &Guide::enableRoamingRequested, this, &Self::settingsRequested);
}

void ZelBoxRecentFileWidgetBase::connectCommands()
{
    using Self = ZelBoxRecentFileWidgetBase;
    using Commands = RecentCommands;
    connect(m_commands, &Commands::openRequested, this, &Self::sigRecentFileItemOpen);
    connect(m_commands, &Commands::folderRequested, this, &Self::sigRecentFileItemOpenPath);
    connect(m_commands, &Commands::shareRequested, this, &Self::sigRecentFileItemShare);
    connect(m_commands, &Commands::otherRequested, this, &Self::sigRecentFileItemOtherMenuTriggered);
}

void ZelBoxRecentFileWidgetBase::connectView()
{
    using View = ZelBoxRecentFileListView;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_view, &View::clicked, this, &Self::onItemClicked);
    connect(m_view, &View::doubleClicked, this, &Self::onItemDoubleClicked);
    connect(m_view, &View::activated, this,
        [this](const QModelIndex &index) { m_commands->open(rowsFor(index)); });
    connect(m_view, &View::customContextMenuRequested, this, &Self::onCustomContextMenuRequested);
    connect(m_view, &View::moreRequested, this, [this](const QModelIndex &index, const QPoint &pos) {
        telemetry::post(Event::ListMoreClick);
        showMenu(index, pos);
    });
    connect(m_view, &View::sigShareDoc, this, [this](const QPersistentModelIndex &index) {
        telemetry::post(Event::ListShareClick);
        onShareDoc(index, false);
    });
    connect(m_view, &View::visibleRowsSettled, this, &Self::checkPresence);
    connect(m_view, &View::filesDropped, m_commands, &RecentCommands::addFiles);
    connect(m_view, &View::textTyped, this, [this](const QString &typed) {
        if (m_host)
            m_host->beginFinding(typed);
    });
    connect(m_notices, &NoticeArea::coverChanged, m_view, &View::setEndRoom);
}

void ZelBoxRecentFileWidgetBase::clearFilter()
{
    if (m_host)
        m_host->clearFilter();
    m_listing->showAll();
    m_view->setFocus(Qt::OtherFocusReason);
}

void ZelBoxRecentFileWidgetBase::setFilterText(const QString &text)
{
    m_listing->setWords(text);
}

void ZelBoxRecentFileWidgetBase::setHost(BoxPageHost *host)
{
    m_host = host;
    connect(this, &ZelBoxRecentFileWidgetBase::recentFileUnreadMsgCount, this,
        [host](quint64 count) { host->setUnread(int(qMin<quint64>(count, INT_MAX)), count > 0 ? 1 : 0); });
    connect(this, &ZelBoxRecentFileWidgetBase::settingsRequested, this,
        [host] { host->openSettings(QStringLiteral("cloud")); });
}

void ZelBoxRecentFileWidgetBase::pageHidden()
{
    m_commands->retire();
}

QWidget *ZelBoxRecentFileWidgetBase::focusTarget()
{
    return m_stack->currentWidget();
}

void ZelBoxRecentFileWidgetBase::findEnded(bool toFirstRow)
{
    focusTarget()->setFocus(Qt::ShortcutFocusReason);
    if (toFirstRow && m_rows->rowCount() > 0)
        m_view->setCurrentIndex(m_rows->index(0));
}

KRecentFileMenu *ZelBoxRecentFileWidgetBase::openMenu() const
{
    return m_menu;
}

void ZelBoxRecentFileWidgetBase::onWindowFirstShown()
{
    m_states->waitFromNowOn();
    m_logic->onWindowFirstShown();
    m_listing->lookUpSizes();
    m_states->update();
}

void ZelBoxRecentFileWidgetBase::onWindowReadyToShow()
{
    m_model->refreshDay();
}

void ZelBoxRecentFileWidgetBase::onLoginStatusChanged(bool bLogin)
{
    m_title->onLoginStatusChanged(bLogin);
    m_logic->onLoginStatusChanged(bLogin);
    m_states->update();
    m_states->updateGuide();
}

void ZelBoxRecentFileWidgetBase::onRoamingStatusChanged(bool bAutoRoaming)
{
    m_states->setRoamingOn(bAutoRoaming);
    if (bAutoRoaming)
        m_roamingGuide->setNeeded(false);
    else
        onNotifyNeedOpenRoaming();
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
        m_states->update();
}

// Where there is no list, there is nothing to find, to narrow or to order.
void ZelBoxRecentFileWidgetBase::onStateChanged()
{
    const bool listed = state() == State::List || state() == State::NothingFound;
    m_filterBar->setVisible(listed);
    m_title->setListTools(listed);
}

void ZelBoxRecentFileWidgetBase::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_states->pageShown();
}

QModelIndexList ZelBoxRecentFileWidgetBase::rowsFor(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const QModelIndexList selected = m_view->selectedRows();
    return selected.contains(index) ? selected : QModelIndexList{index};
}

void ZelBoxRecentFileWidgetBase::checkPresence(const QModelIndexList &rows)
{
    QModelIndexList sources;
    for (const QModelIndex &row : rows)
        sources << m_rows->mapToSource(row);
    m_logic->checkPresence(sources);
}

void ZelBoxRecentFileWidgetBase::onItemClicked(const QModelIndex &index)
{
    if (index.isValid())
        m_clicks.add(index.row(), m_commands->recordAt(index));
}

void ZelBoxRecentFileWidgetBase::onClickTimeout()
{
    m_clicks.tell();
}

void ZelBoxRecentFileWidgetBase::onItemDoubleClicked(const QModelIndex &index)
{
    m_clicks.forget();
    if (!index.isValid())
        return;
    telemetry::doubleClicked(index.row(), m_commands->recordAt(index));
    m_commands->open({index});
}

void ZelBoxRecentFileWidgetBase::onCustomContextMenuRequested(const QPoint &pos)
{
    const QModelIndex index = m_view->indexAt(pos);
    if (!index.isValid())
        return;
    telemetry::post(Event::ListRightClick);
    showMenu(index, m_view->viewport()->mapToGlobal(pos));
}

void ZelBoxRecentFileWidgetBase::onMoreBtnCustomContextMenuRequested(const QPoint &globalPos)
{
    if (m_view->currentIndex().isValid())
        showMenu(m_view->currentIndex(), globalPos);
}

void ZelBoxRecentFileWidgetBase::showMenu(const QModelIndex &index, const QPoint &globalPos)
{
    delete m_menu;
    m_menu = m_commands->makeMenu(index, rowsFor(index));
    connectMenu(m_menu);
    m_view->popUp(m_menu, globalPos);
}

void ZelBoxRecentFileWidgetBase::connectMenu(KRecentFileMenu *menu)
{
    using Menu = KRecentFileMenu;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(menu, &QMenu::aboutToShow, this, &Self::sigRecentFileMenuAboutToShow);
    connect(menu, &QMenu::aboutToHide, this, &Self::sigRecentFileMenuAboutToHide);
    connect(menu, &Menu::openFile, this, &Self::onMenuOpenFileAction);
    connect(menu, &Menu::openFileWith, m_commands, &RecentCommands::openWith);
    connect(menu, &Menu::openFilePath, this, &Self::onMenuOpenFilePathAction);
    connect(menu, &Menu::removeRecord, this, &Self::onMenuRemoveRecordAction);
    connect(menu, &Menu::removeFile, this, &Self::onMenuRemoveFileAction);
    connect(menu, &Menu::sigShareDoc, this, &Self::onShareDoc);
    connect(menu, &Menu::sigTipOffFile, this, &Self::onMenuTipOffFileAction);
    connect(menu, &Menu::commandChosen, this,
        [this](const QPersistentModelIndex &index, RecentCommand command) { run(command, index); });
}

void ZelBoxRecentFileWidgetBase::run(RecentCommand command, const QModelIndex &index)
{
    m_commands->run(command, rowsFor(index));
}

void ZelBoxRecentFileWidgetBase::onMenuOpenFileAction(const QPersistentModelIndex &index)
{
    m_commands->open(rowsFor(index));
}

void ZelBoxRecentFileWidgetBase::onMenuOpenFilePathAction(const QPersistentModelIndex &index)
{
    run(RecentCommand::OpenFolder, index);
}

void ZelBoxRecentFileWidgetBase::onMenuRemoveRecordAction(const QPersistentModelIndex &index)
{
    run(RecentCommand::Remove, index);
}

void ZelBoxRecentFileWidgetBase::onMenuRemoveFileAction(const QPersistentModelIndex &index)
{
    run(RecentCommand::DeleteFile, index);
}

void ZelBoxRecentFileWidgetBase::onMenuTipOffFileAction(const QPersistentModelIndex &index)
{
    run(RecentCommand::TipOff, index);
}

void ZelBoxRecentFileWidgetBase::onShareDoc(const QPersistentModelIndex &index, bool)
{
    if (index.isValid())
        m_commands->run(RecentCommand::Share, {index});
}

void ZelBoxRecentFileWidgetBase::openChosenFile()
{
    FileChooser::ask({zel::FileQuestion::Kind::File, tr("Open a File"), tr("Open"), {}}, this,
        [this](const QStringList &paths) { m_logic->openPath(paths.constFirst()); });
}

void ZelBoxRecentFileWidgetBase::showRoamingGuide()
{
    auto *dialog = new ZelBoxRecentFileGuideDialog(this);
    connect(dialog, &ZelBoxRecentFileGuideDialog::settingsRequested, this,
        &ZelBoxRecentFileWidgetBase::settingsRequested);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void ZelBoxRecentFileWidgetBase::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
}

#include "clouddoc/ui/zelboxclouddocwidget.h"

#include "base/sourcekeys.h"
#include "clouddoc/ui/arriveduploads.h"
#include "clouddoc/ui/cloudcolumns.h"
#include "clouddoc/ui/clouddoccommands.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/clouddocnotices.h"
#include "clouddoc/ui/clouddocopening.h"
#include "clouddoc/ui/clouddoctoolbar.h"
#include "clouddoc/ui/clouddocvisit.h"
#include "clouddoc/ui/clouddrag.h"
#include "clouddoc/ui/cloudlisting.h"
#include "clouddoc/ui/cloudstatusline.h"
#include "clouddoc/ui/crumbtexts.h"
#include "clouddoc/ui/transferbutton.h"
#include "clouddoc/ui/transferlistview.h"
#include "clouddoc/ui/transferpanel.h"
#include "kskin.h"
#include "lists/rowselection.h"
#include "lists/ui/pagedrops.h"
#include "lists/ui/selectionsum.h"

#include <QApplication>
#include <QClipboard>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

using namespace zel::clouddoc;
using State = CloudDocStates::State;
using Logic = CloudDocLogic;

ZelBoxCloudDocWidget::ZelBoxCloudDocWidget(
    KCloudSvrProxy *proxy, QWidget *parent, std::unique_ptr<QObject> before)
    : ZelBoxCloudDocWidget(proxy, parent, qobject_cast<CloudDocVisit *>(before.get()))
{
}

ZelBoxCloudDocWidget::ZelBoxCloudDocWidget(
    KCloudSvrProxy *proxy, QWidget *parent, const CloudDocVisit *before)
    : QWidget(parent),
      m_logic(before ? before->logic : new CloudDocLogic(proxy)),
      m_view(new CloudDocListView(this)),
      m_states(new CloudDocStates(m_logic, m_view, this)),
      m_commands(new CloudDocCommands({proxy, m_logic, m_view, m_states, this})),
      m_notices(new CloudDocNotices(m_logic, m_commands->action(CloudCommand::Undo), this, m_states)),
      m_opening(new CloudDocOpening(m_logic, m_notices->notice(), this)),
      m_toolBar(new CloudDocToolBar(m_commands->actions(), this)),
      m_columns(new CloudColumns(this)),
      m_status(new CloudStatusLine(this)),
      m_panel(new TransferPanel(m_logic->transfers(), this))
{
    m_logic->setParent(this);
    m_view->setModel(m_logic->documents());
    m_uploads = new ArrivedUploads(m_logic, m_view); // hears of rows once the view has given them their place
    m_listing = new CloudListing({m_logic->documents(), m_view, m_toolBar, m_columns}, this);
    layOut();
    connectLogic();
    connectView();
    connectParts();
    connectTransfers();
    m_sum = new SelectionSum(m_view, [this](int row) { return m_logic->documents()->document(row).size; });
    connect(m_sum, &SelectionSum::counted, this, &ZelBoxCloudDocWidget::showCounts);
    new PageDrops(
        this, m_states, m_view->cargo(), [this] { return m_logic->state() == Logic::State::Ready; });
    setAccessibleName(tr("Cloud documents"));
    m_toolBar->crumbs()->setCrumbs(namedCrumbs({}));
    updateActions();
    updateTransfers();
    if (before)
        goOn(*before);
}

// Else the editor, which loses the focus while the window goes, hands the name to what is half gone itself.
ZelBoxCloudDocWidget::~ZelBoxCloudDocWidget()
{
    m_view->rename().end();
}

void ZelBoxCloudDocWidget::goOn(const CloudDocVisit &before)
{
    m_toolBar->crumbs()->setCrumbs(namedCrumbs(m_logic->crumbs()));
    m_view->setFolderId(m_logic->folderId());
    m_selectOnReady = m_logic->state() == Logic::State::Loading;
    m_states->follow();
    if (!before.current.isEmpty())
        m_view->selectIds({before.current});
    m_view->selectionModel()->select(
        zel::selectionOf(*m_logic->documents(), before.selected), QItemSelectionModel::ClearAndSelect);
    if (before.undo)
        m_notices->offer(*before.undo);
    m_panel->setOpen(before.showsTransfers);
    m_newName = before.newName;
}

void ZelBoxCloudDocWidget::goOnNaming()
{
    if (!m_newName)
        return;
    m_view->rename().goOn(*m_newName);
    m_newName.reset();
}

std::unique_ptr<QObject> ZelBoxCloudDocWidget::handOver()
{
    auto visit = std::make_unique<CloudDocVisit>(m_logic);
    visit->selected = m_view->selectedIds();
    visit->current = m_view->currentId();
    visit->undo = m_notices->offered();
    visit->showsTransfers = m_panel->isOpen();
    visit->newName = m_view->rename().typed();
    m_view->rename().end();
    return visit;
}

void ZelBoxCloudDocWidget::setHost(BoxPageHost *host)
{
    m_host = host;
    m_host->setBusy(m_logic->isBusy());
}

QAction *ZelBoxCloudDocWidget::action(CloudCommand command) const
{
    return m_commands->action(command);
}

void ZelBoxCloudDocWidget::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    layout->addWidget(m_columns);
    layout->addWidget(m_states, 1);
    layout->addWidget(m_panel);
    layout->addWidget(m_status);
}

void ZelBoxCloudDocWidget::connectLogic()
{
    connect(m_logic, &Logic::folderChanged, this, &ZelBoxCloudDocWidget::onFolderChanged);
    connect(m_logic, &Logic::busyChanged, this, [this] {
        if (m_host)
            m_host->setBusy(m_logic->isBusy());
    });
    connect(m_logic, &Logic::historyChanged, this, &ZelBoxCloudDocWidget::updateActions);
    connect(m_logic, &Logic::crumbsChanged, this,
        [this] { m_toolBar->crumbs()->setCrumbs(namedCrumbs(m_logic->crumbs())); });
    connect(m_logic, &Logic::restored, this,
        [this](const CloudUndo &, const QStringList &ids) { m_view->selectIds(ids); });
    connect(m_logic, &Logic::renameEnded, this, [this](const QString &id, const QString &name) {
        m_view->rowDelegate()->forgetNewName(id, name);
        m_view->viewport()->update();
    });
    connect(m_logic, &Logic::folderCreated, this, [this](const QString &id) {
        m_view->beginRename(m_logic->documents()->index(m_logic->documents()->rowOf(id)));
    });
}

void ZelBoxCloudDocWidget::connectView()
{
    using View = CloudDocListView;
    BreadcrumbBar *crumbs = m_toolBar->crumbs();
    connect(m_view, &View::activated, this, [this](const QModelIndex &row) {
        if (m_view->selectionModel()->isSelected(row))
            openSelected();
        else
            open({m_logic->documents()->document(row.row())});
    });
    connect(m_view, &View::customContextMenuRequested, m_commands, &CloudDocCommands::showMenu);
    connect(m_view, &View::upRequested, m_logic, &Logic::up);
    connect(m_view, &View::selectedRowsChanged, this, &ZelBoxCloudDocWidget::updateActions);
    connect(m_view, &View::itemsDropped, m_commands, &CloudDocCommands::move);
    connect(m_view, &View::filesDropped, m_commands, &CloudDocCommands::upload);
    connect(m_view, &View::folderLingered, m_logic, &Logic::openFolder);
    connect(m_view, &View::textTyped, this, [this](const QString &typed) {
        if (m_host)
            m_host->beginFinding(typed);
    });
    connect(crumbs, &BreadcrumbBar::itemsDropped, m_commands, &CloudDocCommands::move);
    connect(crumbs, &BreadcrumbBar::filesDropped, m_commands, &CloudDocCommands::upload);
    connect(crumbs, &BreadcrumbBar::crumbChosen, this, &ZelBoxCloudDocWidget::openCrumb);
    CloudDocDelegate *delegate = m_view->rowDelegate();
    connect(delegate, &CloudDocDelegate::renameRequested, m_logic, &Logic::rename);
    delegate->setNameCheck(
        [this](const QString &id, const QString &name) { return m_logic->checkName(name, id); });
    connect(
        QApplication::clipboard(), &QClipboard::dataChanged, this, &ZelBoxCloudDocWidget::onClipboardChanged);
}

void ZelBoxCloudDocWidget::connectParts()
{
    using Commands = CloudDocCommands;
    connect(m_commands, &Commands::openRequested, this, &ZelBoxCloudDocWidget::openSelected);
    connect(m_commands, &Commands::revealRequested, m_opening, &CloudDocOpening::reveal);
    connect(m_commands, &Commands::newFolderRequested, this, &ZelBoxCloudDocWidget::makeFolder);
    connect(m_commands, &Commands::undoRequested, m_notices, &CloudDocNotices::undo);
    connect(m_commands, &Commands::notDone, m_notices, &CloudDocNotices::tell);
    connect(m_commands->actions(), &ListActions::aboutToRun, this, &ZelBoxCloudDocWidget::onActed);
    connect(m_notices, &CloudDocNotices::coverChanged, m_view, &CloudDocListView::setEndRoom);
    connect(m_notices, &CloudDocNotices::retryRequested, m_logic, &Logic::retry);
    connect(m_states, &CloudDocStates::followed, this, &ZelBoxCloudDocWidget::onFollowed);
    connect(m_states, &CloudDocStates::folderMenuRequested, m_commands, &CloudDocCommands::showFolderMenu);
    connect(m_states, &CloudDocStates::uploadRequested, m_toolBar, &CloudDocToolBar::popUpUploadMenu);
    connect(m_states, &CloudDocStates::newFolderRequested, this, &ZelBoxCloudDocWidget::makeFolder);
    connect(m_states, &CloudDocStates::retryRequested, m_logic, &Logic::retry);
    connect(m_states, &CloudDocStates::clearFilterRequested, this, [this] {
        clearFilter();
        m_view->setFocus(Qt::OtherFocusReason);
    });
}

void ZelBoxCloudDocWidget::connectTransfers()
{
    TransferButton *button = m_toolBar->transferButton();
    TransferListView *list = m_panel->view();
    connect(m_logic->transfers(), &CloudTransferModel::activityChanged, this,
        &ZelBoxCloudDocWidget::updateTransfers);
    connect(m_logic, &Logic::transfersStarted, this, [this] { m_panel->setOpen(true); });
    connect(m_logic, &Logic::transferEnded, this, [this](const CloudTransfer &transfer) {
        if (transfer.state == CloudTransfer::State::Failed && !m_panel->isOpen())
            m_failedTransfers = true;
        updateTransfers();
    });
    connect(button, &QAbstractButton::clicked, m_panel, &TransferPanel::setOpen);
    connect(m_panel, &TransferPanel::openChanged, this, [this, button](bool open) {
        button->setChecked(open);
        m_failedTransfers = m_failedTransfers && !open;
        updateTransfers();
    });
    connect(m_panel, &TransferPanel::clearRequested, m_logic, &Logic::clearFinishedTransfers);
    connect(list, &TransferListView::cancelRequested, m_logic, &Logic::cancelTransfers);
    connect(list, &TransferListView::retryRequested, m_logic, &Logic::retryTransfer);
    connect(list, &TransferListView::openRequested, this, [this](const QModelIndex &index) {
        m_opening->openLocal(index.data(CloudTransferModel::LocalPathRole).toString());
    });
}

void ZelBoxCloudDocWidget::onActed(int command)
{
    if (command != int(CloudCommand::Undo))
        m_notices->retire();
    m_uploads->forget();
}

void ZelBoxCloudDocWidget::pageHidden()
{
    m_notices->retire();
}

void ZelBoxCloudDocWidget::onFollowed()
{
    const State state = m_states->state();
    m_listing->setShown(state == State::List || state == State::NothingFound);
    m_notices->setStale(m_states->isStale());
    if (m_logic->state() == Logic::State::Ready)
        onReady();
    updateActions();
}

void ZelBoxCloudDocWidget::onFolderChanged()
{
    m_selectOnReady = true;
    m_view->setFolderId(m_logic->folderId());
    m_view->scrollToTop();
    m_notices->retire();
    m_states->follow();
}

void ZelBoxCloudDocWidget::onReady()
{
    m_view->setFolderId(m_logic->folderId());
    if (!std::exchange(m_selectOnReady, false))
        return;
    const QString cameFrom = m_logic->cameFrom();
    const bool isHere = m_logic->documents()->rowOf(cameFrom) >= 0;
    m_view->setReturning(isHere ? QStringList() : QStringList(cameFrom)); // with a later page
    m_view->selectIds({cameFrom});
    if (!m_view->currentIndex().isValid() && m_logic->documents()->rowCount() > 0)
        m_view->selectionModel()->setCurrentIndex(
            m_logic->documents()->index(0), QItemSelectionModel::NoUpdate);
}

void ZelBoxCloudDocWidget::updateActions()
{
    m_commands->update();
    m_sum->countSoon();
}

void ZelBoxCloudDocWidget::showCounts()
{
    m_status->setCounts(m_logic->documents()->rowCount(), m_sum->selected(), m_sum->bytes());
}

void ZelBoxCloudDocWidget::updateTransfers()
{
    const CloudTransferModel &transfers = *m_logic->transfers();
    m_toolBar->transferButton()->setProgress(
        transfers.activeCount(), transfers.totalPercent(), m_failedTransfers);
}

void ZelBoxCloudDocWidget::openSelected()
{
    CloudDocuments documents;
    const QStringList ids = m_view->selectedIds();
    for (const QString &id : ids) {
        if (const CloudDocument *document = m_logic->documents()->find(id))
            documents << *document;
    }
    if (documents.isEmpty() && m_view->currentIndex().isValid())
        documents << m_logic->documents()->document(m_view->currentIndex().row());
    open(documents);
}

void ZelBoxCloudDocWidget::open(const CloudDocuments &documents)
{
    m_notices->retire();
    m_opening->open(documents);
}

void ZelBoxCloudDocWidget::openCrumb(const QString &id)
{
    if (id == m_logic->folderId())
        return;
    m_logic->openFolder(id);
    m_view->setFocus(Qt::OtherFocusReason);
}

void ZelBoxCloudDocWidget::makeFolder()
{
    clearFilter(); // else it might not be seen
    m_logic->createFolder(m_logic->freeFolderName(tr("New Folder")));
}

// Only our own clipboard is looked at: to ask another program means to wait for it.
void ZelBoxCloudDocWidget::onClipboardChanged()
{
    const QClipboard *clipboard = QApplication::clipboard();
    const CarriedItems items = clipboard->ownsClipboard() ? itemsOf(clipboard->mimeData()) : CarriedItems();
    m_view->rowDelegate()->setCutIds(items.cut ? items.ids : QStringList());
    m_view->viewport()->update();
}

void ZelBoxCloudDocWidget::setFilterText(const QString &text)
{
    m_uploads->forget();
    m_listing->setWords(text);
    m_states->follow();
}

void ZelBoxCloudDocWidget::setCloudSpace(qint64 used, qint64 total)
{
    m_status->setSpace(used, total);
}

void ZelBoxCloudDocWidget::clearFilter()
{
    if (m_host)
        m_host->clearFilter();
    setFilterText({});
}

// Not by a focus proxy: the Tab key would never come to what was made before the list.
void ZelBoxCloudDocWidget::focusInEvent(QFocusEvent *event)
{
    focusTarget()->setFocus(event->reason());
}

QWidget *ZelBoxCloudDocWidget::focusTarget()
{
    return m_states->currentWidget();
}

void ZelBoxCloudDocWidget::findEnded(bool toFirstRow)
{
    focusTarget()->setFocus(Qt::ShortcutFocusReason);
    if (toFirstRow && m_logic->documents()->rowCount() > 0)
        m_view->setCurrentIndex(m_logic->documents()->index(0));
}

bool ZelBoxCloudDocWidget::openPlace(const QString &place)
{
    if (place != zel::place::Transfers)
        return false;
    m_panel->setOpen(true);
    return true;
}

void ZelBoxCloudDocWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous() && m_logic->state() == Logic::State::Idle)
        m_logic->openRoot();
    QMetaObject::invokeMethod(this, &ZelBoxCloudDocWidget::goOnNaming, Qt::QueuedConnection); // laid out
}

void ZelBoxCloudDocWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::BackButton)
        m_logic->back();
    else if (event->button() == Qt::ForwardButton)
        m_logic->forward();
    else
        QWidget::mousePressEvent(event);
}

void ZelBoxCloudDocWidget::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
}

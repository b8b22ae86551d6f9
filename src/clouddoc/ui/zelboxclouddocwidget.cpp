#include "clouddoc/ui/zelboxclouddocwidget.h"

#include "base/sourcekeys.h"
#include "clouddoc/cloudproblemtext.h"
#include "clouddoc/ui/clouddocactions.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/clouddoctoolbar.h"
#include "clouddoc/ui/clouddrag.h"
#include "clouddoc/ui/cloudstatusline.h"
#include "clouddoc/ui/crumbtexts.h"
#include "clouddoc/ui/transferbutton.h"
#include "clouddoc/ui/transferpanel.h"
#include "klitestyle.h"
#include "kskin.h"
#include "widgets/boxdialog.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QClipboard>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

using namespace zel::clouddoc;
using State = CloudDocStates::State;
using Logic = CloudDocLogic;

// A folder that is read this fast follows the one before without anything in between.
static constexpr int QuickLoad = 150; // ms

static constexpr int UndoTime = 10000; // ms

// The sizes of very many selected rows are not added up again at each of many changes.
static constexpr int MostCountedAtOnce = 1000;
static constexpr int CountPause = 200; // ms

ZelBoxCloudDocWidget::ZelBoxCloudDocWidget(KCloudSvrProxy *proxy, QWidget *parent)
    : QWidget(parent),
      m_proxy(proxy),
      m_logic(new CloudDocLogic(proxy, this)),
      m_actions(new CloudDocActions(this)),
      m_toolBar(new CloudDocToolBar(m_actions, this)),
      m_offline(new NoticeBar(this)),
      m_notice(new NoticeBar(this)),
      m_view(new CloudDocListView(this)),
      m_states(new CloudDocStates(m_view, this)),
      m_status(new CloudStatusLine(this)),
      m_panel(new TransferPanel(m_logic->transfers(), this))
{
    m_view->setModel(m_logic->documents());
    m_actions->setList(m_states);
    layOut();
    connectLogic();
    connectResults();
    connectView();
    connectActions();
    m_loadingSoon.setSingleShot(true);
    connect(&m_loadingSoon, &QTimer::timeout, this, [this] {
        m_loadsLong = true;
        updateState();
    });
    m_countSoon.setSingleShot(true);
    connect(&m_countSoon, &QTimer::timeout, this, &ZelBoxCloudDocWidget::showCounts);
    setAcceptDrops(true);
    setAccessibleName(tr("Cloud documents"));
    m_toolBar->crumbs()->setCrumbs(namedCrumbs({}));
    m_toolBar->setSort(m_logic->documents()->sortOrder());
    updateActions();
    updateTransfers();
}

void ZelBoxCloudDocWidget::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_toolBar);
    auto *notices = new QVBoxLayout;
    notices->setContentsMargins(KLiteStyle::dpiScaledMargins({12, 0, 12, 0}));
    notices->setSpacing(KLiteStyle::dpiScaled(6));
    notices->addWidget(m_offline);
    notices->addWidget(m_notice);
    layout->addLayout(notices);
    layout->addWidget(m_states, 1);
    layout->addWidget(m_status);
    layout->addWidget(m_panel);
}

void ZelBoxCloudDocWidget::connectLogic()
{
    connect(m_logic, &Logic::stateChanged, this, &ZelBoxCloudDocWidget::updateState);
    connect(m_logic, &Logic::folderChanged, this, &ZelBoxCloudDocWidget::onFolderChanged);
    connect(m_logic, &Logic::historyChanged, this, &ZelBoxCloudDocWidget::updateActions);
    connect(m_logic, &Logic::spaceChanged, m_status, &CloudStatusLine::setSpace);
    connect(m_logic, &Logic::crumbsChanged, this,
        [this] { m_toolBar->crumbs()->setCrumbs(namedCrumbs(m_logic->crumbs())); });
    connect(m_logic->documents(), &CloudDocModel::countsChanged, this, &ZelBoxCloudDocWidget::updateState);
    connect(m_logic->documents(), &CloudDocModel::sortOrderChanged, this,
        [this] { m_toolBar->setSort(m_logic->documents()->sortOrder()); });
    connect(m_logic->transfers(), &CloudTransferModel::activityChanged, this,
        &ZelBoxCloudDocWidget::updateTransfers);
    connect(m_toolBar, &CloudDocToolBar::sortChosen, m_logic, &Logic::setSortOrder);
    connect(m_toolBar->crumbs(), &BreadcrumbBar::sigCrumbChosen, this, &ZelBoxCloudDocWidget::openCrumb);
}

void ZelBoxCloudDocWidget::connectView()
{
    using View = CloudDocListView;
    connect(m_view, &View::activated, this, &ZelBoxCloudDocWidget::openSelected);
    connect(m_view, &View::customContextMenuRequested, this, &ZelBoxCloudDocWidget::showMenu);
    connect(m_view, &View::sigUpRequested, m_actions->up, &QAction::trigger);
    connect(m_view, &View::sigSelectionChanged, this, &ZelBoxCloudDocWidget::updateActions);
    connect(m_view, &View::sigItemsDropped, this, &ZelBoxCloudDocWidget::move);
    connect(m_view, &View::sigFilesDropped, this, &ZelBoxCloudDocWidget::upload);
    connect(m_toolBar->crumbs(), &BreadcrumbBar::sigItemsDropped, this, &ZelBoxCloudDocWidget::move);
    connect(m_toolBar->crumbs(), &BreadcrumbBar::sigFilesDropped, this, &ZelBoxCloudDocWidget::upload);
    CloudDocDelegate *delegate = m_view->rowDelegate();
    connect(delegate, &CloudDocDelegate::sigRenameRequested, m_logic, &Logic::rename);
    delegate->setNameCheck(
        [this](const QString &id, const QString &name) { return m_logic->checkName(name, id); });

    connect(m_states, &CloudDocStates::uploadWanted, m_toolBar, &CloudDocToolBar::popUpUploadMenu);
    connect(m_states, &CloudDocStates::newFolderWanted, this, &ZelBoxCloudDocWidget::makeFolder);
    connect(m_states, &CloudDocStates::retryWanted, m_logic, &Logic::reload);
    connect(m_states, &CloudDocStates::clearFilterWanted, this, [this] {
        clearFilter();
        m_view->setFocus(Qt::OtherFocusReason);
    });
    connect(
        QApplication::clipboard(), &QClipboard::dataChanged, this, &ZelBoxCloudDocWidget::onClipboardChanged);
}

State ZelBoxCloudDocWidget::wantedState() const
{
    const CloudDocModel &documents = *m_logic->documents();
    const bool known = documents.totalCount() > 0;
    if (documents.rowCount() > 0)
        return State::List;
    switch (m_logic->state()) {
    case Logic::State::Idle:
    case Logic::State::Loading:
        return State::Loading;
    case Logic::State::Offline:
        return State::Offline;
    case Logic::State::Failed:
        return State::Failed;
    case Logic::State::Ready:
        break;
    }
    if (known && !documents.filterText().isEmpty())
        return State::NothingFound;
    return m_logic->isComplete() ? State::Empty : State::Loading;
}

void ZelBoxCloudDocWidget::updateState()
{
    const State wanted = wantedState();
    if (wanted == State::Loading && m_states->state() != State::Loading && !m_loadsLong)
        return keepForAMoment();
    m_loadingSoon.stop();
    m_loadsLong = false;
    m_view->setUpdatesEnabled(true);
    m_states->setProblem(m_logic->problem());
    m_states->setState(wanted);
    m_toolBar->setSortShown(wanted == State::List || wanted == State::NothingFound);
    const bool stale = wanted == State::List && m_logic->state() == Logic::State::Offline;
    const bool changed = std::exchange(m_stale, stale) != stale;
    if (stale && changed) // not again once the user has closed it
        m_offline->showAction(tr("The cloud service is not reachable. What you see may be out of date."),
            tr("Retry"), NoticeBar::Tone::Problem, NoticeBar::Stay);
    else if (!stale)
        m_offline->hide();
    if (m_logic->state() == Logic::State::Ready)
        onReady();
    updateActions();
}

// The rows of the folder before stay on the screen, so that nothing flashes.
void ZelBoxCloudDocWidget::keepForAMoment()
{
    if (!m_loadingSoon.isActive())
        m_loadingSoon.start(QuickLoad);
    m_view->setUpdatesEnabled(false);
    updateActions();
}

void ZelBoxCloudDocWidget::onFolderChanged()
{
    m_selectOnReady = true;
    m_view->setFolderId(m_logic->folderId());
    m_view->scrollToTop();
    updateState();
}

void ZelBoxCloudDocWidget::onReady()
{
    m_view->setFolderId(m_logic->folderId());
    if (!std::exchange(m_selectOnReady, false))
        return;
    if (!m_logic->cameFrom().isEmpty())
        m_view->selectIds({m_logic->cameFrom()});
    if (!m_view->currentIndex().isValid() && m_logic->documents()->rowCount() > 0)
        m_view->selectionModel()->setCurrentIndex(
            m_logic->documents()->index(0), QItemSelectionModel::NoUpdate);
}

void ZelBoxCloudDocWidget::updateActions()
{
    CloudDocActions::Situation now;
    now.selected = m_view->selectedCount();
    if (now.selected == 1) {
        const CloudDocument *document = m_logic->documents()->find(m_view->selectedIds().constFirst());
        now.local = document && !document->localPath.isEmpty();
    }
    now.inFolder = m_logic->state() == Logic::State::Ready;
    now.canGoBack = m_logic->canGoBack();
    now.canGoForward = m_logic->canGoForward();
    now.canGoUp = m_logic->canGoUp();
    m_actions->update(now);
    if (!m_countSoon.isActive())
        m_countSoon.start(now.selected > MostCountedAtOnce ? CountPause : 0);
}

void ZelBoxCloudDocWidget::showCounts()
{
    const QStringList ids = m_view->selectedIds();
    qint64 bytes = 0;
    for (const QString &id : ids)
        if (const CloudDocument *document = m_logic->documents()->find(id))
            bytes += document->size;
    m_status->setCounts(m_logic->documents()->rowCount(), ids.size(), bytes);
}

void ZelBoxCloudDocWidget::updateTransfers()
{
    const CloudTransferModel &transfers = *m_logic->transfers();
    m_toolBar->transferButton()->setProgress(
        transfers.activeCount(), transfers.totalPercent(), m_failedTransfers);
}

void ZelBoxCloudDocWidget::tellProblem(const QString &text)
{
    m_notice->showText(text, NoticeBar::Tone::Problem);
}

void ZelBoxCloudDocWidget::onTrashed(int count, const QString &firstName)
{
    const QString text = count == 1 ? tr("“%1” is in the recycle bin.").arg(BoxDialog::headingName(firstName))
                                    : tr("%n item(s) are in the recycle bin.", nullptr, count);
    m_notice->showAction(text, tr("Undo"), NoticeBar::Tone::Info, UndoTime);
}

void ZelBoxCloudDocWidget::onOperationFailed(CloudOperation operation, CloudProblem problem, int count)
{
    m_view->rowDelegate()->forgetNewNames();
    m_view->viewport()->update();
    if (operation == CloudOperation::Download)
        m_openNext.clear();
    const QString text = failureText(operation, problem, count);
    if (operation == CloudOperation::Trash && m_logic->canUndoTrash()) // of what was done
        m_notice->showAction(text, tr("Undo"), NoticeBar::Tone::Problem, UndoTime);
    else if (operation == CloudOperation::UndoTrash && m_logic->canUndoTrash())
        m_notice->showAction(text, tr("Retry"), NoticeBar::Tone::Problem, UndoTime);
    else
        tellProblem(text);
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
    m_logic->documents()->setFilterText(text);
    m_view->scrollToTop(); // the first hits are what was looked for
    updateState();
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
    focusTarget()->setFocus(Qt::OtherFocusReason);
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
}

void ZelBoxCloudDocWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_actions->retranslate();
    m_toolBar->crumbs()->setCrumbs(namedCrumbs(m_logic->crumbs()));
}

void ZelBoxCloudDocWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::BackButton)
        m_actions->back->trigger();
    else if (event->button() == Qt::ForwardButton)
        m_actions->forward->trigger();
    else
        QWidget::mousePressEvent(event);
}

void ZelBoxCloudDocWidget::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), KSkin::color(KSkin::Color::Surface));
}

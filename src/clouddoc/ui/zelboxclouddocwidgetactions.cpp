// The part of the cloud page that acts on documents: keys, menus, dialogs, drops, and what is said
// afterwards.
#include "clouddoc/ui/zelboxclouddocwidget.h"

#include "clouddoc/cloudproblemtext.h"
#include "clouddoc/ui/clouddocactions.h"
#include "clouddoc/ui/clouddocdelegate.h"
#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/clouddoctoolbar.h"
#include "clouddoc/ui/clouddrag.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "clouddoc/ui/transferbutton.h"
#include "clouddoc/ui/transferlistview.h"
#include "clouddoc/ui/transferpanel.h"
#include "widgets/boxdialog.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMimeData>
#include <QStandardPaths>

using namespace zel::clouddoc;
using Logic = CloudDocLogic;

namespace {

constexpr int MostOpenedAtOnce = 10;

QString downloadFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
}

} // namespace

void ZelBoxCloudDocWidget::connectActions()
{
    const auto on = [this](QAction *action, auto slot) { connect(action, &QAction::triggered, this, slot); };
    on(m_actions->back, [this] { m_logic->back(); });
    on(m_actions->forward, [this] { m_logic->forward(); });
    on(m_actions->up, [this] { m_logic->up(); });
    on(m_actions->reload, [this] { m_logic->reload(); });
    on(m_actions->uploadFiles, [this] { chooseUpload(false); });
    on(m_actions->uploadFolder, [this] { chooseUpload(true); });
    on(m_actions->newFolder, [this] { makeFolder(); });
    on(m_actions->open, [this] { openSelected(); });
    on(m_actions->download, [this] { downloadSelected(); });
    on(m_actions->reveal, [this] { revealSelected(); });
    on(m_actions->cut, [this] { carry(true); });
    on(m_actions->copy, [this] { carry(false); });
    on(m_actions->paste, [this] { paste(); });
    on(m_actions->moveTo, [this] { moveSelected(); });
    on(m_actions->rename, [this] { renameCurrent(); });
    on(m_actions->trash, [this] {
        const QStringList ids = m_view->selectedIds();
        m_view->setLeaving(ids);
        m_logic->trash(ids);
    });
}

void ZelBoxCloudDocWidget::connectResults()
{
    connect(m_logic, &Logic::trashed, this, &ZelBoxCloudDocWidget::onTrashed);
    connect(m_logic, &Logic::untrashed, m_view, &CloudDocListView::selectIds);
    connect(m_logic, &Logic::conflictsFound, this, &ZelBoxCloudDocWidget::askAboutConflicts);
    connect(m_logic, &Logic::operationFailed, this, &ZelBoxCloudDocWidget::onOperationFailed);
    connect(m_logic, &Logic::operationDone, m_view->rowDelegate(), &CloudDocDelegate::forgetNewNames);
    connect(m_logic, &Logic::folderCreated, this, [this](const QString &id) {
        m_view->beginRename(m_logic->documents()->index(m_logic->documents()->rowOf(id)));
    });
    connect(m_logic, &Logic::folderGone, this, [this](const QString &name) {
        tellProblem(tr("The folder “%1” is no longer there.").arg(BoxDialog::headingName(name)));
    });
    connect(m_logic, &Logic::readingFailed, this,
        [this](CloudProblem problem) { tellProblem(problemText(problem)); });
    connect(m_logic, &Logic::transfersStarted, this, [this] { m_panel->setOpen(true); });
    connect(m_logic, &Logic::transferEnded, this, &ZelBoxCloudDocWidget::onTransferEnded);
    connect(m_notice, &NoticeBar::actionTriggered, m_logic, &Logic::undoTrash);
    connect(m_offline, &NoticeBar::actionTriggered, this, [this] {
        m_stale = false; // it is told again when this does not help
        m_logic->reload();
    });
    connect(KDocumentOpener::instance(), &KDocumentOpener::opened, this, &ZelBoxCloudDocWidget::onOpened);

    TransferButton *button = m_toolBar->transferButton();
    connect(button, &QAbstractButton::clicked, m_panel, &TransferPanel::setOpen);
    connect(m_panel, &TransferPanel::openChanged, this, [this, button](bool open) {
        button->setChecked(open);
        m_failedTransfers = m_failedTransfers && !open;
        updateTransfers();
    });
    connect(m_panel, &TransferPanel::clearRequested, m_logic, &Logic::clearFinishedTransfers);
    TransferListView *transfers = m_panel->view();
    connect(transfers, &TransferListView::sigCancelRequested, m_logic, &Logic::cancelTransfers);
    connect(transfers, &TransferListView::sigRetryRequested, m_logic, &Logic::retryTransfer);
    connect(transfers, &TransferListView::sigOpenRequested, this, [this](const QModelIndex &index) {
        openLocal(index.data(CloudTransferModel::LocalPathRole).toString());
    });
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
    if (documents.size() > MostOpenedAtOnce)
        return tellProblem(tr("At most %n documents are opened at once.", nullptr, MostOpenedAtOnce));
    for (const CloudDocument &document : std::as_const(documents)) {
        if (!document.folder || documents.size() == 1) // only one folder can be on view
            openDocument(document);
    }
}

void ZelBoxCloudDocWidget::openDocument(const CloudDocument &document)
{
    if (document.folder)
        return m_logic->openFolder(document.id);
    if (!document.localPath.isEmpty())
        return openLocal(document.localPath);
    m_openNext.insert(document.id);
    m_logic->download({document.id}, downloadFolder(), CloudNameChoice::KeepBoth);
}

void ZelBoxCloudDocWidget::openLocal(const QString &path)
{
    if (path.isEmpty())
        return;
    m_opening.insert(path);
    KDocumentOpener::instance()->open(path);
}

void ZelBoxCloudDocWidget::openCrumb(const QString &id)
{
    if (id == m_logic->folderId())
        return;
    if (id.isEmpty())
        m_logic->openRoot();
    else
        m_logic->openFolder(id);
    m_view->setFocus(Qt::OtherFocusReason);
}

void ZelBoxCloudDocWidget::onOpened(const QString &path, KDocumentOpener::Outcome outcome)
{
    if (!m_opening.remove(path))
        return; // somebody else's
    switch (outcome) {
    case KDocumentOpener::Outcome::Opened:
        return;
    case KDocumentOpener::Outcome::Missing:
        return tellProblem(tr("This file is no longer there."));
    case KDocumentOpener::Outcome::NotReadable:
        return tellProblem(tr("You do not have permission to read this file."));
    case KDocumentOpener::Outcome::NoProgram:
        return tellProblem(tr("No program on this computer opens this kind of file."));
    }
}

void ZelBoxCloudDocWidget::onTransferEnded(const CloudTransfer &transfer)
{
    const bool wanted = m_openNext.remove(transfer.itemId);
    if (wanted && transfer.state == CloudTransfer::State::Done)
        openLocal(transfer.localPath);
    if (transfer.state == CloudTransfer::State::Failed && !m_panel->isOpen())
        m_failedTransfers = true;
    updateTransfers();
}

void ZelBoxCloudDocWidget::revealSelected()
{
    const QStringList ids = m_view->selectedIds();
    const CloudDocument *document = ids.size() == 1 ? m_logic->documents()->find(ids.constFirst()) : nullptr;
    const QString path = document ? document->localPath : m_logic->folderPath();
    if (path.isEmpty())
        return;
    m_opening.insert(path);
    KDocumentOpener::instance()->reveal(path);
}

void ZelBoxCloudDocWidget::downloadSelected()
{
    const QStringList ids = m_view->selectedIds();
    auto *dialog = new QFileDialog(this, tr("Download to"), downloadFolder());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, m_logic,
        [this, ids](const QString &folder) { m_logic->download(ids, folder); });
    dialog->open();
}

void ZelBoxCloudDocWidget::carry(bool cut)
{
    const CarriedItems items{m_logic->folderId(), m_view->selectedIds(), cut};
    if (items.ids.isEmpty())
        return;
    QStringList paths;
    for (const QString &id : items.ids) {
        const CloudDocument *document = m_logic->documents()->find(id);
        if (document && !document->localPath.isEmpty())
            paths << document->localPath;
    }
    QApplication::clipboard()->setMimeData(itemsMimeData(items, paths).release());
}

void ZelBoxCloudDocWidget::paste()
{
    const QMimeData *clipboard = QApplication::clipboard()->mimeData();
    const CarriedItems items = itemsOf(clipboard);
    const QString folder = m_logic->folderId();
    if (items.ids.isEmpty()) {
        const QStringList paths = localFiles(clipboard);
        if (paths.isEmpty())
            return tellProblem(tr("There are no files on the clipboard."));
        return upload(folder, paths);
    }
    if (!items.cut) { // beside themselves, items get another name without a question
        const bool beside = items.folderId == folder;
        return m_logic->copy(items.ids, folder, beside ? CloudNameChoice::KeepBoth : CloudNameChoice::Ask);
    }
    const CloudCrumbs way = m_logic->crumbs();
    if (std::any_of(
            way.cbegin(), way.cend(), [&](const CloudCrumb &one) { return items.ids.contains(one.id); }))
        return tellProblem(tr("A folder cannot be moved into itself."));
    QApplication::clipboard()->clear();
    if (items.folderId != folder)
        m_logic->move(items.ids, folder);
}

void ZelBoxCloudDocWidget::move(const QString &folderId, const QStringList &ids)
{
    m_view->setLeaving(ids);
    m_logic->move(ids, folderId);
}

void ZelBoxCloudDocWidget::moveSelected()
{
    const QStringList ids = m_view->selectedIds();
    const CloudDocument *first = ids.isEmpty() ? nullptr : m_logic->documents()->find(ids.constFirst());
    if (!first)
        return;
    const auto mayMove = [this, ids](const QString &folder) { return m_logic->canMoveTo(ids, folder); };
    auto *dialog = new MoveDialog(m_proxy, ids, first->name, mayMove, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &MoveDialog::folderChosen, m_logic,
        [this, ids](const QString &folder) { move(folder, ids); });
    dialog->openFolder(m_logic->folderId());
    dialog->open();
}

void ZelBoxCloudDocWidget::renameCurrent()
{
    if (m_logic->documents()->rowOf(m_view->currentId()) >= 0)
        m_view->beginRename(m_view->currentIndex());
}

void ZelBoxCloudDocWidget::makeFolder()
{
    clearFilter(); // else it might not be seen
    m_logic->createFolder(m_logic->freeFolderName(tr("New Folder")));
}

void ZelBoxCloudDocWidget::chooseUpload(bool folder)
{
    auto *dialog = new QFileDialog(this, folder ? tr("Upload a Folder") : tr("Upload Files"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(folder ? QFileDialog::Directory : QFileDialog::ExistingFiles);
    dialog->setOption(QFileDialog::ShowDirsOnly, folder);
    const QString target = m_logic->folderId(); // as it is now, wherever the user goes meanwhile
    connect(dialog, &QFileDialog::filesSelected, this,
        [this, target](const QStringList &paths) { upload(target, paths); });
    dialog->open();
}

void ZelBoxCloudDocWidget::upload(const QString &folderId, const QStringList &paths)
{
    if (!paths.isEmpty())
        m_logic->upload(paths, folderId);
}

void ZelBoxCloudDocWidget::askAboutConflicts(
    CloudOperation operation, const CloudConflicts &conflicts, const QString &target)
{
    if (conflicts.isEmpty())
        return;
    auto *dialog = new ConflictDialog(operation, conflicts, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QStringList sources;
    for (const CloudConflict &conflict : conflicts)
        sources << conflict.source;
    connect(dialog, &ConflictDialog::choiceMade, m_logic,
        [this, operation, sources, target](CloudNameChoice choice) {
            if (operation == CloudOperation::Upload)
                m_logic->upload(sources, target, choice);
            else if (operation == CloudOperation::Download)
                m_logic->download(sources, target, choice);
            else if (operation == CloudOperation::Copy)
                m_logic->copy(sources, target, choice);
            else if (operation == CloudOperation::Move)
                m_logic->move(sources, target, choice);
        });
    dialog->open();
}

void ZelBoxCloudDocWidget::showMenu(const QPoint &pos)
{
    const QModelIndex index = m_view->indexAt(pos);
    if (!index.isValid())
        m_view->clearSelection();
    QMenu *menu = makeMenu(index.isValid());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_view->viewport()->mapToGlobal(pos));
}

QMenu *ZelBoxCloudDocWidget::makeMenu(bool onRow)
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menu-documents"));
    menu->setAccessibleName(onRow ? tr("Actions for the selected documents") : tr("Actions for the folder"));
    const CloudDocActions &a = *m_actions;
    if (onRow) {
        menu->addActions({a.open, a.reveal, a.download});
        menu->setDefaultAction(a.open);
        menu->addSeparator();
        menu->addActions({a.cut, a.copy, a.paste});
        menu->addSeparator();
        menu->addActions({a.moveTo, a.rename, a.trash});
    } else {
        menu->addActions({a.newFolder, a.uploadFiles, a.uploadFolder});
        menu->addSeparator();
        menu->addActions({a.paste, a.reload});
    }
    return menu;
}

// The list takes what is dragged over it; this is for the page without one.
void ZelBoxCloudDocWidget::dragEnterEvent(QDragEnterEvent *event)
{
    const bool taken = m_logic->state() == Logic::State::Ready && acceptDrag(event, m_logic->folderId());
    m_states->setDropTarget(taken && m_states->state() != CloudDocStates::State::List);
    event->setAccepted(taken);
}

void ZelBoxCloudDocWidget::dragMoveEvent(QDragMoveEvent *event)
{
    event->setAccepted(acceptDrag(event, m_logic->folderId()));
}

void ZelBoxCloudDocWidget::dragLeaveEvent(QDragLeaveEvent *)
{
    m_states->setDropTarget(false);
}

void ZelBoxCloudDocWidget::dropEvent(QDropEvent *event)
{
    m_states->setDropTarget(false);
    if (m_logic->state() != Logic::State::Ready || !acceptDrag(event, m_logic->folderId()))
        return event->ignore();
    const QStringList ids = itemsOf(event->mimeData()).ids;
    if (ids.isEmpty())
        upload(m_logic->folderId(), localFiles(event->mimeData()));
    else
        m_logic->move(ids, m_logic->folderId());
}

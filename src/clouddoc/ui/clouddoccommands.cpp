#include "clouddoc/ui/clouddoccommands.h"

#include "clouddoc/ui/clouddoclistview.h"
#include "clouddoc/ui/conflictdialog.h"
#include "clouddoc/ui/movedialog.h"
#include "widgets/filechooser.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QStandardPaths>
#include <algorithm>

using namespace zel::clouddoc;
using Command = CloudCommand;
using Rows = ListActions::Rows;

namespace {

const QVector<int> RowMenu{int(Command::Open), int(Command::Reveal), int(Command::Download),
    int(Command::Cut), int(Command::Copy), int(Command::Paste), int(Command::MoveTo), int(Command::Rename),
    int(Command::Trash), int(Command::Undo)};
const QVector<int> FolderMenu{int(Command::NewFolder), int(Command::UploadFiles), int(Command::UploadFolder),
    int(Command::Paste), int(Command::Undo), int(Command::Reload)};

QString localPathOf(const QModelIndex &row)
{
    return row.data(CloudDocModel::LocalPathRole).toString();
}

} // namespace

CloudDocCommands::CloudDocCommands(const Parts &parts)
    : QObject(parts.page), m_parts(parts), m_actions(new ListActions(cloudActionTable(), parts.page))
{
    bindActions();
    connect(parts.logic, &CloudDocLogic::conflictsFound, this, &CloudDocCommands::askAboutConflicts);
    connect(parts.logic, &CloudDocLogic::operationFailed, this, &CloudDocCommands::onFailed);
    connect(parts.logic, &CloudDocLogic::operationDone, this, [this](CloudOperation operation) {
        if (operation == CloudOperation::Move)
            m_pasted = {};
    });
}

void CloudDocCommands::bindActions()
{
    CloudDocLogic *logic = m_parts.logic;
    CloudDocListView *view = m_parts.view;
    const auto bind = [this](Command command, ListActions::Run run, ListActions::Can can = {}) {
        m_actions->bind(int(command), std::move(run), std::move(can));
    };
    m_actions->setList(m_parts.list, [view] { return view->chosenRows(); });
    bind(Command::Open, [this](const Rows &) { Q_EMIT openRequested(); });
    bind(
        Command::Reveal, [this](const Rows &rows) { Q_EMIT revealRequested(localPathOf(rows.constFirst())); },
        [](const QModelIndex &row) { return !localPathOf(row).isEmpty(); });
    bind(Command::Download, [this](const Rows &rows) { download(idsOf(rows)); });
    bind(Command::Cut, [this](const Rows &rows) { carry(idsOf(rows), true); });
    bind(Command::Copy, [this](const Rows &rows) { carry(idsOf(rows), false); });
    bind(Command::Paste, [this](const Rows &) { paste(); });
    bind(Command::MoveTo, [this](const Rows &rows) { chooseFolder(idsOf(rows)); });
    bind(Command::Rename, [view](const Rows &rows) { view->beginRename(rows.constFirst()); });
    bind(Command::Trash, [this, logic, view](const Rows &rows) {
        const QStringList ids = idsOf(rows);
        view->setLeaving(ids);
        logic->trash(ids);
    });
    bind(Command::NewFolder, [this](const Rows &) { Q_EMIT newFolderRequested(); });
    bind(Command::UploadFiles, [this](const Rows &) { chooseUpload(false); });
    bind(Command::UploadFolder, [this](const Rows &) { chooseUpload(true); });
    bind(Command::Undo, [this](const Rows &) { Q_EMIT undoRequested(); });
    bind(Command::Reload, [logic](const Rows &) { logic->reload(); });
    bind(Command::Back, [logic](const Rows &) { logic->back(); });
    bind(Command::Forward, [logic](const Rows &) { logic->forward(); });
    bind(Command::Up, [logic](const Rows &) { logic->up(); });
}

void CloudDocCommands::update()
{
    const CloudDocLogic &logic = *m_parts.logic;
    const bool inFolder = logic.state() == CloudDocLogic::State::Ready;
    for (const Command command :
        {Command::Download, Command::Cut, Command::Copy, Command::Paste, Command::MoveTo, Command::Rename,
            Command::Trash, Command::NewFolder, Command::UploadFiles, Command::UploadFolder})
        action(command)->setEnabled(inFolder);
    action(Command::Back)->setEnabled(logic.canGoBack());
    action(Command::Forward)->setEnabled(logic.canGoForward());
    action(Command::Up)->setEnabled(logic.canGoUp());
}

QStringList CloudDocCommands::idsOf(const Rows &rows) const
{
    QStringList ids;
    for (const QModelIndex &row : rows)
        ids << row.data(CloudDocModel::IdRole).toString();
    return ids;
}

void CloudDocCommands::download(const QStringList &ids)
{
    const zel::FileQuestion question{zel::FileQuestion::Kind::Folder, tr("Download to"), tr("Download"),
        QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)};
    FileChooser::ask(question, m_parts.page,
        [logic = m_parts.logic, ids](const QStringList &paths) { logic->download(ids, paths.constFirst()); });
}

void CloudDocCommands::carry(const QStringList &ids, bool cut)
{
    QStringList paths;
    for (const QString &id : ids) {
        const CloudDocument *document = m_parts.logic->documents()->find(id);
        if (document && !document->localPath.isEmpty())
            paths << document->localPath;
    }
    const CarriedItems items{m_parts.logic->folderId(), ids, cut};
    QApplication::clipboard()->setMimeData(itemsMimeData(items, paths).release());
}

void CloudDocCommands::paste()
{
    CloudDocLogic *logic = m_parts.logic;
    const QMimeData *clipboard = QApplication::clipboard()->mimeData();
    const CarriedItems items = itemsOf(clipboard);
    const QString folder = logic->folderId();
    if (items.ids.isEmpty()) {
        const QStringList paths = localFiles(clipboard);
        if (paths.isEmpty())
            Q_EMIT notDone(tr("There are no files on the clipboard."));
        return upload(folder, paths);
    }
    if (!items.cut) { // beside themselves, items get another name without a question
        const bool beside = items.folderId == folder;
        return logic->copy(items.ids, folder, beside ? CloudNameChoice::KeepBoth : CloudNameChoice::Ask);
    }
    const CloudCrumbs way = logic->crumbs();
    if (std::any_of(
            way.cbegin(), way.cend(), [&](const CloudCrumb &one) { return items.ids.contains(one.id); })) {
        Q_EMIT notDone(tr("A folder cannot be moved into itself."));
        return;
    }
    QApplication::clipboard()->clear();
    m_pasted = items;
    if (items.folderId != folder)
        logic->move(items.ids, folder, CloudNameChoice::Ask, items.folderId);
}

void CloudDocCommands::onFailed(CloudOperation operation, CloudProblem problem)
{
    m_parts.view->setLeaving({}); // what stayed may be taken away by others
    if (operation != CloudOperation::Move || problem != CloudProblem::NotReached)
        return;
    QClipboard *clipboard = QApplication::clipboard();
    const QMimeData *there = clipboard->mimeData();
    if (!m_pasted.ids.isEmpty() && (!there || there->formats().isEmpty())) // they can be pasted again
        clipboard->setMimeData(itemsMimeData(std::exchange(m_pasted, {}), {}).release());
}

void CloudDocCommands::move(const QString &folderId, const QStringList &ids, const QString &fromFolder)
{
    m_parts.view->setLeaving(ids);
    m_parts.logic->move(ids, folderId, CloudNameChoice::Ask, fromFolder);
}

void CloudDocCommands::chooseFolder(const QStringList &ids)
{
    CloudDocLogic *logic = m_parts.logic;
    const CloudDocument *first = logic->documents()->find(ids.constFirst());
    if (!first)
        return;
    const auto mayMove = [logic, ids](const QString &folder) { return logic->canMoveTo(ids, folder); };
    auto *dialog = new MoveDialog(m_parts.proxy, ids, first->name, mayMove, m_parts.page);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &MoveDialog::folderChosen, this,
        [this, ids, from = logic->folderId()](const QString &folder) { move(folder, ids, from); });
    dialog->openFolder(logic->folderId());
    dialog->open();
}

void CloudDocCommands::chooseUpload(bool folder)
{
    using Kind = zel::FileQuestion::Kind;
    const QString target = m_parts.logic->folderId(); // as it is now, wherever the user goes meanwhile
    FileChooser::ask({folder ? Kind::Folder : Kind::Files,
                         folder ? tr("Upload a Folder") : tr("Upload Files"), tr("Upload"), {}},
        m_parts.page, [this, target](const QStringList &paths) { upload(target, paths); });
}

void CloudDocCommands::upload(const QString &folderId, const QStringList &localPaths)
{
    if (!localPaths.isEmpty())
        m_parts.logic->upload(localPaths, folderId);
}

void CloudDocCommands::askAboutConflicts(
    CloudOperation operation, const CloudConflicts &conflicts, const QString &target)
{
    if (conflicts.isEmpty())
        return;
    auto *dialog = new ConflictDialog(operation, conflicts, m_parts.page);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QStringList sources;
    for (const CloudConflict &conflict : conflicts)
        sources << conflict.source;
    connect(dialog, &ConflictDialog::choiceMade, this,
        [=, this](CloudNameChoice choice) { repeat(operation, sources, target, choice); });
    dialog->open();
}

void CloudDocCommands::repeat(
    CloudOperation operation, const QStringList &sources, const QString &target, CloudNameChoice choice)
{
    CloudDocLogic *logic = m_parts.logic;
    if (operation == CloudOperation::Upload)
        logic->upload(sources, target, choice);
    else if (operation == CloudOperation::Download)
        logic->download(sources, target, choice);
    else if (operation == CloudOperation::Copy)
        logic->copy(sources, target, choice);
    else if (operation == CloudOperation::Move)
        logic->move(sources, target, choice);
}

void CloudDocCommands::showMenu(const QPoint &pos)
{
    const QModelIndex index = m_parts.view->indexAt(pos);
    if (!index.isValid())
        m_parts.view->clearSelection();
    popUpMenu(index, m_parts.view->viewport()->mapToGlobal(pos));
}

void CloudDocCommands::showFolderMenu(const QPoint &globalPos)
{
    popUpMenu({}, globalPos);
}

void CloudDocCommands::popUpMenu(const QModelIndex &index, const QPoint &globalPos)
{
    auto *menu = new QMenu(m_parts.page);
    menu->setObjectName(QStringLiteral("menu-documents"));
    menu->setAccessibleName(
        index.isValid() ? tr("Actions for the selected documents") : tr("Actions for the folder"));
    m_actions->fill(menu, index.isValid() ? RowMenu : FolderMenu, m_parts.view->selectedRows());
    if (index.isValid())
        menu->setDefaultAction(menu->actions().constFirst());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_parts.view->popUp(menu, globalPos);
}

// The part of the page that acts on rows: clicks, menus, dialogs, and what is said afterwards.

#include "recentfile/ui/recentfilewidgetbase.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentdrag.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/recentguides.h"
#include "recentfile/ui/sharedialog.h"
#include "widgets/noticebar.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>

using namespace zel::recent;
using telemetry::Event;

namespace {

constexpr int UndoTime = 10000; // ms
constexpr int MostOpenedAtOnce = 10;

bool isInTheCloudOnly(const RecentFileInfo &record)
{
    return record.path.isEmpty() && record.cloudFileId == 0;
}

} // namespace

void ZelBoxRecentFileWidgetBase::connectView()
{
    using View = ZelBoxRecentFileListView;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_view, &View::clicked, this, &Self::onItemClicked);
    connect(m_view, &View::doubleClicked, this, &Self::onItemDoubleClicked);
    connect(m_view, &View::activated, this, [this](const QModelIndex &index) { openRows(rowsFor(index)); });
    connect(m_view, &View::customContextMenuRequested, this, &Self::onCustomContextMenuRequested);
    connect(m_view, &View::sigMoreRequested, this, [this](const QPersistentModelIndex &index, QPoint pos) {
        telemetry::post(Event::ListMoreClick);
        showMenu(index, pos);
    });
    connect(m_view, &View::sigShareDoc, this, [this](const QPersistentModelIndex &index) {
        telemetry::post(Event::ListShareClick);
        onShareDoc(index, false);
    });
    connect(m_view, &View::sigVisibleRowsSettled, this, &Self::checkPresence);
    connect(m_view, &View::sigRemoveRequested, this, [this] { onMenuRemoveRecordAction(actedOn()); });
    connect(m_view, &View::sigDeleteFileRequested, this, [this] { onMenuRemoveFileAction(actedOn()); });
    connect(m_view, &View::sigCopyRequested, this, [this] { copyFiles(actedOn()); });
    connect(m_view, &View::sigOpenFolderRequested, this,
        [this] { onMenuOpenFilePathAction(m_view->currentIndex()); });
    connect(m_view, &View::sigFilesDropped, m_actions, &RecentFileActions::addFiles);
    connect(m_view, &View::sigTextTyped, this, [this](const QString &typed) {
        if (m_host)
            m_host->beginFinding(typed);
    });
    m_clickTimer.setSingleShot(true);
    connect(&m_clickTimer, &QTimer::timeout, this, &Self::onClickTimeout);
}

void ZelBoxRecentFileWidgetBase::connectActions()
{
    using Self = ZelBoxRecentFileWidgetBase;
    connect(m_actions, &RecentFileActions::filesDeleted, this, &Self::onFilesDeleted);
    connect(m_actions, &RecentFileActions::filesRestored, this, &Self::onFilesRestored);
    connect(m_actions, &RecentFileActions::folderNotShown, this, [this](KDocumentOpener::Outcome why) {
        m_notice->showText(why == KDocumentOpener::Outcome::Missing ? tr("The folder is no longer there.")
                                                                    : tr("The folder cannot be shown."));
    });
    connect(m_undo, &NoticeBar::actionTriggered, m_actions, &RecentFileActions::undoDelete);
    connect(m_undo, &NoticeBar::dismissed, m_actions, &RecentFileActions::giveUpUndo);
    connect(m_logic, &KRecentFileLogic::shareNotServed, this, &Self::showShareDialog);
}

QModelIndex ZelBoxRecentFileWidgetBase::toSource(const QModelIndex &index) const
{
    return m_rows->mapToSource(index);
}

const RecentFileInfo &ZelBoxRecentFileWidgetBase::recordAt(const QModelIndex &index) const
{
    return m_model->record(toSource(index).row());
}

QModelIndexList ZelBoxRecentFileWidgetBase::rowsFor(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    const QModelIndexList selected = m_view->selectedRows();
    return selected.contains(index) ? selected : QModelIndexList{index};
}

// With Ctrl held, the current row can be one that is not selected: keys mean the selected ones.
QModelIndex ZelBoxRecentFileWidgetBase::actedOn() const
{
    const QModelIndexList selected = m_view->selectedRows();
    const QModelIndex current = m_view->currentIndex();
    return selected.isEmpty() || selected.contains(current) ? current : selected.first();
}

RecordInfoList ZelBoxRecentFileWidgetBase::recordsFor(const QModelIndex &index) const
{
    RecordInfoList records;
    const QModelIndexList rows = rowsFor(index);
    for (const QModelIndex &row : rows)
        records << recordAt(row);
    return records;
}

QStringList ZelBoxRecentFileWidgetBase::filesFor(const QModelIndex &index) const
{
    QStringList paths;
    const RecordInfoList records = recordsFor(index);
    for (const RecentFileInfo &record : records) {
        if (!record.path.isEmpty())
            paths << record.path;
    }
    return paths;
}

void ZelBoxRecentFileWidgetBase::checkPresence(const QModelIndexList &rows)
{
    QModelIndexList sources;
    for (const QModelIndex &row : rows)
        sources << toSource(row);
    m_logic->checkPresence(sources);
}

void ZelBoxRecentFileWidgetBase::onItemClicked(const QModelIndex &index)
{
    m_clicked = index;
    m_clickTimer.start(QApplication::doubleClickInterval());
}

void ZelBoxRecentFileWidgetBase::onClickTimeout()
{
    if (m_clicked.isValid())
        telemetry::clicked(m_clicked.row(), recordAt(m_clicked));
}

void ZelBoxRecentFileWidgetBase::onItemDoubleClicked(const QModelIndex &index)
{
    m_clickTimer.stop();
    if (!index.isValid())
        return;
    telemetry::doubleClicked(index.row(), recordAt(index));
    open(index);
}

void ZelBoxRecentFileWidgetBase::openRows(const QModelIndexList &rows)
{
    if (rows.size() > MostOpenedAtOnce) {
        m_notice->showText(tr("At most %n documents are opened at once.", nullptr, MostOpenedAtOnce));
        return;
    }
    const QVector<QPersistentModelIndex> kept(rows.cbegin(), rows.cend()); // opening moves rows
    for (const QPersistentModelIndex &index : kept)
        open(index);
}

void ZelBoxRecentFileWidgetBase::open(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const QPersistentModelIndex kept = index;
    m_logic->open(toSource(index));
    m_logic->onUpdateRecentRoamingFileItemsWithSync();
    Q_EMIT sigRecentFileItemOpen(kept);
}

void ZelBoxRecentFileWidgetBase::openWith(const QModelIndex &index, const QString &programId)
{
    if (!index.isValid())
        return;
    m_logic->openWith(toSource(index), programId);
    Q_EMIT sigRecentFileItemOtherMenuTriggered(index);
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
    const RecordInfoList records = recordsFor(index);
    KRecentFileMenu::Rows rows;
    rows.count = records.size();
    rows.pinned = true;
    for (const RecentFileInfo &record : records) {
        const bool there = !record.path.isEmpty() && record.presence != RecentFileInfo::Presence::Missing;
        rows.haveFiles = rows.haveFiles && there;
        rows.canDelete = rows.canDelete && (there || record.cloudFileId != 0);
        rows.pinned = rows.pinned && record.pinned;
        rows.inCloud = record.cloudBacked && record.cloudFileId != 0;
    }
    delete m_menu;
    m_menu = new KRecentFileMenu(index, rows, this);
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    connectMenu(m_menu);
    if (rows.count == 1 && rows.haveFiles) {
        connect(m_actions, &RecentFileActions::programsFound, m_menu, &KRecentFileMenu::setPrograms);
        m_actions->findPrograms(records.constFirst());
    }
    m_menu->popup(globalPos);
}

void ZelBoxRecentFileWidgetBase::connectMenu(KRecentFileMenu *menu)
{
    using Menu = KRecentFileMenu;
    using Self = ZelBoxRecentFileWidgetBase;
    connect(menu, &QMenu::aboutToShow, this, &Self::sigRecentFileMenuAboutToShow);
    connect(menu, &QMenu::aboutToHide, this, &Self::sigRecentFileMenuAboutToHide);
    connect(menu, &Menu::openFile, this, &Self::onMenuOpenFileAction);
    connect(menu, &Menu::openFileWith, this, &Self::openWith);
    connect(menu, &Menu::openFilePath, this, &Self::onMenuOpenFilePathAction);
    connect(menu, &Menu::removeRecord, this, &Self::onMenuRemoveRecordAction);
    connect(menu, &Menu::removeFile, this, &Self::onMenuRemoveFileAction);
    connect(menu, &Menu::sigShareDoc, this, &Self::onShareDoc);
    connect(menu, &Menu::sigTipOffFile, this, &Self::onMenuTipOffFileAction);
    connect(menu, &Menu::copyFile, this, &Self::copyFiles);
    connect(menu, &Menu::copyPath, this, &Self::copyPaths);
    connect(menu, &Menu::pinToggled, this, [this](const QPersistentModelIndex &index, bool pinned) {
        m_actions->setPinned(recordsFor(index), pinned);
        Q_EMIT sigRecentFileItemOtherMenuTriggered(index);
    });
}

void ZelBoxRecentFileWidgetBase::onMenuOpenFileAction(const QPersistentModelIndex &index)
{
    openRows(rowsFor(index));
}

void ZelBoxRecentFileWidgetBase::onMenuOpenFilePathAction(const QPersistentModelIndex &index)
{
    if (!index.isValid())
        return;
    m_actions->openFolder(recordAt(index));
    Q_EMIT sigRecentFileItemOpenPath(index);
}

void ZelBoxRecentFileWidgetBase::onMenuRemoveRecordAction(const QPersistentModelIndex &index)
{
    const RecordInfoList records = recordsFor(index);
    if (records.isEmpty())
        return;
    auto *dialog =
        new RemoveRecordDialog(index.data(ZelBoxRecentFileModel::NameRole).toString(), records.size(), this);
    connect(dialog, &QDialog::accepted, this, [this, records] { m_actions->removeRecords(records); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void ZelBoxRecentFileWidgetBase::onMenuRemoveFileAction(const QPersistentModelIndex &index)
{
    const RecordInfoList records = recordsFor(index);
    if (records.isEmpty())
        return;
    if (std::any_of(records.cbegin(), records.cend(), isInTheCloudOnly)) {
        m_notice->showText(tr("This file is on another device only."));
        return;
    }
    auto *dialog =
        new DeleteFileDialog(index.data(ZelBoxRecentFileModel::NameRole).toString(), records.size(), this);
    connect(dialog, &QDialog::accepted, this, [this, records] { m_actions->deleteFiles(records); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void ZelBoxRecentFileWidgetBase::onMenuTipOffFileAction(const QPersistentModelIndex &index)
{
    if (!index.isValid())
        return;
    m_actions->report(recordAt(index));
    m_notice->showText(tr("The document was reported."), NoticeBar::Tone::Info);
    Q_EMIT sigRecentFileItemOtherMenuTriggered(index);
}

void ZelBoxRecentFileWidgetBase::onFilesDeleted(const RecordInfoList &deleted, const RecordInfoList &failed)
{
    if (deleted.isEmpty()) {
        m_notice->showText(tr("%n file(s) could not be deleted.", nullptr, failed.size()));
        return;
    }
    QString text = tr("%n file(s) moved to the recycle bin.", nullptr, deleted.size());
    if (!failed.isEmpty())
        text += QLatin1Char(' ') + tr("%n file(s) could not be deleted.", nullptr, failed.size());
    m_undo->showAction(text, tr("Undo"), NoticeBar::Tone::Info, UndoTime);
}

void ZelBoxRecentFileWidgetBase::onFilesRestored(int restored, int failed)
{
    if (failed > 0)
        m_notice->showText(tr("%n file(s) could not be brought back.", nullptr, failed));
    else
        m_notice->showText(tr("%n file(s) brought back.", nullptr, restored), NoticeBar::Tone::Info);
}

// With a service that shares, its dialog shows; else ours.
void ZelBoxRecentFileWidgetBase::onShareDoc(const QPersistentModelIndex &index, bool)
{
    if (!index.isValid())
        return;
    if (m_logic->isLoggedIn())
        m_logic->share(toSource(index));
    else
        showShareDialog(recordAt(index));
    Q_EMIT sigRecentFileItemShare(index);
}

void ZelBoxRecentFileWidgetBase::showShareDialog(const RecentFileInfo &record)
{
    auto *dialog = new ShareDialog(record, this);
    const QStringList paths{record.path};
    connect(dialog, &ShareDialog::copyFileChosen, this, [this, paths] {
        QApplication::clipboard()->setMimeData(fileMimeData(paths).release());
        m_notice->showText(tr("The file is on the clipboard."), NoticeBar::Tone::Info);
    });
    connect(dialog, &ShareDialog::copyPathChosen, this, [this, record] {
        QApplication::clipboard()->setText(record.path);
        m_notice->showText(tr("The path is on the clipboard."), NoticeBar::Tone::Info);
    });
    connect(dialog, &ShareDialog::openFolderChosen, this, [this, record] { m_actions->openFolder(record); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void ZelBoxRecentFileWidgetBase::copyFiles(const QModelIndex &index)
{
    if (std::unique_ptr<QMimeData> files = fileMimeData(filesFor(index)))
        QApplication::clipboard()->setMimeData(files.release());
}

void ZelBoxRecentFileWidgetBase::copyPaths(const QModelIndex &index)
{
    QApplication::clipboard()->setText(filesFor(index).join(QLatin1Char('\n')));
}

void ZelBoxRecentFileWidgetBase::openChosenFile()
{
    auto *dialog = new QFileDialog(this, tr("Open a File"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, m_logic, &KRecentFileLogic::openPath);
    dialog->open();
}

void ZelBoxRecentFileWidgetBase::showRoamingGuide()
{
    auto *dialog = new ZelBoxRecentFileGuideDialog(this);
    connect(dialog, &ZelBoxRecentFileGuideDialog::settingsRequested, this,
        &ZelBoxRecentFileWidgetBase::sigSettingsWanted);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

#include "recentfile/ui/recentcommands.h"

#include "lists/ui/listactions.h"
#include "lists/ui/openingnotices.h"
#include "lists/ui/undooffer.h"
#include "recentfile/recentfileactions.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"
#include "recentfile/recordtexts.h"
#include "recentfile/ui/recentcommandtexts.h"
#include "recentfile/ui/recentdialogs.h"
#include "recentfile/ui/recentfilelistview.h"
#include "recentfile/ui/recentfilemenu.h"
#include "recentfile/ui/sharedialog.h"
#include "widgets/filedrag.h"
#include "widgets/noticearea.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <algorithm>

using Command = RecentCommand;
using Rows = QModelIndexList;
using Tone = NoticeBar::Tone;

namespace {

bool isThere(const RecentFileInfo &record)
{
    return !record.path.isEmpty() && record.presence != RecentFileInfo::Presence::Missing;
}

QStringList idsOf(const RecordInfoList &records)
{
    QStringList ids;
    for (const RecentFileInfo &record : records)
        ids << record.id;
    return ids;
}

} // namespace

RecentCommands::RecentCommands(KRecentFileLogic *logic, RecentFileActions *actions,
    ZelBoxRecentFileListView *view, NoticeArea *notices, QWidget *page)
    : QObject(page),
      m_logic(logic),
      m_actions(actions),
      m_view(view),
      m_notices(notices),
      m_page(page),
      m_notice(notices->addBar()),
      m_commands(new ListActions(recentActionTable(), page)),
      m_undo(new UndoOffer(notices->addBar(), action(Command::Undo), this)),
      m_openingNotices(new OpeningNotices(logic->opening(), m_notice, this))
{
    m_notice->setObjectName(QStringLiteral("notice"));
    m_commands->setList(view, [view] { return view->chosenRows(); });
    bindOpening();
    bindKeeping();
    bindRemoving();
    connectResults();
}

void RecentCommands::bindOpening()
{
    const auto there = [this](const QModelIndex &row) { return isThere(recordAt(row)); };
    const auto bind = [this](Command command, auto run, ListActions::Can can = {}) {
        m_commands->bind(int(command), run, std::move(can));
    };
    bind(
        Command::Open, [this](const Rows &rows) { openAll(rows); }, there);
    bind(Command::OpenWith, nullptr, there);
    bind(
        Command::OpenFolder,
        [this](const Rows &rows) {
            const QModelIndex current = m_view->currentIndex();
            const QModelIndex row = rows.contains(current) ? current : rows.constFirst();
            m_logic->opening()->reveal(recordAt(row).path);
            Q_EMIT folderRequested(row);
        },
        there);
    bind(Command::Share, [this](const Rows &rows) { share(rows.constFirst()); });
    bind(
        Command::TipOff, [this](const Rows &rows) { report(rows.constFirst()); },
        [this](
            const QModelIndex &row) { return recordAt(row).cloudBacked && recordAt(row).cloudFileId != 0; });
}

void RecentCommands::bindKeeping()
{
    const auto there = [this](const QModelIndex &row) { return isThere(recordAt(row)); };
    m_commands->bind(int(Command::Pin), [this](const Rows &rows) { setPinned(rows); });
    m_commands->bind(
        int(Command::Copy),
        [this](const Rows &rows) {
            QApplication::clipboard()->setMimeData(zel::fileMimeData(pathsOf(rows)).release());
        },
        there);
    m_commands->bind(
        int(Command::CopyPath),
        [this](
            const Rows &rows) { QApplication::clipboard()->setText(pathsOf(rows).join(QLatin1Char('\n'))); },
        there);
}

void RecentCommands::bindRemoving()
{
    m_commands->bind(int(Command::Remove), [this](const Rows &rows) { askToRemove(rows); });
    m_commands->bind(
        int(Command::DeleteFile), [this](const Rows &rows) { askToDelete(rows); },
        [this](const QModelIndex &row) { return isThere(recordAt(row)) || recordAt(row).cloudFileId != 0; });
    m_commands->bind(int(Command::Undo), [this](const Rows &) { m_undo->undo(); });
    m_commands->bind(
        int(Command::Refresh), [this](const Rows &) { m_logic->onUpdateRecentRoamingFileItemsWithSync(); });
}

void RecentCommands::connectResults()
{
    connect(m_commands, &ListActions::aboutToRun, this, [this](int command) {
        if (command != int(Command::Undo))
            retire();
    });
    connect(m_commands, &ListActions::leftOut, this,
        [this](int, const QModelIndexList &rows) { onLeftOut(rows); });
    connect(m_actions, &RecentFileActions::filesDeleted, this, &RecentCommands::onFilesDeleted);
    connect(m_actions, &RecentFileActions::filesRestored, this, &RecentCommands::onFilesRestored);
    connect(m_logic, &KRecentFileLogic::historyCleared, m_undo, &UndoOffer::withdraw);
    connect(m_logic, &KRecentFileLogic::shareNotServed, this, &RecentCommands::showShareDialog);
}

void RecentCommands::run(RecentCommand command, const QModelIndexList &rows)
{
    m_commands->run(int(command), rows);
}

QAction *RecentCommands::action(RecentCommand command) const
{
    return m_commands->action(int(command));
}

KRecentFileMenu *RecentCommands::makeMenu(const QModelIndex &asked, const QModelIndexList &rows)
{
    const bool pinned = std::all_of(
        rows.cbegin(), rows.cend(), [this](const QModelIndex &row) { return recordAt(row).pinned; });
    auto *menu = new KRecentFileMenu(asked, *m_commands, rows, pinned, m_page);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (menu->wantsPrograms()) {
        connect(m_logic->opening(), &DocumentOpening::programsFound, menu,
            [menu](const QString &, const KProgramList &programs) { menu->setPrograms(programs); });
        m_logic->opening()->findPrograms(recordAt(asked).path);
    }
    return menu;
}

const RecentFileInfo &RecentCommands::recordAt(const QModelIndex &row) const
{
    return m_view->recentModel()->record(row.row());
}

RecordInfoList RecentCommands::recordsOf(const QModelIndexList &rows) const
{
    RecordInfoList records;
    for (const QModelIndex &row : rows)
        records << recordAt(row);
    return records;
}

QStringList RecentCommands::pathsOf(const QModelIndexList &rows) const
{
    QStringList paths;
    for (const QModelIndex &row : rows)
        paths << recordAt(row).path;
    return paths;
}

void RecentCommands::retire()
{
    m_undo->withdraw();
    m_notices->retire();
}

void RecentCommands::open(const QModelIndexList &rows)
{
    retire();
    if (!m_openingNotices->mayOpen(rows.size()))
        return;
    if (rows.size() == 1)
        openAll(rows);
    else
        run(Command::Open, rows);
}

void RecentCommands::openAll(const QModelIndexList &rows)
{
    const QVector<QPersistentModelIndex> kept(rows.cbegin(), rows.cend()); // opening moves rows
    for (const QPersistentModelIndex &row : kept) {
        m_logic->open(m_view->recentModel()->mapToSource(row));
        m_logic->onUpdateRecentRoamingFileItemsWithSync();
        Q_EMIT openRequested(row);
    }
}

void RecentCommands::openWith(const QModelIndex &row, const QString &programId)
{
    if (!row.isValid())
        return;
    retire();
    m_logic->openWith(m_view->recentModel()->mapToSource(row), programId);
    Q_EMIT otherRequested(row);
}

// Pinned is what they all are.
void RecentCommands::setPinned(const QModelIndexList &rows)
{
    const RecordInfoList records = recordsOf(rows);
    RecordInfoList changed;
    std::copy_if(records.cbegin(), records.cend(), std::back_inserter(changed),
        [](const RecentFileInfo &each) { return !each.pinned; });
    const bool pins = !changed.isEmpty();
    if (!pins)
        changed = records;
    m_actions->setPinned(changed, pins);
    m_undo->offer({}, pins ? tr("Undo Pinning") : tr("Undo Unpinning"),
        [this, changed, pins] { m_actions->setPinned(changed, !pins); });
    Q_EMIT otherRequested(rows.constFirst());
}

// Where they stood before is not known any more.
void RecentCommands::addFiles(const QStringList &paths)
{
    retire();
    m_actions->addFiles(paths);
}

void RecentCommands::askToRemove(const QModelIndexList &rows)
{
    const RecordInfoList records = recordsOf(rows);
    auto *dialog = new RemoveRecordDialog(records, m_page);
    connect(dialog, &QDialog::accepted, this, [this, records] { remove(records); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void RecentCommands::remove(const RecordInfoList &records)
{
    m_view->setLeaving(idsOf(records));
    m_actions->removeRecords(records);
    const QString said = zel::recent::removedText(records);
    if (zel::recent::countLocal(records) > 0)
        return m_undo->offer(said, tr("Undo Removal"), [this, records] { restore(records); });
    m_undo->withdraw();
    m_notice->showText(said, Tone::Info);
}

void RecentCommands::restore(const RecordInfoList &records)
{
    m_view->setReturning(idsOf(records));
    m_actions->restoreRecords(records);
    m_notice->showText(zel::recent::backOnListText(records), Tone::Info);
}

void RecentCommands::askToDelete(const QModelIndexList &rows)
{
    const RecordInfoList records = recordsOf(rows);
    auto *dialog =
        new DeleteFileDialog(zel::recent::noticeName(records.constFirst()), records.size(), m_page);
    connect(dialog, &QDialog::accepted, this, [this, records] {
        m_undo->withdraw(); // the next offer is for what goes now
        m_view->setLeaving(idsOf(records));
        m_actions->deleteFiles(records);
    });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void RecentCommands::onFilesDeleted(const RecordInfoList &deleted, const RecordInfoList &failed)
{
    if (!failed.isEmpty()) {
        m_view->setLeaving(idsOf(deleted));
        m_notice->showText(zel::recent::notDeletedText(failed));
    }
    if (!deleted.isEmpty())
        offerUndoDelete(zel::recent::deletedText(deleted), Tone::Info);
}

void RecentCommands::onFilesRestored(const RecordInfoList &restored, const RecordInfoList &failed)
{
    m_view->setReturning(idsOf(restored)); // the store tells of them later
    if (failed.isEmpty())
        return m_notice->showText(zel::recent::broughtBackText(restored), Tone::Info);
    const QString text = zel::recent::notBroughtBackText(failed);
    if (m_actions->canUndoDelete() && !action(Command::Undo)->isEnabled()) // else that is for something new
        offerUndoDelete(text, Tone::Problem);
    else
        m_notice->showText(text);
}

void RecentCommands::offerUndoDelete(const QString &text, Tone tone)
{
    m_undo->offer(
        text, tr("Undo Deletion"), [this] { m_actions->undoDelete(); }, tone);
}

void RecentCommands::onLeftOut(const QModelIndexList &rows)
{
    if (rows.size() > 1)
        return m_notice->showText(
            tr("%Ln document(s) were left out: they are not on this device.", nullptr, rows.size()));
    if (!rows.constFirst().isValid())
        return; // it has gone meanwhile
    const RecentFileInfo &record = recordAt(rows.constFirst());
    m_openingNotices->tell(zel::recent::shownName(record),
        record.path.isEmpty() ? DocumentOpening::Problem::NotOnThisDevice
                              : DocumentOpening::Problem::Missing);
}

// With a service that shares, its dialog shows; else ours.
void RecentCommands::share(const QModelIndex &row)
{
    if (m_logic->isLoggedIn())
        m_logic->share(m_view->recentModel()->mapToSource(row));
    else
        showShareDialog(recordAt(row));
    Q_EMIT shareRequested(row);
}

void RecentCommands::showShareDialog(const RecentFileInfo &record)
{
    auto *dialog = new ShareDialog(record, m_page);
    const QString name = zel::recent::noticeName(record);
    connect(dialog, &ShareDialog::copyFileChosen, this, [this, record, name] {
        QApplication::clipboard()->setMimeData(zel::fileMimeData({record.path}).release());
        m_notice->showText(tr("“%1” is on the clipboard.").arg(name), Tone::Info);
    });
    connect(dialog, &ShareDialog::copyPathChosen, this, [this, record, name] {
        QApplication::clipboard()->setText(record.path);
        m_notice->showText(tr("The path of “%1” is on the clipboard.").arg(name), Tone::Info);
    });
    connect(dialog, &ShareDialog::openFolderChosen, this,
        [this, record] { m_logic->opening()->reveal(record.path); });
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void RecentCommands::report(const QModelIndex &row)
{
    m_actions->report(recordAt(row));
    m_notice->showText(tr("“%1” was reported.").arg(zel::recent::noticeName(recordAt(row))), Tone::Info);
    Q_EMIT otherRequested(row);
}

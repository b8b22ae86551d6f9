#include "recentfile/ui/recentfilemenu.h"

#include "recentfile/recenttelemetry.h"
#include "widgets/svgicon.h"

#include <QIcon>

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;

static QIcon lineIcon(const char *name)
{
    return zel::tintedIcon(QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name)));
}

KRecentFileMenu::KRecentFileMenu(const QPersistentModelIndex &index, const Rows &rows, QWidget *parent)
    : QMenu(parent), m_index(index)
{
    setAccessibleName(tr("Actions for the document"));
    addOpening(rows);
    addSeparator();
    addKeeping(rows);
    addSeparator();
    addRemoving(rows);
}

void KRecentFileMenu::addOpening(const Rows &rows)
{
    QAction *open = addAction(tr("Open"), this, &KRecentFileMenu::onOpenFileAction, Qt::Key_Return);
    open->setEnabled(rows.haveFiles);
    setDefaultAction(open);
    if (rows.count > 1)
        return;
    m_programs = addMenu(tr("Open With"));
    m_programs->setEnabled(rows.haveFiles);
    m_programs->addAction(tr("Looking for programs…"))->setEnabled(false);
    QAction *folder = addAction(lineIcon("folder_open"), tr("Open Folder"), this,
        &KRecentFileMenu::onOpenFilePathAction, int(Qt::CTRL) | int(Qt::Key_Return));
    folder->setEnabled(rows.haveFiles);
    addAction(lineIcon("16x16/zelbox_share"), tr("share doc"), this, &KRecentFileMenu::onShareDocAction);
}

void KRecentFileMenu::addKeeping(const Rows &rows)
{
    addAction(lineIcon("pin"), rows.pinned ? tr("Unpin") : tr("Pin to Top"), this,
        [this, rows] { Q_EMIT pinToggled(m_index, !rows.pinned); });
    QAction *copy = addAction(
        tr("Copy"), this, [this] { Q_EMIT copyFile(m_index); }, QKeySequence::Copy);
    copy->setEnabled(rows.haveFiles);
    QAction *path = addAction(tr("Copy Path"), this, [this] { Q_EMIT copyPath(m_index); });
    path->setEnabled(rows.haveFiles);
}

void KRecentFileMenu::addRemoving(const Rows &rows)
{
    addAction(tr("Remove"), this, &KRecentFileMenu::onRemoveRecordAction, QKeySequence::Delete);
    QAction *remove = addAction(lineIcon("trash"), tr("Delete File"), this,
        &KRecentFileMenu::onRemoveFileAction, int(Qt::SHIFT) | int(Qt::Key_Delete));
    remove->setEnabled(rows.canDelete);
    if (!rows.inCloud || rows.count > 1)
        return;
    addSeparator();
    addAction(tr("Tip-Off"), this, &KRecentFileMenu::onTipOffFileAction);
}

void KRecentFileMenu::setPrograms(const KProgramList &programs)
{
    if (!m_programs)
        return;
    m_programs->clear();
    for (const KProgram &program : programs) {
        QString name = program.name;
        name.replace(QLatin1Char('&'), QStringLiteral("&&"));
        const QString text = program.isDefault ? tr("%1 (default)").arg(name) : name;
        const QIcon picture = program.iconName.startsWith(QLatin1Char('/'))
            ? QIcon(program.iconName)
            : QIcon::fromTheme(program.iconName);
        m_programs->addAction(picture, text, this, [this, id = program.id] {
            telemetry::post(Event::RightListAppClick);
            Q_EMIT openFileWith(m_index, id);
        });
    }
    if (programs.isEmpty())
        m_programs->addAction(tr("No program found"))->setEnabled(false);
}

void KRecentFileMenu::showEvent(QShowEvent *event)
{
    QMenu::showEvent(event);
    telemetry::post(Event::RightListShow);
}

void KRecentFileMenu::onOpenFileAction()
{
    telemetry::post(Event::RightListOpenClick);
    Q_EMIT openFile(m_index);
}

void KRecentFileMenu::onShareDocAction()
{
    telemetry::post(Event::RightListShareClick);
    Q_EMIT sigShareDoc(m_index, true);
}

void KRecentFileMenu::onOpenFilePathAction()
{
    telemetry::post(Event::RightListOpenPathClick);
    Q_EMIT openFilePath(m_index);
}

void KRecentFileMenu::onRemoveRecordAction()
{
    telemetry::post(Event::RightListDeleteClick);
    Q_EMIT removeRecord(m_index);
}

void KRecentFileMenu::onRemoveFileAction()
{
    telemetry::post(Event::RightListDeleteFileClick);
    Q_EMIT removeFile(m_index);
}

void KRecentFileMenu::onTipOffFileAction()
{
    telemetry::post(Event::RightListTipOffFileClick);
    Q_EMIT sigTipOffFile(m_index);
}

#include "recentfile/ui/recentfilemenu.h"

#include "lists/listmodel.h"
#include "lists/ui/listactions.h"
#include "recentfile/recenttelemetry.h"

#include <QIcon>
#include <algorithm>

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;

using Command = RecentCommand;

KRecentFileMenu::KRecentFileMenu(const QPersistentModelIndex &index, const ListActions &actions,
    const QModelIndexList &rows, bool pinned, QWidget *parent)
    : QMenu(parent), m_model(qobject_cast<const ListModel *>(index.model())), m_id(m_model->idOf(index.row()))
{
    setAccessibleName(tr("Actions for the document"));
    QVector<int> commands;
    const auto add = [&](std::initializer_list<Command> some) {
        for (const Command command : some)
            commands << int(command);
    };
    add({Command::Open});
    if (rows.size() == 1)
        add({Command::OpenWith, Command::OpenFolder, Command::Share});
    add({Command::Pin, Command::Copy, Command::CopyPath, Command::Remove, Command::DeleteFile});
    for (const Command command : {Command::TipOff, Command::Undo}) {
        if (actions.canRun(int(command), rows))
            add({command});
    }
    actions.table().fill(
        this, commands, [&](int command) { return actions.rowsFor(command, rows); },
        [this](int command) { choose(Command(command)); });
    setDefaultAction(entry(Command::Open));
    if (pinned)
        entry(Command::Pin)->setText(tr("Unpin"));
    if (QAction *undo = entry(Command::Undo)) // it says what would be undone
        undo->setText(actions.action(int(Command::Undo))->text());
    if (QAction *programs = entry(Command::OpenWith))
        addPrograms(programs);
}

// A reload, which takes all rows away for a moment, has happened to others than the user.
QPersistentModelIndex KRecentFileMenu::row() const
{
    return m_model->index(m_model->rowOf(m_id));
}

QAction *KRecentFileMenu::entry(RecentCommand command) const
{
    const QList<QAction *> entries = actions();
    const auto found = std::find_if(entries.cbegin(), entries.cend(),
        [&](const QAction *each) { return each->data().isValid() && each->data().toInt() == int(command); });
    return found == entries.cend() ? nullptr : *found;
}

void KRecentFileMenu::addPrograms(QAction *entry)
{
    m_programs = new QMenu(this);
    m_programs->addAction(tr("Looking for programs…"))->setEnabled(false);
    entry->setMenu(m_programs);
}

bool KRecentFileMenu::wantsPrograms() const
{
    return m_programs && m_programs->menuAction()->isEnabled();
}

void KRecentFileMenu::choose(RecentCommand command)
{
    switch (command) {
    case Command::Open:
        return onOpenFileAction();
    case Command::OpenFolder:
        return onOpenFilePathAction();
    case Command::Share:
        return onShareDocAction();
    case Command::Remove:
        return onRemoveRecordAction();
    case Command::DeleteFile:
        return onRemoveFileAction();
    case Command::TipOff:
        return onTipOffFileAction();
    case Command::OpenWith: // a submenu
    case Command::Pin:
    case Command::Copy:
    case Command::CopyPath:
    case Command::Undo:
    case Command::Refresh:
        Q_EMIT commandChosen(row(), command);
    }
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
            Q_EMIT openFileWith(row(), id);
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
    Q_EMIT openFile(row());
}

void KRecentFileMenu::onShareDocAction()
{
    telemetry::post(Event::RightListShareClick);
    Q_EMIT sigShareDoc(row(), true);
}

void KRecentFileMenu::onOpenFilePathAction()
{
    telemetry::post(Event::RightListOpenPathClick);
    Q_EMIT openFilePath(row());
}

void KRecentFileMenu::onRemoveRecordAction()
{
    telemetry::post(Event::RightListDeleteClick);
    Q_EMIT removeRecord(row());
}

void KRecentFileMenu::onRemoveFileAction()
{
    telemetry::post(Event::RightListDeleteFileClick);
    Q_EMIT removeFile(row());
}

void KRecentFileMenu::onTipOffFileAction()
{
    telemetry::post(Event::RightListTipOffFileClick);
    Q_EMIT sigTipOffFile(row());
}

#include "widgets/actiontable.h"

#include "widgets/svgicon.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <algorithm>

namespace zel {

const ActionRow &ActionTable::row(int command) const
{
    const auto found = std::find_if(
        rows.cbegin(), rows.cend(), [command](const ActionRow &row) { return row.command == command; });
    Q_ASSERT(found != rows.cend());
    return *found;
}

QString ActionTable::text(int command, int count) const
{
    const ActionRow &row = this->row(command);
    return count > 1 && row.several ? QCoreApplication::translate(context, row.several, nullptr, count)
                                    : QCoreApplication::translate(context, row.text);
}

QString ActionTable::explained(int command) const
{
    const ActionRow &row = this->row(command);
    return QCoreApplication::translate(context, row.explained ? row.explained : row.text);
}

QString ActionTable::toolTip(int command) const
{
    const QList<QKeySequence> &keys = row(command).keys;
    if (keys.isEmpty())
        return explained(command);
    return QCoreApplication::translate("ActionTable", "%1 (%2)", "what a button does, its keys")
        .arg(explained(command), keys.constFirst().toString(QKeySequence::NativeText));
}

QAction *ActionTable::make(int command, QObject *parent) const
{
    const ActionRow &row = this->row(command);
    auto *action = new QAction(text(command), parent);
    action->setObjectName(QLatin1String(row.id));
    action->setData(command);
    action->setToolTip(toolTip(command));
    if (row.icon) {
        const QString path = QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(row.icon));
        action->setIcon(tintedIcon(path));
        action->setProperty("zelIcon", path); // for buttons that draw it themselves
    }
    action->setShortcuts(row.keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setAutoRepeat(false); // a key that is held down does not delete one file after the other
    return action;
}

void ActionTable::fill(QMenu *menu, const QVector<int> &commands, const std::function<int(int)> &rowsFor,
    const std::function<void(int)> &chosen) const
{
    int group = commands.isEmpty() ? 0 : row(commands.constFirst()).group;
    for (const int command : commands) {
        if (std::exchange(group, row(command).group) != row(command).group)
            menu->addSeparator();
        QAction *action = make(command, menu);
        const int count = rowsFor(command);
        action->setEnabled(count >= 0);
        action->setText(text(command, count));
        QObject::connect(action, &QAction::triggered, menu, [chosen, command] { chosen(command); });
        menu->addAction(action);
    }
}

} // namespace zel

#include "widgets/shortcuts.h"

#include "base/settingskeys.h"
#include "ksettings.h"
#include "widgets/shortcuttable.h"

#include <QAction>
#include <QCoreApplication>
#include <algorithm>

namespace zel {
namespace {

const ShortcutRow *rowOf(const QString &id)
{
    const QVector<ShortcutRow> &table = shortcutTable();
    const auto found = std::find_if(
        table.begin(), table.end(), [&](const ShortcutRow &row) { return id == QLatin1String(row.id); });
    return found == table.end() ? nullptr : &*found;
}

QString textOf(const ShortcutRow &row)
{
    const QString text = QCoreApplication::translate("Shortcuts", row.text);
    return row.page ? text.arg(QCoreApplication::translate("Navigation", row.page)) : text;
}

void enterGroup(KSettings &settings)
{
    settings.beginGroup(keys::Plugins);
    settings.beginGroup(keys::Zelbox);
    settings.beginGroup(keys::Shortcuts);
}

bool shareKeys(ShortcutGroup one, ShortcutGroup other)
{
    return (one == ShortcutGroup::MiniWindow) == (other == ShortcutGroup::MiniWindow);
}

bool isFunctionKey(int key)
{
    return key >= Qt::Key_F1 && key <= Qt::Key_F35;
}

// A key alone or with Shift types or moves about; so do these with any modifier, at least on some desktop.
bool isForTyping(const QKeySequence &keys)
{
    constexpr int Modifiers = int(Qt::KeyboardModifierMask);
    const int key = keys[0] & ~Modifiers;
    const int modifiers = keys[0] & Modifiers & ~int(Qt::KeypadModifier);
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape)
        return true;
    const bool plain = (modifiers & ~int(Qt::ShiftModifier)) == 0;
    return plain && !isFunctionKey(key);
}

} // namespace

Shortcuts *Shortcuts::instance()
{
    static Shortcuts shortcuts;
    return &shortcuts;
}

QAction *Shortcuts::make(const QString &id, QObject *parent)
{
    auto *action = new QAction(parent);
    action->setObjectName(id);
    if (const ShortcutRow *row = rowOf(id))
        action->setText(textOf(*row));
    follow(id, action);
    return action;
}

void Shortcuts::follow(const QString &id, QAction *action)
{
    action->setShortcut(keys(id));
    connect(this, &Shortcuts::keysChanged, action, [this, id, action](const QString &changed) {
        if (changed == id)
            action->setShortcut(keys(id));
    });
}

QVector<ShortcutInfo> Shortcuts::list() const
{
    QVector<ShortcutInfo> infos;
    for (const ShortcutRow &row : shortcutTable()) {
        const QString id = QLatin1String(row.id);
        infos.append({id, row.group, textOf(row), row.standard, keys(id), row.changeable});
    }
    return infos;
}

QKeySequence Shortcuts::keys(const QString &id) const
{
    const ShortcutRow *row = rowOf(id);
    if (!row)
        return {};
    return row->changeable ? storedKeys(id, row->standard) : row->standard;
}

// What somebody wrote into the settings by hand counts only when the dialog would have taken it.
QKeySequence Shortcuts::storedKeys(const QString &id, const QKeySequence &standard) const
{
    KSettings settings;
    enterGroup(settings);
    if (!settings.contains(id))
        return standard;
    const QString text = settings.value(id).toString();
    const auto keys = QKeySequence::fromString(text, QKeySequence::PortableText);
    const bool usable = text.isEmpty()
        || (keys.count() == 1 && (keys[0] & ~int(Qt::KeyboardModifierMask)) != Qt::Key_unknown
            && !isForTyping(keys));
    return usable ? keys : standard;
}

bool Shortcuts::isChanged(const QString &id) const
{
    const ShortcutRow *row = rowOf(id);
    return row && keys(id) != row->standard;
}

Shortcuts::Verdict Shortcuts::check(const QString &id, const QKeySequence &wanted) const
{
    const ShortcutRow *row = rowOf(id);
    if (!row || !row->changeable)
        return {Refusal::Fixed, {}};
    if (wanted.isEmpty())
        return {};
    if (wanted.count() != 1 || isForTyping(wanted))
        return {Refusal::Typing, {}};
    for (const ShortcutRow &other : shortcutTable()) {
        const QString holder = QLatin1String(other.id);
        if (holder != id && shareKeys(row->group, other.group) && keys(holder) == wanted)
            return {Refusal::Taken, holder};
    }
    return {};
}

bool Shortcuts::setKeys(const QString &id, const QKeySequence &wanted)
{
    if (check(id, wanted).refusal != Refusal::None)
        return false;
    store(id, wanted);
    return true;
}

void Shortcuts::store(const QString &id, const QKeySequence &wanted)
{
    if (keys(id) == wanted)
        return;
    KSettings settings;
    enterGroup(settings);
    if (wanted == rowOf(id)->standard)
        settings.remove(id);
    else
        settings.setValue(id, wanted.toString(QKeySequence::PortableText));
    Q_EMIT keysChanged(id);
}

void Shortcuts::reset(const QString &id)
{
    const ShortcutRow *row = rowOf(id);
    if (!row)
        return;
    const Verdict verdict = check(id, row->standard);
    if (verdict.refusal == Refusal::Taken)
        store(verdict.holder, {});
    if (verdict.refusal != Refusal::Fixed)
        store(id, row->standard);
}

void Shortcuts::resetAll()
{
    for (const ShortcutRow &row : shortcutTable()) {
        if (row.changeable)
            store(QLatin1String(row.id), row.standard);
    }
}

} // namespace zel

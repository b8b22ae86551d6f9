#include "widgets/shortcuts.h"

#include "base/settingskeys.h"
#include "ksettings.h"
#include "widgets/shortcuttable.h"

#include <QAction>
#include <QCoreApplication>
#include <QHash>
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
    const QString text = QCoreApplication::translate(row.context, row.text);
    return row.page ? text.arg(QCoreApplication::translate("Navigation", row.page)) : text;
}

QString headingOf(const ShortcutRow &row)
{
    return row.heading ? QCoreApplication::translate(row.context, row.heading) : QString();
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

// The two keys mean the same wherever they are fixed.
QKeySequence withoutKeypad(const QKeySequence &keys)
{
    const int key = keys[0] & ~int(Qt::KeyboardModifierMask);
    return key == Qt::Key_Enter ? QKeySequence((keys[0] & int(Qt::KeyboardModifierMask)) | Qt::Key_Return)
                                : keys;
}

/// The shortcut that has these keys for ever; null: there is none.
const ShortcutRow *fixedHolder(const ShortcutRow &row, const QKeySequence &keys)
{
    const QVector<ShortcutRow> &table = shortcutTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const ShortcutRow &other) {
        return !other.changeable && shareKeys(row.group, other.group)
            && (other.standard == withoutKeypad(keys) || other.more.contains(keys));
    });
    return found == table.end() ? nullptr : &*found;
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

// One chord, of a key that has a name to be stored by.
bool isUsable(const QKeySequence &keys)
{
    return keys.count() == 1 && (keys[0] & ~int(Qt::KeyboardModifierMask)) != Qt::Key_unknown
        && !isForTyping(keys)
        && QKeySequence::fromString(keys.toString(QKeySequence::PortableText), QKeySequence::PortableText)
        == keys;
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

void Shortcuts::addPage(const ActionTable &table)
{
    addToShortcutTable(table);
}

QVector<ShortcutInfo> Shortcuts::list() const
{
    QVector<ShortcutInfo> infos;
    for (const ShortcutRow &row : shortcutTable()) {
        const QString id = QLatin1String(row.id);
        infos.append({id, row.group, headingOf(row), textOf(row), row.standard, keys(id), row.changeable});
    }
    return infos;
}

// The same keys for two would work for neither. It may be so by hand, or since a newer version has given them
// to another shortcut: then what the user chose is stronger, and of equals the first.
QKeySequence Shortcuts::keys(const QString &id) const
{
    const ShortcutRow *row = rowOf(id);
    if (!row || !row->changeable)
        return row ? row->standard : QKeySequence();
    const Wish wish = wishOf(*row);
    for (const ShortcutRow &other : shortcutTable()) {
        if (&other == row || !other.changeable || !shareKeys(row->group, other.group) || wish.keys.isEmpty())
            continue;
        const Wish theirs = wishOf(other);
        const bool stronger = theirs.isChosen != wish.isChosen ? theirs.isChosen : &other < row;
        if (stronger && theirs.keys == wish.keys)
            return {};
    }
    return wish.keys;
}

// What somebody wrote into the settings by hand counts only when the dialog would have taken it.
Shortcuts::Wish Shortcuts::wishOf(const ShortcutRow &row) const
{
    const QString id = QLatin1String(row.id);
    KSettings settings;
    enterGroup(settings);
    if (!settings.contains(id))
        return {row.standard, false};
    const QString text = settings.value(id).toString();
    const auto keys = QKeySequence::fromString(text, QKeySequence::PortableText);
    if (text.isEmpty() || (isUsable(keys) && !fixedHolder(row, keys)))
        return {keys, true};
    return {row.standard, false};
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
    if (!isUsable(wanted))
        return {Refusal::Typing, {}};
    if (const ShortcutRow *holder = fixedHolder(*row, wanted))
        return {Refusal::Taken, QLatin1String(holder->id)};
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
    QHash<QString, QKeySequence> before; // a change may free keys that others would like
    for (const ShortcutRow &row : shortcutTable())
        before.insert(QLatin1String(row.id), keys(QLatin1String(row.id)));
    KSettings settings;
    enterGroup(settings);
    if (wanted == rowOf(id)->standard)
        settings.remove(id);
    else
        settings.setValue(id, wanted.toString(QKeySequence::PortableText));
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (keys(it.key()) != it.value())
            Q_EMIT keysChanged(it.key());
    }
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

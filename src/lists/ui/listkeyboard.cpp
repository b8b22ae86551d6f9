#include "lists/ui/listkeyboard.h"

#include <QKeyEvent>
#include <QModelIndex>
#include <algorithm>

void ListKeyboard::bind(const QKeySequence &keys, Needs needs, const Command &command)
{
    const int stroke = keys[0];
    const auto same = std::find_if(m_bindings.begin(), m_bindings.end(),
        [stroke](const Binding &known) { return known.stroke == stroke; });
    if (same == m_bindings.end())
        m_bindings.append({stroke, needs, command});
    else
        *same = {stroke, needs, command};
}

void ListKeyboard::bind(QKeySequence::StandardKey keys, Needs needs, const Command &command)
{
    const QList<QKeySequence> strokes = QKeySequence::keyBindings(keys);
    for (const QKeySequence &stroke : strokes)
        bind(stroke, needs, command);
}

bool ListKeyboard::run(const QKeyEvent &event, const QModelIndex &row) const
{
    const int stroke = event.key() | int(event.modifiers() & ~Qt::KeypadModifier);
    const auto bound = std::find_if(m_bindings.cbegin(), m_bindings.cend(),
        [stroke](const Binding &known) { return known.stroke == stroke; });
    if (bound == m_bindings.cend())
        return false;
    const bool has = bound->needs == Needs::Nothing || row.isValid();
    if (has && !event.isAutoRepeat())
        bound->command();
    return true;
}

bool ListKeyboard::isMove(const QKeyEvent &event)
{
    constexpr int Keys[] = {
        Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    return !event.modifiers().testFlag(Qt::ControlModifier)
        && std::find(std::begin(Keys), std::end(Keys), event.key()) != std::end(Keys);
}

bool ListKeyboard::isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_AltGr
        || key == Qt::Key_Meta;
}

bool ListKeyboard::isPrintable(const QString &typed)
{
    const QVector<uint> characters = typed.toUcs4();
    return !characters.isEmpty() && QChar::isPrint(characters.constFirst());
}

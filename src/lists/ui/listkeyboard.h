#pragma once

#include <QKeySequence>
#include <QVector>
#include <functional>

class QKeyEvent;
class QModelIndex;

/// What keys do in a list beside moving about and picking rows. GUI thread.
class ListKeyboard
{
public:
    /// Without it the key does nothing, and nobody else gets it.
    enum class Needs { Nothing, Row /**< that is current, as anybody can see */ };
    using Command = std::function<void()>;

    /// In place of what the keys did before. Keys are one stroke, those of the number block count as the
    /// others.
    void bind(const QKeySequence &keys, Needs needs, const Command &command);
    void bind(QKeySequence::StandardKey keys, Needs needs, const Command &command); ///< all of its strokes

    /// Does what the key is for; false when it is for nothing here. A key that is held down acts once, so
    /// that it does not delete one file after the other.
    bool run(const QKeyEvent &event, const QModelIndex &row) const;

    static bool isMove(const QKeyEvent &event); ///< to another row, which is to be selected
    static bool isModifier(int key);            ///< Ctrl and its like, which may be on their way to a click
    static bool isPrintable(const QString &typed); ///< of whatever a key has brought

private:
    struct Binding
    {
        int stroke;
        Needs needs;
        Command command;
    };
    QVector<Binding> m_bindings;
};

#pragma once

namespace zeltest {

/// Drags data of another program over a widget and lets it fall there when it is taken. What becomes of it:
/// IgnoreAction when it is not.
inline Qt::DropAction drop(QWidget *target, const QPoint &pos, const QMimeData *data,
    Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction)
{
    QDragEnterEvent enter(pos, possible, data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    QDragMoveEvent move(pos, possible, data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &move);
    QDropEvent event(pos, possible, data, Qt::LeftButton, {});
    if (move.isAccepted())
        QApplication::sendEvent(target, &event);
    return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
}

} // namespace zeltest

#pragma once

#include <QStringList>

class QMimeData;
class QPainter;
class QPoint;

/// Files on their way from program to program. GUI thread.
namespace zel {

/// Paths of the local files in `data`, each once; nothing that lies on another host. Waits for the program
/// that offers them.
QStringList localFiles(const QMimeData *data);

/// The number of dragged things, in a bubble `height` high whose top right corner is `corner`.
void paintDragCount(QPainter *painter, const QPoint &corner, int height, int count);

} // namespace zel

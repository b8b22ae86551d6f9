#pragma once

#include <QStringList>
#include <memory>

class QDropEvent;
class QMimeData;
class QPainter;
class QPoint;

/// Files on their way from program to program. GUI thread.
namespace zel {

/// Paths of the local files in `data`, each once; nothing that lies on another host. Waits for the program
/// that offers them.
QStringList localFiles(const QMimeData *data);

/// The files as other programs take them to copy them: as a list of URLs, and as file managers pass them on.
void setFiles(QMimeData *data, const QStringList &paths);

/// The files as other programs take them (setFiles(), and their paths as text); null without paths. For
/// drags and for the clipboard. No file is looked at.
std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths);

/// Whether local files are offered that we may have without their being given away. Waits like localFiles().
bool offersFiles(const QDropEvent *event);

/// The number of dragged things, in a bubble `height` high whose top right corner is `corner`.
void paintDragCount(QPainter *painter, const QPoint &corner, int height, int count);

} // namespace zel

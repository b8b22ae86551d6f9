#pragma once

#include <QStringList>
#include <memory>

class QDropEvent;
class QMimeData;

/// Cloud items and local files on drags and on the clipboard. GUI thread; no file is looked at.
namespace zel::clouddoc {

/// Items of the drive that are carried about.
struct CarriedItems
{
    QString folderId; ///< where they lie
    QStringList ids;
    bool cut = false; ///< pasting moves them
};

/// `localPaths` go along as files for other programs; not with a cut, which means the items in the drive.
std::unique_ptr<QMimeData> itemsMimeData(const CarriedItems &items, const QStringList &localPaths);
CarriedItems itemsOf(const QMimeData *data); ///< no ids when there are none

/// Paths of the local files in `data`, each once; nothing that lies on another host, nor items of the drive.
QStringList localFiles(const QMimeData *data);

/// Whether what is dragged may be dropped into `folderId`: items of another folder as a move, files of other
/// programs as a copy. Sets the action and accepts the event when it may, does nothing else.
bool acceptDrag(QDropEvent *event, const QString &folderId);

} // namespace zel::clouddoc

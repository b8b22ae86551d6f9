#pragma once

#include <QPixmap>
#include <QStringList>
#include <memory>

class QDropEvent;
class QFont;
class QMimeData;
struct RecentRow;

/// Files on their way out of the recent list and into it. GUI thread.
namespace zel::recent {

/// The files as other programs take them (list of URLs, and their paths as text); null without paths. For
/// drags and for the clipboard. No file is looked at.
std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths);

/// What the pointer carries: icon and name of `row`, which is one of `count` files.
QPixmap dragPixmap(RecentRow row, int count, const QFont &font, qreal ratio);

/// Whether another program offers local files that it lets us have without giving them away.
bool isAcceptable(const QDropEvent *event);

} // namespace zel::recent

#pragma once

#include <QStringList>
#include <memory>

class QDropEvent;
class QMimeData;

/// Files on their way out of the recent list and into it. GUI thread.
namespace zel::recent {

/// The files as other programs take them (list of URLs, and their paths as text); null without paths. For
/// drags and for the clipboard. No file is looked at.
std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths);

/// Whether another program offers local files that it lets us have without giving them away.
bool isAcceptable(const QDropEvent *event);

} // namespace zel::recent

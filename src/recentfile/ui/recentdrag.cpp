#include "recentfile/ui/recentdrag.h"

#include "widgets/filedrag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace zel::recent {

static constexpr int MostTextPaths = 1000; // as text the list is for a person to read

std::unique_ptr<QMimeData> fileMimeData(const QStringList &paths)
{
    if (paths.isEmpty())
        return nullptr;
    QList<QUrl> urls;
    urls.reserve(paths.size());
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    auto data = std::make_unique<QMimeData>();
    data->setUrls(urls);
    data->setText(QStringList(paths.mid(0, MostTextPaths)).join(QLatin1Char('\n')));
    return data;
}

// A source that offers to move only would delete the files once we have "taken" them.
bool isAcceptable(const QDropEvent *event)
{
    const bool keepsFiles = event->possibleActions() & (Qt::CopyAction | Qt::LinkAction);
    return !event->source() && keepsFiles && !localFiles(event->mimeData()).isEmpty();
}

} // namespace zel::recent

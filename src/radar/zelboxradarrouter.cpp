#include "radar/zelboxradarrouter.h"

ZelBoxRadarRouter *ZelBoxRadarRouter::instance()
{
    static ZelBoxRadarRouter router;
    return &router;
}

void ZelBoxRadarRouter::selectGenre(int genreId)
{
    m_genre = genreId;
    Q_EMIT sigSelectGenreId(genreId);
    Q_EMIT sigFileListScrollToTop();
}

void ZelBoxRadarRouter::notifyBackupSource(const QString &source)
{
    Q_EMIT sigNotifyBackupSource(source);
}

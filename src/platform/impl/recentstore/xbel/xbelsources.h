#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace zel::recent {

/// Where the store finds and keeps what.
struct RecentPlaces
{
    QString database;               ///< recent.db
    QString desktopList;            ///< the desktop's recently-used.xbel
    QString sandboxRoot;            ///< folder with one folder per sandboxed application
    QStringList temporaryFolders{}; ///< no other device is told what is opened in them

    static RecentPlaces fromEnvironment();
};

struct XbelSource
{
    QString name; ///< "desktop", "sandbox:<application>"
    QString file;
};

/// The lists that can be there now: the desktop's first, then one per sandboxed application, at most 1,000.
QVector<XbelSource> xbelSources(const RecentPlaces &places);

/// Folder of the application whose list the source is; empty for the desktop's.
QString sandboxFolder(const RecentPlaces &places, const QString &sourceName);

} // namespace zel::recent

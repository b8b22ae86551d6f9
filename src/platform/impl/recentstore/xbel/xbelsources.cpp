#include "xbelsources.h"

#include "base/paths.h"
#include "platform/impl/recentstore/records/recenttypes.h"

#include <QDir>
#include <QStandardPaths>

namespace zel::recent {
namespace {

constexpr int MostSandboxes = 1000;
const QLatin1String SandboxPrefix("sandbox:");
const QLatin1String ListName("/recently-used.xbel");

} // namespace

RecentPlaces RecentPlaces::fromEnvironment()
{
    const QString data = paths::dataHome();
    return {data + QStringLiteral("/zelbox/recent.db"), data + ListName,
        QDir::homePath() + QStringLiteral("/.var/app"),
        {QStringLiteral("/tmp"), QStringLiteral("/var/tmp"), QStringLiteral("/dev/shm"),
            QStringLiteral("/run/user"), QDir::tempPath(),
            QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)}};
}

QVector<XbelSource> xbelSources(const RecentPlaces &places)
{
    QVector<XbelSource> sources{{DesktopSourceName, places.desktopList}};
    const QStringList applications =
        QDir(places.sandboxRoot).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &application : applications.mid(0, MostSandboxes)) {
        const QString folder = places.sandboxRoot + QLatin1Char('/') + application;
        sources.append({SandboxPrefix + application, folder + QStringLiteral("/data") + ListName});
    }
    return sources;
}

QString sandboxFolder(const RecentPlaces &places, const QString &sourceName)
{
    if (!sourceName.startsWith(SandboxPrefix))
        return {};
    return places.sandboxRoot + QLatin1Char('/') + sourceName.mid(SandboxPrefix.size());
}

} // namespace zel::recent

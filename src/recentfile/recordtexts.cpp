#include "recentfile/recordtexts.h"

#include "recentfile/recentroles.h"

#include <QCoreApplication>
#include <QDir>

namespace zel::recent {

namespace {
struct RecordTexts
{
    Q_DECLARE_TR_FUNCTIONS(ZelBoxRecentFileModel)
};
} // namespace

QString shownName(const RecentFileInfo &record)
{
    if (record.roaming && !record.cloudName.isEmpty())
        return record.cloudName;
    const QString name = record.path.mid(record.path.lastIndexOf(QLatin1Char('/')) + 1);
    return name.isEmpty() ? record.displayText : name;
}

QString toolTip(const RecentFileInfo &record)
{
    if (!record.path.isEmpty())
        return QDir::toNativeSeparators(record.path);
    const QString name = shownName(record);
    return record.deviceName.isEmpty() ? name
                                       : RecordTexts::tr("%1\nLast used on %2").arg(name, record.deviceName);
}

QString accessibleText(const RecentFileInfo &record)
{
    QStringList parts{shownName(record), timeTextOf(record)};
    if (record.pinned)
        parts << RecordTexts::tr("Pinned");
    if (record.presence == RecentFileInfo::Presence::Missing)
        parts << RecordTexts::tr("Missing");
    if (record.unread == RecentRoles::New)
        parts << RecordTexts::tr("New");
    else if (record.unread != RecentRoles::NotUnread)
        parts << RecordTexts::tr("Modify");
    if (!record.deviceName.isEmpty())
        parts << RecordTexts::tr("On %1").arg(record.deviceName);
    return parts.join(QStringLiteral(", "));
}

} // namespace zel::recent

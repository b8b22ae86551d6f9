#include "recentfile/recordtexts.h"

#include "base/clock.h"
#include "recentfile/recentfilemodel.h"
#include "recentfile/timetext.h"

#include <QCoreApplication>
#include <QDir>

namespace zel::recent {

using Model = ZelBoxRecentFileModel;

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
    QStringList parts{
        shownName(record), timeText(QDateTime::fromMSecsSinceEpoch(record.lastAccess), zel::now())};
    if (record.pinned)
        parts << RecordTexts::tr("Pinned");
    if (record.presence == RecentFileInfo::Presence::Missing)
        parts << RecordTexts::tr("Missing");
    if (record.unread == Model::New)
        parts << RecordTexts::tr("New");
    else if (record.unread != Model::NotUnread)
        parts << RecordTexts::tr("Modify");
    if (!record.deviceName.isEmpty())
        parts << RecordTexts::tr("On %1").arg(record.deviceName);
    return parts.join(QStringLiteral(", "));
}

static QVector<int> changedNameRoles(const RecentFileInfo &before, const RecentFileInfo &after)
{
    QVector<int> roles;
    if (before.path != after.path)
        roles << Model::PathRole << Model::SuffixRole << Model::BaseNameRole;
    if (before.displayText != after.displayText)
        roles << Model::DisplayTextRole;
    if (before.cloudName != after.cloudName)
        roles << Model::CloudNameRole;
    if (shownName(before) != shownName(after))
        roles << Model::NameRole << Qt::DisplayRole << Model::DocumentKindRole;
    if (toolTip(before) != toolTip(after))
        roles << Qt::ToolTipRole;
    return roles;
}

QVector<int> changedRoles(const RecentFileInfo &before, const RecentFileInfo &after)
{
    QVector<int> roles;
    if (before.lastAccess != after.lastAccess)
        roles << Model::LastAccessRole << Model::TimeTextRole << Model::GroupKindRole;
    roles << changedNameRoles(before, after);
    if (before.cloudBacked != after.cloudBacked)
        roles << Model::CloudBackedRole;
    if (before.roaming != after.roaming)
        roles << Model::RoamingRole;
    if (before.unread != after.unread)
        roles << Model::UnreadRole;
    if (before.cloudFileId != after.cloudFileId)
        roles << Model::CloudFileIdRole;
    if (before.presence != after.presence)
        roles << Model::PresenceRole;
    if (before.size != after.size)
        roles << Model::SizeRole;
    if (before.pinned != after.pinned)
        roles << Model::PinnedRole;
    if (before.deviceName != after.deviceName)
        roles << Model::DeviceNameRole;
    if (before.roamingId != after.roamingId)
        roles << Model::RoamingIdRole;
    if (!roles.isEmpty())
        roles << Qt::AccessibleTextRole;
    return roles;
}

} // namespace zel::recent

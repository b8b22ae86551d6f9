#include "recentfile/recentroles.h"

#include "base/clock.h"
#include "base/timetext.h"
#include "recentfile/documentkind.h"

#include <QFileInfo>

#include <algorithm>

namespace zel::recent {

QString suffixOf(const RecentFileInfo &record)
{
    return QFileInfo(record.path).suffix();
}

QString baseNameOf(const RecentFileInfo &record)
{
    return QFileInfo(record.path).completeBaseName();
}

int documentKindOf(const RecentFileInfo &record)
{
    return int(documentKind(shownName(record)));
}

QDateTime lastAccessOf(const RecentFileInfo &record)
{
    return QDateTime::fromMSecsSinceEpoch(record.lastAccess);
}

QString timeTextOf(const RecentFileInfo &record)
{
    return timeText(lastAccessOf(record), zel::now());
}

// A presence or a size that is looked up concerns thousands of records at a time, so texts are made for those
// only that have other names.
bool nameDiffers(const RecentFileInfo &before, const RecentFileInfo &after)
{
    using Info = RecentFileInfo;
    return anyDiffers<&Info::path, &Info::displayText, &Info::cloudName, &Info::roaming>(before, after)
        && shownName(before) != shownName(after);
}

bool toolTipDiffers(const RecentFileInfo &before, const RecentFileInfo &after)
{
    using Info = RecentFileInfo;
    return anyDiffers<&Info::path, &Info::displayText, &Info::cloudName, &Info::roaming, &Info::deviceName>(
               before, after)
        && toolTip(before) != toolTip(after);
}

QVariant roleValue(const RecentFileInfo &record, int role)
{
    const auto field = std::find_if(std::begin(RoleTable::Fields), std::end(RoleTable::Fields),
        [role](const RoleField &known) { return known.role == role; });
    return field == std::end(RoleTable::Fields) || !field->value ? QVariant() : field->value(record);
}

QVector<int> changedRoles(const RecentFileInfo &before, const RecentFileInfo &after)
{
    QVector<int> roles;
    for (const RoleField &field : RoleTable::Fields) {
        if (field.differs(before, after))
            roles.append(field.role);
    }
    return roles;
}

} // namespace zel::recent

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

#pragma once

#include "recentfile/recordtexts.h"

#include "krecentfile.h"

#include <QVariant>
#include <QVector>

namespace zel::recent {

/// How a role answers, and whether a change of the record changes that.
struct RoleField
{
    int role;
    QVariant (*value)(const RecentFileInfo &record); ///< null: the model knows it, the record does not
    bool (*differs)(const RecentFileInfo &before, const RecentFileInfo &after);
};

template <auto... Members> bool anyDiffers(const RecentFileInfo &before, const RecentFileInfo &after)
{
    return ((before.*Members != after.*Members) || ...);
}

template <auto Function> QVariant answerOf(const RecentFileInfo &record)
{
    return Function(record);
}

template <auto Member> QVariant memberOf(const RecentFileInfo &record)
{
    using Value = std::decay_t<decltype(record.*Member)>;
    if constexpr (std::is_enum_v<Value>)
        return int(record.*Member);
    else
        return record.*Member;
}

/// The member as it is.
template <auto Member> constexpr RoleField member(int role)
{
    return {role, memberOf<Member>, anyDiffers<Member>};
}

/// What the function says of the record; another thing only if one of the members changes.
template <auto Function, auto... Members> constexpr RoleField made(int role)
{
    return {role, answerOf<Function>, anyDiffers<Members...>};
}

template <auto Function, auto... Members>
bool answerDiffers(const RecentFileInfo &before, const RecentFileInfo &after)
{
    return anyDiffers<Members...>(before, after) && Function(before) != Function(after);
}

/// The same for what often stays as it is when one of the members changes: that is looked at. Not before, as
/// a presence or a size that is looked up concerns thousands of records at a time.
template <auto Function, auto... Members> constexpr RoleField compared(int role)
{
    return {role, answerOf<Function>, answerDiffers<Function, Members...>};
}

} // namespace zel::recent

/// What the model of the Recent page tells of its rows.
struct RecentRoles
{
    Q_GADGET
public:
    /// The numbers are fixed: other pages and scripts know them.
    enum Role {
        IdRole = Qt::UserRole,
        DisplayTextRole = Qt::UserRole + 1,
        PathRole = Qt::UserRole + 2,
        SuffixRole = Qt::UserRole + 3,
        BaseNameRole = Qt::UserRole + 4,
        CloudNameRole = Qt::UserRole + 6,
        NameRole = Qt::UserRole + 8,
        LastAccessRole = Qt::UserRole + 11, ///< QDateTime, local time
        TimeTextRole = Qt::UserRole + 12,
        CloudBackedRole = Qt::UserRole + 13,
        RoamingRole = Qt::UserRole + 14,
        UnreadRole = Qt::UserRole + 15, ///< UnreadMark
        CloudFileIdRole = Qt::UserRole + 16,
        PresenceRole = Qt::UserRole + 20,  ///< RecentFileInfo::Presence as int
        GroupKindRole = Qt::UserRole + 21, ///< 1 to 7
        SizeRole = Qt::UserRole + 22,      ///< qint64, bytes; -1: not known
        PinnedRole = Qt::UserRole + 23,
        DeviceNameRole = Qt::UserRole + 24, ///< where it was used last when that was not here
        RoamingIdRole = Qt::UserRole + 25,
        DocumentKindRole = Qt::UserRole + 26, ///< zel::recent::DocumentKind as int
    };
    Q_ENUM(Role)
    enum UnreadMark { NotUnread = -1, New = 0, Modified = 1 };
    Q_ENUM(UnreadMark)
};

namespace zel::recent {

QString suffixOf(const RecentFileInfo &record);
QString baseNameOf(const RecentFileInfo &record);
int documentKindOf(const RecentFileInfo &record);
QDateTime lastAccessOf(const RecentFileInfo &record);
QString timeTextOf(const RecentFileInfo &record);

/// What follows from the name that is shown.
template <auto Function> constexpr RoleField ofName(int role)
{
    using Info = RecentFileInfo;
    return compared<Function, &Info::path, &Info::displayText, &Info::cloudName, &Info::roaming>(role);
}

/// All roles of the model: a member of the record has its line here and its number above.
struct RoleTable : RecentRoles
{
    using Info = RecentFileInfo;
    static constexpr RoleField Fields[] = {
        member<&Info::id>(IdRole),
        made<lastAccessOf, &Info::lastAccess>(LastAccessRole),
        made<timeTextOf, &Info::lastAccess>(TimeTextRole),
        {GroupKindRole, nullptr, anyDiffers<&Info::lastAccess>},
        member<&Info::path>(PathRole),
        made<suffixOf, &Info::path>(SuffixRole),
        made<baseNameOf, &Info::path>(BaseNameRole),
        member<&Info::displayText>(DisplayTextRole),
        member<&Info::cloudName>(CloudNameRole),
        ofName<shownName>(NameRole),
        ofName<shownName>(Qt::DisplayRole),
        ofName<documentKindOf>(DocumentKindRole),
        compared<toolTip, &Info::path, &Info::displayText, &Info::cloudName, &Info::roaming,
            &Info::deviceName>(Qt::ToolTipRole),
        member<&Info::cloudBacked>(CloudBackedRole),
        member<&Info::roaming>(RoamingRole),
        member<&Info::unread>(UnreadRole),
        member<&Info::cloudFileId>(CloudFileIdRole),
        member<&Info::presence>(PresenceRole),
        member<&Info::size>(SizeRole),
        member<&Info::pinned>(PinnedRole),
        member<&Info::deviceName>(DeviceNameRole),
        member<&Info::roamingId>(RoamingIdRole),
        made<accessibleText, &Info::path, &Info::displayText, &Info::cloudName, &Info::roaming,
            &Info::lastAccess, &Info::pinned, &Info::presence, &Info::unread, &Info::deviceName>(
            Qt::AccessibleTextRole),
    };
};

/// What the record says to a role; nothing for one that is not in the table.
QVariant roleValue(const RecentFileInfo &record, int role);

/// Roles that answer otherwise for `after` than for `before`.
QVector<int> changedRoles(const RecentFileInfo &before, const RecentFileInfo &after);

} // namespace zel::recent

#pragma once

#include "base/latin1.h"

/// The fixed pieces of the statements that clients send, each up to the next value, in one place for those
/// who read and those who write them. Case and blanks are the clients' own.
namespace zel::service::text {

inline constexpr auto RadarList = latin1("select * from metadata_zelbox_fileradar Order by Time Desc");
inline constexpr auto RadarForget = latin1("delete from metadata_zelbox_fileradar where FilePath = '");
inline constexpr auto RadarClear = latin1("delete from metadata_zelbox_fileradar where ImType = ");

inline constexpr auto RoamingHead =
    latin1("select fileId,count(*),max(time),* from metadata_zelbox_filemessage where read = 0 and type = '");
inline constexpr auto RoamingUpdate = latin1("roaming_update");
inline constexpr auto RoamingCreate = latin1("roaming_create");
inline constexpr auto RoamingTail = latin1("' group by fileId Order by time Desc");

inline constexpr auto Select = latin1("select ");
inline constexpr auto IdListMiddle =
    latin1(" from metadata_zelbox_filemessage where topic = 'zel.file' or topic = 'zel.link' or topic = "
           "'zel.link.local' group by ");
inline constexpr auto IdMessagesHead = latin1("select * from metadata_zelbox_filemessage where ");
inline constexpr auto Is = latin1(" = '");
inline constexpr auto Quote = latin1("'");
inline constexpr auto Family =
    latin1(" and (topic = 'zel.file' or topic = 'zel.link' or topic = 'zel.link.local')");
inline constexpr auto Newest = latin1(" Order by time Desc limit ");

inline constexpr auto UnreadMiddle =
    latin1(",count(*) from metadata_zelbox_filemessage where read = 0 and (");
inline constexpr auto Or = latin1(" or ");
inline constexpr auto UnreadClose = latin1(")");
inline constexpr auto GroupBy = latin1(" group by ");

inline constexpr auto MarkBoth =
    latin1("Update metadata_zelbox_filemessage Set read = 1, trayRead = 1 Where ");
inline constexpr auto MarkPages = latin1("Update metadata_zelbox_filemessage Set read = 1 Where ");
inline constexpr auto UpTo = latin1(" and time <= ");

inline constexpr auto RoamingTabUnread = latin1(
    "select count(distinct fileId) as 'count(*)' from metadata_zelbox_filemessage where recentRead = 0 and "
    "topic = 'zel.roaming' and fileId != ''");

inline constexpr auto FileId = latin1("fileId");
inline constexpr auto OperatorId = latin1("operatorId");

} // namespace zel::service::text

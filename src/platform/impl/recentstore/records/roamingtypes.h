#pragma once

#include "field.h"

#include <QMetaType>
#include <QString>
#include <QVector>

#include <memory>

/// What the cloud service tells of documents, and what it is told, as plain values. Times are ms since epoch,
/// UTC.
namespace zel::recent {

/// A record of the cloud service's recent list.
struct RoamingItem
{
    QString roamingId;
    QString user;       ///< whose list it stands on
    QString fileId;     ///< of the cloud file; empty when its content is not in the cloud
    QString name;       ///< never empty
    QString deviceName; ///< where it was used last; empty for this device
    QString usedPath;   ///< absolute; where the file lay when it was used last, if that was on this device
    QString cachePath;  ///< absolute; the cloud file's copy on this device
    qint64 time = 0;    ///< of the last use
    qint64 size = -1;   ///< -1: not known
    int unread = -1;    ///< as RecentFileInfo::unread
    bool operator==(const RoamingItem &) const = default;
};

inline constexpr std::tuple RoamingItemFields{
    Field("user", &RoamingItem::user),
    Field("roaming_id", &RoamingItem::roamingId).shownAs(&RecentFileInfo::roamingId),
    Field("file_id", &RoamingItem::fileId),
    Field("name", &RoamingItem::name).shownAs(&RecentFileInfo::cloudName),
    Field("device_name", &RoamingItem::deviceName), // shown only while the last use was there
    Field("used_path", &RoamingItem::usedPath),
    Field("cache_path", &RoamingItem::cachePath),
    Field("time", &RoamingItem::time),
    Field("size", &RoamingItem::size),
    Field("unread", &RoamingItem::unread).shownAs(&RecentFileInfo::unread),
};

/// One answer of the service, all pages of it.
struct RoamingList
{
    QString user;
    QVector<RoamingItem> items;
    bool complete = false; ///< what is not among them is not on the user's list any more
};

/// What a record of the store keeps of the service's record.
struct RoamingPart
{
    RoamingItem item;          ///< its mark is the one shown here
    qint64 forgottenTime = -1; ///< uses up to this were removed by the user
    bool isReadUntold = false; ///< the user has seen it, which the service does not know yet
    QString foundPath; ///< which of the item's places has the file, while no local record is known for it
    bool operator==(const RoamingPart &) const = default;

    qint64 time() const { return item.time > forgottenTime ? item.time : -1; } ///< -1: there is no use left
};

inline constexpr std::tuple RoamingPartFields{
    Field("found_path", &RoamingPart::foundPath),
    Field("forgotten_time", &RoamingPart::forgottenTime),
    Field("read_untold", &RoamingPart::isReadUntold),
};

/// A part that most records do not have; copies share it.
class RoamingRef
{
public:
    RoamingRef() = default;
    RoamingRef(RoamingPart part) : m_part(std::make_shared<const RoamingPart>(std::move(part))) { }

    explicit operator bool() const { return bool(m_part); }
    const RoamingPart &operator*() const { return *m_part; }
    const RoamingPart *operator->() const { return m_part.get(); }
    bool operator==(const RoamingRef &other) const
    {
        return m_part == other.m_part || (m_part && other.m_part && *m_part == *other.m_part);
    }

private:
    std::shared_ptr<const RoamingPart> m_part;
};

/// A mark that the user has seen, to be told to the service.
struct ReadMark
{
    QString roamingId;
    QString fileId;  ///< as RoamingItem::fileId
    qint64 time = 0; ///< of the use that was marked; a newer one is unread again
    bool operator==(const ReadMark &) const = default;
};

/// A use of a file here, to be told to the service.
struct FileUse
{
    QString path;
    qint64 time = 0;
    qint64 size = 0;
    qint64 mtime = 0; ///< of the file
};

} // namespace zel::recent

Q_DECLARE_METATYPE(QVector<zel::recent::ReadMark>)
Q_DECLARE_METATYPE(QVector<zel::recent::FileUse>)

#pragma once

#include "service/tables/messagetable.h"

namespace zel::service {

/// Where a message is read or not yet.
enum class MessagePlace { Pages = 0, Tray = 1, Recent = 2 }; ///< numbers of the link

/// Which messages are meant; empty fields and zeros mean all.
struct MessageFilter
{
    QString category;
    QStringList topics;
    QStringList types;
    QStringList messageIds;
    QString fileId;
    QString operatorId;
    QString groupId;
    MessagePlace place = MessagePlace::Pages; ///< what "unread" means
    bool unreadOnly = false;
    qint64 since = 0; ///< inclusive
    qint64 until = 0; ///< inclusive
};

/// The place in a list after which the next part begins.
struct MessageCursor
{
    qint64 time = 0;
    QString messageId; ///< empty: the beginning
};

struct MessageMarks
{
    bool pages = false;
    bool tray = false;
    bool recent = false;
};

/// Questions on the message table by the fields of a message, beside the statements of MessageTable. As
/// there: main thread, failures are logged and cleared, what is reported as done is on disk.
class MessageQueries
{
public:
    explicit MessageQueries(sqlite::Database &database) : m_database(database) { }

    /// Rows with all fields, newest first. With `latestPerFile` only the newest of each document.
    TableResult list(const MessageFilter &filter, int offset, int count);
    TableResult listFrom(
        const MessageFilter &filter, const MessageCursor &after, int count, bool latestPerFile);
    TableResult counts(const MessageFilter &filter); ///< one row: how many, how many of them unread
    /// Unread ones by "topic", "fileId" or "operatorId": key, count, newest time, newest id.
    TableResult unreadBy(const MessageFilter &filter, const char *column);
    /// Rows: id, file, topic and the three marks of each message that changed.
    TableResult markRead(const MessageFilter &filter, const MessageMarks &marks);
    TableResult remove(const MessageFilter &filter); ///< rows as of markRead(), of those that are gone

private:
    template <class BindMore>
    TableResult read(const QByteArray &sql, const MessageFilter &filter, BindMore bindMore);

    sqlite::Database &m_database;
};

} // namespace zel::service

#pragma once

#include "service/tables/statement.h"
#include "service/tables/tableresult.h"

namespace zel::service {

/// One document message. Its fields in this order are a row of the table and, as text, the fields of one row
/// in a reply; times are ms since epoch, UTC, marks are 0 or 1.
struct Message
{
    QString fileId;
    QString operatorId;
    qint64 time = 0;
    bool read = false;       ///< in the message pages
    bool trayRead = false;   ///< in the tray
    bool recentRead = false; ///< in the recent tab
    QString topic;           ///< "zel.file", "zel.link", "zel.link.local" or "zel.roaming"
    QString type;            ///< kind within the topic, as "roaming_update"
    QString messageId;       ///< unique; made up when it is empty
    QString title;
    QString content;
    QString operatorName;
    QString fileName;
    QString groupId;
    QString category; ///< of the message list
    QString linkId;
    QString extra; ///< JSON, for what has no column

    bool operator==(const Message &) const = default;
};

/// Which messages a list wants, newest first.
struct MessageQuery
{
    QString category; ///< empty: all
    bool unreadOnly = false;
    int offset = 0;
    int limit = 100;
};

struct UnreadCounts
{
    int pages = 0;     ///< document messages that the message pages have not shown
    int tray = 0;      ///< messages of any kind that the tray has not shown
    int recentTab = 0; ///< documents with roaming messages that the recent tab has not shown
    bool operator==(const UnreadCounts &) const = default;
};

/// The table metadata_zelbox_filemessage. Thread of its connection, which somebody else opened and
/// prepareTables() made ready, with synchronous=FULL: what is reported as done is on disk. After a failure
/// the next operation tries again.
///
/// Rows of a reply: RoamingList gives fileId, count and newest time followed by all fields of the newest
/// message; IdList the id; IdMessages all fields; IdUnread id and count (ids without unread messages have no
/// row); RoamingTabUnread the count.
class MessageTable
{
public:
    explicit MessageTable(sqlite::Database &database) : m_database(database) { }

    TableResult run(const MessageStatement &statement);

    /// All or none; those whose id is there already are kept as they are. `changed` counts the new ones.
    TableResult insert(const QVector<Message> &messages);
    /// All or none; those whose id is there already are overwritten. `changed` counts all.
    TableResult replace(const QVector<Message> &messages);
    /// One message more, in the caller's transaction; a failure stays with the connection.
    void insertWithin(const Message &message);
    TableResult list(const MessageQuery &query);     ///< rows with all fields
    TableResult find(const QStringList &messageIds); ///< rows with all fields; unknown ids have none
    TableResult remove(const QStringList &messageIds);
    TableResult markRead(const QStringList &messageIds); ///< in the pages and in the tray
    /// `type` is a message's type, or a topic for all of its types.
    TableResult clearTrayUnread(const QString &type);
    UnreadCounts unreadCounts(); ///< zeros after a failure

    static Message fromRow(const QStringList &row); ///< a row with all fields; missing ones are empty

private:
    TableResult write(const QVector<Message> &messages, const char *sql);

    sqlite::Database &m_database;
};

} // namespace zel::service

#pragma once

#include "service/methods/messages/messagenews.h"
#include "service/roaming/roamingtable.h"

#include <utility>

namespace zel::service {

/// The messages about uses on other devices (topic "zel.roaming"), kept in step with the marks of the recent
/// list: a use that leaves a mark makes an unread message, "roaming_create" for a document that is new to the
/// list, else "roaming_update". What takes the mark away makes all messages of the document read, everywhere.
/// At most MostKept of them, the newest. Main thread.
class RoamingMessages
{
public:
    static constexpr int MostKept = 10000;

    /// On the database of the recent list and the message table.
    explicit RoamingMessages(sqlite::Database &database, int mostKept = MostKept)
        : m_database(database), m_mostKept(mostKept)
    {
    }

    /// In the transaction of the change; failures stay with the connection.
    void follow(const RoamingChange &change);
    /// What the last follow() did, for when it is on disk; once.
    MessageNews take() { return std::exchange(m_news, {}); }

private:
    void store(const vela::RecentFileItem &item, qint64 time, int number);
    void change(const char *sql, const RoamingKey &record);
    void readAll();
    void trim();

    sqlite::Database &m_database;
    const int m_mostKept;
    MessageNews m_news;
};

} // namespace zel::service

#pragma once

#include "base/sqlite/database.h"

namespace zel::service {

/// The second wall around statements that clients asked for: while it lives, the connection prepares only
/// statements of one kind on one table, with the functions that our statements use. Anything else fails with
/// "not authorized". Not to be nested; a transaction begins before it and ends after it.
class TableGuard
{
public:
    enum class Access {
        Read,
        MarkRead, ///< changes the columns read and trayRead only
        Delete,
    };

    TableGuard(sqlite::Database &database, const char *table, Access access);
    ~TableGuard();
    TableGuard(const TableGuard &) = delete;
    TableGuard &operator=(const TableGuard &) = delete;

private:
    static int decide(void *self, int action, const char *first, const char *second, const char *schema,
        const char *trigger);
    bool allows(int action, const char *first, const char *second) const;

    sqlite::Database &m_database;
    const char *m_table;
    Access m_access;
};

} // namespace zel::service

#include "service/tables/tableguard.h"

#include <algorithm>
#include <cstring>
#include <sqlite3.h>
#include <string_view>

namespace zel::service {
namespace {

bool isOneOf(const char *name, std::initializer_list<std::string_view> names)
{
    return name && std::find(names.begin(), names.end(), std::string_view(name)) != names.end();
}

} // namespace

TableGuard::TableGuard(sqlite::Database &database, const char *table, Access access)
    : m_database(database), m_table(table), m_access(access)
{
    if (m_database.isOpen())
        sqlite3_set_authorizer(m_database.handle(), decide, this);
}

TableGuard::~TableGuard()
{
    if (m_database.isOpen())
        sqlite3_set_authorizer(m_database.handle(), nullptr, nullptr);
}

int TableGuard::decide(
    void *self, int action, const char *first, const char *second, const char *schema, const char *trigger)
{
    const bool ours = (!schema || std::strcmp(schema, "main") == 0) && !trigger;
    return ours && static_cast<TableGuard *>(self)->allows(action, first, second) ? SQLITE_OK : SQLITE_DENY;
}

bool TableGuard::allows(int action, const char *first, const char *second) const
{
    switch (action) {
    case SQLITE_SELECT:
        return true;
    case SQLITE_READ:
        return isOneOf(first, {m_table});
    case SQLITE_FUNCTION:
        return isOneOf(second, {"count", "max"});
    case SQLITE_UPDATE:
        return m_access == Access::MarkRead && isOneOf(first, {m_table})
            && isOneOf(second, {"read", "trayRead"});
    case SQLITE_DELETE:
        return m_access == Access::Delete && isOneOf(first, {m_table});
    default:
        return false;
    }
}

} // namespace zel::service

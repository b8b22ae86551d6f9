#include "service/tables/switchtable.h"

#include "service/tables/tableresult.h"

namespace zel::service {

bool SwitchTable::isOn(Switch which, int source)
{
    const bool byDefault = which == Switch::Watch;
    sqlite::Statement statement(m_database,
        which == Switch::Watch ? "SELECT watch FROM radar_switch WHERE type = ? AND watch IS NOT NULL"
                               : "SELECT backup FROM radar_switch WHERE type = ? AND backup IS NOT NULL");
    const bool on = statement.bind(1, qint64(source)).step() ? statement.number(0) != 0 : byDefault;
    return settle(m_database) == sqlite::Failure::None && on;
}

sqlite::Failure SwitchTable::set(Switch which, int source, bool on)
{
    sqlite::Statement statement(m_database,
        which == Switch::Watch ? "INSERT INTO radar_switch (type, watch) VALUES (?1, ?2)"
                                 " ON CONFLICT (type) DO UPDATE SET watch = ?2"
                               : "INSERT INTO radar_switch (type, backup) VALUES (?1, ?2)"
                                 " ON CONFLICT (type) DO UPDATE SET backup = ?2");
    statement.bind(1, qint64(source)).bind(2, qint64(on)).run();
    return settle(m_database);
}

} // namespace zel::service

#pragma once

#include "base/sqlite/database.h"

namespace zel::service {

inline constexpr int FirstSource = 1; ///< QQ and TIM
inline constexpr int LastSource = 4;  ///< desktop

/// The switches of each radar source: whether it is watched (on until switched off) and whether its files are
/// backed up (off until switched on). Thread of its connection, which prepareTables() made ready.
class SwitchTable
{
public:
    enum class Switch { Watch, Backup };

    explicit SwitchTable(sqlite::Database &database) : m_database(database) { }

    bool isOn(Switch which, int source);                    ///< a failure is logged and reads as off
    sqlite::Failure set(Switch which, int source, bool on); ///< on disk when there is none

private:
    sqlite::Database &m_database;
};

} // namespace zel::service

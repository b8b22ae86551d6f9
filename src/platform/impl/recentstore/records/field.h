#pragma once

#include "krecentfile.h"

#include <tuple>

namespace zel::recent {

/// A member of a stored record: the column that keeps it, and the member of the shown record that it becomes.
/// A record's fields stand in a table beside it, which the database and toInfo() go through; so a member that
/// is stored and shown as it is needs nothing but its line there. The column's type follows from the
/// member's, its default from the member's initialiser.
template <class Record, class Value> struct Field
{
    constexpr Field(const char *name, Value Record::*place) : column(name), member(place) { }

    /// The shown record has it as it is.
    constexpr Field shownAs(Value RecentFileInfo::*place) const
    {
        Field field = *this;
        field.shown = place;
        return field;
    }
    /// The version of the tables that brought it, when the table was there before. Part of the format: never
    /// changed once it was delivered.
    constexpr Field since(int tablesVersion) const
    {
        Field field = *this;
        field.version = tablesVersion;
        return field;
    }

    const char *column;
    Value Record::*member;
    Value RecentFileInfo::*shown = nullptr; ///< null: it is not shown, or not as it is
    int version = 0;                        ///< 0: it came with its table
};

/// Calls `work` with each field of a table (a tuple of fields), in order. Costs nothing at run time.
template <class Fields, class Work> constexpr void forEachField(const Fields &fields, Work &&work)
{
    std::apply([&work](const auto &...field) { (work(field), ...); }, fields);
}

template <class Fields, class Record>
void copyShown(const Fields &fields, const Record &record, RecentFileInfo &info)
{
    forEachField(fields, [&](const auto &field) {
        if (field.shown)
            info.*field.shown = record.*field.member;
    });
}

} // namespace zel::recent

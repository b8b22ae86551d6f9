#pragma once

#include <type_traits>

inline void fill(const auto &) { }
template <class Record, class Field, class... Others>
void fill(
    Record &record, Field Record::*field, const std::type_identity_t<Field> &value, const Others &...others)
{
    record.*field = value;
    fill(record, others...);
}

/// A record of the link with some fields: `filled(&RenameArg::newName, "a.txt", &RenameArg::item, item)`.
template <class Record, class Field, class... Others>
Record filled(Field Record::*field, const std::type_identity_t<Field> &value, const Others &...others)
{
    Record record;
    fill(record, field, value, others...);
    return record;
}

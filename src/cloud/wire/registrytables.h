#pragma once

#include "cloud/wire/registry.h"

/// The generated tables that the registry is built from. For registry.cpp only.
namespace zel::wire {

struct RecordTable
{
    const RecordType *rows;
    const unsigned *count;
};

struct MethodRow
{
    const char *name;
    const char *request; ///< a record's name, empty for a list of texts
    const char *answer;  ///< a record's name, empty for none
    bool isPush;
};

extern const RecordTable recordTables[];
extern const unsigned recordTableCount;
extern const MethodRow methodRows[]; ///< requests before pushes, each part by name
extern const unsigned methodRowCount;

} // namespace zel::wire

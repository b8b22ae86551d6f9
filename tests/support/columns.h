#pragma once

#include "support/table.h"

/// The former name of zeltest::table().
template <class... Columns, class... Names> auto columns(Names... names)
{
    return zeltest::table<Columns...>(names...);
}

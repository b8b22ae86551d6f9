#pragma once

#include <QLatin1String>

namespace zel {

/// A Latin-1 literal with its length taken at compile time; QLatin1String's own constructor asks strlen(),
/// which not every compiler takes in a constant expression.
template <int N> consteval QLatin1String latin1(const char (&text)[N])
{
    return QLatin1String(text, N - 1);
}

} // namespace zel

#pragma once

#include "localsearch/engine/queryparser.h"

namespace zel::localsearch {

/// The value of `size:`, folded: "10m", ">1.5g", "1k..5m", "0", "empty". A size alone means what begins with
/// its digits: "10m" is 10 MB up to 11 MB. Units of 1024. Nothing where it says nothing.
std::optional<SizeRange> parseSizes(std::string_view text);
/// The value of `date:`, folded: "today", "last week", "2026", "2026-11-24", ">2026-01", "2025..yesterday".
std::optional<DayRange> parseDays(std::string_view text, const QueryContext &context);

} // namespace zel::localsearch

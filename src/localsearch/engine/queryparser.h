#pragma once

#include "localsearch/engine/query.h"

namespace zel::localsearch {

/// What a query may speak of without saying it.
struct QueryContext
{
    std::chrono::sys_days today; ///< by the user's clock
    std::chrono::weekday firstDayOfWeek = std::chrono::Monday;
    std::string home; ///< for "in:~/…"
};

constexpr std::size_t longestQuery = 4096; ///< bytes
constexpr std::size_t mostTerms = 32;      ///< words, patterns, filters

/// Reads what a user typed. A blank between two words means both, in any order.
///
///     word  "words just so"  *pattern*.pdf  /regular expression/  re:expression
///     kind:picture,pdf  ext:doc,docx  size:>10M  size:1k..5M  date:today  date:>2026-11  date:"last week"
///     in:Downloads  in:work/2026  in:~/Documents
///
/// Several kinds or suffixes widen a search, all else narrows it. What stands before another colon is no
/// filter but a word. Wide forms of all signs do as well, and so do the quotes of Chinese text. Regular
/// expressions are run in linear time. Any thread; O(length), but for regular expressions bounded by
/// longestQuery.
std::variant<Query, QueryError> parseQuery(std::string_view text, const QueryContext &context);

} // namespace zel::localsearch

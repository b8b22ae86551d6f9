#pragma once

#include "localsearch/engine/filekind.h"
#include "localsearch/engine/fold.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace re2 {
class RE2;
}

namespace zel::localsearch {

/// Stands anywhere in the name.
struct WordTerm
{
    std::string folded;
    bool isLiteral = false; ///< quoted: not as pinyin, and with its blanks

    bool operator==(const WordTerm &) const = default;
};

/// All of the name, with or without its suffix: `*` is any text, `?` one character.
struct PatternTerm
{
    std::string folded;

    bool operator==(const PatternTerm &) const = default;
};

/// Found anywhere in the name as it is written, whatever its case.
struct RegexTerm
{
    std::string text;
    std::shared_ptr<const re2::RE2> compiled; ///< never null, good for any thread

    bool operator==(const RegexTerm &other) const { return text == other.text; }
};

using Term = std::variant<WordTerm, PatternTerm, RegexTerm>;

/// Bytes, both ends included.
struct SizeRange
{
    std::uint64_t from = 0;
    std::uint64_t to = std::numeric_limits<std::uint64_t>::max();

    bool isAll() const { return *this == SizeRange(); }
    bool operator==(const SizeRange &) const = default;
};

/// Days of the user's calendar, `from` included, `to` not.
struct DayRange
{
    std::chrono::sys_days from = std::chrono::sys_days::min();
    std::chrono::sys_days to = std::chrono::sys_days::max();

    bool isAll() const { return *this == DayRange(); }
    bool operator==(const DayRange &) const = default;
};

/// What an entry lies in, at any depth: folders of these names one in the other, from the root or from
/// anywhere.
struct FolderTerm
{
    std::vector<std::string> folded; ///< outer one first
    bool isFromRoot = false;

    bool operator==(const FolderTerm &) const = default;
};

/// What a user searches for: entries that meet all of it.
struct Query
{
    std::vector<Term> terms;
    FileKinds kinds = allKinds;
    std::vector<std::string> suffixes; ///< one of these, folded; empty: any
    SizeRange size;
    DayRange changed;
    std::vector<FolderTerm> folders; ///< in all of them

    bool isEmpty() const { return *this == Query(); }
    bool operator==(const Query &) const = default;
};

enum class QueryProblem {
    TooLong,
    TooManyTerms,
    UnclosedQuote,
    UnclosedRegex,
    BadRegex,
    RegexTooLarge,
    EmptyFilter, ///< "kind:" with nothing after it
    UnknownKind,
    BadSize,
    BadDate
};

/// Why a text is no query.
struct QueryError
{
    QueryProblem problem;
    Range where; ///< of the text as it was typed
    bool operator==(const QueryError &) const = default;
};

} // namespace zel::localsearch

#include "localsearch/engine/queryparser.h"

#include "localsearch/engine/filterranges.h"

#include <algorithm>
#include <re2/re2.h>
#include <utility>

namespace zel::localsearch {
namespace {

constexpr std::size_t longestRegex = 1024;
constexpr int regexMemory = 8 << 20; // for the program and its automaton together

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Reads one query from its folded text; places in it are turned back for errors only.
class Parser
{
public:
    Parser(std::string_view original, const QueryContext &context)
        : m_original(original), m_context(context), m_folded(original), m_text(m_folded.text())
    {
    }

    std::variant<Query, QueryError> parse();

private:
    struct Piece
    {
        std::size_t begin;
        std::size_t end;
    };
    using Filter = bool (Parser::*)(Piece);

    std::string_view text(Piece piece) const { return m_text.substr(piece.begin, piece.end - piece.begin); }
    std::string_view original(Piece piece) const;
    bool fail(QueryProblem problem, Piece where);

    std::size_t quoteAt(std::size_t at) const; ///< its length, 0 when there is none
    bool isEnd(std::size_t at) const { return at >= m_text.size() || isBlank(m_text[at]); }
    std::optional<Piece> takeQuoted(); ///< nothing: it is not closed
    Piece takeUntilBlank();
    std::optional<Piece> takeValue();

    bool takeTerm();
    bool takePhrase();
    bool takeSlashes();
    bool takeWord();
    static Filter filterNamed(std::string_view key);

    void add(Term term);
    bool addRegex(Piece piece);
    bool addKinds(Piece value);
    bool addSuffixes(Piece value);
    bool addSizes(Piece value);
    bool addDays(Piece value);
    bool addFolder(Piece value);

    std::string_view m_original;
    const QueryContext &m_context;
    FoldedText m_folded;
    std::string_view m_text;
    std::size_t m_at = 0;
    Query m_query;
    std::optional<QueryError> m_error;
};

std::variant<Query, QueryError> Parser::parse()
{
    for (std::size_t count = 0;; ++count) {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
        if (m_at == m_text.size())
            return std::move(m_query);
        if (count == mostTerms)
            fail(QueryProblem::TooManyTerms, {m_at, m_text.size()});
        if (m_error || !takeTerm())
            return *m_error;
    }
}

std::string_view Parser::original(Piece piece) const
{
    if (piece.begin == piece.end)
        return {};
    const Range range = m_folded.originalOf({std::uint32_t(piece.begin), std::uint32_t(piece.end)});
    return m_original.substr(range.begin, range.end - range.begin);
}

bool Parser::fail(QueryProblem problem, Piece where)
{
    m_error = {problem, m_folded.originalOf({std::uint32_t(where.begin), std::uint32_t(where.end)})};
    return false;
}

std::size_t Parser::quoteAt(std::size_t at) const
{
    for (const std::string_view quote : {"\"", "“", "”"}) {
        if (m_text.substr(at).starts_with(quote))
            return quote.size();
    }
    return 0;
}

std::optional<Parser::Piece> Parser::takeQuoted()
{
    const std::size_t begin = m_at + quoteAt(m_at);
    for (std::size_t end = begin; end < m_text.size(); ++end) {
        if (const std::size_t quote = quoteAt(end)) {
            m_at = end + quote;
            return Piece{begin, end};
        }
    }
    fail(QueryProblem::UnclosedQuote, {m_at, m_text.size()});
    return {};
}

Parser::Piece Parser::takeUntilBlank()
{
    const std::size_t begin = m_at;
    while (!isEnd(m_at) && !quoteAt(m_at))
        ++m_at;
    return {begin, m_at};
}

std::optional<Parser::Piece> Parser::takeValue()
{
    return m_at < m_text.size() && quoteAt(m_at) ? takeQuoted() : std::optional(takeUntilBlank());
}

bool Parser::takeTerm()
{
    if (quoteAt(m_at))
        return takePhrase();
    return m_text[m_at] == '/' ? takeSlashes() : takeWord();
}

bool Parser::takePhrase()
{
    const auto piece = takeQuoted();
    if (piece && piece->begin < piece->end)
        add(WordTerm{std::string(text(*piece)), true});
    return piece.has_value();
}

bool Parser::takeSlashes()
{
    const std::size_t begin = m_at + 1;
    std::size_t end = begin;
    while (end < m_text.size() && !(m_text[end] == '/' && isEnd(end + 1)))
        end += m_text[end] == '\\' ? 2 : 1;
    if (end >= m_text.size())
        return fail(QueryProblem::UnclosedRegex, {m_at, m_text.size()});
    const std::size_t whole = std::exchange(m_at, end + 1);
    return begin == end ? fail(QueryProblem::EmptyFilter, {whole, m_at}) : addRegex({begin, end});
}

Parser::Filter Parser::filterNamed(std::string_view key)
{
    static constexpr std::pair<std::string_view, Filter> filters[] = {
        {"kind", &Parser::addKinds},
        {"ext", &Parser::addSuffixes},
        {"size", &Parser::addSizes},
        {"date", &Parser::addDays},
        {"in", &Parser::addFolder},
        {"re", &Parser::addRegex},
    };
    const auto *found = std::ranges::find(
        filters, key, [](const std::pair<std::string_view, Filter> &row) { return row.first; });
    return found == std::end(filters) ? nullptr : found->second;
}

bool Parser::takeWord()
{
    const std::size_t begin = m_at;
    const std::size_t colon = m_text.find(':', m_at);
    const Filter filter =
        colon == std::string_view::npos ? nullptr : filterNamed(m_text.substr(m_at, colon - m_at));
    const bool isSubjectOfMail = filter == &Parser::addRegex && isEnd(colon + 1); // "Re: minutes"
    if (filter && !isSubjectOfMail) {
        m_at = colon + 1;
        const auto value = takeValue();
        if (!value)
            return false;
        return value->begin < value->end ? (this->*filter)(*value)
                                         : fail(QueryProblem::EmptyFilter, {begin, m_at});
    }
    const std::string_view word = text(takeUntilBlank());
    if (word.find_first_of("*?") == std::string_view::npos)
        add(WordTerm{std::string(word)});
    else
        add(PatternTerm{std::string(word)});
    return true;
}

void Parser::add(Term term)
{
    if (std::ranges::find(m_query.terms, term) == m_query.terms.end())
        m_query.terms.push_back(std::move(term));
}

bool Parser::addRegex(Piece piece)
{
    const std::string_view expression = original(piece);
    if (expression.size() > longestRegex)
        return fail(QueryProblem::RegexTooLarge, piece);
    RE2::Options options(RE2::Quiet);
    options.set_case_sensitive(false);
    options.set_max_mem(regexMemory);
    auto compiled =
        std::make_shared<const RE2>(re2::StringPiece(expression.data(), expression.size()), options);
    if (!compiled->ok()) {
        const bool isTooLarge = compiled->error_code() == RE2::ErrorPatternTooLarge
            || compiled->error_code() == RE2::ErrorRepeatSize;
        return fail(isTooLarge ? QueryProblem::RegexTooLarge : QueryProblem::BadRegex, piece);
    }
    add(RegexTerm{std::string(expression), std::move(compiled)});
    return true;
}

bool Parser::addKinds(Piece value)
{
    FileKinds kinds = m_query.kinds == allKinds ? FileKinds(0) : m_query.kinds;
    while (value.begin < value.end) {
        const std::size_t end = std::min(m_text.find_first_of(",;", value.begin), value.end);
        const Piece word{value.begin, end};
        if (const FileKinds named = kindsNamed(text(word)))
            kinds |= named;
        else
            return fail(QueryProblem::UnknownKind, {word.begin, std::max(end, word.begin + 1)});
        value.begin = std::min(end + 1, value.end);
    }
    m_query.kinds = kinds;
    return true;
}

bool Parser::addSuffixes(Piece value)
{
    const std::size_t before = m_query.suffixes.size();
    for (std::size_t at = value.begin; at < value.end;) {
        const std::size_t end = std::min(m_text.find_first_of(",; ", at), value.end);
        std::string_view suffix = text({at, end});
        suffix.remove_prefix(std::min(suffix.find_first_not_of("*."), suffix.size()));
        if (!suffix.empty())
            m_query.suffixes.emplace_back(suffix);
        at = end + 1;
    }
    return m_query.suffixes.size() > before || fail(QueryProblem::EmptyFilter, value);
}

bool Parser::addSizes(Piece value)
{
    const auto sizes = parseSizes(text(value));
    if (!sizes)
        return fail(QueryProblem::BadSize, value);
    m_query.size.from = std::max(m_query.size.from, sizes->from);
    m_query.size.to = std::min(m_query.size.to, sizes->to);
    return true;
}

bool Parser::addDays(Piece value)
{
    auto days = parseDays(text(value), m_context);
    if (text(value) == "last" || text(value) == "this") { // "date:last week" without quotes
        const std::string first(text(value));
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
        const Piece unit = takeUntilBlank();
        days = parseDays(first + ' ' + std::string(text(unit)), m_context);
        value.end = unit.end;
    }
    if (!days)
        return fail(QueryProblem::BadDate, value);
    m_query.changed.from = std::max(m_query.changed.from, days->from);
    m_query.changed.to = std::min(m_query.changed.to, days->to);
    return true;
}

bool Parser::addFolder(Piece value)
{
    std::string path(text(value));
    if (path == "~" || path.starts_with("~/"))
        path = folded(m_context.home) + path.substr(1);
    FolderTerm term;
    term.isFromRoot = path.starts_with('/');
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        if (end > at)
            term.folded.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    if (!term.folded.empty())
        m_query.folders.push_back(std::move(term));
    return true;
}

} // namespace

std::variant<Query, QueryError> parseQuery(std::string_view text, const QueryContext &context)
{
    if (text.size() > longestQuery)
        return QueryError{QueryProblem::TooLong, {std::uint32_t(longestQuery), std::uint32_t(text.size())}};
    return Parser(text, context).parse();
}

} // namespace zel::localsearch

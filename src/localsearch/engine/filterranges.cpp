#include "localsearch/engine/filterranges.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace std::chrono;

namespace zel::localsearch {
namespace {

constexpr std::uint64_t largestSize = std::uint64_t(1) << 62;

// How a filter compares: "<=5m", "1k..5m", "..5m", "today".
struct Comparison
{
    std::string_view low = {}; ///< empty: no limit
    std::string_view high = {};
    bool includesLow = true; ///< all that `low` stands for
    bool includesHigh = true;
};

std::string_view trimmed(std::string_view text)
{
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

bool takePrefix(std::string_view &text, std::string_view prefix)
{
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    text = trimmed(text);
    return true;
}

Comparison comparison(std::string_view text)
{
    text = trimmed(text);
    if (takePrefix(text, ">="))
        return {.low = text};
    if (takePrefix(text, "<="))
        return {.high = text};
    if (takePrefix(text, ">"))
        return {.low = text, .includesLow = false};
    if (takePrefix(text, "<"))
        return {.high = text, .includesHigh = false};
    const std::size_t dots = text.find("..");
    if (dots == std::string_view::npos)
        return {.low = text, .high = text};
    const std::size_t end = std::min(text.find_first_not_of('.', dots), text.size());
    return {.low = trimmed(text.substr(0, dots)), .high = trimmed(text.substr(end))};
}

// What one size or date stands for: from its beginning up to, not including, its end.
template <class Value> struct Span
{
    Value begin;
    Value end;
};

// The span that `parse` gives for each side, as one; nothing where one is nonsense or nothing is left.
template <class Value, class Parse>
std::optional<Span<Value>> compared(const Comparison &sides, Span<Value> all, Parse parse)
{
    if (sides.low.empty() && sides.high.empty())
        return {};
    if (!sides.low.empty()) {
        const auto low = parse(sides.low);
        if (!low)
            return {};
        all.begin = sides.includesLow ? low->begin : low->end;
    }
    if (!sides.high.empty()) {
        const auto high = parse(sides.high);
        if (!high)
            return {};
        all.end = sides.includesHigh ? high->end : high->begin;
    }
    return all.begin < all.end ? std::optional(all) : std::nullopt;
}

using SizeSpan = Span<std::uint64_t>;

std::optional<std::uint64_t> unitOf(std::string_view text)
{
    static constexpr std::string_view letters = "kmgt";
    if (text.empty() || text == "b")
        return 1;
    const std::size_t power = letters.find(text.front());
    const std::string_view rest = text.substr(1);
    if (power == std::string_view::npos || !(rest.empty() || rest == "b" || rest == "ib"))
        return {};
    return std::uint64_t(1) << (10 * (power + 1));
}

// `isExact`: no more than the bytes that are written.
std::optional<SizeSpan> sizeSpan(std::string_view text, bool isExact)
{
    if (text == "empty")
        return SizeSpan{0, 1};
    const std::size_t digits = std::min(text.find_first_not_of("0123456789.,"), text.size());
    std::string number(text.substr(0, digits));
    std::ranges::replace(number, ',', '.');
    double value = 0;
    const auto [end, failed] = std::from_chars(number.data(), number.data() + number.size(), value);
    const auto unit = unitOf(trimmed(text.substr(digits)));
    if (number.empty() || number.starts_with('.') || failed != std::errc()
        || end != number.data() + number.size() || !unit || value * double(*unit) >= double(largestSize))
        return {};
    const std::size_t point = number.find('.');
    const double decimals = point == std::string::npos ? 0 : double(number.size() - point - 1);
    const double step = double(*unit) * std::pow(10, -decimals);
    const auto begin = std::uint64_t(std::ceil(value * double(*unit)));
    if (isExact || begin == 0)
        return SizeSpan{begin, begin + 1};
    return SizeSpan{begin, std::max(begin + 1, std::uint64_t(std::ceil((value * double(*unit)) + step)))};
}

using DaySpan = Span<sys_days>;

DaySpan yearSpan(year y)
{
    return {sys_days(y / January / 1), sys_days((y + years(1)) / January / 1)};
}

DaySpan monthSpan(year_month month)
{
    return {sys_days(month / 1), sys_days((month + months(1)) / 1)};
}

DaySpan weekSpan(sys_days day, weekday first)
{
    const sys_days begin = day - (weekday(day) - first);
    return {begin, begin + weeks(1)};
}

enum class Unit { Day, Week, Month, Year };

struct DayWord
{
    std::string_view words; ///< each ends with a comma
    Unit unit;
    int ago;
};

constexpr DayWord dayWords[] = {
    {"today,今天,", Unit::Day, 0},
    {"yesterday,昨天,", Unit::Day, 1},
    {"this week,thisweek,本周,这周,", Unit::Week, 0},
    {"last week,lastweek,上周,", Unit::Week, 1},
    {"this month,thismonth,本月,这个月,", Unit::Month, 0},
    {"last month,lastmonth,上月,上个月,", Unit::Month, 1},
    {"this year,thisyear,今年,", Unit::Year, 0},
    {"last year,lastyear,去年,", Unit::Year, 1},
};

bool isOneOf(std::string_view words, std::string_view word)
{
    while (!words.empty()) {
        const std::size_t comma = words.find(',');
        if (words.substr(0, comma) == word)
            return true;
        words.remove_prefix(comma + 1);
    }
    return false;
}

std::optional<DaySpan> namedSpan(std::string_view text, const QueryContext &context)
{
    const auto *found =
        std::ranges::find_if(dayWords, [text](const DayWord &row) { return isOneOf(row.words, text); });
    if (found == std::end(dayWords))
        return {};
    const year_month_day today(context.today);
    switch (found->unit) {
    case Unit::Day:
        return DaySpan{context.today - days(found->ago), context.today - days(found->ago - 1)};
    case Unit::Week:
        return weekSpan(context.today - weeks(found->ago), context.firstDayOfWeek);
    case Unit::Month:
        return monthSpan(today.year() / today.month() - months(found->ago));
    case Unit::Year:
        return yearSpan(today.year() - years(found->ago));
    }
    return {};
}

// "2026", "2026-11", "2026/11/24"
std::optional<DaySpan> writtenSpan(std::string_view text)
{
    std::array<unsigned, 3> parts = {};
    std::size_t count = 0;
    for (; count < parts.size() && !text.empty(); ++count) {
        const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), parts[count]);
        const auto length = std::size_t(end - text.data());
        if (failed != std::errc() || (count == 0 ? length != 4 : length > 2))
            return {};
        text.remove_prefix(length);
        const bool goesOn =
            !text.empty() && (text.front() == '-' || text.front() == '/' || text.front() == '.');
        if (!text.empty() && (!goesOn || text.size() == 1))
            return {};
        text.remove_prefix(goesOn ? 1 : 0);
    }
    const year y{int(parts[0])};
    const month m{parts[1]};
    if (count == 0 || !text.empty() || parts[0] == 0 || (count > 1 && !m.ok()))
        return {};
    if (count == 1)
        return yearSpan(y);
    if (count == 2)
        return monthSpan(y / m);
    const year_month_day date{y, m, day{parts[2]}};
    return date.ok() ? std::optional(DaySpan{sys_days(date), sys_days(date) + days(1)}) : std::nullopt;
}

} // namespace

std::optional<SizeRange> parseSizes(std::string_view text)
{
    const Comparison sides = comparison(text);
    const bool isExact = sides.low.data() != sides.high.data();
    const auto span = compared<std::uint64_t>(sides, {0, std::numeric_limits<std::uint64_t>::max()},
        [isExact](std::string_view side) { return sizeSpan(side, isExact); });
    if (!span)
        return {};
    return SizeRange{span->begin, sides.high.empty() ? SizeRange().to : span->end - 1};
}

std::optional<DayRange> parseDays(std::string_view text, const QueryContext &context)
{
    const auto span = compared<sys_days>(
        comparison(text), {DayRange().from, DayRange().to}, [&context](std::string_view side) {
            const auto named = namedSpan(side, context);
            return named ? named : writtenSpan(side);
        });
    return span ? std::optional(DayRange{span->begin, span->end}) : std::nullopt;
}

} // namespace zel::localsearch

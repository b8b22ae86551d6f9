#include "localsearch/engine/queryparser.h"

#include <re2/re2.h>

using namespace zel::localsearch;
using namespace zeltest;
using namespace std::chrono;

namespace {

// A Tuesday.
const QueryContext context = {sys_days(year(2026) / November / 24), Monday, "/home/Zoë"};

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

QString text(const Term &term)
{
    if (const auto *word = std::get_if<WordTerm>(&term))
        return text(word->folded).prepend(word->isLiteral ? "="_s : QString());
    if (const auto *pattern = std::get_if<PatternTerm>(&term))
        return "glob %1"_s.arg(text(pattern->folded));
    return "regex %1"_s.arg(text(std::get<RegexTerm>(term).text));
}

QString text(sys_days day)
{
    return QDate(1970, 1, 1).addDays(day.time_since_epoch().count()).toString(Qt::ISODate);
}

/// A query as one line, without what it leaves open.
QString text(const Query &query)
{
    QStringList parts;
    for (const Term &term : query.terms)
        parts += text(term);
    if (query.kinds != allKinds)
        parts += "kinds %1"_s.arg(query.kinds, 0, 2);
    for (const std::string &suffix : query.suffixes)
        parts += ".%1"_s.arg(text(suffix));
    if (!query.size.isAll())
        parts += "%1..%2 bytes"_s.arg(query.size.from)
                     .arg(query.size.to == SizeRange().to ? QString() : QString::number(query.size.to));
    if (!query.changed.isAll())
        parts += "%1..%2"_s.arg(query.changed.from == DayRange().from ? QString() : text(query.changed.from),
            query.changed.to == DayRange().to ? QString() : text(query.changed.to - days(1)));
    for (const FolderTerm &folder : query.folders) {
        QStringList names;
        for (const std::string &name : folder.folded)
            names += text(name);
        parts += "in %1%2"_s.arg(folder.isFromRoot ? "/"_s : QString(), names.join("/"_s));
    }
    return parts.join(" | "_s);
}

QString name(QueryProblem problem)
{
    static const char *const names[] = {"TooLong", "TooManyTerms", "UnclosedQuote", "UnclosedRegex",
        "BadRegex", "RegexTooLarge", "EmptyFilter", "UnknownKind", "BadSize", "BadDate"};
    return QString::fromLatin1(names[int(problem)]);
}

} // namespace

/// What a user types into the search field, as a query or as an error with its place.
class QueryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parses_data();
    void parses();
    void isBounded();
};

void QueryTest::parses_data()
{
    // Of an error: what is wrong, and the part of the text.
    const auto row = table<QString, QString>("text", "meaning");
    row("nothing", " \t\n", "");
    row("words", "  Annual  RÉPORT report", "annual | report");
    row("wide", "Ａnnual　２０２６", "annual | 2026");
    row("quotes", "\"Annual  Report\" x\"y z\"", "=annual  report | x | =y z");
    row("Chinese quotes", "“银行 对账”单", "=银行 对账 | 单");
    row("empty quotes", "\"\" a", "a");
    row("unclosed", "a \"b c", "UnclosedQuote: \"b c");
    row("unclosed behind another", "\"a\"“", "UnclosedQuote: “");
    row("patterns", "*.PDF re?ort*", "glob *.pdf | glob re?ort*");
    row("wide pattern", "＊．ｄｏｃ？", "glob *.doc?");
    row("no pattern in quotes", "\"*.pdf\"", "=*.pdf");
    row("regex", "/^IMG_\\D+ \\/x/ a", "regex ^IMG_\\D+ \\/x | a");
    row("regex by word", "re:^a|b$ RE:\"c d\"", "regex ^a|b$ | regex c d");
    row("subject of a mail", "Re: minutes", "re: | minutes");
    row("regex not closed", "x /home", "UnclosedRegex: /home");
    row("regex not closed, escaped", "/a\\/", "UnclosedRegex: /a\\/");
    row("empty regex", "//", "EmptyFilter: //");
    row("bad regex", "a re:x[", "BadRegex: x[");
    row("huge regex", "/a{1001}/", "RegexTooLarge: a{1001}");
    row("large regex", "/(\\pL{100}){9}/", "RegexTooLarge: (\\pL{100}){9}");
    row("kinds", "kind:pdf,Folder kind:图片", "kinds 1000001010000");
    row("wide filter", "ｋｉｎｄ：ｐｄｆ", "kinds 10000");
    row("unknown kind", "kind:pdf,nonsense", "UnknownKind: nonsense");
    row("part of a kind", "kind:pic", "UnknownKind: pic");
    row("no kind", "a kind: b", "EmptyFilter: kind:");
    row("unknown filter", "foo:bar 12:30", "foo:bar | 12:30");
    row("suffixes", "ext:.DOC,docx;*.odt ext:pdf", ".doc | .docx | .odt | .pdf");
    row("no suffix", "ext:,.", "EmptyFilter: ,.");
    row("larger", "size:>10M", "10485761.. bytes");
    row("at least, spaced", "size:\">= 1.5 kb\"", "1536.. bytes");
    row("smaller", "size:<1KiB", "0..1023 bytes");
    row("from to", "size:1k..5M", "1024..5242880 bytes");
    row("size alone", "size:10M", "10485760..11534335 bytes");
    row("decimals alone", "size:1,5k", "1536..1638 bytes");
    row("bytes alone", "size:100", "100..100 bytes");
    row("empty file", "size:0 size:empty", "0..0 bytes");
    row("two sizes", "size:>1k size:<=2k", "1025..2048 bytes");
    row("size turned round", "size:5M..1k", "BadSize: 5M..1k");
    row("sizes of no kind", "size:10X", "BadSize: 10X");
    row("no number", "size:.", "BadSize: .");
    row("two points", "size:1.2.3k", "BadSize: 1.2.3k");
    row("negative", "size:>-1", "BadSize: >-1");
    row("past all", "size:>99999999999999999999T", "BadSize: >99999999999999999999T");
    row("no end", "size:..", "BadSize: ..");
    row("today", "date:today", "2026-11-24..2026-11-24");
    row("yesterday", "date:昨天", "2026-11-23..2026-11-23");
    row("last week", "date:\"last week\"", "2026-11-16..2026-11-22");
    row("last week, no quotes", "date:Last Week a", "a | 2026-11-16..2026-11-22");
    row("last what", "date:last word", "BadDate: last word");
    row("this week", "date:thisweek", "2026-11-23..2026-11-29");
    row("last month", "date:lastmonth", "2026-10-01..2026-10-31");
    row("last year", "date:去年", "2025-01-01..2025-12-31");
    row("a year", "date:2024", "2024-01-01..2024-12-31");
    row("a month", "date:2024-2", "2024-02-01..2024-02-29");
    row("a day", "date:2024/02/29", "2024-02-29..2024-02-29");
    row("after a month", "date:>2026-10", "2026-11-01..");
    row("before a day", "date:<2026-01-01", "..2025-12-31");
    row("up to a year", "date:<=2025", "..2025-12-31");
    row("between", "date:2025-12..yesterday", "2025-12-01..2026-11-23");
    row("no such day", "date:2025-02-29", "BadDate: 2025-02-29");
    row("no such month", "date:2025-13", "BadDate: 2025-13");
    row("half a date", "date:2025-", "BadDate: 2025-");
    row("four parts", "date:2025-1-1-1", "BadDate: 2025-1-1-1");
    row("year turned round", "date:2026..2025", "BadDate: 2026..2025");
    row("folder", "in:Downloads in:\"My Work/2026/\"", "in downloads | in my work/2026");
    row("from the root", "in:/Srv//Data", "in /srv/data");
    row("home", "in:~/Docs", "in /home/zoe/docs");
    row("the root itself", "in:/ a", "a");
    row("all at once", "q3 ext:pdf size:>1k date:2026 in:Work \"a b\"",
        "q3 | =a b | .pdf | 1025.. bytes | 2026-01-01..2026-12-31 | in work");
}

void QueryTest::parses()
{
    const auto [typed, meaning] = row<QString, QString>();
    const std::string bytes = typed.toStdString();
    const auto parsed = parseQuery(bytes, context);
    if (const auto *error = std::get_if<QueryError>(&parsed)) {
        const std::string place = bytes.substr(error->where.begin, error->where.end - error->where.begin);
        QCOMPARE("%1: %2"_s.arg(name(error->problem), text(place)), meaning);
    } else {
        QCOMPARE(text(std::get<Query>(parsed)), meaning);
    }
}

void QueryTest::isBounded()
{
    const auto problem = [](const std::string &typed) {
        const auto parsed = parseQuery(typed, context);
        const auto *error = std::get_if<QueryError>(&parsed);
        return error ? name(error->problem) : QString();
    };
    QCOMPARE(problem(std::string(100000, 'a')), "TooLong"_s);
    QCOMPARE(problem(std::string(longestQuery, 'a')), QString());
    std::string words;
    for (size_t i = 0; i < mostTerms; ++i)
        words += std::to_string(i) + " ";
    QCOMPARE(problem(words), QString());
    QCOMPARE(problem(words + "x"), "TooManyTerms"_s);
    QCOMPARE(problem("/" + std::string(2000, 'a') + "/"), "RegexTooLarge"_s);
    QCOMPARE(problem("\xFF\xC3 \xE9\x93"), QString());
}

QTEST_GUILESS_MAIN(QueryTest)
#include "tst_query.moc"

#include "lists/idindex.h"
#include "lists/rowdiff.h"
#include "lists/wordfilter.h"
#include "support/text.h"

#include <QRandomGenerator>
#include <QTest>

using zel::RowDiff;
using zel::WordFilter;

namespace {

zel::Handles handles(const QString &letters)
{
    zel::Handles list;
    for (const QChar letter : letters)
        list.push_back(zel::Handle(letter.unicode() - 'a'));
    return list;
}

QString print(const RowDiff &diff)
{
    QString text;
    for (const zel::RowRange &range : diff.removals)
        text += "-%1..%2 "_s.arg(range.first).arg(range.last);
    for (const zel::RowRange &range : diff.insertions)
        text += "+%1..%2 "_s.arg(range.first).arg(range.last);
    return text + (diff.reordered ? "reordered"_s : QString());
}

} // namespace

/// Values of the list kit.
class TestListValues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rowsDiffer_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *before, const char *after, const char *expected) {
            QTest::addRow("%s to %s", before, after)
                << QString::fromLatin1(before) << QString::fromLatin1(after) << QString::fromLatin1(expected);
        };
        row("", "", "");
        row("", "cab", "+0..2 ");
        row("cab", "", "-0..2 ");
        row("abc", "abc", "");
        row("abcdef", "bcf", "-3..4 -0..0 ");
        row("bcf", "abcdef", "+0..0 +3..4 ");
        row("abc", "xbyz", "-2..2 -0..0 +0..0 +2..3 ");
        row("abcd", "bacd", "reordered");
        row("abcd", "dxb", "-2..2 -0..0 +1..1 reordered");
    }
    void rowsDiffer()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QTEST(print(RowDiff::between(handles(before), handles(after))), "expected");
    }

    // What is marked stands between square brackets; none: the text does not match.
    void wordsAreFound_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("marked");
        const auto row = [](const char *words, const char *marked) {
            QTest::addRow("%s in %s", words, marked) << QString::fromUtf8(words) << QString::fromUtf8(marked);
        };
        row("", "a.odt");
        row("BUDGET", "My [budget].ods");
        row("24 bud", "[Bud]get 20[24].ods");
        row("heat plan", "[heat]ing/[plan]s/[plan].svg");
        row("ana", "b[anana]");
        row("ab bc", "x[abc]x");
        row("resume", "[Résumé].odt");
        row("re\xcc\x81sume", "[R\xc3\xa9sum\xc3\xa9].odt"); // decomposed, composed
        row("sume", "Re\xcc\x81[sume\xcc\x81].odt");         // accents go with their letters
        row("lodz", "/[Łódź]/a.odt");
        row("strasse x", "[Straße] [x]");
        row("s", "Gro[ß]e[s]"); // half a letter cannot be marked
        row("财务 报告", "/文档/[财务]/第一季度[报告].pptx");
        row("ガイド", "[\xe3\x82\xab\xe3\x82\x99イド].pdf"); // decomposed by another system
        row("abc", "[ＡＢＣ].pdf");
        row("fi", "o[ﬃ]ce"); // one letter for three
    }
    void wordsAreFound()
    {
        QFETCH(QString, words);
        QFETCH(QString, marked);
        QString text = marked;
        text.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
        const WordFilter filter(words);
        QVERIFY(filter.matches(text));
        QString found = text;
        const zel::TextRanges ranges = filter.ranges(text);
        for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
            found.insert(range->start + range->length, QLatin1Char(']'));
            found.insert(range->start, QLatin1Char('['));
        }
        QCOMPARE(found, marked);
        QVERIFY(words.isEmpty() || !WordFilter(words + " q"_s).matches(text)); // all of them
    }

    void narrowerFilters()
    {
        const WordFilter some("rep 24"_s);
        QVERIFY(WordFilter("2024 report x"_s).isNarrowerThan(some));
        QVERIFY(some.isNarrowerThan(WordFilter()));
        QVERIFY(!WordFilter("report"_s).isNarrowerThan(some));
        QVERIFY(some.matches({"Report"_s, "of 2024"_s}));
        QVERIFY(!WordFilter("report2024"_s).matches({"Report"_s, "2024"_s}));
        QVERIFY(!WordFilter("カ"_s).matches("ガイド"_s)); // another syllable
    }

    // Ids come and go in any order, so that places of the table are shared and given back.
    void idsAreFound()
    {
        QStringList ids; // by handle
        for (int i = 0; i < 300; ++i)
            ids << QString::number(i * i);
        const auto idOf = [&ids](zel::Handle handle) -> const QString & { return ids.at(int(handle)); };
        zel::IdIndex index;
        QMap<zel::Handle, bool> known;
        QRandomGenerator random(7);
        for (int step = 0; step < 20'000; ++step) {
            const zel::Handle handle = random.bounded(quint32(step % 4000 < 2000 ? 300 : 40));
            if (random.bounded(2) == 0) {
                QCOMPARE(index.add(idOf(handle), handle, idOf), !std::exchange(known[handle], true));
            } else {
                index.remove(idOf(handle), idOf);
                known[handle] = false;
            }
            const zel::Handle asked = random.bounded(300U);
            QCOMPARE(index.find(idOf(asked), idOf), known.value(asked) ? std::optional(asked) : std::nullopt);
        }
        QCOMPARE(index.size(), known.values().count(true));
    }
};

QTEST_GUILESS_MAIN(TestListValues)
#include "tst_values.moc"

#include "lists/idindex.h"
#include "lists/listlayout.h"
#include "lists/listleaving.h"
#include "lists/listmodel.h"
#include "lists/rowdiff.h"
#include "lists/rowselection.h"
#include "lists/wordfilter.h"

using zel::RowDiff;
using zel::WordFilter;

/// What a list works out without a window.
class TestListLogic : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void places()
    {
        struct Case
        {
            QList<int> counts;
            int y, at, after, before;
        };
        // 0 header, 4 row 0, 14 row 1, 24 header, 28 row 2, 38 row 3, 48 row 4, 58 end, 61 bottom
        const QList<int> two{2, 3};
        const Case cases[] = {{{}, 0, -1, -1, -1}, {two, -5, -1, 0, -1}, {two, 4, 0, 0, 0},
            {two, 13, 0, 0, 0}, {two, 24, -1, 2, 1}, {two, 57, 4, 4, 4}, {two, 58, -1, -1, 4},
            {{-3}, 0, 0, 0, 0}, {{100000}, 4 + 999990, 99999, 99999, 99999}};
        for (const Case &one : cases) {
            const ListLayout layout = layoutOf(one.counts);
            QCOMPARE(layout.rowAt(one.y), one.at);
            QCOMPARE(layout.rowAtOrAfter(one.y), one.after);
            QCOMPARE(layout.rowAtOrBefore(one.y), one.before);
        }
    }

    void sticky()
    {
        struct Case
        {
            QList<int> counts;
            int scroll, section, top;
        };
        const QList<int> two{2, 3};
        const QList<int> unheaded{2, -3};
        const Case cases[] = {{{}, 0, -1, 0}, {two, 0, 0, 0}, {two, 20, 0, 0}, {two, 22, 0, -2},
            {two, 24, 1, 0}, {unheaded, 22, 0, -2},
            {unheaded, 24, -1, 0}}; // rows without a header push it out, too
        for (const Case &one : cases) {
            const auto header = layoutOf(one.counts).stickyHeader(one.scroll);
            QCOMPARE(header.section, one.section);
            QCOMPARE(header.top, one.top);
        }
    }

    void selections()
    {
        Letters model;
        QItemSelectionModel selection(&model);
        selection.select(zel::selectionOf(model, ids("cxbaeca"_s)), QItemSelectionModel::Select);
        QCOMPARE(selection.selection().size(), 2); // a to c, and e
        QCOMPARE(zel::selectedRowIds(&model, &selection).join(QString()), "abce"_s);
        QCOMPARE(zel::selectedRowCount(&selection), 4);
    }

    void removedRowsLeaveToTheNext_data()
    {
        // selected: the last one is current
        // sent: away by the user
        // removed: one after the other; +: "d" is back, and selected
        // after: selected, then the current one
        const auto row =
            zeltest::table<QString, QString, QString, QString>("selected", "sent", "removed", "after");
        row("the next", "d", "d", "d", "e/e");
        row("the last", "j", "j", "j", "i/i");
        row("several", "cge", "cge", "ceg", "f/f");
        row("some of them", "cg", "g", "g", "c/h");
        row("by others", "d", "", "d", "/e");
        row("back again, then by others", "de", "d", "d+d", "/e"); // went while another one was selected, too
        row("the one after it by others", "d", "d", "de", "/f");   // was selected, but not sent away
    }
    void removedRowsLeaveToTheNext()
    {
        const auto [selected, sent, removed] = zeltest::row<QString, QString, QString>();
        Letters model;
        QItemSelectionModel selection(&model);
        for (const QString &id : ids(selected))
            selection.setCurrentIndex(model.index(model.rowOf(id)), QItemSelectionModel::Select);
        ListLeaving leaving;
        leaving.set(ids(sent));
        for (const QString &id : ids(removed)) {
            const int row = model.rowOf(id);
            if (row < 0) {
                model.text = Letters().text;
                selection.setCurrentIndex(model.index(3), QItemSelectionModel::ClearAndSelect);
                continue;
            }
            leaving.leave(model, &selection, row, row);
            model.remove(row);
        }
        const QString now = zel::selectedRowIds(&model, &selection).join(QString());
        QTEST(QString(now + QLatin1Char('/') + model.idOf(selection.currentIndex().row())), "after");
    }

    void rowsDiffer_data()
    {
        const auto table = zeltest::table<QString, QString, QString>("before", "after", "expected");
        const auto row = [&](const char *before, const char *after, const char *expected) {
            table(QLatin1String(before) + " to "_s + QLatin1String(after), before, after, expected);
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
        const auto [before, after] = zeltest::row<QString, QString>();
        QTEST(print(RowDiff::between(handles(before), handles(after))), "expected");
    }

    // What is marked stands between square brackets; none: the text does not match.
    void wordsAreFound_data()
    {
        const auto table = zeltest::table<QString, QString>("words", "marked");
        const auto row = [&](const zeltest::Text &words, const zeltest::Text &marked) {
            table(words.text() + " in "_s + marked.text(), words, marked);
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
        const auto [words, marked] = zeltest::row<QString, QString>();
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

private:
    // Row height 10, header height 4, gap 2, bottom margin 3. A negative count is a section without header.
    static ListLayout layoutOf(const QList<int> &counts)
    {
        zel::ListSections sections;
        int first = 0;
        for (const int count : counts) {
            sections << zel::ListSection{0, count > 0 ? "x"_s : QString(), first, qAbs(count)};
            first += qAbs(count);
        }
        return {sections, {10, 4, 2, 3}};
    }
    /// Rows whose ids are their letters.
    class Letters : public ListModel
    {
    public:
        QString text = "abcdefghij"_s;
        int rowCount(const QModelIndex &parent = {}) const override
        {
            return parent.isValid() ? 0 : text.size();
        }
        QVariant data(const QModelIndex &, int) const override { return {}; }
        QString idOf(int row) const override { return text.mid(row, 1); }
        int rowOf(const QString &id) const override { return id.isEmpty() ? -1 : text.indexOf(id); }
        void remove(int row)
        {
            beginRemoveRows({}, row, row);
            text.remove(row, 1);
            endRemoveRows();
        }
    };

    static QStringList ids(const QString &letters) { return letters.split(QString(), Qt::SkipEmptyParts); }

    static zel::Handles handles(const QString &letters)
    {
        zel::Handles list;
        for (const QChar letter : letters)
            list.push_back(zel::Handle(letter.unicode() - 'a'));
        return list;
    }
    static QString print(const RowDiff &diff)
    {
        QString text;
        for (const zel::RowRange &range : diff.removals)
            text += "-%1..%2 "_s.arg(range.first).arg(range.last);
        for (const zel::RowRange &range : diff.insertions)
            text += "+%1..%2 "_s.arg(range.first).arg(range.last);
        return text + (diff.reordered ? "reordered"_s : QString());
    }
};

QTEST_GUILESS_MAIN(TestListLogic)
#include "tst_listlogic.moc"

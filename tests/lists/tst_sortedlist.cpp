#include "lists/listmemory.h"
#include "lists/recordtable.h"
#include "lists/sortedlistmodel.h"

#include "support/printmodel.h"
#include "support/rowsignals.h"

using zel::Handle;
using zeltest::printModel;

class TestSortedList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Signals of one change of "a1 b1 c2 d2 e3", of which "e" is hidden.
    void tellsLittle_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("come", "go", "expected");
        row("nothing", "", "", "");
        row("one comes", "x1", "", "inserted 2; sections; counts");
        row("one goes", "", "b", "removed 1; sections; counts");
        row("a hidden one goes", "", "e", "counts");
        row("one changes", "b1", "", "changed 1");
        row("one moves", "d1", "", "moved 3 to 2; changed 2; sections");
        row("one moves down", "a2", "", "moved 0 to 2; changed 1; sections");
        row("same place, another section", "b2", "", "changed 1; sections");
        row("neighbours come", "x2 y2", "", "inserted 4-5; sections; counts");
        row("some go", "", "a b d", "removed 3; removed 0-1; sections; counts");
        row("some come, go and change", "x4 c2", "a", "removed 0; inserted 3; changed 1; sections");
        row("two change places", "a2 c1", "", "layout; changed 2; changed 1");
        row("all go", "", "a b c d e", "removed 0-3; sections; counts");
    }
    void tellsLittle()
    {
        const auto [come, go] = zeltest::row<QString, QString>();
        WordList list;
        const QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
        list.hide("e"_s);
        list.take(words("d2 a1 e3 c2 b1"_s), {});
        QCOMPARE(printModel(list), "[1] a1 b1 [2] c2 d2"_s);
        QCOMPARE(list.totalCount(), 5);
        zeltest::RowSignals told(&list);
        list.take(words(come), go.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        QTEST(told.take(), "expected");
        QCOMPARE(printModel(list), oracle(list.all(), "e"_s, false));
    }

    // Every second row of many goes, and comes back; what is held and selected stays so.
    void manyScatteredRowsAreOneLayoutChange()
    {
        WordList list;
        QVector<Word> many;
        QString odd;
        for (int i = 0; i < 100; ++i) {
            many.append({QChar(0x100 + i), i / 30});
            if (i % 2)
                odd += many.last().id;
        }
        list.take(many, {});
        QItemSelectionModel selection(&list);
        selection.select({list.index(40), list.index(50)}, QItemSelectionModel::Select);
        const QPersistentModelIndex held = list.index(60);
        int successor = -1; // of row 61, which leaves from place 69: the last ones go first
        connect(&list, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [&](const QModelIndex &, int first, int last) { successor = list.successorOf(69, first, last); });
        zeltest::RowSignals told(&list);
        list.hide(odd);
        QCOMPARE(told.take(), "layout; removed 50-99; sections; counts"_s);
        QCOMPARE(successor, 31);
        QCOMPARE(printModel(list), oracle(list.all(), odd, false));
        QCOMPARE(selection.selectedIndexes().size(), 6);
        QVERIFY(selection.isSelected(list.index(20)) && selection.isSelected(list.index(25)));
        list.hide({});
        QCOMPARE(told.take(), "inserted 50-99; layout; sections; counts"_s);
        QCOMPARE(held.row(), 60);
        QCOMPARE(selection.selectedIndexes().size(), 6);
        list.turn();
        QCOMPARE(told.take(), "layout; sections"_s);
        list.reset();
        QCOMPARE(told.take(), "reset; sections; counts"_s);
    }

    void allAtOnce()
    {
        WordList list;
        list.take(words("a1 b1"_s), {});
        zeltest::RowSignals told(&list);
        list.applyToAll({Qt::DisplayRole});
        QCOMPARE(told.take(), "changed 0-1"_s);
        QCOMPARE(told.roles(), QVector<int>{Qt::DisplayRole});
    }

    void nobodyPickedTheRest_data()
    {
        // away: what a filter hides; else the selected ones are removed
        const auto row = zeltest::table<QString, QString, QString>("hidden", "come", "away");
        row("of a filtered list", "cd", "", "");
        row("that came to an emptied list", "", "x1", "");
        row("that came while nothing passed", "", "x1", "abx");
    }
    // When all that shows was selected and goes, other rows that show later are not selected.
    void nobodyPickedTheRest()
    {
        const auto [hidden, come, away] = zeltest::row<QString, QString, QString>();
        WordList list;
        list.take(words(hidden.isEmpty() ? "a1 b1"_s : "a1 b1 c1 d1"_s), {});
        list.hide(hidden);
        QItemSelectionModel selection(nullptr);
        ListMemory memory;
        connect(&list, &WordList::rowsAboutToBeRemoved, this, [&] { memory.keep(list, selection); });
        selection.setModel(&list);
        selection.select({list.index(0), list.index(1)}, QItemSelectionModel::Select);
        list.hide(away);
        if (away.isEmpty())
            list.take({}, {"a"_s, "b"_s});
        list.take(words(come), {});
        list.hide({});
        memory.giveBack(list, &selection);
        QVERIFY(list.rowCount() > 0);
        QCOMPARE(selection.selectedIndexes().size(), away.isEmpty() ? 0 : 2);
    }

    // Whatever happens, in any mixture: the rows are those that a plain sort gives, and every index that
    // somebody holds and every selected row still is what it was.
    void randomSteps()
    {
        QRandomGenerator random(20240320);
        WordList list;
        const QAbstractItemModelTester tester(&list, QAbstractItemModelTester::FailureReportingMode::QtTest);
        zeltest::RowSignals told(&list);
        QItemSelectionModel selection(&list);
        QMap<QString, int> expected;
        QVector<QPair<QPersistentModelIndex, QString>> held;
        for (int step = 0; step < 400; ++step) {
            const auto anyId = [&random] { return QString(QChar(0x400 + random.bounded(150))); };
            QVector<Word> come;
            QStringList go;
            QSet<QString> used;
            for (int i = random.bounded(step % 5 ? 3 : 60); i > 0; --i) {
                const QString id = anyId();
                if (used.contains(id))
                    continue;
                used.insert(id);
                if (random.bounded(3))
                    come.append({id, random.bounded(6)});
                else
                    go.append(id);
            }
            for (const Word &word : qAsConst(come))
                expected.insert(word.id, word.section);
            for (const QString &id : qAsConst(go))
                expected.remove(id);
            if (list.rowCount() > 0) {
                const QModelIndex index = list.index(random.bounded(list.rowCount()));
                held.append({index, list.idOf(index.row())});
                selection.select(list.index(random.bounded(list.rowCount())), QItemSelectionModel::Toggle);
            }
            QSet<QString> selected;
            for (const QModelIndex &index : selection.selectedIndexes())
                selected.insert(list.idOf(index.row()));

            list.take(come, go);
            if (step % 7 == 0)
                list.turn();
            if (step % 11 == 0) {
                QString hidden;
                for (int i = random.bounded(80); i > 0; --i)
                    hidden += anyId();
                list.hide(hidden);
            }
            QCOMPARE(printModel(list), oracle(expected, list.m_hidden, list.m_turned));
            const QString signalsOfStep = told.take();
            QVERIFY2(!signalsOfStep.contains("LOST"_s) && !signalsOfStep.contains("STALE"_s),
                qPrintable(signalsOfStep));
            for (const auto &[index, id] : qAsConst(held))
                QCOMPARE(index.isValid() ? index.row() : -1, index.isValid() ? list.rowOf(id) : -1);
            held.erase(std::remove_if(
                           held.begin(), held.end(), [](const auto &one) { return !one.first.isValid(); }),
                held.end());
            for (const QString &id : qAsConst(selected))
                QCOMPARE(list.rowOf(id) >= 0, selection.isSelected(list.index(list.rowOf(id))));
        }
    }

private:
    /// "a5" stands in section 5; by section, then by letter. The id is the letter.
    struct Word
    {
        QString id;
        int section = 0;
        QString text() const { return id + QString::number(section); }
    };
    static QVector<Word> words(const QString &texts)
    {
        QVector<Word> list;
        for (const QString &text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            list.append({text.left(1), text.mid(1).toInt()});
        return list;
    }
    class WordList final : public SortedListModel
    {
    public:
        QVariant data(const QModelIndex &index, int role) const override
        {
            return role == Qt::DisplayRole ? m_words[handleAt(index.row())].text() : QVariant();
        }
        QString idOf(int row) const override { return m_words[handleAt(row)].id; }
        int rowOf(const QString &id) const override
        {
            const auto handle = m_words.handleOf(id);
            return handle ? rowOfHandle(*handle) : -1;
        }
        void take(const QVector<Word> &come, const QStringList &go)
        {
            zel::ListDelta delta;
            for (const QString &id : go)
                if (const auto handle = m_words.handleOf(id))
                    delta.removed.push_back(*handle);
            for (const Word &word : come) {
                const auto known = m_words.handleOf(word.id);
                if (known)
                    m_words[*known] = word;
                (known ? delta.changed : delta.inserted).push_back(known ? *known : m_words.add(word));
            }
            apply(delta);
            for (const Handle handle : delta.removed)
                m_words.remove(handle);
        }
        void turn()
        {
            m_turned = !m_turned;
            resort();
        }
        void hide(const QString &letters)
        {
            const bool narrower = letters.startsWith(std::exchange(m_hidden, letters));
            refilter(narrower);
        }
        using SortedListModel::applyToAll;
        using SortedListModel::reset;

        QMap<QString, int> all() const ///< what an oracle needs: id -> section
        {
            QMap<QString, int> known;
            for (const Handle handle : inOrder())
                known.insert(m_words[handle].id, m_words[handle].section);
            return known;
        }
        bool m_turned = false;
        QString m_hidden;

    protected:
        bool isBefore(Handle a, Handle b) const override
        {
            const Word &x = m_words[m_turned ? b : a];
            const Word &y = m_words[m_turned ? a : b];
            return std::tie(x.section, x.id) < std::tie(y.section, y.id);
        }
        bool passes(Handle handle) const override { return !m_hidden.contains(m_words[handle].id); }
        zel::ListSections sectionsOf(int count) const override
        {
            zel::ListSections sections;
            for (int row = 0; row < count; ++row) {
                const int key = m_words[handleAt(row)].section;
                if (sections.isEmpty() || sections.last().key != key)
                    sections.append({key, QString::number(key), row, 0});
                ++sections.last().count;
            }
            return sections;
        }

    private:
        zel::RecordTable<Word> m_words;
    };
    /// What the list has to show, worked out without any of its means.
    static QString oracle(const QMap<QString, int> &words, const QString &hidden, bool turned)
    {
        QStringList keys; // with a letter that sorts by section first
        for (auto word = words.cbegin(); word != words.cend(); ++word)
            if (!hidden.contains(word.key()))
                keys << QChar('0' + word.value()) + word.key();
        keys.sort();
        if (turned)
            std::reverse(keys.begin(), keys.end());
        QStringList texts;
        QChar section;
        for (const QString &key : qAsConst(keys)) {
            if (std::exchange(section, key.at(0)) != key.at(0))
                texts << QLatin1Char('[') + key.at(0) + QLatin1Char(']');
            texts << key.mid(1) + key.at(0);
        }
        return texts.join(QLatin1Char(' '));
    }
};

QTEST_GUILESS_MAIN(TestSortedList)
#include "tst_sortedlist.moc"

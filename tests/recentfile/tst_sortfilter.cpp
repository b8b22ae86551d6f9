#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"

#include "recentfile/records.h"
#include "support/printmodel.h"
#include "support/rowsignals.h"

using namespace recenttest;
using zel::recent::DocumentKind;
using zeltest::printModel;
using Key = zel::ListSort::Key;

Q_DECLARE_METATYPE(zel::ListSort)
Q_DECLARE_METATYPE(zel::ListSort::Key)

class TestSortFilter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        setZone("UTC");
        qRegisterMetaType<QList<QPersistentModelIndex>>();
        qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
    }
    void orders_data()
    {
        const auto row =
            zeltest::table<Key, QString, QString, QString>("key", "records", "ascending", "descending");
        row("time", Key::Time, "new.odt@0 mid.odt@1 old.odt@400",
            "[2023 Year 12 Month] old.odt [Yesterday] mid.odt [Today] new.odt",
            "[Today] new.odt [Yesterday] mid.odt [2023 Year 12 Month] old.odt");
        row("name, digits by value", Key::Name, "a10.odt@0 a9.odt@1 A2.odt@2 b1.odt@3 Ä1.odt@4",
            "Ä1.odt A2.odt a9.odt a10.odt b1.odt", "b1.odt a10.odt a9.odt A2.odt Ä1.odt");
        row("size, unknown ones last", Key::Size, "a.odt@0=20 b.odt@1 c.odt@2=3 d.odt@3=0 e.odt@4*",
            "[Pinned] e.odt [Others] d.odt c.odt a.odt b.odt",
            "[Pinned] e.odt [Others] a.odt c.odt d.odt b.odt");
        row("type, newest first in each", Key::Type,
            "p.png@0 t.odt@1 x.zzz@2 u.txt@3* s.ods@4 v.docx@5 q.jpg@6",
            "[Pinned] u.txt [Documents] t.odt v.docx [Sheets] s.ods [Pictures] p.png q.jpg [Other files] "
            "x.zzz",
            "[Pinned] u.txt [Other files] x.zzz [Pictures] p.png q.jpg [Sheets] s.ods [Documents] t.odt "
            "v.docx");
    }
    void orders()
    {
        const auto [key, records] = zeltest::row<Key, QString>();
        Lists lists;
        lists.model.setRecords(files(records));
        const QPersistentModelIndex kept = lists.rows.index(0);
        const QString name = kept.data().toString();
        lists.rows.setSort({key, Qt::AscendingOrder});
        QTEST(lists.print(), "ascending");
        lists.rows.setSort({key, Qt::DescendingOrder});
        QTEST(lists.print(), "descending");
        QCOMPARE(kept.data().toString(), name);
        for (int row = 0; row < lists.rows.rowCount(); ++row)
            QCOMPARE(lists.rows.mapFromSource(lists.rows.mapToSource(lists.rows.index(row))).row(), row);
    }

    void whatRecordsAreFoundBy()
    {
        const auto finds = [](const char *words, const RecentFileInfo &info) {
            return zel::recent::matches(zel::WordFilter(QString::fromUtf8(words)), info);
        };
        RecentFileInfo info = record("x"_s);
        info.path = QDir::homePath() + "/docs/heat/plan.odt"_s;
        QVERIFY(finds("heat plan docs/heat", info));
        QVERIFY(!finds("home", info)); // everybody's documents are there
        info.path.clear();
        info.cloudName = "Plan B.odt"_s; // on another device
        info.deviceName = "laptop"_s;
        info.roaming = true;
        QVERIFY(finds("laptop plan", info));
        QVERIFY(!finds("toppl", info));
    }

    void aNewFilterTellsWhatDiffers()
    {
        Lists lists;
        lists.model.setRecords(files("ab.odt@0 b.ods@1 abc.odt@2* c.odt@3 abd.ods@400"_s));
        const auto filter = [&](const char *text, zel::recent::DocumentKinds kinds = {}) -> QString {
            lists.told.take();
            lists.rows.setFilter({QString::fromUtf8(text), kinds});
            return lists.print() + QLatin1String(" | ") + lists.told.take();
        };
        QCOMPARE(filter("ab"),
            "[Pinned] abc.odt [Today] ab.odt [2023 Year 12 Month] abd.ods | "
            "removed 2-3; sections; counts"_s);
        QCOMPARE(filter("AB odt ods"), " | removed 0-2; sections; counts"_s);
        QCOMPARE(filter("ab."), "[Today] ab.odt | inserted 0; sections; counts"_s);
        QCOMPARE(filter("ab. "), "[Today] ab.odt | "_s); // the same rows
        QCOMPARE(filter("", DocumentKind::Sheet),
            "[Yesterday] b.ods [2023 Year 12 Month] abd.ods | "
            "removed 0; inserted 0-1; sections; counts"_s);
        QCOMPARE(lists.rows.rowOf("abd.ods"_s), 1);
        QCOMPARE(lists.rows.rowOf("ab.odt"_s), -1);
    }

    // All rows but "b" pass the filter: a1 pinned, then a2 a3 a4 by time.
    void sourceChangesStaySmall_data()
    {
        // A change: a record, "-id" that goes, "id name" for another name.
        const auto row = zeltest::table<zel::ListSort, QString, QString>("sort", "change", "expected");
        const zel::ListSort byTime;
        const zel::ListSort byName{Key::Name, Qt::AscendingOrder};
        const zel::ListSort bySize{Key::Size, Qt::DescendingOrder};
        row("comes", byTime, "a5.odt@2", "inserted 2; sections; counts");
        row("comes, does not pass", byTime, "c.odt@2", "counts");
        row("goes", byTime, "-a3.odt", "removed 2; sections; counts");
        row("opened just now", byTime, "a4.odt@0", "moved 3 to 1; changed 1; sections");
        row("opened just now, by name", byName, "a4.odt@0", "changed 3");
        row("another group, same place", byTime, "a4.odt@60", "changed 3; sections");
        row("pinned", byTime, "a3.odt@3*", "moved 2 to 0; changed 0; sections");
        row("no longer pinned", byTime, "a1.odt@9", "moved 0 to 4; changed 3; sections");
        row("size, by size", bySize, "a3.odt@3=99", "moved 2 to 1; changed 1");
        row("renamed", byName, "a2.odt a9.odt", "moved 1 to 4; changed 3");
        row("renamed, no longer passes", byTime, "a3.odt x.odt", "removed 2; sections; counts");
        row("renamed, passes now", byTime, "b.odt ab.odt", "inserted 4; changed 4; sections; counts");
    }
    void sourceChangesStaySmall()
    {
        const auto [sort, change] = zeltest::row<zel::ListSort, QString>();
        Lists lists;
        lists.rows.setFilter({"a"_s, {}});
        lists.rows.setSort(sort);
        lists.told.take();
        lists.model.setRecords(files("a1.odt@9* a2.odt@1=50 a3.odt@3=20 a4.odt@5=10 b.odt@8=7"_s));
        QCOMPARE(lists.told.take(), "inserted 0-3; sections; counts"_s);
        const QString id = change.section(QLatin1Char(' '), 0, 0);
        if (change.startsWith(QLatin1Char('-')))
            lists.model.removeRecord(change.mid(1));
        else if (id != change)
            lists.rename(id, change.section(QLatin1Char(' '), 1));
        else
            lists.model.addRecord(file(change));
        QTEST(lists.told.take(), "expected");
        QCOMPARE(lists.print(), lists.printAnew(sort));
    }

    void anotherDayOrLanguageReachesTheSections()
    {
        Lists lists;
        lists.model.setRecords(files("a.odt@0 b.odt@1"_s));
        lists.told.take();
        zel::setFixedNow(zel::now().addDays(1));
        QString painted; // by a view, when rows are told to be changed
        connect(&lists.rows, &QAbstractItemModel::dataChanged, this, [&] { painted = lists.print(); });
        lists.model.refreshDay();
        QCOMPARE(lists.told.take(), "changed 0-1; sections"_s);
        QCOMPARE(painted, "[Yesterday] a.odt [This Week] b.odt"_s);
        lists.model.retranslate();
        QCOMPARE(lists.told.take(), "changed 0-1"_s); // the same words
    }

    // More names than are sorted on the spot; changes come in while that goes on.
    void manyNamesAreSortedAside()
    {
        const zel::ListSort byTime;
        const zel::ListSort up{Key::Name, Qt::AscendingOrder};
        const zel::ListSort down{Key::Name, Qt::DescendingOrder};
        Lists lists;
        lists.model.setRecords(manyFiles(6000));
        const QPersistentModelIndex kept = lists.rows.index(4321);
        const QString id = kept.data(ZelBoxRecentFileModel::IdRole).toString();
        lists.rows.setSort(up);
        lists.rows.setSort(down); // a second thought
        QVERIFY(lists.rows.isSorting());
        QVERIFY(lists.print() == lists.printAnew(byTime)); // as before
        lists.model.addRecord(file("newpinned.odt@1*"_s));
        for (int i = 0; i < 6; ++i) {
            lists.model.removeRows(i * 7, 1);
            lists.model.addRecord(file("later%1.odt@%1"_s.arg(i))); // takes over the handle
            lists.rename(lists.model.record(i * 11).id, "other%1.odt"_s.arg(i));
        }
        QSignalSpy sorted(&lists.rows, &QAbstractItemModel::layoutChanged);
        QVERIFY(sorted.wait());
        QVERIFY(!lists.rows.isSorting());
        QVERIFY(lists.print() == lists.printAnew(down));
        QCOMPARE(kept.data(ZelBoxRecentFileModel::IdRole).toString(), id);

        lists.model.setRecords(manyFiles(7000)); // loaded while sorted by name
        QVERIFY(lists.print() == lists.printAnew(byTime));
        QVERIFY(sorted.wait());
        QVERIFY(lists.print() == lists.printAnew(down));
        lists.rows.setSort(up);
        QVERIFY(!lists.rows.isSorting()); // the other way round needs no sorting
        QVERIFY(lists.print() == lists.printAnew(up));
    }

    void droppedSortingChangesNothing()
    {
        Lists lists;
        lists.model.setRecords(manyFiles(6000));
        const zel::ListSort byName{Key::Name, Qt::AscendingOrder};
        QSignalSpy layouts(&lists.rows, &QAbstractItemModel::layoutChanged);
        lists.rows.setSort(byName);
        lists.rows.setSort(zel::ListSort());
        QVERIFY(!lists.rows.isSorting());
        lists.rows.setSort(byName);
        lists.model.removeAll();
        QVERIFY(!lists.rows.isSorting());
        lists.model.setRecords(manyFiles(10));
        QCOMPARE(layouts.count(), 0);
        QCOMPARE(lists.print(), lists.printAnew(byName));
        lists.model.setRecords(manyFiles(6000));
        lists.rows.setSourceModel(nullptr);
        QCOMPARE(lists.rows.rowCount(), 0);
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::sendPostedEvents(); // what the thread had to say goes to nobody
        QCOMPARE(layouts.count(), 0);
    }

    // Whatever happens to the source, in any order and under any filter: the rows are those of a new list.
    void randomChanges()
    {
        Lists lists;
        QRandomGenerator random(20240320);
        const auto any = [&random](
                             const QStringList &texts) { return texts.at(random.bounded(texts.size())); };
        for (int step = 0; step < 1500; ++step) {
            RecentFileInfo info = file("i%1@%2=%3%4"_s.arg(random.bounded(60))
                                           .arg(random.bounded(100))
                                           .arg(random.bounded(5) - 1)
                                           .arg(any({"*"_s, QString(), QString(), QString()})));
            info.path += any({"Report"_s, "report"_s, QString::fromUtf8("Über")})
                + any({".odt"_s, ".ods"_s, ".zzz"_s});
            switch (random.bounded(12)) {
            case 0:
                lists.rows.setSort({Key(random.bounded(4)), Qt::SortOrder(random.bounded(2))});
                break;
            case 1:
                lists.rows.setFilter({any({QString(), "1"_s, "1 rep"_s}),
                    random.bounded(2) ? zel::recent::DocumentKinds(DocumentKind::Sheet)
                                      : zel::recent::DocumentKinds()});
                break;
            case 2:
                lists.model.removeRecord(info.id);
                break;
            case 3:
                lists.model.removeRows(random.bounded(10), 1 + random.bounded(10));
                break;
            default:
                lists.model.addRecord(info);
            }
            QCOMPARE(lists.print(), lists.printAnew(lists.rows.sort()));
            QVERIFY(!lists.told.take().contains("LOST"_s));
        }
    }

    void sourceMayGoFirst()
    {
        auto model = std::make_unique<ZelBoxRecentFileModel>();
        RecentSortFilterModel rows;
        rows.setSourceModel(model.get());
        model->addRecord(record("a"_s, 1));
        QCOMPARE(rows.rowCount(), 1);
        model.reset();
        QCOMPARE(printModel(rows), QString());
        rows.setFilter({"x"_s, {}});
        rows.setSort({Key::Name, Qt::AscendingOrder});
        QCOMPARE(rows.rowOf("a"_s), -1);
    }

private:
    /// "name@days ago=size*" of 2024-03-20 12:00; size and the star of a pinned one may be missing. The name
    /// is the id too.
    static RecentFileInfo file(QString text)
    {
        const bool pinned = text.endsWith(QLatin1Char('*'));
        text.remove(QLatin1Char('*'));
        const QStringList numbers = text.section(QLatin1Char('@'), 1).split(QLatin1Char('='));
        RecentFileInfo info = record(text.section(QLatin1Char('@'), 0, 0),
            at("2024-03-20 12:00"_s).addDays(-numbers.value(0).toInt()));
        info.path = "/x/"_s + info.id;
        info.pinned = pinned;
        info.size = numbers.size() > 1 ? numbers.at(1).toLongLong() : -1;
        return info;
    }
    static RecordInfoList files(const QString &texts)
    {
        RecordInfoList list;
        for (const QString &text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            list << file(text);
        return list;
    }
    /// With names that are equal, or differ in digits only.
    static RecordInfoList manyFiles(int count)
    {
        const QStringList words{
            "Report "_s, "budget"_s, QString::fromUtf8("Über "), QString::fromUtf8("报告"), "DSC_"_s};
        RecordInfoList list;
        for (int i = 0; i < count; ++i) {
            RecentFileInfo info = record("m%1"_s.arg(i), 1710936000000 - i * 3600000LL);
            info.path = "/x/%1/%2%3.odt"_s.arg(i % 7).arg(words.at(i % 5)).arg(i * 37 % (count / 2 + 1));
            info.pinned = i % 1000 == 1;
            list << info;
        }
        return list;
    }
    struct Lists
    {
        FixedNow now{at("2024-03-20 14:30"_s)};
        ZelBoxRecentFileModel model;
        RecentSortFilterModel rows;
        QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::QtTest};
        zeltest::RowSignals told{&rows};

        Lists() { rows.setSourceModel(&model); }

        QString print() const { return printModel(rows); }
        /// The same from a list that begins with what there is now.
        QString printAnew(const zel::ListSort &sort) const
        {
            RecentSortFilterModel fresh;
            fresh.setFilter(rows.filter());
            fresh.setSourceModel(const_cast<ZelBoxRecentFileModel *>(&model));
            fresh.setSort(sort);
            if (fresh.isSorting())
                QSignalSpy(&fresh, &QAbstractItemModel::layoutChanged).wait();
            return printModel(fresh);
        }
        void rename(const QString &id, const QString &name)
        {
            RecentFileInfo info = model.record(model.rowOf(id));
            info.path = "/x/"_s + name;
            model.updateRecord(info);
        }
    };
};

QTEST_GUILESS_MAIN(TestSortFilter)
#include "tst_sortfilter.moc"

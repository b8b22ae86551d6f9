#include "recentfile/recentfilemodel.h"
#include "recentfile/recentsortfiltermodel.h"

#include "recentfile/records.h"
#include "support/printmodel.h"
#include "support/rowsignals.h"
#include "support/table.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>

using namespace recenttest;
using zel::recent::DocumentKind;
using zeltest::printModel;
using Key = zel::ListSort::Key;

Q_DECLARE_METATYPE(zel::ListSort)
Q_DECLARE_METATYPE(zel::ListSort::Key)

namespace {

/// "name@days ago=size*" of 2024-03-20 12:00; size and the star of a pinned one may be missing. The name is
/// the id too.
RecentFileInfo file(QString text)
{
    const bool pinned = text.endsWith(QLatin1Char('*'));
    text.remove(QLatin1Char('*'));
    const QStringList numbers = text.section(QLatin1Char('@'), 1).split(QLatin1Char('='));
    RecentFileInfo info = record(text.section(QLatin1Char('@'), 0, 0),
        at(QStringLiteral("2024-03-20 12:00")).addDays(-numbers.value(0).toInt()));
    info.path = QStringLiteral("/x/") + info.id;
    info.pinned = pinned;
    info.size = numbers.size() > 1 ? numbers.at(1).toLongLong() : -1;
    return info;
}

RecordInfoList files(const QString &texts)
{
    RecordInfoList list;
    for (const QString &text : texts.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        list << file(text);
    return list;
}

/// With names that are equal, or differ in digits only.
RecordInfoList manyFiles(int count)
{
    const QStringList words{QStringLiteral("Report "), QStringLiteral("budget"), QString::fromUtf8("Über "),
        QString::fromUtf8("报告"), QStringLiteral("DSC_")};
    RecordInfoList list;
    for (int i = 0; i < count; ++i) {
        RecentFileInfo info = record(QStringLiteral("m%1").arg(i), 1710936000000 - i * 3600000LL);
        info.path =
            QStringLiteral("/x/%1/%2%3.odt").arg(i % 7).arg(words.at(i % 5)).arg(i * 37 % (count / 2 + 1));
        info.pinned = i % 1000 == 1;
        list << info;
    }
    return list;
}

struct Lists
{
    FixedNow now{at(QStringLiteral("2024-03-20 14:30"))};
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
        info.path = QStringLiteral("/x/") + name;
        model.updateRecord(info);
    }
};

} // namespace

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
    void orders_data();
    void orders();
    void whatRecordsAreFoundBy();
    void aNewFilterTellsWhatDiffers();
    void sourceChangesStaySmall_data();
    void sourceChangesStaySmall();
    void anotherDayOrLanguageReachesTheSections();
    void manyNamesAreSortedAside();
    void droppedSortingChangesNothing();
    void randomChanges();
    void sourceMayGoFirst();
};

void TestSortFilter::orders_data()
{
    const auto row =
        zeltest::table<Key, QString, QString, QString>("key", "records", "ascending", "descending");
    row("time", Key::Time, "new.odt@0 mid.odt@1 old.odt@400",
        "[2023 Year 12 Month] old.odt [Yesterday] mid.odt [Today] new.odt",
        "[Today] new.odt [Yesterday] mid.odt [2023 Year 12 Month] old.odt");
    row("name, digits by value", Key::Name, "a10.odt@0 a9.odt@1 A2.odt@2 b1.odt@3 Ä1.odt@4",
        "Ä1.odt A2.odt a9.odt a10.odt b1.odt", "b1.odt a10.odt a9.odt A2.odt Ä1.odt");
    row("size, unknown ones last", Key::Size, "a.odt@0=20 b.odt@1 c.odt@2=3 d.odt@3=0 e.odt@4*",
        "[Pinned] e.odt [Others] d.odt c.odt a.odt b.odt", "[Pinned] e.odt [Others] a.odt c.odt d.odt b.odt");
    row("type, newest first in each", Key::Type, "p.png@0 t.odt@1 x.zzz@2 u.txt@3* s.ods@4 v.docx@5 q.jpg@6",
        "[Pinned] u.txt [Documents] t.odt v.docx [Sheets] s.ods [Pictures] p.png q.jpg [Other files] x.zzz",
        "[Pinned] u.txt [Other files] x.zzz [Pictures] p.png q.jpg [Sheets] s.ods [Documents] t.odt v.docx");
}

void TestSortFilter::orders()
{
    QFETCH(Key, key);
    QFETCH(QString, records);
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

void TestSortFilter::whatRecordsAreFoundBy()
{
    const auto finds = [](const char *words, const RecentFileInfo &info) {
        return zel::recent::matches(zel::WordFilter(QString::fromUtf8(words)), info);
    };
    RecentFileInfo info = record(QStringLiteral("x"));
    info.path = QDir::homePath() + QStringLiteral("/docs/heat/plan.odt");
    QVERIFY(finds("heat plan docs/heat", info));
    QVERIFY(!finds("home", info)); // everybody's documents are there
    info.path.clear();
    info.cloudName = QStringLiteral("Plan B.odt"); // on another device
    info.deviceName = QStringLiteral("laptop");
    info.roaming = true;
    QVERIFY(finds("laptop plan", info));
    QVERIFY(!finds("toppl", info));
}

void TestSortFilter::aNewFilterTellsWhatDiffers()
{
    Lists lists;
    lists.model.setRecords(files(QStringLiteral("ab.odt@0 b.ods@1 abc.odt@2* c.odt@3 abd.ods@400")));
    const auto filter = [&](const char *text, zel::recent::DocumentKinds kinds = {}) -> QString {
        lists.told.take();
        lists.rows.setFilter({QString::fromUtf8(text), kinds});
        return lists.print() + QLatin1String(" | ") + lists.told.take();
    };
    QCOMPARE(filter("ab"),
        QStringLiteral("[Pinned] abc.odt [Today] ab.odt [2023 Year 12 Month] abd.ods | "
                       "removed 2-3; sections; counts"));
    QCOMPARE(filter("AB odt ods"), QStringLiteral(" | removed 0-2; sections; counts"));
    QCOMPARE(filter("ab."), QStringLiteral("[Today] ab.odt | inserted 0; sections; counts"));
    QCOMPARE(filter("ab. "), QStringLiteral("[Today] ab.odt | ")); // the same rows
    QCOMPARE(filter("", DocumentKind::Sheet),
        QStringLiteral("[Yesterday] b.ods [2023 Year 12 Month] abd.ods | "
                       "removed 0; inserted 0-1; sections; counts"));
    QCOMPARE(lists.rows.rowOf(QStringLiteral("abd.ods")), 1);
    QCOMPARE(lists.rows.rowOf(QStringLiteral("ab.odt")), -1);
}

// All rows but "b" pass the filter: a1 pinned, then a2 a3 a4 by time.
void TestSortFilter::sourceChangesStaySmall_data()
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

void TestSortFilter::sourceChangesStaySmall()
{
    QFETCH(zel::ListSort, sort);
    QFETCH(QString, change);
    Lists lists;
    lists.rows.setFilter({QStringLiteral("a"), {}});
    lists.rows.setSort(sort);
    lists.told.take();
    lists.model.setRecords(files(QStringLiteral("a1.odt@9* a2.odt@1=50 a3.odt@3=20 a4.odt@5=10 b.odt@8=7")));
    QCOMPARE(lists.told.take(), QStringLiteral("inserted 0-3; sections; counts"));
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

void TestSortFilter::anotherDayOrLanguageReachesTheSections()
{
    Lists lists;
    lists.model.setRecords(files(QStringLiteral("a.odt@0 b.odt@1")));
    lists.told.take();
    zel::setFixedNow(zel::now().addDays(1));
    QString painted; // by a view, when rows are told to be changed
    connect(&lists.rows, &QAbstractItemModel::dataChanged, this, [&] { painted = lists.print(); });
    lists.model.refreshDay();
    QCOMPARE(lists.told.take(), QStringLiteral("changed 0-1; sections"));
    QCOMPARE(painted, QStringLiteral("[Yesterday] a.odt [This Week] b.odt"));
    lists.model.retranslate();
    QCOMPARE(lists.told.take(), QStringLiteral("changed 0-1")); // the same words
}

// More names than are sorted on the spot; changes come in while that goes on.
void TestSortFilter::manyNamesAreSortedAside()
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
    lists.model.addRecord(file(QStringLiteral("newpinned.odt@1*")));
    for (int i = 0; i < 6; ++i) {
        lists.model.removeRows(i * 7, 1);
        lists.model.addRecord(file(QStringLiteral("later%1.odt@%1").arg(i))); // takes over the handle
        lists.rename(lists.model.record(i * 11).id, QStringLiteral("other%1.odt").arg(i));
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

void TestSortFilter::droppedSortingChangesNothing()
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
void TestSortFilter::randomChanges()
{
    Lists lists;
    QRandomGenerator random(20240320);
    const auto any = [&random](const QStringList &texts) { return texts.at(random.bounded(texts.size())); };
    for (int step = 0; step < 1500; ++step) {
        RecentFileInfo info = file(QStringLiteral("i%1@%2=%3%4")
                                       .arg(random.bounded(60))
                                       .arg(random.bounded(100))
                                       .arg(random.bounded(5) - 1)
                                       .arg(any({QStringLiteral("*"), QString(), QString(), QString()})));
        info.path += any({QStringLiteral("Report"), QStringLiteral("report"), QString::fromUtf8("Über")})
            + any({QStringLiteral(".odt"), QStringLiteral(".ods"), QStringLiteral(".zzz")});
        switch (random.bounded(12)) {
        case 0:
            lists.rows.setSort({Key(random.bounded(4)), Qt::SortOrder(random.bounded(2))});
            break;
        case 1:
            lists.rows.setFilter({any({QString(), QStringLiteral("1"), QStringLiteral("1 rep")}),
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
        QVERIFY(!lists.told.take().contains(QLatin1String("LOST")));
    }
}

void TestSortFilter::sourceMayGoFirst()
{
    auto model = std::make_unique<ZelBoxRecentFileModel>();
    RecentSortFilterModel rows;
    rows.setSourceModel(model.get());
    model->addRecord(record(QStringLiteral("a"), 1));
    QCOMPARE(rows.rowCount(), 1);
    model.reset();
    QCOMPARE(printModel(rows), QString());
    rows.setFilter({QStringLiteral("x"), {}});
    rows.setSort({Key::Name, Qt::AscendingOrder});
    QCOMPARE(rows.rowOf(QStringLiteral("a")), -1);
}

QTEST_GUILESS_MAIN(TestSortFilter)
#include "tst_sortfilter.moc"

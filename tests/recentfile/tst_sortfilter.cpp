#include "recentfile/recentsortfiltermodel.h"

#include "recentfile/proxybench.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>

using namespace recenttest;
using zel::recent::DocumentKind;

Q_DECLARE_METATYPE(RecentSort)
Q_DECLARE_METATYPE(RecentSort::Key)

class TestSortFilter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void orders_data();
    void orders();
    void filters_data();
    void filters();
    void aNewFilterIsOneRemovalAndOneInsertion();
    void sourceChangesStaySmall_data();
    void sourceChangesStaySmall();
    void loadingIsOneInsertion();
    void anotherDayOrLanguageReachesTheSections();
    void manyNamesAreSortedAside();
    void droppedSortingChangesNothing();
    void randomChangesMatchNaiveRows();
    void sourceMayGoFirst();
};

void TestSortFilter::initTestCase()
{
    qRegisterMetaType<QList<QPersistentModelIndex>>();
    qRegisterMetaType<QAbstractItemModel::LayoutChangeHint>();
}

void TestSortFilter::orders_data()
{
    QTest::addColumn<RecentSort::Key>("key");
    QTest::addColumn<QString>("records"); // see ProxyBench::records()
    QTest::addColumn<QString>("ascending");
    QTest::addColumn<QString>("descending");
    using Key = RecentSort::Key;
    const auto row = [](const char *name, Key key, const char *records, const char *up, const char *down) {
        QTest::newRow(name) << key << QString::fromUtf8(records) << QString::fromUtf8(up)
                            << QString::fromUtf8(down);
    };
    row("time", Key::Time, "new.odt@0 mid.odt@1 old.odt@400",
        "[2023 Year 12 Month] old.odt [Yesterday] mid.odt [Today] new.odt",
        "[Today] new.odt [Yesterday] mid.odt [2023 Year 12 Month] old.odt");
    row("name, digits by value", Key::Name, "a10.odt@0 a9.odt@1 A2.odt@2 b1.odt@3 Ä1.odt@4",
        "[] Ä1.odt A2.odt a9.odt a10.odt b1.odt", "[] b1.odt a10.odt a9.odt A2.odt Ä1.odt");
    row("size, unknown ones last", Key::Size, "a.odt@0=20 b.odt@1 c.odt@2=3 d.odt@3=0 e.odt@4",
        "[] d.odt c.odt a.odt b.odt e.odt", "[] a.odt c.odt d.odt b.odt e.odt");
    row("type, newest first in each", Key::Type, "p.png@0 t.odt@1 x.zzz@2 u.txt@3* s.ods@4 v.docx@5 q.jpg@6",
        "[Pinned] u.txt [Documents] t.odt v.docx [Sheets] s.ods [Pictures] p.png q.jpg [Other files] x.zzz",
        "[Pinned] u.txt [Other files] x.zzz [Pictures] p.png q.jpg [Sheets] s.ods [Documents] t.odt v.docx");
}

void TestSortFilter::orders()
{
    QFETCH(RecentSort::Key, key);
    QFETCH(QString, records);
    ProxyBench bench;
    bench.model.setRecords(bench.records(records));
    const QPersistentModelIndex kept = bench.proxy.index(0);
    const QString id = kept.data(ZelBoxRecentFileModel::IdRole).toString();
    bench.proxy.setSort({key, Qt::AscendingOrder});
    QTEST(bench.print(), "ascending");
    QCOMPARE(kept.data(ZelBoxRecentFileModel::IdRole).toString(), id);
    bench.proxy.setSort({key, Qt::DescendingOrder});
    QTEST(bench.print(), "descending");
    QCOMPARE(kept.data(ZelBoxRecentFileModel::IdRole).toString(), id);
}

void TestSortFilter::filters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char *text, const char *path, bool expected) {
        QTest::addRow("%s in %s", text, path)
            << QString::fromUtf8(text) << QString::fromUtf8(path) << expected;
    };
    row("", "/x/a.odt", true);
    row("BUDGET", "/x/My budget.ods", true);
    row("24 bud", "/x/Budget 2024.ods", true);
    row("24 bud", "/x/Budget 2023.ods", false);
    row("heat plan", "/projects/heating/plans/north.svg", true);
    row("heat/plan", "/projects/heat/plans/north.svg", true);
    row("resume", "/x/Résumé.odt", true);
    row("lodz", "/Łódź/a.odt", true);
    row("re\xcc\x81sume", "/x/R\xc3\xa9sum\xc3\xa9.odt", true); // decomposed, composed
    row("strasse", "/x/Straße.odt", true);
    row("财务 报告", "/文档/财务/第一季度报告.pptx", true);
    row("カ", "/x/ガイド.pdf", false);                          // another syllable, not an accent
    row("ガイド", "/x/\xe3\x82\xab\xe3\x82\x99イド.pdf", true); // decomposed by another system
    row("abc", "/x/ＡＢＣ.pdf", true);
    row("home", "~/a.odt", false); // everybody's documents are there
    row("docs", "~/docs/a.odt", true);
}

void TestSortFilter::filters()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    RecentFileInfo info = record(QStringLiteral("x"));
    info.path = path.startsWith(QLatin1Char('~')) ? QDir::homePath() + path.mid(1) : path;
    QTEST(zel::recent::passes({text, {}}, info), "expected");

    info.cloudName = info.path.section(QLatin1Char('/'), -1); // the same file on another device
    info.deviceName = info.path.section(QLatin1Char('/'), 0, -2);
    info.path.clear();
    info.roaming = true;
    if (!text.contains(QLatin1Char('/')) && !path.startsWith(QLatin1Char('~')))
        QTEST(zel::recent::passes({text, {}}, info), "expected");
    QVERIFY(!zel::recent::passes({text, DocumentKind::Archive}, info));
}

void TestSortFilter::aNewFilterIsOneRemovalAndOneInsertion()
{
    ProxyBench bench;
    bench.model.setRecords(bench.records(QStringLiteral("ab.odt@0 b.ods@1 abc.odt@2* c.odt@3 abd.ods@400")));
    const auto filter = [&](const char *text, zel::recent::DocumentKinds kinds = {}) -> QString {
        bench.takeSignals();
        bench.proxy.setFilter({QString::fromUtf8(text), kinds});
        return bench.print() + QLatin1String(" | ") + bench.takeSignals();
    };
    QCOMPARE(filter("ab"),
        QStringLiteral("[Pinned] abc.odt [Today] ab.odt [2023 Year 12 Month] abd.ods | "
                       "removed 0-4; inserted 0-2; sections"));
    QCOMPARE(filter("AB odt ods"), QStringLiteral(" | removed 0-2; sections"));
    QCOMPARE(filter("ab."), QStringLiteral("[Today] ab.odt | inserted 0-0; sections"));
    QCOMPARE(filter("ab. "), QStringLiteral("[Today] ab.odt | ")); // the same rows
    QCOMPARE(filter("", DocumentKind::Sheet),
        QStringLiteral("[Yesterday] b.ods [2023 Year 12 Month] abd.ods | "
                       "removed 0-0; inserted 0-1; sections"));
    QCOMPARE(filter("bd", DocumentKind::Sheet),
        QStringLiteral("[2023 Year 12 Month] abd.ods | removed 0-1; inserted 0-0; sections"));
    QCOMPARE(bench.proxy.rowOf(QStringLiteral("abd.ods")), 0);
    QCOMPARE(bench.proxy.rowOf(QStringLiteral("b.ods")), -1);
}

void TestSortFilter::sourceChangesStaySmall_data()
{
    QTest::addColumn<RecentSort>("sort");
    QTest::addColumn<QString>("change"); // what ProxyBench::change() understands
    QTest::addColumn<QString>("expected");
    const RecentSort byTime;
    const RecentSort byName{RecentSort::Key::Name, Qt::AscendingOrder};
    const RecentSort bySize{RecentSort::Key::Size, Qt::DescendingOrder};
    // The rows, all passing the filter "a": a1 pinned, a2 a3 a4 by time; "b" does not pass.
    const auto row = [](const char *name, const RecentSort &sort, const char *change, const char *expected) {
        QTest::newRow(name) << sort << QString::fromUtf8(change) << QString::fromUtf8(expected);
    };
    row("add", byTime, "add a5.odt@2", "inserted 2-2; sections");
    row("add, does not pass", byTime, "add c.odt@2", "");
    row("remove", byTime, "remove a3.odt", "removed 2-2; sections");
    row("opened just now", byTime, "set a4.odt@0", "moved 3 to 1; changed 1; sections");
    row("opened just now, by name", byName, "set a4.odt@0", "changed 3");
    row("another group, same place", byTime, "set a4.odt@60", "changed 3; sections");
    row("pinned", byTime, "set a3.odt@3*", "moved 2 to 0; changed 0; sections");
    row("no longer pinned", byTime, "set a1.odt@9", "moved 0 to 4; changed 3; sections");
    row("size, by size", bySize, "set a3.odt@3=99", "moved 2 to 1; changed 1");
    row("renamed", byName, "rename a2.odt a9.odt", "moved 1 to 4; changed 3");
    row("renamed, no longer passes", byTime, "rename a3.odt x.odt", "removed 2-2; sections");
    row("renamed, passes now", byTime, "rename b.odt ab.odt", "inserted 4-4; sections");
    row("mark", byTime, "unread a4.odt", "changed 3");
}

void TestSortFilter::sourceChangesStaySmall()
{
    QFETCH(RecentSort, sort);
    QFETCH(QString, change);
    ProxyBench bench;
    bench.proxy.setFilter({QStringLiteral("a"), {}});
    bench.proxy.setSort(sort);
    bench.model.setRecords(
        bench.records(QStringLiteral("a1.odt@9* a2.odt@1=50 a3.odt@3=20 a4.odt@5=10 b.odt@8=7")));
    bench.takeSignals();
    bench.change(change);
    QTEST(bench.takeSignals(), "expected");
    QCOMPARE(bench.print(), bench.naivePrint());
}

void TestSortFilter::loadingIsOneInsertion()
{
    ProxyBench bench;
    const RecordInfoList list =
        bench.records(QStringLiteral("a1.odt@9* a2.odt@1 a3.odt@3* a4.odt@5 b.odt@8"));
    bench.model.setRecords(list);
    QCOMPARE(bench.takeSignals(), QStringLiteral("inserted 0-4; sections"));
    bench.model.setRecords(list);
    QCOMPARE(bench.takeSignals(), QStringLiteral("removed 0-4; sections; inserted 0-4; sections"));
    bench.model.removeRows(1, 3); // rows that lie apart in the proxy
    QCOMPARE(bench.takeSignals(), QStringLiteral("removed 3-4; removed 0-0; sections"));
    QCOMPARE(bench.print(), bench.naivePrint());
}

void TestSortFilter::anotherDayOrLanguageReachesTheSections()
{
    ProxyBench bench;
    bench.model.setRecords(bench.records(QStringLiteral("a.odt@0 b.odt@1")));
    bench.takeSignals();
    zel::setFixedNow(zel::now().addDays(1));
    bool current = false;
    connect(&bench.proxy, &RecentSortFilterModel::dataChanged, this,
        [&] { current = bench.print() == QStringLiteral("[Yesterday] a.odt [This Week] b.odt"); });
    bench.model.refreshDay();
    QCOMPARE(bench.takeSignals(), QStringLiteral("changed 0-1; sections"));
    QVERIFY(current); // a view that paints on dataChanged() finds the new sections
    bench.model.retranslate();
    QCOMPARE(bench.takeSignals(), QStringLiteral("changed 0-1")); // the same words
}

// More names than are sorted on the spot; changes come in while that goes on.
void TestSortFilter::manyNamesAreSortedAside()
{
    ProxyBench bench;
    bench.model.setRecords(bench.many(6000));
    const QPersistentModelIndex kept = bench.proxy.index(4321);
    const QString id = kept.data(ZelBoxRecentFileModel::IdRole).toString();
    bench.takeSignals();
    bench.proxy.setSort({RecentSort::Key::Name, Qt::AscendingOrder});
    bench.proxy.setSort({RecentSort::Key::Name, Qt::DescendingOrder}); // a second thought
    QVERIFY(bench.proxy.isSorting());
    QVERIFY(bench.print() == bench.naivePrint(RecentSort())); // as before
    bench.change(QStringLiteral("add new5.odt@1"));
    bench.change(QStringLiteral("add newpinned.odt@1*"));
    for (int i = 0; i < 6; ++i) {
        bench.model.removeRows(i * 7, 1);
        bench.change(QStringLiteral("add later%1.odt@%2").arg(i).arg(i)); // takes over the slot
        bench.change(QStringLiteral("rename %1 other%2.odt").arg(bench.model.record(i * 11).id).arg(i));
    }
    QSignalSpy sorted(&bench.proxy, &RecentSortFilterModel::layoutChanged);
    QVERIFY(sorted.wait());
    QVERIFY(!bench.proxy.isSorting());
    QVERIFY(bench.print() == bench.naivePrint());
    QCOMPARE(kept.data(ZelBoxRecentFileModel::IdRole).toString(), id);

    bench.model.setRecords(bench.many(7000)); // loaded while sorted by name
    QVERIFY(bench.print() == bench.naivePrint(RecentSort()));
    QVERIFY(sorted.wait());
    QVERIFY(bench.print() == bench.naivePrint());
    bench.proxy.setSort({RecentSort::Key::Name, Qt::AscendingOrder});
    QVERIFY(!bench.proxy.isSorting()); // the other way round needs no sorting
    QVERIFY(bench.print() == bench.naivePrint());
}

void TestSortFilter::droppedSortingChangesNothing()
{
    ProxyBench bench;
    bench.model.setRecords(bench.many(6000));
    const RecentSort byName{RecentSort::Key::Name, Qt::AscendingOrder};
    QSignalSpy layouts(&bench.proxy, &RecentSortFilterModel::layoutChanged);
    bench.proxy.setSort(byName);
    bench.proxy.setSort(RecentSort());
    QVERIFY(!bench.proxy.isSorting());
    bench.proxy.setSort(byName);
    bench.model.removeAll();
    QVERIFY(!bench.proxy.isSorting());
    bench.model.setRecords(bench.many(10));
    QCOMPARE(layouts.count(), 0);
    QCOMPARE(bench.print(), bench.naivePrint());
    bench.model.setRecords(bench.many(6000));
    bench.proxy.setSourceModel(nullptr);
    QCOMPARE(bench.proxy.rowCount(), 0);
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::sendPostedEvents(); // what the thread had to say goes to nobody
    QCOMPARE(layouts.count(), 0);
}

void TestSortFilter::randomChangesMatchNaiveRows()
{
    ProxyBench bench;
    QRandomGenerator random(20240320);
    for (int step = 0; step < 4000; ++step) {
        const QString what = bench.randomStep(random);
        QVERIFY2(bench.print() == bench.naivePrint(),
            qPrintable(QStringLiteral("step %1, %2: %3 instead of %4")
                           .arg(step)
                           .arg(what, bench.print(), bench.naivePrint())));
        QVERIFY2(bench.persistentIndexesAreRight(), qPrintable(QString::number(step) + what));
        for (int row = 0; row < bench.proxy.rowCount(); ++row) {
            const QModelIndex index = bench.proxy.index(row);
            QCOMPARE(bench.proxy.mapFromSource(bench.proxy.mapToSource(index)), index);
        }
    }
}

void TestSortFilter::sourceMayGoFirst()
{
    auto model = std::make_unique<ZelBoxRecentFileModel>();
    RecentSortFilterModel proxy;
    QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(model.get());
    model->addRecord(record(QStringLiteral("a"), 1));
    QCOMPARE(proxy.rowCount(), 1);
    model.reset();
    QCOMPARE(proxy.rowCount(), 0);
    QVERIFY(proxy.sections().isEmpty());
    proxy.setFilter({QStringLiteral("x"), {}});
    proxy.setSort({RecentSort::Key::Name, Qt::AscendingOrder});
    QCOMPARE(proxy.rowOf(QStringLiteral("a")), -1);
}

QTEST_GUILESS_MAIN(TestSortFilter)
#include "tst_sortfilter.moc"

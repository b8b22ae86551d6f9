#include "recentfile/timegroups.h"

#include "recentfile/records.h"

#include <QElapsedTimer>
#include <QTest>

using namespace zel::recent;
using recenttest::at;

class TestTimeGroups : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { recenttest::setZone("UTC"); }
    void kind_data();
    void kind();
    void everyDayOfFiveYears();
    void clockChanges_data();
    void clockChanges();
    void rowsOfGroups_data();
    void rowsOfGroups();
    void manyRowsAreGroupedByFewLooks();
};

void TestTimeGroups::kind_data()
{
    QTest::addColumn<QString>("today");
    QTest::addColumn<QString>("time");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");

    const auto row = [](const char *name, const char *today, const char *time, int kind, const char *title) {
        QTest::newRow(name) << QString::fromLatin1(today) << QString::fromLatin1(time) << kind
                            << QString::fromLatin1(title);
    };
    row("next year", "2024-03-20", "2025-01-01 00:00", 1, "Today");
    row("tomorrow", "2024-03-20", "2024-03-21 08:00", 1, "Today");
    row("last minute of today", "2024-03-20", "2024-03-20 23:59", 1, "Today");
    row("first minute of today", "2024-03-20", "2024-03-20 00:00", 1, "Today");
    row("last minute of yesterday", "2024-03-20", "2024-03-19 23:59", 2, "Yesterday");
    row("first minute of yesterday", "2024-03-20", "2024-03-19 00:00", 2, "Yesterday");
    row("2 days ago", "2024-03-20", "2024-03-18 23:59", 3, "This Week");
    row("6 days ago", "2024-03-20", "2024-03-14 00:00", 3, "This Week");
    row("7 days ago", "2024-03-20", "2024-03-13 23:59", 4, "This Month");
    row("first of the month", "2024-03-20", "2024-03-01 00:00", 4, "This Month");
    row("previous month, leap day", "2024-03-20", "2024-02-29 23:59", 5, "2 Month");
    row("first of the previous month", "2024-03-20", "2024-02-01 00:00", 5, "2 Month");
    row("two months ago", "2024-03-20", "2024-01-31 23:59", 6, "1 Month");
    row("three months ago is last year", "2024-03-20", "2023-12-31 23:59", 7, "2023 Year 12 Month");
    row("everything older", "2024-03-20", "1999-01-01 00:00", 7, "2023 Year 12 Month");
    row("1st: yesterday stays yesterday", "2024-03-01", "2024-02-29 12:00", 2, "Yesterday");
    row("1st: 7 days ago", "2024-03-01", "2024-02-23 12:00", 4, "This Month");
    row("1st: 8 days ago", "2024-03-01", "2024-02-22 12:00", 5, "2 Month");
    row("7th: 7 days ago", "2024-03-07", "2024-02-29 12:00", 4, "This Month");
    row("7th: last of the moved edge", "2024-03-07", "2024-02-23 12:00", 4, "This Month");
    row("7th: moved edge", "2024-03-07", "2024-02-22 12:00", 5, "2 Month");
    row("13th: edge 6 days before moves", "2024-03-13", "2024-02-29 12:00", 4, "This Month");
    row("14th: edge 7 days before stays", "2024-03-14", "2024-02-29 12:00", 5, "2 Month");
    row("January: previous month is last year", "2024-01-20", "2023-12-31 12:00", 5, "2023 Year 12 Month");
    row("January: two months ago", "2024-01-20", "2023-11-30 12:00", 6, "2023 Year 11 Month");
    row("early January", "2024-01-03", "2023-12-25 12:00", 4, "This Month");
    row("early January, moved edge", "2024-01-03", "2023-12-24 12:00", 5, "2023 Year 12 Month");
    row("February: two months ago", "2024-02-20", "2023-12-31 12:00", 6, "2023 Year 12 Month");
}

void TestTimeGroups::kind()
{
    QFETCH(QString, today);
    QFETCH(QString, time);
    QFETCH(int, kind);
    const auto edges = timeGroupEdges(QDate::fromString(today, Qt::ISODate));
    QCOMPARE(timeGroupKind(edges, at(time).toMSecsSinceEpoch()), kind);
    QTEST(timeGroupTitle(edges, kind), "title");
}

// Whatever the day: the groups follow one another, nothing is lost between them, and the days that have a
// name of their own are never taken by a month.
void TestTimeGroups::everyDayOfFiveYears()
{
    for (QDate today(2023, 1, 1); today.year() < 2028; today = today.addDays(1)) {
        const auto edges = timeGroupEdges(today);
        int last = 1;
        for (int ago = -2; ago < 130; ++ago) {
            const QDate day = today.addDays(-ago);
            const int noon = timeGroupKind(edges, day.startOfDay().toMSecsSinceEpoch() + 43200000);
            const int named = ago <= 0 ? 1 : ago == 1 ? 2 : ago < 7 ? 3 : ago == 7 ? 4 : 0;
            const QByteArray text = today.toString(Qt::ISODate).toLatin1() + " - " + QByteArray::number(ago);
            QVERIFY2(named == 0 || noon == named, text.constData());
            QVERIFY2(noon == last || noon == last + 1, text.constData());
            last = noon;
            if (noon == 5 || noon == 6) {
                const int month = timeGroupTitle(edges, noon).section(QLatin1Char(' '), -2, -2).toInt();
                QVERIFY2(month == day.month(), text.constData());
            }
        }
        QCOMPARE(last, 7);
    }
}

void TestTimeGroups::clockChanges_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("today");
    QTest::addColumn<QString>("time");
    QTest::addColumn<int>("kind");

    const auto row = [](const char *name, const char *zone, const char *today, const char *time, int kind) {
        QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(today) << QString::fromLatin1(time)
                            << kind;
    };
    row("late on a day of 23 hours", "Europe/Berlin", "2024-04-01", "2024-03-31 23:59", 2);
    row("early on a day of 23 hours", "Europe/Berlin", "2024-04-01", "2024-03-31 00:00", 2);
    row("late before a day of 23 hours", "Europe/Berlin", "2024-04-01", "2024-03-30 23:59", 3);
    row("early on a day of 25 hours", "Europe/Berlin", "2024-10-28", "2024-10-27 00:00", 2);
    row("late before a day of 25 hours", "Europe/Berlin", "2024-10-28", "2024-10-26 23:59", 3);
    row("day without midnight", "America/Sao_Paulo", "2018-11-04", "2018-11-04 01:00", 1);
    row("before a day without midnight", "America/Sao_Paulo", "2018-11-04", "2018-11-03 23:59", 2);
    row("day after a missing day", "Pacific/Apia", "2011-12-31", "2011-12-31 00:00", 1);
    row("before a missing day", "Pacific/Apia", "2011-12-31", "2011-12-29 23:59", 3);
}

void TestTimeGroups::clockChanges()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, today);
    QFETCH(QString, time);
    recenttest::setZone(zone.constData());
    const auto edges = timeGroupEdges(QDate::fromString(today, Qt::ISODate));
    QTEST(timeGroupKind(edges, at(time).toMSecsSinceEpoch()), "kind");
}

void TestTimeGroups::rowsOfGroups_data()
{
    QTest::addColumn<QList<int>>("daysAgo");
    QTest::addColumn<QString>("expected"); // kind:first+count of the groups that have rows

    QTest::newRow("none") << QList<int>() << QString();
    QTest::newRow("one, today") << QList<int>{0} << QStringLiteral("1:0+1");
    QTest::newRow("one, oldest") << QList<int>{4000} << QStringLiteral("7:0+1");
    QTest::newRow("each") << QList<int>{0, 1, 2, 7, 20, 50, 80}
                          << QStringLiteral("1:0+1 2:1+1 3:2+1 4:3+1 5:4+1 6:5+1 7:6+1");
    QTest::newRow("gaps and several")
        << QList<int>{-3, 0, 0, 3, 4, 5, 80, 90, 900} << QStringLiteral("1:0+3 3:3+3 7:6+3");
}

void TestTimeGroups::rowsOfGroups()
{
    QFETCH(QList<int>, daysAgo);
    const QDate today(2024, 3, 20);
    const auto groups = groupRows(timeGroupEdges(today), daysAgo.size(),
        [&](int row) { return today.addDays(-daysAgo.at(row)).startOfDay().toMSecsSinceEpoch() + 3600000; });
    QStringList found;
    int next = 0;
    for (const TimeGroup &group : groups) {
        QCOMPARE(group.firstRow, next); // empty groups stand where they would be
        next += group.count;
        if (group.count > 0)
            found << QStringLiteral("%1:%2+%3").arg(group.kind).arg(group.firstRow).arg(group.count);
    }
    QCOMPARE(next, daysAgo.size());
    QTEST(found.join(QLatin1Char(' ')), "expected");
}

void TestTimeGroups::manyRowsAreGroupedByFewLooks()
{
    constexpr int Rows = 100000;
    const auto edges = timeGroupEdges(QDate(2024, 3, 20));
    const qint64 newest = QDate(2024, 3, 20).startOfDay().toMSecsSinceEpoch();
    int looks = 0;
    QElapsedTimer timer;
    timer.start();
    const auto groups = groupRows(edges, Rows, [&](int row) {
        ++looks;
        return newest - row * 100000LL;
    });
    qInfo("grouping %d rows took %lld us", Rows, timer.nsecsElapsed() / 1000);
    QVERIFY2(looks <= 6 * 18, QByteArray::number(looks).constData());
    for (int row : {0, 1, 999, 1000, 50000, 77777, Rows - 1}) {
        const int kind = timeGroupKind(edges, newest - row * 100000LL);
        const TimeGroup &group = groups[size_t(kind - 1)];
        QVERIFY(row >= group.firstRow && row < group.firstRow + group.count);
    }
}

QTEST_GUILESS_MAIN(TestTimeGroups)
#include "tst_timegroups.moc"

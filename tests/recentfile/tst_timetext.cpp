#include "recentfile/timetext.h"

#include "recentfile/records.h"

#include <QTest>

using recenttest::at;

class TestTimeText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void text_data();
    void text();
    void utcTimesAreShownInLocalTime();
};

void TestTimeText::text_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const char *zone, const char *now, const char *time,
                         const char *expected) {
        QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(now) << QString::fromLatin1(time)
                            << QString::fromLatin1(expected);
    };
    row("today", "UTC", "2024-03-20 10:00", "2024-03-20 09:05", "09:05");
    row("first minute of today", "UTC", "2024-03-20 10:00", "2024-03-20 00:00", "00:00");
    row("later today", "UTC", "2024-03-20 10:00", "2024-03-20 23:59", "23:59");
    row("a minute ago, but yesterday", "UTC", "2024-03-20 00:00", "2024-03-19 23:59", "yesterday 23:59");
    row("yesterday", "UTC", "2024-03-20 10:00", "2024-03-19 09:05", "yesterday 09:05");
    row("two days ago", "UTC", "2024-03-20 10:00", "2024-03-18 23:59", "3month18day");
    row("no leading zeros", "UTC", "2024-10-20 10:00", "2024-03-07 09:05", "3month7day");
    row("two digits", "UTC", "2024-12-31 10:00", "2024-11-12 09:05", "11month12day");
    row("first day of the year", "UTC", "2024-12-31 10:00", "2024-01-01 00:00", "1month1day");
    row("last year", "UTC", "2024-03-20 10:00", "2023-12-31 23:59", "2023-12-31");
    row("long ago", "UTC", "2024-03-20 10:00", "2019-03-07 09:05", "2019-03-07");
    row("yesterday was last year", "UTC", "2024-01-01 00:30", "2023-12-31 23:30", "yesterday 23:30");
    row("leap day", "UTC", "2024-03-01 10:00", "2024-02-29 08:00", "yesterday 08:00");
    row("tomorrow", "UTC", "2024-03-20 10:00", "2024-03-21 09:05", "3month21day");
    row("tomorrow is next year", "UTC", "2024-12-31 10:00", "2025-01-01 09:05", "2025-01-01");
    // Berlin: 2024-03-31 02:00 -> 03:00, 2024-10-27 03:00 -> 02:00.
    row("day with 23 hours", "Europe/Berlin", "2024-03-31 23:30", "2024-03-31 00:10", "00:10");
    row("before a day with 23 hours", "Europe/Berlin", "2024-04-01 00:10", "2024-03-31 00:05",
        "yesterday 00:05");
    row("two days before, 47 hours", "Europe/Berlin", "2024-04-01 00:10", "2024-03-30 23:50", "3month30day");
    row("day with 25 hours", "Europe/Berlin", "2024-10-27 23:50", "2024-10-27 00:10", "00:10");
    row("after a day with 25 hours", "Europe/Berlin", "2024-10-28 00:10", "2024-10-27 00:05",
        "yesterday 00:05");
    // Sao Paulo: 2018-11-04 began at 01:00.
    row("day without midnight", "America/Sao_Paulo", "2018-11-04 01:30", "2018-11-03 23:30",
        "yesterday 23:30");
    row("in a day without midnight", "America/Sao_Paulo", "2018-11-05 00:10", "2018-11-04 01:00",
        "yesterday 01:00");
}

void TestTimeText::text()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, now);
    QFETCH(QString, time);
    recenttest::setZone(zone.constData());
    QTEST(zel::recent::timeText(at(time), at(now)), "expected");
}

void TestTimeText::utcTimesAreShownInLocalTime()
{
    recenttest::setZone("America/New_York");
    const QDateTime now = at(QStringLiteral("2024-07-01 21:00"));
    const QDateTime utc(QDate(2024, 7, 2), QTime(0, 30), Qt::UTC);
    QCOMPARE(zel::recent::timeText(utc, now), QStringLiteral("20:30"));
    QCOMPARE(zel::recent::timeText(utc, now.toUTC()), QStringLiteral("20:30"));
    QCOMPARE(zel::recent::timeText({}, now), QString());
}

QTEST_GUILESS_MAIN(TestTimeText)
#include "tst_timetext.moc"

#include "base/timetext.h"
#include "recentfile/timegroups.h"

#include "recentfile/records.h"

using namespace zel::recent;
using recenttest::at;
using zel::timeText;

class TestTimes : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { recenttest::setZone("UTC"); }
    // A row has no name but its clock, or the zone and the reason why it is there.
    void textAndGroup_data()
    {
        const auto add = zeltest::table<QByteArray, QString, QString, int, QString, QString>(
            "zone", "now", "time", "kind", "text", "title");
        const char *zone = "UTC";
        const char *now = "2024-03-20 10:00";
        const auto row = [&](const char *why, const char *time, const char *text, int kind,
                             const char *title) {
            add("%1 %2: %3"_s.arg(QLatin1String(zone), QLatin1String(now), QLatin1String(why)), zone, now,
                time, kind, text, title);
        };
        row("next year", "2025-01-01 00:00", "2025-01-01", 1, "Today");
        row("tomorrow", "2024-03-21 08:00", "3month21day", 1, "Today");
        row("first minute of today", "2024-03-20 00:00", "00:00", 1, "Today");
        row("last minute of yesterday", "2024-03-19 23:59", "yesterday 23:59", 2, "Yesterday");
        row("2 days ago", "2024-03-18 23:59", "3month18day", 3, "This Week");
        row("6 days ago", "2024-03-14 00:00", "3month14day", 3, "This Week");
        row("7 days ago", "2024-03-13 23:59", "3month13day", 4, "This Month");
        row("previous month, leap day", "2024-02-29 23:59", "2month29day", 5, "2 Month");
        row("three months ago is last year", "2023-12-31 23:59", "2023-12-31", 7, "2023 Year 12 Month");
        row("before the epoch", "1969-07-20 20:17", "1969-07-20", 7, "2023 Year 12 Month");

        now = "2024-03-01 10:00";
        row("7 days ago", "2024-02-23 12:00", "2month23day", 4, "This Month");
        row("8 days ago", "2024-02-22 12:00", "2month22day", 5, "2 Month");
        now = "2024-03-13 10:00";
        row("an edge 6 days before moves", "2024-02-29 12:00", "2month29day", 4, "This Month");
        now = "2024-03-14 10:00";
        row("an edge 7 days before stays", "2024-02-29 12:00", "2month29day", 5, "2 Month");

        now = "2024-12-31 23:59";
        row("tomorrow is next year", "2025-01-01 09:05", "2025-01-01", 1, "Today");
        row("this year still", "2024-11-15 09:05", "11month15day", 5, "11 Month");
        now = "2025-01-01 00:00";
        row("last year now", "2024-11-15 09:05", "2024-11-15", 6, "2024 Year 11 Month");
        now = "2024-01-03 12:00";
        row("December before the edge", "2023-12-25 12:00", "2023-12-25", 4, "This Month");
        row("December behind the edge", "2023-12-24 12:00", "2023-12-24", 5, "2023 Year 12 Month");

        zone = "Europe/Berlin"; // 2024-03-31 has 23 hours, 2024-10-27 has 25
        now = "2024-03-31 23:30";
        row("early on a day of 23 hours", "2024-03-31 00:00", "00:00", 1, "Today");
        now = "2024-04-01 00:10";
        row("late on a day of 23 hours", "2024-03-31 23:59", "yesterday 23:59", 2, "Yesterday");
        row("early on a day of 23 hours", "2024-03-31 00:00", "yesterday 00:00", 2, "Yesterday");
        row("20 minutes and a day of 23 hours before", "2024-03-30 23:50", "3month30day", 3, "This Week");
        now = "2024-10-28 00:10";
        row("early on a day of 25 hours", "2024-10-27 00:00", "yesterday 00:00", 2, "Yesterday");
        row("before a day of 25 hours", "2024-10-26 23:59", "10month26day", 3, "This Week");
        zone = "America/Sao_Paulo"; // 2018-11-04 began at 01:00
        now = "2018-11-04 01:30";
        row("first minute of a day without midnight", "2018-11-04 01:00", "01:00", 1, "Today");
        row("before a day without midnight", "2018-11-03 23:59", "yesterday 23:59", 2, "Yesterday");
        zone = "Pacific/Apia"; // had no 2011-12-30
        now = "2011-12-31 12:00";
        row("first minute after a missing day", "2011-12-31 00:00", "00:00", 1, "Today");
        row("a minute before a missing day", "2011-12-29 23:59", "12month29day", 3, "This Week");
        now = "2012-01-01 00:00";
        row("yesterday came after a missing day", "2011-12-31 00:00", "yesterday 00:00", 2, "Yesterday");
        zone = "Asia/Kathmandu"; // 5:45 ahead
        now = "2024-03-20 00:10";
        row("a zone of odd minutes", "2024-03-19 23:50", "yesterday 23:50", 2, "Yesterday");
    }
    void textAndGroup()
    {
        const auto [zone, now, time, kind] = zeltest::row<QByteArray, QString, QString, int>();
        recenttest::setZone(zone.constData());
        QTEST(timeText(at(time), at(now)), "text");
        const TimeGroupEdges edges = timeGroupEdges(at(now).date());
        QCOMPARE(timeGroupKind(edges, at(time).toMSecsSinceEpoch()), kind);
        QTEST(timeGroupTitle(edges, kind), "title");
    }

    void utcTimesAreShownInLocalTime()
    {
        recenttest::setZone("America/New_York");
        const QDateTime now = at("2024-07-01 21:00");
        const QDateTime utc(QDate(2024, 7, 2), QTime(0, 30), Qt::UTC);
        QCOMPARE(timeText(utc, now), "20:30"_s);
        QCOMPARE(timeText(utc, now.toUTC()), "20:30"_s);
        QCOMPARE(timeText({}, now), QString());
    }

    // Sources and their numbers are fixed; a catalogue takes the name of the month, in its own language.
    void cataloguesNameMonths()
    {
        struct German : QTranslator
        {
            QString translate(const char *, const char *source, const char *, int) const override
            {
                const QMap<QByteArray, const char *> texts{{"%1month%2day", "%2. %3"}, {"%1 Month", "%3"},
                    {"%1 Year %2 Month", "%3 %1"}, {"en", "de"}, {"%1, %2", "%1 um %2"}};
                return QString::fromUtf8(texts.value(source));
            }
            bool isEmpty() const override { return false; }
        } german;
        QCoreApplication::installTranslator(&german);
        QCOMPARE(timeText(at("2024-03-07 09:05"), at("2024-10-20 10:00")), "7. März"_s);
        const TimeGroupEdges edges = timeGroupEdges(QDate(2024, 2, 20));
        QCOMPARE(timeGroupTitle(edges, 5), "Januar"_s);
        QCOMPARE(timeGroupTitle(edges, 6), "Dezember 2023"_s);
        QCOMPARE(zel::longTimeText(at("2024-03-07 09:05")), "Donnerstag, 7. März 2024 um 09:05"_s);
    }

    void everyDayOfFiveYears_data()
    {
        const auto row = zeltest::table<QByteArray, int>("zone", "firstYear");
        row("UTC", "UTC", 2023);
        row("clock changes at midnight", "America/Sao_Paulo", 2014);
    }
    // Whatever the day: the groups follow one another, nothing is lost between them, and the days that have a
    // name of their own are never taken by a month.
    void everyDayOfFiveYears()
    {
        const auto [zone, firstYear] = zeltest::row<QByteArray, int>();
        recenttest::setZone(zone.constData());
        for (QDate today(firstYear, 1, 1); today.year() < firstYear + 5; today = today.addDays(1)) {
            const auto edges = timeGroupEdges(today);
            int last = 1;
            for (int ago = -2; ago < 130; ++ago) {
                const QDate day = today.addDays(-ago);
                const int noon = timeGroupKind(edges, QDateTime(day, QTime(12, 0)).toMSecsSinceEpoch());
                const int named = ago <= 0 ? 1 : ago == 1 ? 2 : ago < 7 ? 3 : ago == 7 ? 4 : 0;
                const QByteArray text =
                    today.toString(Qt::ISODate).toLatin1() + " - " + QByteArray::number(ago);
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

    void rowsOfGroups_data()
    {
        // kind:first+count of the groups that have rows
        const auto row = zeltest::table<QList<int>, QString>("daysAgo", "expected");
        row("none", {}, "");
        row("each", {0, 1, 2, 7, 20, 50, 80}, "1:0+1 2:1+1 3:2+1 4:3+1 5:4+1 6:5+1 7:6+1");
        row("gaps and several", {-3, 0, 0, 3, 4, 5, 80, 90, 900}, "1:0+3 3:3+3 7:6+3");
    }
    void rowsOfGroups()
    {
        QFETCH(QList<int>, daysAgo);
        const QDate today(2024, 3, 20);
        const auto groups = groupRows(timeGroupEdges(today), daysAgo.size(), [&](int row) {
            return today.addDays(-daysAgo.at(row)).startOfDay().toMSecsSinceEpoch() + 3600000;
        });
        QStringList found;
        int next = 0;
        for (const TimeGroup &group : groups) {
            QCOMPARE(group.firstRow, next); // empty groups stand where they would be
            next += group.count;
            if (group.count > 0)
                found << "%1:%2+%3"_s.arg(group.kind).arg(group.firstRow).arg(group.count);
        }
        QCOMPARE(next, daysAgo.size());
        QTEST(found.join(QLatin1Char(' ')), "expected");
    }
};

QTEST_GUILESS_MAIN(TestTimes)
#include "tst_times.moc"

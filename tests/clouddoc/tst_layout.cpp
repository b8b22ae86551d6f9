#include "clouddoc/ui/cloudrowtexts.h"
#include "clouddoc/ui/crumbfit.h"

#include <QTest>

/// Where things are in the path, and what the texts of rows say.
class TestLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void crumbs_data();
    void crumbs();
    void times_data();
    void times();
};

void TestLayout::crumbs_data()
{
    QTest::addColumn<QVector<int>>("widths");
    QTest::addColumn<int>("available");
    QTest::addColumn<QString>("expected"); // leading, trailing, width of the last
    const QVector<int> path{100, 50, 60, 70, 80};
    QTest::newRow("none") << QVector<int>() << 500 << "0 0 0";
    QTest::newRow("all") << path << 400 << "0 5 80";
    QTest::newRow("one short") << path << 399 << "1 3 80";
    QTest::newRow("root and last") << path << 230 << "1 1 80";
    QTest::newRow("last alone") << path << 219 << "0 2 80";
    QTest::newRow("last shortened") << path << 80 << "0 1 50";
    QTest::newRow("no room at all") << path << 0 << "0 1 40";
    QTest::newRow("only the root, too long") << QVector<int>{300} << 200 << "0 1 200";
    QTest::newRow("two, too long") << QVector<int>{100, 300} << 200 << "0 1 170";
}

void TestLayout::crumbs()
{
    QFETCH(QVector<int>, widths);
    QFETCH(int, available);
    const CrumbFit fit = CrumbFit::of(widths, available, {10, 20, 40});
    QTEST(QStringLiteral("%1 %2 %3").arg(fit.leading).arg(fit.trailing).arg(fit.lastWidth), "expected");
}

void TestLayout::times_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("expected");
    QTest::newRow("unknown") << QString() << QString();
    QTest::newRow("first minute of today") << "2024-03-20T00:00:00"
                                           << "00:00";
    QTest::newRow("last minute of yesterday") << "2024-03-19T23:59:59"
                                              << "yesterday 23:59";
    QTest::newRow("this year") << "2024-01-02T10:00:00"
                               << "2 January";
    QTest::newRow("later this year") << "2024-12-31T10:00:00"
                                     << "31 December";
    QTest::newRow("yesterday of another year") << "2023-12-31T10:00:00"
                                               << "2023-12-31";
}

void TestLayout::times()
{
    QFETCH(QString, time);
    const QDateTime now = QDateTime::fromString(QStringLiteral("2024-03-20T14:30:00"), Qt::ISODate);
    QTEST(zel::clouddoc::timeText(QDateTime::fromString(time, Qt::ISODate), now), "expected");
}

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"

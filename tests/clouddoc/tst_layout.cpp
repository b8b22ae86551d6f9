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

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"

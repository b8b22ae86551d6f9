#include "clouddoc/ui/cloudrowtexts.h"
#include "clouddoc/ui/crumbfit.h"
#include "support/table.h"

#include <QTest>

/// Where things are in the path, and what the texts of rows say.
class TestLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void crumbs_data()
    {
        // expected: leading, trailing, width of the last
        const auto row = zeltest::table<QVector<int>, int, QString>("widths", "available", "expected");
        const QVector<int> path{100, 50, 60, 70, 80};
        row("none", QVector<int>(), 500, "0 0 0");
        row("all", path, 400, "0 5 80");
        row("one short", path, 399, "1 3 80");
        row("root and last", path, 230, "1 1 80");
        row("last alone", path, 219, "0 2 80");
        row("last shortened", path, 80, "0 1 50");
        row("no room at all", path, 0, "0 1 40");
        row("only the root, too long", QVector<int>{300}, 200, "0 1 200");
        row("two, too long", QVector<int>{100, 300}, 200, "0 1 170");
    }
    void crumbs()
    {
        QFETCH(QVector<int>, widths);
        QFETCH(int, available);
        const CrumbFit fit = CrumbFit::of(widths, available, {10, 20, 40});
        QTEST("%1 %2 %3"_s.arg(fit.leading).arg(fit.trailing).arg(fit.lastWidth), "expected");
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"

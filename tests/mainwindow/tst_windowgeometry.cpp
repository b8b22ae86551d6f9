#include "mainwindow/windowgeometry.h"

using namespace zel::geometry;
Q_DECLARE_METATYPE(StoredPlacement)
Q_DECLARE_METATYPE(ScreenState)
Q_DECLARE_METATYPE(Placement)

class TestWindowGeometry : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stored_data()
    {
        const auto row = zeltest::table<QVector<int>, bool>("numbers", "valid");
        row("left of the screen", QVector<int>{-900, 20, 900, 580}, true);
        row("larger than the screen", QVector<int>{0, 0, 2000, 1200}, true);
        row("absurdly wide", QVector<int>{0, 0, 30000, 580}, false);
        row("absurdly high", QVector<int>{0, 0, 900, 4001}, false);
        row("no window system goes there, but the size holds", QVector<int>{40000, INT_MIN, 900, 580}, true);
        row("no window is that wide", QVector<int>{0, 0, 40000, 580}, false);
        row("would overflow", QVector<int>{INT_MAX, INT_MIN, INT_MAX, 580}, false);
        row("nothing", QVector<int>{0, 0, 0, 0}, false);
    }
    void stored()
    {
        QFETCH(QVector<int>, numbers);
        const ScreenState screen{QRect(0, 0, 1600, 1000), QRect(0, 40, 1600, 960), 1600};
        QTEST(storedRect(numbers[0], numbers[1], numbers[2], numbers[3], screen).isValid(), "valid");
    }

    void restored_data()
    {
        const auto row = zeltest::table<StoredPlacement, QSize, ScreenState, Placement>(
            "stored", "current", "screen", "expected");

        const QSize usual(900, 580);
        // A panel of 40 pixels at the top.
        const ScreenState one{QRect(0, 0, 1600, 1000), QRect(0, 40, 1600, 960), 1600};
        const ScreenState two{one.primary, one.available, 3200};
        // The primary screen stands at the right.
        const ScreenState right{QRect(1600, 0, 1600, 1000), QRect(1600, 40, 1600, 960), 3200};
        const QRect centred(350, 230, 900, 580);

        row("nothing stored", {}, usual, one, {centred, false});
        row("nothing stored, right screen", {}, usual, right, {centred.translated(1600, 0), false});
        row("nothing stored, default as large as the area", {}, {1600, 960}, one, {one.available, true});
        row("default larger than the area", {}, {1603, 580}, one, {QRect(0, 230, 1600, 580), false});
        row("default larger than the right screen", {}, {1700, 980}, right, {right.available, false});
        row("the screens were others: fitted", {QRect(900, 600, 800, 500), false, true}, usual, one,
            {QRect(800, 500, 800, 500), false});
        row("they were larger", {QRect(0, 0, 1800, 1160), true, true}, usual, one, {one.available, true});
        row("stored", {QRect(10, 50, 800, 500), false}, usual, one, {QRect(10, 50, 800, 500), false});
        row("maximised goes back to the stored rectangle", {QRect(10, 50, 800, 500), true}, usual, one,
            {QRect(10, 50, 800, 500), true});
        row("stored as large as the area opens maximised", {QRect(0, 40, 1600, 960), false}, usual, one,
            {QRect(0, 40, 1600, 960), true});
        row("maximised mark without a rectangle", {QRect(), true}, usual, one, {centred, false});
        row("negative height", {QRect(10, 50, 800, -5), false}, usual, one, {centred, false});

        // The size stays, the place does not.
        const QRect middle(400, 270, 800, 500);
        row("left of every screen", {QRect(-900, 50, 800, 500), false}, usual, one, {middle, false});
        row("far right", {QRect(5000, 50, 800, 500), false}, usual, two, {middle, false});
        row("below", {QRect(10, 1200, 800, 500), false}, usual, one, {middle, false});
        row("first pixel beside the screen", {QRect(1600, 50, 800, 500), false}, usual, one, {middle, false});
        row("last pixel on the screen", {QRect(1599, 999, 800, 500), false}, usual, one,
            {QRect(1599, 999, 800, 500), false});
        row("top left just outside", {QRect(-1, 50, 800, 500), false}, usual, one, {middle, false});
        row("higher than the screen", {QRect(10, 50, 800, 1001), false}, usual, one,
            {QRect(400, 20, 800, 1001), false});
        row("wider than all screens", {QRect(10, 50, 1601, 500), false}, usual, one,
            {QRect(0, 270, 1601, 500), false});
        row("wider than one screen of two", {QRect(10, 50, 1601, 500), false}, usual, two,
            {QRect(10, 50, 1601, 500), false});
        row("centred above the top is raised to 0", {QRect(-5, 50, 800, 1100), false}, usual, one,
            {QRect(400, 0, 800, 1100), false});
        row("maximised with a lost rectangle", {QRect(9000, 9000, 800, 500), true}, usual, one,
            {middle, true});
    }
    void restored()
    {
        const auto [stored, current, screen, expected] =
            zeltest::row<StoredPlacement, QSize, ScreenState, Placement>();
        const Placement actual = restore(stored, current, screen);
        QCOMPARE(actual.normal, expected.normal);
        QCOMPARE(actual.maximized, expected.maximized);
    }
};

QTEST_GUILESS_MAIN(TestWindowGeometry)
#include "tst_windowgeometry.moc"

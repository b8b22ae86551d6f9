#include "recentfile/ui/recentcell.h"
#include "recentfile/ui/recentlistlayout.h"

#include <QTest>

using zel::recent::RecentSections;

namespace {

// Row height 10, header height 4, gap 2, bottom margin 3. A negative count is a section without header.
RecentListLayout layoutOf(const QList<int> &counts)
{
    RecentSections sections;
    int first = 0;
    for (const int count : counts) {
        sections << zel::recent::RecentSection{
            0, count > 0 ? QStringLiteral("x") : QString(), first, qAbs(count)};
        first += qAbs(count);
    }
    return {sections, {10, 4, 2, 3}};
}

RecentCellMetrics cellMetrics()
{
    RecentCellMetrics m;
    m.sideMargin = m.padding = m.spacing = 10;
    m.iconSize = 30;
    m.gap = 5;
    m.glyphSize = 12;
    m.buttonSize = 28;
    m.badgeHeight = 12;
    m.badgePadding = 5;
    m.nameHeight = 16;
    m.folderHeight = 14;
    m.leastNameWidth = 100;
    m.rowHeight = 52;
    return m;
}

/// The cell's rectangles from left to right, "name 60-180".
QString text(const RecentCell &cell)
{
    QStringList parts;
    const auto add = [&parts](const char *name, const QRect &rect) {
        if (!rect.isEmpty())
            parts
                << QStringLiteral("%1 %2-%3").arg(QLatin1String(name)).arg(rect.left()).arg(rect.right() + 1);
    };
    add("name", cell.name);
    add("pin", cell.pin);
    add("badge", cell.badge);
    add("cloud", cell.cloud);
    add("folder", cell.folder);
    add("detail", cell.detail);
    add("time", cell.time);
    add("share", cell.share);
    add("more", cell.more);
    return parts.join(QStringLiteral(", "));
}

} // namespace

class TestLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void places();
    void sticky();
    void cell_data();
    void cell();
    void buttonsDoNotMoveTexts();
    void elidedNames();
    void folders();
};

void TestLayout::places()
{
    struct Case
    {
        QList<int> counts;
        int y, at, after, before;
    };
    // 0 header, 4 row 0, 14 row 1, 24 header, 28 row 2, 38 row 3, 48 row 4, 58 end, 61 bottom
    const QList<int> two{2, 3};
    const Case cases[] = {{{}, 0, -1, -1, -1}, {two, -5, -1, 0, -1}, {two, 4, 0, 0, 0}, {two, 13, 0, 0, 0},
        {two, 24, -1, 2, 1}, {two, 57, 4, 4, 4}, {two, 58, -1, -1, 4}, {{-3}, 0, 0, 0, 0},
        {{100000}, 4 + 999990, 99999, 99999, 99999}};
    for (const Case &one : cases) {
        const RecentListLayout layout = layoutOf(one.counts);
        QCOMPARE(layout.rowAt(one.y), one.at);
        QCOMPARE(layout.rowAtOrAfter(one.y), one.after);
        QCOMPARE(layout.rowAtOrBefore(one.y), one.before);
    }
}

void TestLayout::sticky()
{
    struct Case
    {
        QList<int> counts;
        int scroll, section, top;
    };
    const QList<int> two{2, 3};
    const QList<int> unheaded{2, -3};
    const Case cases[] = {{{}, 0, -1, 0}, {two, 0, 0, 0}, {two, 20, 0, 0}, {two, 22, 0, -2}, {two, 24, 1, 0},
        {unheaded, 22, 0, -2}, {unheaded, 24, -1, 0}}; // rows without a header push it out, too
    for (const Case &one : cases) {
        const auto header = layoutOf(one.counts).stickyHeader(one.scroll);
        QCOMPARE(header.section, one.section);
        QCOMPARE(header.top, one.top);
    }
}

void TestLayout::cell_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<int>>("wishes"); // name, badge, folder, detail, time, pin, cloud
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *title, int width, const QList<int> &wishes, const char *expected) {
        QTest::newRow(title) << width << wishes << QString::fromLatin1(expected);
    };
    row("all fits", 500, {120, 30, 80, 40, 60, 1, 1},
        "name 60-180, pin 185-197, badge 202-242, cloud 60-72, folder 77-157, detail 160-200, time 420-480");
    row("narrow: time goes first", 220, {900, 30, 900, 40, 60, 1, 0},
        "name 60-138, pin 143-155, badge 160-200, folder 60-157, detail 160-200");
    row("narrower: then badge and detail", 160, {900, 30, 900, 40, 60, 1, 0},
        "name 60-123, pin 128-140, folder 60-140");
    row("nothing fits", 40, {900, 30, 900, 40, 60, 1, 1}, "");
}

void TestLayout::cell()
{
    QFETCH(int, width);
    QFETCH(QList<int>, wishes);
    const auto cell = RecentCell::layout(QRect(0, 520, width, 52), cellMetrics(),
        {wishes[0], wishes[1], wishes[2], wishes[3], wishes[4], wishes[5] > 0, wishes[6] > 0, false});
    QTEST(text(cell), "expected");
    QCOMPARE(cell.icon, QRect(20, 531, 30, 30));
}

void TestLayout::buttonsDoNotMoveTexts()
{
    RecentCell::Wishes wishes{900, 30, 900, 0, 40, true, true, false};
    const auto plain = RecentCell::layout({0, 0, 500, 52}, cellMetrics(), wishes);
    wishes.buttons = true;
    const auto hovered = RecentCell::layout({0, 0, 500, 52}, cellMetrics(), wishes);
    QCOMPARE(hovered.name, plain.name);
    QCOMPARE(hovered.badge, plain.badge);
    QVERIFY(hovered.time.isNull() && !hovered.share.intersects(hovered.more));
    QCOMPARE(hovered.buttonAt(hovered.share.center()), RecentCell::Button::Share);
    QCOMPARE(hovered.buttonAt(hovered.more.center()), RecentCell::Button::More);
    QCOMPARE(hovered.buttonAt(hovered.name.center()), RecentCell::Button::None);
    QCOMPARE(plain.buttonAt(hovered.more.center()), RecentCell::Button::None);
}

void TestLayout::elidedNames()
{
    struct Case
    {
        QString name;
        int room; // in widths of "m"
        QString start, end;
    };
    const QString longName = QString(80, QLatin1Char('m'));
    const QString turned =
        QStringLiteral("bill") + QChar(0x202E) + QStringLiteral("txt.exe"); // reads "exe.txt"
    const QString joined = QStringLiteral("a") + QChar(0x200D) + QStringLiteral("b");
    const Case cases[] = {
        {longName + QStringLiteral(".docx"), 20, QStringLiteral("mm"), QStringLiteral("m.docx")},
        {longName, 20, QStringLiteral("mm"), QStringLiteral("m")},
        {QLatin1Char('.') + longName, 20, QStringLiteral(".m"), QStringLiteral("m")},
        {longName + QStringLiteral(". And then some more"), 20, QStringLiteral("mm"), QStringLiteral("more")},
        {longName + QStringLiteral(".docx"), 3, QString(), QStringLiteral("x")},
        {QStringLiteral("a\nb\t.odt"), 30, QStringLiteral("a b .odt"), QString()},
        {turned, 30, QStringLiteral("bill txt.exe"), QString()},
        {joined, 30, joined, QString()},
    };
    const QFontMetrics metrics{QFont()};
    for (const Case &one : cases) {
        const int width = one.room * metrics.horizontalAdvance(QLatin1Char('m'));
        const QString text = zel::recent::elidedName(one.name, metrics, width);
        QVERIFY2(text.startsWith(one.start) && text.endsWith(one.end), qPrintable(text));
        QVERIFY2(metrics.horizontalAdvance(text) <= width, qPrintable(text));
    }
}

void TestLayout::folders()
{
    const std::pair<const char *, const char *> cases[] = {{"/home/ann/a.odt", "~"},
        {"/home/ann/docs/a.odt", "~/docs"}, {"/home/anna/a.odt", "/home/anna"}, {"/a.odt", "/"}, {"", ""}};
    for (const auto &[path, expected] : cases)
        QCOMPARE(zel::recent::folderText(QLatin1String(path), QStringLiteral("/home/ann")),
            QLatin1String(expected));
}

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"

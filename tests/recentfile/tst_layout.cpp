#include "recentfile/ui/recentcell.h"
#include "recentfile/ui/recentlistlayout.h"

#include <QTest>

using zel::recent::TimeGroups;

namespace {

// Row height 10, header height 4, bottom margin 3.
RecentListLayout layoutOf(const QList<int> &counts)
{
    TimeGroups groups;
    int first = 0;
    for (int i = 0; i < 7; ++i) {
        const int count = counts.value(i);
        groups[size_t(i)] = {i + 1, QString(), first, count};
        first += count;
    }
    return {groups, 10, 4, 3};
}

RecentCellMetrics cellMetrics()
{
    RecentCellMetrics m;
    m.sideMargin = 10;
    m.padding = 10;
    m.iconSize = 30;
    m.spacing = 10;
    m.badgeHeight = 12;
    m.badgePadding = 5;
    m.nameHeight = 16;
    m.folderHeight = 14;
    m.leastNameWidth = 100;
    m.rowHeight = 52;
    return m;
}

QString text(const QRect &r)
{
    return r.isNull() ? QStringLiteral("-")
                      : QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

} // namespace

class TestLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void places_data();
    void places();
    void sticky_data();
    void sticky();
    void everyPixelHasOneOwner();
    void cell_data();
    void cell();
    void elidedNames_data();
    void elidedNames();
    void folders_data();
    void folders();
};

void TestLayout::places_data()
{
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("at");
    QTest::addColumn<int>("after");
    QTest::addColumn<int>("before");

    // 0 header, 4 row 0, 14 row 1, 24 header, 28 row 2, 38 row 3, 48 row 4, 58 end, 61 bottom
    const QList<int> two{2, 0, 3};
    QTest::newRow("empty") << QList<int>() << 0 << -1 << -1 << -1;
    QTest::newRow("above") << two << -5 << -1 << 0 << -1;
    QTest::newRow("first header") << two << 3 << -1 << 0 << -1;
    QTest::newRow("first pixel of a row") << two << 4 << 0 << 0 << 0;
    QTest::newRow("last pixel of a row") << two << 13 << 0 << 0 << 0;
    QTest::newRow("second row") << two << 14 << 1 << 1 << 1;
    QTest::newRow("second header") << two << 24 << -1 << 2 << 1;
    QTest::newRow("after the second header") << two << 28 << 2 << 2 << 2;
    QTest::newRow("last pixel of the last row") << two << 57 << 4 << 4 << 4;
    QTest::newRow("bottom margin") << two << 58 << -1 << -1 << 4;
    QTest::newRow("only the oldest group")
        << QList<int>{0, 0, 0, 0, 0, 0, 100000} << 4 + 999990 << 99999 << 99999 << 99999;
}

void TestLayout::places()
{
    QFETCH(QList<int>, counts);
    QFETCH(int, y);
    const RecentListLayout layout = layoutOf(counts);
    QTEST(layout.rowAt(y), "at");
    QTEST(layout.rowAtOrAfter(y), "after");
    QTEST(layout.rowAtOrBefore(y), "before");
}

void TestLayout::sticky_data()
{
    QTest::addColumn<int>("scroll");
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("top");
    QTest::newRow("at the top") << 0 << 0 << 0;
    QTest::newRow("pulled down") << -8 << 0 << 0;
    QTest::newRow("inside the first group") << 15 << 0 << 0;
    QTest::newRow("next header touches") << 20 << 0 << 0;
    QTest::newRow("next header pushes") << 22 << 0 << -2;
    QTest::newRow("next header has pushed it out") << 24 << 2 << 0;
    QTest::newRow("at the end") << 51 << 2 << 0;
}

void TestLayout::sticky()
{
    QFETCH(int, scroll);
    const auto header = layoutOf({2, 0, 3}).stickyHeader(scroll);
    QTEST(header.group, "group");
    QTEST(header.top, "top");
    QCOMPARE(layoutOf({}).stickyHeader(scroll).group, -1);
}

void TestLayout::everyPixelHasOneOwner()
{
    const QList<int> counts{1, 3, 0, 2, 0, 0, 4};
    const RecentListLayout layout = layoutOf(counts);
    QCOMPARE(layout.contentHeight(), 10 * 10 + 4 * 4 + 3);
    QVector<int> owners(layout.contentHeight(), 0);
    for (int row = 0; row < 10; ++row) {
        for (int y = layout.rowTop(row); y < layout.rowTop(row) + 10; ++y) {
            ++owners[y];
            QCOMPARE(layout.rowAt(y), row);
        }
    }
    for (int group = 0; group < 7; ++group) {
        const int top = layout.headerTop(group);
        QCOMPARE(top >= 0, counts.at(group) > 0);
        for (int y = top; top >= 0 && y < top + 4; ++y)
            ++owners[y];
    }
    QCOMPARE(owners.mid(0, owners.size() - 3), QVector<int>(owners.size() - 3, 1));
    using Rows = std::pair<int, int>;
    QCOMPARE(layoutOf({2, 0, 3}).rowsBetween(13, 29), Rows(0, 2));   // touched by a pixel
    QCOMPARE(layoutOf({2, 0, 3}).rowsBetween(24, 28), Rows(-1, -2)); // a header only
    QCOMPARE(layout.rowTop(-1), -1);
    QCOMPARE(layout.rowTop(10), -1);
}

void TestLayout::cell_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<int>>("wishes"); // name, badge, time
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("badge");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("folder");

    const auto row = [](const char *title, int width, const QList<int> &wishes, const char *name,
                         const char *badge, const char *time, const char *folder) {
        QTest::newRow(title) << width << wishes << QString::fromLatin1(name) << QString::fromLatin1(badge)
                             << QString::fromLatin1(time) << QString::fromLatin1(folder);
    };
    row("all fits", 500, {120, 30, 60}, "60,10 120x16", "185,12 40x12", "420,1 60x50", "60,28 350x14");
    row("no badge, no time", 500, {120, 0, 0}, "60,10 120x16", "-", "-", "60,28 420x14");
    row("long name leaves room", 500, {900, 30, 60}, "60,10 305x16", "370,12 40x12", "420,1 60x50",
        "60,28 350x14");
    row("narrow: time goes first", 240, {900, 30, 60}, "60,10 115x16", "180,12 40x12", "-", "60,28 160x14");
    row("narrower: then the badge", 150, {900, 30, 60}, "60,10 70x16", "-", "-", "60,28 70x14");
    row("nothing fits", 40, {900, 30, 60}, "60,10 0x16", "-", "-", "60,28 0x14");
}

void TestLayout::cell()
{
    QFETCH(int, width);
    QFETCH(QList<int>, wishes);
    const auto cell =
        RecentCell::layout(QRect(0, 0, width, 52), cellMetrics(), {wishes.at(0), wishes.at(1), wishes.at(2)});
    QTEST(text(cell.name), "name");
    QTEST(text(cell.badge), "badge");
    QTEST(text(cell.time), "time");
    QTEST(text(cell.folder), "folder");
    QCOMPARE(cell.icon, QRect(20, 11, 30, 30));
    const auto below = RecentCell::layout(QRect(0, 520, width, 52), cellMetrics(), {120, 30, 60});
    QCOMPARE(below.name.top(), 530);
}

void TestLayout::elidedNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("characters"); // room, in widths of "m"
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");

    const auto row = [](const char *title, const QString &name, int room, const QString &start,
                         const QString &end) { QTest::newRow(title) << name << room << start << end; };
    const QString longName = QString(80, QLatin1Char('m'));
    row("fits", QStringLiteral("a.odt"), 30, QStringLiteral("a.odt"), QStringLiteral("a.odt"));
    row("suffix stays", longName + QStringLiteral(".docx"), 20, QStringLiteral("mm"),
        QStringLiteral("m.docx"));
    row("no suffix", longName, 20, QStringLiteral("mm"), QStringLiteral("m"));
    row("hidden file", QLatin1Char('.') + longName, 20, QStringLiteral(".m"), QStringLiteral("m"));
    row("dot in a sentence", longName + QStringLiteral(". And then some more"), 20, QStringLiteral("mm"),
        QStringLiteral("more"));
    row("CJK", QString(80, QChar(0x6587)) + QStringLiteral(".xlsx"), 20, QString(1, QChar(0x6587)),
        QStringLiteral(".xlsx"));
    row("line break", QStringLiteral("a\nb\t.odt"), 30, QStringLiteral("a b .odt"), QString());
    for (const ushort hidden : {0x061C, 0x200E, 0x200F, 0x202A, 0x202E, 0x2066, 0x2069})
        row(qPrintable(QStringLiteral("turns the text U+%1").arg(hidden, 4, 16, QLatin1Char('0'))),
            QStringLiteral("bill") + QChar(hidden) + QStringLiteral("txt.exe"), 30,
            QStringLiteral("bill txt.exe"), QString());
    row("joiners stay", QStringLiteral("a") + QChar(0x200D) + QStringLiteral("b.odt"), 30,
        QStringLiteral("a") + QChar(0x200D) + QStringLiteral("b"), QStringLiteral(".odt"));
    row("hardly any room", longName + QStringLiteral(".docx"), 3, QString(), QStringLiteral("x"));
}

void TestLayout::elidedNames()
{
    QFETCH(QString, name);
    QFETCH(int, characters);
    QFETCH(QString, start);
    QFETCH(QString, end);
    const QFontMetrics metrics{QFont()};
    const int width = characters * metrics.horizontalAdvance(QLatin1Char('m'));
    const QString text = zel::recent::elidedName(name, metrics, width);
    QVERIFY2(text.startsWith(start), qPrintable(text));
    QVERIFY2(text.endsWith(end), qPrintable(text));
    QVERIFY2(metrics.horizontalAdvance(text) <= width, qPrintable(text));
}

void TestLayout::folders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *path, const char *expected) {
        QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(expected);
    };
    row("/home/ann/a.odt", "~");
    row("/home/ann/docs/a.odt", "~/docs");
    row("/home/anna/a.odt", "/home/anna");
    row("/a.odt", "/");
    row("/data/a.odt", "/data");
    QTest::newRow("text that turns") << QString(QStringLiteral("/data/x") + QChar(0x202E)
        + QStringLiteral("y/a.odt")) << QStringLiteral("/data/x y");
    row("", "");
}

void TestLayout::folders()
{
    QFETCH(QString, path);
    QTEST(zel::recent::folderText(path, QStringLiteral("/home/ann")), "expected");
}

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"

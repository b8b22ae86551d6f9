#include "recentfile/ui/recentlistlayout.h"
#include "recentfile/ui/recentrowtexts.h"

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

} // namespace

class TestLayout : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void places();
    void sticky();
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

// Where the small floating window docks, hides and comes back.

#include "mini/minidock.h"

#include <climits>

using namespace zel::mini;

Q_DECLARE_METATYPE(zel::mini::Edge)
Q_DECLARE_METATYPE(zel::mini::Place)

namespace {

constexpr QRect Desk(0, 30, 1600, 870); // below a panel
constexpr QSize Window(320, 440);

Screens screens(const QVector<QRect> &geometries)
{
    Screens all;
    for (const QRect &geometry : geometries)
        all.append({QString::number(all.size()), geometry, geometry});
    return all;
}

} // namespace

class TestMiniDock : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void drop_data()
    {
        const auto row = zeltest::table<QPoint, Edge>("at", "edge");
        row("in the middle", QPoint(600, 300), Edge::None);
        row("just near enough", QPoint(23, 300), Edge::Left);
        row("just too far", QPoint(24, 300), Edge::None);
        row("half outside", QPoint(1500, 300), Edge::Right);
        row("against the panel, not the screen", QPoint(600, 40), Edge::Top);
        row("corner: the nearer one", QPoint(3, 40), Edge::Left);
        row("the bottom is no edge", QPoint(600, 890), Edge::None);
    }
    void drop()
    {
        QFETCH(const QPoint, at);
        const Place place = placeOf(QRect(at, Window), Desk, 24);
        QTEST(place.edge, "edge");
        QVERIFY(Desk.contains(outRect(place, Window, Desk))); // also when it was let go outside
    }

    void place_data()
    {
        const auto row = zeltest::table<Place, QRect, QRect>("stored", "available", "out");
        row("right edge", Place{Edge::Right, {7, 100}}, Desk, QRect(1280, 130, 320, 440));
        row("screen became smaller", Place{Edge::Left, {0, 2000}}, QRect(0, 0, 800, 600),
            QRect(0, 160, 320, 440));
        row("screen smaller than the window", Place{Edge::Right, {0, 50}}, QRect(10, 0, 200, 300),
            QRect(10, 0, 200, 300));
        row("screen to the left of the primary one", Place{Edge::Top, {100, 9}}, QRect(-1280, 0, 1280, 720),
            QRect(-1180, 0, 320, 440));
        row("damaged settings", Place{Edge::None, {INT_MAX, INT_MIN}}, Desk, QRect(1280, 30, 320, 440));
    }
    void place()
    {
        const auto [stored, available] = zeltest::row<Place, QRect>();
        QTEST(outRect(stored, Window, available), "out");
    }

    // At every step the window stays inside its place, touches its edge, and its content moves as one.
    void slide()
    {
        for (const Edge edge : {Edge::Left, Edge::Top, Edge::Right}) {
            const QRect out = outRect({edge, {200, 100}}, Window, Desk);
            for (const qreal part : {-0.2, 0.0, 0.01, 0.5, 1.0, 1.3}) {
                const QRect seen = seenRect(edge, out, part, 5);
                QVERIFY(out.contains(seen));
                QVERIFY(edge != Edge::Left || seen.left() == out.left());
                QVERIFY(edge != Edge::Right || seen.right() == out.right());
                QVERIFY(edge != Edge::Top || seen.top() == out.top());
                QVERIFY(std::min(seen.width(), seen.height()) >= 5);
                const QRect content(contentOffset(edge, out.size(), seen.size()), out.size());
                QVERIFY(content.contains(QRect(QPoint(), seen.size()))); // no gap
            }
            QCOMPARE(seenRect(edge, out, 1, 5), out);
        }
        QCOMPARE(seenRect(Edge::Right, QRect(1280, 130, 320, 440), 0, 5), QRect(1595, 130, 5, 440));
    }

    void innerEdges_data()
    {
        const auto row = zeltest::table<QVector<QRect>, Edge, bool>("others", "edge", "hides");
        const QRect right(1600, 0, 1280, 900);
        row("one screen", {}, Edge::Right, true);
        row("free", {}, Edge::None, false);
        row("towards the neighbour", {right}, Edge::Right, false);
        row("away from it", {right}, Edge::Left, true);
        row("a gap between scaled screens", {right.translated(400, 0)}, Edge::Right, false);
        row("neighbour only further down", {QRect(1600, 800, 1280, 900)}, Edge::Right, true);
        row("another above", {QRect(0, -900, 1600, 900)}, Edge::Top, false);
        row("another above, to the side", {QRect(900, -900, 700, 900)}, Edge::Top, true);
        row("mirrored", {QRect(0, 0, 1600, 900)}, Edge::Right, true);
    }
    void innerEdges()
    {
        const auto [others, edge] = zeltest::row<QVector<QRect>, Edge>();
        const Screens all = screens(QVector<QRect>{{0, 0, 1600, 900}} + others);
        QTEST(canTuckAway(edge, outRect({edge, {200, 100}}, Window, Desk), all.first(), all), "hides");
    }

    void screenChoice()
    {
        const Screens two = screens({{0, 0, 1600, 900}, {1600, 0, 1280, 900}});
        QCOMPARE(screenOf(QRect(1500, 10, 320, 440), two), 1);  // most of it is there
        QCOMPARE(screenOf(QRect(3000, 100, 320, 440), two), 1); // outside, but near that one
        QCOMPARE(screenOf(QRect(0, 0, 1, 1), {}), -1);
        QCOMPARE(screenWithKey("1"_s, two), 1);
        QCOMPARE(screenWithKey("gone"_s, two), 0);
        // What counts from the right edge stays there when the panel at the left is wider than was known.
        const Anchored right = anchored(Edge::Right, QRect(1280, 130, 320, 440), QRect(0, 0, 1600, 900));
        QCOMPARE(right, (Anchored{Qt::TopEdge | Qt::RightEdge, {0, 130, 0, 0}}));
    }

    void storedText()
    {
        for (const Edge edge : {Edge::None, Edge::Left, Edge::Top, Edge::Right}) {
            const Place place{edge, {-3, 120}};
            QCOMPARE(fromText(toText(place)), place);
        }
        for (const char *bad : {"", "left", "left 1", "bottom 1 2", "left 1 x", "left 1 2 3"})
            QVERIFY2(!fromText(QString::fromLatin1(bad)), bad);
    }
};

QTEST_GUILESS_MAIN(TestMiniDock)
#include "tst_minidock.moc"

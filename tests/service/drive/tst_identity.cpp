#include "drivefixture.h"

#include <unistd.h>

using namespace zel::service;

namespace {

using Outside = std::function<void(DriveFixture &)>;

QString print(const DriveChanges &changes)
{
    static const char *const Names[] = {"created", "modified", "moved", "removed"};
    QStringList lines;
    for (const DriveChange &change : changes.changes)
        lines.append(QLatin1String(Names[int(change.kind)]) + QLatin1Char(' ') + change.name);
    lines.sort();
    return (changes.reset ? QStringLiteral("reset; ") : QString()) + lines.join(QStringLiteral(", "));
}

bool save(DriveFixture &f, const char *path, const char *temporary)
{
    return f.make(temporary, "saved anew") && f.outsideMove(temporary, path);
}

} // namespace

Q_DECLARE_METATYPE(Outside)

class TestIdentity : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void outsideChanges_data();
    void outsideChanges();
    void ownChanges();
    void afterRestart();
    void movedBetweenListings();
    void absentDriveLosesNothing();
    void cursors();
    void refreshReadsOnlyWhatWasTold();
};

// The tree "a b d/ d/c d/e/ d/e/f x/"; then another program does something. Where the drive finds the items
// a, b, c and f by their ids afterwards, and what it tells of.
void TestIdentity::outsideChanges_data()
{
    QTest::addColumn<Outside>("outside");
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("told");
    const auto row = [](const char *name, const char *where, const char *told, Outside outside) {
        QTest::newRow(name) << std::move(outside) << QString::fromLatin1(where) << QString::fromLatin1(told);
    };
    using F = DriveFixture;
    row("nothing", "a b d/c d/e/f", "", [](F &) {});
    row("exchange names", "b a d/c d/e/f", "moved a, moved b", [](F &f) {
        f.outsideMove("a", "t");
        f.outsideMove("b", "a");
        f.outsideMove("t", "b");
    });
    row("move up", "a b c d/e/f", "moved c", [](F &f) { f.outsideMove("d/c", "c"); });
    row("folder renamed", "a b n/c n/e/f", "moved n", [](F &f) { f.outsideMove("d", "n"); });
    row("folder moved, file in it renamed", "a b x/d/n x/d/e/f", "moved d, moved n", [](F &f) {
        f.outsideMove("d", "x/d");
        f.outsideMove("x/d/c", "x/d/n");
    });
    row("folder turned inside out", "a b e/d/c e/f", "moved d, moved e", [](F &f) {
        f.outsideMove("d/e", "e");
        f.outsideMove("d", "e/d");
    });
    row("saved in place", "a b d/c d/e/f", "modified a", [](F &f) { f.make("a", "longer"); });
    row("saved by replacing", "a b d/c d/e/f", "modified a", [](F &f) { save(f, "a", ".a.swp"); });
    row("renamed over another", "- b d/c d/e/f", "modified b, removed a",
        [](F &f) { f.outsideMove("a", "b"); });
    row("renamed, a new one in its place", "n b d/c d/e/f", "created a, moved n", [](F &f) {
        f.outsideMove("a", "n");
        f.make("a", "other");
    });
    row("hard link", "a b d/c d/e/f", "created l",
        [](F &f) { QCOMPARE(::link(f.at("a").toUtf8().constData(), f.at("x/l").toUtf8().constData()), 0); });
    row("removed", "- b - -", "created new, removed a, removed c, removed d, removed e, removed f", [](F &f) {
        QFile::remove(f.at("a"));
        QDir(f.at("d")).removeRecursively();
        f.make("new");
    });
    row("a folder in a file's place", "- b d/c d/e/f", "created a, removed a", [](F &f) {
        QFile::remove(f.at("a"));
        f.make("a/");
    });
}

void TestIdentity::outsideChanges()
{
    QFETCH(Outside, outside);
    DriveFixture f;
    QVERIFY(
        f.make("a", "A") && f.make("b", "B") && f.make("d/c", "C") && f.make("d/e/f", "F") && f.make("x/"));
    const QStringList ids = {f.id("a"), f.id("b"), f.id("d/c"), f.id("d/e/f")};
    const QString cursor = f.drive().changesSince({})->cursor;
    outside(f);
    QStringList where;
    for (const QString &id : ids)
        where.append(f.where(id));
    QTEST(where.join(QLatin1Char(' ')), "where");
    QTEST(print(*f.drive().changesSince(cursor)), "told");
}

void TestIdentity::ownChanges()
{
    DriveFixture f;
    LocalDrive &drive = f.drive();
    const QString rootId = drive.rootId();
    QVERIFY(f.make("d/a") && f.make("d/sub/b"));
    QString cursor = drive.changesSince({})->cursor;
    const auto told = [&] {
        const auto changes = drive.changesSince(cursor);
        cursor = changes->cursor;
        return print(*changes);
    };
    const QString n = f.write(rootId, QStringLiteral("n"), "1")->id;
    QCOMPARE(told(), QStringLiteral("created n"));
    QCOMPARE(f.write(rootId, QStringLiteral("n"), "22", DriveConflict::Replace)->id, n);
    QCOMPARE(f.write(rootId, QStringLiteral("n"), "333", DriveConflict::Replace)->id, n);
    QCOMPARE(told(), QStringLiteral("modified n"));
    QCOMPARE(drive.rename(n, QStringLiteral("m"))->id, n);
    QCOMPARE(drive.move(n, f.id("d"), DriveConflict::Fail)->id, n);
    QCOMPARE(told(), QStringLiteral("moved m, moved m"));
    const auto copy = drive.copy(f.id("d"), rootId, QStringLiteral("k"), DriveConflict::Fail, {});
    QCOMPARE(told(), QStringLiteral("created a, created b, created k, created m, created sub"));
    const auto trashed = drive.trash(copy->id);
    QCOMPARE(told(), QStringLiteral("removed a, removed b, removed k, removed m, removed sub"));
    QCOMPARE(drive.restore(trashed->id)->id, copy->id);
    QCOMPARE(told(), QStringLiteral("created a, created b, created k, created m, created sub"));
    QVERIFY(drive.move(n, f.id("k"), DriveConflict::Replace));
    QCOMPARE(told(), QStringLiteral("moved m, removed m"));
    QCOMPARE(told(), QString());
}

void TestIdentity::afterRestart()
{
    DriveFixture f;
    QVERIFY(f.make("a") && f.make("d/b"));
    const QString a = f.id("a");
    const QString b = f.id("d/b");
    const QString cursor = f.drive().changesSince({})->cursor;
    QVERIFY(f.outsideMove("a", "d/a") && f.outsideMove("d", "e"));
    QVERIFY(f.reopen());
    QCOMPARE(print(*f.drive().changesSince(cursor)), QStringLiteral("moved a, moved e"));
    QCOMPARE(f.where(a) + f.where(b), QStringLiteral("e/ae/b"));
}

// Between the listings of the two folders the item is in neither.
void TestIdentity::movedBetweenListings()
{
    DriveFixture f;
    QVERIFY(f.make("d/a") && f.make("e/"));
    const QString a = f.id("d/a");
    const QString cursor = f.drive().changesSince({})->cursor;
    QVERIFY(f.outsideMove("d/a", "e/n"));
    QCOMPARE(f.listed(f.id("d")), QString());
    QCOMPARE(f.listed(f.id("e")), QStringLiteral("n"));
    QCOMPARE(f.id("e/n"), a);
    QCOMPARE(print(*f.drive().changesSince(cursor)), QStringLiteral("moved n"));
}

void TestIdentity::absentDriveLosesNothing()
{
    DriveFixture f;
    QVERIFY(f.make("d/a"));
    const QString a = f.id("d/a");
    const QString cursor = f.drive().changesSince({})->cursor;
    const QString away = f.outside(QStringLiteral("away"));
    QVERIFY(QDir().rename(f.root(), away));
    QCOMPARE(f.where(a), QStringLiteral("-"));
    QCOMPARE(print(*f.drive().changesSince(cursor)), QString());
    QVERIFY(f.reopen());
    QVERIFY(QDir().rename(away, f.root()));
    QCOMPARE(f.where(a), QStringLiteral("d/a"));
}

void TestIdentity::cursors()
{
    DriveFixture f;
    QVERIFY(f.make("a"));
    const QString cursor = f.drive().changesSince({})->cursor;
    for (const char *bad : {"", "x", "0-0", "-1", "9-9-9"})
        QVERIFY2(f.drive().changesSince(QString::fromLatin1(bad))->reset, bad);
    QVERIFY(f.drive().changesSince(cursor + QLatin1Char('0'))->reset); // one of the future
    QVERIFY(!f.drive().changesSince(cursor)->reset);
    const QString id = f.id("a");
    // With a lost database neither cursors nor ids mean something else all of a sudden.
    QVERIFY(QFile::rename(f.database(), f.outside(QStringLiteral("lost"))));
    QVERIFY(f.reopen());
    QVERIFY(f.drive().changesSince(cursor)->reset);
    QCOMPARE(f.where(id), QStringLiteral("-"));
}

void TestIdentity::refreshReadsOnlyWhatWasTold()
{
    DriveFixture f;
    QVERIFY(f.make("d/a") && f.make("e/") && f.make("x/y"));
    const QString a = f.id("d/a");
    const QString cursor = f.drive().changesSince({})->cursor;
    f.drive().setWatched(true);
    QVERIFY(f.outsideMove("d/a", "e/a") && f.make("new/sub/b") && QFile::remove(f.at("x/y")));
    QCOMPARE(print(*f.drive().changesSince(cursor)), QString());
    QVERIFY(f.drive().refresh({QStringLiteral("new/sub"), QStringLiteral("d"), QStringLiteral("gone")}));
    QCOMPARE(print(*f.drive().changesSince(cursor)),
        QStringLiteral("created b, created new, created sub, removed a"));
    QVERIFY(f.drive().refresh({QStringLiteral("x"), QStringLiteral("e"), QString()}));
    QVERIFY(f.id("e/a") != a); // the two halves of a move belong into one call
    QVERIFY(f.outsideMove("e/a", "d/b"));
    const QString moved = f.drive().search(QStringLiteral("A"), 9)->first().id;
    QVERIFY(f.drive().refresh({QStringLiteral("e"), QStringLiteral("d")}));
    QCOMPARE(f.where(moved), QStringLiteral("d/b"));
}

QTEST_GUILESS_MAIN(TestIdentity)
#include "tst_identity.moc"

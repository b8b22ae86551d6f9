#include "drivefixture.h"

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
    return (changes.reset ? "reset; "_s : QString()) + lines.join(", "_s);
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

    // The tree "a b d/ d/c d/e/ d/e/f x/"; then another program does something. Where the drive finds the
    // items a, b, c and f by their ids afterwards, and what it tells of.
    void outsideChanges_data()
    {
        const auto row = zeltest::table<QString, QString, Outside>("where", "told", "outside");
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
        row("hard link", "a b d/c d/e/f", "created l", [](F &f) {
            QCOMPARE(::link(f.at("a").toUtf8().constData(), f.at("x/l").toUtf8().constData()), 0);
        });
        row("removed", "- b - -", "created new, removed a, removed c, removed d, removed e, removed f",
            [](F &f) {
                QFile::remove(f.at("a"));
                QDir(f.at("d")).removeRecursively();
                f.make("new");
            });
        row("a folder in a file's place", "- b d/c d/e/f", "created a, removed a", [](F &f) {
            QFile::remove(f.at("a"));
            f.make("a/");
        });
    }

    void outsideChanges()
    {
        QFETCH(Outside, outside);
        DriveFixture f;
        QVERIFY(f.make("a", "A") && f.make("b", "B") && f.make("d/c", "C") && f.make("d/e/f", "F")
            && f.make("x/"));
        const QStringList ids = {f.id("a"), f.id("b"), f.id("d/c"), f.id("d/e/f")};
        const QString cursor = f.drive().changesSince({})->cursor;
        outside(f);
        QStringList where;
        for (const QString &id : ids)
            where.append(f.where(id));
        QTEST(where.join(QLatin1Char(' ')), "where");
        QTEST(print(*f.drive().changesSince(cursor)), "told");
    }

    void ownChanges()
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
        const QString n = f.write(rootId, "n"_s, "1")->id;
        QCOMPARE(told(), "created n"_s);
        QCOMPARE(f.write(rootId, "n"_s, "22", DriveConflict::Replace)->id, n);
        QCOMPARE(f.write(rootId, "n"_s, "333", DriveConflict::Replace)->id, n);
        QCOMPARE(told(), "modified n"_s);
        QCOMPARE(drive.rename(n, "m"_s)->id, n);
        QCOMPARE(drive.move(n, f.id("d"), {}, DriveConflict::Fail)->id, n);
        QCOMPARE(told(), "moved m, moved m"_s);
        const auto copy = drive.copy(f.id("d"), rootId, "k"_s, DriveConflict::Fail, {});
        QCOMPARE(told(), "created a, created b, created k, created m, created sub"_s);
        const auto trashed = drive.trash(copy->id);
        QCOMPARE(told(), "removed a, removed b, removed k, removed m, removed sub"_s);
        QCOMPARE(drive.restore(trashed->id)->id, copy->id);
        QCOMPARE(told(), "created a, created b, created k, created m, created sub"_s);
        QVERIFY(drive.move(n, f.id("k"), {}, DriveConflict::Replace));
        QCOMPARE(told(), "moved m, removed m"_s);
        QCOMPARE(told(), QString());
    }

    void afterRestart()
    {
        DriveFixture f;
        QVERIFY(f.make("a") && f.make("d/b"));
        const QString a = f.id("a");
        const QString b = f.id("d/b");
        const QString cursor = f.drive().changesSince({})->cursor;
        QVERIFY(f.outsideMove("a", "d/a") && f.outsideMove("d", "e"));
        QVERIFY(f.reopen());
        QCOMPARE(print(*f.drive().changesSince(cursor)), "moved a, moved e"_s);
        QCOMPARE(f.where(a) + f.where(b), "e/ae/b"_s);
    }

    // Between the listings of the two folders the item is in neither.
    void movedBetweenListings()
    {
        DriveFixture f;
        QVERIFY(f.make("d/a") && f.make("e/"));
        const QString a = f.id("d/a");
        const QString cursor = f.drive().changesSince({})->cursor;
        QVERIFY(f.outsideMove("d/a", "e/n"));
        QCOMPARE(f.listed(f.id("d")), QString());
        QCOMPARE(f.listed(f.id("e")), "n"_s);
        QCOMPARE(f.id("e/n"), a);
        QCOMPARE(print(*f.drive().changesSince(cursor)), "moved n"_s);
    }

    void absentDriveLosesNothing()
    {
        DriveFixture f;
        QVERIFY(f.make("d/a"));
        const QString a = f.id("d/a");
        const QString cursor = f.drive().changesSince({})->cursor;
        const QString away = f.outside("away"_s);
        QVERIFY(QDir().rename(f.root(), away));
        QCOMPARE(f.where(a), "-"_s);
        QCOMPARE(print(*f.drive().changesSince(cursor)), QString());
        QVERIFY(f.reopen());
        QVERIFY(QDir().rename(away, f.root()));
        QCOMPARE(f.where(a), "d/a"_s);
    }

    void cursors()
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
        QVERIFY(QFile::rename(f.database(), f.outside("lost"_s)));
        QVERIFY(f.reopen());
        QVERIFY(f.drive().changesSince(cursor)->reset);
        QCOMPARE(f.where(id), "-"_s);
    }

    void refreshReadsOnlyWhatWasTold()
    {
        DriveFixture f;
        QVERIFY(f.make("d/a") && f.make("e/") && f.make("x/y"));
        const QString a = f.id("d/a");
        const QString cursor = f.drive().changesSince({})->cursor;
        f.drive().setWatched(true);
        QVERIFY(f.outsideMove("d/a", "e/a") && f.make("new/sub/b") && QFile::remove(f.at("x/y")));
        QCOMPARE(print(*f.drive().changesSince(cursor)), QString());
        QVERIFY(f.drive().refresh({"new/sub"_s, "d"_s, "gone"_s}));
        QCOMPARE(print(*f.drive().changesSince(cursor)), "created b, created new, created sub, removed a"_s);
        QVERIFY(f.drive().refresh({"x"_s, "e"_s, QString()}));
        QVERIFY(f.id("e/a") != a); // the two halves of a move belong into one call
        QVERIFY(f.outsideMove("e/a", "d/b"));
        const QString moved = f.drive().search("A"_s, 9)->first().id;
        QVERIFY(f.drive().refresh({"e"_s, "d"_s}));
        QCOMPARE(f.where(moved), "d/b"_s);
    }
};

QTEST_GUILESS_MAIN(TestIdentity)
#include "tst_identity.moc"

#include "failing.h"
#include "service/drive/drivefixture.h"
#include "service/methods/drive/driveplace.h"
#include "service/transfer/localdrivesource.h"

using namespace zel::service;

namespace {

using Step = std::function<bool(DriveFixture &)>;

/// What is on the disk, and the ids that the drive gives it.
QString stateOf(DriveFixture &f)
{
    QString state;
    const QStringList lines = f.tree().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        QString path = line.section(QLatin1Char('='), 0, 0);
        if (!path.startsWith(".zel-"_s))
            state += line % QLatin1Char('#') % f.id(path.toUtf8().constData()) % QLatin1Char(' ');
    }
    const auto trash = f.drive().listTrash();
    for (const DriveTrashItem &item : *trash)
        state += "trash:"_s % item.name % QLatin1Char('#') % item.itemId % QLatin1Char(' ');
    return state;
}

QString trashed(DriveFixture &f)
{
    const auto items = f.drive().listTrash();
    return items && !items->isEmpty() ? items->first().id : QString();
}

} // namespace

Q_DECLARE_METATYPE(Step)

class TestEveryCall : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(faults(), "needs the layer");
        faults()->isFull = false;
    }

    // Each step of a drive, with each of its file and database calls failing once: what fails is as if it had
    // not been begun and goes well the next time, what is said to be done is done, and no id is another one.
    void drive_data()
    {
        using C = DriveConflict;
        using F = DriveFixture;
        const auto row = zeltest::table<Step>("step");
        const auto anew = [](F &f, DriveWriteOptions options, const char *name) {
            QBuffer source;
            source.setData("new-content");
            source.open(QIODevice::ReadOnly);
            return bool(f.drive().write("root"_s, QString::fromLatin1(name), source, options, {}));
        };
        row("create a file", [](F &f) { return bool(f.drive().createFile(f.id("d"), "n"_s)); });
        row("create a folder", [](F &f) { return bool(f.drive().createFolder("root"_s, "n"_s)); });
        row("write", [anew](F &f) { return anew(f, {}, "n"); });
        row("write over", [anew](F &f) { return anew(f, {C::Replace, -1}, "a"); });
        row("write over what goes into the bin",
            [anew](F &f) { return anew(f, {.conflict = C::Replace, .trashReplaced = true}, "a"); });
        row("copy over what goes into the bin", [](F &f) {
            return bool(copyItem(f.drive(), f.id("a"), {f.id("d"), "c"_s, C::Replace}, {}));
        });
        row("move over what goes into the bin", [](F &f) {
            return bool(moveItem(f.drive(), f.id("a"), {f.id("d"), "c"_s, C::Replace}));
        });
        row("copy a folder",
            [](F &f) { return bool(f.drive().copy(f.id("d"), "root"_s, "n"_s, C::Fail, {})); });
        row("rename", [](F &f) { return bool(f.drive().rename(f.id("a"), "n"_s)); });
        row("move", [](F &f) { return bool(f.drive().move(f.id("a"), f.id("d"), "m"_s, C::Fail)); });
        row("trash", [](F &f) { return bool(f.drive().trash(f.id("d"))); });
        row("restore", [](F &f) { return bool(f.drive().restore(trashed(f))); });
        row("remove a file", [](F &f) { return bool(f.drive().remove(f.id("a"))); });
        row("remove a folder", [](F &f) { return bool(f.drive().remove(f.id("d"))); });
        row("purge", [](F &f) { return bool(f.drive().purge(trashed(f))); });
        row("start", [](F &f) {
            f.close();
            const bool well = bool(localDrives(f.root(), f.database())());
            faults()->folder[0] = '\0'; // the fixture's own calls do not count
            f.open();
            return well;
        });
        row("list and scan", [](F &f) { return f.drive().list("root"_s) && f.drive().rescan(); });
    }
    void drive()
    {
        QFETCH(Step, step);
        QString done;
        for (int nth = 0;; ++nth) {
            DriveFixture f;
            QVERIFY(f.make("a", "A") && f.make("b", "B") && f.make("d/c", "C") && f.make("d/s/f", "F")
                && f.make("e/"));
            QVERIFY(f.drive().rescan() && f.drive().trash(f.id("b")));
            const QString before = stateOf(f);
            if (nth == 0) {
                QVERIFY(step(f));
                done = shapeOf(stateOf(f));
                continue;
            }
            bool well = false;
            {
                const Failing failing(f.outside({}), nth);
                well = step(f);
                if (!failing.happened()) {
                    QVERIFY2(well && nth > 3, QByteArray::number(nth).constData());
                    return;
                }
            }
            const QString after = stateOf(f);
            QVERIFY(well || isSame(nth, "left", after, before));
            QVERIFY(well || step(f));
            const QString last = stateOf(f);
            QVERIFY(isSame(nth, "came to", shapeOf(last), done));
            QVERIFY(f.drive().rescan() && isSame(nth, "is, after a look,", stateOf(f), last));
            QVERIFY(f.reopen() && f.drive().rescan() && isSame(nth, "is, after a start,", stateOf(f), last));
        }
    }

    // What has an id is listed, read, renamed and removed; what needs one waits for room.
    void fullDisk()
    {
        DriveFixture f;
        QVERIFY(f.make("a", "A") && f.make("e/") && f.make("f/g") && f.drive().rescan());
        const QString a = f.id("a");
        const QString e = f.id("e");
        const QString folder = f.id("f");
        QVERIFY(f.make("new"));
        {
            const Failing full(f.outside({}), -2);
            faults()->isFull = true;
            const auto again = qScopeGuard([] { faults()->isFull = false; });
            QCOMPARE(f.listed("root"_s), "a e/ f/"_s);
            QCOMPARE(f.content(a), QByteArray("A"));
            for (int tries = 0; tries < 2; ++tries) {
                QCOMPARE(outcome(f.drive().createFile(e, "n"_s)), "diskFull"_s);
                QCOMPARE(outcome(f.drive().createFolder(e, "n"_s)), "diskFull"_s);
                QCOMPARE(outcome(f.write(e, "n"_s, "n")), "diskFull"_s);
            }
            QCOMPARE(outcome(localDrives(f.root(), f.database())()), "diskFull"_s); // as each transfer's is
            QCOMPARE(outcome(f.drive().rename(a, "b"_s)), "ok"_s);
            QCOMPARE(outcome(f.drive().remove(folder)), "ok"_s);
            QCOMPARE(f.tree(), "b=A e/ new=x"_s);
        }
        QCOMPARE(f.listed("root"_s), "b e/ new"_s);
        QCOMPARE(f.id("b"), a);
    }
};

QTEST_GUILESS_MAIN(TestEveryCall)
#include "tst_everycall.moc"

#include "drivefixture.h"

using namespace zel::service;

using Happening = std::function<bool(DriveFixture &)>;
Q_DECLARE_METATYPE(Happening)

class TestTrash : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void thereAndBack()
    {
        DriveFixture f;
        QVERIFY(f.make("d/sub/a", "A") && f.make("d/b", "B"));
        const QString before = f.tree();
        const QString sub = f.id("d/sub");
        const QString a = f.id("d/sub/a");
        const auto trashed = f.drive().trash(sub);
        QCOMPARE(f.listed(f.drive().rootId()), "d/"_s);
        QCOMPARE(f.listed(f.id("d")), "b"_s);
        QCOMPARE(f.where(sub) + f.where(a), "--"_s);
        QCOMPARE(f.drive().search("a"_s, 9)->size(), 0);
        QVERIFY(f.reopen());
        const auto items = f.drive().listTrash();
        QCOMPARE(items->size(), 1);
        const DriveTrashItem item = items->first();
        QCOMPARE(item.name + QLatin1Char('|') + item.folder, "sub|d"_s);
        QVERIFY(item.isFolder && item.deletedAt > 0 && item.itemId == sub && item.id == trashed->id);
        QCOMPARE(f.drive().restore(item.id)->id, sub);
        QCOMPARE(f.where(a), "d/sub/a"_s);
        QCOMPARE(f.tree(), before);
        QVERIFY(f.drive().listTrash()->isEmpty());
    }

    // "d/e/a" was trashed, then something happened to its place.
    void restoresWhere_data()
    {
        const auto row = zeltest::table<QString, Happening>("where", "then");
        row("free", "d/e/a", [](DriveFixture &) { return true; });
        row("taken", "d/e/a (2)", [](DriveFixture &f) { return f.make("d/e/a", "other"); });
        row("folder renamed", "d/n/a", [](DriveFixture &f) { return f.outsideMove("d/e", "d/n"); });
        row("folder gone", "d/e/a", [](DriveFixture &f) { return QDir(f.at("d")).removeRecursively(); });
        row("folder in the trash", "d/e/a", [](DriveFixture &f) { return bool(f.drive().trash(f.id("d"))); });
        row("database lost", "a", [](DriveFixture &f) { return QFile::remove(f.database()) && f.reopen(); });
    }

    void restoresWhere()
    {
        const auto [where, then] = zeltest::row<QString, Happening>();
        DriveFixture f;
        QVERIFY(f.make("d/e/a", "mine"));
        const auto trashed = f.drive().trash(f.id("d/e/a"));
        QVERIFY(trashed && then(f));
        const auto items = f.drive().listTrash();
        const DriveTrashItem &item = items->last(); // the earliest
        QCOMPARE(item.name, "a"_s);
        const auto restored = f.drive().restore(item.id);
        QCOMPARE(outcome(restored), "ok"_s);
        QCOMPARE(f.where(restored->id), where);
        QCOMPARE(f.content(restored->id), QByteArray("mine"));
    }

    void keepsEarlierOnes()
    {
        DriveFixture f;
        for (const char *content : {"1", "2", "3"}) {
            QVERIFY(f.make("a", content));
            QVERIFY(f.drive().trash(f.id("a")));
        }
        QCOMPARE(f.drive().listTrash()->size(), 3);
        QCOMPARE(f.drive().usage()->used, qint64(3));
        while (!f.drive().listTrash()->isEmpty())
            QVERIFY(f.drive().restore(f.drive().listTrash()->first().id));
        QCOMPARE(f.tree(), "a (2)=2 a (3)=1 a=3"_s);
    }

    // A relative link leads nowhere from inside the trash.
    void links()
    {
        DriveFixture f;
        QVERIFY(f.make("d/file", "content") && QFile::link("file"_s, f.at("d/link")));
        const QString link = f.id("d/link");
        const auto trashed = f.drive().trash(link);
        QVERIFY(trashed && f.reopen());
        QCOMPARE(f.drive().listTrash()->size(), 1);
        QVERIFY(f.outsideMove("d/file", "d/away"));
        QCOMPARE(outcome(f.drive().restore(trashed->id)), "notFound"_s);
        QCOMPARE(f.drive().listTrash()->size(), 1);
        QVERIFY(f.outsideMove("d/away", "d/file"));
        QCOMPARE(f.drive().restore(trashed->id)->id, link);
        QCOMPARE(f.content(link), QByteArray("content"));
        QVERIFY(QFileInfo(f.at("d/link")).isSymLink());
    }

    void listedWhileOthersTrash()
    {
        constexpr int Count = 100;
        DriveFixture f;
        QStringList ids;
        for (int i = 0; i < Count; ++i) {
            const QByteArray name = QByteArray::number(i);
            QVERIFY(f.make(name.constData()));
            ids.append(f.id(name.constData()));
        }
        std::atomic<bool> done = false;
        std::atomic<int> lists = 0;
        QStringList failures;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            zel::sqlite::Database database;
            database.open(f.database());
            LocalDrive other(f.root(), database, f.claim());
            while (!done) {
                const auto listed = other.listTrash();
                if (!listed)
                    failures.append(listed.error().text);
                ++lists;
            }
        }));
        thread->start();
        QTRY_VERIFY(lists > 0);
        QStringList outcomes;
        for (const QString &id : qAsConst(ids))
            outcomes.append(outcome(f.drive().trash(id)));
        done = true;
        thread->wait();
        outcomes.removeDuplicates();
        QCOMPARE(outcomes, QStringList("ok"_s));
        QCOMPARE(failures, QStringList());
        QStringList listed;
        const auto items = f.drive().listTrash();
        for (const DriveTrashItem &item : *items)
            listed.prepend(item.itemId); // the latest comes first
        QCOMPARE(listed, ids);
        QCOMPARE(f.drive().restore(items->first().id)->id, ids.last());
    }

    void purges()
    {
        DriveFixture f;
        QVERIFY(f.make("d/sub/a") && f.make("b") && f.make("c") && f.make("keep"));
        QFile outside(f.outside("outside"_s));
        QVERIFY(outside.open(QIODevice::WriteOnly));
        QVERIFY(QFile::link(outside.fileName(), f.at("d/link")));
        const auto b = f.drive().trash(f.id("b"));
        QVERIFY(f.drive().trash(f.id("d")) && f.drive().trash(f.id("c")));
        QVERIFY(f.drive().purge(b->id));
        QCOMPARE(outcome(f.drive().purge(b->id)), "notFound"_s);
        QCOMPARE(f.drive().listTrash()->size(), 2);
        QVERIFY(f.drive().emptyTrash());
        QCOMPARE(f.tree(), "keep=x"_s);
        QVERIFY2(outside.exists(), "a link goes, what it leads to stays");
        QCOMPARE(f.drive().usage()->used, qint64(1));
    }

    void errors()
    {
        DriveFixture f;
        QCOMPARE(f.drive().listTrash()->size(), 0);
        QVERIFY(f.drive().emptyTrash());
        QVERIFY(f.make("a"));
        QCOMPARE(outcome(f.drive().trash(f.drive().rootId())), "denied"_s);
        QCOMPARE(outcome(f.drive().trash("123"_s)), "notFound"_s);
        const QString a = f.id("a");
        const auto trashed = f.drive().trash(a);
        QCOMPARE(outcome(f.drive().trash(a)), "notFound"_s);
        QCOMPARE(outcome(f.drive().rename(a, "b"_s)), "notFound"_s);
        for (const QString &id : {QString(), "x"_s, "0"_s, "99"_s})
            QCOMPARE(outcome(f.drive().restore(id)), "notFound"_s);
        QVERIFY(QDir(placeOf(f)).removeRecursively()); // by hand
        QCOMPARE(outcome(f.drive().restore(trashed->id)), "notFound"_s);
        QCOMPARE(f.drive().listTrash()->size(), 0);
    }

    // A process that is killed between two steps leaves rows and folders that do not match.
    void afterCrash_data()
    {
        // trashed: whether "a" was put into the trash at first
        const auto row = zeltest::table<bool, QString, int, Happening>("trashed", "tree", "inTrash", "crash");
        row("trashing, no row yet", false, "a=x", 0, [](DriveFixture &f) { return f.make(".zel-trash/7/"); });
        row("trashing, not moved yet", false, "a=x", 0, [](DriveFixture &f) {
            return f.make(".zel-trash/7/")
                && runSql(f,
                    "INSERT INTO drive_trash SELECT 1, id, 1, '', name, 0, 1, 5, '7' FROM drive_item WHERE "
                    "name "
                    "= 'a'");
        });
        row("trashing, moved", false, "", 1, [](DriveFixture &f) {
            return f.make(".zel-trash/7/") && f.outsideMove("a", ".zel-trash/7/a")
                && runSql(f,
                    "INSERT INTO drive_trash SELECT 1, id, 1, '', name, 0, 1, 5, '7' FROM drive_item WHERE "
                    "name "
                    "= 'a'");
        });
        row("restoring, moved", true, "a=x", 0,
            [](DriveFixture &f) { return QFile::rename(placeOf(f) + "/a"_s, f.at("a")); });
        row("purging, begun", true, "", 0,
            [](DriveFixture &f) { return QFile::rename(placeOf(f), f.at(".zel-trash/purged-7")); });
        row("purging, files gone", true, "", 0,
            [](DriveFixture &f) { return QDir(placeOf(f)).removeRecursively(); });
    }

    void afterCrash()
    {
        const auto [trashed, tree, inTrash, crash] = zeltest::row<bool, QString, int, Happening>();
        DriveFixture f;
        QVERIFY(f.make("a"));
        const QString a = f.id("a");
        if (trashed)
            QVERIFY(f.drive().trash(a));
        QVERIFY(crash(f));
        QVERIFY(f.reopen());
        QCOMPARE(f.drive().listTrash()->size(), inTrash);
        if (inTrash) {
            QCOMPARE(f.where(a), "-"_s);
            QCOMPARE(f.drive().restore(f.drive().listTrash()->first().id)->id, a);
        } else {
            QCOMPARE(f.tree(), tree);
            QCOMPARE(f.where(a), tree.isEmpty() ? "-"_s : "a"_s);
        }
    }

private:
    static QString placeOf(const DriveFixture &f)
    {
        const QStringList places = QDir(f.at(".zel-trash")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return places.size() == 1 ? f.at(".zel-trash/") + places.first() : QString();
    }
    static bool runSql(const DriveFixture &f, const char *sql)
    {
        zel::sqlite::Database database;
        return database.open(f.database()) && database.exec(sql);
    }
};

QTEST_GUILESS_MAIN(TestTrash)
#include "tst_trash.moc"

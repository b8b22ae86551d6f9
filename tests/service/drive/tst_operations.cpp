#include "drivefixture.h"

#include <linux/capability.h>
#include <sys/syscall.h>

using namespace zel::service;

namespace {

// Root may do anything, whatever the permissions; without these capabilities they count.
void setPrivileges(bool on)
{
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2] = {};
    syscall(SYS_capget, &header, data);
    data[0].effective = on ? data[0].permitted : 0;
    syscall(SYS_capset, &header, data);
}

using Step = std::function<QString(DriveFixture &)>;

// Each row acts on the tree "a.txt=A d/ d/a.txt=D e/".
using F = DriveFixture;
using C = DriveConflict;
const char *const same = "a.txt=A d/ d/a.txt=D e/";
const QString top = "root"_s;
const QString a = "a.txt"_s;
const QString d = "d"_s;

void row(const char *name, const char *result, const char *tree, Step step)
{
    QTest::newRow(name) << std::move(step) << QString::fromUtf8(result) << QString::fromUtf8(tree);
}

void creatingRows()
{
    row("create in a file", "notFound", same,
        [](F &f) { return outcome(f.drive().createFile(f.id("a.txt"), a)); });
    row("create, id is no id", "notFound", same,
        [](F &f) { return outcome(f.drive().createFile("../x"_s, a)); });
    row("write, taken", "exists", same, [](F &f) { return outcome(f.write(top, a, "new")); });
    row("write over a folder", "exists", same,
        [](F &f) { return outcome(f.write(top, d, "new", C::Replace)); });
}

void replacingRows()
{
    // Somebody saves the document, or moves it, while its new content is on the way.
    const auto update = [](F &f, const std::function<void()> &meanwhile) {
        const auto before = f.drive().stat(f.id("a.txt"));
        DriveWriteOptions options{C::Replace, -1};
        options.replacedId = before->id;
        options.replacedVersion = before->version;
        QBuffer source;
        source.setData("new");
        source.open(QIODevice::ReadOnly);
        return outcome(f.drive().write(top, a, source, options, [&](qint64, qint64) {
            meanwhile();
            return true;
        }));
    };
    row("update", "ok", "a.txt=new d/ d/a.txt=D e/", [update](F &f) { return update(f, [] {}); });
    row("update, saved meanwhile", "changed", "a.txt=saved d/ d/a.txt=D e/",
        [update](F &f) { return update(f, [&f] { f.make("a.txt", "saved"); }); });
    row("update, moved meanwhile", "changed", "b=A d/ d/a.txt=D e/",
        [update](F &f) { return update(f, [&f] { f.outsideMove("a.txt", "b"); }); });
}

void movingRows()
{
    row("rename the root", "denied", same, [](F &f) { return outcome(f.drive().rename(top, "b"_s)); });
    row("move, replace", "ok", "d/ d/a.txt=A e/",
        [](F &f) { return outcome(f.drive().move(f.id("a.txt"), f.id("d"), {}, C::Replace)); });
    row("move over a full folder", "notEmpty", "a.txt=A d/ d/a.txt=D e/ e/d/", [](F &f) {
        f.make("e/d/");
        return outcome(f.drive().move(f.id("e/d"), top, {}, C::Replace));
    });
    row("move into itself", "denied", "a.txt=A d/ d/a.txt=D d/x/ e/", [](F &f) {
        f.make("d/x/");
        return outcome(f.drive().move(f.id("d"), f.id("d/x"), {}, C::Fail));
    });
}

void copyingRows()
{
    row("copy a folder into itself", "ok", "a.txt=A d/ d/a.txt=D d/d/ d/d/a.txt=D e/",
        [](F &f) { return outcome(f.drive().copy(f.id("d"), f.id("d"), {}, C::Fail, {})); });
    row("duplicate a folder", "ok", "a.txt=A d (2)/ d (2)/a.txt=D d/ d/a.txt=D e/",
        [](F &f) { return outcome(f.drive().copy(f.id("d"), top, {}, C::KeepBoth, {})); });
    row("copy over a full folder", "notEmpty", "a.txt=A d/ d/a.txt=D e/ e/d/", [](F &f) {
        f.make("e/d/");
        return outcome(f.drive().copy(f.id("e/d"), top, {}, C::Replace, {}));
    });
    row("read a folder", "notFound", same, [](F &f) {
        QBuffer buffer;
        return outcome(f.drive().read(f.id("d"), buffer, {}));
    });
    row("read what is gone", "notFound", "d/ d/a.txt=D e/", [](F &f) {
        const QString id = f.id("a.txt");
        QFile::remove(f.at("a.txt"));
        QBuffer buffer;
        return outcome(f.drive().read(id, buffer, {}));
    });
}

} // namespace

Q_DECLARE_METATYPE(Step)

class TestOperations : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void absentFolderIsEmptyAndMadeByTheFirstWrite()
    {
        DriveFixture f;
        const QString rootId = f.drive().rootId();
        QCOMPARE(f.listed(rootId), QString());
        QVERIFY(f.drive().stat(rootId)->isFolder);
        QVERIFY(f.drive().usage()->free > 0);
        QVERIFY(f.drive().changesSince({}));
        QVERIFY2(!QFileInfo::exists(f.root()), "looking makes nothing");
        const auto item = f.write(rootId, "a.txt"_s, "hello");
        QVERIFY(item);
        QCOMPARE(item->localPath, f.at("a.txt"));
        QCOMPARE(item->size, qint64(5));
        QCOMPARE(item->parentId, rootId);
        QVERIFY(qAbs(item->mtime - QDateTime::currentMSecsSinceEpoch()) < 60000);
        QCOMPARE(f.tree(), "a.txt=hello"_s);
        QCOMPARE(f.drive().usage()->used, qint64(5));
    }

    void changesTheTree_data()
    {
        zeltest::table<Step, QString, QString>("step", "result", "tree");
        creatingRows();
        replacingRows();
        movingRows();
        copyingRows();
    }

    void changesTheTree()
    {
        QFETCH(Step, step);
        QFETCH(QString, tree);
        DriveFixture f;
        QVERIFY(f.make("a.txt", "A") && f.make("d/a.txt", "D") && f.make("e/"));
        QTEST(step(f), "result");
        QCOMPARE(f.tree(), tree);
        // What the drive knows is what is there, and everything has an id of its own.
        QSet<QString> ids;
        int count = 0;
        QDirIterator it(f.root(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        for (; it.hasNext(); ++count)
            ids.insert(f.id(QDir(f.root()).relativeFilePath(it.next()).toUtf8().constData()));
        QCOMPARE(ids.size(), count);
        QVERIFY(!ids.contains(QString()));
    }

    void linksLeadNowhere()
    {
        DriveFixture f;
        QVERIFY(f.make("in.txt", "inside") && f.make("d/x", "X"));
        QVERIFY(QDir().mkpath(f.outside("away"_s)));
        QFile secret(f.outside("secret"_s));
        QVERIFY(secret.open(QIODevice::WriteOnly) && secret.write("secret") == 6);
        secret.close();
        const auto link = [&](const QString &to, const char *at) { return QFile::link(to, f.at(at)); };
        QVERIFY(link(secret.fileName(), "file") && link(f.outside("away"_s), "folder"));
        QVERIFY(link("../secret"_s, "relative") && link("nothing"_s, "dangling"));
        QVERIFY(link("d"_s, "loop") && link(f.at("in.txt"), "good") && link("self"_s, "self"));
        QCOMPARE(f.listed(f.drive().rootId()), "d/ good in.txt"_s);
        QCOMPARE(f.content(f.id("good")), QByteArray("inside"));

        // Written is the name, not what the link leads to.
        const QString rootId = f.drive().rootId();
        QVERIFY(f.write(rootId, "good"_s, "mine", DriveConflict::Replace));
        QVERIFY(f.write(rootId, "file"_s, "mine", DriveConflict::Replace));
        QCOMPARE(f.content(f.id("in.txt")), QByteArray("inside"));
        QVERIFY(secret.open(QIODevice::ReadOnly));
        QCOMPARE(secret.readAll(), QByteArray("secret"));

        // Nor does a folder that was taken out of the drive and is reached by a link now.
        QVERIFY(f.make("out/sub/x"));
        const QString sub = f.id("out/sub");
        const QString taken = f.outside("taken"_s);
        QVERIFY(QFile::rename(f.at("out"), taken) && link(taken, "out"));
        QCOMPARE(outcome(f.write(sub, "n"_s, "mine")), "notFound"_s);
        QVERIFY(!QFileInfo::exists(taken + "/sub/n"_s));

        // A folder that was exchanged for a link meanwhile takes nothing.
        const QString d = f.id("d");
        const QString x = f.id("d/x");
        QVERIFY(QDir(f.at("d")).removeRecursively() && link(f.outside("away"_s), "d"));
        QCOMPARE(outcome(f.write(d, "n"_s, "mine")), "notFound"_s);
        QCOMPARE(outcome(f.drive().createFolder(d, "n"_s)), "notFound"_s);
        QCOMPARE(outcome(f.drive().trash(x)), "notFound"_s);
        QVERIFY(QDir(f.outside("away"_s)).isEmpty());
    }

    void leavesOutWhatIsNoItem()
    {
        DriveFixture f;
        QVERIFY(f.make("a") && f.make(".zel-something") && f.make(".zel-folder/b"));
        QCOMPARE(::mkfifo(f.at("pipe").toUtf8().constData(), 0600), 0);
        const QByteArray bad = f.root().toUtf8() + "/bad\xff";
        QCOMPARE(::mkdir(bad.constData(), 0700), 0);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not UTF-8 are left out: 1"_s));
        QCOMPARE(f.listed(f.drive().rootId()), "a"_s);
        QCOMPARE(f.listed(f.drive().rootId()), "a"_s); // and says it once
        QCOMPARE(::rmdir(bad.constData()), 0);         // QTemporaryDir cannot
        QCOMPARE(f.id("pipe") + f.id(".zel-something") + f.id("../drive.db") + f.id("a/x"), QString());
    }

    void keepsTimeAndMode()
    {
        DriveFixture f;
        QVERIFY(f.make("script", "old") && f.make("d/deep/", {}));
        ::chmod(f.at("script").toUtf8().constData(), 0750);
        ::chmod(f.at("d/deep").toUtf8().constData(), 0500);
        QBuffer source;
        source.setData("new");
        source.open(QIODevice::ReadOnly);
        constexpr qint64 Then = 1234567890123;
        const QString rootId = f.drive().rootId();
        const auto item = f.drive().write(rootId, "script"_s, source, {DriveConflict::Replace, Then}, {});
        QCOMPARE(item->mtime, Then);
        const auto copy = f.drive().copy(item->id, rootId, "copy"_s, DriveConflict::Fail, {});
        QCOMPARE(copy->mtime, Then);
        QVERIFY(f.drive().copy(f.id("d"), rootId, "e"_s, DriveConflict::Fail, {}));
        const auto mode = [&](const char *name) {
            struct stat status
            {
            };
            return ::stat(f.at(name).toUtf8().constData(), &status) == 0 ? int(status.st_mode & 0777) : 0;
        };
        QCOMPARE(mode("script"), 0750);
        QCOMPARE(mode("copy"), 0750);
        QCOMPARE(mode("e/deep"), 0500);
        ::chmod(f.at("copy").toUtf8().constData(), 0604);
        QVERIFY(f.drive().copy(item->id, rootId, "copy"_s, DriveConflict::Replace, {}));
        QCOMPARE(mode("copy"), 0604);
        QVERIFY(f.write(rootId, "plain"_s, "new"));
        QVERIFY(f.make("other"));
        QCOMPARE(mode("plain"), mode("other"));
        QVERIFY(QDir(f.root()).removeRecursively() && f.write(rootId, "first"_s, "new"));
        QCOMPARE(mode(""), 0700);
    }

    void cancelLeavesNothing()
    {
        DriveFixture f;
        const QByteArray big(900 * 1024, 'x');
        QVERIFY(f.make("d/1", big) && f.make("d/2", big) && f.make("d/sub/3", big) && f.make("e/"));
        const QString before = f.tree();
        const QString d = f.id("d");
        QVector<QPair<qint64, qint64>> told;
        const DriveProgress cancel = [&](qint64 done, qint64 total) {
            told.append({done, total});
            return done <= big.size();
        };
        const QString rootId = f.drive().rootId();
        QCOMPARE(outcome(f.drive().copy(d, f.id("e"), {}, DriveConflict::Fail, cancel)), "cancelled"_s);
        QCOMPARE(told.last().second, qint64(3 * big.size()));
        QVERIFY2(told.last().first > big.size() && told.last().first < 3 * big.size(), "in the middle");
        QBuffer source;
        source.setData(big + big);
        source.open(QIODevice::ReadOnly);
        QCOMPARE(outcome(f.drive().write(rootId, "n"_s, source, {}, cancel)), "cancelled"_s);
        QCOMPARE(f.tree(), before);
    }

    void localFiles()
    {
        DriveFixture f;
        QFile file(f.outside("local"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("local") == 5 && file.flush());
        QVERIFY(file.setFileTime(QDateTime::fromMSecsSinceEpoch(1000000), QFileDevice::FileModificationTime));
        file.close();
        const auto item = f.drive().writeFrom(f.drive().rootId(), "a"_s, file.fileName(), {}, {});
        QVERIFY(item);
        QCOMPARE(item->mtime, qint64(1000000));
        const QString target = f.outside("back"_s);
        QCOMPARE(outcome(f.drive().readTo(item->id, target, {})), "ok"_s);
        QCOMPARE(QFileInfo(target).size(), qint64(5));
        const DriveProgress never = [](qint64, qint64) { return false; };
        QVERIFY(f.make("b", "other"));
        QCOMPARE(outcome(f.drive().readTo(f.id("b"), target, never)), "cancelled"_s);
        QFile back(target);
        QVERIFY(back.open(QIODevice::ReadOnly));
        QCOMPARE(back.readAll(), QByteArray("local"));
        const QString pipe = f.outside("pipe"_s); // nobody writes to it, so nobody may wait for it
        QCOMPARE(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
        const auto refused = [&f](const QString &source) {
            return outcome(f.drive().writeFrom(f.drive().rootId(), "c"_s, source, {}, {}));
        };
        for (const QString &source : {pipe, f.outside("none"_s), f.root()})
            QCOMPARE(refused(source), "notFound"_s);
        QCOMPARE(refused("/proc/self/status"_s), "denied"_s);
    }

    void deniedWithoutPermission()
    {
        DriveFixture f;
        QVERIFY(f.make("shut/a") && f.make("open/"));
        const QString shut = f.id("shut");
        const QString a = f.id("shut/a");
        const QString open = f.id("open");
        const auto rescued = qScopeGuard([] { setPrivileges(true); });
        ::chmod(f.at("shut").toUtf8().constData(), 0500);
        setPrivileges(false);
        const QString denied = "denied"_s;
        QCOMPARE(outcome(f.write(shut, "n"_s, "x")), denied);
        QCOMPARE(outcome(f.drive().createFolder(shut, "n"_s)), denied);
        QCOMPARE(outcome(f.drive().rename(a, "b"_s)), denied);
        QCOMPARE(outcome(f.drive().move(a, open, {}, DriveConflict::Fail)), denied);
        QCOMPARE(outcome(f.drive().trash(a)), denied);
        QCOMPARE(f.where(a), "shut/a"_s);
        QCOMPARE(f.drive().listTrash()->size(), 0);
        // A folder that cannot be read at present keeps its ids.
        ::chmod(f.at("shut").toUtf8().constData(), 0);
        QCOMPARE(outcome(f.drive().list(shut)), denied);
        QVERIFY(f.drive().rescan());
        setPrivileges(true);
        QCOMPARE(f.where(a), "shut/a"_s);
    }
};

QTEST_GUILESS_MAIN(TestOperations)
#include "tst_operations.moc"

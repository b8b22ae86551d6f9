#include "base/paths.h"
#include "base/trash/trash.h"
#include "base/trash/trashinfo.h"
#include "support/temptree.h"

using namespace zel::trash;

Q_DECLARE_METATYPE(zel::trash::Outcome)

class TrashTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_tree = std::make_unique<zeltest::TempTree>(); }

    void pathsOfInfos_data()
    {
        const auto row = zeltest::table<QByteArray, QByteArray>("text", "path");
        row("plain", "[Trash Info]\nPath=/a/b%20c\nDeletionDate=x\n", "/a/b c");
        row("first counts", "[Trash Info]\nPath=a\nPath=b\n", "a");
        row("unknown keys, blanks, CR", "[Trash Info]\r\nX-A=1\r\nPath = a\r\n", "a");
        row("other group", "[Trash Info]\n[X]\nPath=a\n", {});
        row("no group", "Path=a\n", {});
        row("climbs out", "[Trash Info]\nPath=a/../../b\n", {});
        row("climbs out, encoded", "[Trash Info]\nPath=%2e%2E/b\n", {});
        row("NUL", "[Trash Info]\nPath=/a%00b\n", {});
        row("empty", {}, {});
    }
    void pathsOfInfos()
    {
        QFETCH(QByteArray, text);
        QTEST(pathOfInfo(text), "path");
    }

    void names_data()
    {
        const auto row = zeltest::table<QByteArray, int, QByteArray>("name", "attempt", "expected");
        row("first", "a.txt", 1, "a.txt");
        row("second", "a.txt", 2, "a.2.txt");
        row("hidden", ".profile", 2, ".profile.2");
        row("long", QByteArray(60, 'x') + ".txt", 12, QByteArray(23, 'x') + ".12.txt");
        row("cut between characters", QByteArray("x") + QByteArray("ä").repeated(30), 1,
            QByteArray("x") + QByteArray("ä").repeated(14));
    }
    void names()
    {
        const auto [name, attempt] = zeltest::row<QByteArray, int>();
        QTEST(nameInTrash(name, attempt, 40), "expected");
    }

    void thereAndBack_data()
    {
        const auto row = zeltest::table<QString, QString>("name", "kind");
        row("file", "letter.txt", "file");
        row("hard name", "50% [Trash] ü\n=;.txt", "file");
        row("longest name", QString(251, QLatin1Char('x')) + ".odt"_s, "file");
        row("folder with contents", "folder", "folder");
        row("dangling link", "dangling", "link");
        row("link with a slash behind", "link/", "link to folder");
        row("its folder is gone", "a/b/letter.txt", "folder gone");
    }
    void thereAndBack()
    {
        const auto [name, kind] = zeltest::row<QString, QString>();
        const QString path = m_tree->path(name);
        const QString bare = name.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
        const QString target = m_tree->path("target");
        const bool isLink = kind.startsWith("link"_s);
        const QString content = kind == "folder"_s ? path + "/inside"_s : path;
        if (kind == "link to folder"_s)
            m_tree->make({"target/"});
        if (isLink)
            m_tree->link("target", bare);
        else
            m_tree->write(content, "text");

        const Result gone = put(path);
        QCOMPARE(gone.logText, QString());
        QCOMPARE(gone.outcome, Outcome::Done);
        QCOMPARE(gone.path, path);
        QVERIFY(!isThere(bare));
        QCOMPARE(QFileInfo(gone.trashId).path(), inTrash("info"));
        QCOMPARE(pathOfInfo(m_tree->read(gone.trashId)), QFile::encodeName(bare));
        QCOMPARE(QFile::permissions(inTrash()) & 0x0077, QFile::Permissions());
        if (kind == "folder gone"_s)
            QVERIFY(QDir(m_tree->path("a")).removeRecursively());

        const Result back = restore(gone.trashId);
        QCOMPARE(back.logText, QString());
        QCOMPARE(back.outcome, Outcome::Done);
        QCOMPARE(back.path, bare);
        QVERIFY(!isThere(gone.trashId));
        if (isLink)
            QCOMPARE(QFile::symLinkTarget(bare), target);
        else
            QCOMPARE(m_tree->read(content), QByteArray("text"));
        QCOMPARE(restore(gone.trashId).outcome, Outcome::Missing);
    }

    void oneNameManyTimes()
    {
        QStringList ids;
        for (int n = 0; n < 40; ++n) { // more than are counted in sequence
            const Result gone = put(m_tree->write(QString::number(n) + "/same.txt"_s, QByteArray::number(n)));
            QCOMPARE(gone.outcome, Outcome::Done);
            ids.append(gone.trashId);
        }
        for (int n = 0; n < ids.size(); ++n) {
            QCOMPARE(restore(ids.at(n)).outcome, Outcome::Done);
            QCOMPARE(m_tree->read(QString::number(n) + "/same.txt"_s), QByteArray::number(n));
        }
    }

    // A file without an information file, left by a program that was killed, is not written over.
    void orphanInTheTrash()
    {
        const QString orphan = m_tree->write(inTrash("files/orphan.txt"), "orphan");
        const QString path = m_tree->write("orphan.txt", "new");
        const Result gone = put(path);
        QCOMPARE(gone.outcome, Outcome::Done);
        QCOMPARE(m_tree->read(orphan), QByteArray("orphan"));
        QVERIFY(!isThere(inTrash("info/orphan.txt.trashinfo")));
        QCOMPARE(restore(gone.trashId).outcome, Outcome::Done);
        QCOMPARE(m_tree->read(path), QByteArray("new"));
    }

    void notPut_data()
    {
        const auto row = zeltest::table<QString, Outcome>("path", "outcome");
        row("missing", "/nowhere/at/all", Outcome::Missing);
        row("root", "/", Outcome::Denied);
        row("relative", "letter.txt", Outcome::Denied);
        row("no name of a file", QDir::homePath() + "/a"_s + QChar(0xd800), Outcome::Denied);
        row("climbing", QDir::homePath() + "/x/.."_s, Outcome::Denied);
        row("folder that the trash is in", QDir::homePath(), Outcome::Denied);
        row("the trash", inTrash(), Outcome::Denied);
        row("in the trash", inTrash("files/orphan.txt"), Outcome::Denied);
        row("mount point", "/proc", Outcome::Denied);
    }
    void notPut()
    {
        QFETCH(QString, path);
        m_tree->write(inTrash("files/orphan.txt"), "x");
        const QStringList before = QDir(inTrash("info")).entryList();
        const bool wasThere = isThere(path);
        const Result result = put(path);
        QTEST(result.outcome, "outcome");
        QVERIFY(result.trashId.isEmpty() && !result.logText.isEmpty());
        QCOMPARE(isThere(path), wasThere);
        QCOMPARE(QDir(inTrash("info")).entryList(), before);
    }

    void neverOverSomethingElse()
    {
        const QString path = m_tree->write("letter.txt", "old");
        const QString id = put(path).trashId;
        m_tree->write(path, "new");
        const Result blocked = restore(id);
        QCOMPARE(blocked.outcome, Outcome::Exists);
        QCOMPARE(blocked.path, path);
        QCOMPARE(m_tree->read(path), QByteArray("new"));
        QVERIFY(QFile::remove(path));
        m_tree->link("nowhere", path); // a dangling link counts too
        QCOMPARE(restore(id).outcome, Outcome::Exists);
        QVERIFY(QFile::remove(path));
        QCOMPARE(restore(id).outcome, Outcome::Done);
        QCOMPARE(m_tree->read(path), QByteArray("old"));
    }

    void notRestored_data()
    {
        // id: $ is a folder made up by somebody, % the home trash
        const auto row = zeltest::table<QString, QByteArray, Outcome>("id", "info", "outcome");
        const QByteArray good = "[Trash Info]\nPath=$/back\n";
        row("folder that is no trash", "$/info/f.trashinfo", good, Outcome::Denied);
        row("looks like one", "$/.Trash-%1/info/f.trashinfo"_s.arg(::getuid()), good, Outcome::Denied);
        row("climbs", "%/info/../info/f.trashinfo", good, Outcome::Denied);
        row("below info", "%/info/info/f.trashinfo", good, Outcome::Denied);
        row("of no name", "%/info/.trashinfo", good, Outcome::Denied);
        row("no information file", "%/info/f", good, Outcome::Denied);
        row("relative path at home", "%/info/f.trashinfo", "[Trash Info]\nPath=back\n", Outcome::Failed);
        row("garbage", "%/info/f.trashinfo", QByteArray(70000, 'x'), Outcome::Denied);
        row("old folder is a file now", "%/info/f.trashinfo", "[Trash Info]\nPath=/proc/version/back\n",
            Outcome::Failed);
    }
    void notRestored()
    {
        auto [id, info] = zeltest::row<QString, QByteArray>();
        id.replace(QLatin1Char('$'), m_tree->path()).replace(QLatin1Char('%'), inTrash());
        info.replace('$', QFile::encodeName(m_tree->path()));
        const QString trash = QFileInfo(QFileInfo(id).path()).path();
        m_tree->write(QDir::cleanPath(id), info);
        m_tree->write(trash + "/files/f"_s, "text");
        const Result result = restore(id);
        QTEST(result.outcome, "outcome");
        QVERIFY(!result.logText.isEmpty());
        QVERIFY(!isThere(m_tree->path("back")));
        QCOMPARE(m_tree->read(trash + "/files/f"_s), QByteArray("text"));
    }

    void linkInPlaceOfTheInfo()
    {
        const QString id = inTrash("info/l.trashinfo");
        m_tree->write("fake", "[Trash Info]\nPath=/tmp/x\n");
        m_tree->write(inTrash("files/l"), "text");
        m_tree->link("fake", id);
        QVERIFY(restore(id).outcome != Outcome::Done);
        QVERIFY(isThere(inTrash("files/l")));
    }

    void otherFileSystem_data()
    {
        // mode: of the shared trash; -1: none, -2: a link in its place
        const auto row = zeltest::table<int, QString>("mode", "trash");
        const QString own = "/dev/shm/.Trash-%1"_s.arg(::getuid());
        row("no shared trash", -1, own);
        row("shared trash", 01777, "/dev/shm/.Trash/%1"_s.arg(::getuid()));
        row("shared trash without sticky bit", 0777, own);
        row("link in place of the shared trash", -2, own);
    }
    void otherFileSystem()
    {
        const auto [mode, trash] = zeltest::row<int, QString>();
        const QString shared = "/dev/shm/.Trash"_s;
        if (deviceOf("/dev/shm"_s) == deviceOf(QDir::homePath()) || ::access("/dev/shm", W_OK) != 0
            || isThere(shared) || isThere(trash))
            QSKIP("no second file system for this test");
        const QTemporaryDir folder("/dev/shm/zeltest-XXXXXX"_s);
        const QTemporaryDir elsewhere("/dev/shm/zeltest-XXXXXX"_s);
        if (mode >= 0)
            QVERIFY(::mkdir("/dev/shm/.Trash", 0700) == 0 && ::chmod("/dev/shm/.Trash", mode_t(mode)) == 0);
        else if (mode == -2)
            QVERIFY(::symlink(QFile::encodeName(elsewhere.path()).constData(), "/dev/shm/.Trash") == 0);
        const QString path = folder.filePath("letter ü.txt"_s);
        m_tree->write(path, "text");

        const Result gone = put(path);
        const QByteArray info = m_tree->read(gone.trashId);
        const bool wasThere = isThere(path);
        const Result back = restore(gone.trashId);
        QDir(trash).removeRecursively();
        if (mode != -1)
            ::remove("/dev/shm/.Trash");

        QCOMPARE(gone.logText, QString());
        QCOMPARE(gone.trashId, trash + "/info/letter ü.txt.trashinfo"_s);
        QVERIFY(!wasThere);
        QCOMPARE(pathOfInfo(info), QFile::encodeName(path.mid(int(qstrlen("/dev/shm/")))));
        QCOMPARE(back.logText, QString());
        QCOMPARE(m_tree->read(path), QByteArray("text"));
        QCOMPARE(QDir(elsewhere.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }

private:
    static bool isThere(const QString &path) // links count themselves
    {
        struct stat status = {};
        return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
    }
    static QString inTrash(const char *name = "")
    {
        return QDir::cleanPath(zel::paths::dataHome() + "/Trash/"_s + QString::fromUtf8(name));
    }
    static quint64 deviceOf(const QString &path)
    {
        struct stat status = {};
        return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_dev : 0;
    }

    std::unique_ptr<zeltest::TempTree> m_tree;
};

QTEST_GUILESS_MAIN(TrashTest)
#include "tst_trash.moc"

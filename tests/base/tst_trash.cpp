#include "base/paths.h"
#include "base/trash/trash.h"
#include "base/trash/trashinfo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace zel::trash;

namespace {

bool isThere(const QString &path) // links count themselves
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0;
}

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

QByteArray textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString homeTrash()
{
    return zel::paths::dataHome() + QStringLiteral("/Trash");
}

quint64 deviceOf(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_dev : 0;
}

} // namespace

Q_DECLARE_METATYPE(zel::trash::Outcome)

class TrashTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void pathsOfInfos_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("path");
        QTest::newRow("plain") << QByteArray("[Trash Info]\nPath=/a/b%20c\nDeletionDate=x\n")
                               << QByteArray("/a/b c");
        QTest::newRow("first counts") << QByteArray("[Trash Info]\nPath=a\nPath=b\n") << QByteArray("a");
        QTest::newRow("unknown keys, blanks, CR")
            << QByteArray("[Trash Info]\r\nX-A=1\r\nPath = a\r\n") << QByteArray("a");
        QTest::newRow("other group") << QByteArray("[Trash Info]\n[X]\nPath=a\n") << QByteArray();
        QTest::newRow("no group") << QByteArray("Path=a\n") << QByteArray();
        QTest::newRow("climbs out") << QByteArray("[Trash Info]\nPath=a/../../b\n") << QByteArray();
        QTest::newRow("climbs out, encoded") << QByteArray("[Trash Info]\nPath=%2e%2E/b\n") << QByteArray();
        QTest::newRow("NUL") << QByteArray("[Trash Info]\nPath=/a%00b\n") << QByteArray();
        QTest::newRow("empty") << QByteArray() << QByteArray();
    }
    void pathsOfInfos()
    {
        QFETCH(QByteArray, text);
        QTEST(pathOfInfo(text), "path");
    }

    void names_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("attempt");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("first") << QByteArray("a.txt") << 1 << QByteArray("a.txt");
        QTest::newRow("second") << QByteArray("a.txt") << 2 << QByteArray("a.2.txt");
        QTest::newRow("hidden") << QByteArray(".profile") << 2 << QByteArray(".profile.2");
        QTest::newRow("long") << QByteArray(60, 'x') + ".txt" << 12 << QByteArray(23, 'x') + ".12.txt";
        QTest::newRow("cut between characters") << QByteArray("x") + QByteArray("ä").repeated(30) << 1
                                                << QByteArray("x") + QByteArray("ä").repeated(14);
    }
    void names()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, attempt);
        QTEST(nameInTrash(name, attempt, 40), "expected");
    }

    void thereAndBack_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        QTest::newRow("file") << "letter.txt"
                              << "file";
        QTest::newRow("hard name") << QStringLiteral("50% [Trash] ü\n=;.txt") << "file";
        QTest::newRow("longest name") << QString(251, QLatin1Char('x')) + QStringLiteral(".odt") << "file";
        QTest::newRow("folder with contents") << "folder"
                                              << "folder";
        QTest::newRow("dangling link") << "dangling"
                                       << "link";
        QTest::newRow("link with a slash behind") << "link/"
                                                  << "link to folder";
        QTest::newRow("its folder is gone") << "a/b/letter.txt"
                                            << "folder gone";
    }
    void thereAndBack()
    {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        const QString path = m_folder->filePath(name);
        const QString bare = name.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
        const QString target = m_folder->filePath(QStringLiteral("target"));
        const bool isLink = kind.startsWith(QLatin1String("link"));
        const QString content = kind == QLatin1String("folder") ? path + QStringLiteral("/inside") : path;
        if (isLink)
            QVERIFY(
                ::symlink(QFile::encodeName(target).constData(), QFile::encodeName(bare).constData()) == 0);
        if (kind == QLatin1String("link to folder"))
            QVERIFY(QDir().mkdir(target));
        if (!isLink)
            write(content, "text");

        const Result gone = put(path);
        QCOMPARE(gone.logText, QString());
        QCOMPARE(gone.outcome, Outcome::Done);
        QCOMPARE(gone.path, path);
        QVERIFY(!isThere(bare));
        QCOMPARE(QFileInfo(gone.trashId).path(), homeTrash() + QStringLiteral("/info"));
        QCOMPARE(pathOfInfo(textOf(gone.trashId)), QFile::encodeName(bare));
        QCOMPARE(QFile::permissions(homeTrash()) & 0x0077, QFile::Permissions());
        if (kind == QLatin1String("folder gone"))
            QVERIFY(QDir(m_folder->filePath(QStringLiteral("a"))).removeRecursively());

        const Result back = restore(gone.trashId);
        QCOMPARE(back.logText, QString());
        QCOMPARE(back.outcome, Outcome::Done);
        QCOMPARE(back.path, bare);
        QVERIFY(!isThere(gone.trashId));
        if (isLink)
            QCOMPARE(QFile::symLinkTarget(bare), target);
        else
            QCOMPARE(textOf(content), QByteArray("text"));
        QCOMPARE(restore(gone.trashId).outcome, Outcome::Missing);
    }

    void oneNameManyTimes()
    {
        QStringList ids;
        for (int n = 0; n < 40; ++n) { // more than are counted in sequence
            const QString path = m_folder->filePath(QString::number(n) + QStringLiteral("/same.txt"));
            write(path, QByteArray::number(n));
            const Result gone = put(path);
            QCOMPARE(gone.outcome, Outcome::Done);
            ids.append(gone.trashId);
        }
        for (int n = 0; n < ids.size(); ++n) {
            QCOMPARE(restore(ids.at(n)).outcome, Outcome::Done);
            QCOMPARE(textOf(m_folder->filePath(QString::number(n) + QStringLiteral("/same.txt"))),
                QByteArray::number(n));
        }
    }

    // A file without an information file, left by a program that was killed, is not written over.
    void orphanInTheTrash()
    {
        const QString path = m_folder->filePath(QStringLiteral("orphan.txt"));
        const QString orphan = homeTrash() + QStringLiteral("/files/orphan.txt");
        write(orphan, "orphan");
        write(path, "new");
        const Result gone = put(path);
        QCOMPARE(gone.outcome, Outcome::Done);
        QCOMPARE(textOf(orphan), QByteArray("orphan"));
        QVERIFY(!isThere(homeTrash() + QStringLiteral("/info/orphan.txt.trashinfo")));
        QCOMPARE(restore(gone.trashId).outcome, Outcome::Done);
        QCOMPARE(textOf(path), QByteArray("new"));
    }

    void notPut_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<Outcome>("outcome");
        QTest::newRow("missing") << "/nowhere/at/all" << Outcome::Missing;
        QTest::newRow("root") << "/" << Outcome::Denied;
        QTest::newRow("relative") << "letter.txt" << Outcome::Denied;
        QTest::newRow("no name of a file")
            << QDir::homePath() + QStringLiteral("/a") + QChar(0xd800) << Outcome::Denied;
        QTest::newRow("climbing") << QDir::homePath() + QStringLiteral("/x/..") << Outcome::Denied;
        QTest::newRow("folder that the trash is in") << QDir::homePath() << Outcome::Denied;
        QTest::newRow("the trash") << homeTrash() << Outcome::Denied;
        QTest::newRow("in the trash") << homeTrash() + QStringLiteral("/files/orphan.txt") << Outcome::Denied;
        QTest::newRow("mount point") << "/proc" << Outcome::Denied;
    }
    void notPut()
    {
        QFETCH(QString, path);
        write(homeTrash() + QStringLiteral("/files/orphan.txt"), "x");
        const QStringList before = QDir(homeTrash() + QStringLiteral("/info")).entryList();
        const bool wasThere = isThere(path);
        const Result result = put(path);
        QTEST(result.outcome, "outcome");
        QVERIFY(result.trashId.isEmpty() && !result.logText.isEmpty());
        QCOMPARE(isThere(path), wasThere);
        QCOMPARE(QDir(homeTrash() + QStringLiteral("/info")).entryList(), before);
    }

    void neverOverSomethingElse()
    {
        const QString path = m_folder->filePath(QStringLiteral("letter.txt"));
        write(path, "old");
        const QString id = put(path).trashId;
        write(path, "new");
        const Result blocked = restore(id);
        QCOMPARE(blocked.outcome, Outcome::Exists);
        QCOMPARE(blocked.path, path);
        QCOMPARE(textOf(path), QByteArray("new"));
        QVERIFY(QFile::remove(path));
        QVERIFY(::symlink("nowhere", QFile::encodeName(path).constData()) == 0); // a dangling link counts too
        QCOMPARE(restore(id).outcome, Outcome::Exists);
        QVERIFY(QFile::remove(path));
        QCOMPARE(restore(id).outcome, Outcome::Done);
        QCOMPARE(textOf(path), QByteArray("old"));
    }

    void notRestored_data()
    {
        QTest::addColumn<QString>("id"); // $ is a folder made up by somebody, % the home trash
        QTest::addColumn<QByteArray>("info");
        QTest::addColumn<Outcome>("outcome");
        const QByteArray good = "[Trash Info]\nPath=$/back\n";
        QTest::newRow("folder that is no trash") << "$/info/f.trashinfo" << good << Outcome::Denied;
        QTest::newRow("looks like one")
            << QStringLiteral("$/.Trash-%1/info/f.trashinfo").arg(::getuid()) << good << Outcome::Denied;
        QTest::newRow("climbs") << "%/info/../info/f.trashinfo" << good << Outcome::Denied;
        QTest::newRow("below info") << "%/info/info/f.trashinfo" << good << Outcome::Denied;
        QTest::newRow("of no name") << "%/info/.trashinfo" << good << Outcome::Denied;
        QTest::newRow("no information file") << "%/info/f" << good << Outcome::Denied;
        QTest::newRow("relative path at home")
            << "%/info/f.trashinfo" << QByteArray("[Trash Info]\nPath=back\n") << Outcome::Failed;
        QTest::newRow("garbage") << "%/info/f.trashinfo" << QByteArray(70000, 'x') << Outcome::Denied;
        QTest::newRow("old folder is a file now")
            << "%/info/f.trashinfo" << QByteArray("[Trash Info]\nPath=/proc/version/back\n")
            << Outcome::Failed;
    }
    void notRestored()
    {
        QFETCH(QString, id);
        QFETCH(QByteArray, info);
        id.replace(QLatin1Char('$'), m_folder->path()).replace(QLatin1Char('%'), homeTrash());
        info.replace('$', QFile::encodeName(m_folder->path()));
        const QString trash = QFileInfo(QFileInfo(id).path()).path();
        write(QDir::cleanPath(id), info);
        write(trash + QStringLiteral("/files/f"), "text");
        const Result result = restore(id);
        QTEST(result.outcome, "outcome");
        QVERIFY(!result.logText.isEmpty());
        QVERIFY(!isThere(m_folder->filePath(QStringLiteral("back"))));
        QCOMPARE(textOf(trash + QStringLiteral("/files/f")), QByteArray("text"));
    }

    void linkInPlaceOfTheInfo()
    {
        const QString id = homeTrash() + QStringLiteral("/info/l.trashinfo");
        write(m_folder->filePath(QStringLiteral("fake")), "[Trash Info]\nPath=/tmp/x\n");
        write(homeTrash() + QStringLiteral("/files/l"), "text");
        QVERIFY(QFile::link(m_folder->filePath(QStringLiteral("fake")), id));
        QVERIFY(restore(id).outcome != Outcome::Done);
        QVERIFY(isThere(homeTrash() + QStringLiteral("/files/l")));
    }

    void otherFileSystem_data()
    {
        QTest::addColumn<int>("mode"); // of the shared trash; -1: none, -2: a link in its place
        QTest::addColumn<QString>("trash");
        const QString own = QStringLiteral("/dev/shm/.Trash-%1").arg(::getuid());
        QTest::newRow("no shared trash") << -1 << own;
        QTest::newRow("shared trash") << 01777 << QStringLiteral("/dev/shm/.Trash/%1").arg(::getuid());
        QTest::newRow("shared trash without sticky bit") << 0777 << own;
        QTest::newRow("link in place of the shared trash") << -2 << own;
    }
    void otherFileSystem()
    {
        QFETCH(int, mode);
        QFETCH(QString, trash);
        const QString shared = QStringLiteral("/dev/shm/.Trash");
        if (deviceOf(QStringLiteral("/dev/shm")) == deviceOf(QDir::homePath())
            || ::access("/dev/shm", W_OK) != 0 || isThere(shared) || isThere(trash))
            QSKIP("no second file system for this test");
        const QTemporaryDir folder(QStringLiteral("/dev/shm/zeltest-XXXXXX"));
        const QTemporaryDir elsewhere(QStringLiteral("/dev/shm/zeltest-XXXXXX"));
        if (mode >= 0)
            QVERIFY(::mkdir("/dev/shm/.Trash", 0700) == 0 && ::chmod("/dev/shm/.Trash", mode_t(mode)) == 0);
        else if (mode == -2)
            QVERIFY(::symlink(QFile::encodeName(elsewhere.path()).constData(), "/dev/shm/.Trash") == 0);
        const QString path = folder.filePath(QStringLiteral("letter ü.txt"));
        write(path, "text");

        const Result gone = put(path);
        const QByteArray info = textOf(gone.trashId);
        const bool wasThere = isThere(path);
        const Result back = restore(gone.trashId);
        QDir(trash).removeRecursively();
        if (mode != -1)
            ::remove("/dev/shm/.Trash");

        QCOMPARE(gone.logText, QString());
        QCOMPARE(gone.trashId, trash + QStringLiteral("/info/letter ü.txt.trashinfo"));
        QVERIFY(!wasThere);
        QCOMPARE(pathOfInfo(info), QFile::encodeName(path.mid(int(qstrlen("/dev/shm/")))));
        QCOMPARE(back.logText, QString());
        QCOMPARE(textOf(path), QByteArray("text"));
        QCOMPARE(QDir(elsewhere.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TrashTest)
#include "tst_trash.moc"

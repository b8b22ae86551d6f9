#include "drivefixture.h"
#include "service/drive/drivenames.h"

using namespace zel::service;

class TestNames : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void names_data()
    {
        const auto row = zeltest::table<QString, QString>("name", "result");
        row("empty", QString(), "invalidName");
        row("two dots", "..", "invalidName");
        row("slash", "a/b", "invalidName");
        row("NUL", "a"_s + QChar(0) + "b"_s, "invalidName");
        row("ours", ".zel-trash", "invalidName");
        row("lone surrogate", QString(QChar(0xd800)), "invalidName");
        row("256 bytes", QString(254, QLatin1Char('x')) + QChar(0xe4), "invalidName");
        row("255 bytes", QString(253, QLatin1Char('x')) + QChar(0xe4), "ok");
        row("hidden", ".profile", "ok");
        row("odd signs", " \\:*?\"<>|\n%1 ", "ok");
        row("beyond 16 bits", "\xf0\x9f\x93\x84 \xe6\x96\x87", "ok");
    }

    void names()
    {
        const auto [name, result] = zeltest::row<QString, QString>();
        DriveFixture f;
        const QString rootId = f.drive().rootId();
        QCOMPARE(outcome(f.drive().createFolder(rootId, "some"_s)), "ok"_s);
        const QString some = f.id("some");
        QCOMPARE(outcome(f.write(rootId, name, "content")), result);
        QCOMPARE(outcome(f.drive().createFolder(some, name)), result);
        QCOMPARE(outcome(f.drive().copy(some, rootId, name, DriveConflict::KeepBoth, {})),
            name.isEmpty() ? "ok"_s : result); // the original's name then
        const auto renamed = f.drive().rename(some, name);
        QCOMPARE(outcome(renamed), result == "ok"_s ? "exists"_s : result);
        const auto item = f.drive().resolve(name);
        QCOMPARE(item && !item->isFolder, result == "ok"_s);
        if (result == "ok"_s)
            QCOMPARE(f.content(item->id), QByteArray("content"));
    }

    void numbersNames_data()
    {
        const auto row = zeltest::table<QString, bool, QString>("name", "isFolder", "numbered");
        const QString wide = QString(100, QChar(0x6587)); // of three bytes each
        row("plain", "a.txt", false, "a (2).txt");
        row("folder", "v1.2", true, "v1.2 (2)");
        row("hidden", ".rc", false, ".rc (2)");
        row("sentence", "No. 5", false, "No. 5 (2)");
        row("too long", wide + ".txt"_s, false, wide.left(82) + " (2).txt"_s);
    }

    void numbersNames()
    {
        const auto [name, isFolder] = zeltest::row<QString, bool>();
        QTEST(numberedDriveName(name, 2, isFolder), "numbered");
    }
};

QTEST_GUILESS_MAIN(TestNames)
#include "tst_names.moc"

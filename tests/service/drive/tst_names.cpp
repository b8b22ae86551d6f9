#include "drivefixture.h"
#include "service/drive/drivenames.h"

using namespace zel::service;

class TestNames : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void names_data();
    void names();
    void numbersNames_data();
    void numbersNames();
};

void TestNames::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *label, const QString &name, const char *result) {
        QTest::newRow(label) << name << QString::fromLatin1(result);
    };
    row("empty", {}, "invalidName");
    row("two dots", QStringLiteral(".."), "invalidName");
    row("slash", QStringLiteral("a/b"), "invalidName");
    row("NUL", QStringLiteral("a") + QChar(0) + QStringLiteral("b"), "invalidName");
    row("ours", QStringLiteral(".zel-trash"), "invalidName");
    row("lone surrogate", QString(QChar(0xd800)), "invalidName");
    row("256 bytes", QString(254, QLatin1Char('x')) + QChar(0xe4), "invalidName");
    row("255 bytes", QString(253, QLatin1Char('x')) + QChar(0xe4), "ok");
    row("hidden", QStringLiteral(".profile"), "ok");
    row("odd signs", QStringLiteral(" \\:*?\"<>|\n%1 "), "ok");
    row("beyond 16 bits", QString::fromUtf8("\xf0\x9f\x93\x84 \xe6\x96\x87"), "ok");
}

void TestNames::names()
{
    QFETCH(QString, name);
    QFETCH(QString, result);
    DriveFixture f;
    const QString rootId = f.drive().rootId();
    QCOMPARE(outcome(f.drive().createFolder(rootId, QStringLiteral("some"))), QStringLiteral("ok"));
    const QString some = f.id("some");
    QCOMPARE(outcome(f.write(rootId, name, "content")), result);
    QCOMPARE(outcome(f.drive().createFolder(some, name)), result);
    QCOMPARE(outcome(f.drive().copy(some, rootId, name, DriveConflict::KeepBoth, {})),
        name.isEmpty() ? QStringLiteral("ok") : result); // the original's name then
    const auto renamed = f.drive().rename(some, name);
    QCOMPARE(outcome(renamed), result == QLatin1String("ok") ? QStringLiteral("exists") : result);
    const auto item = f.drive().resolve(name);
    QCOMPARE(item && !item->isFolder, result == QLatin1String("ok"));
    if (result == QLatin1String("ok"))
        QCOMPARE(f.content(item->id), QByteArray("content"));
}

void TestNames::numbersNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFolder");
    QTest::addColumn<QString>("numbered");
    const QString wide = QString(100, QChar(0x6587)); // of three bytes each
    QTest::newRow("plain") << QStringLiteral("a.txt") << false << QStringLiteral("a (2).txt");
    QTest::newRow("folder") << QStringLiteral("v1.2") << true << QStringLiteral("v1.2 (2)");
    QTest::newRow("hidden") << QStringLiteral(".rc") << false << QStringLiteral(".rc (2)");
    QTest::newRow("sentence") << QStringLiteral("No. 5") << false << QStringLiteral("No. 5 (2)");
    QTest::newRow("too long") << wide + QStringLiteral(".txt") << false
                              << wide.left(82) + QStringLiteral(" (2).txt");
}

void TestNames::numbersNames()
{
    QFETCH(QString, name);
    QFETCH(bool, isFolder);
    QTEST(numberedDriveName(name, 2, isFolder), "numbered");
}

QTEST_GUILESS_MAIN(TestNames)
#include "tst_names.moc"

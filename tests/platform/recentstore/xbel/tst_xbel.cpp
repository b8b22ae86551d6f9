// What the store makes of other programs' recently-used lists.
#include "xbelfixture.h"

#include "platform/impl/recentstore/xbel/fileurl.h"
#include "platform/impl/recentstore/xbel/isotime.h"
#include "platform/impl/recentstore/xbel/listfile.h"
#include "platform/impl/recentstore/xbel/xbelimporter.h"

using namespace zel::recent;
using namespace zel::recent::test;

class XbelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_data()
    {
        const auto row = zeltest::table<QString>("path");
        row("file:///a/b.txt", "/a/b.txt");
        row("file:///a%20b/%E6%96%87.txt", "/a b/文.txt");
        row("file://localhost/a", "/a");
        row(QString("file://"_s + QSysInfo::machineHostName() + "/a"_s), "/a");
        row("FILE:/a/./b//c/../d", "/a/b/d");
        row("file:///100%25", "/100%");
        row("file:///a?b", "/a?b");
        for (const char *bad : {"file://server/a", "http://x/a", "file:a", "file:", "", "/a", "file:///a#b",
                 "file:///a%2Fb", "file:///a%00", "file:///a%4", "file:///a%G1", "file:///a%E9", "file://"})
            row(bad, "");
    }
    void addresses() { QTEST(localPathOf(QString::fromUtf8(QTest::currentDataTag())), "path"); }

    void times_data()
    {
        const auto row = zeltest::table<qint64>("ms");
        row("2024-05-06T12:01:00Z", timeOf(1));
        row("2024-05-06T12:01:00.123456Z", timeOf(1) + 123);
        row("2024-05-06T12:01:00.5Z", timeOf(1) + 500);
        row("2024-05-06T14:01:00+02:00", timeOf(1));
        row("2024-02-29T00:00:00Z", qint64(1709164800000));
        for (const char *bad : {"", "Z", "2023-02-29T00:00:00Z", "2024-05-06T25:00:00Z",
                 "1850-01-01T00:00:00Z", "2024-05-06T12:01:00.xZ", "yesterday",
                 "9999999999999999999999999999999999999999999999999999999Z"})
            row(bad, qint64(0));
    }
    void times() { QTEST(parseIsoTime(QString::fromLatin1(QTest::currentDataTag())), "ms"); }

    void reading_data()
    {
        const auto bytes = zeltest::table<QByteArray, bool, QString>("data", "intact", "entries");
        const auto row = [&](const char *name, const QString &text, bool intact, const char *entries) {
            bytes(name, text.toUtf8(), intact, entries);
        };
        const QString a = good("/a", 1);
        const QString b = good("/b", 2);
        row("newest of three times",
            inList("<bookmark href=\"file:///a\" added=\"%1\" modified=\"%3\" visited=\"%2\"/>"_s.arg(
                isoOf(1), isoOf(2), isoOf(3))),
            true, "/a@3");
        row("a wrong clock's time is left out",
            inList("<bookmark href=\"file:///a\" added=\"%1\" modified=\"2999-01-01T00:00:00Z\"/>"_s.arg(
                isoOf(1))),
            true, "/a@1");
        row("only wrong clocks: the file's",
            inList("<bookmark href=\"file:///a\" added=\"2024-05-08T12:00:00Z\""
                   " modified=\"2999-01-01T00:00:00Z\"/>"_s),
            true, "/a@0?");
        row("no times: the file's", inList("<bookmark href=\"file:///a\"/>"_s), true, "/a@0?");
        row("private", inList(good("/a", 1, "<bookmark:private/>"_s) + b), true, "/a@1!;/b@2");
        row("folder left out", inList(QString(a).replace("text/plain"_s, "inode/directory"_s) + b), true,
            "/b@2");
        row("private of another's metadata",
            inList(QString(a).replace("owner=\"http://freedesktop.org\""_s, "owner=\"http://other\""_s)),
            true, "/a@1");
        row("undeclared prefixes", "<xbel>"_s + a + "</xbel>"_s, true, "/a@1");
        row("cut off inside the second", inList(a + b).left(inList(a).size() + 40), false, "/a@1");
        row("wrong nesting", inList(a + "<bookmark href=\"file:///x\"></info>"_s + b), false, "/a@1");
        row("second root", inList(a) + inList(b), false, "/a@1");
        row("wrong root", "<html>"_s + a + "</html>"_s, false, "");
        row("empty file", QString(), false, "");
        row("unknown entity", inList(a + "<bookmark href=\"file:///&nope;\"/>"_s + b), false, "/a@1");
        row("deep nesting", inList(a + "<x>"_s.repeated(100000)), false, "/a@1");
        row("an address of ten megabytes",
            inList(a + "<bookmark href=\"file:///%1\"/>"_s.arg(QString(10 << 20, QLatin1Char('x'))) + b),
            true, "/a@1;/b@2");
        row("a path longer than paths are",
            inList(good(QByteArray(5000, 'x').prepend('/').constData(), 1) + b), true, "/b@2");
        bytes("entity bomb", bomb(), false, {});
        // The parser decodes in blocks, so what stands in the same one is lost.
        const QString block = "<!--%1-->"_s.arg(QString(10000, QLatin1Char(' ')));
        bytes("not UTF-8", inList(a + block + b).toUtf8().replace("file:///b", "file:///\xff\xfe"), false,
            "/a@1");
        QByteArray latin = inList(good("/a", 1)).toLatin1();
        latin.replace("UTF-8", "ISO-8859-1").replace("file:///a", "file:///\xe4");
        bytes("Latin-1 as declared", latin, true, "/ä@1");
        bytes("zero bytes", inList(a).toUtf8() + QByteArray(100, '\0'), false, "/a@1");
    }
    void reading()
    {
        QFETCH(QByteArray, data);
        const Outcome outcome = readAll(data);
        QTEST(outcome.entries, "entries");
        QTEST(outcome.intact, "intact");
        QCOMPARE(outcome.problem.isEmpty(), outcome.intact);
        QVERIFY2(!outcome.problem.contains(QLatin1Char('/')), qPrintable(outcome.problem));
    }

    void limits_data()
    {
        const auto row = zeltest::table<QByteArray>("data");
        const QString a = good("/a", 1);
        const QString filler(100000, QLatin1Char('<'));
        row("comment", inList(a + "<!--"_s + filler + "-->"_s).toUtf8());
        row("text", inList(a + QString(100000, QLatin1Char('x'))).toUtf8());
        row("attribute", inList(a + "<t u=\"%1\"/>"_s.arg(QString(100000, QLatin1Char('x')))).toUtf8());
        row("whole", inList(a + "<t/>"_s.repeated(60000)).toUtf8());
        row("entries", inList(a + good("/b", 1) + good("/c", 1)).toUtf8());
    }
    void limits()
    {
        QFETCH(QByteArray, data);
        XbelLimits limits;
        limits.tokenBytes = 20000;
        limits.bytes = 200000;
        limits.entries = 2;
        const Outcome outcome = readAll(data, limits);
        QVERIFY(!outcome.intact);
        QVERIFY2(outcome.problem.startsWith("too "_s), qPrintable(outcome.problem));
        QVERIFY(outcome.entries.startsWith("/a@1"_s));
    }

    void onlyRegularFilesAreOpened()
    {
        Home home;
        QFile file;
        FileStamp stamp;
        QCOMPARE(openListFile(home.path("none"_s), file, stamp), ListFileState::Missing);
        QCOMPARE(openListFile(home.path(), file, stamp), ListFileState::Unusable);
        const QString pipe = home.path("pipe"_s);
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(
            openListFile(pipe, file, stamp), ListFileState::Unusable); // would wait for a writer for ever
    }

    void clearedLists_data()
    {
        const auto row = zeltest::table<int, QString>("patience", "says");
        row("removed", 0, "0 ");
        row("emptied", 0, "0 ");
        row("emptied, nobody looks", 50, "0 ");
        row("emptied, soon written anew", 100000, "1 /b");
        row("leads nowhere", 0, "1 /b");
        row("its folder is away", 0, "1 /b");
    }
    void clearedLists()
    {
        const QByteArray what = QTest::currentDataTag();
        QFETCH(int, patience);
        Home home({{"/a"_s, 1}});
        const QString list = home.places.desktopList;
        XbelImporter importer(
            home.places, {{DesktopSourceName, *stampOf(list)}}, nullptr, std::chrono::milliseconds(patience));
        QStringList said;
        connect(&importer, &XbelImporter::imported, this, [&said](const XbelImport &import) {
            said << "%1 %2"_s.arg(import.entries.size()).arg(import.entries.value(0).path);
        });
        if (what.startsWith("emptied"))
            QVERIFY(replaceFile(list, {}));
        else if (what == "its folder is away")
            QVERIFY(QDir(home.path("data"_s)).removeRecursively());
        else
            QVERIFY(QFile::remove(list));
        if (what == "leads nowhere")
            QVERIFY(QFile::link(home.path("none"_s), list));
        importer.scan();
        if (patience != 50 && said.isEmpty()) { // it has not been cleared so far
            QFile::remove(list);
            QVERIFY(home.setDesktop({{"/b"_s, 1}}));
            importer.scan();
        }
        QTRY_COMPARE(said.size(), 1);
        QTEST(said.constFirst(), "says");
    }

private:
    static QByteArray bomb()
    {
        QByteArray text("<?xml version=\"1.0\"?><!DOCTYPE xbel [<!ENTITY a0 \"xxxxxxxxxx\">");
        for (int i = 1; i < 10; ++i) {
            const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
            text += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
        }
        return text + "]><xbel><bookmark href=\"file:///a\"><title>&a9;</title></bookmark></xbel>";
    }
};

QTEST_GUILESS_MAIN(XbelTest)
#include "tst_xbel.moc"

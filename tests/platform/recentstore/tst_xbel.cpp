// What the store makes of other programs' recently-used lists, and what it writes into the desktop's.
#include "recentfixture.h"

#include "platform/impl/recentstore/fileurl.h"
#include "platform/impl/recentstore/isotime.h"
#include "platform/impl/recentstore/listfile.h"
#include "platform/impl/recentstore/xbelreader.h"
#include "platform/impl/recentstore/xbelwriter.h"

#include <QBuffer>
#include <QTest>

#include <glib.h>
#include <sys/stat.h>

Q_DECLARE_METATYPE(zel::recent::XbelEditResult)

using namespace zel::recent;
using namespace zel::recent::test;

namespace {

struct Outcome
{
    bool intact = false;
    QString entries; ///< "path@minute;…", "!" behind private ones
    QString problem;
};

Outcome readAll(const QByteArray &data, const XbelLimits &limits = {})
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    XbelReader reader(buffer, timeOf(24 * 60), limits);
    while (reader.read(7) == XbelReader::State::Reading) { }
    QStringList texts;
    for (const XbelEntry &entry : reader.takeEntries()) {
        const qint64 minute = entry.time ? (entry.time - timeOf(0)) / 60'000 : -1;
        texts.append(entry.path + QLatin1Char('@') + QString::number(minute)
            + (entry.isPrivate ? QStringLiteral("!") : QString()));
    }
    return {reader.read(0) == XbelReader::State::Intact, texts.join(QLatin1Char(';')), reader.problem()};
}

QString good(const char *path, int minute, const QString &extra = {})
{
    return bookmarkText({QString::fromUtf8(path), minute, extra});
}

QByteArray bomb()
{
    QByteArray text("<?xml version=\"1.0\"?><!DOCTYPE xbel [<!ENTITY a0 \"xxxxxxxxxx\">");
    for (int i = 1; i < 10; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
        text += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    return text + "]><xbel><bookmark href=\"file:///a\"><title>&a9;</title></bookmark></xbel>";
}

QStringList uris(const QByteArray &data)
{
    GBookmarkFile *bookmarks = g_bookmark_file_new();
    QStringList result;
    if (g_bookmark_file_load_from_data(bookmarks, data.constData(), gsize(data.size()), nullptr)) {
        gchar **all = g_bookmark_file_get_uris(bookmarks, nullptr);
        for (gchar **one = all; *one; ++one)
            result.append(QString::fromUtf8(*one));
        g_strfreev(all);
    }
    g_bookmark_file_free(bookmarks);
    result.sort();
    return result;
}

} // namespace

class XbelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("file:///a/b.txt") << "/a/b.txt";
        QTest::newRow("file:///a%20b/%E6%96%87.txt") << QString::fromUtf8("/a b/文.txt");
        QTest::newRow("file://localhost/a") << "/a";
        QTest::newRow("FILE:/a/./b//c/../d") << "/a/b/d";
        QTest::newRow("file:///100%25") << "/100%";
        QTest::newRow("file:///a?b") << "/a?b";
        for (const char *bad : {"file://server/a", "http://x/a", "file:a", "file:", "", "/a", "file:///a#b",
                 "file:///a%2Fb", "file:///a%00", "file:///a%4", "file:///a%G1", "file:///a%E9", "file://"})
            QTest::newRow(bad) << "";
    }
    void addresses()
    {
        QFETCH(QString, path);
        QCOMPARE(localPathOf(QString::fromUtf8(QTest::currentDataTag())), path);
    }

    void times_data()
    {
        QTest::addColumn<qint64>("ms");
        QTest::newRow("2024-05-06T12:01:00Z") << timeOf(1);
        QTest::newRow("2024-05-06T12:01:00.123456Z") << timeOf(1) + 123;
        QTest::newRow("2024-05-06T12:01:00.5Z") << timeOf(1) + 500;
        QTest::newRow("2024-05-06T14:01:00+02:00") << timeOf(1);
        QTest::newRow("2024-02-29T00:00:00Z") << qint64(1709164800000);
        for (const char *bad : {"", "Z", "2023-02-29T00:00:00Z", "2024-05-06T25:00:00Z",
                 "1850-01-01T00:00:00Z", "2024-05-06T12:01:00.xZ", "yesterday",
                 "9999999999999999999999999999999999999999999999999999999Z"})
            QTest::newRow(bad) << qint64(0);
    }
    void times()
    {
        QFETCH(qint64, ms);
        QCOMPARE(parseIsoTime(QString::fromLatin1(QTest::currentDataTag())), ms);
    }

    void reading_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<bool>("intact");
        QTest::addColumn<QString>("entries");
        const auto row = [](const char *name, const QString &text, bool intact, const char *entries) {
            QTest::newRow(name) << text.toUtf8() << intact << QString::fromUtf8(entries);
        };
        const QString a = good("/a", 1);
        const QString b = good("/b", 2);
        row("two", inList(a + b), true, "/a@1;/b@2");
        row("empty list", inList(QString()), true, "");
        row("unicode, blank, percent", inList(good("/ü b/100%.txt", 3)), true, "/ü b/100%.txt@3");
        row("newest of three times",
            inList(
                QStringLiteral("<bookmark href=\"file:///a\" added=\"%1\" modified=\"%3\" visited=\"%2\"/>")
                    .arg(isoOf(1), isoOf(2), isoOf(3))),
            true, "/a@3");
        row("a wrong clock's time is left out",
            inList(QStringLiteral(
                "<bookmark href=\"file:///a\" added=\"%1\" modified=\"2999-01-01T00:00:00Z\"/>")
                       .arg(isoOf(1))),
            true, "/a@1");
        row("no times", inList(QStringLiteral("<bookmark href=\"file:///a\"/>")), true, "/a@-1");
        row("private", inList(good("/a", 1, QStringLiteral("<bookmark:private/>")) + b), true, "/a@1!;/b@2");
        row("folder left out",
            inList(QString(a).replace(QLatin1String("text/plain"), QLatin1String("inode/directory")) + b),
            true, "/b@2");
        row("remote left out",
            inList(QString(a).replace(QLatin1String("file://"), QLatin1String("smb://x")) + b), true, "/b@2");
        row("private of another's metadata",
            inList(QString(a).replace(
                QLatin1String("owner=\"http://freedesktop.org\""), QLatin1String("owner=\"http://other\""))),
            true, "/a@1");
        row("undeclared prefixes", QStringLiteral("<xbel>") + a + QStringLiteral("</xbel>"), true, "/a@1");
        row("outer document type",
            QStringLiteral("<!DOCTYPE xbel PUBLIC \"+//X\" \"http://x/xbel.dtd\"><xbel>") + a
                + QStringLiteral("</xbel>"),
            true, "/a@1");
        row("cut off inside the second", inList(a + b).left(inList(a).size() + 40), false, "/a@1");
        row("cut off between", inList(a).chopped(9), false, "/a@1");
        row("wrong nesting", inList(a + QStringLiteral("<bookmark href=\"file:///x\"></info>") + b), false,
            "/a@1");
        row("second root", inList(a) + inList(b), false, "/a@1");
        row("wrong root", QStringLiteral("<html>") + a + QStringLiteral("</html>"), false, "");
        row("no XML", QStringLiteral("hello"), false, "");
        row("empty file", QString(), false, "");
        row("unknown entity", inList(a + QStringLiteral("<bookmark href=\"file:///&nope;\"/>") + b), false,
            "/a@1");
        row("deep nesting", inList(a + QStringLiteral("<x>").repeated(100'000)), false, "/a@1");
        row("an address of ten megabytes",
            inList(a
                + QStringLiteral("<bookmark href=\"file:///%1\"/>").arg(QString(10 << 20, QLatin1Char('x')))
                + b),
            true, "/a@1;/b@2");
        row("a path longer than paths are",
            inList(good(QByteArray(5000, 'x').prepend('/').constData(), 1) + b), true, "/b@2");
        QTest::newRow("entity bomb") << bomb() << false << QString();
        // The parser decodes in blocks, so what stands in the same one is lost.
        const QString block = QStringLiteral("<!--%1-->").arg(QString(10'000, QLatin1Char(' ')));
        QTest::newRow("not UTF-8") << inList(a + block + b).toUtf8().replace("file:///b", "file:///\xff\xfe")
                                   << false << "/a@1";
        QByteArray latin = inList(good("/a", 1)).toLatin1();
        latin.replace("UTF-8", "ISO-8859-1").replace("file:///a", "file:///\xe4");
        QTest::newRow("Latin-1 as declared") << latin << true << QString::fromUtf8("/ä@1");
        QTest::newRow("zero bytes") << inList(a).toUtf8() + QByteArray(100, '\0') << false << "/a@1";
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
        QTest::addColumn<QByteArray>("data");
        const QString a = good("/a", 1);
        const QString filler(100'000, QLatin1Char('<'));
        QTest::newRow("comment")
            << inList(a + QStringLiteral("<!--") + filler + QStringLiteral("-->")).toUtf8();
        QTest::newRow("text") << inList(a + QString(100'000, QLatin1Char('x'))).toUtf8();
        QTest::newRow("attribute")
            << inList(a + QStringLiteral("<t u=\"%1\"/>").arg(QString(100'000, QLatin1Char('x')))).toUtf8();
        QTest::newRow("whole") << inList(a + QStringLiteral("<t/>").repeated(60'000)).toUtf8();
        QTest::newRow("entries") << inList(a + good("/b", 1) + good("/c", 1)).toUtf8();
    }
    void limits()
    {
        QFETCH(QByteArray, data);
        XbelLimits limits;
        limits.tokenBytes = 20'000;
        limits.bytes = 200'000;
        limits.entries = 2;
        const Outcome outcome = readAll(data, limits);
        QVERIFY(!outcome.intact);
        QVERIFY2(outcome.problem.startsWith(QLatin1String("too ")), qPrintable(outcome.problem));
        QVERIFY(outcome.entries.startsWith(QLatin1String("/a@1")));
    }

    void onlyRegularFilesAreOpened()
    {
        Home home;
        QFile file;
        FileStamp stamp;
        QCOMPARE(openListFile(home.path(QStringLiteral("none")), file, stamp), ListFileState::Missing);
        QCOMPARE(openListFile(home.folder.path(), file, stamp), ListFileState::Unusable);
        const QString pipe = home.path(QStringLiteral("pipe"));
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(
            openListFile(pipe, file, stamp), ListFileState::Unusable); // would wait for a writer for ever
    }

    void writingKeepsForeignBookmarks()
    {
        Home home;
        const QString file = home.places.desktopList;
        const QString secret =
            QStringLiteral("<bookmark:groups><bookmark:group>G</bookmark:group></bookmark:groups>"
                           "<bookmark:private/>");
        QVERIFY(home.setDesktop(
            {{QStringLiteral("/x/a.txt"), 1, secret}, {QStringLiteral("/x/(b) ü.txt"), 2, {}}}));
        QFile::setPermissions(file, QFile::permissions(file) | QFileDevice::ReadOther);
        const QString fresh = QStringLiteral("/x/new & <ü>.txt");
        const XbelEdit edit{{{QStringLiteral("/x/(b) ü.txt"), QStringLiteral("text/csv"), timeOf(9) + 123},
                                {fresh, QString(), timeOf(8)}},
            {}};
        QCOMPARE(editXbel(file, edit), XbelEditResult::Written);
        QCOMPARE(readAll(contentOf(file)).entries,
            QStringLiteral("/x/a.txt@1!;/x/(b) ü.txt@9;/x/new & <ü>.txt@8"));
        QCOMPARE(int(QFile::permissions(file) & ~(QFileDevice::ReadUser | QFileDevice::WriteUser)),
            int(QFileDevice::ReadOwner | QFileDevice::WriteOwner));

        GBookmarkFile *bookmarks = g_bookmark_file_new();
        QVERIFY(g_bookmark_file_load_from_file(bookmarks, QFile::encodeName(file).constData(), nullptr));
        QCOMPARE(
            g_bookmark_file_get_size(bookmarks), 3); // the known one was found in spite of its other encoding
        const char *first = "file:///x/a.txt";
        QVERIFY(g_bookmark_file_has_group(bookmarks, first, "G", nullptr));
        QVERIFY(g_bookmark_file_has_application(bookmarks, first, "Writer", nullptr));
        QVERIFY(!g_bookmark_file_has_application(bookmarks, first, ApplicationName, nullptr));
        gchar *made = g_filename_to_uri(QFile::encodeName(fresh).constData(), nullptr, nullptr);
        gchar *exec = nullptr;
        guint count = 0;
        QVERIFY(g_bookmark_file_get_application_info(
            bookmarks, made, ApplicationName, &exec, &count, nullptr, nullptr));
        QCOMPARE(QByteArray(exec), QByteArray("zelbox ") + made);
        QCOMPARE(count, 1U);
        g_free(exec);
        g_free(made);
        g_bookmark_file_free(bookmarks);
    }

    void writing_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<XbelEditResult>("result");
        QTest::newRow("missing") << QByteArray() << XbelEditResult::Written;
        QTest::newRow("empty") << QByteArray("") << XbelEditResult::Written;
        QTest::newRow("no list") << QByteArray("notes of mine") << XbelEditResult::Damaged;
        QTest::newRow("cut off") << listText({{QStringLiteral("/a"), 1, {}}}).chopped(20)
                                 << XbelEditResult::Damaged;
        QTest::newRow("good") << listText({{QStringLiteral("/a"), 1, {}}}) << XbelEditResult::Written;
    }
    void writing()
    {
        QFETCH(QByteArray, before);
        QFETCH(XbelEditResult, result);
        Home home;
        const QString file = home.places.desktopList;
        if (!before.isNull())
            QVERIFY(replaceFile(file, before));
        const XbelEdit edit{{{QStringLiteral("/n"), QStringLiteral("text/plain"), timeOf(5)}}, {}};
        QCOMPARE(editXbel(file, edit), result);
        if (result == XbelEditResult::Damaged)
            QCOMPARE(contentOf(file), before);
        else
            QVERIFY(uris(contentOf(file)).contains(QStringLiteral("file:///n")));
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files).size(), 1); // nothing left behind
    }

    void aChangeMeanwhileIsNotLost()
    {
        Home home;
        QVERIFY(home.setDesktop({{QStringLiteral("/a"), 1, {}}}));
        int calls = 0;
        const auto result = editXbel(home.places.desktopList,
            {{{QStringLiteral("/n"), QStringLiteral("text/plain"), timeOf(5)}}, {QStringLiteral("/a")}}, [&] {
                if (++calls == 1)
                    home.setDesktop({{QStringLiteral("/a"), 1, {}}, {QStringLiteral("/other"), 2, {}}});
            });
        QCOMPARE(result, XbelEditResult::Written);
        QCOMPARE(calls, 2);
        QCOMPARE(uris(contentOf(home.places.desktopList)),
            (QStringList{QStringLiteral("file:///n"), QStringLiteral("file:///other")}));
    }

    void nothingToRemoveWritesNothing()
    {
        Home home;
        QVERIFY(home.setDesktop({{QStringLiteral("/a"), 1, {}}}));
        const auto before = stampOf(home.places.desktopList);
        QCOMPARE(editXbel(home.places.desktopList, {{}, {QStringLiteral("/b")}}), XbelEditResult::Unchanged);
        QCOMPARE(stampOf(home.places.desktopList), before);
    }
};

QTEST_GUILESS_MAIN(XbelTest)
#include "tst_xbel.moc"

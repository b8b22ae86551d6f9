// What the store writes into the desktop's recently-used list, and what desktop programs make of it.
#include "xbelfixture.h"

#include "platform/impl/recentstore/xbel/listfile.h"
#include "platform/impl/recentstore/xbel/xbelwriter.h"

#include <QRandomGenerator>
#include <QTest>

#include <glib.h>

Q_DECLARE_METATYPE(zel::recent::XbelEditResult)

using namespace zel::recent;
using namespace zel::recent::test;

namespace {

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

class XbelEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    // The box's own part taken out again leaves byte for byte what other programs wrote.
    void foreignBytesStay_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("readable"); ///< by desktop programs
        const QString a = good("/a", 1);
        const QString n = good("/n", 1, QStringLiteral("<bookmark:groups/><bookmark:private/>"));
        const auto row = [&](const char *name, const QString &bookmarks, bool readable) {
            QTest::newRow(name) << inList(bookmarks) << readable;
        };
        row("comments and odd white space", QStringLiteral("<!-- <bookmark> -->\r\n\t") + a, true);
        row("bare", QStringLiteral("<bookmark href='file:///a'  />\n<bookmark href='http://x/&amp;'/>"),
            true);
        row("foreign metadata",
            QStringLiteral("<bookmark href='file:///a'><info><metadata owner='http://x'>"
                           "<x:deep><y z='&lt;'>ü</y></x:deep></metadata></info></bookmark>"),
            false);
        row("folder", QStringLiteral("<folder id='f'><title>F</title><bookmark href='file:///n'/></folder>"),
            false);
        row("unknown elements",
            QStringLiteral("<info><metadata owner='o'/></info><x><![CDATA[</xbel>]]></x>"), false);
        QTest::newRow("closed at once") << QStringLiteral("<xbel version='1.0'/>") << true;
        QTest::newRow("no line ends, no declarations")
            << QStringLiteral("<xbel version='1.0'>%1</xbel><!--e-->").arg(a.trimmed()) << false;
        QTest::newRow("other prefixes")
            << inList(a)
                   .replace(QLatin1String("bookmark:"), QLatin1String("b:"))
                   .replace(QLatin1String("mime:"), QLatin1String("m:"))
                   .replace(QLatin1String("xmlns:bookmark"), QLatin1String("xmlns:b"))
                   .replace(QLatin1String("xmlns:mime"), QLatin1String("xmlns:m"))
            << true;
        QTest::newRow("document type, byte order mark") << QChar(QChar::ByteOrderMark)
                + QStringLiteral(
                    "<!DOCTYPE xbel PUBLIC \"+//X\" \"http://x/xbel.dtd\">\n<xbel version='1.0'>")
                + a + QStringLiteral("</xbel>\n") << false;
    }
    void foreignBytesStay()
    {
        QFETCH(QString, before);
        QFETCH(bool, readable);
        const QByteArray original = before.toUtf8();
        QByteArray data = original;
        const QStringList fresh{QStringLiteral("/n"), QStringLiteral("/x'&\"<m")};
        QCOMPARE(
            editXbelText(data,
                {{{fresh.at(0), QStringLiteral("x/n"), timeOf(5)}, {fresh.at(1), QString(), timeOf(6)}}, {}}),
            XbelEditResult::Written);
        const Outcome outcome = readAll(data);
        QVERIFY2(outcome.intact, data.constData());
        QVERIFY(outcome.entries.endsWith(QStringLiteral("/n@5;/x'&\"<m@6")));
        // What desktop programs refuse for other reasons they refused before.
        QVERIFY2(readable ? uris(data).contains(QStringLiteral("file:///n")) : uris(original).isEmpty(),
            data.constData());
        QByteArray again = data;
        QCOMPARE(editXbelText(again, {{}, fresh}), XbelEditResult::Written);
        const auto bare = [](QByteArray text) { // an element closed at once had to be opened
            return text.replace(" />", "/>").replace("'/>", "'></xbel>").replace("\n", "");
        };
        if (before.endsWith(QLatin1String("'/>")))
            QCOMPARE(bare(again), bare(original));
        else
            QCOMPARE(
                again.replace("\n</xbel>", "</xbel>"), QByteArray(original).replace("\n</xbel>", "</xbel>"));
    }

    void knownBookmarks_data()
    {
        QTest::addColumn<QString>("bookmark");
        QTest::addColumn<QStringList>("kept");
        const QString open =
            QStringLiteral("<bookmark href=\"file:///k%20k\" added=\"2020-01-01T00:00:00Z\"");
        const QString desk = QStringLiteral("<metadata owner='http://freedesktop.org'>");
        const auto row = [&](const char *name, const QString &rest, const QStringList &kept) {
            QTest::newRow(name) << open + rest << kept + QStringList{QStringLiteral("2020-01-01")};
        };
        const QString title = QStringLiteral("<title>T &amp; t</title>");
        row("bare", QStringLiteral(" />"), {});
        row("title", QStringLiteral(">") + title + QStringLiteral("<desc>d</desc></bookmark>"),
            {title, QStringLiteral("<desc>d</desc>")});
        row("foreign metadata only",
            QStringLiteral("><info><metadata owner='x'><q/></metadata></info></bookmark>"),
            {QStringLiteral("<metadata owner='x'><q/></metadata>")});
        row("empty metadata",
            QStringLiteral("><info>") + QString(desk).replace(QLatin1String(">"), QLatin1String("/>"))
                + QStringLiteral("</info></bookmark>"),
            {});
        row("no applications",
            QStringLiteral("><info>") + desk
                + QStringLiteral("<mime:mime-type type='x/y'/></metadata></info></bookmark>"),
            {QStringLiteral("type='x/y'")});
        row("empty applications",
            QStringLiteral("><info>") + desk
                + QStringLiteral("<bookmark:applications/></metadata></info></bookmark>"),
            {});
        const QString other = QStringLiteral("<bookmark:application name='W' exec='&apos;w %u&apos;' "
                                             "modified='2020-01-01T00:00:00Z' count='3'/>");
        const QString rest = QStringLiteral(
            "<bookmark:groups><bookmark:group>G</bookmark:group></bookmark:groups><bookmark:private/>");
        row("another's",
            QStringLiteral("><info>") + desk + QStringLiteral("<bookmark:applications>") + other
                + QStringLiteral("</bookmark:applications>") + rest
                + QStringLiteral("</metadata></info></bookmark>"),
            {other, rest});
        row("ours, old",
            QStringLiteral(" visited = '2020-01-01T00:00:00Z' modified=''><info>") + desk
                + QStringLiteral("<bookmark:applications>") + other
                + QStringLiteral("<bookmark:application count=\"4\" name='ZEL Box' "
                                 "exec=''/></bookmark:applications></metadata></info></bookmark>"),
            {other, QStringLiteral("count=\"5\"")});
    }
    void knownBookmarks()
    {
        QFETCH(QString, bookmark);
        QFETCH(QStringList, kept);
        QByteArray data = inList(bookmark + good("/other", 3)).toUtf8();
        const QString path = QStringLiteral("/k k");
        QCOMPARE(
            editXbelText(data, {{{path, QStringLiteral("x/y"), timeOf(5)}}, {}}), XbelEditResult::Written);
        for (const QString &text : kept)
            QVERIFY2(data.contains(text.toUtf8()), data.constData());
        const QString entries = readAll(data).entries;
        QVERIFY2(entries.startsWith(QLatin1String("/k k@5")) && entries.endsWith(QLatin1String(";/other@3")),
            data.constData());
        QCOMPARE(data.count("name=\"ZEL Box\"") + data.count("name='ZEL Box'"), 1);
        GBookmarkFile *bookmarks = g_bookmark_file_new();
        const bool read =
            g_bookmark_file_load_from_data(bookmarks, data.constData(), gsize(data.size()), nullptr);
        const char *uri = "file:///k%20k";
        const bool ours = read && g_bookmark_file_has_application(bookmarks, uri, ApplicationName, nullptr);
        g_bookmark_file_free(bookmarks);
        QVERIFY2(ours || bookmark.contains(QLatin1String("<q/>")), data.constData()); // which they refuse
        QCOMPARE(editXbelText(data, {{}, {path}}), XbelEditResult::Written);
        QCOMPARE(data, inList(good("/other", 3)).toUtf8());
    }

    // Desktop programs find a bookmark by its address.
    void addressesAsDesktopProgramsWriteThem()
    {
        QString path = QStringLiteral("/ü");
        for (char c = ' '; c < 127; ++c)
            path += QLatin1Char(c);
        path = QDir::cleanPath(path);
        QByteArray data;
        QCOMPARE(editXbelText(data, {{{path, QString(), timeOf(5)}}, {}}), XbelEditResult::Written);
        gchar *made = g_filename_to_uri(path.toUtf8().constData(), nullptr, nullptr);
        QCOMPARE(uris(data), QStringList{QString::fromLatin1(made)});
        g_free(made);
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
        const QByteArray list = listText({{QStringLiteral("/ä"), 1, {}}});
        QTest::newRow("zero bytes") << list + QByteArray(9, '\0') << XbelEditResult::Damaged;
        QTest::newRow("too deep") << inList(QStringLiteral("<x>").repeated(5000)).toUtf8()
                                  << XbelEditResult::Damaged;
        QTest::newRow("not UTF-8") << QByteArray(list).replace("Writer", "\xe4")
                                   << XbelEditResult::Unsupported;
        QTest::newRow("other encoding")
            << QByteArray(list).replace("UTF-8", "ISO-8859-1") << XbelEditResult::Unsupported;
        QTest::newRow("entities") << QByteArray(
            "<!DOCTYPE xbel [<!ENTITY b '<bookmark href=\"file:///n\"/>'>]><xbel>&b;</xbel>")
                                  << XbelEditResult::Unsupported;
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
        if (result != XbelEditResult::Written)
            QCOMPARE(contentOf(file), before);
        else
            QVERIFY(uris(contentOf(file)).contains(QStringLiteral("file:///n")));
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files).size(), 1); // nothing left behind
    }

    // Whatever stands there: what comes out is well-formed, or it is left alone.
    void randomDamage()
    {
        const QByteArray list = listText({{QStringLiteral("/a"), 1, QStringLiteral("<!-- x -->")},
            {QStringLiteral("/ä"), 2, QStringLiteral("<x y='>'/>")}, {QStringLiteral("/c"), 3, {}}});
        const XbelEdit edit{{{QStringLiteral("/a"), QStringLiteral("x/y"), timeOf(5)},
                                {QStringLiteral("/n"), QStringLiteral("x/y"), timeOf(6)}},
            {QStringLiteral("/c")}};
        const QByteArray letters("<>/'\"=& \n:!-[]x\0\xc3", 17);
        QRandomGenerator random(815);
        int written = 0;
        for (int round = 0; round < 4000; ++round) {
            QByteArray damaged = list;
            for (int i = random.bounded(3); i >= 0; --i) {
                const int at = random.bounded(damaged.size());
                const QByteArray letter(1, letters.at(random.bounded(letters.size())));
                damaged.replace(at, random.bounded(3), random.bounded(2) ? letter : QByteArray());
            }
            QByteArray data = damaged;
            const bool wrote = editXbelText(data, edit) == XbelEditResult::Written;
            written += wrote;
            if (wrote)
                QVERIFY2(readAll(data).intact, damaged.constData());
            else
                QCOMPARE(data, damaged);
        }
        QVERIFY(written > 100 && written < 3900); // both happened
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
        QByteArray remote = inList(QStringLiteral("<bookmark href=\"http://x/\"/>")).toUtf8();
        QCOMPARE(
            editXbelText(remote, {{}, {QString(), QStringLiteral("http://x/")}}), XbelEditResult::Unchanged);
        QCOMPARE(stampOf(home.places.desktopList), before);
    }
};

QTEST_GUILESS_MAIN(XbelEditTest)
#include "tst_xbeledit.moc"

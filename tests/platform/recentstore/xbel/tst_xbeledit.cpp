// What the store writes into the desktop's recently-used list, and what desktop programs make of it.
#include "xbelfixture.h"

#include "platform/impl/recentstore/xbel/listfile.h"
#include "platform/impl/recentstore/xbel/xbelwriter.h"

#include <glib.h>

Q_DECLARE_METATYPE(zel::recent::XbelEditResult)

using namespace zel::recent;
using namespace zel::recent::test;

class XbelEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writingKeepsForeignBookmarks()
    {
        Home home;
        const QString file = home.places.desktopList;
        const QString secret = "<bookmark:groups><bookmark:group>G</bookmark:group></bookmark:groups>"
                               "<bookmark:private/>"_s;
        QVERIFY(home.setDesktop({{"/x/a.txt"_s, 1, secret}, {"/x/(b) ü.txt"_s, 2}}));
        QFile::setPermissions(file, QFile::permissions(file) | QFileDevice::ReadOther);
        const QString fresh = "/x/new & <ü>.txt"_s;
        const XbelEdit edit{
            {{"/x/(b) ü.txt"_s, "text/csv"_s, timeOf(9) + 123}, {fresh, QString(), timeOf(8)}}, {}};
        QCOMPARE(editXbel(file, edit), XbelEditResult::Written);
        QCOMPARE(readAll(contentOf(file)).entries, "/x/a.txt@1!;/x/(b) ü.txt@9;/x/new & <ü>.txt@8"_s);
        QCOMPARE(int(QFile::permissions(file) & ~(QFileDevice::ReadUser | QFileDevice::WriteUser)),
            int(QFileDevice::ReadOwner | QFileDevice::WriteOwner));

        g_autoptr(GBookmarkFile) bookmarks = read(contentOf(file));
        QCOMPARE(
            g_bookmark_file_get_size(bookmarks), 3); // the known one was found in spite of its other encoding
        const char *first = "file:///x/a.txt";
        QVERIFY(g_bookmark_file_has_group(bookmarks, first, "G", nullptr));
        QVERIFY(g_bookmark_file_has_application(bookmarks, first, "Writer", nullptr));
        QVERIFY(!g_bookmark_file_has_application(bookmarks, first, ApplicationName, nullptr));
        g_autofree gchar *made = g_filename_to_uri(QFile::encodeName(fresh).constData(), nullptr, nullptr);
        g_autofree gchar *exec = nullptr;
        guint count = 0;
        QVERIFY(g_bookmark_file_get_application_info(
            bookmarks, made, ApplicationName, &exec, &count, nullptr, nullptr));
        QCOMPARE(QByteArray(exec), QByteArray("zelbox ") + made);
        QCOMPARE(count, 1U);
    }

    // The box's own part taken out again leaves byte for byte what other programs wrote.
    void foreignBytesStay_data()
    {
        // readable: by desktop programs
        const auto table = zeltest::table<QString, bool>("before", "readable");
        const QString a = good("/a", 1);
        const QString n = good("/n", 1, "<bookmark:groups/><bookmark:private/>"_s);
        const auto row = [&](const char *name, const QString &bookmarks, bool readable) {
            table(name, inList(bookmarks), readable);
        };
        row("comments and odd white space", "<!-- <bookmark> -->\r\n\t"_s + a, true);
        row("bare", "<bookmark href='file:///a'  />\n<bookmark href='http://x/&amp;'/>"_s, true);
        row("foreign metadata",
            "<bookmark href='file:///a'><info><metadata owner='http://x'>"
            "<x:deep><y z='&lt;'>ü</y></x:deep></metadata></info></bookmark>"_s,
            false);
        row("folder", "<folder id='f'><title>F</title><bookmark href='file:///n'/></folder>"_s, false);
        row("unknown elements", "<info><metadata owner='o'/></info><x><![CDATA[</xbel>]]></x>"_s, false);
        table("closed at once", "<xbel version='1.0'/>", true);
        table("no line ends, no declarations", "<xbel version='1.0'>%1</xbel><!--e-->"_s.arg(a.trimmed()),
            false);
        QString prefixed = inList(a).replace("bookmark:"_s, "b:"_s).replace("mime:"_s, "m:"_s);
        prefixed.replace("xmlns:bookmark"_s, "xmlns:b"_s).replace("xmlns:mime"_s, "xmlns:m"_s);
        table("other prefixes", prefixed, true);
        table("document type, byte order mark",
            QChar(QChar::ByteOrderMark) + "<!DOCTYPE xbel PUBLIC \"+//X\" \"http://x/xbel.dtd\">\n"_s
                + "<xbel version='1.0'>"_s + a + "</xbel>\n"_s,
            false);
    }
    void foreignBytesStay()
    {
        const auto [before, readable] = zeltest::row<QString, bool>();
        const QByteArray original = before.toUtf8();
        QByteArray data = original;
        const QStringList fresh{"/n"_s, "/x'&\"<m"_s};
        QCOMPARE(editXbelText(
                     data, {{{fresh.at(0), "x/n"_s, timeOf(5)}, {fresh.at(1), QString(), timeOf(6)}}, {}}),
            XbelEditResult::Written);
        const Outcome outcome = readAll(data);
        QVERIFY2(outcome.intact, data.constData());
        QVERIFY(outcome.entries.endsWith("/n@5;/x'&\"<m@6"_s));
        // What desktop programs refuse for other reasons they refused before.
        QVERIFY2(readable ? uris(data).contains("file:///n"_s) : uris(original).isEmpty(), data.constData());
        QByteArray again = data;
        QCOMPARE(editXbelText(again, {{}, fresh}), XbelEditResult::Written);
        const auto bare = [](QByteArray text) { // an element closed at once had to be opened
            return text.replace(" />", "/>").replace("'/>", "'></xbel>").replace("\n", "");
        };
        if (before.endsWith("'/>"_s))
            QCOMPARE(bare(again), bare(original));
        else
            QCOMPARE(
                again.replace("\n</xbel>", "</xbel>"), QByteArray(original).replace("\n</xbel>", "</xbel>"));
    }

    void knownBookmarks_data()
    {
        const auto table = zeltest::table<QString, QStringList>("bookmark", "kept");
        const QString open = "<bookmark href=\"file:///k%20k\" added=\"2020-01-01T00:00:00Z\""_s;
        const QString desk = "<metadata owner='http://freedesktop.org'>"_s;
        const auto row = [&](const char *name, const QString &rest, const QStringList &kept) {
            table(name, open + rest, kept + QStringList{"2020-01-01"_s});
        };
        const QString title = "<title>T &amp; t</title>"_s;
        row("bare", " />"_s, {});
        row("title", ">"_s + title + "<desc>d</desc></bookmark>"_s, {title, "<desc>d</desc>"_s});
        row("foreign metadata only", "><info><metadata owner='x'><q/></metadata></info></bookmark>"_s,
            {"<metadata owner='x'><q/></metadata>"_s});
        row("empty metadata", "><info>"_s + QString(desk).replace(">"_s, "/>"_s) + "</info></bookmark>"_s,
            {});
        row("no applications",
            "><info>"_s + desk + "<mime:mime-type type='x/y'/></metadata></info></bookmark>"_s,
            {"type='x/y'"_s});
        row("empty applications",
            "><info>"_s + desk + "<bookmark:applications/></metadata></info></bookmark>"_s, {});
        const QString other = "<bookmark:application name='W' exec='&apos;w %u&apos;' "
                              "modified='2020-01-01T00:00:00Z' count='3'/>"_s;
        const QString rest =
            "<bookmark:groups><bookmark:group>G</bookmark:group></bookmark:groups><bookmark:private/>"_s;
        row("another's",
            "><info>"_s + desk + "<bookmark:applications>"_s + other + "</bookmark:applications>"_s + rest
                + "</metadata></info></bookmark>"_s,
            {other, rest});
        row("ours, old",
            " visited = '2020-01-01T00:00:00Z' modified=''><info>"_s + desk + "<bookmark:applications>"_s
                + other
                + "<bookmark:application count=\"4\" name='ZEL Box' "
                  "exec=''/></bookmark:applications></metadata></info></bookmark>"_s,
            {other, "count=\"5\""_s});
    }
    void knownBookmarks()
    {
        const auto [bookmark, kept] = zeltest::row<QString, QStringList>();
        QByteArray data = inList(bookmark + good("/other", 3)).toUtf8();
        const QString path = "/k k"_s;
        QCOMPARE(editXbelText(data, {{{path, "x/y"_s, timeOf(5)}}, {}}), XbelEditResult::Written);
        for (const QString &text : kept)
            QVERIFY2(data.contains(text.toUtf8()), data.constData());
        const QString entries = readAll(data).entries;
        QVERIFY2(entries.startsWith("/k k@5"_s) && entries.endsWith(";/other@3"_s), data.constData());
        QCOMPARE(data.count("name=\"ZEL Box\"") + data.count("name='ZEL Box'"), 1);
        g_autoptr(GBookmarkFile) bookmarks = read(data);
        const bool ours =
            g_bookmark_file_has_application(bookmarks, "file:///k%20k", ApplicationName, nullptr);
        QVERIFY2(ours || bookmark.contains("<q/>"_s), data.constData()); // which they refuse
        QCOMPARE(editXbelText(data, {{}, {path}}), XbelEditResult::Written);
        QCOMPARE(data, inList(good("/other", 3)).toUtf8());
    }

    // Desktop programs find a bookmark by its address.
    void addressesAsDesktopProgramsWriteThem()
    {
        QString path = "/ü"_s;
        for (char c = ' '; c < 127; ++c)
            path += QLatin1Char(c);
        path = QDir::cleanPath(path);
        QByteArray data;
        QCOMPARE(editXbelText(data, {{{path, QString(), timeOf(5)}}, {}}), XbelEditResult::Written);
        g_autofree gchar *made = g_filename_to_uri(path.toUtf8().constData(), nullptr, nullptr);
        QCOMPARE(uris(data), QStringList{QString::fromLatin1(made)});
    }

    void writing_data()
    {
        const auto row = zeltest::table<QByteArray, XbelEditResult>("before", "result");
        row("missing", QByteArray(), XbelEditResult::Written);
        row("empty", QByteArray(""), XbelEditResult::Written);
        row("no list", QByteArray("notes of mine"), XbelEditResult::Damaged);
        row("cut off", listText({{"/a"_s, 1}}).chopped(20), XbelEditResult::Damaged);
        row("good", listText({{"/a"_s, 1}}), XbelEditResult::Written);
        const QByteArray list = listText({{"/ä"_s, 1}});
        row("zero bytes", list + QByteArray(9, '\0'), XbelEditResult::Damaged);
        row("too deep", inList("<x>"_s.repeated(5000)).toUtf8(), XbelEditResult::Damaged);
        row("not UTF-8", QByteArray(list).replace("Writer", "\xe4"), XbelEditResult::Unsupported);
        row("other encoding", QByteArray(list).replace("UTF-8", "ISO-8859-1"), XbelEditResult::Unsupported);
        row("entities",
            QByteArray("<!DOCTYPE xbel [<!ENTITY b '<bookmark href=\"file:///n\"/>'>]><xbel>&b;</xbel>"),
            XbelEditResult::Unsupported);
    }
    void writing()
    {
        const auto [before, result] = zeltest::row<QByteArray, XbelEditResult>();
        Home home;
        const QString file = home.places.desktopList;
        if (!before.isNull())
            QVERIFY(replaceFile(file, before));
        const XbelEdit edit{{{"/n"_s, "text/plain"_s, timeOf(5)}}, {}};
        QCOMPARE(editXbel(file, edit), result);
        if (result != XbelEditResult::Written)
            QCOMPARE(contentOf(file), before);
        else
            QVERIFY(uris(contentOf(file)).contains("file:///n"_s));
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files).size(), 1); // nothing left behind
    }

    // Whatever stands there: what comes out is well-formed, or it is left alone.
    void randomDamage()
    {
        const QByteArray list =
            listText({{"/a"_s, 1, "<!-- x -->"_s}, {"/ä"_s, 2, "<x y='>'/>"_s}, {"/c"_s, 3}});
        const XbelEdit edit{{{"/a"_s, "x/y"_s, timeOf(5)}, {"/n"_s, "x/y"_s, timeOf(6)}}, {"/c"_s}};
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
        Home home({{"/a"_s, 1}});
        int calls = 0;
        const auto result =
            editXbel(home.places.desktopList, {{{"/n"_s, "text/plain"_s, timeOf(5)}}, {"/a"_s}}, [&] {
                if (++calls == 1)
                    home.setDesktop({{"/a"_s, 1}, {"/other"_s, 2}});
            });
        QCOMPARE(result, XbelEditResult::Written);
        QCOMPARE(calls, 2);
        QCOMPARE(uris(contentOf(home.places.desktopList)), (QStringList{"file:///n"_s, "file:///other"_s}));
    }

    void nothingToRemoveWritesNothing()
    {
        Home home({{"/a"_s, 1}});
        const auto before = stampOf(home.places.desktopList);
        QCOMPARE(editXbel(home.places.desktopList, {{}, {"/b"_s}}), XbelEditResult::Unchanged);
        QByteArray remote = inList("<bookmark href=\"http://x/\"/>"_s).toUtf8();
        QCOMPARE(editXbelText(remote, {{}, {QString(), "http://x/"_s}}), XbelEditResult::Unchanged);
        QCOMPARE(stampOf(home.places.desktopList), before);
    }

private:
    // As desktop programs read the list; empty when they refuse it.
    static GBookmarkFile *read(const QByteArray &data)
    {
        GBookmarkFile *bookmarks = g_bookmark_file_new();
        if (g_bookmark_file_load_from_data(bookmarks, data.constData(), gsize(data.size()), nullptr))
            return bookmarks;
        g_bookmark_file_free(bookmarks);
        return g_bookmark_file_new();
    }
    static QStringList uris(const QByteArray &data)
    {
        g_autoptr(GBookmarkFile) bookmarks = read(data);
        g_auto(GStrv) all = g_bookmark_file_get_uris(bookmarks, nullptr);
        QStringList result;
        for (gchar **one = all; *one; ++one)
            result.append(QString::fromUtf8(*one));
        result.sort();
        return result;
    }
};

QTEST_GUILESS_MAIN(XbelEditTest)
#include "tst_xbeledit.moc"

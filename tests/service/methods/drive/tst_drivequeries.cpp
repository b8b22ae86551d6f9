#include "document_types.h"
#include "search_types.h"
#include "service/methods/drive/thumbnails.h"
#include "service/methods/drivefixture.h"

using namespace zel;
using namespace zel::vela;
using Ask = std::function<void(GetInfoListArg &)>;
Q_DECLARE_METATYPE(Ask)
using SearchAsk = std::function<void(CloudDocSearchArg &)>;
Q_DECLARE_METATYPE(SearchAsk)

class TestDriveQueries final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void lists_data()
    {
        const auto row = zeltest::table<QString, Ask>("expected", "ask");
        row("by name", "10.odt b.txt c.odt d", [](auto &) {});
        row("backwards, folders still first", "d c.odt b.txt 10.odt",
            [](auto &a) { a.foldersFirst = a.descending = true; });
        row("by size", "c.odt b.txt 10.odt", [](auto &a) { a.orderBy = "size", a.types = {"file"}; });
        row("hidden", ".h 10.odt b.txt c.odt d", [](auto &a) { a.showHidden = true; });
        row("suffix lets folders pass", "10.odt c.odt d", [](auto &a) { a.suffixes = {"odt"}; });
        row("page", "b.txt c.odt", [](auto &a) { a.offset = 1, a.count = 2; });
    }

    void lists()
    {
        QFETCH(Ask, ask);
        DriveFixture fixture;
        fixture.fill({"b.txt=22"_s, "10.odt=333"_s, "c.odt=1"_s, ".h"_s, "d/"_s});
        GetInfoListArg request;
        ask(request);
        const auto result = fixture.list(request);
        QCOMPARE(result.state, 0);
        QTEST(DriveFixture::names(result.items), "expected");
        QCOMPARE(result.hasMore,
            request.offset + qint64(result.items.size()) < result.total && !result.items.empty());
        QCOMPARE(result.folder.type, std::string("folder"));
        const int64_t before = result.listVersion;
        QCOMPARE(fixture.list(request).listVersion, before);
        DriveFixture::write(fixture.inDrive("c.odt"), "9999");
        QVERIFY(fixture.list(request).listVersion != before);
    }

    // What happens in the folder meanwhile does not move the pages of a list that is being read.
    void pagesFit()
    {
        DriveFixture fixture;
        fixture.fill({"n10"_s, "n2"_s, "n1"_s});
        auto request = filled(&GetInfoListArg::count, 2);
        const auto first = fixture.list(request);
        QCOMPARE(DriveFixture::names(first.items), "n1 n2"_s);
        DriveFixture::write(fixture.inDrive("a"), "new");
        request.offset = 2;
        const auto anew = fixture.list(request); // does not say which list
        QCOMPARE(DriveFixture::names(anew.items), "n2 n10"_s);
        QVERIFY(anew.listVersion != first.listVersion);

        request.offset = 0;
        request.extraParam["listVersion"] = std::to_string(fixture.list(request).listVersion);
        DriveFixture::write(fixture.inDrive("b"), "new");
        request.offset = 2;
        const auto same = fixture.list(request);
        QCOMPARE(DriveFixture::names(same.items), "n2 n10"_s);
        QCOMPARE(std::to_string(same.listVersion), request.extraParam["listVersion"]);
        QVERIFY(
            fixture.list(request).listVersion != same.listVersion); // it was read to its end, and forgotten
    }

    void lookups()
    {
        FilledDrive fixture;
        const CloudItemId file = fixture.idOf("d/e/f.txt");
        GetFileIdByFilePathArg byPath;
        byPath.filePath = fixture.inDrive("d/e/../e/f.txt").toStdString();
        QCOMPARE(
            fixture.client.call<GetFileIdByFilePathResult>("getFileIdByFilePath", byPath).fileId, file.id);
        byPath.filePath = "/etc/passwd";
        QCOMPARE(fixture.client.call<GetFileIdByFilePathResult>("getFileIdByFilePath", byPath).state,
            int(wire::ServiceError::NotFound));

        GetItemInfoListV5Arg items;
        items.items = {file, CloudItemId()};
        items.items[1].id = "999";
        items.withPath = items.withParents = true;
        const auto infos = fixture.client.call<GetItemInfoListV5Result>("getItemInfoListV5", items);
        QCOMPARE(infos.paths.at(0).path, std::string("d/e/f.txt"));
        QCOMPARE(DriveFixture::names(infos.parents.at(0).parents), " d e"_s);
        QVERIFY(infos.failedItems.count("999"));

        const auto counted = fixture.client.call<GetCloudNodeFileCountResult>(
            "getCloudNodeFileCount", filled(&GetCloudNodeFileCountArg::recursive, true));
        QCOMPARE(counted.fileCount, int64_t(4));
        QCOMPARE(counted.folderCount, int64_t(2));
        QCOMPARE(counted.totalSize, int64_t(11));

        auto verify = filled(&VerifyItemArg::item, fixture.idOf("a.txt"));
        verify.sha1 = "fe05bcdcdc4928012781a5f1a2a77cbb5398e106"; // of "one"
        auto verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
        QVERIFY(verified.existing && !verified.changed && !verified.moved);
        verify.cloudVersion = verified.item.cloudVersion;
        DriveFixture::write(fixture.inDrive("a.txt"), "two!");
        verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
        QVERIFY(verified.existing && verified.changed);
        fixture.remove(verify.item);
        verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
        QVERIFY(!verified.existing && verified.inRecycleBin);

        GetInfoArg info;
        info.item.groupId = "somebody's";
        QCOMPARE(
            fixture.client.call<GetInfoResult>("getInfo", info).state, int(wire::ServiceError::NotFound));
    }

    void search_data()
    {
        const auto row = zeltest::table<QString, SearchAsk>("found", "ask");
        row("best first", "plan plan b.odt my plan.odt explanation.txt", [](auto &a) { a.keyword = "Plan"; });
        row("suffix", "plan b.odt my plan.odt", [](auto &a) { a.keyword = "plan", a.suffixes = {"odt"}; });
        row("page", "plan b.odt", [](auto &a) { a.keyword = "plan", a.offset = a.count = 1; });
        row("somebody else's space", "", [](auto &a) { a.keyword = "plan", a.groupIds = {"77"}; });
        row("nothing asked", "", [](auto &) {});
        row("a wildcard is a letter", "", [](auto &a) { a.keyword = "%"; });
    }

    void search()
    {
        QFETCH(SearchAsk, ask);
        DriveFixture fixture;
        fixture.fill({"plan/"_s, "plan/my plan.odt=1"_s, "plan b.odt"_s, "explanation.txt=22"_s});
        auto request = filled(&CloudDocSearchArg::uuid, "s1");
        ask(request);
        const auto result = fixture.client.call<CloudDocSearchResult>("cloudDocSearch", request);
        QCOMPARE(result.state, 0);
        QCOMPARE(result.uuid, std::string("s1"));
        std::vector<CloudItem> items;
        for (const auto &file : result.files)
            items.push_back(file.item);
        QTEST(DriveFixture::names(items), "found");
        for (const auto &file : result.files)
            if (file.item.name == "my plan.odt") {
                QCOMPARE(file.path, std::string("plan/my plan.odt"));
                QCOMPARE(file.highlightName, std::string("my <em>plan</em>.odt"));
            }
    }

    void thumbnails_data()
    {
        // age: of the picture, seconds
        const auto row = zeltest::table<int, QByteArray, int>("age", "content", "width");
        row("of the file as it is", 0, QByteArray(), 200);
        row("of an older content", 5, QByteArray(), 0);
        row("damaged", 0, QByteArray("\x89PNG\r\n\x1a\n\xff\xff\xff\xffIHDR"), 0);
    }

    void thumbnails()
    {
        auto [age, content] = zeltest::row<int, QByteArray>();
        DriveFixture fixture;
        fixture.fill({"a b;ü.png=x"_s});
        const QString file = fixture.inDrive("") + "a b;ü.png"_s;
        const QByteArray uri = service::thumbnailUri(file);
        QVERIFY2(uri.endsWith("/Drive/a%20b%3B%C3%BC.png"), uri.constData());
        const auto chunk = [](const char *type, const QByteArray &data) -> QByteArray {
            QByteArray bytes(4, 0);
            qToBigEndian(quint32(data.size()), bytes.data());
            return bytes + type + data + "crc?";
        };
        if (content.isEmpty()) {
            const qint64 time = QFileInfo(file).lastModified().toSecsSinceEpoch() - age;
            content = QByteArray("\x89PNG\r\n\x1a\n")
                + chunk("IHDR", QByteArray("\0\0\0\xc8\0\0\0\x40\x08\6\0\0\0", 13))
                + chunk("tEXt", QByteArray("Thumb::MTime") + '\0' + QByteArray::number(time))
                + chunk("IDAT", "...");
        }
        qputenv("XDG_CACHE_HOME", QFile::encodeName(fixture.local("cache")));
        DriveFixture::write(fixture.local("cache/thumbnails/large/")
                + QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex())
                + ".png"_s,
            content);
        GetFileThumbnailArg request;
        request.entries.resize(1);
        request.entries[0].localPath = file.toStdString();
        request.entries[0].width = 512;
        const auto result = fixture.client.call<GetFileThumbnailResult>("getFileThumbnail", request);
        QTEST(result.thumbnails.at(0).width, "width");
        QCOMPARE(result.thumbnails.at(0).thumbnailPath.empty(), result.thumbnails.at(0).width == 0);
    }
};

QTEST_GUILESS_MAIN(TestDriveQueries)
#include "tst_drivequeries.moc"

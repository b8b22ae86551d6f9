#include "document_types.h"
#include "search_types.h"
#include "service/methods/drive/thumbnails.h"
#include "service/methods/drivefixture.h"

#include <QCryptographicHash>
#include <QtEndian>

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
    void lists_data();
    void lists();
    void pagesFit();
    void lookups();
    void search_data();
    void search();
    void thumbnails_data();
    void thumbnails();
};

void TestDriveQueries::lists_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<QString>("expected");
    QTest::newRow("by name") << Ask([](GetInfoListArg &) {}) << "10.odt b.txt c.odt d";
    QTest::newRow("backwards, folders still first")
        << Ask([](GetInfoListArg &a) { a.foldersFirst = a.descending = true; }) << "d c.odt b.txt 10.odt";
    QTest::newRow("by size") << Ask([](GetInfoListArg &a) {
        a.orderBy = "size";
        a.types = {"file"};
    }) << "c.odt b.txt 10.odt";
    QTest::newRow("hidden") << Ask([](GetInfoListArg &a) { a.showHidden = true; })
                            << ".h 10.odt b.txt c.odt d";
    QTest::newRow("suffix lets folders pass")
        << Ask([](GetInfoListArg &a) { a.suffixes = {"odt"}; }) << "10.odt c.odt d";
    QTest::newRow("page") << Ask([](GetInfoListArg &a) {
        a.offset = 1;
        a.count = 2;
    }) << "b.txt c.odt";
}

void TestDriveQueries::lists()
{
    QFETCH(Ask, ask);
    DriveFixture fixture;
    fixture.fill({QStringLiteral("b.txt=22"), QStringLiteral("10.odt=333"), QStringLiteral("c.odt=1"),
        QStringLiteral(".h"), QStringLiteral("d/")});
    GetInfoListArg request;
    ask(request);
    const auto result = fixture.list(request);
    QCOMPARE(result.state, 0);
    QTEST(DriveFixture::names(result.items), "expected");
    QCOMPARE(
        result.hasMore, request.offset + qint64(result.items.size()) < result.total && !result.items.empty());
    QCOMPARE(result.folder.type, std::string("folder"));
    const int64_t before = result.listVersion;
    QCOMPARE(fixture.list(request).listVersion, before);
    DriveFixture::write(fixture.inDrive("c.odt"), "9999");
    QVERIFY(fixture.list(request).listVersion != before);
}

// What happens in the folder meanwhile does not move the pages of a list that is being read.
void TestDriveQueries::pagesFit()
{
    DriveFixture fixture;
    fixture.fill({QStringLiteral("n10"), QStringLiteral("n2"), QStringLiteral("n1")});
    GetInfoListArg request;
    request.count = 2;
    const auto first = fixture.list(request);
    QCOMPARE(DriveFixture::names(first.items), QStringLiteral("n1 n2"));
    DriveFixture::write(fixture.inDrive("a"), "new");
    request.offset = 2;
    const auto anew = fixture.list(request); // does not say which list
    QCOMPARE(DriveFixture::names(anew.items), QStringLiteral("n2 n10"));
    QVERIFY(anew.listVersion != first.listVersion);

    request.offset = 0;
    request.extraParam["listVersion"] = std::to_string(fixture.list(request).listVersion);
    DriveFixture::write(fixture.inDrive("b"), "new");
    request.offset = 2;
    const auto same = fixture.list(request);
    QCOMPARE(DriveFixture::names(same.items), QStringLiteral("n2 n10"));
    QCOMPARE(std::to_string(same.listVersion), request.extraParam["listVersion"]);
    QVERIFY(fixture.list(request).listVersion != same.listVersion); // it was read to its end, and forgotten
}

void TestDriveQueries::lookups()
{
    DriveFixture fixture;
    fixture.fill();
    const CloudItemId file = fixture.idOf("d/e/f.txt");
    GetFileIdByFilePathArg byPath;
    byPath.filePath = fixture.inDrive("d/e/../e/f.txt").toStdString();
    QCOMPARE(fixture.client.call<GetFileIdByFilePathResult>("getFileIdByFilePath", byPath).fileId, file.id);
    byPath.filePath = "/etc/passwd";
    QCOMPARE(fixture.client.call<GetFileIdByFilePathResult>("getFileIdByFilePath", byPath).state,
        int(wire::ServiceError::NotFound));

    GetItemInfoListV5Arg items;
    items.items = {file, CloudItemId()};
    items.items[1].id = "999";
    items.withPath = items.withParents = true;
    const auto infos = fixture.client.call<GetItemInfoListV5Result>("getItemInfoListV5", items);
    QCOMPARE(infos.paths.at(0).path, std::string("d/e/f.txt"));
    QCOMPARE(DriveFixture::names(infos.parents.at(0).parents), QStringLiteral(" d e"));
    QVERIFY(infos.failedItems.count("999"));

    GetCloudNodeFileCountArg count;
    count.recursive = true;
    const auto counted = fixture.client.call<GetCloudNodeFileCountResult>("getCloudNodeFileCount", count);
    QCOMPARE(counted.fileCount, int64_t(4));
    QCOMPARE(counted.folderCount, int64_t(2));
    QCOMPARE(counted.totalSize, int64_t(11));

    VerifyItemArg verify;
    verify.item = fixture.idOf("a.txt");
    verify.sha1 = "fe05bcdcdc4928012781a5f1a2a77cbb5398e106"; // of "one"
    auto verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
    QVERIFY(verified.existing && !verified.changed && !verified.moved);
    verify.cloudVersion = verified.item.cloudVersion;
    DriveFixture::write(fixture.inDrive("a.txt"), "two!");
    verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
    QVERIFY(verified.existing && verified.changed);
    RemoveArg remove;
    remove.item = verify.item;
    fixture.client.call<RemoveResult>("remove", remove);
    verified = fixture.client.call<VerifyItemResult>("verifyItem", verify);
    QVERIFY(!verified.existing && verified.inRecycleBin);

    GetInfoArg info;
    info.item.groupId = "somebody's";
    QCOMPARE(fixture.client.call<GetInfoResult>("getInfo", info).state, int(wire::ServiceError::NotFound));
}

void TestDriveQueries::search_data()
{
    QTest::addColumn<SearchAsk>("ask");
    QTest::addColumn<QString>("found");
    QTest::newRow("best first") << SearchAsk([](CloudDocSearchArg &a) { a.keyword = "Plan"; })
                                << "plan plan b.odt my plan.odt explanation.txt";
    QTest::newRow("suffix") << SearchAsk([](CloudDocSearchArg &a) {
        a.keyword = "plan";
        a.suffixes = {"odt"};
    }) << "plan b.odt my plan.odt";
    QTest::newRow("page") << SearchAsk([](CloudDocSearchArg &a) {
        a.keyword = "plan";
        a.offset = 1;
        a.count = 1;
    }) << "plan b.odt";
    QTest::newRow("somebody else's space") << SearchAsk([](CloudDocSearchArg &a) {
        a.keyword = "plan";
        a.groupIds = {"77"};
    }) << "";
    QTest::newRow("nothing asked") << SearchAsk([](CloudDocSearchArg &) {}) << "";
    QTest::newRow("a wildcard is a letter") << SearchAsk([](CloudDocSearchArg &a) { a.keyword = "%"; }) << "";
}

void TestDriveQueries::search()
{
    QFETCH(SearchAsk, ask);
    DriveFixture fixture;
    fixture.fill({QStringLiteral("plan/"), QStringLiteral("plan/my plan.odt=1"), QStringLiteral("plan b.odt"),
        QStringLiteral("explanation.txt=22")});
    CloudDocSearchArg request;
    request.uuid = "s1";
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

void TestDriveQueries::thumbnails_data()
{
    QTest::addColumn<int>("age"); // of the picture, seconds
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("width");
    QTest::newRow("of the file as it is") << 0 << QByteArray() << 200;
    QTest::newRow("of an older content") << 5 << QByteArray() << 0;
    QTest::newRow("damaged") << 0 << QByteArray("\x89PNG\r\n\x1a\n\xff\xff\xff\xffIHDR") << 0;
}

void TestDriveQueries::thumbnails()
{
    QFETCH(int, age);
    QFETCH(QByteArray, content);
    DriveFixture fixture;
    fixture.fill({QStringLiteral("a b;ü.png=x")});
    const QString file = fixture.inDrive("") + QString::fromUtf8("a b;ü.png");
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
            + QStringLiteral(".png"),
        content);
    GetFileThumbnailArg request;
    request.entries.resize(1);
    request.entries[0].localPath = file.toStdString();
    request.entries[0].width = 512;
    const auto result = fixture.client.call<GetFileThumbnailResult>("getFileThumbnail", request);
    QTEST(result.thumbnails.at(0).width, "width");
    QCOMPARE(result.thumbnails.at(0).thumbnailPath.empty(), result.thumbnails.at(0).width == 0);
}

QTEST_GUILESS_MAIN(TestDriveQueries)
#include "tst_drivequeries.moc"

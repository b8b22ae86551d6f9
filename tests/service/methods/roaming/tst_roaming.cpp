#include "notify_types.h"
#include "service/methods/drivefixture.h"
#include "support/testclock.h"

using namespace zel;
using namespace zel::vela;
using Ask = std::function<void(GetRecentFilesArg &)>;
Q_DECLARE_METATYPE(Ask)

namespace {

FileRecordItem use(const char *path, const char *device, const char *operation = "open", qint64 time = 1000)
{
    const auto event = filled(&FileRecordItem::path, path, &FileRecordItem::deviceId, device,
        &FileRecordItem::operation, operation, &FileRecordItem::actionTime, time);
    return event;
}

AddRoamingRecordResult add(MethodClient &client, std::vector<FileRecordItem> events)
{
    return client.call<AddRoamingRecordResult>(
        "addRoamingRecord", filled(&AddRoamingRecordArg::records, std::move(events)));
}

GetRecentFilesResult list(MethodClient &client, GetRecentFilesArg request = {})
{
    return client.call<GetRecentFilesResult>("getRecentFiles", request);
}

QString names(const GetRecentFilesResult &result)
{
    return zeltest::joined(result.items, &RecentFileItem::name);
}

} // namespace

class TestRoaming final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void identity_data()
    {
        // first, second: "device|path|cloud file|time"; time: of the latest
        const auto row = zeltest::table<QString, QString, int, qint64>("first", "second", "count", "time");
        row("same path", "this|/a/x.odt||10", "this|/a/x.odt||20", 1, 20);
        row("path written otherwise", "this|/a/x.odt||10", "this|/a/../a//x.odt||20", 1, 20);
        row("late news", "this|/a/x.odt||20", "this|/a/x.odt||10", 1, 20);
        row("other device, same path", "this|/a/x.odt||10", "that|/a/x.odt||20", 2, 20);
        row("other device, same cloud file", "this|/a/x.odt|7|10", "that|/b/x.odt|7|20", 1, 20);
        row("path becomes a cloud file", "this|/a/x.odt||10", "this|/a/x.odt|7|20", 1, 20);
        row("quote in the path", "this|/a/' OR 1=1 --||10", "this|/a/y||20", 2, 20);
    }

    void identity()
    {
        const auto [first, second] = zeltest::row<QString, QString>();
        DriveFixture fixture;
        for (const QStringList &given : {first.split(QLatin1Char('|')), second.split(QLatin1Char('|'))}) {
            FileRecordItem event =
                use(qPrintable(given[1]), qPrintable(given[0]), "open", given[3].toLongLong());
            event.fileId = given[2].toStdString();
            QCOMPARE(add(fixture.client, {event}).state, 0);
        }
        const auto result = list(fixture.client);
        QTEST(int(result.total), "count");
        QTEST(qint64(result.items.at(0).fileTime), "time");
        QVERIFY(!result.items.at(0).roamingId.empty());
    }

    // By a machine whose clock is wrong.
    void datedAhead()
    {
        DriveFixture fixture;
        const auto addAt = [&fixture](qint64 now, const char *path, qint64 time) {
            const zeltest::FixedNow fixed(QDateTime::fromMSecsSinceEpoch(now));
            add(fixture.client, {use(path, "that", "open", time)});
        };
        addAt(1000, "/a", 900000);
        addAt(2000, "/b", 2000);
        QCOMPARE(names(list(fixture.client)), "b a"_s);
        addAt(3000, "/a", 3000);
        QCOMPARE(names(list(fixture.client)), "a b"_s);
    }

    void answeredBeforeTold()
    {
        DriveFixture fixture;
        const auto added = add(fixture.client, {use("/a.odt", "that")});
        QCOMPARE(fixture.client.arrived.size(), size_t(2));
        QVERIFY(!fixture.client.arrived.at(0).isPush);
        const auto pushes = fixture.client.pushed<NotifyRecentFileChangeArg>("notifyRecentFileChange");
        QCOMPARE(pushes.size(), size_t(1));
        QCOMPARE(pushes[0].changedItems, added.items);
        QCOMPARE(pushes[0].opv, added.opv);
        QVERIFY(!pushes[0].reload);
    }

    void limit()
    {
        DriveFixture fixture; // keeps five
        std::vector<FileRecordItem> events;
        for (int i = 0; i < 7; ++i)
            events.push_back(use(qPrintable("/%1"_s.arg(i)), "this", "open", 100 + i));
        const auto added = add(fixture.client, events);
        QCOMPARE(names(list(fixture.client)), "6 5 4 3 2"_s);
        const auto push = fixture.client.pushed<NotifyRecentFileChangeArg>("notifyRecentFileChange").at(0);
        const std::set<std::string> gone(push.removedIds.begin(), push.removedIds.end());
        QCOMPARE(gone, (std::set<std::string>{added.items[0].roamingId, added.items[1].roamingId}));
    }

    void removal_data()
    {
        const auto row = zeltest::table<QString, QString>("kind", "left");
        row("by path, of this machine only", "path", "cloud /a-there");
        row("by cloud file", "file", "/a-there /a");
        row("by id", "id", "cloud /a");
        row("nothing named", "none", "cloud /a-there /a");
        row("this machine's list was emptied", "emptied", "cloud /a-there");
    }

    void removal()
    {
        QFETCH(QString, kind);
        DriveFixture fixture;
        std::vector<FileRecordItem> events{
            use("/a", "this", "open", 1), use("/a", "that", "open", 2), use("/c", "that", "open", 3)};
        events[0].name = "/a";
        events[1].name = "/a-there";
        events[2].fileId = "7";
        events[2].name = "cloud";
        const auto added = add(fixture.client, events);
        fixture.client.arrived.clear();
        DelRoamingRecordArg request;
        if (kind == "path"_s)
            request.paths = {"/a"};
        else if (kind == "file"_s)
            request.fileIds = {"7"};
        else if (kind == "id"_s)
            request.roamingIds = {added.items[1].roamingId, "nobody's"};
        size_t removed = 0;
        if (kind == "emptied"_s) {
            removed = 3
                - size_t(fixture.client
                             .call<NotifyRecentFilesResult>(
                                 "notifyRecentFiles", filled(&NotifyRecentFilesArg::action, 4))
                             .total);
        } else {
            removed =
                size_t(fixture.client.call<DelRoamingRecordResult>("delRoamingRecord", request).removedCount);
        }
        QTEST(names(list(fixture.client)), "left");
        const auto pushes = fixture.client.pushed<NotifyRecentFileChangeArg>("notifyRecentFileChange");
        QCOMPARE(pushes.size(), size_t(removed > 0 ? 1 : 0));
        if (removed > 0)
            QCOMPARE(pushes[0].removedIds.size(), removed);
    }

    void pagesAndFilters_data()
    {
        const auto row = zeltest::table<QString, bool, Ask>("expected", "hasMore", "ask");
        row("page", "c.odt b.pdf", true, [](auto &a) { a.count = 2; });
        row("last page", "Äpfel.ODT", false, [](auto &a) { a.offset = a.count = 2; });
        row("keyword", "Äpfel.ODT", false, [](auto &a) { a.keyword = "äPF"; });
        row("suffix", "c.odt Äpfel.ODT", false, [](auto &a) { a.suffixes = {"odt"}; });
        row("others", "c.odt b.pdf", false, [](auto &a) { a.otherDevicesOnly = true; });
        row("odd numbers", "c.odt b.pdf Äpfel.ODT", false, [](auto &a) { a.offset = -5, a.count = -1; });
    }
    void pagesAndFilters()
    {
        QFETCH(Ask, ask);
        DriveFixture fixture;
        add(fixture.client,
            {use("/Äpfel.ODT", "this", "open", 1), use("/b.pdf", "that", "open", 2),
                use("/c.odt", "that", "open", 3)});
        GetRecentFilesArg request;
        ask(request);
        const auto result = list(fixture.client, request);
        QTEST(names(result), "expected");
        QTEST(result.hasMore, "hasMore");
    }

    void badRecords()
    {
        DriveFixture fixture;
        const std::string endless(5000, 'x');
        const auto result = add(
            fixture.client, {use("", "this"), use(("/" + endless).c_str(), "this"), use("/good", "this")});
        QCOMPARE(result.state, 0);
        QCOMPARE(result.failedItems.size(), size_t(2));
        QCOMPARE(result.items.size(), size_t(1));
        auto notice = filled(&NotifyRecentFilesArg::action, 9);
        QCOMPARE(fixture.client.call<NotifyRecentFilesResult>("notifyRecentFiles", notice).state,
            int(wire::ServiceError::InvalidArgument));
        notice.action = 1;
        for (std::string RecentFileItem::*text :
            {&RecentFileItem::external, &RecentFileItem::thumbnail, &RecentFileItem::curDeviceName}) {
            notice.items.assign(1, RecentFileItem());
            notice.items[0].path = "/large";
            (notice.items[0].*text).assign(40 * 1024, 'x');
            QCOMPARE(fixture.client.call<NotifyRecentFilesResult>("notifyRecentFiles", notice).state,
                int(wire::ServiceError::TooLarge));
        }
        QCOMPARE(int(list(fixture.client).total), 1);
    }

    void pageEndsBySize()
    {
        DriveFixture fixture;
        service::CloudDatabase database(fixture.local("large.db"));
        service::RoamingTable table(database);
        MethodClient client;
        service::RoamingMethods methods(table, fixture.quick, client, fixture.identity);
        methods.serve(client.methods);
        service::RoamingItems items(700);
        for (size_t i = 0; i < items.size(); ++i) {
            items[i].path = "/" + std::to_string(i);
            items[i].external.assign(30000, 'x');
        }
        QCOMPARE(table.add(fixture.me.userId, items, fixture.me.deviceId).error, wire::ServiceError::None);
        GetRecentFilesArg page;
        const auto first = list(client, page);
        QVERIFY2(first.items.size() > 500 && first.items.size() < 600,
            qPrintable(QString::number(first.items.size())));
        QVERIFY(first.hasMore);
        page.offset = int(first.items.size());
        const auto second = list(client, page);
        QCOMPARE(first.items.size() + second.items.size(), items.size());
        QVERIFY(!second.hasMore);

        auto infos = filled(&GetRecentFileInfoListArg::count, 1000);
        const auto all = client.call<GetRecentFileInfoListResult>("getRecentFileInfoList", infos);
        QVERIFY(all.hasMore && all.items.size() > 500 && all.items.size() <= first.items.size());
        infos.roamingIds = {"nobody's"};
        for (const auto *listed : {&first, &second})
            for (const RecentFileItem &item : listed->items)
                infos.roamingIds.push_back(item.roamingId);
        const auto named = client.call<GetRecentFileInfoListResult>("getRecentFileInfoList", infos);
        QVERIFY(named.hasMore && named.items.size() > 500 && named.items.size() <= first.items.size());
        QCOMPARE(named.failedItems.size(), size_t(1));
    }

    void removesFiles()
    {
        DriveFixture fixture;
        fixture.fill({"a.odt"_s, "b.odt"_s});
        FileRecordItem event = use("", "this");
        event.fileId = fixture.idOf("a.odt").id;
        event.name = "a.odt";
        add(fixture.client, {event});
        DelRoamingRecordArg request;
        request.fileIds = {event.fileId};
        request.removeFiles = true;
        const auto result = fixture.client.call<DelRoamingRecordResult>("delRoamingRecord", request);
        QCOMPARE(int(result.removedCount), 1);
        QVERIFY(result.failedItems.empty());
        QCOMPARE(DriveFixture::tree(fixture.root()), "b.odt"_s);
    }

    void otherUsersAreApart()
    {
        DriveFixture fixture;
        auto item = filled(&RecentFileItem::roamingId, "r1", &RecentFileItem::path, "/a");
        const QString other = "u2"_s;
        QCOMPARE(fixture.roaming.add(other, {item}, {}).error, wire::ServiceError::None);
        item.path = "/b";
        QCOMPARE(fixture.roaming.add(fixture.me.userId, {item}, {}).error, wire::ServiceError::None);
        fixture.roaming.remove(fixture.me.userId, {{}, {}, {}, {}, service::RoamingSelection::Scope::All});
        service::RoamingPage left;
        fixture.roaming.find(other, {"r1"_s}, left);
        QCOMPARE(left.items.size(), size_t(1));
        QCOMPARE(left.items[0].path, std::string("/a"));
    }

    // A change that cannot be kept is refused, and nobody is told of it; later ones work again.
    void fullDisk()
    {
        DriveFixture fixture;
        QCOMPARE(add(fixture.client, {use("/a", "this")}).state, 0);
        fixture.client.arrived.clear();
        const qint64 pages = fixture.database.connection().number("PRAGMA page_count");
        fixture.database.connection().exec(qPrintable("PRAGMA max_page_count=%1"_s.arg(pages)));
        FileRecordItem large = use("/b", "this");
        large.extraParam["note"] = std::string(30000, 'x');
        const auto refused = add(fixture.client, {large});
        QCOMPARE(refused.state, int(wire::ServiceError::DiskFull));
        QVERIFY(fixture.client.pushed<NotifyRecentFileChangeArg>("notifyRecentFileChange").empty());
        fixture.database.connection().exec("PRAGMA max_page_count=100000");
        QCOMPARE(add(fixture.client, {large}).state, 0);
        QCOMPARE(int(list(fixture.client).total), 2);
    }
};

QTEST_GUILESS_MAIN(TestRoaming)
#include "tst_roaming.moc"

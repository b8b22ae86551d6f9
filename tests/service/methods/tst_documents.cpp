#include "methodclient.h"
#include "notify_types.h"
#include "service/methods/clouddocuments.h"
#include "support/temptree.h"

using namespace zel;
using namespace zel::vela;

/// The parts put together as the service has them.
class TestDocuments final : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    // The file goes to the recycle bin and comes back; the recent list says so each time.
    void recordFollowsItsFile()
    {
        Service service;
        const QString file = service.place.write("Drive/a.odt");
        const auto item = service.client.call<GetFileIdByFilePathResult>(
            "getFileIdByFilePath", filled(&GetFileIdByFilePathArg::filePath, file.toStdString()));
        AddRoamingRecordArg add;
        add.records.resize(1);
        add.records[0].fileId = item.fileId;
        service.client.call<AddRoamingRecordResult>("addRoamingRecord", add);
        service.documents.start();
        // The first look at the drive is over once a new file of somebody else is told.
        int files = 0;
        QTRY_VERIFY(!service.place.write("Drive/%1.odt"_s.arg(++files)).isEmpty()
            && !service.client.pushed<NotifyFileCreationArg>("notifyFileCreation").empty());
        service.client.arrived.clear();
        const auto report = [&service](const QString &document) {
            return service.hooks.reportCloudDoc(document) == wire::ServiceError::None;
        };
        QVERIFY(report(file) && report(QString::fromStdString(item.fileId)));
        QVERIFY(!report(service.place.path("a.odt")) && !report("no id"_s));

        const auto pushes = [&] {
            return service.client.pushed<NotifyRecentFileChangeArg>("notifyRecentFileChange");
        };
        const auto remove = filled(&RemoveArg::item, item.item);
        RecoverRecyclesArg recover;
        recover.recycleIds = {service.client.call<RemoveResult>("remove", remove).recycleId};
        QTRY_COMPARE(pushes().size(), size_t(1));
        QVERIFY(pushes()[0].changedItems.at(0).deleted);
        GetRecentFilesArg list;
        QCOMPARE(service.client.call<GetRecentFilesResult>("getRecentFiles", list).items.size(), size_t(0));
        list.includeDeleted = true;
        QCOMPARE(service.client.call<GetRecentFilesResult>("getRecentFiles", list).items.size(), size_t(1));
        service.client.call<RecoverRecyclesResult>("recoverRecycles", recover);
        QTRY_COMPARE(pushes().size(), size_t(2));
        QVERIFY(!pushes()[1].changedItems.at(0).deleted);
    }

private:
    struct Service
    {
        zeltest::TempTree place;
        MethodClient client;
        service::ServiceHooks hooks;
        service::CloudDatabase database{place.path("cloud.db")};
        service::CloudDocuments documents{{place.path("Drive"), place.path("drive.db")}, database,
            client.methods, client, hooks, nullptr, [] {
                return service::Identity{"u1"_s, {}, "this"_s, {}};
            }};
    };
};

QTEST_GUILESS_MAIN(TestDocuments)
#include "tst_documents.moc"

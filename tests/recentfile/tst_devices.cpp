#include "recentfile/recentcloud.h"
#include "recentfile/recentfileactions.h"
#include "recentfile/recentfilelogic.h"
#include "recentfile/recentfilemodel.h"
#include "support/serviceprocess.h"
#include "support/wireclient.h"

#include "kcloudsvrproxy.h"
#include "recent_types.h"

using namespace zel::vela;
using Model = ZelBoxRecentFileModel;

/// The Recent page's logic over the real store and the real service, and a second device of the same user: a
/// second client of the service.
class TestDevices : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_service = std::make_unique<ServiceProcess>();
        QVERIFY(m_service->start());
    }

    void cleanup()
    {
        closeBox();
        m_service.reset();
    }

    void badgesOutliveRestarts()
    {
        const QString name = "plan.odt"_s;
        useElsewhere("plan.odt", "open");
        openBox();
        QTRY_COMPARE(mark(name), int(Model::New));
        QCOMPARE(model().index(0).data(Model::DeviceNameRole).toString(), "Tablet"_s);
        QCOMPARE(model().unreadCount(), 1);

        closeBox(); // the box and the service start again: nothing is lost, and nothing is new
        m_service->kill();
        openBox();
        QCOMPARE(mark(name), int(Model::New));
        m_box->logic.clearUnread(); // seen while the service is away
        QCOMPARE(model().unreadCount(), 0);
        closeBox();
        QVERIFY(m_service->start());
        openBox();
        QTRY_VERIFY(listElsewhere().at(0).extraParam.count("unread") == 0); // the service has been told
        QCOMPARE(mark(name), int(Model::NotUnread));

        useElsewhere("plan.odt", "save"); // pushed to the box that is open
        QTRY_COMPARE(mark(name), int(Model::Modified));
        QCOMPARE(model().rowCount(), 1);
        QCOMPARE(model().unreadCount(), 1);
    }

    void usesHereReachTheOtherDevice()
    {
        openBox();
        const QString path = "/etc/passwd"_s; // on every machine, and in no temporary folder
        m_box->actions.addFiles({path});
        QTRY_COMPARE(model().rowCount(), 1);
        QTRY_COMPARE(listElsewhere().size(), size_t(1));
        QCOMPARE(listElsewhere().at(0).path, path.toStdString());
        // It comes back from the service as the same row, and the user's own use is not unread.
        QTRY_VERIFY(!model().record(0).roamingId.isEmpty());
        QCOMPARE(model().rowCount(), 1);
        QCOMPARE(model().unreadCount(), 0);
    }

private:
    struct Box
    {
        KCloudSvrProxy proxy;
        RecentCloud cloud{&proxy};
        KRecentFileLogic logic{KRecentFileLogic::Services{nullptr, nullptr, nullptr, &cloud, 0}};
        RecentFileActions actions{RecentFileActions::Services{nullptr, nullptr, &cloud}};
        Model model;
    };

    void openBox()
    {
        InitRecentFile(WorkMode::Full);
        m_box = std::make_unique<Box>();
        m_box->logic.setModel(&m_box->model);
        KRecentFileProxy::instance()->setCloudService(&m_box->proxy);
        connect(&m_box->cloud, &RecentCloud::loginChanged, &m_box->logic,
            &KRecentFileLogic::onLoginStatusChanged);
        m_box->logic.onWindowFirstShown();
        QTRY_VERIFY(!m_box->logic.isWaitingForFirstLoad());
        if (m_service->isRunning()) {
            m_box->proxy.startVelaProcess({});
            QTRY_VERIFY_WITH_TIMEOUT(m_box->cloud.isLoggedIn(), WireClient::Patience);
        }
    }

    void closeBox()
    {
        m_box.reset();
        UninitRecentFile();
    }

    void useElsewhere(const char *name, const char *operation)
    {
        WireClient tablet(m_service->socketPath());
        QVERIFY(tablet.greet());
        AddRoamingRecordArg uses;
        FileRecordItem use;
        use.path = std::string("/tablet/") + name;
        use.name = name;
        use.operation = operation;
        use.deviceId = "tablet-1";
        use.deviceName = "Tablet";
        use.actionTime = QDateTime::currentMSecsSinceEpoch();
        uses.records.push_back(use);
        const auto answer = tablet.call<AddRoamingRecordResult>("addRoamingRecord", uses);
        QVERIFY(answer && answer->items.size() == 1);
    }

    std::vector<RecentFileItem> listElsewhere()
    {
        WireClient tablet(m_service->socketPath());
        if (!tablet.greet())
            return {};
        const auto answer = tablet.call<GetRecentFilesResult>("getRecentFiles", GetRecentFilesArg());
        return answer ? answer->items : std::vector<RecentFileItem>();
    }

    Model &model() const { return m_box->model; }
    // -2: no such row.
    int mark(const QString &name) const
    {
        for (int row = 0; row < model().rowCount(); ++row) {
            const QModelIndex index = model().index(row);
            if (index.data(Model::NameRole).toString() == name)
                return index.data(Model::UnreadRole).toInt();
        }
        return -2;
    }

    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<Box> m_box;
};

QTEST_GUILESS_MAIN(TestDevices)
#include "tst_devices.moc"

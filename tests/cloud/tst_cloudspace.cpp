#include "cloud/cloudspace.h"
#include "support/fakecloud.h"

using zel::vela::GetStorageInfoResult;

class TestCloudSpace : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void followsTheSignIn()
    {
        FakeCloud cloud;
        CloudSpace space(&cloud);
        QVERIFY(!space.isLoggedIn());
        QVERIFY(cloud.answer("getStorageInfo", storage(20, 100)));
        QCOMPARE(space.usedBytes(), 20); // of this computer
        cloud.logIn("me"_s);
        QVERIFY(space.isLoggedIn() && space.isLocalAccount() && !space.isKnown());
        QSignalSpy changed(&space, &CloudSpace::changed);
        QVERIFY(cloud.answer("getStorageInfo", storage(30, 100)));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(space.usedBytes(), 30);
        QCOMPARE(space.totalBytes(), 100);
        cloud.logIn(QString());
        QVERIFY(!space.isLoggedIn() && !space.isKnown());
        cloud.asked.clear();
        cloud.connectNow();
        QCOMPARE(cloud.asked.size(), 1); // after a loss, without another sign-in
    }

    void whichAnswersCount_data()
    {
        const auto row = zeltest::table<bool, int, bool, qint64>("ok", "state", "signedOutMeanwhile", "used");
        row("good", true, 0, false, qint64(30));
        row("service away", false, 0, false, qint64(-1));
        row("refused", true, 7, false, qint64(-1));
        row("signed out meanwhile", true, 0, true, qint64(-1));
    }
    void whichAnswersCount()
    {
        const auto [ok, state, signedOutMeanwhile] = zeltest::row<bool, int, bool>();
        FakeCloud cloud;
        cloud.user = "me"_s;
        CloudSpace space(&cloud);
        if (signedOutMeanwhile)
            cloud.logIn(QString());
        QVERIFY(cloud.answer("getStorageInfo", storage(30, 100, state), ok));
        QTEST(space.usedBytes(), "used");
    }

    void manyChangesAreOneQuestion()
    {
        FakeCloud cloud;
        CloudSpace space(&cloud);
        cloud.logIn("me"_s);
        cloud.asked.clear();
        for (int i = 0; i < 50; ++i)
            Q_EMIT cloud.velaEventObject()->signal_pushArrived("notifyFileAction"_s, {});
        QVERIFY(cloud.asked.isEmpty());
        QTRY_COMPARE(cloud.asked.size(), 1);
    }

    void withoutItsCloud()
    {
        auto cloud = std::make_unique<FakeCloud>();
        CloudSpace space(cloud.get());
        cloud.reset();
        space.refresh();
        QCoreApplication::processEvents();
        QVERIFY(!space.isKnown());
    }

private:
    static GetStorageInfoResult storage(qint64 used, qint64 total, int state = 0)
    {
        const auto result = filled(&GetStorageInfoResult::usedSize, used, &GetStorageInfoResult::totalSize,
            total, &GetStorageInfoResult::state, state);
        return result;
    }
};

QTEST_GUILESS_MAIN(TestCloudSpace)
#include "tst_cloudspace.moc"

#include "cloud/cloudspace.h"
#include "support/fakecloud.h"

#include <QSignalSpy>
#include <QtTest>

using zel::vela::GetStorageInfoResult;

namespace {

GetStorageInfoResult storage(qint64 used, qint64 total, int state = 0)
{
    GetStorageInfoResult result;
    result.usedSize = used;
    result.totalSize = total;
    result.state = state;
    return result;
}

} // namespace

class TestCloudSpace : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void followsTheSignIn();
    void whichAnswersCount_data();
    void whichAnswersCount();
    void manyChangesAreOneQuestion();
    void withoutItsCloud();
};

void TestCloudSpace::followsTheSignIn()
{
    FakeCloud cloud;
    CloudSpace space(&cloud);
    QVERIFY(!space.isLoggedIn());
    QVERIFY(cloud.answer("getStorageInfo", storage(20, 100)));
    QCOMPARE(space.usedBytes(), 20); // of this computer
    cloud.logIn(QStringLiteral("me"));
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

void TestCloudSpace::whichAnswersCount_data()
{
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("state");
    QTest::addColumn<bool>("signedOutMeanwhile");
    QTest::addColumn<qint64>("used");
    QTest::newRow("good") << true << 0 << false << qint64(30);
    QTest::newRow("service away") << false << 0 << false << qint64(-1);
    QTest::newRow("refused") << true << 7 << false << qint64(-1);
    QTest::newRow("signed out meanwhile") << true << 0 << true << qint64(-1);
}

void TestCloudSpace::whichAnswersCount()
{
    QFETCH(bool, ok);
    QFETCH(int, state);
    QFETCH(bool, signedOutMeanwhile);
    FakeCloud cloud;
    cloud.user = QStringLiteral("me");
    CloudSpace space(&cloud);
    if (signedOutMeanwhile)
        cloud.logIn(QString());
    QVERIFY(cloud.answer("getStorageInfo", storage(30, 100, state), ok));
    QTEST(space.usedBytes(), "used");
}

void TestCloudSpace::manyChangesAreOneQuestion()
{
    FakeCloud cloud;
    CloudSpace space(&cloud);
    cloud.logIn(QStringLiteral("me"));
    cloud.asked.clear();
    for (int i = 0; i < 50; ++i)
        Q_EMIT cloud.velaEventObject()->signal_pushArrived(QStringLiteral("notifyFileAction"), {});
    QVERIFY(cloud.asked.isEmpty());
    QTRY_COMPARE(cloud.asked.size(), 1);
}

void TestCloudSpace::withoutItsCloud()
{
    auto cloud = std::make_unique<FakeCloud>();
    CloudSpace space(cloud.get());
    cloud.reset();
    space.refresh();
    QCoreApplication::processEvents();
    QVERIFY(!space.isKnown());
}

QTEST_GUILESS_MAIN(TestCloudSpace)
#include "tst_cloudspace.moc"

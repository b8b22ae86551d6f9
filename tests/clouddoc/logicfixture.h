#pragma once

#include "clouddoc/clouddoclogic.h"
#include "support/fakecloud.h"
#include "support/printmodel.h"
#include "support/test.h"

/// Names of the rows.
inline QString print(const CloudDocLogic &logic)
{
    return zeltest::printModel(*logic.documents());
}

/// The page's logic over a service that the test plays; new for each row.
class LogicFixture : public QObject
{
    Q_OBJECT
protected:
    void start()
    {
        m_cloud = std::make_unique<FakeCloud>();
        m_logic = std::make_unique<CloudDocLogic>(m_cloud.get());
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_logic->documents(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
    void stop()
    {
        m_tester.reset();
        m_logic.reset();
        m_cloud.reset();
    }
    void openRoot(const QStringList &items)
    {
        cloud().connectNow();
        logic().openRoot();
        QVERIFY(page("root"_s, items));
        QCOMPARE(logic().state(), CloudDocLogic::State::Ready);
    }
    bool page(const QString &folder, const QStringList &items)
    {
        return m_cloud->answer("getInfoList", FakeCloud::page(folder, items));
    }
    CloudDocLogic &logic() { return *m_logic; }
    FakeCloud &cloud() { return *m_cloud; }

    std::unique_ptr<FakeCloud> m_cloud;
    std::unique_ptr<CloudDocLogic> m_logic;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

#include "clouddoc/clouddoclogic.h"
#include "support/serviceprocess.h"

#include "kcloudsvrproxy.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <memory>

using Operation = CloudOperation;
using State = CloudDocLogic::State;
using TransferState = CloudTransfer::State;

/// The page's logic with the real service and its drive, which is a folder here.
class TestDrive : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aDayInTheDrive();
    void folderIsRemovedFromOutside();
    void transfersOutliveTheService();
    void largeFolderArrives();

private:
    static constexpr int Patience = 30000;

    void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    QString inDrive(const QString &path) const
    {
        return m_service->home() + QStringLiteral("/ZEL Cloud/") + path;
    }
    QString local(const QString &path) const { return m_service->home() + QStringLiteral("/local/") + path; }
    QString print() const;
    QString idOf(const char *name) const;
    void reach();

    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<KCloudSvrProxy> m_proxy;
    std::unique_ptr<CloudDocLogic> m_logic;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void TestDrive::init()
{
    m_service = std::make_unique<ServiceProcess>();
    QVERIFY(m_service->start());
    m_proxy = std::make_unique<KCloudSvrProxy>();
    m_logic = std::make_unique<CloudDocLogic>(m_proxy.get());
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_logic->documents(), QAbstractItemModelTester::FailureReportingMode::QtTest);
}

void TestDrive::cleanup()
{
    m_tester.reset();
    m_logic.reset();
    m_proxy.reset();
    m_service.reset();
}

void TestDrive::reach()
{
    m_proxy->startVelaProcess({});
    m_logic->openRoot();
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->state(), State::Ready, Patience);
}

QString TestDrive::print() const
{
    QStringList names;
    for (int row = 0; row < m_logic->documents()->rowCount(); ++row)
        names << m_logic->documents()->document(row).name;
    return names.join(QLatin1Char(' '));
}

QString TestDrive::idOf(const char *name) const
{
    for (int row = 0; row < m_logic->documents()->rowCount(); ++row)
        if (m_logic->documents()->document(row).name == QLatin1String(name))
            return m_logic->documents()->document(row).id;
    return {};
}

void TestDrive::aDayInTheDrive()
{
    QSignalSpy ended(m_logic.get(), &CloudDocLogic::transferEnded);
    QSignalSpy conflicts(m_logic.get(), &CloudDocLogic::conflictsFound);
    QSignalSpy undoable(m_logic.get(), &CloudDocLogic::undoable);
    reach();
    m_logic->createFolder(QStringLiteral("报告"));
    QTRY_COMPARE(print(), QStringLiteral("报告"));
    const QString folder = m_logic->documents()->document(0).id;

    write(local(QStringLiteral("a.odt")), "one");
    write(local(QStringLiteral("tree/b.txt")), "two");
    m_logic->upload({local(QStringLiteral("a.odt")), local(QStringLiteral("tree"))});
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 2, Patience);
    QTRY_COMPARE(print(), QStringLiteral("tree 报告 a.odt"));
    QCOMPARE(m_logic->documents()->document(2).localPath, inDrive(QStringLiteral("a.odt")));

    m_logic->upload({local(QStringLiteral("a.odt"))});
    QTRY_COMPARE(conflicts.count(), 1);
    m_logic->upload({local(QStringLiteral("a.odt"))}, {}, CloudNameChoice::KeepBoth);
    QTRY_COMPARE_WITH_TIMEOUT(print(), QStringLiteral("tree 报告 a (2).odt a.odt"), Patience);
    const QString second = idOf("a (2).odt");
    m_logic->rename(second, QStringLiteral("c.odt"));
    QTRY_COMPARE(print(), QStringLiteral("tree 报告 a.odt c.odt"));
    QCOMPARE(idOf("c.odt"), second);
    m_logic->move({second, idOf("tree")}, folder);
    QTRY_COMPARE(print(), QStringLiteral("报告 a.odt"));
    QTRY_COMPARE(undoable.count(), 2); // a push may have told before the answer
    m_logic->undo(undoable.takeLast().at(0).value<CloudUndo>());
    QTRY_COMPARE(print(), QStringLiteral("tree 报告 a.odt c.odt"));
    m_logic->undo(undoable.takeLast().at(0).value<CloudUndo>());
    QTRY_COMPARE(print(), QStringLiteral("tree 报告 a (2).odt a.odt"));
    m_logic->rename(second, QStringLiteral("c.odt"));
    QTRY_COMPARE(undoable.count(), 1);
    m_logic->move({second, idOf("tree")}, folder);
    QTRY_COMPARE(undoable.count(), 2);
    m_logic->openFolder(folder);
    QTRY_COMPARE(print(), QStringLiteral("tree c.odt"));

    m_logic->download({idOf("tree"), idOf("c.odt")}, local(QStringLiteral("down")));
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 5, Patience);
    QVERIFY(QFile::exists(local(QStringLiteral("down/tree/b.txt"))));
    m_logic->trash({idOf("tree"), idOf("c.odt")});
    QTRY_COMPARE(print(), QString());
    QVERIFY(!QFile::exists(inDrive(QStringLiteral("报告/c.odt"))));
    QTRY_COMPARE(undoable.count(), 3);
    m_logic->undo(undoable.last().at(0).value<CloudUndo>());
    QTRY_COMPARE(print(), QStringLiteral("tree c.odt"));
    QCOMPARE(idOf("c.odt"), second);
    m_logic->clearFinishedTransfers();
    QTRY_COMPARE(m_logic->transfers()->rowCount(), 0);
}

// Another program works in the drive's folder.
void TestDrive::folderIsRemovedFromOutside()
{
    write(inDrive(QStringLiteral("f/g/x")), "x");
    reach();
    m_logic->openFolder(idOf("f"));
    QTRY_COMPARE(print(), QStringLiteral("g"));
    m_logic->openFolder(idOf("g"));
    QTRY_COMPARE(print(), QStringLiteral("x"));
    write(inDrive(QStringLiteral("f/g/y")), "y");
    QTRY_COMPARE_WITH_TIMEOUT(print(), QStringLiteral("x y"), Patience);
    QVERIFY(QDir().rename(inDrive(QStringLiteral("f")), inDrive(QStringLiteral("new"))));
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->crumbs().value(1).name, QStringLiteral("new"), Patience);
    QVERIFY(QDir(inDrive(QStringLiteral("new"))).removeRecursively());
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->crumbs().size(), 1, Patience);
    QTRY_COMPARE(m_logic->state(), State::Ready);
    QCOMPARE(print(), QString());
}

void TestDrive::transfersOutliveTheService()
{
    constexpr int Bytes = 64 * 1024 * 1024;
    reach();
    QSignalSpy ended(m_logic.get(), &CloudDocLogic::transferEnded);
    write(local(QStringLiteral("large")), QByteArray(Bytes, 'x'));
    write(local(QStringLiteral("other")), QByteArray(Bytes, 'y'));
    write(local(QStringLiteral("third")), QByteArray(Bytes, 'z'));
    m_logic->upload(
        {local(QStringLiteral("large")), local(QStringLiteral("other")), local(QStringLiteral("third"))});
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->transfers()->rowCount(), 3, Patience);
    const QString third = m_logic->transfers()->newestFirst().at(0).id;
    QCOMPARE(m_logic->transfers()->newestFirst().at(0).name, QStringLiteral("third"));
    m_logic->cancelTransfers({third}); // it waits or runs
    m_service->kill();
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->state(), State::Offline, Patience);
    QSignalSpy failed(m_logic.get(), &CloudDocLogic::operationFailed);
    m_logic->createFolder(QStringLiteral("nothing"));
    QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, Patience);
    QVERIFY(m_service->start());
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->state(), State::Ready, Patience);
    m_logic->cancelTransfers({third}); // the first time may have come too late
    const auto settled = [this] {
        for (int row = 0; row < 3; ++row)
            if (!m_logic->transfers()->transfer(row).hasEnded())
                return false;
        return true;
    };
    QTRY_VERIFY_WITH_TIMEOUT(settled(), 2 * Patience);
    QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(inDrive(QStringLiteral("large"))).size(), qint64(Bytes), Patience);
    QTRY_VERIFY_WITH_TIMEOUT(!idOf("large").isEmpty() && !idOf("other").isEmpty(), Patience);
    QCOMPARE(m_logic->transfers()->newestFirst().at(2).state, TransferState::Done);
    QCOMPARE(m_logic->transfers()->newestFirst().at(1).state, TransferState::Done);
}

void TestDrive::largeFolderArrives()
{
    constexpr int Count = 3000;
    for (int i = 0; i < Count; ++i)
        write(inDrive(QStringLiteral("n%1").arg(i)), {});
    reach();
    QTRY_VERIFY_WITH_TIMEOUT(m_logic->isComplete(), Patience);
    QCOMPARE(m_logic->documents()->rowCount(), Count);
    QCOMPARE(m_logic->documents()->document(2).name, QStringLiteral("n2")); // by value, not "n10"
    for (int i = 0; i < Count; i += 2)
        QVERIFY(QFile::remove(inDrive(QStringLiteral("n%1").arg(i))));
    QTRY_COMPARE_WITH_TIMEOUT(m_logic->documents()->rowCount(), Count / 2, Patience);
    QCOMPARE(m_logic->documents()->document(2).name, QStringLiteral("n5"));
}

QTEST_GUILESS_MAIN(TestDrive)
#include "tst_drive.moc"

#include "clouddoc/clouddoclogic.h"
#include "support/printmodel.h"
#include "support/serviceprocess.h"
#include "support/temptree.h"

#include "kcloudsvrproxy.h"

using Operation = CloudOperation;
using State = CloudDocLogic::State;
using TransferState = CloudTransfer::State;

/// The page's logic with the real service and its drive, which is a folder here.
class TestDrive : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_service = std::make_unique<ServiceProcess>();
        QVERIFY(m_service->start());
        m_proxy = std::make_unique<KCloudSvrProxy>();
        m_logic = std::make_unique<CloudDocLogic>(m_proxy.get());
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_logic->documents(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    }

    void cleanup()
    {
        m_tester.reset();
        m_logic.reset();
        m_proxy.reset();
        m_service.reset();
    }

    void aDayInTheDrive()
    {
        QSignalSpy ended(m_logic.get(), &CloudDocLogic::transferEnded);
        QSignalSpy conflicts(m_logic.get(), &CloudDocLogic::conflictsFound);
        QSignalSpy undoable(m_logic.get(), &CloudDocLogic::undoable);
        reach();
        m_logic->createFolder("报告"_s);
        QTRY_COMPARE(undoable.count(), 1); // a push may have told before the answer
        undoable.clear();
        QCOMPARE(print(), "报告"_s);
        const QString folder = m_logic->documents()->document(0).id;

        m_files.write(local("a.odt"_s), "one");
        m_files.write(local("tree/b.txt"_s), "two");
        m_logic->upload({local("a.odt"_s), local("tree"_s)});
        QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 2, Patience);
        QTRY_COMPARE(print(), "tree 报告 a.odt"_s);
        QCOMPARE(m_logic->documents()->document(2).localPath, inDrive("a.odt"_s));

        m_logic->upload({local("a.odt"_s)});
        QTRY_COMPARE(conflicts.count(), 1);
        m_logic->upload({local("a.odt"_s)}, {}, CloudNameChoice::KeepBoth);
        QTRY_COMPARE_WITH_TIMEOUT(print(), "tree 报告 a (2).odt a.odt"_s, Patience);
        const QString second = idOf("a (2).odt");
        m_logic->rename(second, "c.odt"_s);
        QTRY_COMPARE(print(), "tree 报告 a.odt c.odt"_s);
        QCOMPARE(idOf("c.odt"), second);
        m_logic->move({second, idOf("tree")}, folder);
        QTRY_COMPARE(print(), "报告 a.odt"_s);
        QTRY_COMPARE(undoable.count(), 2); // a push may have told before the answer
        m_logic->undo(undoable.takeLast().at(0).value<CloudUndo>());
        QTRY_COMPARE(print(), "tree 报告 a.odt c.odt"_s);
        m_logic->undo(undoable.takeLast().at(0).value<CloudUndo>());
        QTRY_COMPARE(print(), "tree 报告 a (2).odt a.odt"_s);
        m_logic->rename(second, "c.odt"_s);
        QTRY_COMPARE(undoable.count(), 1);
        m_logic->move({second, idOf("tree")}, folder);
        QTRY_COMPARE(undoable.count(), 2);
        m_logic->openFolder(folder);
        QTRY_COMPARE(print(), "tree c.odt"_s);

        m_logic->download({idOf("tree"), idOf("c.odt")}, local("down"_s));
        QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 5, Patience);
        QVERIFY(QFile::exists(local("down/tree/b.txt"_s)));
        m_logic->trash({idOf("tree"), idOf("c.odt")});
        QTRY_COMPARE(print(), QString());
        QVERIFY(!QFile::exists(inDrive("报告/c.odt"_s)));
        QTRY_COMPARE(undoable.count(), 3);
        m_logic->undo(undoable.last().at(0).value<CloudUndo>());
        QTRY_COMPARE(print(), "tree c.odt"_s);
        QCOMPARE(idOf("c.odt"), second);
        m_logic->clearFinishedTransfers();
        QTRY_COMPARE(m_logic->transfers()->rowCount(), 0);
    }

    // Another program works in the drive's folder.
    void folderIsRemovedFromOutside()
    {
        m_files.write(inDrive("f/g/x"_s), "x");
        reach();
        m_logic->openFolder(idOf("f"));
        QTRY_COMPARE(print(), "g"_s);
        m_logic->openFolder(idOf("g"));
        QTRY_COMPARE(print(), "x"_s);
        m_files.write(inDrive("f/g/y"_s), "y");
        QTRY_COMPARE_WITH_TIMEOUT(print(), "x y"_s, Patience);
        QVERIFY(QDir().rename(inDrive("f"_s), inDrive("new"_s)));
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->crumbs().value(1).name, "new"_s, Patience);
        QVERIFY(QDir(inDrive("new"_s)).removeRecursively());
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->crumbs().size(), 1, Patience);
        QTRY_COMPARE(m_logic->state(), State::Ready);
        QCOMPARE(print(), QString());
    }

    void transfersOutliveTheService()
    {
        constexpr int Bytes = 64 * 1024 * 1024;
        reach();
        QSignalSpy ended(m_logic.get(), &CloudDocLogic::transferEnded);
        m_files.write(local("large"_s), QByteArray(Bytes, 'x'));
        m_files.write(local("other"_s), QByteArray(Bytes, 'y'));
        m_files.write(local("third"_s), QByteArray(Bytes, 'z'));
        m_logic->upload({local("large"_s), local("other"_s), local("third"_s)});
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->transfers()->rowCount(), 3, Patience);
        const QString third = m_logic->transfers()->newestFirst().at(0).id;
        QCOMPARE(m_logic->transfers()->newestFirst().at(0).name, "third"_s);
        m_logic->cancelTransfers({third}); // it waits or runs
        m_service->kill();
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->state(), State::Offline, Patience);
        QSignalSpy failed(m_logic.get(), &CloudDocLogic::operationFailed);
        m_logic->createFolder("nothing"_s);
        const auto isFolder = [](const QList<QVariant> &end) { // the cancelling may fail beside it
            return end.at(0).value<CloudOperation>() == CloudOperation::CreateFolder;
        };
        QTRY_COMPARE_WITH_TIMEOUT(int(std::count_if(failed.cbegin(), failed.cend(), isFolder)), 1, Patience);
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
        QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(inDrive("large"_s)).size(), qint64(Bytes), Patience);
        QTRY_VERIFY_WITH_TIMEOUT(!idOf("large").isEmpty() && !idOf("other").isEmpty(), Patience);
        QCOMPARE(m_logic->transfers()->newestFirst().at(2).state, TransferState::Done);
        QCOMPARE(m_logic->transfers()->newestFirst().at(1).state, TransferState::Done);
    }

    void largeFolderArrives()
    {
        constexpr int Count = 3000;
        for (int i = 0; i < Count; ++i)
            m_files.write(inDrive("n%1"_s.arg(i)), {});
        reach();
        QTRY_VERIFY_WITH_TIMEOUT(m_logic->isComplete(), Patience);
        QCOMPARE(m_logic->documents()->rowCount(), Count);
        QCOMPARE(m_logic->documents()->document(2).name, "n2"_s); // by value, not "n10"
        for (int i = 0; i < Count; i += 2)
            QVERIFY(QFile::remove(inDrive("n%1"_s.arg(i))));
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->documents()->rowCount(), Count / 2, Patience);
        QCOMPARE(m_logic->documents()->document(2).name, "n5"_s);
    }

private:
    static constexpr int Patience = 30000;

    QString inDrive(const QString &path) const { return m_service->home() + "/ZEL Cloud/"_s + path; }
    QString local(const QString &path) const { return m_service->home() + "/local/"_s + path; }
    QString print() const { return zeltest::printModel(*m_logic->documents()); }
    QString idOf(const char *name) const
    {
        for (int row = 0; row < m_logic->documents()->rowCount(); ++row)
            if (m_logic->documents()->document(row).name == QLatin1String(name))
                return m_logic->documents()->document(row).id;
        return {};
    }

    void reach()
    {
        m_proxy->startVelaProcess({});
        m_logic->openRoot();
        QTRY_COMPARE_WITH_TIMEOUT(m_logic->state(), State::Ready, Patience);
    }

    zeltest::TempTree m_files;
    std::unique_ptr<ServiceProcess> m_service;
    std::unique_ptr<KCloudSvrProxy> m_proxy;
    std::unique_ptr<CloudDocLogic> m_logic;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_GUILESS_MAIN(TestDrive)
#include "tst_drive.moc"

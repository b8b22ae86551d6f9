#include "recentfile/recentfileactions.h"

#include "recentfile/fakes.h"
#include "support/fakecloud.h"

#include <QSignalSpy>
#include <QTest>

using namespace recenttest;
using Ended = RecentCloud::Ended;

/// What the page's actions ask of the store, the desktop and the cloud service.
class TestActions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { m_actions.reset(); }
    void deletingEndsOnce_data();
    void deletingEndsOnce();
    void anotherDeletionWaits();
    void twoRecordsOfOneFileGoTogether();
    void undoBringsBackWhatWent_data();
    void undoBringsBackWhatWent();
    void withoutServiceTheDesktopDoes();
    void removingForgetsOnAllDevices();
    void sharing();
    void loginIsToldOncePerUser();

private:
    /// "a" here, "b" in the cloud with a copy here, "c" in the cloud only.
    RecentFileInfo file(const QString &name) const;
    RecordInfoList files(const QString &names) const;
    static QString names(const QVariant &list);

    QStringList m_log;
    FakeStore m_store;
    FakeTrash m_trash;
    std::unique_ptr<FakeCloud> m_proxy;
    std::unique_ptr<RecentCloud> m_cloud;
    std::unique_ptr<RecentFileActions> m_actions;
};

void TestActions::init()
{
    m_log.clear();
    m_store = {};
    m_store.log = &m_log;
    m_trash.asked.clear();
    m_trash.slow = false;
    m_proxy = std::make_unique<FakeCloud>();
    m_proxy->logIn(QStringLiteral("me"));
    m_cloud = std::make_unique<RecentCloud>(m_proxy.get());
    m_actions =
        std::make_unique<RecentFileActions>(RecentFileActions::Services{&m_store, &m_trash, m_cloud.get()});
}

RecentFileInfo TestActions::file(const QString &name) const
{
    RecentFileInfo info = record(name, 5000);
    if (name.startsWith(QLatin1Char('b')) || name.startsWith(QLatin1Char('c'))) {
        info.cloudFileId = 7;
        info.cloudBacked = true;
        info.cloudName = name + QStringLiteral(".doc");
        info.roamingId = QStringLiteral("r") + name;
    }
    if (name.startsWith(QLatin1Char('c')))
        info.path.clear();
    return info;
}

RecordInfoList TestActions::files(const QString &list) const
{
    RecordInfoList records;
    const QStringList words = list.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &name : words)
        records << file(name);
    return records;
}

QString TestActions::names(const QVariant &list)
{
    QStringList ids;
    const auto records = list.value<RecordInfoList>();
    for (const RecentFileInfo &each : records)
        ids << each.id;
    return ids.join(QLatin1Char(' '));
}

void TestActions::deletingEndsOnce_data()
{
    QTest::addColumn<QString>("files");
    QTest::addColumn<QVector<Ended>>("answers"); // of the service, in order
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QString>("failed");
    QTest::addColumn<QString>("trashed"); // by the desktop
    const auto done = Ended::Done;
    const auto refused = Ended::Refused;
    const auto silent = Ended::NotReached;
    const auto row = [](const char *name, const char *files, const QVector<Ended> &answers,
                         const char *deleted, const char *failed, const char *trashed) {
        QTest::newRow(name) << QString::fromLatin1(files) << answers << QString::fromLatin1(deleted)
                            << QString::fromLatin1(failed) << QString::fromLatin1(trashed);
    };
    row("by the service", "a b", {done, done}, "a b", "", "");
    row("one refused", "a b", {done, refused}, "a", "b", "");
    row("service is silent", "a", {silent}, "a", "", "/data/docs/a.odt");
    row("silent, cloud only", "c", {silent}, "", "c", "");
    row("desktop denies", "stuck a", {silent, silent}, "a", "stuck", "/data/docs/stuck.odt /data/docs/a.odt");
}

void TestActions::deletingEndsOnce()
{
    QFETCH(QString, files);
    QFETCH(QVector<Ended>, answers);
    QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
    m_actions->deleteFiles(this->files(files));
    m_actions->deleteFiles(this->files(files)); // the same once more
    const RecordInfoList asked = this->files(files);
    for (int i = 0; i < asked.size(); ++i) { // what is here goes by its path, also with a copy in the cloud
        const QString &path = asked.at(i).path;
        QCOMPARE(m_proxy->asked.value(i),
            QStringLiteral("remove ") + (path.isEmpty() ? QStringLiteral("id 7") : path));
    }
    QCOMPARE(ended.size(), 0);
    for (const Ended answer : answers)
        QVERIFY(m_proxy->answerRemove(answer != Ended::NotReached, answer == Ended::Refused ? 5 : 0));
    QVERIFY(!m_proxy->isAnyWaiting());
    QCOMPARE(ended.size(), 1);
    QTEST(names(ended.at(0).at(0)), "deleted");
    QTEST(names(ended.at(0).at(1)), "failed");
    QTEST(m_trash.asked.join(QLatin1Char(' ')), "trashed");
    const QString deleted = names(ended.at(0).at(0)); // only these leave the list
    QCOMPARE(m_log, deleted.isEmpty() ? QStringList() : QStringList(QStringLiteral("forget ") + deleted));
}

void TestActions::anotherDeletionWaits()
{
    QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
    m_actions->deleteFiles(files(QStringLiteral("a")));
    m_actions->deleteFiles(files(QStringLiteral("a b"))); // while the service thinks about the first
    QVERIFY(m_proxy->answerRemove(true));
    QCOMPARE(names(ended.at(0).at(0)), QStringLiteral("a"));
    QVERIFY(m_proxy->answerRemove(true));
    QCOMPARE(ended.size(), 2);
    QCOMPARE(names(ended.at(1).at(0)), QStringLiteral("b"));
}

void TestActions::twoRecordsOfOneFileGoTogether()
{
    QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
    m_trash.slow = true;
    RecordInfoList records = files(QStringLiteral("a b"));
    records[1].path = records[0].path;
    m_actions->deleteFiles(records);
    for (int i = 0; i < 2; ++i)
        QVERIFY(m_proxy->answerRemove(false));
    QCOMPARE(m_trash.asked.size(), 1);
    Q_EMIT m_trash.trashed(records[0].path, QStringLiteral("trash:a"), KFileTrash::Outcome::Done);
    QCOMPARE(ended.size(), 1);
    QSignalSpy restored(m_actions.get(), &RecentFileActions::filesRestored);
    m_actions->undoDelete();
    QCOMPARE(names(restored.value(0).value(0)), QStringLiteral("a b"));
}

void TestActions::undoBringsBackWhatWent_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("byService");
    QTest::addColumn<bool>("works");
    QTest::newRow("service's bin") << QStringLiteral("b") << true << true;
    QTest::newRow("service refuses") << QStringLiteral("b") << true << false;
    QTest::newRow("desktop's trash") << QStringLiteral("a") << false << true;
    QTest::newRow("place is taken") << QStringLiteral("taken") << false << false;
}

void TestActions::undoBringsBackWhatWent()
{
    QFETCH(QString, file);
    QFETCH(bool, byService);
    QFETCH(bool, works);
    QSignalSpy restored(m_actions.get(), &RecentFileActions::filesRestored);
    m_actions->deleteFiles({this->file(file)});
    QVERIFY(m_proxy->answerRemove(byService));
    m_actions->deleteFiles(files(QStringLiteral("c"))); // fails, and takes nothing from the offer
    QVERIFY(m_proxy->answerRemove(false));
    m_log.clear();
    m_actions->undoDelete();
    if (byService) {
        QCOMPARE(m_proxy->asked.last(), QStringLiteral("recoverRecycles bin"));
        zel::vela::RecoverRecyclesResult result;
        if (works)
            result.recoveredIds.push_back("bin");
        QVERIFY(m_proxy->answer("recoverRecycles", result));
    }
    QCOMPARE(restored.size(), 1);
    QCOMPARE(names(restored.at(0).at(works ? 0 : 1)), file);
    QCOMPARE(m_log.contains(QStringLiteral("unforget ") + file), works);
    m_actions->undoDelete(); // once more: there is nothing left
    QCOMPARE(restored.size(), 1);
}

void TestActions::withoutServiceTheDesktopDoes()
{
    RecentCloud nowhere(nullptr);
    RecentFileActions actions({&m_store, &m_trash, &nowhere});
    QSignalSpy ended(&actions, &RecentFileActions::filesDeleted);
    actions.deleteFiles(files(QStringLiteral("a")));
    QVERIFY(ended.size() == 1 || ended.wait());
    QCOMPARE(m_trash.asked, QStringList(QStringLiteral("/data/docs/a.odt")));
    nowhere.share(file(QStringLiteral("b"))); // nobody is logged in: nothing happens
    QVERIFY(!nowhere.isLoggedIn());
}

void TestActions::removingForgetsOnAllDevices()
{
    m_actions->removeRecords(files(QStringLiteral("a b c")));
    QCOMPARE(m_log, QStringList(QStringLiteral("forget a b c")));
    QCOMPARE(m_proxy->asked,
        QStringList(QStringLiteral("velaIpcCall KVelaIpcCallObj delRoamingFileRecord roamingIds=rb|rc")));
    m_actions->removeRecords(files(QStringLiteral("a"))); // the service knows nothing of it
    QCOMPARE(m_proxy->asked.size(), 1);
}

void TestActions::sharing()
{
    const QString file = QStringLiteral("b");
    QSignalSpy ended(m_cloud.get(), &RecentCloud::shareEnded);
    m_cloud->share(this->file(file));
    QCOMPARE(m_proxy->asked.last(), QStringLiteral("showFileShareDlg 7,b.doc,/data/docs/b.odt,5,zelbox"));
    zel::vela::ShowFileShareDlgResult result;
    result.state = 1;
    QVERIFY(m_proxy->answer("showFileShareDlg", result));
    QCOMPARE(ended.at(0).at(0).value<RecentFileInfo>().id, file);
    QCOMPARE(ended.at(0).at(1).value<Ended>(), Ended::Refused);
    m_proxy->logIn({});
    m_cloud->share(this->file(file));
    QVERIFY(!m_proxy->isAnyWaiting());
}

void TestActions::loginIsToldOncePerUser()
{
    QSignalSpy changes(m_cloud.get(), &RecentCloud::loginChanged);
    m_proxy->logIn(QStringLiteral("me")); // told again after a reconnect
    QCOMPARE(changes.size(), 0);
    m_proxy->logIn(QStringLiteral("you"));
    m_proxy->logIn({});
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes.at(0).at(0).toBool(), true);
    QCOMPARE(changes.at(1).at(0).toBool(), false);
}

QTEST_GUILESS_MAIN(TestActions)
#include "tst_actions.moc"

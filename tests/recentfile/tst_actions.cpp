#include "recentfile/recentfileactions.h"

#include "recentfile/fakes.h"
#include "support/fakecloud.h"

using namespace recenttest;
using Ended = RecentCloud::Ended;

/// What the page's actions ask of the store, the desktop and the cloud service.
class TestActions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_log.clear();
        m_store = {};
        m_store.log = &m_log;
        m_trash.asked.clear();
        m_trash.slow = false;
        m_proxy = std::make_unique<FakeCloud>();
        m_proxy->logIn("me"_s);
        m_cloud = std::make_unique<RecentCloud>(m_proxy.get());
        m_actions = std::make_unique<RecentFileActions>(
            RecentFileActions::Services{&m_store, &m_trash, m_cloud.get()});
    }

    void cleanup() { m_actions.reset(); }
    void deletingEndsOnce_data()
    {
        // answers: of the service, in order
        // trashed: by the desktop
        const auto row = zeltest::table<QString, QVector<Ended>, QString, QString, QString>(
            "files", "answers", "deleted", "failed", "trashed");
        const auto done = Ended::Done;
        const auto refused = Ended::Refused;
        const auto silent = Ended::NotReached;
        row("by the service", "a b", {done, done}, "a b", "", "");
        row("one refused", "a b", {done, refused}, "a", "b", "");
        row("service is silent", "a", {silent}, "a", "", "/data/docs/a.odt");
        row("silent, cloud only", "c", {silent}, "", "c", "");
        row("desktop denies", "stuck a", {silent, silent}, "a", "stuck",
            "/data/docs/stuck.odt /data/docs/a.odt");
    }
    void deletingEndsOnce()
    {
        const auto [files, answers] = zeltest::row<QString, QVector<Ended>>();
        QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
        m_actions->deleteFiles(this->files(files));
        m_actions->deleteFiles(this->files(files)); // the same once more
        const RecordInfoList asked = this->files(files);
        for (int i = 0; i < asked.size();
             ++i) { // what is here goes by its path, also with a copy in the cloud
            const QString &path = asked.at(i).path;
            QCOMPARE(m_proxy->asked.value(i), "remove "_s + (path.isEmpty() ? "id 7"_s : path));
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
        QCOMPARE(m_log, deleted.isEmpty() ? QStringList() : QStringList("forget "_s + deleted));
    }

    void anotherDeletionWaits()
    {
        QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
        m_actions->deleteFiles(files("a"_s));
        m_actions->deleteFiles(files("a b"_s)); // while the service thinks about the first
        QVERIFY(m_proxy->answerRemove(true));
        QCOMPARE(names(ended.at(0).at(0)), "a"_s);
        QVERIFY(m_proxy->answerRemove(true));
        QCOMPARE(ended.size(), 2);
        QCOMPARE(names(ended.at(1).at(0)), "b"_s);
    }

    void twoRecordsOfOneFileGoTogether()
    {
        QSignalSpy ended(m_actions.get(), &RecentFileActions::filesDeleted);
        m_trash.slow = true;
        RecordInfoList records = files("a b"_s);
        records[1].path = records[0].path;
        m_actions->deleteFiles(records);
        for (int i = 0; i < 2; ++i)
            QVERIFY(m_proxy->answerRemove(false));
        QCOMPARE(m_trash.asked.size(), 1);
        Q_EMIT m_trash.trashed(records[0].path, "trash:a"_s, KFileTrash::Outcome::Done);
        QCOMPARE(ended.size(), 1);
        QSignalSpy restored(m_actions.get(), &RecentFileActions::filesRestored);
        m_actions->undoDelete();
        QCOMPARE(names(restored.value(0).value(0)), "a b"_s);
    }

    void undoBringsBackWhatWent_data()
    {
        const auto row = zeltest::table<QString, bool, bool, bool>("file", "byService", "works", "again");
        row("service's bin", "b"_s, true, true, false);
        row("service refuses", "b"_s, true, false, false);
        row("service is silent", "b"_s, true, false, true);
        row("desktop's trash", "a"_s, false, true, false);
        row("place is taken", "taken"_s, false, false, false);
    }
    void undoBringsBackWhatWent()
    {
        const auto [file, byService, works, again] = zeltest::row<QString, bool, bool, bool>();
        QSignalSpy restored(m_actions.get(), &RecentFileActions::filesRestored);
        m_actions->deleteFiles({this->file(file)});
        QVERIFY(m_proxy->answerRemove(byService));
        m_actions->deleteFiles(files("c"_s)); // fails, and takes nothing from the offer
        QVERIFY(m_proxy->answerRemove(false));
        m_log.clear();
        m_actions->undoDelete();
        if (byService) {
            QCOMPARE(m_proxy->asked.last(), "recoverRecycles bin"_s);
            zel::vela::RecoverRecyclesResult result;
            if (works)
                result.recoveredIds.push_back("bin");
            QVERIFY(m_proxy->answer("recoverRecycles", result, !again));
        }
        QCOMPARE(restored.size(), 1);
        QCOMPARE(names(restored.at(0).at(works ? 0 : 1)), file);
        QCOMPARE(m_log.contains("unforget "_s + file), works);
        QCOMPARE(m_actions->canUndoDelete(), again);
        m_actions->undoDelete(); // once more: mostly there is nothing left
        QCOMPARE(restored.size(), 1);
        QCOMPARE(m_proxy->waiting("recoverRecycles"), int(again));
    }

    void undoneOneAfterTheOther()
    {
        QSignalSpy restored(m_actions.get(), &RecentFileActions::filesRestored);
        for (const char *name : {"a", "b"}) {
            m_actions->deleteFiles(files(QLatin1String(name)));
            QVERIFY(m_proxy->answerRemove(true, 0, name));
            m_actions->undoDelete();
        }
        zel::vela::RecoverRecyclesResult result;
        for (const char *name : {"a", "b"}) {
            result.recoveredIds = {name};
            QVERIFY(m_proxy->answer("recoverRecycles", result));
            QCOMPARE(names(restored.value(restored.size() - 1).value(0)), QLatin1String(name));
        }
        QCOMPARE(restored.size(), 2);
    }

    void withoutServiceTheDesktopDoes()
    {
        RecentCloud nowhere(nullptr);
        RecentFileActions actions({&m_store, &m_trash, &nowhere});
        QSignalSpy ended(&actions, &RecentFileActions::filesDeleted);
        actions.deleteFiles(files("a"_s));
        QVERIFY(ended.size() == 1 || ended.wait());
        QCOMPARE(m_trash.asked, QStringList("/data/docs/a.odt"_s));
        nowhere.share(file("b"_s)); // nobody is logged in: nothing happens
        QVERIFY(!nowhere.isLoggedIn());
    }

    void removingForgetsOnAllDevices()
    {
        m_actions->removeRecords(files("a b c"_s));
        QCOMPARE(m_log, QStringList("forget a b c"_s));
        QCOMPARE(m_proxy->asked,
            QStringList("velaIpcCall KVelaIpcCallObj delRoamingFileRecord roamingIds=rb|rc"_s));
        m_actions->removeRecords(files("a"_s)); // the service knows nothing of it
        QCOMPARE(m_proxy->asked.size(), 1);
    }

    void sharing()
    {
        const QString file = "b"_s;
        m_actions->report(this->file(file));
        QCOMPARE(m_proxy->asked.last(), "velaIpcCall KVelaIpcCallObj reportCloudDoc file=7"_s);
        QSignalSpy ended(m_cloud.get(), &RecentCloud::shareEnded);
        m_cloud->share(this->file(file));
        QCOMPARE(m_proxy->asked.last(), "showFileShareDlg 7,b.doc,/data/docs/b.odt,5,zelbox"_s);
        QVERIFY(m_proxy->answer("showFileShareDlg", filled(&zel::vela::ShowFileShareDlgResult::state, 1)));
        QCOMPARE(ended.at(0).at(0).value<RecentFileInfo>().id, file);
        QCOMPARE(ended.at(0).at(1).value<Ended>(), Ended::Refused);
        m_proxy->logIn({});
        m_cloud->share(this->file(file));
        QVERIFY(!m_proxy->isAnyWaiting());
    }

    void loginIsToldOncePerUser()
    {
        QSignalSpy changes(m_cloud.get(), &RecentCloud::loginChanged);
        m_proxy->logIn("me"_s); // told again after a reconnect
        QCOMPARE(changes.size(), 0);
        m_proxy->logIn("you"_s);
        m_proxy->logIn({});
        QCOMPARE(changes.size(), 2);
        QCOMPARE(changes.at(0).at(0).toBool(), true);
        QCOMPARE(changes.at(1).at(0).toBool(), false);
    }

private:
    /// "a" here, "b" in the cloud with a copy here, "c" in the cloud only.
    RecentFileInfo file(const QString &name) const
    {
        RecentFileInfo info = record(name, 5000);
        if (name.startsWith(QLatin1Char('b')) || name.startsWith(QLatin1Char('c'))) {
            info.cloudFileId = 7;
            info.cloudBacked = true;
            info.cloudName = name + ".doc"_s;
            info.roamingId = "r"_s + name;
        }
        if (name.startsWith(QLatin1Char('c')))
            info.path.clear();
        return info;
    }

    RecordInfoList files(const QString &names) const
    {
        RecordInfoList records;
        for (const QString &name : names.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            records << file(name);
        return records;
    }

    static QString names(const QVariant &list)
    {
        return zeltest::joined(list.value<RecordInfoList>(), &RecentFileInfo::id);
    }

    QStringList m_log;
    FakeStore m_store;
    FakeTrash m_trash;
    std::unique_ptr<FakeCloud> m_proxy;
    std::unique_ptr<RecentCloud> m_cloud;
    std::unique_ptr<RecentFileActions> m_actions;
};

QTEST_GUILESS_MAIN(TestActions)
#include "tst_actions.moc"

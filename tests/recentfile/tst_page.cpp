#include "recentfile/pagefixture.h"

#include "recentfile/ui/feedbackdialog.h"
#include "recentfile/ui/recentfiletitlemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"
#include "widgets/loadingindicator.h"

using namespace recenttest;
/// The states that the page goes through, and what it says.
class TestPage : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { clear(); }
    void cleanup() { m_recent.reset(); }
    void statesOfAFirstLoad_data()
    {
        const auto row = zeltest::table<int, int, bool, int>("mask", "rows", "ready", "expected");
        row("list", 106, 3, true, int(State::List));
        row("empty", 106, 0, true, int(State::Empty));
        row("store not ready", 106, 3, false, int(State::TimedOut));
        row("no kinds", 0, 3, true, int(State::Empty));
        row("no kinds, not ready", 0, 3, false, int(State::Empty));
    }
    void statesOfAFirstLoad()
    {
        const auto [mask, rows, ready] = zeltest::row<int, int, bool>();
        set("RecentRecordType"_s, mask);
        set("recentFileLoadingOuttimeTime"_s, 100);
        make(rows, ready);
        page()->onWindowFirstShown();
        if (ready)
            QTEST(int(page()->state()), "expected"); // at once
        QTRY_VERIFY(page()->state() != State::Waiting);
        QTEST(int(page()->state()), "expected");
        auto *count = page()->findChild<QLabel *>("text-count"_s);
        QCOMPARE(count->isVisible(), page()->state() == State::List);
        QCOMPARE(page()->findChild<QLabel *>("text-title"_s)->text(), "Recent"_s);

        // Rows that come and go later.
        if (page()->state() != State::Empty || mask == 0)
            return;
        Q_EMIT m_events->recordsAdded({record("new"_s, 5)});
        QCOMPARE(page()->state(), State::List);
        QCOMPARE(count->text(), "1"_s);
        Q_EMIT m_events->recordsRemoved({record("new"_s, 5)});
        QCOMPARE(page()->state(), State::Empty);
    }

    void outtimeOffersRetryAndFeedback()
    {
        set("recentFileLoadingOuttimeTime"_s, 20);
        make(3, false);
        page()->onWindowFirstShown();
        QTRY_COMPARE(page()->state(), State::TimedOut);
        QTest::mouseClick(button("Feedback"_s), Qt::LeftButton);
        auto *dialog = page()->findChild<FeedbackDialog *>();
        QVERIFY(dialog && dialog->isVisible());
        for (QAbstractButton *choice : dialog->findChildren<QAbstractButton *>())
            choice->click();
        QVERIFY(QApplication::clipboard()->text().contains("could not be loaded"_s));
        QCOMPARE(m_opener.revealed.size(), 1);
        QCOMPARE(page()->state(), State::TimedOut);

        m_log.clear();
        QTest::mouseClick(button("Retry"_s), Qt::LeftButton);
        QCOMPARE(page()->state(), State::Waiting);
        QCOMPARE(m_log, QStringList({"roaming 1 sync"_s, "init 2"_s}));
        QTRY_COMPARE(page()->state(), State::TimedOut); // once more

        m_store.ready = true;
        Q_EMIT m_events->initFinished(); // late, but there
        QCOMPARE(page()->state(), State::List);
    }

    void loginBeforeTheStoreIsReadyStillWaits()
    {
        make(0, false);
        page()->onWindowFirstShown();
        m_proxy->logIn("me"_s);
        QCOMPARE(page()->state(), State::Waiting); // not the empty page
        m_store.content << record("a"_s, 5);
        m_store.ready = true;
        Q_EMIT m_events->initFinished();
        QCOMPARE(page()->state(), State::List);
    }

    void whoIsSignedInAlreadyIsKnown()
    {
        m_proxy->logIn("me"_s);
        load(0);
        QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox",
            filled(&zel::vela::GetCurrentDefaultRoamingBoxResult::roamingOn, false)));
        QVERIFY(page()->findChild<ZelBoxRecentFileRoamingGuideWidget *>()->isVisible());
        const auto actions = page()->findChild<KRecentFileTitleMenu *>()->actions();
        QVERIFY(actions.first()->isEnabled()); // the reminder
    }

    void loadingShowsNothingAtFirst()
    {
        make(3, false);
        page()->onWindowFirstShown();
        auto *indicator = page()->findChild<LoadingIndicator *>();
        QVERIFY(indicator->isVisible());
        QVERIFY(!indicator->isAnimating());
        QTRY_VERIFY(indicator->isAnimating());
        m_store.ready = true;
        Q_EMIT m_events->initFinished();
        QVERIFY(!indicator->isVisible());
        QVERIFY(!indicator->isAnimating());
    }

    void reloadNeverShowsTheEmptyPage()
    {
        load(3);
        QSignalSpy counts(
            page()->findChild<ZelBoxRecentFileModel *>(), &ZelBoxRecentFileModel::rowCountChanged);
        QVector<State> seen;
        connect(page()->findChild<ZelBoxRecentFileModel *>(), &ZelBoxRecentFileModel::rowCountChanged, this,
            [&] { seen << page()->state(); });
        m_store.content.removeLast();
        Q_EMIT m_events->recordsArrived();
        QCOMPARE(counts.size(), 2);
        QCOMPARE(seen, QVector<State>({State::List, State::List}));
        QCOMPARE(page()->findChild<QLabel *>("text-count"_s)->text(), "2"_s);
        m_store.content.clear();
        Q_EMIT m_events->recordsArrived();
        QCOMPARE(page()->state(), State::Empty);
    }

    void unreadIsShownAndCleared()
    {
        load(4);
        auto *label = page()->findChild<QLabel *>("text-unread"_s);
        QSignalSpy counts(page(), &ZelBoxRecentFileWidgetBase::recentFileUnreadMsgCount);
        QVERIFY(!label->isVisible());
        markUnread(1, ZelBoxRecentFileModel::New);
        markUnread(2, ZelBoxRecentFileModel::Modified);
        QCOMPARE(counts.last().at(0).toInt(), 2);
        QVERIFY(label->isVisible());
        QVERIFY(label->text().contains(QLatin1Char('2')));

        page()->onItemDoubleClicked(row(1)); // who opens it has seen it
        m_opener.answer(m_opener.asked.value(0), KDocumentOpener::Outcome::Opened);
        QCOMPARE(counts.last().at(0).toInt(), 1);
        QVERIFY(m_log.contains("read 1"_s));
        Q_EMIT label->linkActivated({});
        QCOMPARE(counts.last().at(0).toInt(), 0);
        QVERIFY(m_log.contains("read 2"_s));
        QVERIFY(!label->isVisible());

        page()->hide(); // the user is on another page
        page()->onClearUnreadMsgAfterTabChanged();
        markUnread(1, ZelBoxRecentFileModel::New);
        page()->onClearUnreadMsgAfterTabChanged(); // from that one to a third
        QCOMPARE(counts.last().at(0).toInt(), 1);
        page()->show();
        page()->onClearUnreadMsgAfterTabChanged();
        QCOMPARE(counts.last().at(0).toInt(), 0);
    }

    void remindersOff()
    {
        load(2);
        QSignalSpy counts(page(), &ZelBoxRecentFileWidgetBase::recentFileUnreadMsgCount);
        auto *title = page()->findChild<ZelBoxRecentFileTitleWidget *>();
        title->onChangeIgnoreStatus();
        markUnread(1, ZelBoxRecentFileModel::New);
        QCOMPARE(counts.last().at(0).toInt(), 0);
        title->onChangeIgnoreStatus();
        QCOMPARE(counts.last().at(0).toInt(), 1);
    }

    void guides()
    {
        using Guide = ZelBoxRecentFileRoamingGuideWidget;
        load(0);
        QCOMPARE(page()->state(), State::Empty);
        QVERIFY(!button("Sign In"_s)); // nobody knows yet
        QSignalSpy settings(page(), &ZelBoxRecentFileWidgetBase::settingsRequested);
        m_proxy->logIn("me"_s);
        QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox",
            filled(&zel::vela::GetCurrentDefaultRoamingBoxResult::roamingOn, false)));
        auto *strip = page()->findChild<Guide *>();
        QVERIFY(strip->isVisible());
        QTest::mouseClick(button("How It Works"_s, strip), Qt::LeftButton);
        auto *guide = page()->findChild<ZelBoxRecentFileGuideDialog *>();
        QVERIFY(guide && guide->isVisible());
        guide->reject();
        m_proxy->logIn({});
        QVERIFY(!strip->isVisible());
        page()->onNotifyNeedOpenRoaming();
        QTest::mouseClick(button("Switch On"_s, strip), Qt::LeftButton);
        QCOMPARE(settings.size(), 1);
        QVERIFY(!strip->isVisible());
    }

    void telemetry()
    {
        KDcInfoC::setEnabled(true);
        m_proxy->isLoginKnown = false; // the first event waits for it
        load(3);
        m_proxy->isLoginKnown = true;
        m_proxy->logIn("me"_s);
        auto *view = page()->view();
        const QPoint second = view->visualRect(view->model()->index(1, 0)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centreOf(0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
        Q_EMIT m_events->recordsArrived();
        QTRY_COMPARE(events().filter("zelbox_mainbox_recent_filelist_click"_s).size(), 2);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(m_opener.asked, QStringList());
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(m_opener.asked, QStringList{m_store.content.at(1).path});
        KDcInfoC::setEnabled(false);

        const QStringList lines = events();
        QCOMPARE(lines.size(), 5); // the click of a double click is not counted as one
        const QStringList expected{"zelbox_mainbox_recent_filelist_show"_s, "zelbox_mainbox_recent_show"_s,
            "zelbox_mainbox_recent_filelist_click"_s, "zelbox_mainbox_recent_filelist_click"_s,
            "zelbox_mainbox_recent_filelist_doubleclick"_s};
        const QStringList click{"index"_s, "filesize"_s, "fileupdatetime"_s, "icon"_s, "update"_s};
        const QVector<QStringList> parameters{{},
            {"unlogin\":\"false"_s, "notenablecarry"_s, "badgenumber"_s, "resultcount"_s}, click, click,
            {"position"_s, "filestatus"_s, "doubleclick"_s}};
        for (int i = 0; i < lines.size(); ++i) {
            QVERIFY2(lines.at(i).contains(expected.at(i)), qPrintable(lines.at(i)));
            for (const QString &name : parameters.at(i))
                QVERIFY2(lines.at(i).contains(QLatin1Char('"') + name + QLatin1Char('"')),
                    qPrintable(lines.at(i)));
            QVERIFY(!lines.at(i).contains("/data/docs"_s)); // never what the documents are called
        }
    }

    void storeIsHeard()
    {
        m_store.kept = RecentKeeping::NotKept; // since before there was a page
        load(1);
        QVERIFY2(said().contains("cannot be saved"_s), qPrintable(said()));
        Q_EMIT m_events->keepingChanged(RecentKeeping::Kept);
        QVERIFY2(said().contains("saved again"_s), qPrintable(said()));
        Q_EMIT m_events->foldersLeftOut({"/data/docs"_s});
        QVERIFY2(said().contains("“docs” is a folder"_s), qPrintable(said()));
    }

    void selectionIsCounted()
    {
        make(3);
        m_store.content[1].size = 2000;
        page()->onWindowFirstShown();
        view()->selectAll();
        auto *count = page()->findChild<QLabel *>("text-count"_s);
        QTRY_VERIFY2(count->text().startsWith("3 of 3 selected · "_s), qPrintable(count->text()));
        view()->clearSelection();
        QTRY_COMPARE(count->text(), "3"_s);
    }

private:
    void markUnread(int row, int mark)
    {
        RecentFileInfo changed = m_store.content.at(row);
        changed.roamingId = "r%1"_s.arg(row);
        changed.unread = mark;
        Q_EMIT m_events->recordsChanged({changed});
    }
};

QTEST_MAIN(TestPage)
#include "tst_page.moc"

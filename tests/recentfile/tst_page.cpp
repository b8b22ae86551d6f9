#include "recentfile/pagefixture.h"

#include "recentfile/ui/recentfiletitlemenu.h"
#include "recentfile/ui/recentfiletitlewidget.h"
#include "recentfile/ui/recentguides.h"
#include "widgets/loadingindicator.h"

#include <QLabel>
#include <QSignalSpy>

using namespace recenttest;
/// The states that the page goes through, and what it says.
class TestPage : public QObject, private PageFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { clear(); }
    void cleanup() { m_recent.reset(); }
    void statesOfAFirstLoad_data();
    void statesOfAFirstLoad();
    void outtimeOffersRetryAndFeedback();
    void loginBeforeTheStoreIsReadyStillWaits();
    void whoIsSignedInAlreadyIsKnown();
    void loadingShowsNothingAtFirst();
    void reloadNeverShowsTheEmptyPage();
    void unreadIsShownAndCleared();
    void remindersOff();
    void guides();
    void telemetry();

private:
    void markUnread(int row, int mark);
};

void TestPage::statesOfAFirstLoad_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("ready");
    QTest::addColumn<int>("expected");
    QTest::newRow("list") << 106 << 3 << true << int(State::List);
    QTest::newRow("empty") << 106 << 0 << true << int(State::Empty);
    QTest::newRow("store not ready") << 106 << 3 << false << int(State::TimedOut);
    QTest::newRow("no kinds") << 0 << 3 << true << int(State::Empty);
    QTest::newRow("no kinds, not ready") << 0 << 3 << false << int(State::Empty);
}

void TestPage::statesOfAFirstLoad()
{
    QFETCH(int, mask);
    QFETCH(int, rows);
    QFETCH(bool, ready);
    set(QStringLiteral("RecentRecordType"), mask);
    set(QStringLiteral("recentFileLoadingOuttimeTime"), 100);
    make(rows, ready);
    page()->onWindowFirstShown();
    if (ready)
        QTEST(int(page()->state()), "expected"); // at once
    QTRY_VERIFY(page()->state() != State::Waiting);
    QTEST(int(page()->state()), "expected");
    auto *count = page()->findChild<QLabel *>(QStringLiteral("text-count"));
    QCOMPARE(count->isVisible(), page()->state() == State::List);
    QCOMPARE(page()->findChild<QLabel *>(QStringLiteral("text-title"))->text(), QStringLiteral("Recent"));

    // Rows that come and go later.
    if (page()->state() != State::Empty || mask == 0)
        return;
    Q_EMIT m_events->recordsAdded({record(QStringLiteral("new"), 5)});
    QCOMPARE(page()->state(), State::List);
    QCOMPARE(count->text(), QStringLiteral("1"));
    Q_EMIT m_events->recordsRemoved({record(QStringLiteral("new"), 5)});
    QCOMPARE(page()->state(), State::Empty);
}

void TestPage::outtimeOffersRetryAndFeedback()
{
    set(QStringLiteral("recentFileLoadingOuttimeTime"), 20);
    make(3, false);
    page()->onWindowFirstShown();
    QTRY_COMPARE(page()->state(), State::TimedOut);
    QSignalSpy feedback(page(), &ZelBoxRecentFileWidgetBase::feedbackRequested);
    QTest::mouseClick(button(QStringLiteral("Feedback")), Qt::LeftButton);
    QCOMPARE(feedback.size(), 1);
    QCOMPARE(page()->state(), State::TimedOut);

    m_log.clear();
    QTest::mouseClick(button(QStringLiteral("Retry")), Qt::LeftButton);
    QCOMPARE(page()->state(), State::Waiting);
    QCOMPARE(m_log, QStringList({QStringLiteral("roaming 1 sync"), QStringLiteral("init 2")}));
    QTRY_COMPARE(page()->state(), State::TimedOut); // once more

    m_store.ready = true;
    Q_EMIT m_events->initFinished(); // late, but there
    QCOMPARE(page()->state(), State::List);
}

void TestPage::loginBeforeTheStoreIsReadyStillWaits()
{
    make(0, false);
    page()->onWindowFirstShown();
    m_proxy->logIn(QStringLiteral("me"));
    QCOMPARE(page()->state(), State::Waiting); // not the empty page
    m_store.content << record(QStringLiteral("a"), 5);
    m_store.ready = true;
    Q_EMIT m_events->initFinished();
    QCOMPARE(page()->state(), State::List);
}

void TestPage::whoIsSignedInAlreadyIsKnown()
{
    m_proxy->logIn(QStringLiteral("me"));
    load(0);
    zel::vela::GetCurrentDefaultRoamingBoxResult off;
    off.roamingOn = false;
    QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox", off));
    QVERIFY(page()->findChild<ZelBoxRecentFileRoamingGuideWidget *>()->isVisible());
    const auto actions = page()->findChild<KRecentFileTitleMenu *>()->actions();
    QVERIFY(actions.first()->isEnabled()); // the reminder
}

void TestPage::loadingShowsNothingAtFirst()
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

void TestPage::reloadNeverShowsTheEmptyPage()
{
    load(3);
    QSignalSpy counts(page()->findChild<ZelBoxRecentFileModel *>(), &ZelBoxRecentFileModel::rowCountChanged);
    QVector<State> seen;
    connect(page()->findChild<ZelBoxRecentFileModel *>(), &ZelBoxRecentFileModel::rowCountChanged, this,
        [&] { seen << page()->state(); });
    m_store.content.removeLast();
    Q_EMIT m_events->recordsArrived();
    QCOMPARE(counts.size(), 2);
    QCOMPARE(seen, QVector<State>({State::List, State::List}));
    QCOMPARE(page()->findChild<QLabel *>(QStringLiteral("text-count"))->text(), QStringLiteral("2"));
    m_store.content.clear();
    Q_EMIT m_events->recordsArrived();
    QCOMPARE(page()->state(), State::Empty);
}

void TestPage::telemetry()
{
    KDcInfoC::setEnabled(true);
    load(3);
    auto *view = page()->view();
    const QPoint second = view->visualRect(view->model()->index(1, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
    const auto all = [this] { return events().join(QLatin1Char('\n')); };
    QTRY_VERIFY(all().contains(QStringLiteral("zelbox_mainbox_recent_filelist_click")));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(m_opener.asked, QStringList());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(m_opener.asked, QStringList{m_store.content.at(1).path});
    KDcInfoC::setEnabled(false);

    const QStringList lines = events();
    QCOMPARE(lines.size(), 4); // the click of a double click is not counted as one
    const QStringList expected{QStringLiteral("zelbox_mainbox_recent_show"),
        QStringLiteral("zelbox_mainbox_recent_filelist_show"),
        QStringLiteral("zelbox_mainbox_recent_filelist_click"),
        QStringLiteral("zelbox_mainbox_recent_filelist_doubleclick")};
    const QVector<QStringList> parameters{{QStringLiteral("unlogin"), QStringLiteral("notenablecarry"),
                                              QStringLiteral("badgenumber"), QStringLiteral("resultcount")},
        {},
        {QStringLiteral("index"), QStringLiteral("filesize"), QStringLiteral("fileupdatetime"),
            QStringLiteral("icon"), QStringLiteral("update")},
        {QStringLiteral("position"), QStringLiteral("filestatus"), QStringLiteral("doubleclick")}};
    for (int i = 0; i < lines.size(); ++i) {
        QVERIFY2(lines.at(i).contains(expected.at(i)), qPrintable(lines.at(i)));
        for (const QString &name : parameters.at(i))
            QVERIFY2(
                lines.at(i).contains(QLatin1Char('"') + name + QLatin1Char('"')), qPrintable(lines.at(i)));
        QVERIFY(!lines.at(i).contains(QStringLiteral("/data/docs"))); // never what the documents are called
    }
}

void TestPage::markUnread(int row, int mark)
{
    RecentFileInfo changed = m_store.content.at(row);
    changed.roamingId = QStringLiteral("r%1").arg(row);
    changed.unread = mark;
    Q_EMIT m_events->recordsChanged({changed});
}

void TestPage::unreadIsShownAndCleared()
{
    load(4);
    auto *label = page()->findChild<QLabel *>(QStringLiteral("text-unread"));
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
    QVERIFY(m_log.contains(QStringLiteral("read 1")));
    Q_EMIT label->linkActivated({});
    QCOMPARE(counts.last().at(0).toInt(), 0);
    QVERIFY(m_log.contains(QStringLiteral("read 2")));
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

void TestPage::remindersOff()
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

void TestPage::guides()
{
    using Guide = ZelBoxRecentFileRoamingGuideWidget;
    load(0);
    QCOMPARE(page()->state(), State::Empty);
    QVERIFY(!button(QStringLiteral("Sign In"))); // nobody knows yet
    QSignalSpy settings(page(), &ZelBoxRecentFileWidgetBase::settingsRequested);
    m_proxy->logIn(QStringLiteral("me"));
    zel::vela::GetCurrentDefaultRoamingBoxResult off;
    off.roamingOn = false;
    QVERIFY(m_proxy->answer("getCurrentDefaultRoamingBox", off));
    auto *strip = page()->findChild<Guide *>();
    QVERIFY(strip->isVisible());
    QTest::mouseClick(button(QStringLiteral("How It Works"), strip), Qt::LeftButton);
    auto *guide = page()->findChild<ZelBoxRecentFileGuideDialog *>();
    QVERIFY(guide && guide->isVisible());
    guide->reject();
    m_proxy->logIn({});
    QVERIFY(!strip->isVisible());
    page()->onNotifyNeedOpenRoaming();
    QTest::mouseClick(button(QStringLiteral("Switch On"), strip), Qt::LeftButton);
    QCOMPARE(settings.size(), 1);
    QVERIFY(!strip->isVisible());
}

QTEST_MAIN(TestPage)
#include "tst_page.moc"

// What a list page is made of besides its list.
#include "klitestyle.h"
#include "klook.h"
#include "lists/ui/filterbar.h"
#include "lists/ui/listactions.h"
#include "lists/ui/openingnotices.h"
#include "lists/ui/statestack.h"
#include "lists/ui/undooffer.h"
#include "support/fakeopener.h"
#include "widgets/contentcolumn.h"
#include "widgets/noticearea.h"
#include "widgets/shortcuts.h"

class TestPageParts : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void actionsWorkOnWhatTheyCan_data()
    {
        const auto row = zeltest::table<int, int, int, bool, QVector<int>, int>(
            "command", "first", "last", "enabled", "ran", "leftOut");
        row("some are missing", int(Copy), 0, 59, true, QVector<int>{54}, 6);
        row("all are missing", int(Copy), 9, 9, false, QVector<int>{}, 1);
        row("no rows", int(Copy), 0, -1, false, QVector<int>{}, 0);
        row("one row wanted", int(Rename), 3, 3, true, QVector<int>{1}, 0);
        row("one row wanted, two there", int(Rename), 3, 4, false, QVector<int>{}, 0);
        row("no rows wanted", int(Refresh), 0, -1, true, QVector<int>{-1}, 0);
    }
    void actionsWorkOnWhatTheyCan()
    {
        const auto [command, first, last] = zeltest::row<int, int, int>();
        Page page;
        QModelIndexList rows;
        for (int i = first; i <= last; ++i)
            rows << page.model.index(i);
        QTEST(page.actions.canRun(command, rows), "enabled");
        QSignalSpy leftOut(&page.actions, &ListActions::leftOut);
        page.actions.run(command, rows);
        QTEST(page.ran, "ran");
        QTEST(leftOut.isEmpty() ? 0 : leftOut.constFirst().at(1).value<QModelIndexList>().size(), "leftOut");
        page.actions.action(command)->setEnabled(false);
        page.ran.clear();
        page.actions.run(command, rows);
        QVERIFY(page.ran.isEmpty() && !page.actions.canRun(command, rows));
    }

    void oneTableForMenusKeysAndShortcuts()
    {
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.view->selectAll();
        QTest::keyClick(page.view, Qt::Key_K, Qt::ControlModifier);
        QTest::keyClick(&page, Qt::Key_F5);
        QCOMPARE(page.ran, (QVector<int>{54, -1}));
        QMenu menu;
        page.actions.fill(&menu, {Open, Copy, Refresh}, page.view->selectionModel()->selectedRows());
        QStringList entries;
        for (const QAction *action : menu.actions())
            entries << (action->isSeparator()
                    ? "-"_s
                    : action->text() + QLatin1Char(' ') + action->shortcut().toString());
        QCOMPARE(entries, QStringList({"Open Return"_s, "Copy Ctrl+K"_s, "-"_s, "Refresh F5"_s}));
        QVERIFY(!menu.actions().constFirst()->isEnabled()); // nobody has said what it does
        page.model.removeRows(0, 50);                       // while the menu is open
        menu.actions().at(1)->trigger();
        QCOMPARE(page.ran.constLast(), 9);
        QCOMPARE(page.actions.action(Refresh)->toolTip(), "Read it again (F5)"_s);
        QStringList shortcuts;
        for (const zel::ShortcutInfo &info : zel::Shortcuts::instance()->list()) {
            if (info.heading == "A page"_s)
                shortcuts << info.text + QLatin1Char(' ') + info.keys.toString();
        }
        QCOMPARE(shortcuts,
            QStringList({"Open Return"_s, "Copy Ctrl+K"_s, "Read it again F5"_s, "Undo Ctrl+Z"_s}));
        const auto verdict = zel::Shortcuts::instance()->check("window.exit"_s, QKeySequence("Ctrl+K"_s));
        QCOMPARE(verdict.holder, "test.copy"_s);
    }

    void noticesFloat()
    {
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        const QRect before = page.view->geometry();
        page.notice->showText("“a.odt” is no longer there."_s);
        QTRY_VERIFY(page.notices.y() > page.states->y() + 200);
        QCOMPARE(page.view->geometry(), before);
        const QRect column = zel::contentRect(page.states->geometry());
        QCOMPARE(column.width(), KLiteStyle::dpiScaled(zel::look::ContentWidth));
        QVERIFY(column.contains(page.notices.geometry()));
        QVERIFY(page.notices.width() < column.width() / 2); // no wider than its sentence

        page.view->setCurrentIndex(page.model.index(59)); // the keyboard comes to where the notice is
        page.view->scrollToBottom();
        const auto row = [&] {
            const QRect rect = page.view->visualRect(page.view->currentIndex());
            return QRect(page.view->viewport()->mapTo(&page, rect.topLeft()), rect.size());
        };
        QTRY_VERIFY(page.notices.geometry().bottom() < row().top());
        page.view->setCurrentIndex(page.model.index(50));
        QTRY_VERIFY(page.notices.geometry().bottom() > row().bottom());

        QSignalSpy covers(&page.notices, &NoticeArea::coverChanged);
        page.notice->showText("Not for good"_s, NoticeBar::Tone::Problem, NoticeBar::Stay);
        QTRY_VERIFY(covers.size() == 1 && covers.constFirst().constFirst().toInt() > page.notice->height());
        page.notices.retire();
        QVERIFY(page.notice->isVisible()); // it stands for something that lasts
        page.notice->showText("Said"_s);
        page.notices.retire();
        QVERIFY(!page.notice->isVisible());
        QTRY_VERIFY(page.notices.isHidden()); // and is in nobody's way
    }

    void undoLastsUntilTheNextAction_data()
    {
        const auto row = zeltest::table<QString, QString, QString>("meanwhile", "by", "undone");
        row("button", "", "button", "first");
        row("key", "", "key", "first");
        row("after another notice", "notice", "button", "first");
        row("after the notice has gone", "closed", "key", "first");
        row("another offer", "offer", "key", "second");
        row("another offer without a notice", "silent", "key", "second");
        row("withdrawn", "withdrawn", "key", "");
    }
    void undoLastsUntilTheNextAction()
    {
        const auto [meanwhile, by] = zeltest::row<QString, QString>();
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QString undone;
        const auto offer = [&](const QString &what, const QString &said) {
            page.offer.offer(said, "Undo Removal"_s, [&undone, what] { undone += what; });
        };
        QVERIFY(!page.actions.action(Undo)->isEnabled());
        offer("first"_s, "“a.odt” was removed."_s);
        QCOMPARE(page.actions.action(Undo)->text(), "Undo Removal"_s);
        if (meanwhile == "notice"_s)
            page.notice->showText("Something else"_s);
        if (meanwhile == "closed"_s)
            page.offered->hide();
        if (meanwhile == "offer"_s || meanwhile == "silent"_s)
            offer("second"_s, meanwhile == "offer"_s ? "“b.odt” was removed."_s : QString());
        if (meanwhile == "withdrawn"_s)
            page.offer.withdraw();
        page.notices.retire();
        for (int i = 0; i < 2; ++i) { // the second time does nothing
            if (by == "button"_s)
                buttonIn(page.offered)->click();
            else
                QTest::keyClick(page.view, Qt::Key_Z, Qt::ControlModifier);
        }
        QTEST(undone, "undone");
        QVERIFY(!page.offered->isVisible() && !page.actions.action(Undo)->isEnabled());
        QCOMPARE(page.actions.action(Undo)->text(), "Undo"_s);
    }

    void keyboardStaysInThePage()
    {
        Page page;
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QSignalSpy retries(page.states, &StateStack::retryRequested);
        QSignalSpy clears(page.states, &StateStack::clearFilterRequested);
        for (const StateStack::State state :
            {StateStack::State::TimedOut, StateStack::State::Failed, StateStack::State::NothingFound}) {
            page.states->setState(state);
            QPushButton *button = buttonIn(page.states->widgetOf(state));
            QVERIFY(button->hasFocus());
            QTest::keyClick(button, Qt::Key_Space);
        }
        QCOMPARE(retries.size(), 2);
        QCOMPARE(clears.size(), 1);
        page.states->setState(StateStack::State::List);
        QVERIFY(page.view->hasFocus());
    }

    void openingTellsWhatItRunsInto_data()
    {
        using Outcome = KDocumentOpener::Outcome;
        const auto row = zeltest::table<QString, Outcome, QString>("steps", "outcome", "said");
        row("opens", "open opened", Outcome::Opened, "");
        row("gone", "open opened", Outcome::Missing, "“a.odt” is no longer there.");
        row("not readable", "open opened", Outcome::NotReadable,
            "You do not have permission to read “a.odt”.");
        row("no program", "open opened", Outcome::NoProgram, "No program on this computer opens “a.odt”.");
        row("no answer", "open opened", Outcome::NoAnswer, "The place of “a.odt” does not answer.");
        row("folder gone", "reveal shown", Outcome::Missing, "The folder of “a.odt” is no longer there.");
        row("folder not shown", "reveal shown", Outcome::NoProgram, "The folder of “a.odt” cannot be shown.");
        row("of another page", "opened shown", Outcome::NoProgram, "");
        row("of another page, revealed here", "reveal opened", Outcome::NoProgram, "");
        row("both at once", "open reveal shown", Outcome::Missing,
            "The folder of “a.odt” is no longer there.");
    }
    void openingTellsWhatItRunsInto()
    {
        const auto [steps, outcome] = zeltest::row<QString, KDocumentOpener::Outcome>();
        FakeOpener opener;
        Page page;
        DocumentOpening opening(&opener);
        OpeningNotices notices(&opening, page.notice);
        const QString path = "/docs/a.odt"_s;
        for (const QString &step : steps.split(QLatin1Char(' '))) {
            if (step == "open"_s)
                opening.open(path);
            else if (step == "reveal"_s)
                opening.reveal(path);
            else if (step == "opened"_s)
                opener.answer(path, outcome);
            else
                Q_EMIT opener.folderShown(path, outcome);
        }
        QTEST(page.notice->isVisible() ? page.notice->text() : QString(), "said");
    }

    void longWaitingCanBeCancelled()
    {
        FakeOpener opener;
        Page page;
        DocumentOpening opening(&opener);
        OpeningNotices notices(&opening, page.notice);
        QSignalSpy cancelled(&opening, &DocumentOpening::cancelled);
        opening.open("/docs/a.odt"_s);
        opening.open("/docs/b.odt"_s);
        QVERIFY(!page.notice->isVisible());
        QTRY_COMPARE(opening.waitedFor().size(), 2);
        QCOMPARE(page.notice->text(), "Waiting for the places of 2 documents…"_s);
        opener.answer("/docs/a.odt"_s, KDocumentOpener::Outcome::Opened);
        QCOMPARE(page.notice->text(), "Waiting for the place of “b.odt”…"_s);
        page.notice->triggerAction();
        QVERIFY(!page.notice->isVisible());
        QCOMPARE(cancelled.size(), 1);
    }

    // What is asked for twice is done once, and programs are those of the row that was asked about last.
    void openingAnswersOnce()
    {
        struct Opener : FakeOpener
        {
            void findPrograms(const QString &) override { }
        } opener;
        Page page;
        DocumentOpening opening(&opener);
        OpeningNotices notices(&opening, page.notice);
        QSignalSpy opened(&opening, &DocumentOpening::opened);
        QSignalSpy found(&opening, &DocumentOpening::programsFound);
        const QString path = "/docs/a.odt"_s;
        const QString other = "/docs/b.odt"_s;
        for (const QString &each : {path, path, other}) {
            opening.open(each);
            opening.findPrograms(each);
        }
        QCOMPARE(opener.asked, QStringList({path, other}));
        for (const QString &each : {path, other, other}) {
            opener.answer(each, KDocumentOpener::Outcome::Opened);
            Q_EMIT opener.programsFound(each, {});
        }
        QCOMPARE(opened.size(), 2);
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.constFirst().constFirst().toString(), other);
        QVERIFY(notices.mayOpen(10) && !notices.mayOpen(11));
        QVERIFY(page.notice->text().contains("10"_s));
    }

private:
    enum Command { Open, Copy, Rename, Refresh, Undo };
    static const zel::ActionTable &table()
    {
        using zel::ActionKeys;
        using zel::ActionNeeds;
        static const zel::ActionTable actions{"Test", "A page",
            {{Open, "test.open", "Open", nullptr, {Qt::Key_Return}, ActionNeeds::Rows, 0, ActionKeys::OfList},
                {Copy, "test.copy", "Copy", nullptr, {QKeySequence("Ctrl+K"_s)}, ActionNeeds::Rows, 0},
                {Rename, "test.rename", "Rename", nullptr, {}, ActionNeeds::OneRow, 1},
                {Refresh, "test.refresh", "Refresh", nullptr, {Qt::Key_F5}, ActionNeeds::Nothing, 1,
                    ActionKeys::InPage, "Read it again"},
                {Undo, "test.undo", "Undo", nullptr, {QKeySequence("Ctrl+Z"_s)}, ActionNeeds::Nothing, 2,
                    ActionKeys::InPage}}};
        return actions;
    }
    /// A page with sixty rows, of which every tenth is missing.
    class Page : public QWidget
    {
    public:
        Page()
        {
            QStringList names;
            for (int i = 0; i < 60; ++i)
                names << (i % 10 == 9 ? "gone %1"_s : "there %1"_s).arg(i);
            model.setStringList(names);
            view->setModel(&model);
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
            states->setGeometry(0, 40, 1600, 400);
            states->setState(StateStack::State::List);
            actions.setList(view, [this] { return view->selectionModel()->selectedRows(); });
            actions.bind(
                Copy, [this](const QModelIndexList &rows) { ran << rows.size(); },
                [](const QModelIndex &row) { return row.data().toString().startsWith("there"_s); });
            actions.bind(Rename, [this](const QModelIndexList &rows) { ran << rows.size(); });
            actions.bind(Undo, [this](const QModelIndexList &) { offer.undo(); });
            actions.bind(Refresh, [this](const QModelIndexList &rows) { ran << -1 - rows.size(); });
            resize(1600, 500);
            show();
            view->setFocus();
        }

        QStringListModel model;
        QListView *view = new QListView;
        StateStack *states = new StateStack(view, "Loading"_s, this);
        NoticeArea notices{this, states};
        NoticeBar *notice = notices.addBar();
        NoticeBar *offered = notices.addBar();
        ListActions actions{table(), this};
        UndoOffer offer{offered, actions.action(Undo)};
        QVector<int> ran; ///< how many rows each time; below zero: without
    };

    static QPushButton *buttonIn(QWidget *widget) { return widget->findChild<QPushButton *>(); }
};

QTEST_MAIN(TestPageParts)
#include "tst_pageparts.moc"

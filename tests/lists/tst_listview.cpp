#include "lists/listfixture.h"

#include "klitestyle.h"
#include "klook.h"

using namespace listtest;

/// Where rows are, what is painted of them, and what stays while they change.
class TestListView : public QObject, private ListFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void scrollToKeepsRowsBelowTheTitle()
    {
        const int title = topOf(index(0));
        QVERIFY(title > 0);
        m_view->scrollTo(index(50), View::PositionAtTop);
        QCOMPARE(topOf(index(50)), title);
        m_view->scrollTo(index(50), View::PositionAtBottom);
        QCOMPARE(m_view->visualRect(index(50)).bottom() + 1, m_view->viewport()->height());
        const int before = scroll();
        m_view->scrollTo(index(49)); // in view already
        QCOMPARE(scroll(), before);
        m_view->scrollTo(index(20));
        QCOMPARE(topOf(index(20)), title);
        QVERIFY(!m_view->indexAt({50, title - 1}).isValid()); // it covers the row before
        m_view->setSectionsShown(false);
        m_view->scrollTo(index(0));
        QCOMPARE(topOf(index(0)), 0);
    }

    // What is beside the rows of a wide window is no row, and the scroll bar does not move them.
    void rowsEndWithTheColumn()
    {
        m_view->resize(1600, 400);
        const QRect row = m_view->visualRect(index(1));
        QCOMPARE(row.width(), KLiteStyle::dpiScaled(zel::look::ContentWidth));
        QCOMPARE(row.center().x(), m_view->rect().center().x());
        QVERIFY(m_view->indexAt(row.center()).isValid());
        QVERIFY(!m_view->indexAt({row.left() - 1, row.center().y()}).isValid());
        QVERIFY(!m_view->indexAt({row.right() + 1, row.center().y()}).isValid());
        m_model->load(names(2));
        QCOMPARE(m_view->visualRect(index(1)).left(), row.left());
    }

    void onlyExposedRowsArePainted()
    {
        m_model->load(names(2000));
        m_view->verticalScrollBar()->setValue(40000);
        m_delegate.painted.clear();
        m_view->viewport()->repaint();
        QVERIFY(m_delegate.painted.size() >= 8 && m_delegate.painted.size() <= 12);

        QCoreApplication::processEvents(); // what was due before
        m_delegate.painted.clear();
        m_view->verticalScrollBar()->setValue(40020);
        QTRY_VERIFY(!m_delegate.painted.isEmpty());
        QVERIFY2(m_delegate.painted.size() <= 4, qPrintable(QString::number(m_delegate.painted.size())));
    }

    void scrolledPictureIsThePaintedOne()
    {
        const auto window = [this] {
            QCoreApplication::processEvents();
            return m_view->screen()->grabWindow(m_view->winId()).toImage().copy(m_view->viewport()->rect());
        };
        if (window().isNull())
            QSKIP("this platform gives no picture of a window");
        int at = 0;
        for (const int step : {7, 60, 300, -33, 1, -250, 52}) {
            m_view->verticalScrollBar()->setValue(at += step);
            const QImage moved = window();
            m_view->viewport()->update();
            QCOMPARE(moved, window());
        }
    }

    void lookedAtRowsStayInPlace_data()
    {
        const auto row = zeltest::table<int, QString, bool>("scroll", "what", "stays");
        row("new row above", 1000, "insert"_s, true);
        row("a row further down goes to the top", 1000, "90"_s, true);
        row("the row at the top edge does", 1000, "first"_s, true);
        row("the current row goes, out of sight", 1000, "gone"_s, true);
        row("rows up to the one at the top edge go", 1300, "range"_s, true);
        row("the list gets the keyboard", 1000, "focus"_s, true);
        row("at the very top new rows show", 0, "insert"_s, false);
    }
    void lookedAtRowsStayInPlace()
    {
        const auto [scroll, what] = zeltest::row<int, QString>();
        m_view->setCurrentIndex(index(0));
        m_view->verticalScrollBar()->setValue(scroll);
        if (what == "focus"_s) {
            m_view->clearFocus();
            m_view->selectionModel()->clearCurrentIndex();
        }
        const QPersistentModelIndex watched = m_view->indexAt({50, 150});
        QVERIFY(watched.isValid());
        const int before = topOf(watched);
        int first = 0;
        while (m_view->visualRect(index(first)).bottom() < 0)
            ++first;
        if (what == "insert"_s)
            m_model->insert(0, "a new one"_s);
        else if (what == "gone"_s)
            m_model->remove("a0"_s);
        else if (what == "range"_s)
            m_model->removeRange(first - 5, first);
        else if (what == "focus"_s)
            m_view->setFocus(Qt::MouseFocusReason);
        else
            m_model->moveToTop(what == "first"_s ? first : what.toInt());
        const int room = what == "range"_s ? 40 : 0; // of the one that goes below the edge
        QTEST(topOf(watched) == before - room, "stays");
        QCOMPARE(this->scroll() == 0, scroll == 0);
    }

    void selectionAndPlaceSurvive_data()
    {
        // all: are selected, else e35 and two more
        const auto row = zeltest::table<QString, bool, QString, bool>("what", "all", "after", "placeStays");
        const QString some = "e35 e37 e38"_s;
        row("reload", "reload", false, some, true);
        row("reload, the current row out of sight", "reload far", false, some, true);
        row("reload, all", "reload", true, names(60).join(QLatin1Char(' ')), true);
        row("all that was found", "found", true, names(100).filter("5"_s).join(QLatin1Char(' ')), false);
        row("filter", "filter", false, some, false);
        row("filter and back", "back", false, some, false);
        row("order", "order", false, "e38 e37 e35", true);
    }
    void selectionAndPlaceSurvive()
    {
        QFETCH(QString, what);
        QFETCH(bool, all);
        QFETCH(bool, placeStays);
        click(1);
        m_view->scrollTo(index(35), View::PositionAtCenter);
        click(35);
        click(37, Qt::LeftButton, Qt::ControlModifier);
        click(38, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(selection(), "e35 e37 e38"_s);
        if (what == "found"_s)
            m_model->filter("5"_s);
        if (all)
            key(Qt::Key_A, Qt::ControlModifier);
        if (what == "reload far"_s)
            m_view->verticalScrollBar()->setValue(100);
        const QString current = m_view->currentId();
        const int before = topOf(m_view->currentIndex());
        if (what.startsWith("reload"_s))
            m_model->load(names(60));
        else if (what == "order"_s)
            m_model->turnOver();
        else if (what != "found"_s)
            m_model->filter("e3"_s);
        if (what == "back"_s || what == "found"_s)
            m_model->filter({});
        QTEST(selection(), "after");
        QCOMPARE(m_view->currentId(), current);
        if (placeStays)
            QCOMPARE(topOf(m_view->currentIndex()), before);

        m_model->load({});
        m_model->load({"other"_s});
        QVERIFY(!m_view->currentIndex().isValid());
        QCOMPARE(scroll(), 0);
    }

    // After a filter, and while something takes room from the list.
    void whatIsCurrentStaysInView()
    {
        const auto filter = [this](const QString &text) {
            m_view->changeFilter(!text.isEmpty(), {text}, [&] { m_model->filter(text); });
        };
        m_view->setCurrentIndex(index(90));
        filter("c1"_s);
        QCOMPARE(scroll(), 0);
        filter({});
        QCOMPARE(m_view->currentIndex().row(), 90);
        QVERIFY(m_view->viewport()->rect().contains(m_view->visualRect(index(90))));
        filter("c"_s);
        m_view->setCurrentIndex(index(2));
        const QString picked = m_view->currentId();
        filter({});
        QCOMPARE(m_view->currentId(), picked);
        m_view->scrollTo(m_view->currentIndex(), View::PositionAtBottom);
        m_view->resize(500, 200);
        QVERIFY(m_view->viewport()->rect().contains(m_view->visualRect(m_view->currentIndex())));
    }

    void visibleRowsAreToldOnce()
    {
        qRegisterMetaType<QModelIndexList>("QModelIndexList");
        QSignalSpy settled(m_view.get(), &View::visibleRowsSettled);
        for (int i = 0; i < 20; ++i)
            m_view->verticalScrollBar()->setValue(1000 + i);
        QVERIFY(settled.wait());
        QCOMPARE(settled.size(), 1);
        const auto rows = settled.at(0).at(0).value<QModelIndexList>();
        const auto shows = [this](const QModelIndex &row) {
            return m_view->viewport()->rect().intersects(m_view->visualRect(row));
        };
        QVERIFY(std::all_of(rows.cbegin(), rows.cend(), shows));
        QVERIFY(!shows(index(rows.first().row() - 1)) && !shows(index(rows.last().row() + 1)));

        QSignalSpy returned(m_view.get(), &View::userReturned);
        send(QEvent::WindowActivate);
        send(QEvent::Enter);
        QCOMPARE(returned.size(), 2);
        QVERIFY(settled.wait());
    }

    void editorsGoWithTheirRow()
    {
        m_view->beginRename(index(4));
        QWidget *editor = QApplication::focusWidget();
        QVERIFY(editor != m_view.get() && m_view->isRenaming());
        QTest::keyClick(editor, Qt::Key_Delete); // no key of the list
        const auto isAtItsRow = [&] {
            return editor->geometry() == m_view->visualRect(m_view->currentIndex());
        };
        m_model->moveToTop(30);
        m_model->remove(m_model->idOf(20)); // the base class forgets that it edits
        QVERIFY(isAtItsRow() && m_view->isRenaming());
        m_view->verticalScrollBar()->setValue(37);
        QVERIFY(isAtItsRow());
        QSignalSpy activated(m_view.get(), &View::activated);
        QTest::keyClick(editor, Qt::Key_Return); // passed on, but not to open the row
        QTRY_VERIFY(!m_view->isRenaming() && m_view->hasFocus());
        QCOMPARE(activated.size(), 0);
    }

    void assistivePrograms()
    {
        QAccessibleInterface *list = QAccessible::queryAccessibleInterface(m_view.get());
        QVERIFY(list);
        QCOMPARE(list->role(), QAccessible::List);
        QVERIFY(list->state().multiSelectable);
        QCOMPARE(list->childCount(), 100);
        QVERIFY(!list->child(100));

        m_view->setCurrentIndex(index(1));
        QAccessibleInterface *row = list->child(1);
        QCOMPARE(row->role(), QAccessible::ListItem);
        QCOMPARE(row->text(QAccessible::Name), "a1"_s);
        QCOMPARE(row->text(QAccessible::Description), "a, 2 of 100"_s);
        QVERIFY(row->state().focused && row->state().selected);
        QCOMPARE(list->focusChild(), row);
        QCOMPARE(list->childAt(row->rect().center().x(), row->rect().center().y()), row);
        QVERIFY(list->child(90)->state().offscreen);

        QSignalSpy activated(m_view.get(), &View::activated);
        row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(activated.size(), 1);
        QSignalSpy menu(m_view.get(), &View::customContextMenuRequested);
        list->child(2)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        QCOMPARE(m_view->indexAt(menu.value(0).value(0).toPoint()).row(), 2);

        // What was made for a row stays with it, and goes with it.
        m_model->remove("a0"_s);
        QCOMPARE(list->indexOfChild(row), 0);
        const auto idOf = [list](int child) { return QAccessible::uniqueId(list->child(child)); };
        const QAccessible::Id first = idOf(0);
        const QAccessible::Id second = idOf(1);
        m_model->remove("a1"_s);
        QVERIFY(!QAccessible::accessibleInterface(first));
        QCOMPARE(idOf(0), second);
        m_model->load({});
        QVERIFY(!QAccessible::accessibleInterface(second));

        Names other;
        other.load(names(2));
        m_view->setModel(&other);
        QCOMPARE(list->childCount(), 2);
        m_view->setModel(m_model.get());
        QCOMPARE(list->childCount(), 0);
        m_model->load(names(2));
        m_model.reset(); // before the list, as a page goes
        m_view->viewport()->repaint();
        QCOMPARE(list->childCount(), 0);
    }
};

QTEST_MAIN(TestListView)
#include "tst_listview.moc"

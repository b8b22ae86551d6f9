// The mini window and the quick search, with real events.

#include "lists/ui/sectionlistview.h"
#include "mini/miniplaces.h"
#include "mini/ui/minipanel.h"
#include "mini/ui/recentpicker.h"
#include "mini/ui/zelboxminiwidget.h"
#include "mini/ui/zelboxminiwindow.h"
#include "recentfile/fakes.h"

using namespace recenttest;
using zel::mini::Edge;

class TestMini : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_opener.asked.clear();
        m_opener.revealed.clear();
        m_store.content = {record("Résumé"_s, 3), record("Budget"_s, 2), record("Letter"_s, 1)};
        zel::mini::places::setPinned(false);
        zel::mini::places::remember(QGuiApplication::primaryScreen()->name(), {Edge::None, {200, 100}});
    }

    void search()
    {
        ZelBoxMiniWidget widget(nullptr, services());
        widget.showWithFocus();
        QTRY_COMPARE(shown(widget).size(), 3);
        auto *field = widget.findChild<QLineEdit *>();
        QTest::keyClicks(field, "RESUME"_s);
        QCOMPARE(shown(widget), QStringList("Résumé.odt"_s));
        field->setText("no such name"_s);
        QVERIFY(!widget.findChild<SectionListView *>()->isVisible());
        field->clear();
        QVERIFY(widget.findChild<SectionListView *>()->isVisible());
    }

    void keys()
    {
        ZelBoxMiniWindow window(nullptr, services());
        window.showToFront();
        QTRY_COMPARE(shown(window).size(), 3);
        auto *field = window.findChild<QLineEdit *>();
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Down);
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {});
        QCoreApplication::sendEvent(field, &menuKey);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Up); // the last: its folder
        QTest::keyClick(menu, Qt::Key_Return);
        const QString second = m_store.content.at(1).path;
        QCOMPARE(m_opener.asked, (QStringList{m_store.content.at(0).path, second}));
        QCOMPARE(m_opener.revealed, (QStringList{second, second}));
        QTest::keyClicks(field, "x"_s);
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(window.isVisible() && field->text().isEmpty());
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void menuStaysWithItsRow()
    {
        ZelBoxMiniWindow window(nullptr, services());
        window.showToFront();
        QTRY_COMPARE(shown(window).size(), 3);
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {});
        QCoreApplication::sendEvent(window.findChild<QLineEdit *>(), &menuKey);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        Q_EMIT m_events.recordsRemoved({m_store.content.takeFirst()});
        QTRY_COMPARE(shown(window).size(), 2);
        menu->actions().constFirst()->trigger();
        QCOMPARE(m_opener.asked, QStringList());
        QTRY_COMPARE(window.findChild<SectionListView *>()->selectedCount(), 1); // what Enter opens
        menu->close();
    }

    void quickSearchHides()
    {
        ZelBoxMiniWidget widget(nullptr, services());
        QSignalSpy hiding(&widget, &ZelBoxMiniWidget::sigMiniWindowAboutToHide);
        widget.showWithFocus();
        QTRY_COMPARE(shown(widget).size(), 3);
        QTest::keyClick(widget.findChild<QLineEdit *>(), Qt::Key_Return);
        QVERIFY(widget.isVisible()); // it may still turn out that nothing opens it
        m_opener.answer(m_store.content.first().path, KDocumentOpener::Outcome::Opened);
        QVERIFY(!widget.isVisible());
        widget.showWithFocus();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
        const OtherWindow other;
        QTRY_VERIFY(!widget.isVisible());
        QCOMPARE(hiding.size(), 2);
    }

    void docksWhereDroppedForGood()
    {
        ZelBoxMiniWindow window(nullptr, services());
        window.showToFront();
        dragHeader(window, screen().topLeft() + QPoint(150, 3));
        QCOMPARE(window.edge(), Edge::Top);
        dragHeader(window, screen().topLeft() + QPoint(150, 200));
        QCOMPARE(window.edge(), Edge::None);
        QTest::keyClick(window.findChild<QLineEdit *>(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(window.edge(), Edge::Right);
        QCOMPARE(window.geometry().right(), screen().right());
        dragHeader(window, screen().topLeft() + QPoint(10, 90));
        ZelBoxMiniWindow next(nullptr, services());
        next.showToFront();
        for (const ZelBoxMiniWindow *each : {&window, &next}) {
            QCOMPARE(each->edge(), Edge::Left);
            QCOMPARE(each->pos(), screen().topLeft() + QPoint(0, 90));
        }
    }

    void tucksAwayAndComesBack()
    {
        ZelBoxMiniWindow window(nullptr, services());
        window.showToFront();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.dockAt(Edge::Right);
        const QRect out = window.geometry();
        touch(window);
        leave(window);
        QTest::qWait(600); // longer than its patience: while it has the keyboard, it stays
        QCOMPARE(window.geometry(), out);

        const OtherWindow other;
        QTRY_VERIFY(!window.isActiveWindow());
        QTRY_VERIFY(window.isTuckedAway());
        QVERIFY(window.width() < 10);
        QVERIFY(screen().contains(window.geometry()));
        QVERIFY(window.isVisible());
        touch(window);
        QTRY_COMPARE(window.geometry(), out);
        leave(window);
        QTRY_VERIFY(window.isTuckedAway());
        window.showToFront();
        QTRY_COMPARE(window.geometry(), out);
    }

    void staysOutWhenPinned()
    {
        ZelBoxMiniWindow window(nullptr, services());
        window.showToFront();
        window.dockAt(Edge::Left);
        leave(window);
        const OtherWindow other;
        QTRY_VERIFY(window.isTuckedAway());
        window.setPinned(true);
        QTRY_COMPARE(window.width(), window.findChild<MiniPanel *>()->width());
        QVERIFY(ZelBoxMiniWindow(nullptr, services()).isPinned()); // the next one, too
    }

private:
    /// Takes the keyboard, as another program's window would.
    struct OtherWindow : QWidget
    {
        OtherWindow()
        {
            show();
            activateWindow();
        }
    };
    static void leave(QWidget &window)
    {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&window, &event);
    }
    static void touch(QWidget &window)
    {
        const QPointF at(1, 1);
        QEnterEvent event(at, at, at);
        QCoreApplication::sendEvent(&window, &event);
    }

    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }

    KRecentFileLogic::Services services() { return {&m_store, &m_events, &m_opener}; }
    static QStringList shown(const QWidget &window)
    {
        const auto *model = window.findChild<SectionListView *>()->model();
        QStringList names;
        for (int row = 0; row < model->rowCount(); ++row)
            names << model->index(row, 0).data().toString();
        return names;
    }

    static void dragHeader(ZelBoxMiniWindow &window, const QPoint &to)
    {
        // As the desktop sends them: to the window, wherever that is by then.
        const QPoint grip(60, 20);
        QWindow *handle = window.windowHandle();
        const auto local = [&](const QPoint &global) { return global - window.pos(); };
        const QPoint from = window.pos() + grip;
        QTest::mousePress(handle, Qt::LeftButton, {}, grip);
        QTest::mouseMove(handle, local((from + to + grip) / 2));
        QTest::mouseMove(handle, local(to + grip));
        QCOMPARE(window.pos(), to);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, local(to + grip));
    }

    FakeStore m_store;
    KRecentFileEvents m_events;
    FakeOpener m_opener;
};

QTEST_MAIN(TestMini)
#include "tst_mini.moc"

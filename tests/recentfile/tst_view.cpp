#include "recentfile/viewfixture.h"

#include <QAccessible>
#include <QSignalSpy>

using namespace recenttest;

class TestView : public QObject, private ViewFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void geometryRoundTrip();
    void scrollToKeepsRowsBelowTheHeader();
    void onlyVisibleRowsArePainted();
    void lookedAtRowsStayInPlace_data();
    void lookedAtRowsStayInPlace();
    void reloadKeepsCurrentAndPlace();
    void visibleRowsAreToldOnce();
    void returningLooksAgain_data();
    void returningLooksAgain();
    void assistivePrograms();
    void tipShowsPathAsText();
};

void TestView::geometryRoundTrip()
{
    for (const int value : {0, 13, 500, 1000000}) {
        m_view->verticalScrollBar()->setValue(value);
        int seen = 0;
        for (int y = 0; y < m_view->viewport()->height(); ++y) {
            const QModelIndex index = m_view->indexAt({50, y});
            if (!index.isValid())
                continue;
            ++seen;
            QVERIFY(m_view->visualRect(index).contains(50, y));
        }
        QVERIFY(seen > 200);
        QVERIFY(!m_view->indexAt({50, 3}).isValid()); // the header at the top covers the row under it
    }
    QVERIFY(!m_view->indexAt({-1, 100}).isValid());
    QVERIFY(m_view->visualRect({}).isNull());
    m_model->removeAll();
    QVERIFY(!m_view->indexAt({50, 100}).isValid());
    QCOMPARE(m_view->verticalScrollBar()->maximum(), 0);
}

void TestView::scrollToKeepsRowsBelowTheHeader()
{
    const int header = m_view->visualRect(m_model->index(0)).top();
    QVERIFY(header > 0);
    const QModelIndex index = m_model->index(50);
    m_view->scrollTo(index, View::PositionAtTop);
    QCOMPARE(m_view->visualRect(index).top(), header);
    m_view->scrollTo(index, View::PositionAtBottom);
    QCOMPARE(m_view->visualRect(index).bottom() + 1, m_view->viewport()->height());
    const int before = scroll();
    m_view->scrollTo(m_model->index(49), View::EnsureVisible); // in view already
    QCOMPARE(scroll(), before);
    m_view->scrollTo(m_model->index(20), View::EnsureVisible);
    QCOMPARE(m_view->visualRect(m_model->index(20)).top(), header);
    m_view->scrollTo(m_model->index(0), View::EnsureVisible);
    QCOMPARE(scroll(), 0);
    m_view->scrollTo(index, View::PositionAtCenter);
    QVERIFY(qAbs(m_view->visualRect(index).center().y() - (m_view->viewport()->height() + header) / 2) <= 1);
}

void TestView::onlyVisibleRowsArePainted()
{
    fill(100000);
    m_view->verticalScrollBar()->setValue(2000000);
    m_delegate.painted.clear();
    m_view->viewport()->repaint();
    QVERIFY(m_delegate.painted.size() >= 6 && m_delegate.painted.size() <= 10);
    for (const int row : std::as_const(m_delegate.painted))
        QVERIFY(m_view->viewport()->rect().intersects(m_view->visualRect(m_model->index(row))));
}

void TestView::lookedAtRowsStayInPlace_data()
{
    QTest::addColumn<int>("scroll");
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("stays");
    QTest::newRow("new row above") << 1000 << QStringLiteral("add") << true;
    QTest::newRow("row above goes") << 1000 << QStringLiteral("remove") << true;
    QTest::newRow("a row further down opens") << 1000 << QStringLiteral("open 90") << true;
    QTest::newRow("the row at the top edge opens") << 1000 << QStringLiteral("open top") << true;
    QTest::newRow("at the very top new rows show") << 0 << QStringLiteral("add") << false;
}

void TestView::lookedAtRowsStayInPlace()
{
    QFETCH(int, scroll);
    QFETCH(QString, change);
    QFETCH(bool, stays);
    m_view->verticalScrollBar()->setValue(scroll);
    const QPersistentModelIndex watched = m_view->indexAt({50, 120});
    QVERIFY(watched.isValid());
    const int before = m_view->visualRect(watched).top();
    int atTop = 0;
    while (m_view->visualRect(m_model->index(atTop)).bottom() < 0)
        ++atTop;

    const QDateTime now = at(QStringLiteral("2024-03-20 12:00"));
    if (change == QLatin1String("add")) {
        m_model->addRecord(record(QStringLiteral("new"), now));
    } else if (change == QLatin1String("remove")) {
        m_model->removeRecord(QStringLiteral("file1"));
    } else {
        RecentFileInfo opened = m_model->record(change == QLatin1String("open 90") ? 90 : atTop);
        opened.lastAccess = now.toMSecsSinceEpoch();
        m_model->updateRecord(opened);
    }
    QCOMPARE(m_view->visualRect(watched).top() == before, stays);
    QCOMPARE(m_view->verticalScrollBar()->value() == 0, scroll == 0);
}

void TestView::reloadKeepsCurrentAndPlace()
{
    click(1);
    m_view->setCurrentIndex(m_model->index(50));
    m_view->scrollTo(m_model->index(50), View::PositionAtCenter);
    const int before = m_view->visualRect(m_model->index(50)).top();
    fill(90);
    QCOMPARE(current(), 50);
    QVERIFY(m_view->selectionModel()->isSelected(m_model->index(50)));
    QCOMPARE(m_view->visualRect(m_model->index(50)).top(), before);
    m_model->removeAll();
    m_model->addRecord(record(QStringLiteral("other"), 5));
    QVERIFY(!m_view->currentIndex().isValid());
    QCOMPARE(scroll(), 0);
}

void TestView::visibleRowsAreToldOnce()
{
    QSignalSpy settled(m_view.get(), &View::sigVisibleRowsSettled);
    for (int i = 0; i < 20; ++i)
        m_view->verticalScrollBar()->setValue(1000 + i);
    QVERIFY(settled.wait());
    QCOMPARE(settled.size(), 1);
    const int first = settled.at(0).at(0).toInt();
    const int last = settled.at(0).at(1).toInt();
    QVERIFY(m_view->visualRect(m_model->index(first)).bottom() >= 0);
    QVERIFY(m_view->visualRect(m_model->index(first - 1)).bottom() < 0);
    QVERIFY(m_view->visualRect(m_model->index(last)).top() < m_view->viewport()->height());
}

void TestView::returningLooksAgain_data()
{
    QTest::addColumn<QEvent::Type>("event");
    QTest::addColumn<bool>("atViewport");
    QTest::addColumn<bool>("settles");
    QTest::newRow("window becomes active") << QEvent::WindowActivate << false << true;
    QTest::newRow("pointer comes back") << QEvent::Enter << true << false;
}

// A day may have begun, and files may have gone, while the user or the machine was away.
void TestView::returningLooksAgain()
{
    QFETCH(QEvent::Type, event);
    QFETCH(bool, atViewport);
    QFETCH(bool, settles);
    QSignalSpy settled(m_view.get(), &View::sigVisibleRowsSettled);
    QVERIFY(settled.wait()); // of being shown
    settled.clear();
    send(event, atViewport ? m_view->viewport() : m_view.get());
    if (settles) {
        QVERIFY(settled.wait());
        QCOMPARE(settled.size(), 1);
        QCOMPARE(settled.at(0).at(0).toInt(), 0);
    }

    QCOMPARE(m_model->groups()[1].count, 10);
    zel::setFixedNow(at(QStringLiteral("2024-03-21 08:00")));
    send(event, atViewport ? m_view->viewport() : m_view.get());
    QCOMPARE(m_model->groups()[1].count, 3); // what was today's
}

void TestView::assistivePrograms()
{
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(m_view.get());
    QVERIFY(list);
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Recent files"));
    QCOMPARE(list->childCount(), 100);
    QVERIFY(!list->child(100));

    m_view->setCurrentIndex(m_model->index(1));
    QAccessibleInterface *row = list->child(1);
    QCOMPARE(row->role(), QAccessible::ListItem);
    QCOMPARE(row->text(QAccessible::Name), m_model->index(1).data(Qt::AccessibleTextRole).toString());
    QVERIFY(row->state().focused && row->state().selected);
    QCOMPARE(list->focusChild(), row);
    QCOMPARE(list->childAt(row->rect().center().x(), row->rect().center().y()), row);
    QVERIFY(list->child(90)->state().offscreen);

    QSignalSpy activated(m_view.get(), &View::activated);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(activated.size(), 1);

    m_model->removeRecord(QStringLiteral("file0"));
    QCOMPARE(list->indexOfChild(row), 0); // it is the same file still

    // What was made for a row goes with it.
    const auto idOf = [list](int child) { return QAccessible::uniqueId(list->child(child)); };
    const QAccessible::Id first = idOf(0);
    const QAccessible::Id second = idOf(1);
    const QAccessible::Id last = idOf(98);
    m_model->removeRecord(QStringLiteral("file1"));
    QVERIFY(!QAccessible::accessibleInterface(first));
    QCOMPARE(idOf(0), second);
    fill(50);
    QVERIFY(!QAccessible::accessibleInterface(second));
    QVERIFY(!QAccessible::accessibleInterface(last));
    QCOMPARE(
        list->child(49)->text(QAccessible::Name), m_model->index(49).data(Qt::AccessibleTextRole).toString());

    ZelBoxRecentFileModel other;
    other.setRecords({record(QStringLiteral("another"), 7)});
    const QAccessible::Id before = idOf(0);
    m_view->setModel(&other);
    QCOMPARE(list->childCount(), 1);
    QAccessibleInterface *another = list->child(0);
    QVERIFY(another->text(QAccessible::Name).startsWith(QLatin1String("another")));
    QAccessibleInterface *old = QAccessible::accessibleInterface(before);
    QVERIFY(!old || old == another); // numbers are used again
    m_view->setModel(m_model.get());
}

void TestView::tipShowsPathAsText()
{
    RecentFileInfo info = record(QStringLiteral("x"), at(QStringLiteral("2024-03-20 09:05")));
    info.path = QStringLiteral("/data/<b>bold</b> & <img src=x>.odt");
    m_model->setRecords({info});
    const QString tip = ZelBoxRecentFileDelegate::toolTip(m_model->index(0));
    QVERIFY(tip.contains(QStringLiteral("&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img src=x&gt;.odt")));
    QVERIFY(tip.contains(QStringLiteral("2024")));

    info.path = QStringLiteral("/data/bill") + QChar(0x202E) + QStringLiteral("txt.exe"); // reads "exe.txt"
    m_model->updateRecord(info);
    QVERIFY(ZelBoxRecentFileDelegate::toolTip(m_model->index(0)).contains(QStringLiteral("bill txt.exe")));
}

QTEST_MAIN(TestView)
#include "tst_view.moc"

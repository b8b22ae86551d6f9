#include "recentfile/viewfixture.h"

#include <QAccessible>
#include <QScreen>
#include <QSignalSpy>

using namespace recenttest;

class TestView : public QObject, private ViewFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void scrollToKeepsRowsBelowTheHeader();
    void onlyExposedRowsArePainted();
    void scrolledPictureIsThePaintedOne();
    void lookedAtRowsStayInPlace_data();
    void lookedAtRowsStayInPlace();
    void selectionAndPlaceSurvive_data();
    void selectionAndPlaceSurvive();
    void removedRowsLeaveToTheNext();
    void thumbnailRepaintsItsRow();
    void visibleRowsAreToldOnce();
    void returningLooksAgain();
    void assistivePrograms();
    void tipShowsPathAsText();
};

void TestView::scrollToKeepsRowsBelowTheHeader()
{
    const int header = m_view->visualRect(index(0)).top();
    QVERIFY(header > 0);
    m_view->scrollTo(index(50), View::PositionAtTop);
    QCOMPARE(m_view->visualRect(index(50)).top(), header);
    m_view->scrollTo(index(50), View::PositionAtBottom);
    QCOMPARE(m_view->visualRect(index(50)).bottom() + 1, m_view->viewport()->height());
    const int before = scroll();
    m_view->scrollTo(index(49), View::EnsureVisible); // in view already
    QCOMPARE(scroll(), before);
    m_view->scrollTo(index(20), View::EnsureVisible);
    QCOMPARE(m_view->visualRect(index(20)).top(), header);
    QVERIFY(!m_view->indexAt({50, header - 1}).isValid()); // it covers the row before
}

void TestView::onlyExposedRowsArePainted()
{
    fill(100000);
    m_view->verticalScrollBar()->setValue(2000000);
    m_delegate.painted.clear();
    m_view->viewport()->repaint();
    QVERIFY(m_delegate.painted.size() >= 6 && m_delegate.painted.size() <= 10);

    QCoreApplication::processEvents(); // what was due before
    m_delegate.painted.clear();
    m_view->verticalScrollBar()->setValue(2000020);
    QTRY_VERIFY(!m_delegate.painted.isEmpty());
    QVERIFY2(m_delegate.painted.size() <= 4, qPrintable(QString::number(m_delegate.painted.size())));
}

void TestView::scrolledPictureIsThePaintedOne()
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

void TestView::lookedAtRowsStayInPlace_data()
{
    QTest::addColumn<int>("scroll");
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("stays");
    QTest::newRow("new row above") << 1000 << QStringLiteral("add") << true;
    QTest::newRow("a row further down opens") << 1000 << QStringLiteral("open 90") << true;
    QTest::newRow("the row at the top edge opens") << 1000 << QStringLiteral("open top") << true;
    QTest::newRow("the row at the top edge is pinned") << 1000 << QStringLiteral("pin top") << true;
    QTest::newRow("at the very top new rows show") << 0 << QStringLiteral("add") << false;
}

void TestView::lookedAtRowsStayInPlace()
{
    QFETCH(int, scroll);
    QFETCH(QString, what);
    QFETCH(bool, stays);
    m_view->verticalScrollBar()->setValue(scroll);
    const QPersistentModelIndex watched = m_view->indexAt({50, 120});
    QVERIFY(watched.isValid());
    const int before = m_view->visualRect(watched).top();
    int atTop = 0;
    while (m_view->visualRect(index(atTop)).bottom() < 0)
        ++atTop;

    const QDateTime now = at(QStringLiteral("2024-03-20 12:00"));
    if (what == QLatin1String("add"))
        m_source->addRecord(record(QStringLiteral("new"), now));
    else if (what == QLatin1String("pin top"))
        change(atTop, [](RecentFileInfo &info) { info.pinned = true; });
    else
        change(what == QLatin1String("open 90") ? 90 : atTop,
            [now](RecentFileInfo &info) { info.lastAccess = now.toMSecsSinceEpoch(); });
    QCOMPARE(m_view->visualRect(watched).top() == before, stays);
    QCOMPARE(m_view->verticalScrollBar()->value() == 0, scroll == 0);
}

void TestView::selectionAndPlaceSurvive_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("after"); // of rows 50, 52, 53 selected, or of all
    QTest::newRow("reload") << QStringLiteral("reload") << QStringLiteral("some")
                            << QStringLiteral("50 52-53");
    QTest::newRow("reload, all") << QStringLiteral("reload") << QStringLiteral("all")
                                 << QStringLiteral("0-89");
    QTest::newRow("all that was found") << QStringLiteral("found") << QStringLiteral("some")
                                        << QStringLiteral("5 15 25 35 45 50-59 65 75 85 95");
    QTest::newRow("filter") << QStringLiteral("filter") << QStringLiteral("some") << QStringLiteral("5 7-8");
    QTest::newRow("filter and back") << QStringLiteral("back") << QStringLiteral("some")
                                     << QStringLiteral("50 52-53");
    QTest::newRow("order") << QStringLiteral("order") << QStringLiteral("some") << QStringLiteral("46-47 49");
}

void TestView::selectionAndPlaceSurvive()
{
    QFETCH(QString, what);
    QFETCH(QString, selected);
    click(1);
    m_view->scrollTo(index(50), View::PositionAtCenter);
    click(50);
    click(52, Qt::LeftButton, Qt::ControlModifier);
    click(53, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selection(), QStringLiteral("50 52-53"));
    if (what == QLatin1String("found"))
        m_model->setFilter({QStringLiteral("5"), {}});
    if (selected == QLatin1String("all") || what == QLatin1String("found"))
        QTest::keyClick(m_view.get(), Qt::Key_A, Qt::ControlModifier);
    const QString id = m_view->currentIndex().data(ZelBoxRecentFileModel::IdRole).toString();
    const int before = m_view->visualRect(m_view->currentIndex()).top();
    if (what == QLatin1String("reload"))
        fill(90);
    else if (what == QLatin1String("found"))
        m_model->setFilter({});
    else if (what == QLatin1String("order"))
        m_model->setSort({RecentSort::Key::Time, Qt::AscendingOrder});
    else
        m_model->setFilter({QStringLiteral("5"), {}}); // 5, 15, … 45, 50 to 59, …
    if (what == QLatin1String("back"))
        m_model->setFilter({});
    QTEST(selection(), "after");
    QCOMPARE(m_view->currentIndex().data(ZelBoxRecentFileModel::IdRole).toString(), id);
    if (what == QLatin1String("reload") || what == QLatin1String("order"))
        QCOMPARE(m_view->visualRect(m_view->currentIndex()).top(), before);

    m_source->removeAll();
    m_source->addRecord(record(QStringLiteral("other"), 5));
    QVERIFY(!m_view->currentIndex().isValid());
    QCOMPARE(scroll(), 0);
}

void TestView::removedRowsLeaveToTheNext()
{
    struct Case
    {
        QVector<int> selected; // the last one is current
        QVector<int> removed;
        const char *after;
        int current;
    };
    const Case cases[] = {
        {{4}, {4}, "4", 4}, {{99}, {99}, "98", 98}, {{4, 8, 6}, {4, 6, 8}, "5", 5}, {{4, 8}, {8}, "4", 8}};
    for (const Case &one : cases) {
        m_source->removeAll();
        fill(100);
        for (const int row : one.selected)
            m_view->selectionModel()->setCurrentIndex(index(row), QItemSelectionModel::Select);
        for (const int row : one.removed)
            m_source->removeRecord(QStringLiteral("file%1").arg(row));
        QCOMPARE(selection(), QLatin1String(one.after));
        QCOMPARE(current(), one.current);
        m_view->clearSelection();
    }
}

void TestView::thumbnailRepaintsItsRow()
{
    fill(100000);
    m_thumbnails->asked.clear();
    m_view->viewport()->repaint();
    const QString path = index(1).data(ZelBoxRecentFileModel::PathRole).toString();
    QVERIFY(m_thumbnails->asked.contains(path));
    QVERIFY(m_thumbnails->asked.size() < 20); // of rows that show

    const QImage before = m_view->viewport()->grab(m_view->visualRect(index(1))).toImage();
    QImage picture(24, 32, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    m_thumbnails->images.insert(path, picture);
    QCoreApplication::processEvents();
    m_delegate.painted.clear();
    Q_EMIT m_thumbnails->loaded(QStringLiteral("/data/docs/file90000.odt"));
    Q_EMIT m_thumbnails->loaded(path);
    QTRY_COMPARE(m_delegate.painted, QVector<int>{1});
    const QImage after = m_view->viewport()->grab(m_view->visualRect(index(1))).toImage();
    QVERIFY(before != after);
    const QRect icon =
        m_delegate.cell(painted(1), index(1)).icon.translated(0, -m_view->visualRect(index(1)).top());
    const qreal ratio = after.devicePixelRatio();
    QCOMPARE(after.pixelColor((QPointF(icon.center()) * ratio).toPoint()), QColor(Qt::magenta));
}

void TestView::visibleRowsAreToldOnce()
{
    qRegisterMetaType<QModelIndexList>("QModelIndexList");
    QSignalSpy settled(m_view.get(), &View::sigVisibleRowsSettled);
    for (int i = 0; i < 20; ++i)
        m_view->verticalScrollBar()->setValue(1000 + i);
    QVERIFY(settled.wait());
    QCOMPARE(settled.size(), 1);
    const auto rows = settled.at(0).at(0).value<QModelIndexList>();
    const QRect viewport = m_view->viewport()->rect();
    for (const QModelIndex &row : rows)
        QVERIFY(viewport.intersects(m_view->visualRect(row)));
    QVERIFY(!viewport.intersects(m_view->visualRect(index(rows.first().row() - 1))));
    QVERIFY(!viewport.intersects(m_view->visualRect(index(rows.last().row() + 1))));
}

// A day may have begun, and files may have gone, while the user or the machine was away.
void TestView::returningLooksAgain()
{
    qRegisterMetaType<QModelIndexList>("QModelIndexList");
    QSignalSpy settled(m_view.get(), &View::sigVisibleRowsSettled);
    QVERIFY(settled.wait()); // of being shown
    send(QEvent::WindowActivate, m_view.get());
    QVERIFY(settled.wait());
    zel::setFixedNow(at(QStringLiteral("2024-03-21 08:00")));
    send(QEvent::WindowActivate, m_view.get());
    QCOMPARE(m_model->sections().at(0).key, 2);
    zel::setFixedNow(at(QStringLiteral("2024-03-22 08:00")));
    send(QEvent::Enter, m_view->viewport());
    QCOMPARE(m_model->sections().at(0).key, 3);
}

void TestView::assistivePrograms()
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
    QCOMPARE(row->text(QAccessible::Name), index(1).data(Qt::AccessibleTextRole).toString());
    QCOMPARE(row->text(QAccessible::Description), QStringLiteral("Today, /data/docs/file1.odt"));
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

    // What was made for a row stays with its file, and goes with it.
    m_source->removeRecord(QStringLiteral("file0"));
    QCOMPARE(list->indexOfChild(row), 0);
    const auto idOf = [list](int child) { return QAccessible::uniqueId(list->child(child)); };
    const QAccessible::Id first = idOf(0);
    const QAccessible::Id second = idOf(1);
    m_source->removeRecord(QStringLiteral("file1"));
    QVERIFY(!QAccessible::accessibleInterface(first));
    QCOMPARE(idOf(0), second);
    fill(2);
    QVERIFY(!QAccessible::accessibleInterface(second));

    RecentSortFilterModel other;
    m_view->setModel(&other);
    QCOMPARE(list->childCount(), 0);
    m_view->setModel(m_model.get());
    QCOMPARE(list->childCount(), 2);
}

void TestView::tipShowsPathAsText()
{
    change(0, [](RecentFileInfo &info) {
        info.path =
            QStringLiteral("/data/<b>bold</b> & <img src=x>") + QChar(0x202E) + QStringLiteral("txt.exe");
        info.size = 12 * 1024;
        info.deviceName = QStringLiteral("<i>Laptop</i>");
    });
    const QString tip = m_delegate.toolTip(index(0));
    for (const char *part :
        {"&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img src=x&gt; txt.exe<br>", "2024", "12 kB", "&lt;i&gt;Laptop"})
        QVERIFY2(tip.contains(QLatin1String(part), Qt::CaseInsensitive), qPrintable(tip));
}

QTEST_MAIN(TestView)
#include "tst_view.moc"

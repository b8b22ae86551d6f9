#include "recentfile/ui/recentfilelistview.h"

#include "recentfile/recentfilemodel.h"
#include "recentfile/records.h"
#include "recentfile/ui/recentfiledelegate.h"

#include <QAccessible>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace recenttest;
using View = ZelBoxRecentFileListView;

namespace {

/// Notes which rows are painted.
class CountingDelegate : public ZelBoxRecentFileDelegate
{
public:
    mutable QVector<int> painted;
    mutable QStyle::State stateOfRow0;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        painted << index.row();
        if (index.row() == 0)
            stateOfRow0 = option.state;
        ZelBoxRecentFileDelegate::paint(painter, option, index);
    }
};

} // namespace

class TestView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void keys_data();
    void keys();
    void typingFindsAName();
    void enterActivatesOnce();
    void clicksAndDoubleClicks();
    void wheelScrollsByPixels();
    void geometryRoundTrip();
    void scrollToKeepsRowsBelowTheHeader();
    void onlyVisibleRowsArePainted();
    void hoverFollowsThePointer();
    void focusRingIsForTheKeyboard();
    void lookedAtRowsStayInPlace_data();
    void lookedAtRowsStayInPlace();
    void reloadKeepsCurrentAndPlace();
    void visibleRowsAreToldOnce();
    void assistivePrograms();
    void tipShowsPathAsText();

private:
    void fill(int rows);
    void click(int row, bool twice = false);
    QStyle::State stateOfRow0();
    QPoint centreOf(int row) const { return m_view->visualRect(m_model->index(row)).center(); }
    int scroll() const { return m_view->verticalScrollBar()->value(); }
    int current() const { return m_view->currentIndex().row(); }

    std::unique_ptr<ZelBoxRecentFileModel> m_model;
    CountingDelegate m_delegate;
    std::unique_ptr<View> m_view;
};

// Three rows today, then ten each day: groups 1, 2, 3 and so on.
void TestView::fill(int rows)
{
    const QDateTime noon = at(QStringLiteral("2024-03-20 11:59"));
    RecordInfoList list;
    for (int i = 0; i < rows; ++i)
        list << record(
            QStringLiteral("file%1").arg(i), noon.addDays(i < 3 ? 0 : -(1 + (i - 3) / 10)).addSecs(-i));
    m_model->setRecords(list);
}

void TestView::init()
{
    setZone("UTC");
    zel::setFixedNow(at(QStringLiteral("2024-03-20 12:00")));
    m_model = std::make_unique<ZelBoxRecentFileModel>();
    m_view = std::make_unique<View>();
    m_view->setModel(m_model.get());
    m_view->setItemDelegate(&m_delegate);
    m_view->resize(500, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    fill(100);
    m_view->setFocus();
}

void TestView::cleanup()
{
    m_view.reset();
    m_model.reset();
    zel::setFixedNow({});
}

void TestView::click(int row, bool twice)
{
    if (twice)
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, centreOf(row));
    else
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, centreOf(row));
}

QStyle::State TestView::stateOfRow0()
{
    m_view->viewport()->repaint();
    return m_delegate.stateOfRow0;
}

void TestView::keys_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("down") << 0 << int(Qt::Key_Down) << 1;
    QTest::newRow("down across a header") << 2 << int(Qt::Key_Down) << 3;
    QTest::newRow("up across a header") << 3 << int(Qt::Key_Up) << 2;
    QTest::newRow("up at the top") << 0 << int(Qt::Key_Up) << 0;
    QTest::newRow("down at the end") << 99 << int(Qt::Key_Down) << 99;
    QTest::newRow("home") << 50 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 50 << int(Qt::Key_End) << 99;
    QTest::newRow("page up at the top") << 2 << int(Qt::Key_PageUp) << 0;
    QTest::newRow("page down at the end") << 97 << int(Qt::Key_PageDown) << 99;
}

void TestView::keys()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, to);
    QSignalSpy changed(m_view.get(), &View::sigCurrentChanged);
    m_view->setCurrentIndex(m_model->index(from));
    QTest::keyClick(m_view.get(), Qt::Key(key));
    QCOMPARE(current(), to);
    QVERIFY(m_view->selectionModel()->isSelected(m_model->index(to)));
    QCOMPARE(m_view->selectionModel()->selectedIndexes().size(), 1);
    QCOMPARE(changed.size(), from == to ? 1 : 2);
    QVERIFY(m_view->viewport()->rect().contains(m_view->visualRect(m_model->index(to))));
    QCOMPARE(m_view->indexAt(centreOf(to)).row(), to);

    // A page is less than what shows, so that nothing is skipped, and there and back again ends at the start.
    m_view->setCurrentIndex(m_model->index(40));
    QTest::keyClick(m_view.get(), Qt::Key_PageDown);
    const int onePage = current() - 40;
    QVERIFY(onePage >= 3 && onePage * m_view->visualRect(m_model->index(0)).height() < 400);
}

void TestView::typingFindsAName()
{
    QTest::keyClicks(m_view.get(), QStringLiteral("file77"));
    QCOMPARE(current(), 77);
}

void TestView::enterActivatesOnce()
{
    QSignalSpy activated(m_view.get(), &View::activated);
    m_view->setCurrentIndex(m_model->index(4));
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QTest::keyClick(m_view.get(), Qt::Key_Enter);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(activated.at(1).at(0).toModelIndex().row(), 4);
}

void TestView::clicksAndDoubleClicks()
{
    QSignalSpy clicked(m_view.get(), &View::clicked);
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    click(1);
    QCOMPARE(current(), 1);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(activated.size(), 0);

    click(2);
    click(2, true);
    QCOMPARE(doubled.size(), 1);
    QCOMPARE(doubled.at(0).at(0).toModelIndex().row(), 2);
    QCOMPARE(clicked.size(), 2); // the release of the second click is no click
    QCOMPARE(activated.size(), 0);
    click(0);
    QCOMPARE(clicked.size(), 3);

    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, {100, 5}); // on the header
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, {100, 5});
    QCOMPARE(clicked.size(), 3);
    QCOMPARE(doubled.size(), 1);
}

void TestView::wheelScrollsByPixels()
{
    const QPoint pos(100, 100);
    QWheelEvent wheel(
        pos, m_view->viewport()->mapToGlobal(pos), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_view->viewport(), &wheel);
    QVERIFY(scroll() > 20 && scroll() < 200);
}

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

void TestView::hoverFollowsThePointer()
{
    const auto hovered = [this] { return stateOfRow0().testFlag(QStyle::State_MouseOver); };
    const auto move = [this](int row) {
        QMouseEvent event(QEvent::MouseMove, centreOf(row), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &event);
    };
    move(0);
    QVERIFY(hovered());
    move(1);
    QVERIFY(!hovered());
    click(1);
    click(1, true);
    move(0);
    QVERIFY(hovered());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_view->viewport(), &leave);
    QVERIFY(!hovered());
}

void TestView::focusRingIsForTheKeyboard()
{
    const auto ring = [this] { return stateOfRow0().testFlag(QStyle::State_HasFocus); };
    click(0);
    QVERIFY(!ring());
    QTest::keyClick(m_view.get(), Qt::Key_Home);
    QVERIFY(ring());
    click(0);
    QVERIFY(!ring());
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
    m_model->removeRecord(QStringLiteral("file1"));
    QVERIFY(!row->isValid());
    QVERIFY(row->state().invalid);
}

void TestView::tipShowsPathAsText()
{
    RecentFileInfo info = record(QStringLiteral("x"), at(QStringLiteral("2024-03-20 09:05")));
    info.path = QStringLiteral("/data/<b>bold</b> & <img src=x>.odt");
    m_model->setRecords({info});
    const QString tip = ZelBoxRecentFileDelegate::toolTip(m_model->index(0));
    QVERIFY(tip.contains(QStringLiteral("&lt;b&gt;bold&lt;/b&gt; &amp; &lt;img src=x&gt;.odt")));
    QVERIFY(tip.contains(QStringLiteral("2024")));
}

QTEST_MAIN(TestView)
#include "tst_view.moc"

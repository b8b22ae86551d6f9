#include "recentfile/viewfixture.h"

#include <QProxyStyle>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace recenttest;

namespace {

/// A desktop where one click opens.
class SingleClickStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *returned) const override
    {
        return hint == SH_ItemView_ActivateItemOnSingleClick
            ? 1
            : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace

class TestViewInput : public QObject, private ViewFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void keys_data();
    void keys();
    void typingFindsAName();
    void enterActivatesOnce();
    void clicksAndDoubleClicks();
    void onlyTheLeftButtonOpens_data();
    void onlyTheLeftButtonOpens();
    void doubleClickNeedsTheSameRowTwice();
    void wheelScrollsByPixels();
    void hoverFollowsThePointer();
    void focusRingIsForTheKeyboard();

private:
    QStyle::State stateOfRow0()
    {
        m_view->viewport()->repaint();
        return m_delegate.stateOfRow0;
    }
};

void TestViewInput::keys_data()
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

void TestViewInput::keys()
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
    QTest::keyClick(m_view.get(), Qt::Key_PageUp);
    QCOMPARE(current(), 40);
}

void TestViewInput::typingFindsAName()
{
    QTest::keyClicks(m_view.get(), QStringLiteral("file77"));
    QCOMPARE(current(), 77);
}

void TestViewInput::enterActivatesOnce()
{
    QSignalSpy activated(m_view.get(), &View::activated);
    m_view->setCurrentIndex(m_model->index(4));
    QTest::keyClick(m_view.get(), Qt::Key_Return);
    QTest::keyClick(m_view.get(), Qt::Key_Enter);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(m_view.get(), &held);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(activated.at(1).at(0).toModelIndex().row(), 4);
}

void TestViewInput::clicksAndDoubleClicks()
{
    QSignalSpy clicked(m_view.get(), &View::clicked);
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    click(1);
    QCOMPARE(current(), 1);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(activated.size(), 0);

    click(2);
    clickAgain(2);
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

void TestViewInput::onlyTheLeftButtonOpens_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("singleClickDesktop");
    QTest::newRow("middle") << int(Qt::MiddleButton) << false;
    QTest::newRow("right") << int(Qt::RightButton) << false;
    QTest::newRow("middle, one click opens") << int(Qt::MiddleButton) << true;
    QTest::newRow("right, one click opens") << int(Qt::RightButton) << true;
}

void TestViewInput::onlyTheLeftButtonOpens()
{
    QFETCH(int, button);
    QFETCH(bool, singleClickDesktop);
    SingleClickStyle style;
    if (singleClickDesktop)
        m_view->setStyle(&style);
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    click(1, Qt::MouseButton(button));
    clickAgain(1, Qt::MouseButton(button));
    QCOMPARE(doubled.size() + activated.size(), 0);
    click(1);
    QCOMPARE(activated.size(), singleClickDesktop ? 1 : 0); // the left one still does
    clickAgain(1);
    QCOMPARE(doubled.size(), singleClickDesktop ? 0 : 1);
    m_view->setStyle(nullptr);
}

// The row that comes in between pushes another one under the pointer.
void TestViewInput::doubleClickNeedsTheSameRowTwice()
{
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    click(1);
    m_model->addRecord(record(QStringLiteral("new"), at(QStringLiteral("2024-03-20 12:00"))));
    clickAgain(1);
    QCOMPARE(doubled.size() + activated.size(), 0);
    QCOMPARE(current(), 1); // a press like any other, and the first half of the next double click
    clickAgain(1);
    QCOMPARE(doubled.size(), 1);
    QCOMPARE(doubled.at(0).at(0).toModelIndex().row(), 1);

    click(2);
    m_model->removeRecord(m_model->record(2).id);
    clickAgain(2);
    QCOMPARE(doubled.size(), 1);
}

void TestViewInput::wheelScrollsByPixels()
{
    const QPoint pos(100, 100);
    QWheelEvent wheel(
        pos, m_view->viewport()->mapToGlobal(pos), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_view->viewport(), &wheel);
    QVERIFY(scroll() > 20 && scroll() < 200);
}

void TestViewInput::hoverFollowsThePointer()
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
    clickAgain(1);
    move(0);
    QVERIFY(hovered());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_view->viewport(), &leave);
    QVERIFY(!hovered());
}

void TestViewInput::focusRingIsForTheKeyboard()
{
    const auto ring = [this] { return stateOfRow0().testFlag(QStyle::State_HasFocus); };
    click(0);
    QVERIFY(!ring());
    QTest::keyClick(m_view.get(), Qt::Key_Home);
    QVERIFY(ring());
    click(0);
    QVERIFY(!ring());
}

QTEST_MAIN(TestViewInput)
#include "tst_viewinput.moc"

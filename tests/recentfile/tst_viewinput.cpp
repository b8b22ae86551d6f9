#include "recentfile/viewfixture.h"

#include <QProxyStyle>
#include <QSignalSpy>

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
    void pagesThereAndBack();
    void commandKeys_data();
    void commandKeys();
    void typedTextIsForFinding();
    void picking();
    void onlyTheLeftButtonOpens();
    void doubleClickNeedsTheSameRowTwice();
    void menus();
    void rowButtons();
    void rowButtonsNeedTheirRow();
};

void TestViewInput::keys_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("selected");
    const auto row = [](const char *title, int from, Qt::Key key, Qt::KeyboardModifiers modifiers, int to,
                         const char *selected) {
        QTest::newRow(title) << from << int(key) << int(modifiers) << to << QString::fromLatin1(selected);
    };
    row("up across a header", 3, Qt::Key_Up, {}, 2, "2");
    row("home", 50, Qt::Key_Home, {}, 0, "0");
    row("shift home", 2, Qt::Key_Home, Qt::ShiftModifier, 0, "0-2");
    row("control down", 2, Qt::Key_Down, Qt::ControlModifier, 3, "2");
    row("all", 2, Qt::Key_A, Qt::ControlModifier, 2, "0-99");
    row("space toggles", 2, Qt::Key_Space, {}, 2, "");
    row("escape", 2, Qt::Key_Escape, {}, 2, "");
}

void TestViewInput::keys()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, to);
    m_view->setCurrentIndex(index(from));
    QTest::keyClick(m_view.get(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(current(), to);
    QTEST(selection(), "selected");
    QVERIFY(m_view->viewport()->rect().contains(m_view->visualRect(index(to))));
    QCOMPARE(m_view->indexAt(centreOf(to)).row(), to);
}

// A page is less than what shows, so that nothing is skipped, and there and back again ends at the start.
void TestViewInput::pagesThereAndBack()
{
    m_view->setCurrentIndex(index(40));
    QTest::keyClick(m_view.get(), Qt::Key_PageDown, Qt::ShiftModifier);
    const int onePage = current() - 40;
    QVERIFY(onePage >= 3 && onePage * m_view->visualRect(index(0)).height() < 400);
    QCOMPARE(selection(), QStringLiteral("40-%1").arg(current()));
    QTest::keyClick(m_view.get(), Qt::Key_PageUp);
    QCOMPARE(current(), 40);
}

void TestViewInput::commandKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("expected"); // the signal
    QTest::addColumn<bool>("needsSelection");
    const auto row = [](const char *title, int key, int modifiers, const char *expected,
                         bool needsSelection) {
        QTest::newRow(title) << key << modifiers << QString::fromLatin1(expected) << needsSelection;
    };
    row("remove", Qt::Key_Delete, Qt::NoModifier, "remove", true);
    row("delete the file", Qt::Key_Delete, Qt::ShiftModifier, "delete", true);
    row("copy", Qt::Key_C, Qt::ControlModifier, "copy", true);
    row("open folder", Qt::Key_Return, Qt::ControlModifier, "folder", false);
    row("open", Qt::Key_Return, Qt::NoModifier, "open", false);
    row("menu", Qt::Key_F10, Qt::ShiftModifier, "menu", false);
    row("typed", Qt::Key_X, Qt::NoModifier, "typed", false);
    row("shortcut of somebody else", Qt::Key_X, Qt::ControlModifier, "", false);
}

void TestViewInput::commandKeys()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(bool, needsSelection);
    QFETCH(QString, expected);
    QStringList log;
    const auto note = [&](const char *name) { return [&log, name] { log << QLatin1String(name); }; };
    QObject::connect(m_view.get(), &View::sigRemoveRequested, m_view.get(), note("remove"));
    QObject::connect(m_view.get(), &View::sigDeleteFileRequested, m_view.get(), note("delete"));
    QObject::connect(m_view.get(), &View::sigCopyRequested, m_view.get(), note("copy"));
    QObject::connect(m_view.get(), &View::sigOpenFolderRequested, m_view.get(), note("folder"));
    QObject::connect(m_view.get(), &View::activated, m_view.get(), note("open"));
    QObject::connect(m_view.get(), &View::customContextMenuRequested, m_view.get(), note("menu"));
    QObject::connect(m_view.get(), &View::sigTextTyped, m_view.get(), note("typed"));
    m_view->setCurrentIndex(index(3));
    QTest::keyClick(m_view.get(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    if (expected != QLatin1String("typed")) { // a key that is held down acts once
        QKeyEvent held(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), {}, true);
        QCoreApplication::sendEvent(m_view.get(), &held);
    }
    QCOMPARE(log.join(QLatin1Char(' ')), expected);

    m_view->clearSelection();
    log.clear();
    QTest::keyClick(m_view.get(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(log.join(QLatin1Char(' ')), needsSelection ? QString() : expected);
}

void TestViewInput::typedTextIsForFinding()
{
    QSignalSpy typed(m_view.get(), &View::sigTextTyped);
    m_view->setCurrentIndex(index(3));
    QTest::keyClicks(m_view.get(), QStringLiteral("aÄ"));
    QVERIFY(m_view->testAttribute(Qt::WA_InputMethodEnabled)); // what the base class takes away
    QInputMethodEvent preedit(QStringLiteral("wen"), {});
    QCoreApplication::sendEvent(m_view.get(), &preedit);
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8("文件"));
    QCoreApplication::sendEvent(m_view.get(), &commit);
    QStringList texts;
    for (const QList<QVariant> &arguments : std::as_const(typed))
        texts << arguments.at(0).toString();
    QCOMPARE(texts.join(QLatin1Char(' ')), QString::fromUtf8("a Ä 文件"));
    QCOMPARE(current(), 3);
}

void TestViewInput::picking()
{
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    click(1);
    click(4, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(selection(), QStringLiteral("1-4"));
    click(2, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selection(), QStringLiteral("1 3-4"));
    QTest::mouseDClick(
        m_view->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(2)); // twice is there and back
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(2));
    QCOMPARE(selection(), QStringLiteral("1-4"));
    QCOMPARE(doubled.size(), 0);
    const QRect last = m_view->visualRect(index(0));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, centreOf(3));
    QTest::mouseClick(
        m_view->viewport(), Qt::LeftButton, Qt::ShiftModifier, last.bottomLeft() + QPoint(50, 0));
    QCOMPARE(selection(), QStringLiteral("0-3")); // by a row's last pixel, too
    click(4, Qt::RightButton);
    QCOMPARE(selection(), QStringLiteral("4"));
    click(2, Qt::LeftButton, Qt::ShiftModifier);
    click(3, Qt::RightButton);
    QCOMPARE(selection(), QStringLiteral("2-4"));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, {100, 5}); // the header
    QCOMPARE(selection(), QString());
}

void TestViewInput::onlyTheLeftButtonOpens()
{
    SingleClickStyle style;
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    for (const bool singleClickDesktop : {false, true}) {
        m_view->setStyle(singleClickDesktop ? &style : nullptr);
        for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton}) {
            click(1, button);
            clickAgain(1, button);
        }
        click(2, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(doubled.size() + activated.size(), singleClickDesktop ? 1 : 0);
        click(1);
        clickAgain(1);
        QCOMPARE(doubled.size(), 1);
        QCOMPARE(activated.size(), singleClickDesktop ? 1 : 0);
    }
    m_view->setStyle(nullptr);
}

// The row that comes in between pushes another one under the pointer.
void TestViewInput::doubleClickNeedsTheSameRowTwice()
{
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    QSignalSpy activated(m_view.get(), &View::activated);
    click(1);
    m_source->addRecord(record(QStringLiteral("new"), at(QStringLiteral("2024-03-20 12:00"))));
    clickAgain(1);
    QCOMPARE(doubled.size() + activated.size(), 0);
    QCOMPARE(current(), 1); // a press like any other, and the first half of the next double click
    clickAgain(1);
    QCOMPARE(doubled.size(), 1);
    QCOMPARE(doubled.at(0).at(0).toModelIndex().row(), 1);

    click(2);
    m_source->removeRecord(m_source->record(2).id);
    clickAgain(2);
    QCOMPARE(doubled.size(), 1);
}

// By the pointer where it is, by the keyboard at the current row, wherever that has gone.
void TestViewInput::menus()
{
    QSignalSpy menu(m_view.get(), &View::customContextMenuRequested);
    QContextMenuEvent mouse(
        QContextMenuEvent::Mouse, centreOf(2), m_view->viewport()->mapToGlobal(centreOf(2)));
    QCoreApplication::sendEvent(m_view->viewport(), &mouse);
    QCOMPARE(menu.size(), 1);
    QCOMPARE(menu.at(0).at(0).toPoint(), centreOf(2));

    m_view->selectionModel()->setCurrentIndex(index(60), QItemSelectionModel::NoUpdate);
    m_view->verticalScrollBar()->setValue(0);
    QContextMenuEvent keyboard(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(m_view.get(), &keyboard);
    QCOMPARE(menu.size(), 2);
    QCOMPARE(m_view->indexAt(menu.at(1).at(0).toPoint()).row(), 60);
    QCOMPARE(selection(), QStringLiteral("60"));
}

void TestViewInput::rowButtons()
{
    QSignalSpy shared(m_view.get(), &View::sigShareDoc);
    QSignalSpy more(m_view.get(), &View::sigMoreRequested);
    QSignalSpy clicked(m_view.get(), &View::clicked);
    QSignalSpy doubled(m_view.get(), &View::doubleClicked);
    click(0);
    clicked.clear();
    QVERIFY(buttonRect(1, RecentButton::Share).isNull());
    move(centreOf(1));
    const QRect share = buttonRect(1, RecentButton::Share);
    const QRect rest = buttonRect(1, RecentButton::More);
    move(share.center());
    QCOMPARE(painted(1).hovered, RecentButton::Share);
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, share.center());
    QCOMPARE(painted(1).pressed, RecentButton::Share);
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, share.center());
    QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, share.center());
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, share.center());
    QCOMPARE(shared.size(), 2);
    QCOMPARE(shared.at(0).at(0).value<QPersistentModelIndex>().row(), 1);

    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, rest.center());
    QCOMPARE(more.size(), 1);
    QVERIFY(
        m_view->visualRect(index(1)).contains(m_view->viewport()->mapFromGlobal(more.at(0).at(1).toPoint())));
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, share.center()); // and thinks better of it
    move(centreOf(1), Qt::LeftButton);
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, centreOf(1));
    QCOMPARE(shared.size(), 2);
    QCOMPARE(selection(), QStringLiteral("0"));
    QCOMPARE(clicked.size() + doubled.size(), 0);
}

// Buttons that do not show are not pressed. The keyboard's row shows its own, and a focus ring, until the
// pointer takes over.
void TestViewInput::rowButtonsNeedTheirRow()
{
    QSignalSpy shared(m_view.get(), &View::sigShareDoc);
    move(centreOf(1));
    QVERIFY(painted(1).state.testFlag(QStyle::State_MouseOver));
    const QPoint share = buttonRect(1, RecentButton::Share).center();
    send(QEvent::Leave, m_view->viewport());
    QVERIFY(!painted(1).state.testFlag(QStyle::State_MouseOver));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, share);
    QCOMPARE(shared.size(), 0);
    QCOMPARE(selection(), QStringLiteral("1"));
    QVERIFY(!painted(1).state.testFlag(QStyle::State_HasFocus));
    QTest::keyClick(m_view.get(), Qt::Key_Down);
    QVERIFY(painted(2).buttons && !painted(1).buttons && painted(2).state.testFlag(QStyle::State_HasFocus));
    move(centreOf(1));
    QVERIFY(!painted(2).buttons && painted(1).buttons);
    click(2);
    QVERIFY(!painted(2).state.testFlag(QStyle::State_HasFocus));
}

QTEST_MAIN(TestViewInput)
#include "tst_viewinput.moc"

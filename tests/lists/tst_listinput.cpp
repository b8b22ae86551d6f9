#include "lists/listfixture.h"

using namespace listtest;

/// Keys, clicks and drags.
class TestListInput : public QObject, private ListFixture
{
    Q_OBJECT
private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }
    void keys_data()
    {
        // from: negative: that row has only the focus ring
        const auto row =
            zeltest::table<int, int, int, int, QString>("from", "key", "modifiers", "to", "selected");
        row("up across a title", 3, Qt::Key_Up, {}, 2, "a2");
        row("home", 50, Qt::Key_Home, {}, 0, "a0");
        row("shift home", 2, Qt::Key_Home, Qt::ShiftModifier, 0, "a0 a1 a2");
        row("control down", 2, Qt::Key_Down, Qt::ControlModifier, 3, "a2");
        row("space toggles", 2, Qt::Key_Space, {}, 2, "");
        row("escape", 2, Qt::Key_Escape, {}, 2, "");
        row("down from the ring", -2, Qt::Key_Down, {}, 3, "b3");
        row("end from the ring, there already", -99, Qt::Key_End, {}, 99, "k99");
    }
    void keys()
    {
        const auto [from, key, modifiers, to] = zeltest::row<int, int, int, int>();
        m_view->setCurrentIndex(index(qAbs(from)));
        if (from < 0)
            this->key(Qt::Key_Escape);
        QCOMPARE(m_view->chosenRows(), QModelIndexList{index(qAbs(from))});
        this->key(key, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(m_view->currentIndex().row(), to);
        QTEST(selection(), "selected");
        QVERIFY(m_view->viewport()->rect().contains(m_view->visualRect(index(to))));
        QCOMPARE(m_view->indexAt(centreOf(to)).row(), to);
    }
    // Without a ring keys hit no row, and the first step goes to one that shows.
    void nothingIsChosenUnseen()
    {
        m_view->setCurrentIndex(index(3));
        key(Qt::Key_Escape);
        m_model->remove(m_model->idOf(3)); // by others
        QCOMPARE(m_view->chosenRows(), QModelIndexList());
        QSignalSpy activated(m_view.get(), &View::activated);
        key(Qt::Key_Return);
        QCOMPARE(activated.size(), 0);
        key(Qt::Key_Down);
        QCOMPARE(selection(), "b5"_s);
        click(0);
        click(0, Qt::LeftButton, Qt::ControlModifier);
        m_view->verticalScrollBar()->setValue(1000);
        key(Qt::Key_Down);
        QVERIFY(scroll() > 900 && m_view->selectedCount() == 1);
    }

    // A page is less than what shows, so that nothing is skipped, and there and back again ends at the start.
    void pagesThereAndBack()
    {
        m_view->setCurrentIndex(index(40));
        key(Qt::Key_PageDown, Qt::ShiftModifier);
        const int onePage = m_view->currentIndex().row() - 40;
        QVERIFY(onePage >= 3 && onePage * m_view->rowHeight() < 400);
        QCOMPARE(m_view->selectedCount(), onePage + 1);
        key(Qt::Key_PageUp);
        QCOMPARE(m_view->currentIndex().row(), 40);
    }

    void commandKeys_data()
    {
        // expected: what runs; with a blank, without current row and selection, too
        const auto row = zeltest::table<int, int, QString>("key", "modifiers", "expected");
        row("for selected rows", Qt::Key_Delete, Qt::NoModifier, "remove");
        row("other modifiers", Qt::Key_Delete, Qt::ShiftModifier, "");
        row("standard key", Qt::Key_C, Qt::ControlModifier, "copy");
        row("open", Qt::Key_Return, Qt::NoModifier, "open");
        row("open, number block", Qt::Key_Enter, Qt::KeypadModifier, "open");
        row("for any", Qt::Key_Backspace, Qt::NoModifier, "up ");
        row("menu", Qt::Key_F10, Qt::ShiftModifier, "menu ");
        row("typed", Qt::Key_X, Qt::NoModifier, "typed ");
        row("of somebody else", Qt::Key_X, Qt::ControlModifier, "");
    }
    void commandKeys()
    {
        const auto [key, modifiers, expected] = zeltest::row<int, int, QString>();
        QStringList log;
        const auto note = [&](const char *name) { return [&log, name] { log << QLatin1String(name); }; };
        using Needs = ListKeyboard::Needs;
        m_view->keyboard().bind(Qt::Key_Delete, Needs::Nothing, note("wrong"));
        m_view->keyboard().bind(Qt::Key_Delete, Needs::Row, note("remove"));
        m_view->keyboard().bind(QKeySequence::Copy, Needs::Row, note("copy"));
        m_view->keyboard().bind(Qt::Key_Backspace, Needs::Nothing, note("up"));
        connect(m_view.get(), &View::activated, this, note("open"));
        connect(m_view.get(), &View::customContextMenuRequested, this, note("menu"));
        connect(m_view.get(), &View::textTyped, this, note("typed"));
        m_view->setCurrentIndex(index(3));
        this->key(key, Qt::KeyboardModifiers(modifiers));
        if (!expected.startsWith("typed"_s)) { // a key that is held down acts once
            QKeyEvent held(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), {}, true);
            QCoreApplication::sendEvent(m_view.get(), &held);
        }
        QCOMPARE(log.join(QLatin1Char(' ')), expected.trimmed());

        m_view->selectionModel()->clear();
        log.clear();
        this->key(key, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(
            log.join(QLatin1Char(' ')), expected.endsWith(QLatin1Char(' ')) ? expected.trimmed() : QString());
    }

    void typedText()
    {
        QSignalSpy typed(m_view.get(), &View::textTyped);
        m_view->setCurrentIndex(index(3));
        QTest::keyClicks(m_view.get(), "aÄ"_s);
        QVERIFY(m_view->testAttribute(Qt::WA_InputMethodEnabled)); // what the base class takes away
        QInputMethodEvent preedit("wen"_s, {});
        QCoreApplication::sendEvent(m_view.get(), &preedit);
        QInputMethodEvent commit;
        commit.setCommitString("文件"_s);
        QCoreApplication::sendEvent(m_view.get(), &commit);
        const auto text = [](const QList<QVariant> &arguments) { return arguments.at(0).toString(); };
        QCOMPARE(zeltest::joined(typed, text), "a Ä 文件"_s);
        QCOMPARE(m_view->currentIndex().row(), 3);
        m_view->setTypeToFilter(false);
        QTest::keyClicks(m_view.get(), "c"_s);
        QCOMPARE(m_view->currentId(), "c13"_s);
    }

    void picking()
    {
        QSignalSpy doubled(m_view.get(), &View::doubleClicked);
        click(1);
        click(4, Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(selection(), "a1 a2 b3 b4"_s);
        click(2, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(selection(), "a1 b3 b4"_s);
        clickAgain(2, Qt::LeftButton, Qt::ControlModifier); // twice is there and back
        QCOMPARE(selection(), "a1 a2 b3 b4"_s);
        QCOMPARE(doubled.size(), 0);
        click(3);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, Qt::ShiftModifier,
            m_view->visualRect(index(0)).bottomLeft() + QPoint(50, 0));
        QCOMPARE(selection(), "a0 a1 a2 b3"_s); // by a row's last pixel, too
        click(4, Qt::RightButton);
        QCOMPARE(selection(), "b4"_s);
        click(2, Qt::LeftButton, Qt::ShiftModifier);
        click(3, Qt::RightButton);
        QCOMPARE(selection(), "a2 b3 b4"_s);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, {100, 5}); // the title
        QCOMPARE(selection(), QString());
    }

    void onlyTheLeftButtonOpens()
    {
        SingleClickStyle style;
        QSignalSpy doubled(m_view.get(), &View::doubleClicked);
        QSignalSpy activated(m_view.get(), &View::activated);
        for (const bool singleClickDesktop : {false, true}) {
            m_view->setStyle(singleClickDesktop ? &style : nullptr);
            for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton, Qt::BackButton}) {
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
    void doubleClickNeedsTheSameRowTwice()
    {
        QSignalSpy doubled(m_view.get(), &View::doubleClicked);
        click(1);
        m_model->insert(0, "a new one"_s);
        clickAgain(1);
        QCOMPARE(doubled.size(), 0);
        QCOMPARE(m_view->currentIndex().row(), 1); // a press like any other, and the first half of the next
        clickAgain(1);
        QCOMPARE(doubled.size(), 1);
    }

    // By keyboard a menu belongs to the current row, in view or not; without one to no row at all.
    void menus()
    {
        QSignalSpy menu(m_view.get(), &View::customContextMenuRequested);
        const auto ask = [&] {
            QContextMenuEvent keyboard(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
            QCoreApplication::sendEvent(m_view.get(), &keyboard);
            return m_view->indexAt(menu.takeLast().at(0).toPoint()).row();
        };
        m_view->selectionModel()->clear();
        QCOMPARE(ask(), -1);
        click(1);
        m_view->selectionModel()->setCurrentIndex(index(60), QItemSelectionModel::NoUpdate);
        m_view->scrollToTop();
        QCOMPARE(ask(), 60);
        QCOMPARE(selection(), index(60).data().toString());
        QCOMPARE(menu.size(), 0);
    }

    void rowButtons()
    {
        QSignalSpy pressed(m_view.get(), &View::buttonClicked);
        QSignalSpy clicked(m_view.get(), &View::clicked);
        QSignalSpy doubled(m_view.get(), &View::doubleClicked);
        click(0);
        clicked.clear();
        move(centreOf(1));
        QVERIFY(painted(1).buttons && !painted(2).buttons);
        const QPoint first = buttonOf(1, 0);
        move(first);
        QCOMPARE(painted(1).hovered, 0);
        QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(painted(1).pressed, 0);
        QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(m_view->viewport(), Qt::LeftButton, {}, first); // two clicks are two
        QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(pressed.size(), 2);
        QCOMPARE(pressed.at(0).at(0).toModelIndex().row(), 1);

        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, buttonOf(1, 1));
        QCOMPARE(pressed.at(2).at(1).toInt(), 1);
        const QPoint below = m_view->viewport()->mapFromGlobal(pressed.at(2).at(2).toPoint());
        QVERIFY(m_view->visualRect(index(1)).contains(below) && below.y() > buttonOf(1, 1).y());
        QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, first); // and thinks better of it
        move(centreOf(1), Qt::LeftButton);
        QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, centreOf(1));
        QCOMPARE(pressed.size(), 3);
        QCOMPARE(selection(), "a0"_s);
        QCOMPARE(clicked.size() + doubled.size(), 0);
    }

    void rowsMoveUnderAnOpenMenu()
    {
        move(centreOf(1));
        QMenu menu;
        menu.addAction("Open"_s);
        m_view->popUp(&menu, m_view->mapToGlobal({300, 300}));
        m_model->insert(0, "a"_s);
        send(QEvent::Leave); // into the menu
        QVERIFY(painted(2).state.testFlag(QStyle::State_MouseOver) && painted(2).buttons);
        menu.close();
        QTRY_VERIFY(!painted(2).state.testFlag(QStyle::State_MouseOver)); // the pointer is elsewhere
    }

    // Buttons that do not show are not pressed. The keyboard's row shows its own, and a focus ring, until the
    // pointer takes over.
    void rowButtonsNeedTheirRow()
    {
        QSignalSpy pressed(m_view.get(), &View::buttonClicked);
        move(centreOf(1));
        QVERIFY(painted(1).state.testFlag(QStyle::State_MouseOver));
        send(QEvent::Leave);
        QVERIFY(!painted(1).state.testFlag(QStyle::State_MouseOver));
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, buttonOf(1, 0));
        QCOMPARE(pressed.size(), 0);
        QCOMPARE(selection(), "a1"_s);
        QVERIFY(!painted(1).state.testFlag(QStyle::State_HasFocus));
        key(Qt::Key_Control); // on its way to a click
        QVERIFY(!painted(1).state.testFlag(QStyle::State_HasFocus));
        key(Qt::Key_Down);
        QVERIFY(
            painted(2).buttons && !painted(1).buttons && painted(2).state.testFlag(QStyle::State_HasFocus));
        move(centreOf(1));
        QVERIFY(!painted(2).buttons && painted(1).buttons);
        click(2);
        QVERIFY(!painted(2).state.testFlag(QStyle::State_HasFocus));
    }

    void dragsBeginPastTheDistance()
    {
        const auto drag = [this](const QPoint &from, const QPoint &by,
                              Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
            m_view->drags = 0;
            QTest::mousePress(m_view->viewport(), button, modifiers, from);
            move(from + by / 2, button);
            move(from + by, button);
            QTest::mouseRelease(m_view->viewport(), button, modifiers, from + by);
            return m_view->drags;
        };
        const QPoint far(0, 80);
        QCOMPARE(drag(centreOf(1), {3, 3}), 0);
        QCOMPARE(drag(centreOf(1), far), 1);
        QCOMPARE(drag(centreOf(4), {3, 3}, Qt::LeftButton, Qt::ShiftModifier),
            0); // far from where row 1 was pressed
        QCOMPARE(m_view->selectedCount(), 4);
        QCOMPARE(drag(centreOf(2), far), 1);
        QCOMPARE(m_view->selectedCount(), 4); // all of them go along
        QCOMPARE(drag(centreOf(2), far, Qt::RightButton), 0);
        QCOMPARE(drag({100, 5}, far), 0); // from a title
        move(centreOf(1));
        QCOMPARE(drag(buttonOf(1, 0), far), 0);
        m_view->setDragEnabled(false);
        QCOMPARE(drag(centreOf(1), far), 0);
    }

    void dropsGoWhereTheyFall_data()
    {
        // row: -1: below the rows
        const auto row = zeltest::table<QString, int, QString>("dragged", "row", "expected");
        row("into a row", "item", 1, "item into a1");
        row("that does not take it", "item", 2, "");
        row("beside rows", "item", -1, "");
        row("into the list, over a row", "file", 1, "file into ");
        row("into the list", "file", -1, "file into ");
        row("nowhere", "text", 1, "");
    }
    void dropsGoWhereTheyFall()
    {
        const auto [dragged, row, expected] = zeltest::row<QString, int, QString>();
        m_model->load({"a0"_s, "a1"_s, "b2"_s});
        QMimeData data;
        data.setText(dragged);
        QSignalSpy lingered(m_view.get(), &View::dragLingered);
        const QImage before = m_view->grab().toImage();
        const QPoint pos = row < 0 ? QPoint(250, 390) : centreOf(row);
        QDragEnterEvent enter(pos, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &enter);
        QVERIFY(enter.isAccepted()); // a row that takes it may come under the pointer
        QDragMoveEvent move(pos, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &move);
        QCOMPARE(move.isAccepted(), !expected.isEmpty());
        QCOMPARE(m_view->grab().toImage() != before, expected.endsWith(QLatin1Char(' '))); // the list's frame
        const bool intoRow = !expected.isEmpty() && !expected.endsWith(QLatin1Char(' '));
        QCOMPARE(painted(1).dropTarget, intoRow);
        if (intoRow)
            QVERIFY(lingered.wait());
        QDropEvent drop(pos, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view->viewport(), &drop);
        QCOMPARE(m_view->dropped.join(QLatin1Char(' ')), expected);
        QCOMPARE(m_view->grab().toImage(), before);
        QVERIFY(!painted(1).dropTarget);
    }

private:
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
};

QTEST_MAIN(TestListInput)
#include "tst_listinput.moc"

#include "kcoreapplication.h"
#include "skinstate.h"
#include "widgets/balancedlabel.h"
#include "widgets/boxdialog.h"
#include "widgets/modalguard.h"
#include "widgets/noticebar.h"
#include "widgets/progressring.h"
#include "widgets/searchfield.h"
#include "widgets/sidelist.h"
#include "widgets/toggle.h"

class WidgetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void searchFieldEmptiesBeforeItLetsGo()
    {
        Window window;
        SearchField field("Search files"_s, &window);
        const auto buttons = field.findChildren<QToolButton *>();
        QToolButton *clear = buttons.last();
        window.show();
        QCOMPARE(field.accessibleName(), "Search files"_s);
        QVERIFY(clear->isHidden());
        QTest::keyClicks(&field, "ab"_s);
        QVERIFY(clear->isVisible());
        QTest::keyClick(&field, Qt::Key_Escape);
        QCOMPARE(field.text(), QString());
        QCOMPARE(window.escapes, 0);
        QVERIFY(clear->isHidden());
        QTest::keyClick(&field, Qt::Key_Escape);
        QCOMPARE(window.escapes, 1);
        field.setText("c"_s);
        QTest::mouseClick(clear, Qt::LeftButton);
        QCOMPARE(field.text(), QString());
        QSignalSpy down(&field, &SearchField::leaveDownRequested);
        QTest::keyClick(&field, Qt::Key_Down);
        QCOMPARE(down.count(), 1);
    }

    void toggleMovesUnlessForbidden()
    {
        for (const bool moves : {true, false}) {
            setAnimations(moves);
            Toggle toggle("Start with the session"_s);
            toggle.show();
            const auto *motion = toggle.findChild<QVariantAnimation *>();
            QTest::mouseClick(&toggle, Qt::LeftButton, {}, {2, toggle.height() - 2});
            QVERIFY(toggle.isChecked());
            QCOMPARE(motion->state() == QAbstractAnimation::Running, moves);
            QTRY_COMPARE(motion->state(), QAbstractAnimation::Stopped);
            const QImage on = toggle.grab().toImage();
            toggle.setChecked(false);
            toggle.blockSignals(true); // as who shows what another one has set
            toggle.setChecked(true);
            QTRY_COMPARE(motion->state(), QAbstractAnimation::Stopped);
            QCOMPARE(toggle.grab().toImage(), on);
            toggle.blockSignals(false);
            QTest::keyClick(&toggle, Qt::Key_Space);
            QVERIFY(!toggle.isChecked());
            QTRY_COMPARE(motion->state(), QAbstractAnimation::Stopped);
            QVERIFY(on != toggle.grab().toImage());
        }
        setAnimations(true);
    }

    // A ring that turns costs power only while somebody can see it.
    void ringRestsUnseen()
    {
        ProgressRing ring;
        const auto *turning = ring.findChild<QVariantAnimation *>();
        ring.setRange(0, 0);
        ring.show();
        QTRY_COMPARE(turning->state(), QAbstractAnimation::Running);
        ring.hide();
        QCOMPARE(turning->state(), QAbstractAnimation::Stopped);
        ring.show();
        QTRY_COMPARE(turning->state(), QAbstractAnimation::Running);
        ring.setRange(0, 100);
        QTRY_COMPARE(turning->state(), QAbstractAnimation::Stopped);
    }

    void sideListAlwaysHasAPage()
    {
        SideList list("Settings"_s);
        QSignalSpy chosen(&list, &SideList::pageChosen);
        const QString icon = ":/icons_svg/settings.svg"_s;
        list.addPage(icon, "General"_s);
        const int narrow = list.sizeHint().width();
        list.addPage(icon, "A page with a title that asks for more room"_s);
        QVERIFY(list.sizeHint().width() > narrow);
        list.show();
        QCOMPARE(list.currentRow(), 0);
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::mouseClick(
            list.viewport(), Qt::LeftButton, Qt::ControlModifier, list.visualItemRect(list.item(1)).center());
        QVERIFY(list.item(1)->isSelected());
        QCOMPARE(chosen.count(), 2);
        QCOMPARE(chosen.last().constFirst().toInt(), 1);
    }

    // A click on the window behind gives it the keyboard, on X11; the upper of two questions goes first.
    void questionsKeepTheKeys()
    {
        QWidget window;
        new ModalGuard(&window);
        auto *action = new QAction(&window);
        action->setShortcut("Ctrl+D"_s);
        window.addAction(action);
        QSignalSpy triggered(action, &QAction::triggered);
        window.show();
        BoxDialog lower("Lower"_s, "Remove it?"_s, &window);
        BoxDialog upper("Upper"_s, "Exit?"_s, &window);
        for (BoxDialog *dialog : {&lower, &upper}) {
            dialog->open();
            QTRY_COMPARE(QApplication::activeWindow(), dialog);
        }
        const auto givesWay = [&](QWidget *behind, QWidget *question) {
            QApplication::setActiveWindow(behind);
            QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
            QApplication::setActiveWindow(question);
            QSignalSpy moves(qApp, &QGuiApplication::focusWindowChanged);
            behind->activateWindow();
            return QTest::qWaitFor([&] { return moves.count() >= 2; })
                && QApplication::activeWindow() == question;
        };
        QVERIFY(givesWay(&window, &upper));
        QVERIFY(givesWay(&lower, &upper));
        upper.reject();
        QTRY_COMPARE(QApplication::activeWindow(), &lower);
        QVERIFY(givesWay(&window, &lower));
        lower.reject();
        QCOMPARE(triggered.count(), 0);
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
        QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
    }

    void headingsHaveNoWordAlone()
    {
        const QFontMetrics metrics{QFont()};
        const BalancedLabel label("Are you sure to delete file Quarterly report.odt ?"_s);
        const int whole = metrics.horizontalAdvance(label.text());
        const int balanced =
            BalancedLabel::balancedWidth(label.text(), metrics, whole - 4); // "?" does not fit
        QVERIFY2(balanced < whole * 3 / 4, qPrintable("%1 of %2"_s.arg(balanced).arg(whole)));
        QCOMPARE(label.heightForWidth(balanced), label.heightForWidth(whole - 4));
        QVERIFY(BalancedLabel("A_very_long_name ?"_s).minimumSizeHint().width()
            > metrics.horizontalAdvance("A_very_long_name"_s));
    }

    void noticeEnds_data()
    {
        const auto row = zeltest::table<QString, int, int>("how", "used", "dismissed");
        row("used", "action", 1, 0);
        row("closed", "close", 0, 1);
        row("escape", "escape", 0, 1);
        row("time", "time", 0, 1);
        row("plain text instead", "text", 0, 1);
        row("another offer instead", "offer", 0, 0);
    }
    void noticeEnds()
    {
        QFETCH(QString, how);
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *notice = new NoticeBar;
        layout->addWidget(notice);
        auto *elsewhere = new QPushButton;
        layout->addWidget(elsewhere);
        window.show();
        elsewhere->setFocus(); // a notice with the focus would stay
        QVERIFY(notice->isHidden());
        QSignalSpy used(notice, &NoticeBar::actionTriggered);
        QSignalSpy dismissed(notice, &NoticeBar::dismissed);
        const int time = how == "time"_s ? 1 : NoticeBar::Stay;
        notice->showAction("Moved"_s, "Undo"_s, NoticeBar::Tone::Info, time);
        const auto buttons = notice->findChildren<QAbstractButton *>();
        auto *action = notice->findChild<QPushButton *>();
        QVERIFY(notice->isVisible() && action->isVisible());
        if (how == "action"_s)
            action->click();
        else if (how == "close"_s)
            (buttons.first() == action ? buttons.last() : buttons.first())->click();
        else if (how == "escape"_s)
            QTest::keyClick(action, Qt::Key_Escape);
        else if (how == "text"_s)
            notice->showText("No longer there"_s);
        else if (how == "offer"_s)
            notice->showAction("Moved again"_s, "Undo"_s);
        QTRY_COMPARE(notice->isHidden(), how != "text"_s && how != "offer"_s);
        QTEST(used.count(), "used");
        QTEST(dismissed.count(), "dismissed");
    }

private:
    /// Notices the Escape key that a child let pass.
    class Window : public QWidget
    {
    public:
        int escapes = 0;

    protected:
        void keyPressEvent(QKeyEvent *event) override { escapes += event->key() == Qt::Key_Escape ? 1 : 0; }
    };

    static void setAnimations(bool on)
    {
        zel::platform::SkinState::instance().setDesktop({{}, false, on, 1});
    }
};

int main(int argc, char **argv)
{
    KCoreApplication app(argc, argv, "zelbox"_s, "Office"_s, "6.0"_s);
    WidgetsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_widgets.moc"

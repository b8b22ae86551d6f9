#include "klitestyle.h"
#include "kskin.h"
#include "skinstate.h"
#include "style/busyanimation.h"
#include "support/boxmain.h"

using Color = KSkin::Color;

class StyleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { KSkin::setTheme(KSkin::Theme::Light); }

    void scrollBarParts_data()
    {
        const auto row = zeltest::table<Qt::Orientation, Qt::LayoutDirection, int, int, int>(
            "orientation", "direction", "maximum", "page", "value");
        const int huge = std::numeric_limits<int>::max();
        row("top", Qt::Vertical, Qt::LeftToRight, 1000, 100, 0);
        row("bottom", Qt::Vertical, Qt::LeftToRight, 1000, 100, 1000);
        row("across, right to left", Qt::Horizontal, Qt::RightToLeft, 1000, 100, 250);
        row("nothing to scroll", Qt::Vertical, Qt::LeftToRight, 0, 100, 0);
        row("huge range", Qt::Vertical, Qt::LeftToRight, huge, 1, huge);
        row("huge page", Qt::Vertical, Qt::LeftToRight, 10, huge, 5);
    }
    // Pages and handle cover the bar without gap or overlap, the handle can be taken hold of, and there are
    // no arrows.
    void scrollBarParts()
    {
        const auto [orientation, direction, maximum, page, value] =
            zeltest::row<Qt::Orientation, Qt::LayoutDirection, int, int, int>();
        OpenScrollBar bar(orientation);
        bar.setLayoutDirection(direction);
        bar.setRange(0, maximum);
        bar.setPageStep(page);
        bar.setValue(value);
        const int thickness = bar.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &bar);
        bar.resize(orientation == Qt::Vertical ? QSize(thickness, 300) : QSize(300, thickness));

        const QRect before = bar.part(QStyle::SC_ScrollBarSubPage);
        const QRect handle = bar.part(QStyle::SC_ScrollBarSlider);
        const QRect after = bar.part(QStyle::SC_ScrollBarAddPage);
        const auto length = [orientation](const QRect &r) {
            return orientation == Qt::Vertical ? r.height() : r.width();
        };
        QCOMPARE(length(before) + length(handle) + length(after), 300);
        QVERIFY(!before.intersects(handle) && !handle.intersects(after) && !before.intersects(after));
        QVERIFY(bar.rect().contains(handle));
        QVERIFY(length(handle) >= KLiteStyle::dpiScaled(32));
        QVERIFY(bar.part(QStyle::SC_ScrollBarAddLine).isEmpty());
        QVERIFY(bar.part(QStyle::SC_ScrollBarSubLine).isEmpty());
        if (direction == Qt::RightToLeft)
            QVERIFY(before.left() > handle.left());
        if (value == maximum)
            QCOMPARE(length(after), 0);
    }

    // The ring shows where the keyboard is, and does not trouble those who use the mouse.
    void focusRing()
    {
        QWidget window;
        auto *row = new QHBoxLayout(&window);
        auto *first = new QPushButton("x"_s);
        auto *second = new QPushButton("y"_s);
        row->addWidget(first);
        row->addWidget(second);
        window.show();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QColor ring = KSkin::color(Color::Accent);
        QTest::mouseClick(second, Qt::LeftButton);
        QVERIFY(second->hasFocus());
        QVERIFY(!shows(*second, ring));
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(first->hasFocus());
        QVERIFY(shows(*first, ring));
        QVERIFY(!shows(*second, ring));
    }

    void defaultButtonStandsOut()
    {
        QPushButton plain("Cancel"_s);
        QPushButton primary("OK"_s);
        primary.setDefault(true);
        for (const bool dark : {false, true}) {
            KSkin::setTheme(dark ? KSkin::Theme::Dark : KSkin::Theme::Light);
            QVERIFY(shows(primary, KSkin::color(Color::Accent)));
            QVERIFY(shows(primary, KSkin::color(Color::OnAccent)));
            QVERIFY(!shows(plain, KSkin::color(Color::Accent)));
        }
        KSkin::setTheme(KSkin::Theme::Light);
        primary.setEnabled(false);
        QVERIFY(!shows(primary, KSkin::color(Color::Accent)));
    }

    // An endless bar moves while it can be seen, and wakes nobody once it is hidden.
    void busyBarStopsWithItsWindow()
    {
        struct PaintCounter : QObject
        {
            int count = 0;
            bool eventFilter(QObject *, QEvent *event) override
            {
                count += event->type() == QEvent::UpdateRequest || event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
        } paints;
        QProgressBar bar;
        bar.setRange(0, 0);
        bar.installEventFilter(&paints);
        bar.show();
        QTRY_VERIFY(paints.count > 6);
        const auto timers = [] {
            return QAbstractEventDispatcher::instance()->registeredTimers(
                &zel::style::BusyAnimation::instance());
        };
        QCOMPARE(timers().size(), 1);
        zel::platform::SkinState::instance().setDesktop({{}, false, false, 1}); // wants no motion
        QTRY_COMPARE(timers().size(), 0);
        zel::platform::SkinState::instance().setDesktop({});
        bar.repaint();
        QCOMPARE(timers().size(), 1);
        bar.hide();
        QTRY_COMPARE(timers().size(), 0);
    }

private:
    static bool shows(QWidget &widget, const QColor &color)
    {
        const QImage image = widget.grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).rgb() == color.rgb())
                    return true;
            }
        }
        return false;
    }
    class OpenScrollBar : public QScrollBar
    {
    public:
        using QScrollBar::initStyleOption;
        using QScrollBar::QScrollBar;
        QRect part(QStyle::SubControl control) const
        {
            QStyleOptionSlider option;
            initStyleOption(&option);
            return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
        }
    };
};

ZELTEST_BOX_MAIN(StyleTest)
#include "tst_style.moc"

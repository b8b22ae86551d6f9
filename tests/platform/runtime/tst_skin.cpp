#include "desktoptheme.h"
#include "klitestyle.h"
#include "ksettings.h"
#include "kskin.h"
#include "skinstate.h"
#include "support/boxmain.h"
#include "support/privatebus.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

using Color = KSkin::Color;

using zel::platform::DesktopChoices;
using zel::platform::PortalSettings;

Q_DECLARE_METATYPE(PortalSettings)
Q_DECLARE_METATYPE(DesktopChoices)

namespace {

QString appearance()
{
    return "org.freedesktop.appearance"_s;
}

QString gnome()
{
    return "org.gnome.desktop.interface"_s;
}

} // namespace

/// Plays the desktop's settings portal.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    PortalSettings settings{{appearance(), {{"color-scheme"_s, 1U}}}};
    int reads = 0;

    void change(const QString &group, const char *key, const QVariant &value)
    {
        auto signal = QDBusMessage::createSignal(
            "/org/freedesktop/portal/desktop"_s, "org.freedesktop.portal.Settings"_s, "SettingChanged"_s);
        signal << group << QLatin1String(key) << QVariant::fromValue(QDBusVariant(value));
        PrivateBus::desktop().send(signal);
    }
    void changeScheme(uint value) { change(appearance(), "color-scheme", value); }

public Q_SLOTS:
    PortalSettings ReadAll(const QStringList &groups)
    {
        ++reads;
        PortalSettings asked;
        for (const QString &group : groups)
            asked.insert(group, settings.value(group));
        return asked;
    }
};

class SkinTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<PortalSettings>("PortalSettings");
        qDBusRegisterMetaType<PortalSettings>();
    }

    // First, because only the first skin of a process looks for the desktop.
    void autoFollowsTheDesktop()
    {
        if (!m_bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        FakePortal portal;
        offer(portal);
        KSkin::setTheme(KSkin::Theme::Auto);
        QVERIFY(!KSkin::isDark());
        KSkin skin; // the first skin of the process's event loop starts to follow
        QCOMPARE(portal.reads, 0);
        QTRY_VERIFY(KSkin::isDark());
        QCOMPARE(portal.reads, 1);
        portal.changeScheme(2);
        QTRY_VERIFY(!KSkin::isDark());
        portal.changeScheme(1);
        QTRY_VERIFY(KSkin::isDark());
        portal.changeScheme(0); // no preference: back to what the palette of the start said
        QTRY_VERIFY(!KSkin::isDark());

        KSkin::setTheme(KSkin::Theme::Light);
        QSignalSpy told(&skin, &KSkin::themeChanged);
        portal.changeScheme(1);
        KSkin::setTheme(KSkin::Theme::Auto); // what the desktop said meanwhile is known
        QTRY_VERIFY(KSkin::isDark());
        QCOMPARE(told.count(), 1);
    }

    void contrastMotionAndScaleFollowLive()
    {
        if (!m_bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        FakePortal portal;
        KSkin skin;
        QSignalSpy colors(&skin, &KSkin::themeChanged);
        QSignalSpy metrics(&skin, &KSkin::metricsChanged);
        portal.change(appearance(), "contrast", 1U);
        QTRY_VERIFY(KSkin::highContrast());
        QCOMPARE(colors.count(), 1);
        QCOMPARE(QApplication::palette().color(QPalette::Link),
            KSkin::color(Color::Accent, KSkin::isDark(), true));
        portal.change(gnome(), "enable-animations", false);
        QTRY_COMPARE(KSkin::animationDuration(200), 0);
        QCOMPARE(metrics.count(), 0);

        QApplication::setFont(KLiteStyle::applicationFont());
        QWidget window;
        const qreal before = QFontInfo(window.font()).pointSizeF();
        const qreal factor = KLiteStyle::dpiFactor();
        portal.change(gnome(), "text-scaling-factor", 1.5);
        QTRY_COMPARE(metrics.count(), 1);
        QCOMPARE(KLiteStyle::dpiFactor(), factor * 1.5);
        QVERIFY(qAbs(QFontInfo(window.font()).pointSizeF() - before * 1.5) < 0.5);
        QCOMPARE(colors.count(), 1);
        portal.change(appearance(), "contrast", 0U);
        QTRY_COMPARE(colors.count(), 2);
    }

    // The desktop's answer comes late: until then it is taken to be the one of the last time.
    void lastAnswerHoldsAtTheStart()
    {
        KSkin::setTheme(KSkin::Theme::Auto);
        QApplication::setPalette(KLiteStyle::palette(false));
        KSettings settings;
        settings.beginGroup("plugins"_s);
        settings.beginGroup("zelbox"_s);
        settings.beginGroup("desktopLook"_s);
        settings.setValue("dark"_s, true);
        settings.setValue("textScale"_s, "nan"_s);
        zel::platform::SkinState::instance().adoptPlatformPalette();
        QVERIFY(KSkin::isDark());
        QCOMPARE(KSkin::textScale(), 1.0);
        settings.remove("dark"_s);
        QApplication::setPalette(KLiteStyle::palette(false));
        zel::platform::SkinState::instance().adoptPlatformPalette();
        QVERIFY(!KSkin::isDark());
    }

    void choices_data()
    {
        const QString kde = "org.kde.kdeglobals.KDE"_s;
        const auto one = [](const QString &group, const char *key, const QVariant &value) {
            return PortalSettings{{group, {{QLatin1String(key), value}}}};
        };
        const auto row = zeltest::table<PortalSettings, DesktopChoices>("settings", "expected");
        row("nothing said", PortalSettings(), DesktopChoices());
        row("a scheme of the future", one(appearance(), "color-scheme", 7U), DesktopChoices());
        row("contrast by the accessibility group",
            one("org.gnome.desktop.a11y.interface"_s, "high-contrast", true),
            DesktopChoices{{}, true, true, 1});
        row("motion off as text", one(kde, "AnimationDurationFactor", "0"_s),
            DesktopChoices{{}, false, false, 1});
        row("motion fast", one(kde, "AnimationDurationFactor", 0.25), DesktopChoices());
        row("motion of the wrong type", one(gnome(), "enable-animations", QStringList()), DesktopChoices());
        row("contrast of the wrong type", one("org.gnome.desktop.a11y.interface"_s, "high-contrast", "no"_s),
            DesktopChoices());
        row("scale out of range", one(gnome(), "text-scaling-factor", 40.0),
            DesktopChoices{{}, false, true, 3});
        for (const QVariant &bad :
            {QVariant(0.0), QVariant(-1.0), QVariant(qQNaN()), QVariant(QStringList())})
            QTest::addRow("scale %s", qPrintable(bad.toString()))
                << one(gnome(), "text-scaling-factor", bad) << DesktopChoices();
    }
    void choices()
    {
        QFETCH(PortalSettings, settings);
        QTEST(zel::platform::choicesFrom(settings), "expected");
    }

    void chosenThemeReachesEverySkin()
    {
        KSkin::setTheme(KSkin::Theme::Light);
        KSkin one;
        auto *two = new KSkin(this);
        QSignalSpy oneTold(&one, &KSkin::themeChanged);
        // A slot may delete another skin.
        connect(&one, &KSkin::themeChanged, this, [&two] {
            delete two;
            two = nullptr;
        });
        KSkin::setTheme(KSkin::Theme::Dark);
        QCOMPARE(oneTold.count(), 1);
        QCOMPARE(oneTold.constFirst().constFirst().toBool(), true);
        QVERIFY(KSkin::isDark());
        QCOMPARE(QApplication::palette().color(QPalette::Base), KSkin::color(Color::Surface, true));
        QCOMPARE(QToolTip::palette().color(QPalette::ToolTipBase),
            KLiteStyle::palette(true).color(QPalette::ToolTipBase));
        QCOMPARE(KSettings().value("plugins/zelbox/theme"_s).toString(), "dark"_s);
        KSkin::setTheme(KSkin::Theme::Dark);
        QCOMPARE(oneTold.count(), 1);
    }

private:
    void offer(FakePortal &portal)
    {
        QDBusConnection desktop = PrivateBus::desktop();
        QVERIFY(desktop.registerObject(
            "/org/freedesktop/portal/desktop"_s, &portal, QDBusConnection::ExportAllSlots));
        QVERIFY(desktop.registerService("org.freedesktop.portal.Desktop"_s));
    }

    PrivateBus m_bus;
};

ZELTEST_BOX_MAIN(SkinTest)
#include "tst_skin.moc"

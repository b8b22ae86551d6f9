#include "kcoreapplication.h"
#include "klitestyle.h"
#include "ksettings.h"
#include "kskin.h"
#include "privatebus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QToolTip>
#include <QtTest>

#include <cmath>

using Color = KSkin::Color;

namespace {

// Relative luminance and contrast ratio as the Web Content Accessibility Guidelines define them.
double luminance(const QColor &color)
{
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double x = luminance(a);
    const double y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

} // namespace

/// Plays the desktop's settings portal.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    uint scheme = 1;
    int reads = 0;

    void change(uint value)
    {
        scheme = value;
        auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        signal << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme")
               << QVariant::fromValue(QDBusVariant(value));
        PrivateBus::desktop().send(signal);
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &group, const QString &key)
    {
        ++reads;
        const bool known =
            group == QLatin1String("org.freedesktop.appearance") && key == QLatin1String("color-scheme");
        return QDBusVariant(QVariant::fromValue(QDBusVariant(known ? scheme : 99)));
    }
};

class SkinTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // First, because only the first skin of a process looks for the desktop.
    void autoFollowsTheDesktop()
    {
        if (!m_bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        FakePortal portal;
        QDBusConnection desktop = PrivateBus::desktop();
        QVERIFY(desktop.registerObject(
            QStringLiteral("/org/freedesktop/portal/desktop"), &portal, QDBusConnection::ExportAllSlots));
        QVERIFY(desktop.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));

        KSkin::setTheme(KSkin::Theme::Auto);
        QVERIFY(!KSkin::isDark());
        KSkin skin; // the first skin of the process's event loop starts to follow
        QCOMPARE(portal.reads, 0);
        QTRY_VERIFY(KSkin::isDark());
        QCOMPARE(portal.reads, 1);
        portal.change(2);
        QTRY_VERIFY(!KSkin::isDark());
        portal.change(1);
        QTRY_VERIFY(KSkin::isDark());
        portal.change(0); // no preference: back to what the palette of the start said
        QTRY_VERIFY(!KSkin::isDark());

        KSkin::setTheme(KSkin::Theme::Light);
        QSignalSpy told(&skin, &KSkin::themeChanged);
        portal.change(1);
        KSkin::setTheme(KSkin::Theme::Auto); // what the desktop said meanwhile is known
        QTRY_VERIFY(KSkin::isDark());
        QCOMPARE(told.count(), 1);
    }

    void contrastOfTexts()
    {
        const Color grounds[] = {Color::Window, Color::Surface, Color::Hover, Color::Selected};
        for (const bool dark : {false, true}) {
            for (const Color ground : grounds) {
                for (const Color text : {Color::Text, Color::TextSecondary, Color::Accent, Color::Badge}) {
                    const double ratio = contrast(KSkin::color(text, dark), KSkin::color(ground, dark));
                    QVERIFY2(
                        ratio >= 4.5, qPrintable(QStringLiteral("%1 on %2").arg(int(text)).arg(int(ground))));
                }
            }
            QVERIFY(contrast(KSkin::color(Color::OnAccent, dark), KSkin::color(Color::Accent, dark)) >= 4.5);
            QVERIFY(contrast(KSkin::color(Color::OnBadge, dark), KSkin::color(Color::Badge, dark)) >= 4.5);
            const QPalette p = KLiteStyle::palette(dark);
            QVERIFY(contrast(p.color(QPalette::ToolTipText), p.color(QPalette::ToolTipBase)) >= 4.5);
            QVERIFY(contrast(p.color(QPalette::PlaceholderText), p.color(QPalette::Base)) >= 4.5);
            QVERIFY(contrast(p.color(QPalette::HighlightedText), p.color(QPalette::Highlight)) >= 4.5);
        }
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
        QCOMPARE(
            KSettings().value(QStringLiteral("plugins/zelbox/theme")).toString(), QStringLiteral("dark"));
        KSkin::setTheme(KSkin::Theme::Dark);
        QCOMPARE(oneTold.count(), 1);
    }

private:
    PrivateBus m_bus;
};

int main(int argc, char **argv)
{
    KCoreApplication app(
        argc, argv, QStringLiteral("zelbox"), QStringLiteral("Office"), QStringLiteral("6.0"));
    SkinTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_skin.moc"

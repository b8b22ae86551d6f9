#include "kcoreapplication.h"
#include "klitestyle.h"
#include "kskin.h"
#include "skinstate.h"

#include <xcb/xcb.h>

namespace {

/// Plays the settings manager of an X11 desktop, which tells programs the dots per inch.
class SettingsManager
{
public:
    SettingsManager() : m_bus(xcb_connect(nullptr, nullptr)), m_window(xcb_generate_id(m_bus))
    {
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_bus)).data;
        xcb_create_window(m_bus, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
            XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        setDpi(96);
        xcb_set_selection_owner(m_bus, m_window, atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
        xcb_flush(m_bus);
    }
    ~SettingsManager() { xcb_disconnect(m_bus); }

    void setDpi(int dpi)
    {
        const QByteArray name("Xft/DPI\0", 8); // filled up to a multiple of four
        QByteArray data(4, '\0');
        data[0] = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 0 : 1;
        data += number(++m_serial) + number(1);       // one setting
        data += QByteArray(2, '\0') + half(7) + name; // an integer with a name of seven letters
        data += number(m_serial) + number(dpi * 1024);
        const xcb_atom_t property = atom("_XSETTINGS_SETTINGS");
        xcb_change_property(
            m_bus, XCB_PROP_MODE_REPLACE, m_window, property, property, 8, uint(data.size()), data.data());
        xcb_flush(m_bus);
    }

private:
    static QByteArray number(qint32 v) { return {reinterpret_cast<const char *>(&v), sizeof v}; }
    static QByteArray half(quint16 v) { return {reinterpret_cast<const char *>(&v), sizeof v}; }
    xcb_atom_t atom(const QByteArray &name)
    {
        const auto cookie = xcb_intern_atom(m_bus, 0, quint16(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&free)> reply(
            xcb_intern_atom_reply(m_bus, cookie, nullptr), &free);
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    xcb_connection_t *m_bus;
    xcb_window_t m_window;
    qint32 m_serial = 0;
};

} // namespace

class TextScaleTest : public QObject
{
    Q_OBJECT

public:
    explicit TextScaleTest(SettingsManager &manager) : m_manager(manager) { }

private Q_SLOTS:
    // On X11 the desktop says its scale twice, by the portal and in the dots per inch.
    void scaleCountsOnce()
    {
        KSkin skin;
        QApplication::setFont(KLiteStyle::applicationFont());
        QSignalSpy told(&skin, &KSkin::metricsChanged);
        QWidget window;
        QCOMPARE(KLiteStyle::dpiScaled(32), 32);
        QCOMPARE(QFontInfo(window.font()).pixelSize(), 12);

        zel::platform::SkinState::instance().setDesktop({{}, false, true, 1.25});
        QCOMPARE(KLiteStyle::dpiScaled(32), 32);
        QCOMPARE(told.count(), 0);
        m_manager.setDpi(120);
        QTRY_COMPARE(told.count(), 1);
        QCOMPARE(KLiteStyle::dpiScaled(32), 40);
        QCOMPARE(QFontInfo(window.font()).pixelSize(), 15);
        QCOMPARE(QApplication::font().pointSize(), 9);
    }

private:
    SettingsManager &m_manager;
};

int main(int argc, char **argv)
{
    SettingsManager manager;
    KCoreApplication app(argc, argv, "zelbox"_s, "Office"_s, "6.0"_s);
    TextScaleTest test(manager);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_textscale.moc"

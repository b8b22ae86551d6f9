#include "app/commandrecorder.h"
#include "app/desktopactivation.h"
#include "app/startupnotice.h"
#include "support/privatebus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QX11Info>
#include <xcb/xcb.h>

class TestDesktopActivation : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_bus.isRunning(), "no dbus-daemon on this machine"); }

    void calls_data()
    {
        const auto table = zeltest::table<QString, QVariantList, QString, QString>(
            "method", "arguments", "expected", "error");
        const auto row = [&](const char *name, const char *method, const QVariantList &arguments,
                             const char *expected,
                             const char *error = "") { table(name, method, arguments, expected, error); };
        const QVariantMap odd{
            {"desktop-startup-id"_s, QStringList{"x"_s}}, {"activation-token"_s, "8f3c"_s}, {"new"_s, 1}};
        const auto action = [](const char *name) {
            return QVariantList{QString::fromLatin1(name), QVariantList{}, QVariantMap{}};
        };
        row("activate", "Activate", {QVariantMap{}}, "main");
        row("odd platform data", "Activate", {odd}, "main");
        row("open", "Open", {QStringList{"file:///a"_s}, QVariantMap{}}, "main");
        row("mini window", "ActivateAction", action("mini-window"), "mini");
        row("settings", "ActivateAction", action("settings"), "settings");
        row("quit", "ActivateAction", action("quit"), "quit");
        row("unknown action", "ActivateAction", action("format"), "",
            "org.freedesktop.DBus.Error.InvalidArgs");
        row("no platform data", "Activate", {}, "", "org.freedesktop.DBus.Error.UnknownMethod");
        row("a method of the class only", "start", {}, "", "org.freedesktop.DBus.Error.UnknownMethod");
    }
    void calls()
    {
        const auto [method, arguments] = zeltest::row<QString, QVariantList>();
        CommandRecorder target;
        DesktopActivation activation(target);
        QVERIFY(startAndSettle(activation));
        QTEST(call(method, arguments), "error");
        QTEST(target.calls.join(QLatin1Char(' ')), "expected");
    }

    void nameTaken()
    {
        CommandRecorder target;
        QVERIFY(PrivateBus::desktop().registerService("org.zelbox.ZelBox"_s));
        auto first = std::make_unique<DesktopActivation>(target);
        QTest::ignoreMessage(QtInfoMsg, "the desktop cannot reach the box: another program has its name");
        QVERIFY(!startAndSettle(*first));
        QVERIFY(PrivateBus::desktop().unregisterService("org.zelbox.ZelBox"_s));
        QVERIFY(startAndSettle(*first));
        first.reset(); // gives the name back, so that whoever calls then starts a new box
        QTRY_COMPARE(call("Activate"_s, {QVariantMap{}}), "org.freedesktop.DBus.Error.ServiceUnknown"_s);
    }

    void tokens()
    {
        QCOMPARE(StartupToken::fromIpc("id_TIME1\n8f3c"_s), (StartupToken{"id_TIME1", "8f3c"}));
        QVERIFY(StartupToken::fromIpc(QString()).isEmpty());
        QCOMPARE(x11TimeOf("panel/_TIMEbox/3-host_TIME4294967295"), 4294967295U);
        for (const char *none : {"", "panel", "x_TIME", "x_TIME-1", "x_TIME4294967296", "x_TIME12h"})
            QCOMPARE(x11TimeOf(none), 0U);
    }

    void permissionToComeToTheFront()
    {
        for (const bool clicked : {true, false}) { // just now, or a click that is yet to come
            const quint32 time = quint32(QX11Info::getTimestamp()) + (clicked ? -5 : 100'000);
            const QByteArray id = "panel/a \"box\" with a long name/1_TIME" + QByteArray::number(time);
            StartupListener listener;
            {
                const StartupNotice notice({id, {}});
                QCOMPARE(quint32(QX11Info::appUserTime()) == time, clicked);
                QCOMPARE(QX11Info::nextStartupId(), id);
            }
            QVERIFY(QX11Info::nextStartupId().isEmpty());
            QByteArray quoted = id;
            quoted.replace('"', "\\\"");
            QTRY_COMPARE(listener.heard(), "remove: ID=\"" + quoted + '"');
        }
    }

private:
    // A call as a desktop makes it; returns the error's name, empty for none.
    static QString call(const QString &method, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            "org.zelbox.ZelBox"_s, "/org/zelbox/ZelBox"_s, "org.freedesktop.Application"_s, method);
        message.setArguments(arguments);
        QDBusPendingCallWatcher watcher(PrivateBus::desktop().asyncCall(message));
        QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
        if (!watcher.isFinished() && !finished.wait())
            return "no answer"_s;
        return watcher.isError() ? watcher.error().name() : QString();
    }
    static bool startAndSettle(DesktopActivation &activation)
    {
        QSignalSpy settled(&activation, &DesktopActivation::settled);
        activation.start();
        return settled.wait() && settled.at(0).at(0).toBool();
    }
    // What programs that show start-up feedback hear.
    class StartupListener
    {
    public:
        StartupListener()
        {
            const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
            const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
            xcb_change_window_attributes(m_connection, screen->root, XCB_CW_EVENT_MASK, &mask);
            free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
        }
        ~StartupListener() { xcb_disconnect(m_connection); }
        QByteArray heard()
        {
            while (auto *event = xcb_poll_for_event(m_connection)) {
                if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE)
                    m_heard.append(reinterpret_cast<char *>(
                                       reinterpret_cast<xcb_client_message_event_t *>(event)->data.data8),
                        20);
                free(event);
            }
            return QByteArray(m_heard.constData()); // up to the terminating zero
        }

    private:
        xcb_connection_t *m_connection = xcb_connect(nullptr, nullptr);
        QByteArray m_heard;
    };

    PrivateBus m_bus;
};

QTEST_MAIN(TestDesktopActivation)
#include "tst_desktopactivation.moc"

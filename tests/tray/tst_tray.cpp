// The tray icon on a private session bus, with a tray of the test's own at the other end.

#include "support/privatebus.h"
#include "tray/statusnotifieritem.h"
#include "tray/trayimage.h"
#include "tray/traylink.h"
#include "tray/ui/zelboxtray.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

/// The tray: a watcher with or without a host, on a connection of its own. Its end is a panel's crash.
class FakeWatcher : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost SCRIPTABLE true)
public:
    explicit FakeWatcher(bool host) : m_host(host), m_name("tray%1"_s.arg(quintptr(this)))
    {
        m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name);
        m_bus.registerObject("/StatusNotifierWatcher"_s, this, QDBusConnection::ExportScriptableContents);
        m_bus.registerService("org.kde.StatusNotifierWatcher"_s);
    }
    ~FakeWatcher() override { QDBusConnection::disconnectFromBus(m_name); }

    bool hasHost() const { return m_host; }
    void setHost(bool host)
    {
        m_host = host;
        Q_EMIT StatusNotifierHostRegistered();
    }

    /// Without blocking: the item answers from this very thread.
    QVariantList ask(const QString &path, const QString &interface, const QString &method,
        const QVariantList &arguments = {})
    {
        QDBusMessage call =
            QDBusMessage::createMethodCall(items.value(items.size() - 1), path, interface, method);
        call.setArguments(arguments);
        QDBusPendingCallWatcher pending(m_bus.asyncCall(call));
        QSignalSpy finished(&pending, &QDBusPendingCallWatcher::finished);
        finished.wait();
        error = pending.reply().errorName();
        return pending.reply().arguments();
    }
    QVariantList item(const char *method, const QVariantList &arguments = {0, 0})
    {
        return ask("/StatusNotifierItem"_s, "org.kde.StatusNotifierItem"_s, QLatin1String(method), arguments);
    }
    QVariant property(const char *name)
    {
        const QVariantList answer = ask("/StatusNotifierItem"_s, "org.freedesktop.DBus.Properties"_s, "Get"_s,
            {"org.kde.StatusNotifierItem"_s, QLatin1String(name)});
        return answer.value(0).value<QDBusVariant>().variant();
    }

    QStringList items;
    QString error;

public Q_SLOTS:
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString &service) { items.append(service); }

Q_SIGNALS:
    Q_SCRIPTABLE void StatusNotifierHostRegistered();

private:
    bool m_host;
    QString m_name;
    QDBusConnection m_bus{QString()};
};

/// What the tray asked for, in order.
struct Asked
{
    explicit Asked(ZelBoxTray &tray)
    {
        const auto note = [&](auto signal, const char *name) {
            QObject::connect(&tray, signal, &tray, [this, name] { names.append(QLatin1String(name)); });
        };
        note(&ZelBoxTray::activated, "activated");
        note(&ZelBoxTray::mainWindowRequested, "main");
        note(&ZelBoxTray::miniWindowRequested, "mini");
        note(&ZelBoxTray::quickSearchRequested, "search");
        note(&ZelBoxTray::settingsRequested, "settings");
        note(&ZelBoxTray::exitRequested, "exit");
    }
    QStringList names;
};

class TestTray : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_bus.isRunning(), "no dbus-daemon on this machine"); }

    void watcherComesAndGoes()
    {
        ZelBoxTray tray(nullptr);
        QSignalSpy changed(&tray, &ZelBoxTray::reachableChanged);
        QVERIFY(!tray.reachable()); // the box was started before the panel

        auto watcher = std::make_unique<FakeWatcher>(false);
        QTRY_COMPARE(watcher->items.size(), 1);
        QVERIFY(watcher->items.first().startsWith("org.kde.StatusNotifierItem-"_s));
        QTRY_COMPARE(watcher->property("Id").toString(), "zelbox"_s);
        QVERIFY(!tray.reachable()); // registered, but nobody shows it
        watcher->setHost(true);
        QVERIFY(changed.wait());
        QVERIFY(tray.reachable());

        watcher.reset();
        QVERIFY(changed.wait());
        QVERIFY(!tray.reachable());
        FakeWatcher again(true);
        QVERIFY(changed.wait());
        QCOMPARE(again.items.size(), 1);
        QVERIFY(tray.reachable());
    }

    // The core makes a new tray icon after a change of language: the old one goes and the new one is told.
    void leavesTheTray()
    {
        FakeWatcher watcher(true);
        auto tray = std::make_unique<ZelBoxTray>(nullptr);
        QTRY_VERIFY(tray->reachable());
        tray.reset();
        watcher.property("Id");
        QVERIFY(!watcher.error.isEmpty()); // its name is free
        tray = std::make_unique<ZelBoxTray>(nullptr);
        QTRY_VERIFY(tray->reachable());
        QCOMPARE(watcher.items.size(), 2);
        QCOMPARE(watcher.property("Id").toString(), "zelbox"_s);
    }

    // Who takes no answer for "no tray" asks the same panel again, on the GUI thread.
    void hangingPanel()
    {
        QDBusConnection desktop = PrivateBus::desktop();
        bool hangs = true;
        int asked = 0;
        const DesktopService panel(
            "org.kde.StatusNotifierWatcher"_s, "/StatusNotifierWatcher"_s, [&](const QDBusMessage &call) {
                ++asked;
                return hangs ? call.createErrorReply(QDBusError::NoReply, "in time"_s)
                             : call.createReply(QVariant::fromValue(QDBusVariant(true)));
            });
        StatusNotifierItem item;
        TrayLink link(&item, nullptr);
        QSignalSpy settled(&link, &TrayLink::settled);
        link.start();
        QTRY_VERIFY(asked > 0);
        for (int n = 0; n < 4; ++n) { // what was sent before has come then
            const QDBusMessage ask = QDBusMessage::createMethodCall(
                "org.freedesktop.DBus"_s, "/"_s, "org.freedesktop.DBus"_s, "GetId"_s);
            QDBusPendingCallWatcher call((n % 2 ? desktop : QDBusConnection::sessionBus()).asyncCall(ask));
            QVERIFY(QSignalSpy(&call, &QDBusPendingCallWatcher::finished).wait());
        }
        QCOMPARE(settled.count(), 0);
        hangs = false;
        desktop.send(QDBusMessage::createSignal(
            "/StatusNotifierWatcher"_s, "org.kde.StatusNotifierWatcher"_s, "StatusNotifierHostRegistered"_s));
        QTRY_VERIFY(link.isShown());
    }

    void badge()
    {
        FakeWatcher watcher(true);
        ZelBoxTray tray(nullptr);
        QTRY_VERIFY(tray.reachable());
        const auto pictures = [&] { return qdbus_cast<TrayPixmapList>(watcher.property("IconPixmap")); };
        const auto plain = pictures();
        tray.setUnread(3);
        const auto three = pictures();
        tray.setUnread(100);
        const auto many = pictures();
        QVERIFY(plain.size() >= 4 && three.size() == plain.size());
        for (int i = 0; i < plain.size(); ++i) {
            QCOMPARE(plain.at(i).argb.size(), plain.at(i).width * plain.at(i).height * 4);
            QVERIFY2(plain.at(i).argb != three.at(i).argb, qPrintable(QString::number(plain.at(i).width)));
        }
        QCOMPARE(three.first().argb, many.first().argb); // too small for numbers: a dot
        QVERIFY(three.last().argb != many.last().argb);

        QCOMPARE(watcher.property("Status").toString(), "NeedsAttention"_s);
        watcher.item("Activate");
        QCOMPARE(watcher.property("Status").toString(), "Active"_s);
        tray.setUnread(99); // one was read elsewhere
        QCOMPARE(watcher.property("Status").toString(), "Active"_s);
        tray.setUnread(0);
        QCOMPARE(pictures().last().argb, plain.last().argb);
        tray.setState("a < b"_s);
        tray.setTransfers(2);
        QCOMPARE(qdbus_cast<TrayToolTip>(watcher.property("ToolTip")).text,
            "a &lt; b · 2 transfer(s) under way"_s);
    }

    void clicks()
    {
        FakeWatcher watcher(true);
        ZelBoxTray tray(nullptr);
        const Asked asked(tray);
        QTRY_VERIFY(tray.reachable());
        watcher.item("Activate");
        watcher.item("SecondaryActivate");
        watcher.item("Scroll", {120, "vertical"_s});
        QCOMPARE(asked.names, (QStringList{"activated"_s, "mini"_s}));
    }

    void menu()
    {
        FakeWatcher watcher(true);
        ZelBoxTray tray(nullptr);
        const Asked asked(tray);
        QTRY_VERIFY(tray.reachable());
        const QString path = watcher.property("Menu").value<QDBusObjectPath>().path();
        const QString interface = "com.canonical.dbusmenu"_s;
        const QVariantList layout = watcher.ask(path, interface, "GetLayout"_s, {0, -1, QStringList()});
        QCOMPARE(layout.size(), 2);
        // (revision, (id, properties, children as variants))
        const auto root = layout.at(1).value<QDBusArgument>();
        QHash<QString, int> ids;
        int rootId = 0;
        QVariantMap properties;
        QVariantList children;
        root.beginStructure();
        root >> rootId >> properties >> children;
        root.endStructure();
        for (const QVariant &child : qAsConst(children)) {
            const auto entry = child.value<QDBusArgument>();
            int id = 0;
            entry.beginStructure();
            entry >> id >> properties;
            ids.insert(properties.value("label"_s).toString().remove(QLatin1Char('_')), id);
        }
        for (const char *label : {"Show ZEL Box", "Mini Window", "Quick Search", "Settings", "Exit"}) {
            QVERIFY2(ids.contains(QLatin1String(label)), label);
            watcher.ask(path, interface, "Event"_s,
                {ids.value(QLatin1String(label)), "clicked"_s, QVariant::fromValue(QDBusVariant(0)), 0U});
        }
        QTRY_COMPARE(asked.names, (QStringList{"main"_s, "mini"_s, "search"_s, "settings"_s, "exit"_s}));
    }

    void badgeTexts()
    {
        const struct
        {
            int unread, size;
            const char *text;
        } rows[] = {{0, 48, ""}, {-1, 48, ""}, {5, 16, ""}, // a dot
            {9, 22, "9"}, {10, 24, "9+"}, {99, 32, "99"}, {100, 32, "99+"}};
        for (const auto &row : rows)
            QCOMPARE(zel::tray::badgeText(row.unread, row.size), QString::fromLatin1(row.text));
    }

private:
    PrivateBus m_bus;
};

QTEST_MAIN(TestTray)
#include "tst_tray.moc"

// What the desktop is told of transfers that ended while nobody looked.
#include "app/transferbubbles.h"
#include "common_types.h"
#include "ksettings.h"
#include "support/fakecloud.h"
#include "support/privatebus.h"

using zel::vela::NotifyFileTransferArg;
using zel::vela::VelaIpcResult;

class TestTransferBubbles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_bus.isRunning(), "no dbus-daemon on this machine"); }

    // Afterwards "last" ends, which is to be told.
    void told_data()
    {
        const auto row = zeltest::table<QString, QString, bool, QStringList>(
            "transfers", "frequency", "watched", "expected"); // transfers: "id state, …"
        row("done", "a1 2, a1 4", "0", false, {"1 transfer(s) done: a1"_s});
        row("one message for all", "a 2, b 2, a 4, b 4", "0", false, {"2 transfer(s) done: a b"_s});
        row("failures first", "<b> 2, b 4, <b> 5", "0", false, {"1 transfer(s) failed: &lt;b&gt;"_s});
        row("many", "a 4, b 4, c 4, d 4, e 4", "0", false, {"5 transfer(s) done: a b c and 2 more"_s});
        row("first of the day", "a 4", "1", false, {"1 transfer(s) done: a"_s});
        row("second of the day", "a 4", "1", false, {});
        row("never", "a 4", "2", false, {});
        row("seen", "a 4", "0", true, {});
        row("goes on", "a 2, last 2, a 4", "0", false, {});
        row("cancelled", "a 2, a 6", "0", false, {});
    }
    void told()
    {
        const auto [transfers, frequency, watched, expected] =
            zeltest::row<QString, QString, bool, QStringList>();
        QStringList told;
        DesktopService desktop("org.freedesktop.Notifications"_s, "/org/freedesktop/Notifications"_s,
            [&told](const QDBusMessage &call) {
                if (call.member() == "GetCapabilities"_s)
                    return call.createReply(QStringList("body-markup"_s));
                if (call.member() == "Notify"_s)
                    told << call.arguments().at(3).toString() + ": "_s
                            + call.arguments().at(4).toString().split("\n"_s).join(" "_s);
                return call.createReply(7U);
            });
        FakeCloud cloud;
        bool looks = watched;
        TransferBubbles bubbles([&looks] { return looks; }, nullptr);
        QSignalSpy requested(&bubbles, &TransferBubbles::transfersRequested);
        bubbles.follow(&cloud);
        end(&cloud, &bubbles, transfers, frequency);
        looks = false;
        QTRY_VERIFY(told.size() >= expected.size());
        end(&cloud, &bubbles, "last 4"_s, "0"_s);
        const bool last = transfers.contains("last"_s);
        QTRY_COMPARE(told,
            expected + QStringList(last ? "2 transfer(s) done: a last"_s : "1 transfer(s) done: last"_s));
        QDBusMessage click = QDBusMessage::createSignal(
            "/org/freedesktop/Notifications"_s, "org.freedesktop.Notifications"_s, "ActionInvoked"_s);
        PrivateBus::desktop().send(click << 7U << "default"_s);
        QTRY_COMPARE(requested.size(), 1);
    }

private:
    static void end(
        FakeCloud *cloud, TransferBubbles *bubbles, const QString &transfers, const QString &frequency)
    {
        for (const QString &each : transfers.split(", "_s)) {
            const std::string id = each.section(" "_s, 0, 0).toStdString();
            cloud->push("notifyFileTransfer",
                filled(&NotifyFileTransferArg::taskId, id, &NotifyFileTransferArg::localPath, "/up/" + id,
                    &NotifyFileTransferArg::transferState, each.section(" "_s, 1).toInt()));
        }
        auto *quiet = bubbles->findChild<QTimer *>();
        if (quiet->isActive())
            quiet->start(0);
        QTRY_VERIFY(!quiet->isActive());
        cloud->answerSlot("onGetTransBubbleFrequncyFinished",
            Q_ARG(zel::vela::VelaIpcResult, filled(&VelaIpcResult::resultString, frequency.toStdString())));
    }

    PrivateBus m_bus;
};

QTEST_MAIN(TestTransferBubbles)
#include "tst_transferbubbles.moc"

// A program of its own, because Qt opens the session bus only once.
#include "app/commandrecorder.h"
#include "app/desktopactivation.h"
#include "base/posix/unixsocket.h"
#include "tray/statusnotifieritem.h"
#include "tray/traylink.h"

class TestMuteBus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void busThatDoesNotAnswer()
    {
        QTemporaryDir folder;
        const QByteArray path = QFile::encodeName(folder.filePath("bus"_s));
        zel::posix::UniqueFd mute = zel::posix::listenUnix(path.toStdString());
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
        CommandRecorder target;
        DesktopActivation activation(target);
        QSignalSpy settled(&activation, &DesktopActivation::settled);
        QSocketNotifier connecting(mute.get(), QSocketNotifier::Read);
        QSignalSpy connected(&connecting, &QSocketNotifier::activated);
        StatusNotifierItem item;
        TrayLink tray(&item, nullptr);
        QSignalSpy traySettled(&tray, &TrayLink::settled);
        activation.start();
        tray.start();
        QVERIFY(connected.wait()); // the loop turns while the bus keeps everybody waiting
        connecting.setEnabled(false);
        QCOMPARE(settled.size() + traySettled.size(), 0);
        mute.reset();
        QVERIFY(settled.size() == 1 || settled.wait());
        QVERIFY(!activation.isReachable());
        QVERIFY(traySettled.size() == 1 || traySettled.wait());
        QVERIFY(!tray.isShown());
    }
};

QTEST_GUILESS_MAIN(TestMuteBus)
#include "tst_mutebus.moc"

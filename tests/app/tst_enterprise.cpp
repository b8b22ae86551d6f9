// In a process of its own, because the product is read once per process.

#include "app/zelboxcore.h"
#include "base/settingskeys.h"
#include "ksettings.h"
#include "mainwindow/ui/zelboxmainwindow.h"
#include "standalonebox.h"

class TestEnterprise : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void backgroundCommandLeavesTheWindow()
    {
        {
            KSettings settings;
            settings.beginGroup(zel::keys::Plugins);
            settings.beginGroup(zel::keys::Zelbox);
            settings.setValue(zel::keys::Enterprise, true);
        }
        StandAloneBox box;
        QVERIFY(box.application.start(QString()));
        ZelBoxCore *core = ZelBoxCore::instance();
        QSignalSpy closed(core->mainWindow(), &ZelBoxMainWindow::windowClose);
        core->dispatch("/from=tray"_s, false);
        QVERIFY(core->mainWindow()->isVisible());
        QCOMPARE(closed.size(), 0);
    }
};

QTEST_APPLESS_MAIN(TestEnterprise)
#include "tst_enterprise.moc"

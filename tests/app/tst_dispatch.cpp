#include "app/commanddispatcher.h"
#include "app/commandline.h"
#include "app/commandrecorder.h"
#include "message/zelboxmessagerouter.h"
#include "message/zelboxtransferrouter.h"
#include "radar/zelboxradarrouter.h"

#include <QtTest>

namespace {

// Writes down, in order, what the core was asked for and what the routers emitted.
class Recorder : public QObject, public CommandRecorder
{
public:
    Recorder()
    {
        auto *transfer = ZelBoxTransferRouter::instance();
        auto *message = ZelBoxMessageRouter::instance();
        auto *radar = ZelBoxRadarRouter::instance();
        connect(transfer, &ZelBoxTransferRouter::sigSourceFrom, this, [this](auto s) { note("source", s); });
        connect(transfer, &ZelBoxTransferRouter::sigShowTransferError, this, [this] { note("error"); });
        connect(message, &ZelBoxMessageRouter::sigNavigateRecentTab, this, [this](auto s) { note("id", s); });
        connect(
            message, &ZelBoxMessageRouter::selectContactsFileId, this, [this](auto s) { note("fid", s); });
        connect(message, &ZelBoxMessageRouter::sigDocMsgViewTypeChanged, this, [this] { note("view"); });
        connect(message, &ZelBoxMessageRouter::sigBrowserGroupIdChanged, this,
            [this](auto s) { note("group", s); });
        connect(message, &ZelBoxMessageRouter::sigSelectMsgChannelItem, this,
            [this](const QString &a, const QString &b, const QString &c) {
                note("channel", a + QLatin1Char(',') + b + QLatin1Char(',') + c);
            });
        connect(
            radar, &ZelBoxRadarRouter::sigNotifyBackupSource, this, [this](auto s) { note("backup", s); });
        connect(radar, &ZelBoxRadarRouter::sigSelectGenreId, this,
            [this](int id) { note("genre", QString::number(id)); });
        connect(radar, &ZelBoxRadarRouter::sigFileListScrollToTop, this, [this] { note("top"); });
    }
};

} // namespace

class TestDispatch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void command_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("first");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *line, const char *expected, bool first = false) {
            QTest::addRow("%s%s", first ? "first: " : "", line)
                << QString::fromUtf8(line) << first << QString::fromUtf8(expected);
        };
        // A plain second start brings the window to the front; the start-up command shows it anyway.
        row("", "main");
        row("", "", true);
        row("some words", "main");
        // Commands that produce no window send the box to the background, but not at start-up.
        row("/from=tray", "source=other origin-tray background");
        row("/from=dbus", "source=other"); // the bus wants a box to be there, and there is one
        row("/from=tray", "source=other origin-tray", true);
        row("/FROM=traymenu", "source=traymenu background");
        row("/from=traystatus", "source=traystatus background");
        row("/from=desktop", "source=other origin-desktop background");
        row("/from=TrayMenu", "source=other background");
        row("/shortcuticon", "origin-desktop background");
        row("/trayState=busy", "traystate=busy background");
        row("/error", "error background");
        row("/unknown=1", "background");
        row("/options=nonsense", "background");
        row("/action=exit", "quit background");
        row("/action=exit", "quit", true);
        // Commands that address an item leave the window as it is.
        row("/id=7", "id=7");
        row("/fid=9", "fid=9 view");
        row("/radarid=3", "genre=3 top");
        row("/radarid=three", "genre=0 top");
        row("/radarid=3 /action=notifybackup", "backup=3");
        row("/radarid=3 /action=open", "genre=3 top");
        row("/groupid=12", "group=12");
        row("/category=a /from=b /msgid=c", "source=other channel=a,b,c");
        row("/id=1 /groupid=2", "id=1 group=2");
        row("/options=", "");
        row("/options=|", "");
        // Together with anything else that shows nothing they do not.
        row("/id=7 /from=tray", "source=other origin-tray id=7 background");
        row("/options= /error", "error background");
        row("/msgid=c", "background");
        // Windows.
        row("/options=showZelBox|showZelBoxMini", "main mini");
        row("/options=settings||folderselector", "settings folders");
        row("/tab=4", "page=4");
        row("/tab=x", "page=0");
        row("/settings_param=theme", "settings=theme");
        row("/action=exitdlg", "exitdlg");
        row("/show=main", "main");
        row("/start_from=desk", "mini=desk");
        row("/param=\"/a b\"", "sync=/a b");
        // In the order of the table, whatever the order of the line.
        row("/param=p /show=1 /from=tray /start_from=s", "source=other origin-tray main mini=s sync=p");
    }
    void command()
    {
        QFETCH(QString, line);
        QFETCH(bool, first);
        Recorder recorder;
        dispatchCommand(parseCommandLine(line), first, recorder);
        QTEST(recorder.calls.join(QLatin1Char(' ')), "expected");
    }
};

QTEST_GUILESS_MAIN(TestDispatch)
#include "tst_dispatch.moc"

#include "app/commanddispatcher.h"
#include "app/commandline.h"
#include "app/commandrecorder.h"
#include "message/zelboxmessagerouter.h"
#include "message/zelboxtransferrouter.h"
#include "radar/zelboxradarrouter.h"

using Options = QMap<QString, QString>;
Q_DECLARE_METATYPE(Options)

class TestDispatch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void command_data()
    {
        const auto table = zeltest::table<QString, bool, QString>("line", "first", "expected");
        const auto row = [&](const char *line, const char *expected, bool first = false) {
            table((first ? "first: "_s : ""_s) + QLatin1String(line), line, first, expected);
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
        const auto [line, first] = zeltest::row<QString, bool>();
        Recorder recorder;
        dispatchCommand(parseCommandLine(line), first, recorder);
        QTEST(recorder.calls.join(QLatin1Char(' ')), "expected");
    }

    void parse_data()
    {
        const auto table = zeltest::table<QString, Options, QString>("text", "options", "remainder");
        const auto row = [&](const char *name, const char *text, const Options &options,
                             const char *remainder = "") { table(name, text, options, remainder); };
        const auto one = [](const char *name, const char *value) {
            return Options{{QString::fromUtf8(name), QString::fromUtf8(value)}};
        };
        row("empty", "", {});
        row("blanks only", "   ", {}, "   ");
        row("equals", "/from=tray", one("from", "tray"));
        row("colon", "/from:tray", one("from", "tray"));
        row("no value", "/shortcuticon", one("shortcuticon", ""));
        row("empty value", "/options=", one("options", ""));
        row("name in any case, value as it is", "/TrayState=Busy", one("traystate", "Busy"));
        row("second equals belongs to the value", "/param=a=b", one("param", "a=b"));
        row("colon before equals stays in the name", "/a:b=c", one("a:b", "c"));
        row("colon in the value", "/param=C:\\x", one("param", "C:\\x"));
        row("second colon belongs to the value", "/param:a:b", one("param", "a:b"));
        row("quoted value", "/param=\"/home/my file\"", one("param", "/home/my file"));
        row("quoted option", "\"/param=/home/my file\"", one("param", "/home/my file"));
        row("quotes inside a word", "/par\"am=a b\"c", one("param", "a bc"));
        row("double blank inside quotes stays", "/param=\"a  b\"", one("param", "a  b"));
        row("leading and trailing blank inside quotes", "/param=\" a \"", one("param", " a "));
        row("unpaired quote reaches to the end", "/param=\"a /from=x", one("param", "a /from=x"));
        row("last one of a name counts", "/tab=1 /TAB=2", one("tab", "2"));
        row("several", "/from=tray  /tab=3", {{"from"_s, "tray"_s}, {"tab"_s, "3"_s}});
        row("remainder", "before /tab=3 one \"two three\"", one("tab", "3"), "one two three");
        row("remainder only", "one two", {}, "one two");
        row("tab and line end do not separate", "/param=a\tb\nc", one("param", "a\tb\nc"));
        row("bare slash", "/", one("", ""));
        row("CJK and beyond the BMP", "/param=\"\xE6\x96\x87 \xF0\x9F\x93\x84\"", one("param", "文 📄"));
    }
    void parse()
    {
        QFETCH(QString, text);
        const CommandLine command = parseCommandLine(text);
        QTEST(command.options, "options");
        QTEST(command.remainder, "remainder");
    }

    void hostile()
    {
        QString many;
        for (int i = 0; i < 10'000; ++i)
            many += "/option%1=%1 "_s.arg(i);
        const auto optionsOf = [](const QString &text) { return int(parseCommandLine(text).options.size()); };
        QCOMPARE(optionsOf(many), 10'000);
        QCOMPARE(optionsOf("/param="_s + QString(100'000, QLatin1Char('x'))), 1);
        QCOMPARE(optionsOf(QString(100'000, QLatin1Char('"'))), 0);
        QCOMPARE(optionsOf("/a=1"_s + QString(3, QChar(u'\0')) + " /b=2"_s), 2);
        QCOMPARE(optionsOf("/a="_s + QChar(0xD800)), 1);
    }

private:
    // Writes down, in order, what the core was asked for and what the routers emitted.
    class Recorder : public QObject, public CommandRecorder
    {
    public:
        Recorder()
        {
            auto *transfer = ZelBoxTransferRouter::instance();
            auto *message = ZelBoxMessageRouter::instance();
            auto *radar = ZelBoxRadarRouter::instance();
            connect(
                transfer, &ZelBoxTransferRouter::sigSourceFrom, this, [this](auto s) { note("source", s); });
            connect(transfer, &ZelBoxTransferRouter::sigShowTransferError, this, [this] { note("error"); });
            connect(
                message, &ZelBoxMessageRouter::sigNavigateRecentTab, this, [this](auto s) { note("id", s); });
            connect(message, &ZelBoxMessageRouter::selectContactsFileId, this,
                [this](auto s) { note("fid", s); });
            connect(message, &ZelBoxMessageRouter::sigDocMsgViewTypeChanged, this, [this] { note("view"); });
            connect(message, &ZelBoxMessageRouter::sigBrowserGroupIdChanged, this,
                [this](auto s) { note("group", s); });
            connect(message, &ZelBoxMessageRouter::sigSelectMsgChannelItem, this,
                [this](const QString &a, const QString &b, const QString &c) {
                    note("channel", a + QLatin1Char(',') + b + QLatin1Char(',') + c);
                });
            connect(radar, &ZelBoxRadarRouter::sigNotifyBackupSource, this,
                [this](auto s) { note("backup", s); });
            connect(radar, &ZelBoxRadarRouter::sigSelectGenreId, this,
                [this](int id) { note("genre", QString::number(id)); });
            connect(radar, &ZelBoxRadarRouter::sigFileListScrollToTop, this, [this] { note("top"); });
        }
    };
};

QTEST_GUILESS_MAIN(TestDispatch)
#include "tst_dispatch.moc"

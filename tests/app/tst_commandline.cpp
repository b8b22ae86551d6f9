#include "app/commandline.h"
#include "support/text.h"

#include <QtTest>

using Options = QMap<QString, QString>;
Q_DECLARE_METATYPE(Options)

class TestCommandLine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void parse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<Options>("options");
        QTest::addColumn<QString>("remainder");
        const auto row = [](const char *name, const char *text, const Options &options,
                             const char *remainder = "") {
            QTest::newRow(name) << QString::fromUtf8(text) << options << QString::fromUtf8(remainder);
        };
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
        QFETCH(Options, options);
        QFETCH(QString, remainder);
        const CommandLine command = parseCommandLine(text);
        QCOMPARE(command.options, options);
        QCOMPARE(command.remainder, remainder);
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
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"

#include "service/tables/servicecommand.h"
#include "service/tables/statementparser.h"

using namespace zel::service;

Q_DECLARE_METATYPE(zel::service::Statement)
Q_DECLARE_METATYPE(zel::service::Refusal)

class StatementsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void takesWhatClientsSend_data()
    {
        using R = RadarStatement;
        using M = MessageStatement;
        const auto File = IdColumn::FileId, Operator = IdColumn::OperatorId;
        const auto row = zeltest::table<QString, Statement>("text", "meaning");
        const QString table = "metadata_zelbox_filemessage"_s;
        row("radar forget", forget("C:\\获取\\a b.docx"_s), R(RadarForget{"C:\\获取\\a b.docx"_s}));
        row("radar clear", "delete from metadata_zelbox_fileradar where ImType = 3", R(RadarClear{3}));
        const QString ids = "select %2 from %1 where topic = 'zel.file' or topic = 'zel.link' or topic = "
                            "'zel.link.local' group by %2"_s;
        row("files", ids.arg(table, "fileId"_s), M(IdList{File}));
        row("messages of a file", messagesOf("f1"_s, " Order by time Desc limit 20"_s),
            M(IdMessages{File, "f1"_s, 20}));
        const QStringList two{"f0"_s, "f1"_s};
        row("unread of files", unreadOf(2), M(IdUnread{File, File, two}));
        row("unread of files by operator",
            unreadOf(1)
                .replace("select fileId"_s, "select operatorId"_s)
                .replace("by fileId"_s, "by operatorId"_s),
            M(IdUnread{Operator, File, {"f0"_s}}));
        row("clear an operator",
            "Update metadata_zelbox_filemessage Set read = 1, trayRead = 1 Where operatorId = 'u' and "_s
                + Family,
            M(ClearId{Operator, "u"_s}));
        row("read up to, tray too",
            readUpTo("f"_s, "9223372036854775807"_s).replace("read = 1"_s, "read = 1, trayRead = 1"_s),
            M(MarkReadUpTo{"f"_s, 9223372036854775807, true}));
        row("read up to, no id", readUpTo(QString(), "0"_s), M(MarkReadUpTo{""_s, 0, false}));
    }

    void takesWhatClientsSend()
    {
        const auto [text, meaning] = zeltest::row<QString, Statement>();
        const auto statement = parseStatement(text);
        QVERIFY(statement);
        QVERIFY(*statement == meaning);
        QCOMPARE(toText(*statement), text);
        // Nothing of it can be left out, and nothing follows it.
        for (int length = 0; length < text.size(); ++length) {
            const auto part = parseStatement(QStringView(text).left(length));
            QVERIFY2(!part || toText(*part) == text.left(length), qUtf8Printable(text.left(length)));
        }
        for (const char *more : {" ", ";", "; drop table metadata_zelbox_fileradar", "--", "'", " or 1=1"})
            QVERIFY2(!parseStatement(QString(text + QLatin1String(more))), more);
    }

    void refuses_data()
    {
        const auto table = zeltest::table<QString, Refusal>("text", "why");
        const auto row = [&](const char *name, const QString &text, Refusal why = Refusal::UnknownShape) {
            table(name, text, why);
        };
        row("another table", "select * from sqlite_master Order by Time Desc"_s);
        row("another case", "SELECT * from metadata_zelbox_fileradar Order by Time Desc"_s);
        row("two statements", forget("a"_s) + QLatin1Char(';') + forget("b"_s));
        row("quote in a path", forget("it's"_s));
        row("doubled quote", forget("it''s"_s));
        row("path that widens", forget("x' or '1' = '1"_s));
        row("id that widens", messagesOf("x' or 1=1 or fileId = 'x"_s, " Order by time Desc limit 1"_s));
        row("id that ends the statement",
            messagesOf(
                "x' and "_s + Family + " Order by time Desc limit 9 --"_s, " Order by time Desc limit 1"_s));
        row("id that brings its own time", readUpTo("x' and time <= 99"_s, "5"_s));
        row("other column", readUpTo("x"_s, "5"_s).replace("fileId"_s, "topic"_s));
        row("unread by another column", unreadOf(1).replace("by fileId"_s, "by operatorId"_s));
        row("unread of nothing", unreadOf(0));
        row("number with a sign", readUpTo("x"_s, "-1"_s));
        row("number with leading zero", readUpTo("x"_s, "01"_s));
        row("other digits", readUpTo("x"_s, QString(QChar(0x0665))));
        row("time too large", readUpTo("x"_s, "9223372036854775808"_s), Refusal::NumberTooLarge);
        row("limit too large", messagesOf("x"_s, " Order by time Desc limit 10000"_s),
            Refusal::NumberTooLarge);
        row("path too long", forget(QString(MaxPathLength + 1, QLatin1Char('x'))), Refusal::ValueTooLong);
        row("too many ids", unreadOf(MaxIds + 1), Refusal::TooManyIds);
        row("too long", QString(MaxStatementLength + 1, QLatin1Char(' ')), Refusal::TooLong);
        row("zero", forget(QString(QChar(0))), Refusal::NotText);
        row("half a character", forget(QString(QChar(0xd800))), Refusal::NotText);
    }
    void refuses()
    {
        const auto [text, why] = zeltest::row<QString, Refusal>();
        Refusal reason = Refusal::TooLong;
        QVERIFY(!parseStatement(text, &reason));
        QCOMPARE(toText(reason), toText(why));
    }

    void understandsCommands_data()
    {
        // kind: index in ServiceCommand, -1: not understood
        const auto row = zeltest::table<QString, int>("line", "kind");
        const QString text = base64("selects >>>o?o?~? 获取"_s);
        row("radar", "/GetRadarMsg=%1 /TaskGuid=GetUnreadRadarMsg"_s.arg(text), 0);
        row("stored, other order and case, quoted",
            "  /TASKGUID:\"a b$$$$c\"  \"/getstoredmsg=%1\" "_s.arg(text), 0);
        row("empty statement", "/GetRadarMsg= /TaskGuid=g", 0);
        row("open", "/openRadarSwitch /type=1", 1);
        row("backup", "/SwitchBackupStatus=true /BackupType=2", 2);
        row("tray", "/ClearAllTrayUnread=1 /MessageType=zel.file", 3);
        row("link document", "/InsertLinkCreateDocMsg=%1"_s.arg(base64("{\"fileId\":\"f\"}"_s)), 4);

        row("nothing", QString(), -1);
        row("unknown", "/format=c:", -1);
        row("no guid", "/GetRadarMsg=%1"_s.arg(text), -1);
        row("guid too long",
            "/GetRadarMsg=%1 /TaskGuid=%2"_s.arg(text, QString(MaxGuidLength + 1, QLatin1Char('g'))), -1);
        row("two tables", "/GetRadarMsg=%1 /GetStoredMsg=%1 /TaskGuid=g"_s.arg(text), -1);
        row("a name twice", "/openRadarSwitch /type=1 /TYPE=2", -1);
        row("text between", "/openRadarSwitch now /type=1", -1);
        row("open quote", "/openRadarSwitch /type=\"1", -1);
        row("no Base64", "/GetRadarMsg=c2Vs*Q== /TaskGuid=g", -1);
        row("wide characters in Base64", "/GetRadarMsg=获获获获 /TaskGuid=g", -1);
        row("no UTF-8", "/GetRadarMsg=/w== /TaskGuid=g", -1);
        row("source 0", "/openRadarSwitch /type=0", -1);
        row("source 5", "/closeRadarSwitch /type=5", -1);
        row("half switched", "/SwitchBackupStatus=2 /BackupType=1", -1);
        row("tray without a type", "/ClearAllTrayUnread=1 /MessageType=", -1);
        row("tray not to be cleared", "/ClearAllTrayUnread=0 /MessageType=zel.file", -1);
        row("link document without a file", "/InsertLinkCreateDocMsg=%1"_s.arg(base64("{}"_s)), -1);
        row("too long", "/openRadarSwitch /type=1"_s + QString(MaxCommandLength, QLatin1Char(' ')), -1);
    }

    void understandsCommands()
    {
        const auto [line, kind] = zeltest::row<QString, int>();
        const auto command = parseCommand(line);
        QCOMPARE(command ? int(command->index()) : -1, kind);
        const QString sent = "selects >>>o?o?~? 获取"_s;
        if (kind == 0 && line.contains(base64(sent)))
            QCOMPARE(std::get<TableCommand>(*command).statement, sent);
    }

private:
    static inline const QString Family =
        "(topic = 'zel.file' or topic = 'zel.link' or topic = 'zel.link.local')"_s;
    /// A count of the unread messages of `count` ids.
    static QString unreadOf(int count)
    {
        QStringList ids;
        for (int i = 0; i < count; ++i)
            ids.append("fileId = 'f%1'"_s.arg(i));
        return "select fileId,count(*) from metadata_zelbox_filemessage where read = 0 and ("_s
            + ids.join(" or "_s) + ") and "_s + Family + " group by fileId"_s;
    }
    static QString forget(const QString &path)
    {
        return "delete from metadata_zelbox_fileradar where FilePath = '%1'"_s.arg(path);
    }
    static QString messagesOf(const QString &id, const QString &tail)
    {
        return "select * from metadata_zelbox_filemessage where fileId = '"_s + id + "' and "_s + Family
            + tail;
    }
    static QString readUpTo(const QString &id, const QString &time)
    {
        return "Update metadata_zelbox_filemessage Set read = 1 Where fileId = '"_s + id + "' and time <= "_s
            + time;
    }
    static QString base64(const QString &text) { return QString::fromLatin1(text.toUtf8().toBase64()); }
};

QTEST_GUILESS_MAIN(StatementsTest)
#include "tst_statements.moc"
